// A floating-point number to an unsigned integer of 64 bits, which quarl has no cast for: beyond the signed range the
// number is converted less 2^63, whose bit is set again.
//
//     %c = fptoui double %x to i64      becomes
//     %b = fcmp oge double %x, 2^63     %l = fsub double %x, 2^63     %s = fptosi double %l to i64
//     %h = xor i64 %s, MIN              %t = fptosi double %x to i64
//     %c = select i1 %b, i64 %h, i64 %t
//
// The arms of a select are only evaluated when they are chosen, in C.
//
// With emulated integers of 64 bits, quarl converts the low half alone: a double is put together from both halves.
#include "adapt/passes/passes.h"

namespace adapt {

namespace {

constexpr double two_to_32 = 4294967296.0;
constexpr double two_to_63 = 9223372036854775808.0;
constexpr std::uint64_t top_bit = std::uint64_t{1} << 63;

Value *insertnew(Function &function, Value *place, Op op, Type *type, const std::vector<Value *> &operands)
{
    Value *inst = newinst(function, op, type, operands);
    inst->location = place->location;
    insertbefore(inst, place);
    return inst;
}

void lowerconversion(Function &function, Value *inst)
{
    Module &module = *function.module;
    Value *number = operand(inst, 0);
    Value *limit = floatconst(module, number->type, two_to_63);
    Value *big = insertnew(function, inst, Op::fcmp, inttype(module, 1), {number, limit});
    big->predicate = Predicate::oge;
    Value *less = insertnew(function, inst, Op::fsub, number->type, {number, limit});
    Value *low = insertnew(function, inst, Op::fptosi, inst->type, {less});
    Value *high = insertnew(function, inst, Op::xor_, inst->type, {low, intconst(module, inst->type, top_bit)});
    Value *plain = insertnew(function, inst, Op::fptosi, inst->type, {number});
    Value *chosen = insertnew(function, inst, Op::select, inst->type, {big, high, plain});
    chosen->name = inst->name;
    replaceuses(inst, chosen);
    remove(inst);
}

// The high half times 2^32 is exact in a double, so the sum is rounded once.
void joinhalves(Function &function, Value *inst)
{
    Module &module = *function.module;
    if (inst->type->kind != TypeKind::double_type) {
        refuse(function, inst, "float from an emulated integer of 64 bits: convert to double first");
        return;
    }
    Value *number = operand(inst, 0);
    Type *half = inttype(module, 32);
    const Op shift = inst->op == Op::sitofp ? Op::ashr : Op::lshr;
    Value *upper = insertnew(function, inst, shift, number->type, {number, intconst(module, number->type, 32)});
    Value *high = insertnew(function, inst, Op::trunc, half, {upper});
    Value *low = insertnew(function, inst, Op::trunc, half, {number});
    Value *above = insertnew(function, inst, inst->op, inst->type, {high});
    Value *scaled = insertnew(function, inst, Op::fmul, inst->type, {above, floatconst(module, inst->type, two_to_32)});
    Value *below = insertnew(function, inst, Op::uitofp, inst->type, {low});
    Value *sum = insertnew(function, inst, Op::fadd, inst->type, {scaled, below});
    replaceuses(inst, sum);
    remove(inst);
}

}  // namespace

void lowerfloats(Function &function)
{
    for (Block *block : function.blocks) {
        for (Value *inst = block->first; inst != nullptr;) {
            Value *next = inst->next;
            if (inst->op == Op::fptoui && isinteger(inst->type, 64)) {
                lowerconversion(function, inst);
            } else if ((inst->op == Op::sitofp || inst->op == Op::uitofp) && function.module->emulate64 &&
                       isinteger(operand(inst, 0)->type, 64)) {
                joinhalves(function, inst);
            }
            inst = next;
        }
    }
}

}  // namespace adapt
