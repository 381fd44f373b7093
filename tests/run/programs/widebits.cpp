// Bit fields side by side in more than 64 bits, signed and not, across the borders of words and of bytes.
#include "print.h"

struct Wide {
    long long a : 33, b : 20;
    unsigned long long c : 11, d : 50;
    unsigned e : 29, f : 3;
    signed char g : 5;
};
struct Narrow { unsigned a : 1, b : 31; int c : 17; signed char d : 3; bool e : 1; unsigned f : 24; long long g : 40; };
static Wide wide = {-4000000000LL, -500000, 1500, 0x2ffffffffffffULL, 400000000, 5, -9}, copies[2];
static Narrow narrow = {1, 0x7abcdef0, -60000, -3, true, 0xfedcba, -500000000000LL};

static void show(const void *p, int size)
{
    for (const unsigned char *b = (const unsigned char *)p; size--; b++) put("byte", *b);
}

int main()
{
    for (int i = 0; i < 60; i += 7) {
        wide.a += wide.b, wide.b ^= i * 999, wide.c -= i, wide.d = wide.d * 5 + wide.c, wide.e += 123456u * i, wide.f++, wide.g -= 3;
        put64("a", wide.a), put64("b", wide.b), put64("c", wide.c), put64("d", wide.d), put64("e", wide.e), put("f", wide.f), put("g", wide.g);
        narrow.a += i, narrow.b -= i, narrow.c = i * 1000, narrow.d++, narrow.e = !narrow.e, narrow.f <<= 1, narrow.g -= 77777777777LL;
        put64("b", narrow.b), put("c", narrow.c), put("d", narrow.d), put64("f", narrow.f), put64("g", narrow.g), put("e", narrow.a + narrow.e * 2);
    }
    copies[1] = wide, copies[1].f = 0, show(&copies[1], sizeof wide), show(&narrow, sizeof narrow);
    return copies[1].g & 15;
}
