// Tables that are longer than a line of IR may be, with addresses of what only they name.
#include "print.h"

#define A(n) n, (n)*3 + 1, (n)*5 + 2, (n)*7 + 3,
#define B(n) A(n) A(n + 1) A(n + 2) A(n + 3) A(n + 4) A(n + 5) A(n + 6) A(n + 7)
#define C(n) B(n) B(n + 8) B(n + 16) B(n + 24) B(n + 32) B(n + 40) B(n + 48) B(n + 56)
#define ROW(n) {"n" #n, once, &numbers[n], (n) / 3.0f, {0, n}}, {"m" #n, twice, &local, -(n)*0.1f, {}},
#define ROWS(n) ROW(n) ROW(n + 1) ROW(n + 2) ROW(n + 3) ROW(n + 4) ROW(n + 5) ROW(n + 6) ROW(n + 7)

struct Row {
    const char *name;
    int (*call)(int);
    const int *place;
    float factor;
    long long wide[2];
};

static int once(int n) { return n + 1; }
int twice(int n) { return n * 2; }
static const int numbers[] = {C(0) C(64) C(128) C(192) C(256) C(320) C(384) C(448)};
static int local = 5;
Row rows[] = {ROWS(0) ROWS(8) ROWS(16) ROWS(24) ROWS(32) ROWS(40){}};
extern const unsigned char bytes[9000] = {1, 2, 3, 0, '"', '\\', '?', '?', '=', 255};

int main()
{
    int sum = 0;
    for (unsigned i = 0; i < sizeof numbers / sizeof *numbers; i++) sum += numbers[i] * (i & 7);
    put("numbers", sum);
    for (const Row *row = rows; row->name; row++) {
        sum += row->call(row->name[1]) + *row->place + (int)(row->factor * 4) + (int)row->wide[1];
    }
    put("rows", sum);
    for (unsigned i = 0; i < sizeof bytes; i++) sum += bytes[i] * i;
    put("bytes", sum);
    return 0;
}
