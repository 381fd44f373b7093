// Structures and unions by value, as parameters and results of all sizes, in calls of calls; those that name each other.
#include "print.h"

struct S1 { char c; };
struct S2 { short s; };
struct S3 { char c[3]; };
struct S4 { int n; };
struct S5 { int n; char c; };
struct S8 { long a, b; };
struct S12 { short s; double d; };
struct S16 { float f[4]; };
struct Big { int n[20]; struct S8 in; };
struct Floats { float x, y; };
struct One { double d; };
struct None {};
union U { long n; char c[4]; float f; };
struct List { struct List *next; struct Tree *tree; int n; };
struct Tree { struct List own; struct Tree *left, *right; int (*visit)(struct Tree, struct List *); };

static struct S1 f1(struct S1 s) { s.c++; return s; }
static struct S2 f2(struct S2 s, struct S1 t) { s.s += t.c; return s; }
static struct S3 f3(struct S3 s, int n) { s.c[n] = (char)(s.c[2 - n] + 1); return s; }
static struct S4 f4(struct S4 s) { return s.n > 3 ? s : (struct S4){s.n * 2}; }
static struct S5 f5(int n, struct S5 s) { s.n -= n, s.c *= 2; return s; }
static struct S8 f8(struct S8 s, struct S8 t) { struct S8 u = {s.a + t.b, s.b - t.a}; return u; }
static struct S12 f12(struct S12 s) { s.d *= s.s--; return s; }
static struct S16 f16(struct S16 s, float f) { for (int i = 0; i < 4; i++) s.f[i] += f; return s; }
static struct Big fbig(struct Big b, struct S1 c, struct Big *to) { *to = b, b.n[c.c] = 7, b.in = f8(b.in, to->in); return b; }
static struct Floats ff(struct Floats f) { return (struct Floats){f.y, -f.x}; }
static struct One fo(struct One o, struct None n) { o.d /= 3; return (void)n, o; }
static union U fu(union U u) { u.c[1] ^= 1; return u; }
static int visit(struct Tree t, struct List *l) { return t.own.n + (l ? l->n : 0) + (t.left ? t.left->visit(*t.left, l->next) : 0); }
static struct Big made(int n) { struct Big b = {{1, 2, n}, {n, 5}}; return b; }
static int total(struct Big b) { int sum = (int)b.in.a; for (int i = 0; i < 20; i++) sum += b.n[i] * i; return sum; }

int main(void)
{
    struct S1 s1 = {5};
    struct S3 s3 = {{1, 2, 3}};
    struct S12 s12[2] = {{3, 1.5}, {-2, 0.25}};
    struct S16 s16 = {{1, 2, 3}};
    struct Big big, kept;
    struct Floats f = {1.5f, 2.5f}, *pf = &f;
    union U u = {0x12345678};
    put("f1", f1(f1(s1)).c), put("s1", s1.c), put("f2", f2((struct S2){-300}, f1(s1)).s), s3 = f3(f3(s3, 0), 2), put("f3", s3.c[0] + s3.c[2] * 10);
    put("f4", f4(f4((struct S4){2})).n), put("f5", f5(3, (struct S5){10, 'a'}).c), put64("f8", f8(f8((struct S8){1, 2}, (struct S8){3, 4}), (struct S8){5, 6}).a);
    s12[0] = f12(s12[1]), s12[1] = s12[0], putd("f12", s12[1].d), put("s12", s12[0].s), s16 = f16(f16(s16, 0.5f), s16.f[1]), putd("f16", s16.f[3]);
    big = fbig(made(9), s1, &kept), put("big", big.n[5]), put64("in", big.in.b), put("kept", kept.n[5] + kept.n[2]), put("total", total(big) + total(made(4)));
    *pf = ff(ff(*pf)), f = ff(f), putd("x", f.x), putd("y", pf->y), putd("one", fo((struct One){10}, (struct None){}).d);
    u = fu(u), put64("u", u.n), u.f = 1.0f, put("c", fu(u).c[3]), kept = made(3), kept.in = big.in, big = kept, put64("in", big.in.a);
    struct Tree left = {{0, 0, 5}, 0, 0, visit}, tree = {{&left.own, &left, 7}, &left, &tree, visit};
    put("visit", tree.right->visit(*tree.right, &tree.own)), tree.own.tree->own.n = 50, put("visit", tree.visit(tree, tree.own.next->next ? 0 : &tree.own));
    return sizeof(struct Big) == 88 ? big.n[2] : 0;
}
