// float stays float, doubles keep their 17 digits; the largest, the smallest, none at all; conversions from and to every
// integer type; comparisons with what has no order.
#include "print.h"

static float fs[] = {0.1f, 1.5f, -2.75f, 16777216.0f, 1e-40f, 3.4028235e38f, -0.0f};
static double ds[] = {0.1, 2.2250738585072014e-308, 4.9406564584124654e-324, 1.7976931348623157e308, 4294967296.0, 1e22,
                      3.141592653589793, -123456789.123456789, 1.0 / 3, 1e15 + 0.3};
static const double infinity = 1e308 * 10, none = 0.0 / 0.0;
static float scale(float r, float a) { return r * 1.5f + a; }
static int near_tenth(float x) { return x == 0.1f ? 1 : x < 0.1f ? 2 : x > 0.1 ? 3 : 4; }
static float mean(const float *x, int n)
{
    float sum = 0;
    for (int i = 0; i < n; i++) sum += x[i] / n;
    return sum;
}
static float power(float x, int n) { return n == 0 ? 1 : n < 0 ? 1 / power(x, -n) : x * power(x, n - 1); }
static void bits(const char *what, double value)
{
    union { double d; unsigned long l[2]; } u;
    u.d = value;
    put64(what, (long long)u.l[1]), put64(what, (long long)u.l[0]);
}
static void fbits(const char *what, float value)
{
    union { float f; unsigned long l; } u;
    u.f = value, put64(what, (long long)u.l);
}
static int compare(double a, double b)
{
    int r = 0;
    if (a < b) r |= 1;
    if (a <= b) r |= 2;
    if (!(a > b)) r |= 4;
    if (!(a >= b)) r |= 8;
    if (a == b) r |= 16;
    if (a != b) r |= 32;
    if (__builtin_isunordered(a, b)) r |= 64;
    if (__builtin_islessgreater(a, b)) r |= 128;
    while (!(a < b) && r < 1000) r += 500;
    return a != a ? -r : r;
}

int main(void)
{
    signed char c = -5;
    unsigned char uc = 200;
    short s = -300;
    unsigned u = 4000000000u;
    unsigned long long ull = 18446744073709551615ULL;
    long long ll = -9000000000000000001LL;
    float f;
    double d;
    for (int i = 0; i < 7; i++) fbits("f", fs[i]), fbits("scaled", scale(fs[i], 0.3f)), put("near", near_tenth(fs[i]));
    for (int i = 0; i < 10; i++) bits("d", ds[i]), bits("half", ds[i] / 2 - 0.7), fbits("narrow", (float)(ds[i] * 1e-300));
    fbits("mean", mean(fs, 4)), fbits("power", power(1.1f, 9)), fbits("power", power(3, -2)), fbits("sum", fs[0] + fs[1] * fs[2]);
    f = 0.1f, f += 0.2, fbits("f +=", f), f *= 3, fbits("f *=", f), f -= 1, f++, --f, fbits("f", -f), d = f, bits("d = f", d);
    d = c, bits("c", d), d = uc, d += s, bits("s", d), d = u, bits("u", d), f = u, fbits("u", f), d = ull, bits("ull", d);
    f = ll, fbits("ll", f), d = c * 0.5f + uc, bits("mixed", d), d = (unsigned short)s / 2.0, bits("us", d), d = !c + (c < 1.5);
    bits("bool", d), f = c, fbits("c", f), f = (unsigned char)c, fbits("uc", f), f = 16777217, fbits("int", f);
    c = -7.9f, uc = 255.5, s = -3e4, u = 3e9, ull = 1e19, ll = -1e18, put("c", c), put("uc", uc), put("s", s), put64("u", u);
    put64("ull", (long long)ull), put64("ll", ll), put64("cut", (long long)-2.999), put64("f", (unsigned)fs[1]);
    double all[] = {1, -1, none, infinity, -infinity, 0, -0.0};
    for (int i = 0; i < 7; i++)
        for (int j = 0; j < 7; j += 2) put("compare", compare(all[i], all[j]));
    bits("infinity", infinity), bits("-0", -0.0), bits("product", infinity * -2), bits("0 - 0", all[5] - all[5]), bits("-", -all[5]);
    put("none", __builtin_nanf("") == f), putd("huge", __builtin_inff() > 3e38f), bits("literal", 0x1.8p-3 + 1e-7), bits("long", 123456789012345680.0);
    return fs[0] < 0.1 ? 1 : fs[0] * 10 == 1.0f ? 2 : 3;
}
