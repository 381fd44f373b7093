// Strings by hand, numbers to text and back, a calculator by recursive descent with variables and places of errors.
#include "print.h"

static int compare(const char *a, const char *b)
{
    for (; *a && *a == *b; a++, b++)
        ;
    return (unsigned char)*a - (unsigned char)*b;
}
static int copy(char *to, const char *from)
{
    const char *start = from;
    while ((*to++ = *from++) != 0)
        ;
    return (int)(from - start);
}
static char *number(int n, char *end, int base)
{
    unsigned rest = n < 0 ? -(unsigned)n : n;
    *--end = 0;
    do *--end = "0123456789abcdef"[rest % base], rest /= base;
    while (rest);
    if (n < 0) *--end = '-';
    return end;
}

struct Parser {
    const char *text, *at;
    long long variables[26];
    int errors;

    char peek()
    {
        while (*at == ' ') at++;
        return *at;
    }
    bool accept(char c) { return peek() == c ? at++, true : false; }
    long long fail(const char *why) { return put(why, (int)(at - text)), errors++, 0; }
    long long primary()
    {
        char c = peek();
        if (accept('(')) {
            long long inner = assignment();
            return accept(')') ? inner : fail("missing )");
        }
        if (accept('-')) return -primary();
        if (c >= 'a' && c <= 'z') return variables[*at++ - 'a'];
        if (c < '0' || c > '9') return fail("no value");
        long long value = 0;
        do value = value * 10 + (*at++ - '0');
        while (*at >= '0' && *at <= '9');
        return value;
    }
    long long product()
    {
        long long left = primary();
        while (peek() == '*' || *at == '/' || *at == '%') {
            char c = *at++;
            long long right = primary();
            if (c == '*') left *= right;
            else if (right != 0) left = c == '/' ? left / right : left % right;
            else return fail("by zero");
        }
        return left;
    }
    long long assignment()
    {
        char c = peek();
        if (c >= 'a' && c <= 'z' && at[1] == '=') {
            at += 2;
            return variables[c - 'a'] = assignment();
        }
        long long left = product();
        while (peek() == '+' || *at == '-')
            if (*at++ == '+') left += product();
            else left -= product();
        return left;
    }
    long long parse(const char *line) { return text = at = line, assignment(); }
};
static Parser parser;
static char buffer[40];
static const char *const words[] = {"", "a", "abc", "ab\x80", "the \"quoted\"\t\\ end\n"};
static const int numbers[] = {0, -1, 4096, -65535, 2147483647, -2147483647 - 1};
static const char *const lines[] = {
    "1 + 2*3", "(1+2) * -3", "a=b=7", "a*b - 100/(a+1) % 5", "5000000000 * a", "7 / (a - b)", "(1 + 2", "*"};

int main()
{
    for (const char *a : words) {
        int length = copy(buffer, a);
        put(buffer, length);
        for (const char *b : words) put(b, compare(buffer, b));
    }
    for (int n : numbers) {
        long long value = parser.parse(number(n, buffer + 40, 10));
        put64(number(n, buffer + 40, 16), value);
    }
    for (const char *line : lines) put64(line, parser.parse(line));
    return parser.errors;
}
