// Members that C would put elsewhere, statics of inline functions, tables of every kind.
#include "print.h"

struct __attribute__((packed)) Frame {
    char kind;
    int length;
    short check;
    double value;
    struct {
        char low;
        int high;
    } in;
};
struct Base {
    int number;
    char flag;
};
struct Derived : Base {
    char more;
};  // in C++ 12 bytes, with the C of a base 12 as well
class Open {
public:
    virtual int get() { return number; }
    int number = 5;
    char flag = 'f';
};
class Tail : public Open {
public:
    char more = 'm';
    int get() override { return more; }
};  // in the tail of Open
struct Left : virtual Base {
    int left = 1;
};
struct Right : virtual Base {
    char right = 'r';
};
struct Both : Left, Right {
    char both = 'b';
};
struct Nothing {};
struct Holder : Nothing {
    Nothing none;
    int value;
};
struct Zero {
    int count;
    int rows[0];
    char end;
};
union Mixed {
    char text[5];
    int number;
    double floating;
};
struct alignas(16) Aligned {
    char c;
};
struct Bits {
    unsigned a : 3;
    int b : 17;
    unsigned c : 20;
    char d;
    unsigned long long e : 40;
    bool f : 1;
};

Frame frames[2] = {{1, 100000, -3, 1.5, {7, 8}}, {2, -1, 3, -0.25, {9, 10}}};
int *inside = &frames[1].length;
Mixed mixed[3] = {{"abcd"}, {{'x'}}, {}};
Bits bits = {5, -3, 999999, 'd', 0x123456789all, true};
int sparse[100] = {1, 2, 3};
const short cubes[40] = {0, 1, 8, 27};
struct Row {
    const char *name;
    int values[3];
    int (*call)(int);
};
static int twice(int n) { return n + n; }
const Row table[] = {{}, {"two", {0, 2}, twice}, {"three", {}, 0}, {}};
int Base::*member = &Base::number;
int (Open::*method)() = &Open::get;
extern Frame *last;
Frame *last = frames + 2;
inline int &counter()
{
    static int count = 40;
    return count;
}
template <class T> struct Pool {
    static T used;
};
template <class T> T Pool<T>::used = 3;

static void show(Frame &frame)
{
    frame.length += 1;
    frame.value *= 2;
    frame.in.high--;
    put("frame", frame.kind + frame.length + frame.check + (int)frame.value + frame.in.low + frame.in.high);
}

int main()
{
    show(frames[0]);
    show(frames[1]);
    *inside = 7;
    Frame copy = frames[1];
    copy.check++;
    put("copy", copy.length + copy.check + (int)sizeof(Frame) + (int)(last - frames));
    Derived derived;
    derived.number = 1, derived.flag = 2, derived.more = 3;
    Base base = derived;
    put("derived", base.number + base.flag + derived.more + (int)sizeof derived);
    Tail tail, other = tail;
    tail.more = 'n';
    (Open &)tail = other;
    Open *open = &tail;
    put("tail", open->get() + (open->*method)() + open->flag + (int)sizeof tail);
    Both both;
    both.number = 9;
    Left &left = both;
    put("both", left.number + left.*member + both.right + both.both + (int)sizeof both);
    Holder holder[2];
    holder[0].value = 4, holder[1].value = 5;
    Zero zero = {3, {}, 'z'};
    put("holder", holder[1].value + (int)((char *)&holder[1] - (char *)&holder[0].none) + zero.end + (int)sizeof zero);
    mixed[2].number = 0x01020304;
    put("mixed", mixed[0].text[3] + mixed[1].text[0] + mixed[2].text[1] + (int)sizeof mixed);
    Aligned aligned[2] = {{'a'}, {'b'}};
    put("aligned", aligned[1].c + (int)sizeof aligned);
    bits.b += 5, bits.c ^= 1, bits.e++, bits.f = !bits.f;
    put("bits", bits.a + bits.b + (int)bits.c + bits.d + (int)(bits.e >> 8) + bits.f + (int)sizeof bits);
    put("sparse", sparse[2] + sparse[99] + cubes[3] + cubes[39]);
    for (const Row &row : table) put(row.name ? row.name : "none", row.values[1] + (row.call ? row.call(4) : 0));
    counter() += 2, Pool<char>::used++;
    put("shared", counter() + Pool<int>::used + Pool<char>::used);
    return __builtin_isnan(__builtin_nan("")) ? 3 : 4;
}
