// Calls of math functions with constant arguments are replaced by their values; and the decision on stdlib.h.

#include "emit/emit.h"

#include "base/base.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

double compute(Math function, double x)
{
    switch (function) {
    case Math::square_root:
        return std::sqrt(x);
    case Math::sine:
        return std::sin(x);
    case Math::cosine:
        return std::cos(x);
    case Math::tangent:
        return std::tan(x);
    case Math::exponential:
        return std::exp(x);
    case Math::logarithm:
        return std::log(x);
    case Math::logarithm10:
        return std::log10(x);
    }
    return x;
}

bool takesnegative(Math function)
{
    return function != Math::square_root && function != Math::logarithm && function != Math::logarithm10;
}

// The value of the text that is printed for the argument.
double argumentvalue(std::string_view text)
{
    const std::string printed(text.starts_with("0x") ? hexfloattext(text) : text);
    return std::strtod(printed.c_str(), nullptr);
}

// The row of the callee if its calls may be folded, else null.
const MathFunction *foldable(const Expr *callee)
{
    if (no_math || !isleaf(callee, leaf::name))
        return nullptr;
    const MathFunction *row = findmath(nametext(callee->value));
    return row && row->declared ? row : nullptr;
}

}  // namespace

std::string_view foldmath(const Expr *callee, const Expr *args)
{
    const MathFunction *row = foldable(callee);
    if (!row || !args || args->right)
        return {};
    const Expr *argument = args->left;
    if (!isleaf(argument, leaf::number) || !iskind(argument->type, kind::float32))
        return {};
    const double x = argumentvalue(nametext(argument->value));
    if (x < 0 && !takesnegative(row->function))
        return {};
    const double result = compute(row->function, x);
    if (std::isinf(result))
        return {};  // C has no such constant; what isn't a number comes of an argument that is none either
    if (result == 0)
        return "0.000000e+00";
    static std::array<char, 32> text;
    const int length = std::snprintf(text.data(), text.size(), "%.7e", result);
    return {text.data(), static_cast<std::size_t>(length)};
}

void needstdlib()
{
    if (!(need_flags & need::dynamic_array))
        return;
    if (no_header)
        need_flags |= need::declarations;
    else
        add_include("stdlib.h");
}
