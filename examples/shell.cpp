// A command line for a device: a small parser by recursive descent, strings, a table of commands, a list of variables.

extern "C" void put_char(char c);

namespace shell {

static void print(const char *text)
{
    while (*text)
        put_char(*text++);
}

static void print(long value)
{
    if (value < 0) {
        put_char('-');
        value = -value;
    }
    if (value > 9)
        print(value / 10);
    put_char('0' + value % 10);
}

static bool same(const char *a, const char *b)
{
    while (*a && *a == *b) {
        ++a;
        ++b;
    }
    return *a == *b;
}

static bool is_digit(char c)
{
    return c >= '0' && c <= '9';
}

static bool is_letter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

struct Variable {
    Variable *next;
    char name[8];
    long value;
};

static Variable pool[6];
static int used;
static Variable *variables;

static Variable *find(const char *name)
{
    for (Variable *v = variables; v; v = v->next) {
        if (same(v->name, name))
            return v;
    }
    return nullptr;
}

static Variable *make(const char *name)
{
    if (used == 6)
        return nullptr;
    Variable *fresh = &pool[used++];
    int i = 0;
    while (name[i] && i < 7) {
        fresh->name[i] = name[i];
        i++;
    }
    fresh->name[i] = '\0';
    fresh->next = variables;
    variables = fresh;
    return fresh;
}

// expression = term { + | - term }, term = factor { * | / | % factor }, factor = number | name | - factor | ( ... )
class Parser {
public:
    explicit Parser(const char *line) : at(line), failed(false) {}

    long expression()
    {
        long value = term();
        for (;;) {
            if (accept('+'))
                value += term();
            else if (accept('-'))
                value -= term();
            else
                return value;
        }
    }

    void word(char *into, int size)
    {
        skip();
        int length = 0;
        while (is_letter(*at) || is_digit(*at)) {
            if (length < size - 1)
                into[length++] = *at;
            at++;
        }
        into[length] = '\0';
    }

    bool accept(char c)
    {
        skip();
        if (*at != c)
            return false;
        ++at;
        return true;
    }

    bool ok() const { return !failed; }

private:
    void skip()
    {
        while (*at == ' ')
            ++at;
    }

    long term()
    {
        long value = factor();
        for (;;) {
            if (accept('*')) {
                value *= factor();
            } else if (accept('/')) {
                const long by = factor();
                if (by == 0)
                    failed = true;
                else
                    value /= by;
            } else {
                return value;
            }
        }
    }

    long factor()
    {
        if (accept('-'))
            return -factor();
        if (accept('(')) {
            const long value = expression();
            if (!accept(')'))
                failed = true;
            return value;
        }
        if (is_digit(*at))
            return number();
        char name[8];
        word(name, sizeof name);
        const Variable *variable = find(name);
        if (!variable) {
            failed = true;
            return 0;
        }
        return variable->value;
    }

    long number()
    {
        long value = 0;
        while (is_digit(*at))
            value = value * 10 + (*at++ - '0');
        return value;
    }

    const char *at;
    bool failed;
};

static void do_print(Parser &parser)
{
    const long value = parser.expression();
    if (parser.ok())
        print(value);
    else
        print("error");
    put_char('\n');
}

static void do_let(Parser &parser)
{
    char name[8];
    parser.word(name, sizeof name);
    if (!parser.accept('=')) {
        print("no =\n");
        return;
    }
    const long value = parser.expression();
    Variable *variable = find(name);
    if (!variable)
        variable = make(name);
    if (variable && parser.ok())
        variable->value = value;
}

static void do_list(Parser &)
{
    for (const Variable *v = variables; v; v = v->next) {
        print(v->name);
        print(" = ");
        print(v->value);
        put_char('\n');
    }
}

struct Command {
    const char *name;
    void (*run)(Parser &);
};

static const Command commands[] = {{"print", do_print}, {"let", do_let}, {"list", do_list}};

}  // namespace shell

extern "C" bool execute(const char *line)
{
    shell::Parser parser(line);
    char name[8];
    parser.word(name, sizeof name);
    for (const shell::Command &command : shell::commands) {
        if (shell::same(command.name, name)) {
            command.run(parser);
            return true;
        }
    }
    return false;
}
