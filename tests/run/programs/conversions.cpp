// Between integers and floating types, from one floating type to the other, and twice in a row.
#include "print.h"

enum Colour { red = 5, green };

template <typename T> void integer(T x)
{
    put("schar", (signed char)x), put("uchar", (unsigned char)x), put("short", (short)x), put("bool", (bool)x);
    putd("float", (float)(int)x), putd("double", (double)(short)x), putd("wide", (double)(long long)x);
}

int main()
{
    const int patterns[] = {0, -1, 127, 128, 256, -129, 32767, 32768, 65535, -32769, 2147483647};
    const double numbers[] = {0.0, 0.75, -0.75, 1.5, 99.99, -100.5, 126.999};
    for (int p : patterns) {
        integer((signed char)p), integer((unsigned char)p), integer((unsigned short)p), integer(p);
        integer((unsigned)p), integer((long long)p * 65537), integer((unsigned long long)p);
    }
    for (double d : numbers) {
        put("schar", (signed char)d), put("int", (int)d), put64("long", (long long)d), putd("float", (float)d);
        put("short", (short)(float)d), put("bool", d != 0), put("less", d < 1.0f), put("not less", !(d < 1.0));
        putd("sum", d + 1), putd("minus", -d), putd("product", (float)(int)d * 3.25f - 1), putd("part", 1 / (d + 3));
        if (d >= 0) put("uchar", (unsigned char)d), put64("uint", (unsigned)d), put64("ulong", (unsigned long long)d);
    }
    put("char", 'A' + 1), put("enum", green + (Colour)1), putd("constant", 1.5e10f / 4);
}
