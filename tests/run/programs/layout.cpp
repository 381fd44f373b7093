// Where members are: in the tail padding of a base, packed, aligned, in bit fields of every width, after empty bases,
// in unions, in arrays without length; sizes and offsets, as the code sees them.
#include "print.h"

#define PUT_SIZE(T) put("size " #T, (int)sizeof(T))
#define AT(T, m) put("at " #T "." #m, (int)((char *)&((T *)room)->m - (char *)room))
alignas(16) static struct { char bytes[256]; } storage;
static void *const room = storage.bytes;
inline void *operator new(decltype(sizeof 0), void *at) { return at; }

struct Base { int n; char c; Base() : n(1), c(2) {} };
struct Tail : Base { char d; short e; Tail() : d(3), e(4) {} };
struct Empty {};
struct Other {};
struct OnEmpty : Empty, Other { int n; };
struct EmptyMember { Empty e; char c; Other o; long l; };
struct __attribute__((packed)) Packed { char c; long l; short s; double d; struct { char in; int n; } inner; };
struct PackedBits { unsigned char a : 3; unsigned short b : 13; unsigned char c : 7; } __attribute__((packed));
struct alignas(16) Aligned { char c; alignas(8) short s; int n; };
struct Bits { unsigned a : 1, b : 31; int c : 17; signed char d : 3; bool e : 1; unsigned f : 10; long long g : 40; int : 0; unsigned long long h : 64; };
struct Wide { long long a : 33, b : 20; unsigned long long c : 11; long long : 0; unsigned long long d : 50; unsigned char : 0; unsigned short e : 9; };
struct Zero { char c; int none[0]; char d; };
struct Flexible { short count; char name[]; };
union Mixed { char c[5]; short s; struct { char a; long b; } p; double d; };
struct WithUnion { char before; Mixed m; char after; };
struct Node { Node *next, **back; struct Leaf *leaf; };
struct Leaf { Node own; Leaf *pair[2]; int (*call)(Leaf *, Node); };
struct First { virtual int f() { return 1; } char a; };
struct Second : First { char b; int f() override { return a + b; } };
namespace { struct Hidden { char c; Tail t; }; }

static void show(const char *what, const void *p, int size)
{
    unsigned long sum = 0;
    for (const unsigned char *b = (const unsigned char *)p; size--; b++) sum = sum * 257 + *b;
    put64(what, (long long)(sum & 0xffffffff));
}
static Tail tails[2];
static Base &base = tails[0];
static Packed packed[2] = {{'a', 100000, -5, 1.25, {1, 70000}}};
static Bits bits = {1, 0x7abcdef0, -60000, -3, true, 0xfedcba, -500000000000LL, 0x123456789abcdefULL};
static Flexible *const flexible = (Flexible *)room;
static WithUnion unions[2] = {{'b', {"cdef"}, 'a'}, {'1', {{'2', '3'}}, '4'}};
static int length(Leaf *l, Node n) { return l->pair[0] == (Leaf *)n.next ? 1 : 2; }

int main()
{
    PUT_SIZE(Base), PUT_SIZE(Tail), PUT_SIZE(Empty), PUT_SIZE(OnEmpty), PUT_SIZE(EmptyMember), PUT_SIZE(Packed);
    PUT_SIZE(PackedBits), PUT_SIZE(Aligned), PUT_SIZE(Bits), PUT_SIZE(Wide), PUT_SIZE(Zero), PUT_SIZE(Flexible), PUT_SIZE(Mixed);
    PUT_SIZE(WithUnion), PUT_SIZE(Leaf), PUT_SIZE(Second), PUT_SIZE(Hidden);
    AT(Tail, d), AT(Tail, e), AT(OnEmpty, n), AT(EmptyMember, c), AT(EmptyMember, l), AT(Packed, l), AT(Packed, d), AT(Packed, inner.n);
    AT(Aligned, s), AT(Aligned, n), AT(Zero, d), AT(Flexible, name), AT(WithUnion, m), AT(WithUnion, after), AT(Leaf, call), AT(Hidden, t.e);
    base = Base(), base.n = 9, put("d", tails[0].d + tails[0].e), tails[1] = tails[0], tails[1].d = 7, put("n", tails[1].n + tails[1].d);
    *(Base *)&tails[1] = *new (room) Base, put("kept", tails[1].d), put("c", tails[1].c);
    packed[1] = packed[0], packed[1].l++, packed[1].inner.n *= 2, packed[1].s--, show("packed", packed, sizeof packed), putd("d", packed[1].d);
    for (int i = 0; i < 70; i += 7) {
        bits.a += i, bits.b -= i, bits.c = i * 4000, bits.d++, bits.e = !bits.e, bits.f <<= 1, bits.g -= 77777777777LL, bits.h >>= 3;
        put64("b", bits.b), put("c", bits.c), put("d", bits.d), put64("f", bits.f), put64("g", bits.g), put64("h", (long long)bits.h);
        show("bits", &bits, sizeof bits);
    }
    Wide w = {-4000000000LL, 300000, 1500, 0x2ffffffffffffULL, 300};
    w.a += w.b, w.d -= w.c, w.e += 250, put64("a", w.a), put64("b", w.b), put("c", (int)w.c), put64("d", (long long)w.d), put("e", w.e);
    static PackedBits pb = {5, 5000, 99}, *pp = &pb;
    pp->b += pp->a, pp->c -= 50, put("pb", pp->a + pp->b + pp->c), show("pb", pp, sizeof pb);
    unions[1].m.p.b = 123456, unions[0].m.s++, show("unions", unions, sizeof unions), flexible->count = 3, flexible->name[2] = 'z', put("flexible", storage.bytes[4]);
    Leaf leaf = {{0, 0, &leaf}, {&leaf, 0}, length};
    leaf.own.next = &leaf.own, leaf.own.back = &leaf.own.next, put("call", leaf.call(leaf.own.leaf, *(*leaf.own.back)));
    Second second;
    second.a = 5, second.b = 6;
    First *virtually = &second;
    Hidden hidden[2];
    hidden[1].c = 'h', hidden[1].t.e = (short)virtually->f();
    return hidden[1].t.e + hidden[1].c;
}
