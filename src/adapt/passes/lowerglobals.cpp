// Globals that C has in another form.
//
// A variable that several files may define, as a static of an inline function or of a template, is one variable after
// linking. quarl can't print it as weak, but it can so print a function. So the variable is written as a static one,
// with a function that gives its address: the linker keeps one of these functions, and so all files use one variable.
//
//     @x = linkonce_odr global i16 3          @x = internal global i16 3
//                                             define weak i16* @x_at() {
//                                               ret i16* @x
//                                             }
//
// An alias stands for its target everywhere in the module. One that other files may know is left to quarl.
#include "adapt/passes/passes.h"

#include <algorithm>

namespace adapt {

namespace {

constexpr unsigned deepest = 200;

// ---- Definitions of other files ----

void dropavailable(Global &global)
{
    if (global.linkage == Linkage::available_externally) {
        global.linkage = Linkage::external;
        global.declared_only = true;
        global.initialiser = nullptr;
        global.body = {};
    }
}

// ---- Aliases ----

// The target behind aliases of aliases, as the address of a global or a computed constant; null in a circle.
Value *aliastarget(const Global &alias)
{
    Value *target = alias.initialiser;
    for (unsigned step = 0; step < deepest && target != nullptr; ++step) {
        if (target->kind != ValueKind::global || target->global->kind != GlobalKind::alias) {
            return target;
        }
        target = target->global->initialiser;
    }
    return nullptr;
}

// All that refers to the alias refers to its target.
void resolvealias(Module &module, Global &alias)
{
    Value *target = aliastarget(alias);
    Address address;
    if (target == nullptr || !findaddress(module, target, address) || address.global == nullptr) {
        refuse(module, &alias, "alias of no variable or function");
        return;
    }
    const bool visible = alias.linkage != Linkage::internal && alias.linkage != Linkage::private_;
    if (visible && (address.offset != 0 || address.global->kind == GlobalKind::alias)) {
        refuse(module, &alias, "alias of a place inside a variable");
        return;
    }
    Value *value = alias.value;
    const Type *type = value->type;
    if (target->kind == ValueKind::global && target->type == type) {
        value->global = target->global;
    } else {
        const Value *cast = exprconst(module, Op::bitcast, value->type, {target});
        value->kind = ValueKind::expression;
        value->op = Op::bitcast;
        value->operands = cast->operands;
        value->operand_count = cast->operand_count;
        value->global = nullptr;
    }
    alias.initialiser = address.global->value;
    alias.dropped = !visible;
}

// ---- Variables that several files define ----

bool isshared(const Global &global)
{
    return global.kind == GlobalKind::variable && !global.declared_only && !global.is_constant &&
           (global.linkage == Linkage::linkonce_odr || global.linkage == Linkage::linkonce);
}

void makeaccessor(Module &module, Global &variable)
{
    Global &made = module.globals.emplace_back();
    made.kind = GlobalKind::function;
    made.linkage = Linkage::weak;
    made.name = variable.name + "_at";
    made.type = functiontype(module, variable.value->type, {}, false);
    made.attributes.resize(1);
    made.line = variable.line;
    made.body_line = variable.line;
    const std::string body = "  ret " + typetext(variable.value->type) + " @\"" + variable.name + "\"\n";
    made.body = module.arena.texts.emplace_back(body);
    Value &value = module.arena.values.emplace_back();
    value.kind = ValueKind::global;
    value.type = pointerto(module, made.type);
    value.global = &made;
    made.value = &value;
    module.global_by_name.emplace(made.name, &made);
    variable.accessor = &made;
    variable.linkage = Linkage::internal;
}

void sharevariables(Module &module)
{
    const std::size_t count = module.globals.size();
    for (std::size_t i = 0; i < count; ++i) {
        if (isshared(module.globals[i])) {
            makeaccessor(module, module.globals[i]);
        }
    }
}

bool namesshared(const Value *constant, unsigned depth)
{
    if (constant->kind == ValueKind::global) {
        return constant->global->accessor != nullptr;
    }
    for (std::uint32_t i = 0; depth < deepest && i < constant->operand_count; ++i) {
        if (namesshared(operand(constant, i), depth + 1)) {
            return true;
        }
    }
    return false;
}

// ---- LLVM's own tables ----

// The third element of a row says which variable the function is for, which nobody reads in C.
void cleartables(Module &module, Global &global)
{
    Value *list = global.initialiser;
    if (list == nullptr || list->kind != ValueKind::aggregate) {
        return;
    }
    std::vector<Value *> rows;
    for (std::uint32_t i = 0; i < list->operand_count; ++i) {
        const Value *row = operand(list, i);
        if (row->kind != ValueKind::aggregate || row->operand_count != 3) {
            return;
        }
        Value *last = operand(row, 2);
        rows.push_back(
            aggregateconst(module, row->type, {operand(row, 0), operand(row, 1), nullconst(module, last->type)}));
    }
    global.initialiser = aggregateconst(module, list->type, rows);
}

// One table of what must stay, by the name that quarl knows.
void mergeused(Module &module)
{
    const auto weaker = module.global_by_name.find("llvm.compiler.used");
    if (weaker == module.global_by_name.end()) {
        return;
    }
    Global &table = *weaker->second;
    const auto stronger = module.global_by_name.find("llvm.used");
    if (stronger == module.global_by_name.end()) {
        table.name = "llvm.used";
        return;
    }
    Global &other = *stronger->second;
    table.dropped = true;
    if (table.initialiser->kind != ValueKind::aggregate || other.initialiser->kind != ValueKind::aggregate) {
        return;
    }
    std::vector<Value *> rows;
    for (const Global *global : {&other, &table}) {
        for (std::uint32_t i = 0; i < global->initialiser->operand_count; ++i) {
            rows.push_back(operand(global->initialiser, i));
        }
    }
    other.type = arrayof(module, other.type->sub, rows.size());
    other.initialiser = aggregateconst(module, other.type, rows);
}

// ---- What C can't say of a global ----

// Code that runs before main has a section of its own on some targets; quarl has its own table for it.
bool runsbeforemain(const Global &global)
{
    return global.name.starts_with("__cxx_global_var_init") || global.name.starts_with("_GLOBAL__");
}

void checkwords(Module &module, const Global &global)
{
    if (global.thread_local_) {
        refuse(module, &global, "thread-local variable");
    }
    if (!global.section.empty() && !global.name.starts_with("llvm.") && !runsbeforemain(global)) {
        warn(module, &global, "loses its section " + std::string(global.section));
    }
    const bool weak = global.linkage == Linkage::weak || global.linkage == Linkage::weak_odr;
    if (weak && global.kind == GlobalKind::variable && !global.declared_only && !global.is_constant) {
        warn(module, &global, "weak variable: C defines it as any other");
    }
    if (global.linkage == Linkage::extern_weak) {
        warn(module, &global, "weak declaration: C takes it as defined");
    }
    const bool table = global.name.starts_with("llvm.");  // keeps this file's own one
    if (global.initialiser != nullptr && global.kind == GlobalKind::variable && !table &&
        namesshared(global.initialiser, 0)) {
        refuse(module, &global, "address of a variable that other files may define as well, in an initialiser");
    }
}

// ---- Uses of shared variables in functions ----

struct Sharing {
    Function &function;
    std::vector<std::pair<Global *, Value *>> calls;  // made so far
};

// After the allocas, which stay together.
Value *startof(const Function &function)
{
    Value *inst = function.blocks.front()->first;
    while (inst->op == Op::alloca_) {
        inst = inst->next;
    }
    return inst;
}

// The last name in a mangled one: count of _ZZ4nextvE5count.
std::string_view sourcename(std::string_view name)
{
    for (std::size_t at = 0; at < name.size(); ++at) {
        std::size_t length = 0;
        std::size_t start = at;
        while (start < name.size() && name[start] >= '0' && name[start] <= '9' && length < name.size()) {
            length = length * 10 + static_cast<std::size_t>(name[start++] - '0');
        }
        const bool fits = length > 0 && length <= name.size() - start;
        if (fits && name.substr(start + length).find_first_not_of("E_0123456789") == std::string_view::npos) {
            return name.substr(start, length);
        }
    }
    return name;
}

Value *addressof(Sharing &sharing, Global *variable)
{
    for (const auto &[global, call] : sharing.calls) {
        if (global == variable) {
            return call;
        }
    }
    Global *accessor = variable->accessor;
    Value *call = newinst(sharing.function, Op::call, variable->value->type, {accessor->value});
    call->element = accessor->type;
    call->name = keeptext(sharing.function, plainname(sourcename(variable->name)));
    insertbefore(call, startof(sharing.function));
    sharing.calls.emplace_back(variable, call);
    return call;
}

// The constant computed by instructions before `place`, with calls in the place of variables.
Value *spellout(Sharing &sharing, Value *constant, Value *place, unsigned depth)
{
    if (!namesshared(constant, 0) || depth > deepest) {
        return constant;
    }
    if (constant->kind == ValueKind::global) {
        return addressof(sharing, constant->global);
    }
    std::vector<Value *> operands;
    for (std::uint32_t i = 0; i < constant->operand_count; ++i) {
        operands.push_back(spellout(sharing, operand(constant, i), place, depth + 1));
    }
    Value *made = newinst(sharing.function, constant->op, constant->type, operands);
    made->element = constant->element;
    made->predicate = constant->predicate;
    made->line = place->line;
    made->location = place->location;
    insertbefore(made, place);
    return made;
}

void spelloutoperands(Sharing &sharing, Value *inst)
{
    for (std::uint32_t i = 0; i < inst->operand_count; ++i) {
        Value *value = operand(inst, i);
        if (value == nullptr || !isconstant(value) || !namesshared(value, 0)) {
            continue;
        }
        if (value->kind == ValueKind::aggregate) {
            refuse(sharing.function, inst, "address of a variable that other files may define as well, in a constant");
            return;
        }
        Value *place = inst->op == Op::phi ? inst->targets[i]->last : inst;
        setoperand(inst, i, spellout(sharing, value, place, 0));
    }
}

}  // namespace

void lowerglobals(Module &module)
{
    for (Global &global : module.globals) {
        dropavailable(global);
    }
    for (Global &global : module.globals) {
        if (global.kind == GlobalKind::alias) {
            resolvealias(module, global);
        } else if (global.name == "llvm.global_ctors" || global.name == "llvm.global_dtors") {
            cleartables(module, global);
        } else if (global.name == "llvm.global.annotations") {
            global.dropped = true;
        }
    }
    mergeused(module);
    sharevariables(module);
    lowertables(module);
    for (const Global &global : module.globals) {
        if (!global.dropped) {
            checkwords(module, global);
        }
    }
}

void lowershared(Function &function)
{
    if (function.global->name.ends_with("_at") && function.global->linkage == Linkage::weak) {
        const auto found = function.module->global_by_name.find(
            std::string_view(function.global->name).substr(0, function.global->name.size() - 3));
        if (found != function.module->global_by_name.end() && found->second->accessor == function.global) {
            return;
        }
    }
    Sharing sharing = {function, {}};
    for (Block *block : function.blocks) {
        for (Value *inst = block->first; inst != nullptr; inst = inst->next) {
            spelloutoperands(sharing, inst);
        }
    }
}

}  // namespace adapt
