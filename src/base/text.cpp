// Digits and numbers.

#include "base/base.h"

unsigned hexvalue(char c)
{
    const auto u = static_cast<unsigned char>(c);
    return isdigit(c) ? u - static_cast<unsigned>('0') : (u | 0x20U) - static_cast<unsigned>('a') + 10U;
}

std::uint32_t number(std::string_view text)
{
    std::uint32_t value = 0;
    for (const char c : text)
        value = value * 10 + static_cast<std::uint32_t>(static_cast<signed char>(c) - '0');
    return value;
}
