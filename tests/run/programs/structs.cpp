// Structures by value, nested, in arrays, returned, compared with what they were copied from.
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
    int cells[3][4];
    Box box;
};

static Point add(Point a, Point b) { return {a.x + b.x, a.y + b.y, {a.more[0], b.more[1]}}; }
static Box grow(Box box, int by)
{
    box.low.x -= by, box.low.y -= by;
    box.high = add(box.high, {by, by, {by, 1}});
    box.name[0]++;
    return box;
}
static Big make(int seed)
{
    Big big = {{{seed}, {1, 2}}, {{seed, 2}, {3, 4}, 5, "abc"}};
    for (int i = 0; i < 3; i++)
        for (int j = 0; j < 4; j++) big.cells[i][j] += i * j;
    return big;
}
static void show(const Box &box)
{
    put("low", box.low.x), put("low", box.low.y), put("high", box.high.x), put("high", box.high.y);
    put("tag", box.tag), put("more", box.high.more[0]), put("name", box.name[0]), put("name", box.name[3]);
}

static Point points[4] = {{1, 2}, {3, 4}, {5, 6}, {7, 8}};
static Box table[2] = {{{1, 2}, {3, 4}, 5, "one"}, {{6, 7}, {8, 9}, -10, "two"}};

int main()
{
    for (Box &box : table) box = grow(box, 2), show(box);
    Big a = make(7), b = a;
    b.box = grow(b.box, 1);
    show(a.box), show(b.box);
    Point(*rows)[2] = (Point(*)[2])points;
    rows[1][0] = add(rows[0][1], rows[1][1]);
    put("x", rows[1][0].x), put("y", (*rows)[2].y);
    const Point *end = rows[1] + 2, *at = rows[0];
    for (int i = 0; at != end; ++at, ++i) put("walk", at->x * 10 + at->y + i);
    put("distance", (int)(end - rows[0]));
    for (auto &row : b.cells)
        for (int cell : row) put("cell", cell);
    return table[1].tag == a.box.tag ? 1 : b.box.low.x;
}
