// Computed constants: addresses may be computed where they are used, all else becomes instructions before the user.
//
//     store i16 add (i16 ptrtoint (i16* @a to i16), i16 2), i16* %p
//     ret i16 add (i16 2, i16 3)
// becomes
//     %0 = add i16 ptrtoint (i16* @a to i16), 2
//     store i16 %0, i16* %p
//     ret i16 5
//
// Before: constants of structures are stored member by member. After: constant expressions as operands of instructions
// consist of getelementptr, bitcast, ptrtoint and inttoptr only, and those between a pointer and an integer of another
// width are instructions too.
#include "adapt/passes/edit.h"
#include "adapt/passes/passes.h"

#include <optional>

namespace adapt {

namespace {

bool isexpression(const Value *value)
{
    return value->kind == ValueKind::expression;
}

bool pointerwide(const Module &module, const Type *type)
{
    return type->kind != TypeKind::integer || type->bits == module.layout.pointer_size * 8;
}

bool isaddress(const Module &module, const Value *value)
{
    switch (value->op) {
    case Op::getelementptr:
    case Op::bitcast:
        return value->type->kind == TypeKind::pointer;
    case Op::ptrtoint:
        return pointerwide(module, value->type);
    case Op::inttoptr:
        return pointerwide(module, operand(value, 0)->type);
    default:
        return false;
    }
}

// Whether the whole expression can stay. The reader bounds how deep one nests.
bool canstay(const Module &module, const Value *value)
{
    if (!isexpression(value)) {
        return true;
    }
    bool stays = isaddress(module, value);
    for (std::uint32_t i = 0; stays && i < value->operand_count; ++i) {
        stays = canstay(module, operand(value, i));
    }
    return stays;
}

// ---- Folding ----

std::optional<bool> compared(Predicate predicate, const Value *left, const Value *right)
{
    const std::uint64_t a = left->number;
    const std::uint64_t b = right->number;
    const std::int64_t c = signedvalue(left);
    const std::int64_t d = signedvalue(right);
    switch (predicate) {
    case Predicate::eq:
        return a == b;
    case Predicate::ne:
        return a != b;
    case Predicate::ugt:
        return a > b;
    case Predicate::uge:
        return a >= b;
    case Predicate::ult:
        return a < b;
    case Predicate::ule:
        return a <= b;
    case Predicate::sgt:
        return c > d;
    case Predicate::sge:
        return c >= d;
    case Predicate::slt:
        return c < d;
    case Predicate::sle:
        return c <= d;
    default:
        return std::nullopt;
    }
}

// What the operation gives for integers. Divisions and shifts that have no result are left to run.
std::optional<std::uint64_t> computed(Op op, const Value *left, const Value *right)
{
    const std::uint64_t a = left->number;
    const std::uint64_t b = right->number;
    switch (op) {
    case Op::add:
        return a + b;
    case Op::sub:
        return a - b;
    case Op::mul:
        return a * b;
    case Op::and_:
        return a & b;
    case Op::or_:
        return a | b;
    case Op::xor_:
        return a ^ b;
    case Op::shl:
        return b < left->type->bits ? std::optional(a << b) : std::nullopt;
    case Op::lshr:
        return b < left->type->bits ? std::optional(a >> b) : std::nullopt;
    case Op::ashr:
        return b < left->type->bits ? std::optional(static_cast<std::uint64_t>(signedvalue(left) >> b)) : std::nullopt;
    case Op::udiv:
        return b != 0 ? std::optional(a / b) : std::nullopt;
    case Op::urem:
        return b != 0 ? std::optional(a % b) : std::nullopt;
    default:
        return std::nullopt;
    }
}

Value *foldpair(Module &module, const Value *value, const Value *left, const Value *right)
{
    if (!isintconst(left) || !isintconst(right) || left->type->bits > 64) {
        return nullptr;
    }
    if (value->op == Op::icmp) {
        const std::optional<bool> truth = compared(value->predicate, left, right);
        return truth ? intconst(module, value->type, *truth ? 1 : 0) : nullptr;
    }
    const std::optional<std::uint64_t> number = computed(value->op, left, right);
    return number ? intconst(module, value->type, *number) : nullptr;
}

Value *foldone(Module &module, const Value *value, const Value *from)
{
    if (value->op == Op::ptrtoint && from->kind == ValueKind::null) {
        return intconst(module, value->type, 0);
    }
    if (!isintconst(from) || from->type->bits > 64) {
        return nullptr;
    }
    switch (value->op) {
    case Op::zext:
    case Op::trunc:
        return intconst(module, value->type, from->number);
    case Op::sext:
        return intconst(module, value->type, static_cast<std::uint64_t>(signedvalue(from)));
    default:
        return nullptr;
    }
}

// The constant that a computed one is, with operands that are folded already; null if it has to be computed.
Value *fold(Module &module, const Value *value, const std::vector<Value *> &operands)
{
    if (operands.size() == 1) {
        return foldone(module, value, operands[0]);
    }
    if (operands.size() == 2) {
        return foldpair(module, value, operands[0], operands[1]);
    }
    const bool chosen = value->op == Op::select && isintconst(operands[0]);
    return chosen ? operands[operands[0]->number != 0 ? 1 : 2] : nullptr;
}

// ---- Instructions ----

Value *hoist(Function &function, Value *value, Value *place)
{
    Module &module = *function.module;
    if (canstay(module, value)) {
        return value;
    }
    std::vector<Value *> operands;
    for (std::uint32_t i = 0; i < value->operand_count; ++i) {
        operands.push_back(hoist(function, operand(value, i), place));
    }
    if (Value *folded = fold(module, value, operands); folded != nullptr) {
        return folded;
    }
    Value *inst = putinst(place, value->op, value->type, operands);
    inst->element = value->element;
    inst->predicate = value->predicate;
    inst->indices = value->indices;
    return inst;
}

void lowerinst(Function &function, Value *inst)
{
    for (std::uint32_t i = 0; i < inst->operand_count; ++i) {
        Value *value = operand(inst, i);
        if (isexpression(value) && !canstay(*function.module, value)) {
            setoperand(inst, i, hoist(function, value, inst->op == Op::phi ? inst->targets[i]->last : inst));
        }
    }
}

}  // namespace

void hoistconstants(Function &function)
{
    for (Block *block : function.blocks) {
        for (Value *inst : instsof(block)) {
            lowerinst(function, inst);
        }
    }
}

}  // namespace adapt
