// What the passes that lower a function share: see edit.h.
#include "adapt/passes/edit.h"

namespace adapt {

Value *putinst(Value *place, Op op, Type *type, const std::vector<Value *> &operands)
{
    Value *inst = newinst(*place->block->function, op, type, operands);
    inst->line = place->line;
    inst->location = place->location;
    insertbefore(inst, place);
    return inst;
}

Value *putcast(Value *place, Op op, Value *value, Type *type)
{
    return putinst(place, op, type, {value});
}

Value *putbitcast(Value *place, Value *pointer, Type *type)
{
    return pointer->type == type ? pointer : putcast(place, Op::bitcast, pointer, type);
}

Value *putresize(Value *place, Value *value, Type *type)
{
    if (value->type->bits == type->bits) {
        return value;
    }
    if (isintconst(value)) {
        return intconst(*place->block->function->module, type, value->number);
    }
    return putcast(place, value->type->bits < type->bits ? Op::zext : Op::trunc, value, type);
}

Value *putcompare(Value *place, Predicate predicate, Value *left, Value *right)
{
    Value *compare = putinst(place, Op::icmp, inttype(*place->block->function->module, 1), {left, right});
    compare->predicate = predicate;
    return compare;
}

Value *putselect(Value *place, Value *condition, Value *yes, Value *no)
{
    return putinst(place, Op::select, yes->type, {condition, yes, no});
}

Value *putload(Value *place, Value *pointer, Type *type)
{
    Value *load = putinst(place, Op::load, type, {pointer});
    load->element = type;
    return load;
}

Value *putstore(Value *place, Value *value, Value *pointer)
{
    return putinst(place, Op::store, voidtype(*place->block->function->module), {value, pointer});
}

Value *putmember(Value *place, Value *pointer, Type *type, std::uint64_t member)
{
    Module &module = *place->block->function->module;
    Type *index = inttype(module, 32);
    Type *inner = type->kind == TypeKind::array ? type->sub : membersof(type)[member];
    Value *address = putinst(place, Op::getelementptr, pointerto(module, inner),
                             {pointer, intconst(module, index, 0), intconst(module, index, member)});
    address->element = type;
    return address;
}

Value *putoffset(Value *place, Value *pointer, Type *type, std::uint64_t offset)
{
    if (offset == 0) {
        return pointer;
    }
    Module &module = *place->block->function->module;
    Type *index = inttype(module, static_cast<std::uint32_t>(module.layout.pointer_size * 8));
    Value *address = putinst(place, Op::getelementptr, pointer->type, {pointer, intconst(module, index, offset)});
    address->element = type;
    return address;
}

Value *putcall(Value *place, Global *callee, const std::vector<Value *> &arguments)
{
    std::vector<Value *> operands = {callee->value};
    operands.insert(operands.end(), arguments.begin(), arguments.end());
    Value *call = putinst(place, Op::call, callee->type->sub, operands);
    call->element = callee->type;
    return call;
}

Value *addslot(Function &function, Type *type, std::string_view name)
{
    Value *first = function.blocks.front()->first;
    Value *slot = putinst(first, Op::alloca_, pointerto(*function.module, type), {});
    slot->element = type;
    slot->name = name;
    return slot;
}

Global *needfunction(Module &module, std::string_view name, Type *type)
{
    if (const auto found = module.global_by_name.find(name); found != module.global_by_name.end()) {
        return found->second;
    }
    Global &made = module.globals.emplace_back();
    made.kind = GlobalKind::function;
    made.declared_only = true;
    made.name = name;
    made.written = name;
    made.type = type;
    Value &address = module.arena.values.emplace_back();
    address.kind = ValueKind::global;
    address.type = pointerto(module, type);
    address.global = &made;
    made.value = &address;
    module.global_by_name.emplace(made.name, &made);
    return &made;
}

Global *needmacro(Module &module, std::string_view name, Type *result)
{
    Global *made = needfunction(module, name, functiontype(module, result, {}, true));
    made->dropped = true;
    return made;
}

std::vector<Value *> instsof(const Block *block)
{
    std::vector<Value *> insts;
    for (Value *inst = block->first; inst != nullptr; inst = inst->next) {
        insts.push_back(inst);
    }
    return insts;
}

std::vector<Block *> reachedorder(Function &function)
{
    numberblocks(function);
    std::vector<bool> reached(function.blocks.size(), false);
    std::vector<Block *> order;
    std::vector<Block *> work = {function.blocks.front()};
    while (!work.empty()) {
        Block *block = work.back();
        work.pop_back();
        if (reached[block->index]) {
            continue;
        }
        reached[block->index] = true;
        order.push_back(block);
        work.insert(work.end(), block->last->targets.rbegin(), block->last->targets.rend());
    }
    return order;
}

void replaceinst(Value *inst, Value *with)
{
    if (with->kind == ValueKind::instruction && with->name.empty()) {
        with->name = inst->name;
    }
    replaceuses(inst, with);
    remove(inst);
}

Value *withoutcasts(Value *pointer)
{
    while (pointer->op == Op::bitcast &&
           (pointer->kind == ValueKind::instruction || pointer->kind == ValueKind::expression)) {
        pointer = operand(pointer, 0);
    }
    return pointer;
}

Global *calledglobal(const Value *call)
{
    const Value *callee = call->op == Op::call || call->op == Op::invoke ? operand(call, 0) : nullptr;
    return callee != nullptr && callee->kind == ValueKind::global ? callee->global : nullptr;
}

void dropunused(Value *value)
{
    std::vector<Value *> work = {value};
    while (!work.empty()) {
        Value *inst = work.back();
        work.pop_back();
        const bool pure =
            inst->kind == ValueKind::instruction && !inst->removed && !inst->is_volatile &&
            (inst->op == Op::getelementptr || inst->op == Op::load || (inst->op >= Op::add && inst->op <= Op::fneg) ||
             (inst->op >= Op::trunc && inst->op <= Op::select));
        if (!pure || hasuses(inst)) {
            continue;
        }
        for (std::uint32_t i = 0; i < inst->operand_count; ++i) {
            work.push_back(operand(inst, i));
        }
        remove(inst);
    }
}

bool isplainslot(const Value *slot)
{
    for (const Use *use = slot->uses; use != nullptr; use = use->next) {
        const Value *user = use->user;
        const bool plain = user->op == Op::load || (user->op == Op::store && operand(user, 0) != slot);
        if (!plain || user->is_volatile || user->is_atomic) {
            return false;
        }
    }
    return slot->op == Op::alloca_;
}

void dropunread(Value *slot)
{
    for (const Use *use = slot->uses; use != nullptr; use = use->next) {
        if (use->user->op == Op::load) {
            return;
        }
    }
    if (!isplainslot(slot)) {
        return;
    }
    while (slot->uses != nullptr) {
        Value *store = slot->uses->user;
        Value *value = operand(store, 0);
        remove(store);
        dropunused(value);
    }
    remove(slot);
}

bool isintconst(const Value *value)
{
    return value->kind == ValueKind::integer;
}

Value *copyinst(Function &function, const Value *inst)
{
    std::vector<Value *> operands;
    for (std::uint32_t i = 0; i < inst->operand_count; ++i) {
        operands.push_back(operand(inst, i));
    }
    Value *copy = newinst(function, inst->op, inst->type, operands);
    copy->predicate = inst->predicate;
    copy->is_volatile = inst->is_volatile;
    copy->is_atomic = inst->is_atomic;
    copy->nsw = inst->nsw;
    copy->nuw = inst->nuw;
    copy->element = inst->element;
    copy->name = inst->name;
    copy->number = inst->number;
    copy->text = inst->text;
    copy->constraints = inst->constraints;
    copy->targets = inst->targets;
    copy->indices = inst->indices;
    copy->attributes = inst->attributes;
    copy->location = inst->location;
    copy->line = inst->line;
    return copy;
}

}  // namespace adapt
