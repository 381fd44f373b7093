// Trees of && || ! ?: over operands of every type, in every place that takes a condition or a value of one; what was
// called, in what order, tells the sum.
#include "print.h"

static unsigned long sum;
static unsigned bits;
static bool c(int n) { return sum = sum * 31 + n, bits >> n & 1; }
static int v(int n) { return c(n) ? n : -n; }
struct Part {
    int n;
    unsigned flag : 1;
    bool on;
    Part *next;
};
static Part part, other;
static int i, *p;
static float f;
static double d, nan;
static signed char s;
static bool b;

static bool negated() { return !(c(0) && c(1)) || !c(2); }
static bool deep() { return (c(0) || (c(1) && !c(2))) && !((c(3) ? c(4) : !c(0)) || c(1)); }
static bool alternating() { return ((c(0) && c(1)) || c(2)) && (c(3) || c(4)); }
static bool right() { return c(0) && (c(1) && (c(2) || (c(3) || c(4)))); }
static int chosen() { return (c(0) ? c(1) : c(2)) ? c(3) && c(4) ? 1 : 2 : !c(3) ? 3 : c(4) ? 4 : 5; }
static int compared() { return (c(0) && c(1)) == b ? 6 : (i > 2 || b) != (f < 1) ? 7 : 8; }
static bool mixed() { return i && f && !d && p && *p > 1 && (s < 0 || part.flag) && !(part.next && part.next->on); }
static bool unordered() { return !(nan < d) && (nan != nan || nan >= d) && !(nan > 1 || nan <= 0) ? !(nan == d) : nan < 3; }
static int assigned()
{
    int n = 0;
    if ((i = v(1)) > 0 && (b = c(2), i < 2)) n = 1;
    if ((p = c(3) ? &i : 0) && (*p += 2) > 2) n += 2;
    if (!(b = i == 3) || (part.on = !b)) n += 4;
    return n + (part.on = c(4), part.on && !b ? 8 : 16);
}
static int loops()
{
    int n = 0, limit = 4;
    while ((c(0) || n < 2) && !(c(1) && n > 1) && limit--) n++;
    do n += 2; while (n < 7 && (c(2) || !c(3)));
    for (; !(n > 20 || (c(4) && n % 3 == 0)); n += c(0) || c(1) ? 3 : 2) if (n == 11 && (c(2) || !b)) continue; else if (n == 13 || (n > 15 && c(3))) break;
    return n;
}
static int places(bool a, int n)
{
    int array[3] = {a || n > 2, a && n, !(a && n > 1)};
    bool both = a && n > 1, either = !a || !n;
    switch ((a || n) + (both && !either)) {
    case 0: return array[c(0) && c(1)];
    case 1: sum += array[(a ? n > 1 : n > 2) ? 1 : 2]; break;
    default: return array[!either] + (both ? c(2) && c(3) : c(4) || c(3));
    }
    v((a && c(1)) || n == 3), put("place", (n > 1 || both) + (a ? 10 : c(1) ? 20 : 30));
    return both ? n : either ? -n : 9;
}
static const char *name(int n) { return n < 0 ? "below" : n == 0 || n == 1 ? "low" : n > 3 && !(n & 1) ? "even" : "rest"; }

int main()
{
    double zero = 0;
    part.next = &other;
    for (bits = 0; bits < 32; bits++) {
        i = bits & 3, f = (float)(bits >> 2 & 1), d = bits >> 1 & 1, s = (signed char)(bits - 16), b = bits & 1;
        p = bits > 20 ? 0 : &i, part.flag = bits >> 3, part.on = bits & 8, other.on = bits & 4;
        nan = bits & 2 ? zero / zero : bits & 1 ? 1e308 * 10 : 0.5, sum = bits;
        int all = negated();
        all += deep() * 2, all += alternating() * 4, all += right() * 8, all += mixed() * 16 + unordered() * 32;
        put("all", all), put("chosen", chosen()), put("compared", compared()), put("assigned", assigned());
        put("loops", loops()), put("places", places(bits & 1, bits >> 1 & 3)), put(name((int)bits - 2), all), put64("sum", sum);
    }
    return 0;
}
