// 64-bit arithmetic: every operator in both signs, shifts by constants and by 64-bit counts, comparisons at the
// borders, steps, conversions from and to every width, constants in initialisers. Translated with and without -ll.
#include "print.h"

typedef long long Signed;
typedef unsigned long long Unsigned;

struct Range {
    Signed low;
    short tag;
    Unsigned high;
};
static Signed one = 1, negative = -1, table[] = {5000000000, -5000000000, 0};
static Unsigned highest = ~0ull;
static const Range ranges[2] = {{-1, 7, 1ull << 63}, {4294967296, -7, 4294967295}};
static const Signed values[] = {0,
                                1,
                                -1,
                                2,
                                -7,
                                63,
                                4294967295,
                                4294967296,
                                -4294967296,
                                1234567890123456789,
                                9223372036854775807,
                                -9223372036854775807 - 1};

template <typename To, typename From> To to(From x) { return (To)x; }
template <typename T> void binary(T a, T b)
{
    put64("a", a), put64("b", b);
    put64("+", a + b), put64("-", a - b), put64("*", a * b), put64("&", a & b), put64("|", a | b), put64("^", a ^ b);
    put("==", a == b), put("!=", a != b), put("<", a < b), put("<=", a <= b), put(">", a > b), put(">=", a >= b);
    put64("<<", a << (b & 63)), put64(">>", a >> (b & 63)), put64("<< int", a << (int)(b & 31));
    if (b != 0 && !(a < 0 && b == T(-1))) put64("/", a / b), put64("%", a % b);
    if ((a < b && b != 5) || a > 7) put("if", 1);
    T c = a;
    c += b, c ^= 12345678901, c *= 3, put64("c", c);
    put64("nested", (a + b) * (a - b) + (a & 255) * -b);
}
template <typename T> void unary(T a)
{
    put64("-", -a), put64("~", ~a), put("!", !a), put("test", a ? 1 : 2);
    put64("<< 1", a << 1), put64("<< 40", a << 40), put64(">> 1", a >> 1), put64(">> 33", a >> 33),
        put64(">> 63", a >> 63);
    put64("+ 1", a + 1), put64("- 1", a - 1), put64("* -3", a * -3), put64("/ 10", a / 10), put64("% 10", a % 10);
    T c = a;
    put64("c++", c++), put64("c--", c--), put64("++c", ++c), put64("--c", --c), c++, --c, put64("c", c);
    put("schar", to<signed char>(a)), put("uchar", to<unsigned char>(a)), put("short", to<short>(a));
    put("ushort", to<unsigned short>(a)), put("int", (int)a), put64("uint", (unsigned)a), put("bool", (bool)a),
        put("zero", a == 0), put("more", a > 100);
    put64("either", a < 0 ? T(7) : a), put64("and", a > 0 && c < 1000 ? c : T(-9));
}
template <typename T> void from(T x)
{
    put64("signed", (Signed)x), put64("unsigned", (Signed)(Unsigned)x), put64("sum", (Signed)x + one);
    Signed kept = x;
    kept -= x, put64("kept", kept + (x > 3)), put("less", (Signed)x < (Signed)5000000000);
}
static Signed power(Signed base, unsigned n) { return n ? base * power(base, n - 1) : 1; }
static Unsigned root(Unsigned x)
{
    Unsigned result = 0, bit = 1ull << 62;
    for (; bit > x; bit >>= 2)
        ;
    for (; bit; bit >>= 2)
        if (x >= result + bit) x -= result + bit, result = (result >> 1) + bit;
        else result >>= 1;
    return result;
}

int main()
{
    for (int i = 0; i < 12; i++) {
        unary(values[i]), unary((Unsigned)values[i]);
        for (int j = 0; j < 12; j++) binary(values[i], values[j]), binary((Unsigned)values[i], (Unsigned)values[j]);
        from((signed char)values[i]), from((unsigned char)values[i]), from((short)values[i]);
        from((unsigned short)values[i]), from((int)values[i]), from((unsigned)values[i]);
        put64("root", root((Unsigned)values[i])), put64("power", power(values[i], 5));
    }
    put64("from double", (Signed)-1.5e10), put64("from float", (Signed)2.5f), put64("from char", 'x' + one);
    put64("table", table[0] + table[1] * table[2]), put64("range", ranges[1].low + ranges[0].tag);
    put64("high", (Signed)(ranges[0].high - ranges[1].high)), put64("first", ranges[0].low + highest + negative);
    const Range range = ranges[1], *p = &range;
    return (int)(p->low / 1000000000 + table[1]);
}
