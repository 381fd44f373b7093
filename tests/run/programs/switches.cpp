// Switches: falling through, default at every place, nested, in loops, with returns, ranges and borders.
#include "print.h"

static int plain(int n)
{
    int r = 0;
    switch (n) {
    case 1: r = 10; break;
    case -2: r = 20;
    case 3: r += 30; break;
    default: r = 40;
    case 70000:
    case 5: r++;
    }
    return r;
}
static const char *name(unsigned char c)
{
    switch (c) {
    case 'a' ... 'e': return "early";
    case 'z': return "last";
    case 255: return "border";
    }
    return c < 'a' ? "low" : "other";
}
static int nested(int a, long long b)
{
    switch (a) {
    case 0:
        switch (b) {
        case 0: return 1;
        case -5000000000: break;
        default: return 2;
        }
        return 3;
    case 2:
        for (int i = 0; i < 5 && i != b; i++)
            if ((a += i) > 9) break;
        break;
    default:
        if (b) return -a;
        a = 99;
    }
    return a + 100;
}
static const int numbers[] = {1, -2, 3, 4, 5, 70000, -70000};

int main()
{
    for (int n : numbers) put("plain", plain(n));
    for (char c : "cz\377Am") put(name(c), c);
    for (int a = 0; a < 4; a++)
        put("nested", nested(a, 0)), put("nested", nested(a, 1)), put("nested", nested(a, -5000000000));
}
