// Structures by value, nested, in arrays, returned; unions and bit fields of every width and sign, and how they share
// their bytes; arrays filled with values.
#include "print.h"

struct Point {
    int x, y, more[2];
};
struct Box {
    Point low, high;
    short tag;
    char name[6];
};
struct Big {
    int cells[2][3];
    Box box;
};
union Word {
    unsigned bits;
    float number;
    unsigned char bytes[4];
    struct {
        short low, high;
    } halves;
};
struct Flags {
    unsigned ready : 1, mode : 3, count : 7;
    int level : 5, step : 16;
    unsigned char kind : 4, rest : 4;
    bool last : 1;
};
struct Variant {
    bool named;
    union {
        double value;
        const char *name;
    };
};

static Point add(Point a, Point b) { return {a.x + b.x, a.y + b.y, {a.more[0], b.more[1]}}; }
static Box grow(Box box, int by)
{
    box.low.x -= by, box.high = add(box.high, {by, by, {by, 1}}), box.name[0]++;
    return box;
}
static Big make(int seed)
{
    Big big = {{{seed}, {1, 2}}, {{seed, 2}, {3, 4}, 5, "abc"}};
    for (int i = 0; i < 6; i++) big.cells[i / 3][i % 3] += i;
    return big;
}
static void show(const Box &box)
{
    put("low", box.low.x), put("high", box.high.x), put("high", box.high.y), put("more", box.high.more[0]);
    put("tag", box.tag), put("name", box.name[0]), put("name", box.name[3]);
}
static Box table[2] = {{{1, 2}, {3, 4}, 5, "one"}, {{6, 7}, {8, 9}, -10, "two"}};

int main()
{
    for (Box &box : table) box = grow(box, 2), show(box);
    Big a = make(7), b = a;
    b.box = grow(b.box, 1), show(a.box), show(b.box);
    for (auto &row : b.cells)
        for (int cell : row) put("cell", cell);
    int n = 4, filled[] = {1, n, n * 2, 5}, rest[3] = {n};
    short grid[2][2] = {{(short)n, 2}, {3, 4}};
    for (int i = 0; i < 3; i++) put("filled", filled[i] + rest[i] + grid[i / 2][i % 2]);

    Word w;
    for (float f = -1.5f; f < 3; f += 1.25f) {
        w.number = f, put64("bits", w.bits), put("low", w.halves.low), put("high", w.halves.high);
        w.bytes[3] ^= 0x80, putd("negated", w.number);
    }
    Flags f = {};
    for (int i = -20; i < 20; i += 3) {
        f.ready = i, f.mode = i, f.count += i, f.level = i, f.step = i * 3000, f.kind = i, f.rest = ~i, f.last = i & 2;
        put("ready", f.ready), put("mode", f.mode), put("count", f.count), put("level", f.level), put("step", f.step);
        put("kind", f.kind), put("rest", f.rest), put("last", f.last);
        put("sum", f.mode + f.level * f.kind), put("test", f.ready && f.last ? f.level : f.mode);
    }
    Variant all[2];
    all[0].named = false, all[0].value = 2.5, all[1].named = true, all[1].name = "xyz";
    for (const Variant &v : all) put("variant", v.named ? v.name[1] : (int)v.value);
    return table[1].tag == a.box.tag ? 1 : b.box.low.x;
}
