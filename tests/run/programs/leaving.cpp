// Both arms of an if leave for elsewhere: the function, a loop, a switch, by a goto.
#include "print.h"

struct Guard {
    int n;
    Guard(int at) : n(at) {}
    ~Guard() { put("guard", n); }
};
static int returns(int x, int y)
{
    if (x > 2) {
        if (y > 0) return 1;
        else return 2;
    } else if (x == 1) put("one", x);
    else if (x == 2)
        if (y > 0) return 3;
        else return put("two", y), 4;
    put("on", x);
    return 5;
}
static int loops(int x, int y)
{
    for (int i = 0; i < 4; i++) {
        Guard guard(i);
        if (i == x) return 6;
        else if (i == y) break;
        else continue;
    }
    do
        if (x > y) return 7;
        else if (x += 2, y > 1) continue;
        else break;
    while (x < 4);
    put("loops", x);
    while (true)
        if (++x < y) continue;
        else break;
    for (;;)
        if (x > 4)
            if (y) return x;
            else break;
        else x++;
    return -x;
}
static void switches(int x, int y)
{
again:
    switch (x) {
    case 0:
        if (y) return put("zero", y);
        else break;
    case 1:
        if (x++, y) break;
        else goto again;
    default:
        if (y > 1) put("default", y);
        else if (y) return;
        else break;
    }
    put("behind", x);
}

int main()
{
    for (int x = -1; x < 5; x++)
        for (int y = -1; y < 3; y++) put("returns", returns(x, y)), put("loops", loops(x, y)), switches(x, y);
    return 0;
}
