// Templates: of functions, of classes, with values, with cases of their own, with lambdas.
#include "print.h"

template <typename T> const T &larger(const T &a, const T &b) { return a < b ? b : a; }
template <typename T, int size> class Stack {
    T items[size];
    int top = 0;

public:
    static int pushed;
    bool push(const T &item)
    {
        if (top == size) return false;
        items[top++] = item, pushed++;
        return true;
    }
    T pop() { return items[--top]; }
    T *begin() { return items; }
    T *end() { return items + top; }
};
template <typename T, int size> int Stack<T, size>::pushed = 100;
template <typename T> int width(T) { return sizeof(T); }
template <> int width(bool) { return 1000; }
template <typename Range, typename Function> void each(Range &range, Function function)
{
    for (auto &item : range) function(item);
}
template <typename First> int total(First first) { return first; }
template <typename First, typename... Rest> int total(First first, Rest... rest) { return first + total(rest...); }
template <typename A, typename B> struct Pair {
    A first;
    B second;
    bool operator<(const Pair &o) const { return first < o.first || (first == o.first && second < o.second); }
};
static long long sum;

int main()
{
    put("larger", larger(3, 5)), putd("larger", larger(2.5, -1.0)), put("larger", larger('a', 'Z'));
    Stack<short, 4> small;
    Stack<long long, 3> wide;
    for (int i = 0; i < 5; i++) put("push", small.push((short)(i * 20000))), put("push", wide.push(i * 3000000000ll));
    each(small, [](short &item) { sum += item++; });
    put("pop", small.pop()), put("pushed", wide.pushed), put64("sum", sum);
    for (long long item : wide) put64("item", item);
    put("width", width('a') + width(1.5) + width(true));
    Pair<int, char> a = {1, 'x'}, b = {1, 'y'};
    put("pair", a < b), put("pair", larger(b, a).second), put("total", total(1, (short)2, 30));
}
