// 64-bit integers under -ll: elements of arrays, to and from floats, narrowed twice, truth values as arguments, and all
// operators on them.
#include "print.h"

static long long a[2], x = 5, minus = -1;
static unsigned long long u = 0xfedcba9876543210ULL;
struct Wide { char c; long long w; unsigned long long v[2]; };
static struct Wide wide = {1, -2, {3, 4}};

static int truth(long long n) { return n ? 3 : 4; }
static int narrowed(long long n) { return (int)(unsigned char)n + (signed char)(short)n; }
static long long mixed(long long n, int i, unsigned char b) { return n * i + b - (n >> 3) + (n << (b & 7)) / (i | 1) % 1000; }
static int compare(long long n, unsigned long long m) { return (n < 0) + (n == 5) * 2 + (n > x) * 4 + (m >= u) * 8 + (m != 3) * 16 + !n * 32; }
static long long power(long long n, int e) { return e == 0 ? 1 : e & 1 ? n * power(n, e - 1) : power(n * n, e / 2); }

int main(void)
{
    a[1] = x, a[0] = a[1] - 7, put64("a", a[0]), put64("a", a[1]), put("truth", truth(1 == 1) + truth(x > 7)), put("narrowed", narrowed(513) + narrowed(-2));
    putd("minus", (double)minus), putd("u", (double)u), putd("x", (double)x * 0.5), put64("from", (long long)-3e12), put64("from", (long long)2.9f);
    for (int i = -3; i < 4; i += 2) {
        put64("mixed", mixed(i * 1000000007LL, i, (unsigned char)(i + 250))), put("compare", compare(i + 2, (unsigned long long)i));
        put64("and", (long long)u & i), put64("or", x | (long long)i << 40), put64("not", ~(x ^ i)), put64("shift", (long long)(u >> (i + 3)));
        put64("quotient", (long long)(u / (unsigned long long)(i + 10))), put64("rest", minus * 77 % i);
    }
    x++, ++wide.w, wide.v[1]--, wide.v[0] += u, a[x & 1] *= -3, put64("x", x--), put64("w", wide.w), put64("v", (long long)(wide.v[0] + wide.v[1]));
    put64("a", a[0]), put64("power", power(-3, 21)), put64("chosen", x > 4 ? minus : a[1]), put("bool", (x && minus) + !(u || x));
    struct Wide copy = wide;
    copy.w -= wide.c, put64("copy", copy.w);
    return (int)(x + copy.c);
}
