// Virtual bases, shared and not: their place, the order of constructors, calls and casts across them, null among them.
#include "print.h"

struct Root {
    int r;
    Root(int n = 1) : r(n) { put("Root", n); }
    virtual ~Root() { put("~Root", r); }
    virtual int id() const { return r; }
    int plain() { return id() + 1; }
};
struct Left : virtual Root {
    int l;
    Left(int n) : Root(n), l(n * 2) { put("Left", id()); }
    ~Left() override { put("~Left", id()); }
    int id() const override { return l + r; }
};
struct Right : virtual Root {
    int x = 5;
    Right() : Root(9) { put("Right", r); }
    virtual int right() { return x + r; }
    ~Right() override { put("~Right", right()); }
};
struct Bottom : Left, Right {
    int b;
    Bottom(int n) : Root(n + 100), Left(n), b(id()) { put("Bottom", b); }
    ~Bottom() override { put("~Bottom", b); }
    int id() const override { return Left::id() + x; }
    int right() override { return Right::right() + b; }
};
struct Side {
    int s = 3;
    virtual int side() { return s; }
    virtual ~Side() { put("~Side", s); }
};
struct Last : Side, virtual Left, Bottom {
    Last() : Root(7), Left(20), Bottom(30) {}
    int side() override { return Side::side() + Bottom::b; }
    int id() const override { return Bottom::id() + 1000; }
};
struct Pure : virtual Side { virtual Pure *self() = 0; };
struct Made : Pure, Root {
    Made *self() override { return this; }
    int side() override { return 44; }
};
static int through(Root *root) { return root ? root->id() + root->plain() : -1; }
static Root *up(Right *right) { return right; }
static Side *across(Made *made) { return made; }
static int sum(const Root &root, Left &left) { return root.r + left.l + left.r; }

int main()
{
    {
        Bottom bottom(4);
        Left *left = &bottom;
        Right *right = &bottom;
        put("through", through(&bottom)), put("left", through(left)), put("up", through(up(right))), put("right", right->right());
        left->r += 10, put("shared", right->r), put("sum", sum(bottom, bottom)), put("same", up(right) == (Root *)left);
        put("null", !up(nullptr)), put("null", !across(nullptr)), right = nullptr, put("through", through(right));
    }
    {
        Last last;
        Bottom &bottom = last;
        put("last", last.side()), put("id", bottom.id()), put("lefts", static_cast<Side &>(last).side());
        Bottom copy(bottom);
        put("copy", copy.right()), copy.b = 1, bottom = copy, put("assigned", bottom.Bottom::b);
    }
    Root *root = new Bottom(1);
    Made made;
    Pure *pure = &made;
    put("root", through(root)), delete root, put("made", pure->self()->side()), put("across", across(&made)->side() + pure->s);
    Left alone(2);
    return alone.id() + made.r;
}
