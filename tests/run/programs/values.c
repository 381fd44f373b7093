// Steps on what pointers point to, members and bit fields; chains of assignments of several widths; shifts in the width
// that the operand has; narrow operands without sign; volatile reads; members of what is chosen, read or assigned.
#include "print.h"

struct Word {
    short low, high;
    unsigned field : 5;
    int level : 4;
    unsigned char bytes[3], *at;
    struct Word *next;
};
static struct Word words[3], *current = words;
static volatile int port;
static volatile unsigned char status[2];
static int calls;
static struct Word *next(void) { return calls++, current = current->next; }

static int first(void) { int x; int *p = &x; p[0] = 0; return x; }
static void bump(int *p, int **pp) { ++*p, (*pp)++, **pp -= 5, *pp = p; }
static int strip(char *s)
{
    char *to = s, *from = s;
    for (; *from; from++) if (*from != ' ') *to++ = *from;
    *to = 0;
    while (to > s && to[-1] == '.') *--to = 0;
    return (int)(to - s);
}
static unsigned long rotate(unsigned long x, int n) { return (x << n | x >> (32 - n)) & 0xffffffffUL; }
static unsigned char reversed(unsigned char b)
{
    b = (b & 0xf0) >> 4 | (b & 0x0f) << 4;
    b = (b & 0xcc) >> 2 | (b & 0x33) << 2;
    return (b & 0xaa) >> 1 | (b & 0x55) << 1;
}
static int skip(const char *s) { const char *p = s; *p++; ++*&p; return *p - 'a'; }
static short wrap(short a, unsigned short b, signed char c, unsigned char d)
{
    a += b, b -= a * 3, c = d = (unsigned char)(a ^ b), d >>= 1, c /= 3;
    return (short)(a + b / (d | 1) + c % 7 + (a > b) + (c < d));
}

int main(void)
{
    int x = 3, y, *p = &x, **pp = &p, array[4] = {1, 2, 3, 4}, *q = array;
    unsigned u = 7;
    long long wide;
    unsigned long long huge;
    signed char c;
    unsigned char d;
    put("first", first()), bump(&array[1], &q), put("bump", array[0] + array[1] * 10), put("q", (int)(q - array));
    **pp = 9, (*p)++, put("x", x), y = *p++ + 1, p = &x, put("y", y), put("skip", skip("abcd"));
    char text[] = " a b c...";
    put("strip", strip(text)), put("text", text[2]);
    for (int i = 0; i < 3; i++) words[i].next = &words[(i + 1) % 3], words[i].at = words[i].bytes;
    words->high = -7, y = words[0].high-- - 1, put("high", words[0].high), put("y", y), words[1].field = 30;
    y = words[1].field++ - 1, y += ++words[1].field, put("field", (int)words[1].field), words[1].level = 7, words[1].level++;
    put("level", words[1].level), put("level", words[1].level-- < 0 ? words[1].level : 99);
    *words[0].at++ = 200, *words[0].at = 100, words[0].at[1] = (*words[0].at)++, put("at", words[0].bytes[1] + words[0].bytes[2]);
    next()->low = 4, (calls ? next() : current)->low += 5, (current = &words[2])->low--, (*next()).high ^= 3;
    for (int i = 0; i < 3; i++) put("low", words[i].low), put("high", words[i].high);
    c = d = x = 300, put("chain", c + d), y = c = (signed char)(u = 200), put("chain", y), put64("u", u);
    wide = x = c = -3, huge = wide, put64("wide", wide), put64("huge", (long long)(huge >> 60)), y = d = huge, put("d", y);
    for (int n = 0; n < 40; n += 9) {
        put64("1ULL", (long long)(1ULL << n)), put64("1UL", (long long)(1UL << n % 32)), put64("-1", (long long)(-1ULL << n));
        put64("rotate", (long long)rotate(0x80001234UL, n % 31 + 1)), put("reversed", reversed((unsigned char)(n * 7)));
    }
    d = 250, c = -6, put("shifted", d << 3), put("divided", d / 7 * (d % 7)), put("more", (unsigned)c > d), put("c", c >> 1);
    put64("quotient", (unsigned)-c / 3u), put64("minus", -(unsigned char)d), put64("not", (long long)~u), put("u8", (unsigned char)~d);
    put("wrap", wrap(30000, 40000, -100, 77)), put("wrap", wrap(-5, 65535, 127, 255));
    port = 5, port, port++, y = port + port, status[1] |= 0x81, status[1]++, status[0] = status[1] >> 4, put("port", y + status[0]);
    put64("unsigned", (long long)(4000000000u / 3 + 4000000000u % 7)), put("compare", 4000000000u > 5 && -1 > 0u);
    return calls;
}
