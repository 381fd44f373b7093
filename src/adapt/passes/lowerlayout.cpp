// Accesses to members that C lays out otherwise than LLVM, see settletypes.cpp. For a structure that is written with
// bytes in the place of its second member:
//
//     %p = getelementptr %struct.s, %struct.s* %s, i32 0, i32 1
//
//     %0 = bitcast %struct.s* %s to i8*
//     %1 = getelementptr i8, i8* %0, i32 1
//     %p = bitcast i8* %1 to i32*
//
// A member that is only written in another place gets the number of that. Before: any plain IR. After: every
// getelementptr takes the members as they are written, and every literal structure has a name.
#include "adapt/passes/passes.h"

namespace adapt {

namespace {

constexpr unsigned deepest = 200;

// Where instructions or constants are made: in a function before `place`, else in the module.
struct Maker {
    Module &module;
    Function *function = nullptr;
    Value *place = nullptr;
};

Value *make(Maker &maker, Op op, Type *type, const std::vector<Value *> &operands, Type *element = nullptr)
{
    bool constant = maker.function == nullptr;
    if (!constant) {
        constant = true;
        for (const Value *value : operands) {
            constant = constant && isconstant(value);
        }
    }
    if (constant) {
        if (op == Op::bitcast && operands[0]->type == type) {
            return operands[0];
        }
        Value *made = exprconst(maker.module, op, type, operands);
        made->element = element;
        return made;
    }
    Value *made = newinst(*maker.function, op, type, operands);
    made->element = element;
    made->line = maker.place->line;
    made->location = maker.place->location;
    insertbefore(made, maker.place);
    return made;
}

Type *offsettype(Module &module)
{
    return inttype(module, static_cast<std::uint32_t>(module.layout.pointer_size * 8));
}

// The indices of a getelementptr, walked one by one. `base` and `indices` are what is not made yet.
struct Walk {
    Value *base;
    Type *source;  // what base points to
    std::vector<Value *> indices;
    Type *type;  // what they lead to
};

void startover(Module &module, Walk &walk, Value *base, Type *type)
{
    walk.base = base;
    walk.source = type;
    walk.type = type;
    walk.indices = {intconst(module, inttype(module, 32), 0)};
}

Value *makepointer(Maker &maker, const Walk &walk)
{
    if (walk.indices.size() == 1 && walk.indices[0]->kind == ValueKind::integer && walk.indices[0]->number == 0) {
        return walk.base;
    }
    std::vector<Value *> operands = {walk.base};
    operands.insert(operands.end(), walk.indices.begin(), walk.indices.end());
    return make(maker, Op::getelementptr, pointerto(maker.module, walk.type), operands, walk.source);
}

// Goes on from the pointer so far plus `bytes` at a value of this type.
void stepbytes(Maker &maker, Walk &walk, Value *bytes, Type *type)
{
    Module &module = maker.module;
    Type *byte = inttype(module, 8);
    Value *pointer = make(maker, Op::bitcast, pointerto(module, byte), {makepointer(maker, walk)});
    if (bytes->kind != ValueKind::integer || bytes->number != 0) {
        pointer = make(maker, Op::getelementptr, pointerto(module, byte), {pointer, bytes}, byte);
    }
    startover(module, walk, make(maker, Op::bitcast, pointerto(module, type), {pointer}), type);
}

// Index times size, in the width of a pointer.
Value *scaled(Maker &maker, Value *index, std::size_t size)
{
    Type *type = offsettype(maker.module);
    if (index->kind == ValueKind::integer) {
        return intconst(maker.module, type, static_cast<std::uint64_t>(signedvalue(index)) * size);
    }
    if (index->type != type) {
        index = make(maker, index->type->bits < type->bits ? Op::sext : Op::trunc, type, {index});
    }
    return make(maker, Op::mul, type, {index, intconst(maker.module, type, size)});
}

// Elements that C steps over as LLVM does.
bool hascsize(const Module &module, Type *type)
{
    Type *element = elementof(type);
    return element->kind == TypeKind::function || (calign(module, element) != 0 && sizeoftype(module, type) != 0);
}

void stepelement(Maker &maker, Walk &walk, Value *index, Type *element)
{
    const bool zero = index->kind == ValueKind::integer && index->number == 0;
    if (zero || hascsize(maker.module, element)) {
        walk.indices.push_back(index);
        walk.type = element;
        return;
    }
    stepbytes(maker, walk, scaled(maker, index, sizeoftype(maker.module, element)), element);
}

void stepmember(Maker &maker, Walk &walk, Value *index)
{
    Module &module = maker.module;
    Type *structure = walk.type;
    Type *member = membersof(structure)[index->number];
    const std::int64_t place = writtenplace(*structof(structure), index->number);
    if (place >= 0) {
        walk.indices.push_back(intconst(module, index->type, static_cast<std::uint64_t>(place)));
        walk.type = member;
        return;
    }
    const std::size_t offset = offsetof_member(module, structure, index->number);
    stepbytes(maker, walk, intconst(module, offsettype(module), offset), member);
}

// True if an index leads into a structure that is written otherwise, or counts elements of no size in C.
bool needswork(Module &module, const Value *access)
{
    Type *type = access->element;
    bool needed = false;
    for (std::uint32_t i = 1; i < access->operand_count; ++i) {
        const Value *index = operand(access, i);
        const bool zero = index->kind == ValueKind::integer && index->number == 0;
        if (i > 1 && type->kind == TypeKind::structure) {
            settleliteral(module, type);
            needed = needed || structof(type)->relaid;
            type = membersof(type)[index->number];
            continue;
        }
        type = i == 1 ? type : type->sub;
        settleliteral(module, type);
        needed = needed || (!zero && !hascsize(module, type));
    }
    return needed;
}

Value *lowered(Maker &maker, const Value *access, Value *base)
{
    Walk walk = {base, access->element, {}, access->element};
    for (std::uint32_t i = 1; i < access->operand_count; ++i) {
        Value *index = operand(access, i);
        if (i > 1 && walk.type->kind == TypeKind::structure) {
            stepmember(maker, walk, index);
        } else {
            stepelement(maker, walk, index, i == 1 ? walk.type : walk.type->sub);
        }
    }
    return makepointer(maker, walk);
}

// Casts of casts become one, or none.
Value *uncast(Value *constant)
{
    while (constant->kind == ValueKind::expression && constant->op == Op::bitcast) {
        constant = operand(constant, 0);
    }
    return constant;
}

Value *lowerconstant(Module &module, Value *constant, unsigned depth)
{
    if (constant->kind != ValueKind::expression || depth > deepest) {
        return constant;
    }
    bool changed = false;
    std::vector<Value *> operands;
    for (std::uint32_t i = 0; i < constant->operand_count; ++i) {
        Value *value = operand(constant, i);
        Value *inner = constant->op == Op::bitcast ? uncast(value) : value;
        operands.push_back(lowerconstant(module, inner, depth + 1));
        changed = changed || operands.back() != value;
    }
    if (constant->op == Op::bitcast && operands[0]->type == constant->type) {
        return operands[0];
    }
    if (constant->op == Op::getelementptr && needswork(module, constant)) {
        Maker maker = {module};
        return lowered(maker, constant, operands[0]);
    }
    settleliteral(module, constant->type);
    if (!changed) {
        return constant;
    }
    Value *made = exprconst(module, constant->op, constant->type, operands);
    made->element = constant->element;
    made->predicate = constant->predicate;
    return made;
}

void loweroperands(Module &module, Value *inst)
{
    for (std::uint32_t i = 0; i < inst->operand_count; ++i) {
        Value *value = operand(inst, i);
        if (Value *made = value == nullptr ? nullptr : lowerconstant(module, value, 0); made != value) {
            setoperand(inst, i, made);
        }
    }
}

void loweraccess(Function &function, Value *inst)
{
    Maker maker = {*function.module, &function, inst};
    Value *made = lowered(maker, inst, operand(inst, 0));
    if (made->kind == ValueKind::instruction && made->name.empty()) {
        made->name = inst->name;
    }
    replaceuses(inst, made);
    remove(inst);
}

// C has no arrays without elements but at the end of a structure.
void growempty(Function &function, Value *inst)
{
    if (inst->element->kind != TypeKind::array || inst->element->count != 0) {
        return;
    }
    Module &module = *function.module;
    Value *cast = newinst(function, Op::bitcast, inst->type, {});
    insertbefore(cast, inst->next);
    replaceuses(inst, cast);
    addoperand(function, cast, inst);
    inst->element = arrayof(module, inst->element->sub, 1);
    inst->type = pointerto(module, inst->element);
}

void lowerinst(Function &function, Value *inst)
{
    Module &module = *function.module;
    loweroperands(module, inst);
    settleliteral(module, inst->type);
    if (inst->op == Op::alloca_) {
        settleliteral(module, inst->element);
        growempty(function, inst);
    } else if (inst->op == Op::getelementptr && needswork(module, inst)) {
        loweraccess(function, inst);
    }
}

}  // namespace

void lowerlayout(Function &function)
{
    for (Block *block : function.blocks) {
        for (Value *inst = block->first; inst != nullptr;) {
            Value *next = inst->next;
            lowerinst(function, inst);
            inst = next;
        }
    }
}

Value *lowerlayout(Module &module, Value *constant)
{
    return lowerconstant(module, constant, 0);
}

}  // namespace adapt
