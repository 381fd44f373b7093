// Structures and arrays as values. C has structures as values where one is assigned, passed and returned, so such a
// value is loaded right before it is used, and stored right after it is given. All else goes through variables and
// their members.
//
//     %0 = load { i16, i16 }, { i16, i16 }* %p
//     %f = extractvalue { i16, i16 } %0, 0
//     %1 = insertvalue { i16, i16 } undef, i16 %f, 1
//     store { i16, i16 } %1, { i16, i16 }* %q
// becomes
//     %2 = getelementptr { i16, i16 }, { i16, i16 }* %p, i32 0, i32 0
//     %f = load i16, i16* %2
//     %3 = getelementptr { i16, i16 }, { i16, i16 }* %parts, i32 0, i32 1
//     store i16 %f, i16* %3
//     %4 = load { i16, i16 }, { i16, i16 }* %parts
//     store { i16, i16 } %4, { i16, i16 }* %q
//
// Before: intrinsics, invokes and atomics are lowered. After: no extractvalue and insertvalue, no phi, select or freeze
// of such types; a loaded structure has one user, which is a store, a call or a ret in the same block with no write to
// memory between; the result of a call has one user, a store; a parameter has one user, a store. No value is an array.
// Structures that functions take or give have a name.
#include "adapt/passes/edit.h"
#include "adapt/passes/passes.h"

#include <string>

