// Every operator on every integer type, at the borders of each.
#include "print.h"

template <typename T> void unary(T a)
{
    put64("-", -a), put64("~", ~a), put64("!", !a);
    T up = a, down = a;
    put64("++x", ++up), put64("x++", up++), put64("after", up);
    put64("--x", --down), put64("x--", down--), put64("after", down);
}

template <typename T> void binary(T a, T b)
{
    put64("a", a), put64("b", b);
    put64("+", T(a + b)), put64("-", T(a - b)), put64("*", T(a * (b & 15)));
    put64("&", a & b), put64("|", a | b), put64("^", a ^ b);
    put("<", a < b), put("<=", a <= b), put(">", a > b), put(">=", a >= b), put("==", a == b), put("!=", a != b);
    put64("<<", T(a << (b & 7))), put64(">>", a >> (b & 7));
    if (b != 0 && b != T(-1)) { put64("/", a / b), put64("%", a % b); }
    T all = a;
    all += b, put64("+=", all), all -= 3, put64("-=", all), all ^= b, put64("^=", all), all |= 9, put64("|=", all);
    all <<= 2, put64("<<=", all), all >>= 1, put64(">>=", all), all &= 0x55, put64("&=", all), all *= 3;
    all /= 7, put64("/=", all), all %= 5, put64("%=", all);
}

template <typename T, int count> void every(const T (&values)[count])
{
    for (T a : values) {
        unary(a);
        for (T b : values) { binary(a, b); }
    }
}

static const signed char bytes[] = {0, 1, 2, 7, -1, -128, -127, 127, 126};
static const unsigned char ubytes[] = {0, 1, 2, 7, 255, 254, 128, 127};
static const short shorts[] = {0, 1, 2, 7, -1, -32768, -32767, 32767, 300};
static const unsigned short ushorts[] = {0, 1, 2, 7, 65535, 65534, 32768, 32767};
static const int ints[] = {0, 1, 2, 7, -1, -2147483647 - 1, -2147483647, 2147483647, 65536};
static const unsigned uints[] = {0, 1, 2, 7, ~0u, ~1u, 1u << 31, ~0u >> 1};
static const long long longs[] = {0, 1, 2, 7, -1, -9223372036854775807ll - 1, 9223372036854775807ll, 1ll << 32};
static const unsigned long long ulongs[] = {0, 1, 2, 7, ~0ull, ~1ull, 1ull << 63, ~0ull >> 1, 1ull << 32};

int main()
{
    every(bytes), every(ubytes), every(shorts), every(ushorts), every(ints), every(uints), every(longs), every(ulongs);
}
