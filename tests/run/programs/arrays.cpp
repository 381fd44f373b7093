// Arrays of objects of every length: new T[n] and delete[], locals, members, of two dimensions, without objects at all.
#include "print.h"

typedef decltype(sizeof 0) Size;
static int made, alive, at;
alignas(16) static char pool[4000];
void *operator new(Size size) { return put("new", (int)size), at += (int)(size + 15) / 16 * 16, pool + at - (size + 15) / 16 * 16; }
void *operator new[](Size size) { return put("new[]", (int)size), at += (int)(size + 15) / 16 * 16, pool + at - (size + 15) / 16 * 16; }
void operator delete(void *p) noexcept { put("delete", (int)((char *)p - pool)); }
void operator delete(void *p, Size) noexcept { put("delete", (int)((char *)p - pool)); }
void operator delete[](void *p) noexcept { put("delete[]", p ? (int)((char *)p - pool) : -1); }
void operator delete[](void *p, Size) noexcept { put("delete[] n", (int)((char *)p - pool)); }

struct Item {
    int n;
    Item() : n(++made) { alive++; }
    Item(int from) : n(from) { alive++; }
    Item(const Item &from) : n(from.n + 1) { alive++; }
    ~Item() { put("gone", n), alive--; }
};
struct Plain { int a, b; };
struct Virtual {
    Item item;
    virtual ~Virtual() { put("base", item.n); }
    virtual int value() const { return item.n; }
};
struct Derived : Virtual {
    Item more[2];
    ~Derived() override { put("derived", more[1].n); }
    int value() const override { return more[0].n * 100; }
};
struct Grid {
    Item cells[2][3];
    Grid() { cells[1][0].n = 50; }
};
static Item &last(Item *items, int n) { return items[n - 1]; }
static int use(int n)
{
    Item *items = new Item[n];
    int sum = 0;
    for (Item *i = items; i != items + n; ++i) sum += i->n;
    if (n) last(items, n).n = -n;
    delete[] items;
    return sum + alive * 1000;
}
static int local(int n)
{
    Item one[1], some[3] = {7, Item(8)}, none[1][2];
    if (n == 1) return some[2].n;
    for (const Item &i : some) if (i.n == n) return one[0].n;
    Grid grid, copy(grid);
    return grid.cells[1][0].n + copy.cells[1][2].n;
}
static Item fixed[2][2];

int main()
{
    for (int n = 0; n < 5; n++) put("use", use(n));
    put("local", local(1)), put("local", local(8)), put("local", local(2)), put("alive", alive);
    Plain *plain = new Plain[3](), *rest = new Plain[2]{{1, 2}};
    put("plain", plain[2].b + rest[0].b + rest[1].a), delete[] plain, delete[] rest;
    Item(*rows)[2] = new Item[3][2];
    put("rows", rows[2][1].n - rows[0][0].n), delete[] rows;
    Item *given = new Item[4]{10, 20};
    put("given", given[1].n + given[3].n), delete[] given, given = nullptr, delete[] given;
    Virtual *one = new Derived, *many = new Virtual[2];
    put("virtual", one->value() + many[1].value()), delete one, delete[] many, one = nullptr, delete one;
    Derived *derived = new Derived[2];
    put("derived", derived[1].value()), delete[] derived;
    Item **pointers = new Item *[3];
    for (int i = 0; i < 3; i++) pointers[i] = i == 1 ? nullptr : new Item(i + 60);
    for (int i = 2; i >= 0; i--) delete pointers[i];
    delete[] pointers, put("alive", alive);
    return fixed[1][1].n;
}
