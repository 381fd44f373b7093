// Strings by hand: length, comparison, copying, searching, numbers to text and back.
#include "print.h"

static int length(const char *s)
{
    const char *p = s;
    while (*p) p++;
    return (int)(p - s);
}
static int compare(const char *a, const char *b)
{
    for (; *a && *a == *b; a++, b++)
        ;
    return (unsigned char)*a - (unsigned char)*b;
}
static char *copy(char *to, const char *from)
{
    char *start = to;
    while ((*to++ = *from++) != 0)
        ;
    return start;
}
static const char *find(const char *text, const char *part)
{
    for (; *text; text++) {
        int i = 0;
        while (part[i] && text[i] == part[i]) ++i;
        if (!part[i]) return text;
    }
    return 0;
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
static int value(const char *s)
{
    int sign = *s == '-' ? (s++, -1) : 1, n = 0;
    while (*s >= '0' && *s <= '9') n = n * 10 + (*s++ - '0');
    return sign * n;
}
static const char *const words[] = {"", "a", "abc", "ab\x80", "the \"quoted\"\t\\ end\n"};
static const int numbers[] = {0, 7, -1, 4096, -65535, 2147483647, -2147483647 - 1};
static char buffer[40];

int main()
{
    for (const char *a : words) {
        for (const char *b : words) put(b, compare(a, b));
        put(copy(buffer, a), length(a));
        const char *at = find("xx abc the \"quoted\"\t\\ end\n", a);
        put("at", at ? length(at) : -1);
    }
    for (int n : numbers)
        put(number(n, buffer + 40, 10), value(number(n, buffer + 40, 10)) == n), put(number(n, buffer + 40, 16), 0);
}
