// Arrays that the front end writes as packed structures, to say that the rest is zero:
//
//     @t = global <{ i16, i16, [98 x i16] }> <{ i16 1, i16 2, [98 x i16] zeroinitializer }>
//
//     @t = global [100 x i16] [i16 1, i16 2]
//
// C has the zeros in such an array as well. The rest of the module names the variable through a cast to the old type.
#include "adapt/passes/passes.h"

namespace adapt {

namespace {

// The number of elements of this type that a member stands for; 0 if it is none.
std::uint64_t countof(const Type *member, const Type *element)
{
    if (member == element) {
        return 1;
    }
    return member->kind == TypeKind::array && member->sub == element ? member->count : 0;
}

std::uint64_t countall(const Type *structure, const Type *element)
{
    std::uint64_t sum = 0;
    for (const Type *member : structure->members) {
        const std::uint64_t count = countof(member, element);
        if (count == 0) {
            return 0;
        }
        sum += count;
    }
    return sum;
}

// The array in the place of a packed structure, or null.
Type *arrayfor(Module &module, const Type *structure)
{
    if (structure->kind != TypeKind::structure || structure->named != nullptr || !structure->packed ||
        structure->members.size() < 2) {
        return nullptr;
    }
    Type *first = structure->members.front();
    Type *element = first;
    std::uint64_t count = countall(structure, element);
    if (count == 0 && first->kind == TypeKind::array) {
        element = first->sub;
        count = countall(structure, element);
    }
    return count == 0 ? nullptr : arrayof(module, element, count);
}

bool iszerovalue(const Value *value)
{
    return value->kind == ValueKind::zero || value->kind == ValueKind::undef;
}

void addelements(Module &module, const Value *member, const Type *type, Type *element, std::vector<Value *> &elements)
{
    if (type == element) {
        elements.push_back(const_cast<Value *>(member));
    } else if (iszerovalue(member)) {
        elements.insert(elements.end(), type->count, zeroconst(module, element));
    } else if (member->kind == ValueKind::string) {
        for (const char c : member->text) {
            elements.push_back(intconst(module, element, static_cast<unsigned char>(c)));
        }
    } else {
        for (std::uint32_t i = 0; i < member->operand_count; ++i) {
            elements.push_back(operand(member, i));
        }
    }
}

Value *asstring(Module &module, Type *type, const std::vector<Value *> &elements)
{
    std::string text;
    for (const Value *element : elements) {
        if (element->kind != ValueKind::integer && !iszerovalue(element)) {
            return nullptr;
        }
        text += static_cast<char>(element->number);
    }
    return stringconst(module, type, module.arena.texts.emplace_back(text));
}

// The elements up to the zeros at the end, which take no memory here.
Value *asarray(Module &module, const Value *structure, Type *array)
{
    std::uint32_t count = structure->operand_count;
    while (count > 0 && iszerovalue(operand(structure, count - 1))) {
        --count;
    }
    std::vector<Value *> elements;
    for (std::uint32_t i = 0; i < count; ++i) {
        addelements(module, operand(structure, i), structure->type->members[i], array->sub, elements);
    }
    Value *string = isinteger(array->sub, 8) ? asstring(module, array, elements) : nullptr;
    return string != nullptr ? string : aggregateconst(module, array, elements);
}

// What named the variable names a cast of it from now on.
void castuses(Module &module, Global &global, Type *old)
{
    Value *value = global.value;
    Value &address = module.arena.values.emplace_back();
    address.kind = ValueKind::global;
    address.global = &global;
    address.type = pointerto(module, global.type);
    const Value *cast = exprconst(module, Op::bitcast, pointerto(module, old), {&address});
    value->kind = ValueKind::expression;
    value->op = Op::bitcast;
    value->operands = cast->operands;
    value->operand_count = cast->operand_count;
    value->global = nullptr;
}

}  // namespace

void lowertables(Module &module)
{
    for (Global &global : module.globals) {
        const Value *initialiser = global.initialiser;
        if (global.kind != GlobalKind::variable || initialiser == nullptr ||
            initialiser->kind != ValueKind::aggregate) {
            continue;
        }
        Type *old = global.type;
        if (Type *array = arrayfor(module, old); array != nullptr) {
            global.initialiser = asarray(module, initialiser, array);
            global.type = array;
            castuses(module, global, old);
        }
    }
}

}  // namespace adapt
