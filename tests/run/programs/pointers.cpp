// Pointers to pointers, to arrays, to functions and to members; arithmetic and comparison of them.
#include "print.h"

typedef int Operation(int, int);
static int add(int a, int b) { return a + b; }
static int subtract(int a, int b) { return a - b; }
static Operation *choose(int which) { return which ? add : subtract; }
static int fold(Operation *f, const int *from, const int *to)
{
    int sum = 0;
    while (from < to) sum = f(sum, *from++);
    return sum;
}
static void swap(int **a, int **b)
{
    int *kept = *a;
    *a = *b, *b = kept;
}
struct Command {
    const char *name;
    Operation *run;
    Operation *(*select)(int);
};
static const Command commands[] = {{"add", add, choose}, {"subtract", subtract, 0}, {0, 0, 0}};
static int values[] = {5, -3, 8, 1, 13};
static int *const last = &values[4];
static int **deep, matrix[3][5], (*row)[5] = &matrix[1];

int main()
{
    for (const Command *c = commands; c->name; c++)
        put(c->name, c->run(7, 2) + (c->select ? (*c->select)(c - commands)(4, 1) : 100));
    put("fold", fold(choose(1), values, last + 1)), put("fold", fold(choose(0), values + 1, last));
    int *p = values, *q = last, **pp = &p;
    deep = &q, swap(pp, deep);
    put("p", *p), put("q", *q), put("pp", **pp), put("pp[0][-1]", pp[0][-1]), put("difference", (int)(p - q));
    put("order", p > q), put("same", p == last), put("null", !p), *--*pp = 77, put("stepped", values[3]);
    put("q++", *q++), put("*q++", (*q)++), put("after", *q), put("-2", p[-2]);
    (*row)[2] = 6, row[1][3] = 7, matrix[0][1] = 8;
    for (int *m = matrix[0]; m != &matrix[3][0]; m += 3) put("m", *m);
    char bytes[8] = "abc", *end = bytes;
    do *end += 1;
    while (*++end);
    put("length", (int)(end - bytes)), put("byte", bytes[2]), put("at", 1 [bytes]);
    void *nothing = &values[2];
    return *(int *)nothing + ***&deep;
}
