// Types and aggregate definitions.
//
// An aggregate may be named before it is defined. The list of aggregates must end up in an order in which the C
// structures can be printed one after the other, so what a definition names for the first time is kept apart and
// inserted before it:
//
//     %struct.a = type { %struct.b*, %struct.c }      forward: c, b
//     %struct.b = type { i16 }                        aggregates: b, c, a; b is filled in in its place

#include "reader/reader.h"

#include "base/base.h"
#include "frontend/frontend.h"

#include <string>
#include <vector>

// ---- Types ------------------------------------------------------------------------------------------------------

namespace {

struct BaseType {
    std::string_view word;
    std::uint8_t kind;
};

constexpr BaseType base_types[] = {
    {"void", kind::void_}, {"i1", kind::boolean},    {"i8", kind::plain_char},
    {"i16", kind::int16},  {"i24", kind::int24},     {"i32", kind::int32},
    {"i64", kind::int64},  {"float", kind::float32}, {"double", kind::float64},
};

// The names "f0", "f1", ... of the members of a structure, by position.
Name *membername(std::uint32_t place)
{
    static std::vector<Name *> names;
    while (names.size() <= place)
        names.push_back(intern("f" + std::to_string(names.size())));
    return names[place];
}

void addaggregate(Symbol *symbol);

// The symbol of the aggregate `name`; enters it as named but not defined if there is none.
Symbol *namedaggregate(Name *name)
{
    if (name->aggregate)
        return name->aggregate;
    if (name->forward)
        return name->forward;
    Symbol *symbol = newsym(name, newtype(kind::void_, nullptr));
    addaggregate(symbol);
    return symbol;
}

// ---- Open types: a line can nest types as deep as it is long, so the reader keeps its own stack.

// A type that is read up to one of its parts.
struct OpenType {
    enum class Form : std::uint8_t { array, structure, parameters } form;
    bool ended;  // parameters: the line has ended before the part being read
    Type *type;
    List<Symbol> parts{};  // members or parameters
    std::uint32_t place = 0;
};

constinit std::vector<OpenType> open_types;

// "[" number "x" from after the bracket.
void openarray()
{
    Type *array = newtype(kind::array, nullptr);
    Token t;
    gettoken(t);
    if (t.code == token::number)
        array->count = number(tokentext(t));
    else
        report("missing number for array size");
    expectword("x", "missing x for array type");
    open_types.push_back({OpenType::Form::array, false, array});
}

// "{" from after the brace. Returns the type if it ends at once.
Type *openstructure()
{
    Type *structure = newtype(kind::structure, nullptr);
    if (acceptif(token::right_brace))
        return structure;
    open_types.push_back({OpenType::Form::structure, false, structure});
    return nullptr;
}

// Takes the token before a parameter: the end of the list, or a comma, which is optional. Returns whether the list has
// ended; readtype() reports the parameter that is missing at the end of a line.
bool endsparameters(OpenType &open)
{
    Token t;
    gettoken(t);
    if (t.code == token::right_paren)
        return true;
    if (t.code != token::comma)
        ungettoken(t);
    open.ended = atend();
    return false;
}

// "(" from after the parenthesis. Returns the type if the list is empty.
Type *openparameters(Type *result)
{
    OpenType open{OpenType::Form::parameters, false, newtype(kind::function, result)};
    if (endsparameters(open))
        return open.type;
    open_types.push_back(open);
    return nullptr;
}

// Takes the token after a member. Returns whether the list has ended; any token but a comma and the closing brace is
// reported and clears `clean`.
bool endsmembers(const char *message, bool &clean)
{
    Token t;
    gettoken(t);
    if (t.code == token::right_brace)
        return true;
    if (t.code != token::comma) {
        report(message);
        clean = false;
    }
    return t.code == token::end_of_line;
}

bool closearray(OpenType &open, Type *element)
{
    open.type->sub = element;
    expect(token::right_bracket, "missing closing ] for array type");
    return true;
}

bool closemember(OpenType &open, Type *member)
{
    append(open.parts, newsym(membername(open.place++), member));
    bool clean = true;
    if (!endsmembers("missing , in structure type", clean))
        return false;
    open.type->members = open.parts.head;
    return true;
}

bool closeparameter(OpenType &open, Type *parameter)
{
    append(open.parts, newsym(nullptr, parameter));
    open.type->params = open.parts.head;
    return open.ended || endsparameters(open);
}

// Hands `part` to the innermost open type. Returns that type if this was its last part, else null.
Type *closepart(Type *part)
{
    OpenType &open = open_types.back();
    Type *type = open.type;
    bool closed = false;
    switch (open.form) {
    case OpenType::Form::array:
        closed = closearray(open, part);
        break;
    case OpenType::Form::structure:
        closed = closemember(open, part);
        break;
    case OpenType::Form::parameters:
        closed = closeparameter(open, part);
        break;
    }
    if (!closed)
        return nullptr;
    open_types.pop_back();
    return type;
}

Type *readbasetype(const Token &t)
{
    if (const BaseType *row = findword<base_types>(t))
        return newtype(row->kind, nullptr);
    report("invalid base type %.*s", tokentext(t));
    return newtype(kind::int16, nullptr);
}

// The name after "%", plain or quoted.
bool readaggregatename(Token &t)
{
    gettoken(t);
    if (t.code == token::string)
        unquote(t);
    if (t.code == token::identifier)
        return true;
    report("invalid aggregate name");
    return false;
}

// The head of a type; null if it opens one, whose first part comes next.
Type *readhead()
{
    Token t;
    gettoken(t);
    switch (t.code) {
    case token::left_bracket:
        openarray();
        return nullptr;
    case token::left_brace:
        return openstructure();
    case token::percent:
        if (!readaggregatename(t))
            return newtype(kind::int16, nullptr);
        return namedaggregate(intern(tokentext(t)))->type;
    case token::ellipsis:
        return newtype(kind::ellipsis, nullptr);
    default:
        return readbasetype(t);
    }
}

// Any number of "*" and parameter lists after a type; null if a list is open, whose first parameter comes next.
Type *readsuffixes(Type *type)
{
    while (type) {
        Token t;
        gettoken(t);
        if (t.code == token::star) {
            type = newtype(kind::pointer, type);
        } else if (t.code == token::left_paren) {
            type = openparameters(type);
        } else {
            ungettoken(t);
            break;
        }
    }
    return type;
}

}  // namespace

