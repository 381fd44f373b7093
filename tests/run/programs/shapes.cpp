// What the front end writes in a form of its own: filled arrays, results that are addresses, statements inside of
// values, loops without an end, cleanups that go on to several places.
#include "print.h"

struct Pair {
    int a, b;
};
static Pair pair;
static int calls;
static Pair *address() { return calls++, &pair; }
static Pair &reference() { return ++calls, pair; }
static int endless(int n)
{
    if (n > 3) {
        while (true) {
            if (++n > 20) return n;
        }
    }
    return 4;
}
struct Guard {
    int n;
    Guard(int at) : n(at) {}
    ~Guard() { put("guard", n); }
};
static int cleanup(int n)
{
    Guard outer(10);
    for (int i = 0; i < n; i++) {
        Guard inner(i);
        if (i == 1) continue;
        if (i == 2) break;
        if (i == n - 1) return i;
        put("cleanup", i);
    }
    return -1;
}

int main()
{
    int n = 4, filled[] = {1, n, n * 2, 5}, rest[3] = {n};
    short grid[2][2] = {{(short)n, 2}, {3, 4}};
    for (int i = 0; i < 3; i++) put("filled", filled[i] + rest[i]);
    put("grid", grid[0][0] * 10 + grid[1][1]);
    address()->b += 2, reference().a++, ++address()->a;
    put("a", pair.a), put("b", pair.b), put("calls", calls);
    put("choice", calls ? n-- : 0), put("n", n), put("comma", n > 5 ? (n = 1, 2) : (n = 7, n + 1)), put("n", n);
    put("endless", endless(2)), put("endless", endless(4));
    for (int i = 0; i < 5; i++) put("returned", cleanup(i));
}