namespace adapt {

namespace {

constexpr std::uint64_t most_elements = 64;  // of an array that are copied or set one by one
constexpr std::uint64_t most_zeros = 8;      // members that are set to zero one by one
constexpr std::uint32_t most_between = 64;   // instructions between a load and its user
constexpr std::uint32_t direct = 1;          // mark of a value that is used as it stands
constexpr std::uint32_t hidden = 2;          // mark of a variable that only loads and stores know
constexpr std::string_view variable_name = "parts";

// ---- Types ----

bool isarray(const Type *type)
{
    return type->kind == TypeKind::array;
}

// What a function takes and gives by value. False after a refusal.
bool checksignature(Function &function, const Value *inst, const Type *type)
{
    bool arrays = isarray(type->sub);
    for (Type *param : type->members) {
        arrays = arrays || isarray(param);
    }
    if (arrays) {
        refuse(function, inst, "array by value");
    }
    return !arrays;
}

// ---- Copies and constants ----

bool isvalue(const Value *value)
{
    return isaggregate(value->type);
}

Type *memberof(const Type *type, std::uint64_t place)
{
    return isarray(type) ? type->sub : membersof(type)[place];
}

std::uint64_t countof(const Type *type)
{
    return isarray(type) ? type->count : membersof(type).size();
}

Value *bytesof(Value *place, Value *pointer)
{
    Module &module = *place->block->function->module;
    return putbitcast(place, pointer, pointerto(module, inttype(module, 8)));
}

Type *sizetype(const Module &module)
{
    return inttype(const_cast<Module &>(module), static_cast<std::uint32_t>(module.layout.pointer_size * 8));
}

void putmemset(Value *place, Value *pointer, const Type *type)
{
    Module &module = *place->block->function->module;
    Type *bytes = pointerto(module, inttype(module, 8));
    Type *size = sizetype(module);
    Type *flag = inttype(module, 1);
    const std::string name = "llvm.memset.p0i8." + typetext(size);
    Type *callee = functiontype(module, voidtype(module), {bytes, inttype(module, 8), size, flag}, false);
    putcall(place, needfunction(module, name, callee),
            {bytesof(place, pointer), intconst(module, inttype(module, 8), 0),
             intconst(module, size, sizeoftype(module, type)), intconst(module, flag, 0)});
}

void putmemcpy(Value *place, Value *from, Value *to, const Type *type)
{
    Module &module = *place->block->function->module;
    Type *bytes = pointerto(module, inttype(module, 8));
    Type *size = sizetype(module);
    Type *flag = inttype(module, 1);
    const std::string name = "llvm.memcpy.p0i8.p0i8." + typetext(size);
    Type *callee = functiontype(module, voidtype(module), {bytes, bytes, size, flag}, false);
    putcall(place, needfunction(module, name, callee),
            {bytesof(place, to), bytesof(place, from), intconst(module, size, sizeoftype(module, type)),
             intconst(module, flag, 0)});
}

void putcopy(Value *place, Value *from, Value *to, Type *type, bool is_volatile)
{
    if (!isarray(type)) {
        Value *load = putload(place, from, type);
        load->is_volatile = is_volatile;
        putstore(place, load, to)->is_volatile = is_volatile;
        return;
    }
    if (type->count > most_elements || isarray(type->sub)) {
        putmemcpy(place, from, to, type);
        return;
    }
    for (std::uint64_t i = 0; i < type->count; ++i) {
        putcopy(place, putmember(place, from, type, i), putmember(place, to, type, i), type->sub, is_volatile);
    }
}

// Stores a constant member by member. Types nest as deep as the reader of them allows.
void putconstant(Value *place, const Value *constant, Value *to)
{
    Function &function = *place->block->function;
    Type *type = constant->type;
    if (constant->kind == ValueKind::undef) {
        return;
    }
    if (!isaggregate(type)) {
        putstore(place, const_cast<Value *>(constant), to);
        return;
    }
    const std::uint64_t count = countof(type);
    if (constant->kind == ValueKind::zero && (count > most_zeros || isarray(type))) {
        putmemset(place, to, type);
        return;
    }
    if (count > most_elements) {
        refuse(function, place, "large constant as a value");
        return;
    }
    for (std::uint64_t i = 0; i < count; ++i) {
        Type *inner = memberof(type, i);
        const Value *member = constant->kind == ValueKind::aggregate ? operand(constant, i)
                              : constant->kind == ValueKind::string
                                  ? intconst(*function.module, inner, static_cast<unsigned char>(constant->text[i]))
                                  : zeroconst(*function.module, inner);
        putconstant(place, member, putmember(place, to, type, i));
    }
}

// ---- Variables of values ----

bool staysuntil(const Value *load, const Value *end);

Value *slotof(Function &function, Value *value)
{
    if (value->note == nullptr) {
        value->note = addslot(function, value->type, value->name.empty() ? variable_name : value->name);
    }
    return static_cast<Value *>(value->note);
}

// A variable that holds the value at `place`.
Value *slotat(Value *place, Value *value)
{
    Function &function = *place->block->function;
    if (!isconstant(value)) {
        return slotof(function, value);
    }
    Value *slot = addslot(function, value->type, variable_name);
    putconstant(place, value, slot);
    return slot;
}

void putvalue(Value *place, Value *value, Value *to, bool is_volatile)
{
    if (isconstant(value)) {
        putconstant(place, value, to);
    } else if (value->op == Op::load && value->block == place->block && !value->is_volatile &&
               staysuntil(value, place)) {
        putcopy(place, operand(value, 0), to, value->type, is_volatile);
    } else {
        putcopy(place, slotof(*place->block->function, value), to, value->type, is_volatile);
    }
}

// The address that the indices of extractvalue and insertvalue lead to.
Value *putpath(Value *place, Value *pointer, Type *type, const std::vector<std::uint32_t> &indices)
{
    for (const std::uint32_t index : indices) {
        pointer = putmember(place, pointer, type, index);
        type = memberof(type, index);
    }
    return pointer;
}

// ---- Values that can stay ----

// Whether an instruction may change what was loaded.
bool changes(const Value *inst, const Value *load)
{
    if (inst->op != Op::store) {
        return inst->op == Op::call;
    }
    const Value *to = operand(inst, 1);
    return inst->is_volatile || to->mark != hidden || to == operand(load, 0);
}

// What was loaded is still in memory where `end` stands, in the same block.
bool staysuntil(const Value *load, const Value *end)
{
    const Value *inst = load->next;
    for (std::uint32_t i = 0; i < most_between && inst != nullptr; ++i, inst = inst->next) {
        if (inst == end) {
            return true;
        }
        if (changes(inst, load)) {
            return false;
        }
    }
    return false;
}

bool loadedatuse(const Value *load)
{
    const Value *user = load->uses->user;
    return (user->op == Op::store || user->op == Op::call || user->op == Op::ret) && staysuntil(load, user);
}

// The result of a call, or a parameter, is stored and nothing else.
bool storedonly(const Value *value)
{
    return value->uses->user->op == Op::store && operand(value->uses->user, 0) == value;
}

bool isdirect(const Value *value)
{
    if (isarray(value->type) || !hasoneuse(value)) {
        return false;
    }
    if (value->op == Op::load) {
        return loadedatuse(value);
    }
    return (value->op == Op::call || value->kind == ValueKind::parameter) && storedonly(value) &&
           (value->kind == ValueKind::parameter || value->uses->user == value->next);
}

// A load that is only taken apart loads the members.
bool takenapart(const Value *load)
{
    bool apart = hasuses(load);
    for (const Use *use = load->uses; use != nullptr; use = use->next) {
        apart = apart && use->user->op == Op::extractvalue && !isvalue(use->user);
    }
    return apart;
}

void loadmembers(Value *load)
{
    while (hasuses(load)) {
        Value *part = load->uses->user;
        Value *address = putpath(load, operand(load, 0), load->type, part->indices);
        Value *member = putload(load, address, part->type);
        member->is_volatile = load->is_volatile;
        replaceinst(part, member);
    }
    remove(load);
}

// ---- Users of values ----

struct State {
    Function *function = nullptr;
    std::vector<Value *> dead;  // go at the end; until then they keep what they use in use
};

bool needsslot(const Value *value)
{
    return isvalue(value) && (isconstant(value) || value->mark != direct);
}

// ret and call take a structure that was loaded right before.
void lowerarguments(Value *user)
{
    for (std::uint32_t i = user->op == Op::call ? 1 : 0; i < user->operand_count; ++i) {
        Value *value = operand(user, i);
        if (needsslot(value)) {
            setoperand(user, i, putload(user, slotat(user, value), value->type));
        }
    }
}

void lowerstore(State &state, Value *store)
{
    if (needsslot(operand(store, 0))) {
        putvalue(store, operand(store, 0), operand(store, 1), store->is_volatile);
        state.dead.push_back(store);
    }
}

void lowerextract(State &state, Value *part)
{
    Value *whole = operand(part, 0);
    Value *address = putpath(part, slotat(part, whole), whole->type, part->indices);
    if (isvalue(part)) {
        putcopy(part, address, slotof(*state.function, part), part->type, false);
    } else {
        Value *member = putload(part, address, part->type);
        member->name = part->name;
        replaceuses(part, member);
    }
    state.dead.push_back(part);
}

// A value that only this instruction changes lends its variable.
void lowerinsert(State &state, Value *inst)
{
    Value *whole = operand(inst, 0);
    Value *member = operand(inst, 1);
    const bool same =
        whole->op == Op::insertvalue && !isconstant(whole) && hasoneuse(whole) && whole->block == inst->block;
    Value *slot = nullptr;
    if (same) {
        inst->note = slotof(*state.function, whole);
        slot = slotof(*state.function, inst);
    } else {
        slot = slotof(*state.function, inst);
        putvalue(inst, whole, slot, false);
    }
    Value *address = putpath(inst, slot, inst->type, inst->indices);
    if (isvalue(member)) {
        putvalue(inst, member, address, false);
    } else {
        putstore(inst, member, address);
    }
    state.dead.push_back(inst);
}

void lowerselect(State &state, Value *inst)
{
    Value *yes = slotat(inst, operand(inst, 1));
    Value *no = slotat(inst, operand(inst, 2));
    Value *chosen = putselect(inst, operand(inst, 0), yes, no);
    putcopy(inst, chosen, slotof(*state.function, inst), inst->type, false);
    state.dead.push_back(inst);
}

std::size_t countphis(const Block *block)
{
    std::size_t count = 0;
    for (const Value *inst = block->first; inst != nullptr && inst->op == Op::phi; inst = inst->next) {
        count += isvalue(inst) ? 1U : 0U;
    }
    return count;
}

// Each block before stores its value. Where the variable may still be read after that, another one comes between.
void lowerphi(State &state, Value *phi)
{
    Function &function = *state.function;
    Value *slot = slotof(function, phi);
    bool at_once = countphis(phi->block) == 1;
    for (const Block *pred : phi->targets) {
        at_once = at_once && pred->last->targets.size() == 1;
    }
    Value *given = at_once ? slot : addslot(function, phi->type, variable_name);
    for (std::uint32_t i = 0; i < phi->operand_count; ++i) {
        Value *value = operand(phi, i);
        if (value != phi || !at_once) {
            putvalue(phi->targets[i]->last, value, given, false);
        }
    }
    if (!at_once) {
        Value *place = phi;
        while (place->op == Op::phi) {
            place = place->next;
        }
        putcopy(place, given, slot, phi->type, false);
    }
    state.dead.push_back(phi);
}

// ---- What gives a value ----

void lowerload(State &state, Value *load)
{
    putcopy(load, operand(load, 0), slotof(*state.function, load), load->type, load->is_volatile);
    state.dead.push_back(load);
}

void storeresult(State &state, Value *call)
{
    if (isvalue(call) && call->mark != direct && hasuses(call)) {
        putstore(call->next, call, slotof(*state.function, call));
    }
}

void lowerinst(State &state, Value *inst)
{
    switch (inst->op) {
    case Op::load:
        if (needsslot(inst)) {
            lowerload(state, inst);
        }
        return;
    case Op::store:
        lowerstore(state, inst);
        return;
    case Op::extractvalue:
        lowerextract(state, inst);
        return;
    case Op::insertvalue:
        lowerinsert(state, inst);
        return;
    case Op::phi:
        if (isvalue(inst)) {
            lowerphi(state, inst);
        }
        return;
    case Op::select:
        if (isvalue(inst)) {
            lowerselect(state, inst);
        }
        return;
    case Op::call:
        lowerarguments(inst);
        storeresult(state, inst);
        return;
    case Op::ret:
        lowerarguments(inst);
        return;
    default:
        return;
    }
}

// Parameters that aren't stored at once are stored at the start.
void storeparameters(State &state)
{
    Value *place = state.function->blocks.front()->first;
    while (place->op == Op::alloca_) {
        place = place->next;
    }
    for (Value *param : state.function->params) {
        if (isvalue(param) && param->mark != direct && hasuses(param)) {
            putstore(place, param, slotof(*state.function, param));
        }
    }
}

// Takes loads apart, and looks at what functions take and give. False after a refusal.
bool prepare(Function &function)
{
    bool good = checksignature(function, nullptr, function.global->type);
    for (Block *block : function.blocks) {
        for (Value *inst : instsof(block)) {
            if (inst->op == Op::call && inst->element != nullptr) {
                good = checksignature(function, inst, inst->element) && good;
            } else if (inst->op == Op::freeze && isvalue(inst)) {
                replaceinst(inst, operand(inst, 0));
            } else if (inst->op == Op::load && isvalue(inst) && takenapart(inst)) {
                loadmembers(inst);
            } else if (inst->op == Op::load && isvalue(inst) && !hasuses(inst) && !inst->is_volatile) {
                remove(inst);
            }
        }
    }
    return good;
}

void markvalue(Value *value)
{
    if (isvalue(value) && hasuses(value) && isdirect(value)) {
        value->mark = direct;
    }
}

void markslots(const Function &function)
{
    for (Value *param : function.params) {
        param->mark = 0;
        param->note = nullptr;
    }
    for (const Block *block : function.blocks) {
        for (Value *inst = block->first; inst != nullptr; inst = inst->next) {
            inst->mark = inst->op == Op::alloca_ && isplainslot(inst) ? hidden : 0;
            inst->note = nullptr;
        }
    }
}

void markvalues(const Function &function)
{
    markslots(function);
    for (Value *param : function.params) {
        markvalue(param);
    }
    for (const Block *block : function.blocks) {
        for (Value *inst = block->first; inst != nullptr; inst = inst->next) {
            markvalue(inst);
        }
    }
}

}  // namespace

void loweraggregates(Function &function)
{
    if (!prepare(function)) {
        return;
    }
    markvalues(function);
    State state;
    state.function = &function;
    storeparameters(state);
    for (Block *block : function.blocks) {
        for (Value *inst : instsof(block)) {
            lowerinst(state, inst);
        }
    }
    for (Value *inst : state.dead) {
        replaceuses(inst, undefconst(*function.module, inst->type));
        remove(inst);
        if (inst->note != nullptr && !static_cast<Value *>(inst->note)->removed) {
            dropunread(static_cast<Value *>(inst->note));
        }
    }
}

}  // namespace adapt
