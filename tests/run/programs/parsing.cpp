// A calculator by recursive descent: variables, errors with their places.
#include "print.h"

struct Parser {
    const char *text, *at;
    long long variables[26];
    int errors;

    char peek()
    {
        while (*at == ' ') at++;
        return *at;
    }
    bool accept(char c)
    {
        if (peek() != c) return false;
        at++;
        return true;
    }
    long long fail(const char *why)
    {
        put(why, (int)(at - text)), errors++;
        return 0;
    }
    long long primary()
    {
        char c = peek();
        if (accept('(')) {
            long long inner = assignment();
            if (!accept(')')) return fail("missing )");
            return inner;
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
            switch (c) {
            case '*': left *= right; break;
            default:
                if (right == 0) return fail("by zero");
                left = c == '/' ? left / right : left % right;
            }
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
};
static Parser parser;
static const char *const lines[] = {"1 + 2*3",        "(1+2) * -3",  "a=b=7",  "a*b - 100/(a+1) % 5",
                                    "5000000000 * a", "7 / (a - b)", "(1 + 2", "*"};

int main()
{
    for (const char *line : lines) {
        parser.text = parser.at = line;
        put64(line, parser.assignment());
    }
    return parser.errors;
}
