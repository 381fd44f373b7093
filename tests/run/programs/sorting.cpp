// Sorting, recursive and not, with functions and objects that compare.
#include "print.h"

typedef bool Less(int, int);
static bool up(int a, int b) { return a < b; }
static bool digits(int a, int b) { return a % 10 > b % 10; }
static void exchange(int &a, int &b)
{
    int kept = a;
    a = b;
    b = kept;
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
static void sift(int *a, int at, int n)
{
    for (int child; (child = 2 * at + 1) < n; at = child) {
        if (child + 1 < n && a[child] < a[child + 1]) child++;
        if (a[at] >= a[child]) break;
        exchange(a[at], a[child]);
    }
}
template <typename T, typename Compare> void insertion(T *a, int n, Compare compare)
{
    for (int i = 1, j; i < n; i++) {
        T kept = a[j = i];
        for (; j > 0 && compare(kept, a[j - 1]); j--) a[j] = a[j - 1];
        a[j] = kept;
    }
}
static unsigned seed;
static int a[20];
static void fill()
{
    for (int &cell : a) seed = seed * 1103515245u + 12345u, cell = (int)(seed >> 16) % 100 - 50;
}
static void show(const char *what)
{
    for (int i = 0; i < 20; ++i) put(what, a[i]);
}

int main()
{
    static Less *const orders[] = {up, digits};
    for (Less *order : orders) fill(), quick(a, a + 20, order), show("quick");
    fill();
    for (int i = 10; i-- > 0;) sift(a, i, 20);
    for (int n = 20; --n > 0;) exchange(a[0], a[n]), sift(a, 0, n);
    show("heap"), fill(), insertion(a, 20, [](short x, short y) { return x > y; }), show("insertion");
}