// type = ("[" number "x" type "]" | "{" types "}" | word | "%" name | "...") suffixes
Type *readtype()
{
    const std::size_t outside = open_types.size();
    for (;;) {
        Type *type = readhead();
        if (type && type->kind != kind::ellipsis)
            type = readsuffixes(type);
        while (type) {
            if (open_types.size() == outside)
                return type;
            type = readsuffixes(closepart(type));
        }
    }
}

// ---- Aggregate definitions --------------------------------------------------------------------------------------

namespace {

struct AggregatePrefix {
    std::string_view text;
    std::uint8_t kind;
};

constexpr AggregatePrefix aggregate_prefixes[] = {
    {tag_prefixes::structure, kind::structure},
    {tag_prefixes::class_, kind::structure},
    {tag_prefixes::union_, kind::union_},
};

void pushforward(Symbol *symbol)
{
    if (symbol->name->forward)
        return;
    symbol->name->forward = symbol;
    symbol->next = forward_aggregates;
    forward_aggregates = symbol;
}

void appendaggregate(Symbol *symbol)
{
    symbol->prev = aggregates.tail;
    append(aggregates, symbol);
    symbol->name->aggregate = symbol;
}

void insertaggregate(Symbol *symbol, Symbol *before)
{
    insertsymbol(aggregates, symbol, before);
    if (!symbol->name->aggregate)
        symbol->name->aggregate = symbol;
}

// Inserts all aggregates that were named and not placed before `definition`. The list has the newest first, and each
// goes before the last one inserted, so they end up in the order of their first mention.
void placeforwards(Symbol *definition)
{
    Symbol *before = definition;
    while (Symbol *symbol = forward_aggregates) {
        forward_aggregates = symbol->next;
        symbol->name->forward = nullptr;
        if (symbol->name == definition->name)
            continue;
        insertaggregate(symbol, before);
        before = symbol;
    }
}

void fillin(Type *named, const Type *definition)
{
    named->kind = definition->kind;
    named->tag = definition->tag;
    named->members = definition->members;
}

void addaggregate(Symbol *symbol)
{
    if (symbol->type->kind == kind::void_) {
        pushforward(symbol);
        return;
    }
    Symbol *placed = symbol->name->aggregate;
    if (!placed) {
        appendaggregate(symbol);
        placed = symbol;
    } else if (placed->type->kind == kind::void_) {
        fillin(placed->type, symbol->type);
    } else {
        report("redeclared aggregate %s", symbol->name->text);
    }
    placeforwards(placed);
}

// type { "," type } "}", read from the first type on. Returns false after a report.
bool readmembers(Type *aggregate)
{
    bool clean = true;
    List<Symbol> members{};
    std::uint32_t place = 0;
    do
        append(members, newsym(membername(place++), readtype()));
    while (!endsmembers("syntax error in aggregate definition", clean));
    aggregate->members = members.head;
    return clean;
}

// "{" [members] after the word `type`; `t` is the current token. Returns false after a report.
bool readbody(Type *aggregate, const Token &t)
{
    bool clean = true;
    if (t.code != token::left_brace) {
        report("missing { in aggragate definition");
        clean = false;
    }
    if (!acceptif(token::right_brace))
        clean &= readmembers(aggregate);
    return clean;
}

// "opaque" or ["<"] "{" [members] "}" [">"]
int readaggregate(Name *name)
{
    const AggregatePrefix *prefix = nullptr;
    for (const AggregatePrefix &row : aggregate_prefixes)
        if (namebegins(name, row.text))
            prefix = &row;
    if (!prefix) {
        report("unknow aggregate prefix %s", name->text);
        return 1;
    }
    Symbol *symbol = newsym(name, newtype(prefix->kind, nullptr));
    symbol->type->tag = intern(nametext(name).substr(prefix->text.size()));
    Token t;
    gettoken(t);
    if (isword(t, "opaque")) {
        addaggregate(symbol);
        return 0;
    }
    const bool packed = t.code == token::less;
    if (packed)
        gettoken(t);
    bool clean = readbody(symbol->type, t);
    addaggregate(symbol);
    if (packed)
        clean &= expect(token::greater, "missing closing > in packed aggregate definition");
    return clean ? 0 : 1;
}

}  // namespace

// "%" name "=" "type" definition
int readaggregateline()
{
    Token t;
    if (!readaggregatename(t))
        return 1;
    Name *name = intern(tokentext(t));
    if (!expect(token::assign, "missing = in aggragate definition"))
        return 1;
    if (!expectword("type", "missing type in aggragate definition"))
        return 1;
    return readaggregate(name);
}
