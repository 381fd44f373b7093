// Arrays of variable length in scopes that are left in every way: by return, break, continue and goto, forwards and back
// past the definition, two arrays in one scope of which the second may not be there yet, and recursion.
#include "print.h"

static int leave(int n, int way)
{
    int a[n];
    a[0] = 0, a[n - 1] = 3;
    if (way == 1) return a[n - 1];
    char b[n * 2];
    b[1] = 4;
    if (way == 2) return b[1];
    for (int i = 0; i < n; i++) {
        short c[i + 1];
        c[0] = 0, c[i] = (short)i;
        if (i == 1) continue;
        if (i == way) break;
        a[0] += c[i];
    }
    int k = 0;
again:;
    short d[n + k];
    d[k] = (short)k;
    if (k++ < 3) goto again;
    if (way == 4) goto out;
    a[0] += d[k - 1] + (int)sizeof d;
out:
    return a[0] + b[1] + (int)sizeof b;
}

static int depth(int n)
{
    if (n == 0) return 0;
    int a[n][2];
    a[n - 1][1] = n;
    return depth(n - 1) + a[n - 1][1] + (int)sizeof a[0];
}

int main(void)
{
    for (int way = 0; way < 6; way++) put("leave", leave(5, way));
    put("depth", depth(6));
    return 0;
}
