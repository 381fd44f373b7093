// Structures as values: chosen by ?: and by branches, passed and returned, changed by the callee, pointers to members,
// complex numbers, a copy while the original changes.
#include "print.h"

struct Shape {
    int k;
    explicit Shape(int n) : k(n) {}
    virtual int grow(int x) { return x + k; }
    int times(int x) { return x * k; }
    int minus(int x) { return x - k; }
};
struct Round : Shape {
    Round() : Shape(50) {}
    int grow(int x) override { return x + 1000; }
};
typedef int (Shape::*Action)(int);

static Action pick(int n)
{
    if (n == 0) return &Shape::grow;
    return n == 1 ? &Shape::times : nullptr;
}

static int act(Shape *shape, Action given, int n)
{
    Action first = n ? &Shape::minus : given;
    Action second = n > 1 ? given : n ? first : pick(1);
    return (shape->*first)(3) + 10 * (first == given) + (shape->*second)(9) + 100 * (second != first);
}

struct Point { int x, y; };
struct Big { int a[10]; };
static Point point(int a) { Point p = {a, a + 1}; return p; }
static Point add(Point a, Point b) { a.x += b.x, b.y += a.y; return point(a.x + b.y); }
static int drain(Big b) { int sum = 0; for (int &n : b.a) sum += n--; return sum + b.a[0]; }
static Big more(Big b) { b.a[3]++; return b; }
static _Complex double twice(_Complex double z, bool one) { return one ? z + 1.0 : z * 2.0; }

int main()
{
    Shape shape(7);
    Round round;
    for (int n = 0; n < 3; n++)
        for (int m = 0; m < 3; m++)
            if (Action action = pick(m)) put("act", act(&shape, action, n) + act(&round, action, n));
    Point p = add(point(1), point(5)), *q = &p;
    put("point", add(*q, p).x + p.x + (p.y ? point(3) : p).y);
    Big big = {{1, 2, 3, 4, 5, 6, 7, 8, 9, 10}}, copy = big;
    big.a[0] = 40;
    put("big", drain(big) + drain(more(copy)) + big.a[0] + copy.a[3]);
    _Complex double z = twice(1.5, big.a[1] == 3);
    put("complex", static_cast<int>(__real__ z * 4) + static_cast<int>(__imag__ z));
    return 0;
}
