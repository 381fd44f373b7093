// Pointers to members, of data and functions, virtual and not, of bases and in tables; casts between bases and derived
// with null in them; casts of numbers, enumerations, pointers and functions.
#include "print.h"

struct A {
    int a = 1, more[3] = {2, 3, 4};
    int get() const { return a; }
    int add(int n) { return a += n; }
    virtual int twice() { return a * 2; }
};
struct B {
    int b = 10;
    virtual int half() { return b / 2; }
    int add(int n) { return b += n; }
};
struct C : A, B {
    int c = 100;
    int twice() override { return c * 2; }
    int half() override { return c / 2 + b; }
    int add(int n) { return c += n; }
};
typedef int (C::*Call)(int);
typedef int (C::*None)();
struct Entry {
    const char *name;
    Call call;
    int C::*member;
};
static const Entry entries[] = {{"A", (Call)&A::add, &C::a}, {"B", (Call)&B::add, &C::b}, {"C", &C::add, &C::c}, {"none", nullptr, nullptr}};
static const None simple[] = {(None)&A::twice, &B::half, &C::twice, nullptr};
template <class T> static int apply(T &object, int (T::*call)(int), int n) { return (object.*call)(n); }
static int B::*which(bool first) { return first ? &B::b : nullptr; }

static C *down(B *b) { return static_cast<C *>(b); }
static B *up(C *c) { return c; }
static const B &reference(const C &c) { return c; }
static int member(C *c) { return c ? static_cast<B *>(c)->b : -1; }

enum Small : unsigned char { ZERO, MANY = 200 };
enum class Signed : signed char { minus = -100, plus = 100 };
typedef int Function(int);
static int inc(int n) { return n + 1; }
static unsigned char bytes[8] = {1, 2, 3, 4, 0xff, 0xfe, 0x80, 0x7f};

int main()
{
    C c;
    for (const Entry &e : entries) {
        put(e.name, e.call ? (c.*e.call)(5) : -1), put("member", e.member ? c.*e.member : -1);
        if (e.member) c.*e.member += 3, put("&", &(c.*e.member) - &c.a > 0);
    }
    for (None call : simple) put("simple", call ? (c.*call)() : 0), put("equal", call == simple[2]);
    int (A::*constant)() const = &A::get;
    int(A::*list)[3] = &A::more, B::*b = which(true), C::*derived = b, A::*a = nullptr;
    put("get", (c.*constant)()), put("list", (c.*list)[1]), put("derived", c.*derived), put("null", !a + !which(false) * 2 + (b == &B::b) * 4);
    put("apply", apply(c, &C::add, 7)), put("apply", apply<B>(c, &B::add, 8)), put("half", up(&c)->half());
    put("down", down(up(&c)) == &c), put("null", !down(nullptr) + !up(nullptr) * 2), put("member", member(&c) + member(nullptr)), put("ref", reference(c).b);
    B *base = &c;
    base->*b = 77, put("c.b", c.b), put("offset", (char *)base > (char *)&c);
    Small small = (Small)(MANY + 55);
    Signed number = (Signed)((int)Signed::minus - 28);
    put("small", small), put("wrapped", (Small)(small + 1)), put("number", (int)number), put("minus", -(int)number), put("less", number < Signed::plus);
    void *where = &c;
    Function *function = inc;
    int (*other)(int) = reinterpret_cast<Function *>((unsigned long)function);
    put("void", static_cast<C *>(where)->c), put("function", other(4) + (*function)(5)), put("aligned", ((unsigned long)where & 3) == 0);
    put("short", *(short *)(bytes + 4)), put64("long", *reinterpret_cast<unsigned long *>(bytes)), put("char", (signed char)bytes[6] + (char)bytes[5] % 7);
    const int fixed = 5;
    put("const", *const_cast<int *>(&fixed) + static_cast<bool>(where) + bool(0.5) + bool('a') * 2), put("cut", (signed char)300 + (unsigned char)-1 + (short)70000);
    return (int)(long long)-3.7 + (int)'\xff' + (unsigned char)'\xff';
}
