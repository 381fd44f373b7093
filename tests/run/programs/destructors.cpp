// Objects destroyed on every way out of loops, switches and functions, of conditions, arguments and arrays; statics that
// are constructed once, in loops and behind returns.
#include "print.h"

struct Noisy {
    int n;
    Noisy(int at) : n(at) { put("+", n); }
    Noisy(const Noisy &from) : n(from.n + 100) { put("copy", n); }
    ~Noisy() { put("-", n); }
    bool even() const { return n % 2 == 0; }
    operator bool() const { return n > 0; }
};
static Noisy make(int n) { return Noisy(n * 2); }
static const Noisy single(7);
static int take(Noisy a, const Noisy &b) { return a.n - b.n; }

static int ways(int way)
{
    Noisy outer(way);
    for (int i = 0; i < 3; i++) {
        Noisy first(10 + i);
        if (way == 0) return first.n;
        Noisy second(20 + i);
        switch (way) {
        case 1: continue;
        case 2: { Noisy third(30); break; }
        case 3: if (i) return outer.n;
        case 4: { Noisy fourth(40); if (i == 1) goto out; continue; }
        case 5: break;
        default: if (second.even()) return second.n; else goto next;
        }
        if (way == 5) break;
    next:
        put("round", i);
    }
    put("through", way);
out:
    return -1;
}
static Noisy chosen(int n)
{
    Noisy a(n), b(n + 1);
    if (n == 1) return a;
    if (n == 2) return b;
    return make(n);
}
static int conditions(int n)
{
    int found = 0;
    if (Noisy(n).even() && !make(n).even()) found = 1;
    if (Noisy(n + 50) || make(n)) found += 2;
    while (Noisy left = Noisy(n--)) { if (left.n == 2) continue; found += 4; }
    for (Noisy loop(70); loop.n < 73; loop.n++) if (Noisy here = loop.n - 71) found += here.n;
    return n < -1 || (Noisy(n), take(Noisy(n), single) > 0) ? found : take(chosen(2), single) + found;
}
static Noisy &by_sign(int n)
{
    if (n < 0) { static Noisy negative(n); return negative; }
    static Noisy other(n);
    return other;
}
static int counted(int n)
{
    int sum = 0;
    for (int i = 0; i < n; i++) {
        static int first = (put("first", i), i + 5), rounds;
        if (i == 1) continue;
        static Noisy late(i * 10);
        sum += first + late.n + ++rounds;
    }
    return sum;
}
struct Pair {
    Noisy a, b;
    Pair(int n) : a(n), b(n + 1) { if (n > 4) return; put("small", n); }
};

int main()
{
    for (int way = 0; way < 8; way++) put("ways", ways(way));
    for (int n = -1; n < 4; n++) put("conditions", conditions(n)), put("chosen", chosen(n).n);
    put("static", by_sign(3).n), put("static", by_sign(-4).n), put("static", by_sign(9).n), put("counted", counted(0));
    put("counted", counted(3)), put("counted", counted(2));
    Pair pairs[2] = {3, 6};
    const Noisy &kept = make(8);
    return pairs[1].b.n + kept.n;
}
