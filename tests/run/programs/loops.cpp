// Loops of every kind, with every way out of them, also past destructors.
#include "print.h"

static const int grid[3][4] = {{1, 2, 3, 4}, {5, -1, 6, 7}, {8, 9, 10, 11}};
static int search(int wanted)
{
    for (int row = 0; row < 3; row++)
        for (int column = 0; column < 4; ++column) {
            if (grid[row][column] == wanted) return row * 10 + column;
            if (grid[row][column] < 0) break;
        }
    return -1;
}
static int forever(int n)
{
    for (;;) {
        if (n > 100) break;
        if (n % 3 == 0) {
            n += 7;
            continue;
        }
        n *= 2;
    }
    do {
        n -= 9;
        if (n == 50) return n;
    } while (n > 60);
    if (n > 55)
        while (true)
            if (--n < 40) return n;
    return n;
}
static int jumps(int n)
{
    int sum = 0;
again:
    sum += n;
    if (--n > 0) goto again;
    for (int i = 0, j = 10; i < j; i++, sum += i * j--)
        for (int k = 0; k < 5; k++) {
            if (i * k > 6) goto out;
            sum += k;
        }
out:
    return sum;
}
static void drain(int n)
{
    for (; n > 0; n -= 3)
        if (put("drain", n), n == 4) break;
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
    for (int n = 1; n < 20; n += 3)
        put("forever", forever(n)), put("jumps", jumps(n)), put("search", search(n)), drain(n);
    int i = 10, j, a = 0, b = 0;
    do put("do", i);
    while (i-- > 7);
    while (i) put("while", i--);
    for (j = i; j < 3 && i < 5; j++)
        for (i = j; i < 3; ++i) put("nested", i * 10 + j);
    do {
        do {
            if (++a % 4 == 0) continue;
            b += a;
        } while (a % 5);
        put("inner", b);
    } while (b < 50);
    for (unsigned char c = 250; c > 5; c++) put("byte", c);
    for (char c : "range") put("char", c);
    for (i = 0; i < 5; i++) put("returned", cleanup(i));
    return a;
}
