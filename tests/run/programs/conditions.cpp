// && and || and ?: in every place, and in what order their operands are evaluated; commas; results that are addresses.
#include "print.h"

static int calls;
static bool yes(int n) { return put("yes", n), calls++, true; }
static bool no(int n) { return put("no", n), calls--, false; }
static int sign(int n) { return n < 0 ? -1 : n > 0 ? 1 : 0; }
static bool leap(int year) { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0; }
static int grade(int n)
{
    if (n > 90) return 'A';
    else if (n > 80 && n != 85) return 'B';
    else if (n == 85 || (n < 10 && n >= 5)) return 'X';
    return 'F';
}
static int negated(int x, int y, int z)
{
    int n = 0;
    if (!(x > 1) && y == 0 && !(z != 1)) n += 1;
    if (x > 1 || (y == 0 && !(z != 1))) n += 2;
    while ((x > 1 || !(y == 0)) && !(z > 3)) z += 2, n += 4;
    return !(x == 1) && y == 0 ? n : !yes(x) ? z : -n;
}
struct Pair {
    int a, b;
};
static Pair pair;
static Pair *address() { return calls++, &pair; }
static Pair &reference() { return ++calls, pair; }
static int clamp(int n, int low, int high) { return n < low ? low : n > high ? high : n; }
static const int years[] = {1900, 1996, 2000, 2023}, grades[] = {95, 82, 85, 7, 3};

int main()
{
    if (yes(1) && no(2) && yes(3)) put("never", 0);
    if (no(4) || yes(5) || no(6)) put("once", 0);
    else put("never", 1);
    if ((no(7) && yes(8)) || (yes(9) && !no(10))) put("mixed", 1);
    if (yes(11) && (no(12) || yes(13)) && !(no(14) || no(15))) put("deep", 2);
    bool b = yes(16) && no(17), c = no(18) || yes(19), d = !(b || c);
    put("b", b), put("c", c), put("d", d), put("calls", calls);
    for (int n = -2; n < 3; n++)
        put("sign", sign(n)), put("clamp", clamp(n * 5, -4, 7)), put("both", n > -2 && n < 2 ? n : -n);
    for (int n = 0; n < 12; n++) put("negated", negated(n % 3, n / 3 % 2, n / 6));
    for (int y : years) put("leap", leap(y));
    for (int g : grades) put("grade", grade(g));
    int i = 0;
    while (i < 10 && (i != 5 || yes(20))) i++;
    do i -= 3;
    while (i > 0 && !no(i));
    for (i = 0; i < 3 || (i < 6 && yes(i)); i++)
        ;
    put("i", i), put("choice", (b ? 1 : 2) + (c ? 10 : 20)), put(c ? "true" : "false", b ? i : calls);
    int *p = 0, q = 4;
    put("guard", p && *p), put("guard", (p = &q) && *p == 4), put("set", (c ? q : i) = 9), put("q", q);
    address()->b += 2, reference().a++, ++address()->a, put("a", pair.a), put("b", pair.b), put("calls", calls);
    put("step", calls ? q-- : 0), put("comma", q > 9 ? (q = 1, 2) : (q = 7, q + 1)), put("q", q);
    return (b || c) && !d ? 3 : 4;
}
