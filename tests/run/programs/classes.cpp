// Classes: virtual functions, several bases, construction and destruction in order, operators, members by pointer.
#include "print.h"

static long long place[4];
void *operator new(__SIZE_TYPE__, void *at) { return at; }
void operator delete(void *object) noexcept { put("delete", object != 0); }

struct Shape {
    long long id;
    static int alive;
    Shape(int n) : id(n) { put("shape", ++alive); }
    virtual ~Shape() { put("~shape", --alive); }
    virtual int area() const = 0;
    virtual const char *name() const { return "shape"; }
};
int Shape::alive;
struct Rectangle : Shape {
    int width, height;
    Rectangle(int w, int h) : Shape(1), width(w), height(h) {}
    ~Rectangle() override { put("~rectangle", width); }
    int area() const override { return width * height; }
};
struct Square final : Rectangle {
    explicit Square(int side) : Rectangle(side, side) {}
    const char *name() const override { return area() > 10 ? "large square" : Shape::name(); }
};
struct Printer {
    virtual void print(const char *what) { put(what, 1); }
};
struct Counter {
    int count = 5;
    virtual int next() { return ++count; }
    Counter &operator+=(int step) { return count += step, *this; }
    Counter operator++(int)
    {
        Counter old = *this;
        *this += 1;
        return old;
    }
    explicit operator bool() const { return count > 10; }
};
struct Logger : Printer, Counter {
    void print(const char *what) override { put(what, next()); }
    int next() override { return Counter::next() * 10; }
};

int main()
{
    {
        Rectangle r(3, 4);
        Square small(2), large(5);
        Shape *all[] = {&r, &small, &large};
        long long Shape::*member = &Shape::id;
        for (Shape *s : all) put(s->name(), s->area() + (int)(s->*member));
    }
    Shape *kept = new (place) Square(7);
    delete kept;
    Logger log;
    Printer &printer = log;
    Counter &counter = log;
    printer.print("first"), log.print("second"), put("next", counter.next()), put("old", counter++.count);
    put("step", (counter += 3).count), put("bool", (bool)counter), put("alive", Shape::alive);
}
