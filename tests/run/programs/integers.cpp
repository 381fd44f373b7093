// Every operator on every integer type at the borders of each, and conversions from and to every width. Translated with
// and without -ll.
#include "print.h"

typedef long long Signed;
typedef unsigned long long Unsigned;
static Signed one = 1, table[] = {5000000000, -5000000000, 0};
static Unsigned highest = ~0ull;

template <typename To, typename From> To to(From x) { return (To)x; }
template <typename T> void unary(T a)
{
    put64("-", -a), put64("~", ~a), put("!", !a), put("test", a ? 1 : 2);
    T c = a;
    put64("++x", ++c), put64("x++", c++), put64("--x", --c), put64("x--", c--), c++, --c, put64("after", c);
    put64("+ 1", a + 1), put64("- 1", a - 1), put64("* -3", a * -3), put64("/ 10", a / 10), put64("% 10", a % 10);
    put64("either", a < 0 ? T(7) : a), put64("and", a > 0 && c < 1000 ? c : T(-9)), put("more", a > 100);
    put("schar", to<signed char>(a)), put("uchar", to<unsigned char>(a)), put("short", to<short>(a));
    put("ushort", to<unsigned short>(a)), put("int", to<int>(a)), put64("uint", to<unsigned>(a));
    put64("long", to<Signed>(a)), put64("ulong", (Signed)to<Unsigned>(a)), put("bool", (bool)a), put("zero", a == 0);
    Signed kept = a;
    kept -= a;
    put64("kept", kept + (to<short>(a) > 3)), put64("sum", (Signed)a + one), put("less", (Signed)a < 5000000000);
}
template <typename T> void binary(T a, T b)
{
    put64("a", a), put64("b", b);
    put64("+", T(a + b)), put64("-", T(a - b)), put64("*", T(a * b)), put64("&", a & b), put64("|", a | b);
    put64("^", a ^ b), put64("<<", T(a << (b & 7))), put64(">>", a >> (b & 7));
    put("<", a < b), put("<=", a <= b), put(">", a > b), put(">=", a >= b), put("==", a == b), put("!=", a != b);
    if (b != 0 && !(a < 0 && b == T(-1))) put64("/", a / b), put64("%", a % b);
    if ((a < b && b != 5) || a > 7) put("if", 1);
    T all = a;
    all += b, put64("+=", all), all -= 3, put64("-=", all), all ^= b, put64("^=", all), all |= 9, put64("|=", all);
    all <<= 2, put64("<<=", all), all >>= 1, put64(">>=", all), all &= 0x55, put64("&=", all), all *= 3;
    all /= 7, put64("/=", all), all %= 5, put64("%=", all);
}
template <typename T> void wide(T a, T b)
{
    put64("<< b", a << (b & 63)), put64(">> b", a >> (b & 63)), put64("<< int", a << (int)(b & 31));
    put64("<< 1", a << 1), put64("<< 40", a << 40), put64(">> 33", a >> 33), put64(">> 63", a >> 63);
    T c = a;
    c += b, c ^= 12345678901, c *= 3, put64("c", c), put64("nested", (a + b) * (a - b) + (a & 255) * -b);
}
template <typename T, int count> void every(const T (&values)[count], void (*more)(T, T) = 0)
{
    for (int i = 0; i < count; i++) {
        unary(values[i]);
        for (int j = 0; j < count; j++) {
            binary(values[i], values[j]);
            if (more) more(values[i], values[j]);
        }
    }
}
static Signed power(Signed base, unsigned n) { return n ? base * power(base, n - 1) : 1; }

static const signed char bytes[] = {0, 1, 7, -1, -128, -127, 127};
static const unsigned char ubytes[] = {0, 2, 7, 255, 254, 128, 127};
static const short shorts[] = {0, 1, 2, -1, -32768, 32767, 300};
static const unsigned short ushorts[] = {0, 7, 65535, 65534, 32768};
static const int ints[] = {0, 1, 7, -1, -2147483647 - 1, 2147483647, 65536};
static const unsigned uints[] = {0, 7, ~0u, ~1u, 1u << 31};
static const Signed longs[] = {0, 1, -7, -1, 63, -9223372036854775807 - 1, 9223372036854775807, -4294967296};
static const Unsigned ulongs[] = {0, 2, ~0ull, ~1ull, 1ull << 63, 4294967295, 1234567890123456789};
struct Range {
    Signed low;
    short tag;
    Unsigned high;
};
static const Range ranges[2] = {{-1, 7, 1ull << 63}, {4294967296, -7, 4294967295}};

int main()
{
    every(bytes), every(ubytes), every(shorts), every(ushorts), every(ints), every(uints);
    every(longs, wide), every(ulongs, wide);
    put64("from double", (Signed)-1.5e10), put64("from float", (Signed)2.5f), put64("from char", 'x' + one);
    put64("table", table[0] + table[1] * table[2]), put64("range", ranges[1].low + ranges[0].tag);
    put64("high", (Signed)(ranges[0].high - ranges[1].high)), put64("power", power(-7, 5));
    put64("first", ranges[0].low + highest + one);
    const Range range = ranges[1], *p = &range;
    return (int)(p->low / 1000000000 + table[1]);
}
