// What clang writes intrinsics for without optimising: bits counted and turned, bytes moved, room on the stack, words that
// are read and written at once; overflow that is tested.
#include "print.h"

static unsigned words[] = {0x80000000u, 1, 0x00ff1200u, 0xffffffffu, 0x7ffffffeu};
static _Atomic short counter;
static volatile short flag;
static char text[40] = "text to be moved";

static int sum(int n)
{
    int total = 0;
    for (int i = 1; i < n; i++) {
        int values[i * 2], *end = values + i * 2;
        for (int *v = values; v < end; v++) *v = (int)(v - values) * i;
        if (i == 4) continue;
        total += values[i] + (int)(sizeof values / sizeof *values);
        char name[n];
        name[n - 1] = (char)total, total += name[n - 1];
        if (total > 900) break;
    }
    return total;
}
static int checked(int a, int b)
{
    int result;
    if (__builtin_add_overflow(a, b, &result)) return -1;
    if (__builtin_mul_overflow(result, 3, &result)) return -2;
    return __builtin_sub_overflow(result, b, &result) ? -3 : result;
}
static int expected(int n) { if (__builtin_expect(n > 3, 0)) return 1; switch (n) { case 1: return 2; default: __builtin_unreachable(); } }

int main(void)
{
    for (int i = 0; i < 5; i++) {
        unsigned w = words[i];
        unsigned long long wide = (unsigned long long)w << 20 | 1;
        put("popcount", __builtin_popcount(w)), put("clz", __builtin_clz(w)), put("ctz", __builtin_ctz(w)), put("ffs", __builtin_ffs((int)w));
        put("parity", __builtin_parity(w)), put64("bswap", __builtin_bswap32(w)), put("bswap", __builtin_bswap16((unsigned short)w));
        put("popcount", __builtin_popcountll(wide)), put("clz", __builtin_clzll(wide)), put("ctz", __builtin_ctzll(wide << 3)), put64("bswap", (long long)__builtin_bswap64(wide) >> 1);
        put64("rotate", __builtin_rotateleft32(w, 5)), put("reverse", __builtin_bitreverse8((unsigned char)(w >> 8)));
    }
    __builtin_memmove(text + 3, text, 12), put("moved", text[5]), __builtin_memset(text + 1, 'x', 3), put("set", text[3]), __builtin_memcpy(text, text + 20, 4);
    put("copied", text[0]), put("sum", sum(9)), put("checked", checked(5, 6)), put("checked", checked(2147483647, 1)), put("checked", checked(1000000000, 1));
    counter = 5, counter = counter + 1, put("counter", counter), flag = 3, flag, flag ^= 1, put("flag", flag), put("expected", expected(1) + expected(9));
    putd("fabs", __builtin_fabs(-2.5)), put("abs", __builtin_abs(-7)), put("constant", __builtin_constant_p(3)), putd("copysign", __builtin_copysign(3.0, -1.0));
    return words[1] ? 0 : (__builtin_trap(), 1);
}
