// Hashes and checksums in fixed point and in 8, 16, 32 and 64 bits.
#include "print.h"

static unsigned fnv(const char *s)
{
    unsigned h = 2166136261u;
    while (*s) h ^= (unsigned char)*s++, h *= 16777619u;
    return h;
}
static unsigned long long wide(const char *s)
{
    unsigned long long h = 14695981039346656037ull;
    for (; *s; s++) h = (h ^ (unsigned char)*s) * 1099511628211ull, h ^= h >> 29;
    return h;
}
static unsigned short crc16(const char *s)
{
    unsigned short crc = 0xffff;
    for (; *s; s++) {
        crc ^= (unsigned short)((unsigned char)*s << 8);
        for (int bit = 0; bit < 8; bit++) crc = crc & 0x8000 ? crc << 1 ^ 0x1021 : crc << 1;
    }
    return crc;
}
static unsigned char checksum(const char *s)
{
    unsigned char a = 1, b = 0;
    while (unsigned char c = *s++) a += c, b += a;
    return a ^ b;
}
static unsigned rotate(unsigned x, int by) { return x << by | x >> (32 - by); }
static int fixed(int a, int b) { return (int)((long long)a * b >> 16); }
static int root(int x)
{
    int guess = 65536;
    for (int i = 0; i < 12; i++) guess = (guess + (int)(((long long)x << 16) / guess)) / 2;
    return guess;
}
static int sine(int x)
{
    int term = x, sum = x;
    for (int n = 1; n < 7; n++) sum += term = -fixed(fixed(term, x), x) / (2 * n * (2 * n + 1));
    return sum;
}
static const char *const words[] = {"", "a", "the", "quick", "dog\xff\x80"};

int main()
{
    for (const char *w : words) {
        put64(w, fnv(w)), put64("wide", (long long)wide(w)), put("crc16", crc16(w)), put("sum", checksum(w));
        put64("rotate", rotate(fnv(w), 7)), put("root", root(crc16(w) * 16 + 1)), put("sine", sine(crc16(w)));
    }
}
