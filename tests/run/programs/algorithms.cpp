// Sorting with functions that compare; hashes in 16, 32 and 64 bits; fixed point.
#include "print.h"

typedef bool Less(int, int);
static bool up(int a, int b) { return a < b; }
static bool digits(int a, int b) { return a % 10 > b % 10; }
static void exchange(int &a, int &b)
{
    int kept = a;
    a = b, b = kept;
}
static void quick(int *from, int *to, Less *less)
{
    if (to - from < 2) return;
    int pivot = from[(to - from) / 2], *i = from, *j = to - 1;
    while (i <= j) {
        while (less(*i, pivot)) i++;
        while (less(pivot, *j)) --j;
        if (i <= j) exchange(*i++, *j--);
    }
    quick(from, j + 1, less), quick(i, to, less);
}
static int a[20];
template <typename T> T fnv(const char *s, T h, T prime)
{
    for (; *s; s++) h = (h ^ (unsigned char)*s) * prime, h ^= h >> 5;
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
static unsigned rotate(unsigned x, int by) { return x << by | x >> (32 - by); }
static int fixed(int a, int b) { return (int)((long long)a * b >> 16); }
static int sine(int x)
{
    int term = x, sum = x;
    for (int n = 1; n < 7; n++) sum += term = -fixed(fixed(term, x), x) / (2 * n * (2 * n + 1));
    return sum;
}
static const char *const words[] = {"", "a", "quick", "dog\xff\x80"};

int main()
{
    static Less *const orders[] = {up, digits};
    unsigned seed = 1;
    for (Less *order : orders) {
        for (int &cell : a) seed = seed * 1103515245u + 12345u, cell = (int)(seed >> 16) % 100 - 50;
        quick(a, a + 20, order);
        for (int cell : a) put("sorted", cell);
    }
    for (const char *w : words) {
        unsigned hash = fnv(w, 2166136261u, 16777619u);
        put64(w, hash), put64("wide", (long long)fnv(w, 14695981039346656037ull, 1099511628211ull));
        put("crc16", crc16(w)), put64("rotate", rotate(hash, 7)), put("sine", sine(crc16(w)));
    }
}
