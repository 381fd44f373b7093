// What constants come to: a number, or an address as a global and the bytes from its start.
#include "adapt/passes/passes.h"

namespace adapt {

namespace {

constexpr unsigned deepest = 200;

std::int64_t signextend(std::uint64_t number, std::uint32_t bits)
{
    if (bits == 0 || bits >= 64) {
        return static_cast<std::int64_t>(number);
    }
    const std::uint64_t sign = std::uint64_t{1} << (bits - 1);
    number &= sign * 2 - 1;
    return static_cast<std::int64_t>((number ^ sign) - sign);
}

// In unsigned arithmetic, where running over is no fault.
std::int64_t plus(std::int64_t a, std::int64_t b)
{
    return static_cast<std::int64_t>(static_cast<std::uint64_t>(a) + static_cast<std::uint64_t>(b));
}

std::int64_t times(std::int64_t a, std::size_t b)
{
    return static_cast<std::int64_t>(static_cast<std::uint64_t>(a) * b);
}

std::uint64_t bitsof(std::int64_t number, std::uint32_t bits)
{
    const auto value = static_cast<std::uint64_t>(number);
    return bits >= 64 ? value : value & ((std::uint64_t{1} << bits) - 1);
}

bool find(const Module &module, const Value *constant, Address &address, unsigned depth);

// The bytes that the indices of a getelementptr count.
bool countbytes(const Module &module, const Value *constant, std::int64_t &sum, unsigned depth)
{
    const Type *type = constant->element;
    for (std::uint32_t i = 1; i < constant->operand_count; ++i) {
        Address index;
        if (!find(module, operand(constant, i), index, depth + 1) || index.global != nullptr) {
            return false;
        }
        if (i > 1 && type->kind == TypeKind::structure) {
            const auto member = static_cast<std::uint64_t>(index.offset);
            if (member >= membersof(type).size()) {
                return false;
            }
            sum = plus(sum, static_cast<std::int64_t>(offsetof_member(module, type, member)));
            type = membersof(type)[member];
            continue;
        }
        type = i == 1 ? type : type->sub;
        if (type == nullptr) {
            return false;
        }
        sum = plus(sum, times(index.offset, sizeoftype(module, type)));
    }
    return true;
}

bool compute(Op op, std::uint32_t bits, std::int64_t a, std::int64_t b, std::int64_t &result)
{
    const std::uint64_t left = bitsof(a, bits);
    const std::uint64_t right = bitsof(b, bits);
    const bool division = op == Op::udiv || op == Op::urem || op == Op::sdiv || op == Op::srem;
    const bool shift = op == Op::shl || op == Op::lshr || op == Op::ashr;
    if ((division && (right == 0 || b == -1)) || (shift && right >= bits)) {
        return false;
    }
    std::uint64_t value = 0;
    switch (op) {
    case Op::add:
        value = left + right;
        break;
    case Op::sub:
        value = left - right;
        break;
    case Op::mul:
        value = left * right;
        break;
    case Op::udiv:
        value = left / right;
        break;
    case Op::urem:
        value = left % right;
        break;
    case Op::sdiv:
        value = static_cast<std::uint64_t>(a / b);
        break;
    case Op::srem:
        value = static_cast<std::uint64_t>(a % b);
        break;
    case Op::shl:
        value = left << right;
        break;
    case Op::lshr:
        value = left >> right;
        break;
    case Op::ashr:
        value = static_cast<std::uint64_t>(a >> right);
        break;
    case Op::and_:
        value = left & right;
        break;
    case Op::or_:
        value = left | right;
        break;
    case Op::xor_:
        value = left ^ right;
        break;
    default:
        return false;
    }
    result = signextend(value, bits);
    return true;
}

bool compare(Predicate predicate, std::int64_t a, std::int64_t b, bool &result)
{
    const auto left = static_cast<std::uint64_t>(a);
    const auto right = static_cast<std::uint64_t>(b);
    switch (predicate) {
    case Predicate::eq:
        result = a == b;
        return true;
    case Predicate::ne:
        result = a != b;
        return true;
    case Predicate::slt:
        result = a < b;
        return true;
    case Predicate::sle:
        result = a <= b;
        return true;
    case Predicate::sgt:
        result = a > b;
        return true;
    case Predicate::sge:
        result = a >= b;
        return true;
    case Predicate::ult:
        result = left < right;
        return true;
    case Predicate::ule:
        result = left <= right;
        return true;
    case Predicate::ugt:
        result = left > right;
        return true;
    case Predicate::uge:
        result = left >= right;
        return true;
    default:
        return false;
    }
}

bool findpair(const Module &module, const Value *constant, Address &address, unsigned depth)
{
    Address left;
    Address right;
    if (!find(module, operand(constant, 0), left, depth + 1) || !find(module, operand(constant, 1), right, depth + 1)) {
        return false;
    }
    const Op op = constant->op;
    if (op == Op::icmp) {
        bool result = false;
        const bool known =
            left.global == right.global && compare(constant->predicate, left.offset, right.offset, result);
        address = {nullptr, result ? 1 : 0};
        return known;
    }
    const std::uint32_t bits = constant->type->bits;
    if (right.global == nullptr && (op == Op::add || op == Op::sub) && left.global != nullptr) {
        const std::int64_t bytes = op == Op::add ? right.offset : times(right.offset, ~std::size_t{0});
        address = {left.global, plus(left.offset, bytes)};
        return true;
    }
    if (left.global == nullptr && op == Op::add && right.global != nullptr) {
        address = {right.global, plus(left.offset, right.offset)};
        return true;
    }
    if (left.global != right.global || (left.global != nullptr && op != Op::sub)) {
        return false;
    }
    address.global = nullptr;
    return compute(op, bits, left.offset, right.offset, address.offset);
}

std::uint32_t widthof(const Module &module, const Type *type)
{
    return type->kind == TypeKind::integer ? type->bits : static_cast<std::uint32_t>(module.layout.pointer_size * 8);
}

// A cast keeps an address only at its full width.
bool findcast(const Module &module, const Value *constant, Address &address, unsigned depth)
{
    const Value *from = operand(constant, 0);
    const bool scalar = constant->type->kind == TypeKind::integer || constant->type->kind == TypeKind::pointer;
    if (!scalar || !find(module, from, address, depth + 1)) {
        return false;
    }
    const std::uint32_t width = widthof(module, constant->type);
    const std::uint32_t from_width = widthof(module, from->type);
    if (address.global != nullptr) {
        return width == from_width;
    }
    const bool is_signed = constant->op == Op::sext;
    const std::uint64_t bits =
        is_signed ? static_cast<std::uint64_t>(signextend(bitsof(address.offset, from_width), from_width))
                  : bitsof(address.offset, from_width);
    address.offset = signextend(bits, width);
    return true;
}

bool findexpression(const Module &module, const Value *constant, Address &address, unsigned depth)
{
    switch (constant->op) {
    case Op::getelementptr: {
        std::int64_t bytes = 0;
        if (!find(module, operand(constant, 0), address, depth + 1) || !countbytes(module, constant, bytes, depth)) {
            return false;
        }
        address.offset = plus(address.offset, bytes);
        return true;
    }
    case Op::bitcast:
    case Op::addrspacecast:
    case Op::ptrtoint:
    case Op::inttoptr:
    case Op::trunc:
    case Op::zext:
    case Op::sext:
        return findcast(module, constant, address, depth);
    case Op::select: {
        Address condition;
        return find(module, operand(constant, 0), condition, depth + 1) && condition.global == nullptr &&
               find(module, operand(constant, condition.offset != 0 ? 1 : 2), address, depth + 1);
    }
    default:
        return constant->operand_count == 2 && findpair(module, constant, address, depth);
    }
}

bool find(const Module &module, const Value *constant, Address &address, unsigned depth)
{
    if (depth > deepest) {
        return false;
    }
    switch (constant->kind) {
    case ValueKind::integer:
        address = {nullptr, signedvalue(constant)};
        return true;
    case ValueKind::null:
        address = {};
        return true;
    case ValueKind::global:
        address = {constant->global, 0};
        return true;
    case ValueKind::expression:
        return findexpression(module, constant, address, depth);
    default:
        return false;
    }
}

}  // namespace

bool findaddress(const Module &module, const Value *constant, Address &address)
{
    address = {};
    return find(module, constant, address, 0);
}

}  // namespace adapt
