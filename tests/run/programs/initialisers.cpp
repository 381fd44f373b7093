// Initial values of every kind and size: tables of strings, addresses and functions, of what is computed before main, of
// what only other initial values need; constants of classes; variables of templates and of inline functions.
#include "print.h"

#define TEN(x) x, x + 1, x + 2, x + 3, x + 4, x + 5, x + 6, x + 7, x + 8, x + 9
#define HUNDRED(x) TEN(x), TEN(x + 10), TEN(x + 20), TEN(x + 30), TEN(x + 40), TEN(x + 50), TEN(x + 60), TEN(x + 70), TEN(x + 80), TEN(x + 90)
#define THOUSAND(x) HUNDRED(x), HUNDRED(x * 2), HUNDRED(x * 3), HUNDRED(x * 4), HUNDRED(x * 5), HUNDRED(x * 6), HUNDRED(x * 7), HUNDRED(x * 8), HUNDRED(x * 9), HUNDRED(x * 10)
static const long table[] = {THOUSAND(100001), THOUSAND(7), THOUSAND(-3000), THOUSAND(0)};
static const double curve[] = {HUNDRED(0.1), HUNDRED(-1e10)};
static const unsigned char letters[] = "a text with \"quotes\", \\ and \t\n\r\v\0\001\377?\?= that is longer than a line may be in many places "
    "0123456789 0123456789 0123456789 0123456789 0123456789 0123456789 0123456789 0123456789 0123456789 0123456789 end";
static const char *const words[][3] = {{"one", "eins"}, {"two", "zwei", "due"}, {letters[0] == 'a' ? "yes" : "no"}};
static const char square[2][3] = {"ab", {'c', 'd', 'e'}}, *middle = &square[1][1];
struct Row {
    const char *name;
    int (*call)(int);
    const Row *next;
    struct { short low : 4, high : 12; unsigned char mask[3]; } flags;
    union { long number; const char *text; } value;
};
static int twice(int n) { return n * 2; }
static int hidden(int n) { return n + 1000; }
extern const Row rows[4];
static const Row *const heads[] = {&rows[1], rows + 3, nullptr};
const Row rows[4] = {{"first", twice, &rows[2], {-3, 2000, {1, 2}}, {70000}}, {"second", nullptr, nullptr, {}, {}},
                     {"third", [](int n) { return n - 1; }, heads[0], {7, -1}, {.text = "value"}}, {nullptr, hidden, rows, {}, {-1}}};
static int order = 1;
static int step(int n) { return order = order * 3 + n; }
static int before = step(1), copied = before + 1, *pointed = &copied;
struct Counter {
    int at;
    static int made;
    static const int limit = 77;
    static constexpr int powers[3] = {1, 10, 100};
    Counter(int n = 5) : at(step(n)) { made++; }
};
int Counter::made = 40;
constexpr int Counter::powers[3];
static Counter counters[2][2] = {{1, 2}, {3}}, *const corner = &counters[1][1];
template <class T, int N> struct Store { static T values[N]; static int uses; };
template <class T, int N> T Store<T, N>::values[N] = {N, 2};
template <class T, int N> int Store<T, N>::uses = hidden(N);
inline int &shared() { static int kept = 30; return ++kept; }
inline const char *named(int n) { static const char *const names[] = {"zero", "one", "two"}; return names[n % 3]; }
enum class Level : short { low = -300, high = 300 };
static const Level levels[] = {Level::high, Level::low};
static void (*const nothing)() = nullptr;
static char *const address = (char *)0x4321;
static const bool flags[] = {true, false, sizeof(long) == 4};
static long long big = -0x123456789abcdefLL, *bigger = &big;
static int sparse[100] = {[0] = 1}, matrix[3][4] = {{1}, {}, {5, 6, 7}};

int main()
{
    long sum = 0;
    for (long t : table) sum = sum * 5 + t & 0xffffff;
    put64("table", sum);
    double total = 0;
    for (double c : curve) total += c;
    putd("curve", total);
    for (unsigned char l : letters) sum = sum * 3 + l & 0xffffff;
    put64("letters", sum), put("length", (int)sizeof letters), put(words[1][2], words[0][1][3]), put("none", !words[0][2]), put(words[2][0], *middle + middle[-3]);
    for (const Row *row : heads)
        for (; row; row = row->next) {
            put(row->name ? row->name : "unnamed", row->call ? row->call(21) : -1), put("flags", row->flags.low * 5000 + row->flags.high + row->flags.mask[1]);
            if (row == &rows[2]) put(row->value.text, 0); else put64("value", row->value.number);
            if (row == rows) put("back", (int)(row->next - row));
        }
    put("before", before), put("copied", *pointed), put("made", Counter::made), put("corner", corner->at), put("limit", Counter::limit + Counter::powers[2]);
    put("store", Store<int, 3>::values[0] + Store<short, 2>::values[1] + Store<short, 2>::values[0]), put("uses", Store<int, 3>::uses > 0);
    put("shared", shared()), put("shared", shared()), put(named(4), named(2)[1]), put("levels", (int)levels[1] - (int)levels[0]);
    put("null", !nothing), put64("address", (long long)(unsigned long)address), put("flags", flags[0] + flags[1] * 2 + flags[2] * 4), put64("big", *bigger >> 3);
    sparse[99]++, matrix[1][2] = sparse[0] + sparse[50] + sparse[99];
    return matrix[1][2] + matrix[2][2] + matrix[2][3];
}
