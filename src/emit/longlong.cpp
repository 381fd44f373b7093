// The emulation of 64-bit integers: names, helpers and the two halves of a constant. The forms that use them are
// in expressions.cpp.

#include "emit/emit.h"

#include "base/base.h"

bool in_initialiser;

namespace {

constinit std::string_view signed_name = "long long";
constinit std::string_view unsigned_name = "unsigned long long";

struct Helper {
    std::uint8_t op;
    std::string_view text;
    std::string_view unsigned_text;  // empty where both are the same
};

// For the comparisons, the code that the comparing helper takes.
constexpr Helper helpers[] = {
    {op::add, "_lladd_", {}},
    {op::subtract, "_llsub_", {}},
    {op::multiply, "_llmul_", {}},
    {op::divide, "_lldiv_", "_lludv_"},
    {op::remainder, "_llmod_", "_llumd_"},
    {op::bit_and, "_lland_", {}},
    {op::bit_or, "_llor_", {}},
    {op::bit_xor, "_llxor_", {}},
    {op::shift_left, "_lllsh_", {}},
    {op::shift_right, "_llrshs_", "_llrshu_"},
    {op::equal, "0", {}},
    {op::not_equal, "1", {}},
    {op::greater, "2", "10"},
    {op::less_equal, "3", "11"},
    {op::less, "4", "12"},
    {op::greater_equal, "5", "13"},
};

}  // namespace

void uselonglong()
{
    signed_name = "_lglg_";
    unsigned_name = "_lglg_";
}

std::string_view longlongname(bool as_unsigned)
{
    return as_unsigned ? unsigned_name : signed_name;
}

bool is64bit(const Type *type)
{
    return iskind(type, kind::int64) || iskind(type, kind::uint64);
}

std::string_view llname(std::uint8_t op, bool as_unsigned)
{
    for (const Helper &row : helpers)
        if (row.op == op)
            return as_unsigned && !row.unsigned_text.empty() ? row.unsigned_text : row.text;
    return {};
}

Halves splitnumber(std::string_view text)
{
    const bool negative = text.starts_with('-');
    if (negative)
        text.remove_prefix(1);
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < text.size() && isdigit(text[i]); ++i)
        value = value * 10 + static_cast<std::uint64_t>(text[i] - '0');
    if (negative)
        value = 0 - value;
    return {static_cast<std::uint32_t>(value >> 32U), static_cast<std::uint32_t>(value)};
}
