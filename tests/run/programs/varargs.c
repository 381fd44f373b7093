// Variable arguments of every type: a printf of one's own, sums by a tag, lists that are copied and passed on.
#include <stdarg.h>
#include "print.h"

struct Point { short x; long y; };
static char line[120];
static int length;
static void emit(char c) { if (length < 119) line[length++] = c; }
static void digits(unsigned long long value, unsigned base, int width, char fill, int negative)
{
    char text[24];
    int n = 0;
    do text[n++] = "0123456789abcdef"[value % base]; while (value /= base);
    if (negative && fill == '0') emit('-');
    for (int i = n + negative; i < width; i++) emit(fill);
    if (negative && fill != '0') emit('-');
    while (n) emit(text[--n]);
}
static int vprint(const char *format, va_list arguments)
{
    int from = length;
    for (; *format; format++) {
        if (*format != '%') { emit(*format); continue; }
        int width = 0, size = 0;
        char fill = ' ';
        if (*++format == '0') fill = *format++;
        if (*format == '*') width = va_arg(arguments, int), format++;
        while (*format >= '0' && *format <= '9') width = width * 10 + *format++ - '0';
        for (; *format == 'l'; format++) size++;
        switch (*format) {
        case 'd': {
            long long n = size > 1 ? va_arg(arguments, long long) : size ? va_arg(arguments, long) : va_arg(arguments, int);
            digits(n < 0 ? -(unsigned long long)n : (unsigned long long)n, 10, width, fill, n < 0);
            break;
        }
        case 'u': case 'x': {
            unsigned long long n = size > 1 ? va_arg(arguments, unsigned long long) : size ? va_arg(arguments, unsigned long) : va_arg(arguments, unsigned);
            digits(n, *format == 'u' ? 10 : 16, width, fill, 0);
            break;
        }
        case 'c': emit((char)va_arg(arguments, int)); break;
        case 's':
            for (const char *s = va_arg(arguments, const char *); *s; s++, width--) emit(*s);
            while (width-- > 0) emit(' ');
            break;
        case 'f': {
            double d = va_arg(arguments, double);
            if (d < 0) emit('-'), d = -d;
            digits((unsigned long)d, 10, width, fill, 0), emit('.'), digits((unsigned long)((d - (unsigned long)d) * 1000 + 0.5), 10, 3, '0', 0);
            break;
        }
        case '%': emit('%'); break;
        default: emit('?');
        }
    }
    emit(0);
    return length - from;
}
static int print(const char *format, ...)
{
    va_list arguments, again;
    va_start(arguments, format), va_copy(again, arguments), length = 0;
    int first = vprint(format, arguments), second = vprint("%d;", again);
    put(line, first), put(line + first, second);
    va_end(again), va_end(arguments);
    return first;
}
static double sum(int count, ...)
{
    double total = 0;
    va_list list;
    va_start(list, count);
    while (count-- > 0)
        if (count % 3 == 0) total += va_arg(list, double);
        else if (count % 3 == 1) total += *va_arg(list, short *);
        else total += va_arg(list, int);
    va_end(list);
    return total;
}

int main(void)
{
    short s = 12;
    print("%d %5d|%-", 1, -42, 7), print("%d %05d %u %x", 5, -77, 60000u, 0xabcdu), print("%d %s=%c%%", 300, "name", 'v');
    print("%d %ld %lu %llx %lld", 7, -100000L, 4000000000UL, 0x123456789abcdefULL, -5000000000LL), print("%d %f %9f", -1, 3.14159, -2.5);
    print("%d %*d%6s|", 4, 3, 9, "ab"), print("%d %c%c", (char)65, 'x', 0x59), putd("sum", sum(6, 1, &s, 2.5, 4, &s, 0.25f));
    return print("%d", s);
}
