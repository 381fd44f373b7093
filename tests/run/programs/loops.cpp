// Loops of every kind, with every way out of them.
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
    while (true)
        if (--n < 40) break;
    return n;
}
static int jumps(int n)
{
    int sum = 0;
again:
    sum += n;
    if (--n > 0) goto again;
    for (int i = 0, j = 10; i < j; i++, j--) {
        for (int k = 0; k < 5; k++) {
            if (i * k > 6) goto out;
            sum += k;
        }
        sum += i * j;
    }
out:
    return sum;
}

int main()
{
    for (int n = 1; n < 20; n += 3) put("forever", forever(n)), put("jumps", jumps(n)), put("search", search(n));
    int i = 10, j, a = 0, b = 0;
    do put("do", i);
    while (i-- > 7);
    while (i) put("while", i--);
    for (j = i; j < 3 && i < 5; j++)
        for (i = j; i < 3; ++i) put("nested", i * 10 + j);
    do {
        do {
            a++;
            if (a % 4 == 0) continue;
            b += a;
        } while (a % 5);
        put("inner", b);
    } while (b < 50);
    for (unsigned char c = 250; c > 5; c++) put("byte", c);
    for (char c : "range") put("char", c);
    return a;
}
