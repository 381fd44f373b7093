// What a translation by simple rules makes different: where a value is read, in what width and with what sign it is
// computed, how far a chain of conditions reaches, which brace an arm that leaves closes.
#include "print.h"

static int other = 1, *stored = &other, n = 1, number = -8;
static long long shift = 36;
static signed char c = -1;
static float one = 1;
static unsigned char b;
struct Pair { int a, b; };

static int address_stored() { int x = 3; stored = &x; *stored = 5; return x; }
static int address_of_member() { Pair p = {3, 4}; int *at = &p.b; stored = at; *at = 9, *stored += 1; return p.b; }
static int anonymous() { struct { int n; long long wide; } s; s.n = 3, s.wide = s.n; return (int)s.wide; }
static unsigned assigned_sign() { return (unsigned)(n = number + 4) >> 28; }
static int chain_inside(int a) { return a && (a < 5 && a > 0) == a; }
static int chain_twice(int a, int d) { return (a && (a < 5 && d > 0) == (d || a)) || (d && (a || d < 2) == a); }
static int choice_of_booleans(int a) { return a ? a < 3 : a < 4; }
static int choice_in_condition(int a) { if (a > 1 ? a < 3 : a < 1) return 1; return 2; }
static int choice_crossed() { return !b ? 1 : 2; }
static int constant_char() { return c == -1 ? c != -128 : c; }
static int constant_width() { return (int)((1LL << shift) >> 32) + (int)((1UL << (shift - 8)) >> 20); }
static int float_constant() { return one + 7.450580596923828e-09f == one ? 1 : 0; }
static int both_return(int a, int d)
{
    int result = 1;
    if (a) {
        if (d) return 2;
        else return result;
    }
    result = 3;
    return result;
}
static int loop_of_and()
{
    for (;;) {
        if (n > 10 && n < 100) return n;
        n++;
    }
}
static int loop_of_or()
{
    for (;;) if (n < 0 || (n > 50 && n != 60)) break; else n += 7;
    return n;
}
struct Counted { Counted() { n++; } ~Counted() { n += 100; } };
static int loop_of_one_block() { n = 0; { Counted all[3]; } return n; }
static int parameter(int a) { return a; }
static int parameter_twice(int a, const int d) { return (&a)[0] + d; }
static int five() { n = 5; return 10; }
static Pair read_in_order() { n = 1; return {n, five()}; }
static int read_in_shift() { n = 1; return n << (five() - 8); }
static int read_late() { n = 1; int before = n, called = five(); return before + called + n; }
static int array[12], calls;
static int next() { return calls = calls * 2 + 1; }
static int &element(int i) { return array[calls % 8 + i]; }
static int assigned_in_order() { element(0) = next(); return array[1] * 10 + array[0]; }
static double to_floating() { return (double)c + (double)(unsigned char)c + (double)(unsigned)number + (float)(unsigned short)number; }

int main()
{
    put("address_stored", address_stored()), put("address_of_member", address_of_member()), put("anonymous", anonymous());
    put("assigned_sign", (int)assigned_sign());
    for (int a = -1; a < 5; a++) {
        put("chain_inside", chain_inside(a)), put("choice", choice_of_booleans(a)), put("condition", choice_in_condition(a));
        for (int d = 0; d < 3; d++) put("chain_twice", chain_twice(a, d)), put("both_return", both_return(a, d));
    }
    put("choice_crossed", choice_crossed()), put("constant_char", constant_char()), put("constant_width", constant_width());
    put("float_constant", float_constant()), n = 0, put("loop_of_and", loop_of_and()), put("loop_of_or", loop_of_or());
    put("loop_of_one_block", loop_of_one_block()), put("parameter", parameter(3) + parameter_twice(4, 5)), put("in order", read_in_order().a);
    put("in shift", read_in_shift()), put("late", read_late()), put("assigned", assigned_in_order()), putd("to_floating", to_floating());
    return 0;
}
