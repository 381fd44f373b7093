// Early returns and what follows them, endless loops around switches, steps and continue, case ranges, a switch into a
// loop, gotos into and out of everything, bodies that are always inlined.
#include "print.h"

static int n, mode, at;
static const char *input;
static int get(void) { return input[at] ? input[at++] : 'q'; }

static void set(int a)
{
    if (a < 0) return;
    n = a;
    if (mode) n = 0;
}
static int menu(const char *keys)
{
    int x = 0;
    input = keys, at = 0;
    for (;;) switch (get()) {
        case ' ': x++; continue;
        case 'a' ... 'f': x += 10; break;
        case '0': case '2' ... '4':
            if (x > 50) break;
            x += 100;
        default: x *= 2; if (x > 1000) return -x; continue;
        case 'q': return x;
        }
}
static int once(int a)
{
    if (a > 1) do { n = 1; if (a == 3) break; return -1; } while (0);
    return n + a;
}
static int steps(int count)
{
    int c = 0, i = 7, sum = 0;
    for (; i++, count--, count > 0;) sum += i;
    for (;; c++) {
        if (c % 3 == 1) continue;
        if (c > 9) break;
        sum = sum * 2 + c;
    }
    for (i = 0; i < 20; i++, sum += i & 1)
        if (i % 4) {
            if (i == 13) goto out;
            continue;
        } else sum++;
out:
    while (sum > 1000) if (sum & 1) sum -= 7; else sum /= 2;
    return sum;
}
static int copy(char *to, const char *from, int count)
{
    int rounds = (count + 3) / 4;
    switch (count % 4) {
    case 0: do { *to++ = *from++;
    case 3:      *to++ = *from++;
    case 2:      *to++ = *from++;
    case 1:      *to++ = *from++;
            } while (--rounds > 0);
    }
    return to[-1];
}
static int jumps(int a)
{
    int round = 0;
    if (a == 1) goto inside;
    while (round < 4) {
        round++;
        if (a == 2 && round == 2) goto arm;
        if (round & 1) {
        inside:
            round += 2;
        } else {
        arm:
            if (a++ > 3) goto out;
        }
    }
    switch (a) { default: if (0) { case 3: round += 100; } round++; }
    return round;
out:
    return -round;
}
static inline __attribute__((always_inline)) int limit(int v)
{
    if (v < 0) return 0;
    for (int i = 1; i < 4; i++) if (v == i) return -i;
    return v > 9 ? 9 : v;
}
static void last(int a)
{
    if (a == 1) { put("one", a); return; }
    if (a > 1) { if (a == 2) return; put("more", a); }
    else put("less", a);
}

int main(void)
{
    char text[12];
    for (int a = -1; a < 5; a++) {
        mode = a & 1, set(a), put("set", n), put("once", once(a)), put("steps", steps(a)), put("jumps", jumps(a));
        put("limit", limit(a) + limit(a * 4) * 100), last(a), put("copy", copy(text, "abcdefghijk", a + 5));
    }
    put("menu", menu("a 3 x")), put("menu", menu("1 2 3 4 5 6 7 f 8 9")), put("menu", menu(""));
    return 0;
}
