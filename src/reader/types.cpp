// Types and aggregate definitions.
//
// An aggregate may be named before it is defined. The list of aggregates must end up in an order in which the C
// structures can be printed one after the other, so what a definition names for the first time is kept apart and put
// in front of it:
//
//     %struct.a = type { %struct.b*, %struct.c }      forward: c, b
//     %struct.b = type { i16 }                        aggregates: b, c, a; b is filled in where it stands

#include "reader/reader.h"

#include "base/base.h"

#include <string>
#include <unordered_map>
#include <utility>
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

int aggregate_depth;  // braces open around the type being read

Type *makenode(std::uint8_t code, Type *sub)
{
    Type *type = newtype(code, sub);
    type->in_aggregate = aggregate_depth > 0;
    return type;
}

// "f0", "f1", ... for the members of a structure in order.
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
    symbol->type->in_aggregate = true;
    addaggregate(symbol);
    return symbol;
}

// ---- Open types: a line can nest types as deep as it is long, so what is open is kept on a stack of its own.

// A type that is read up to one of its parts.
struct OpenType {
    enum class Form : std::uint8_t { array, structure, parameters } form;
    bool ended;  // parameters: the line has ended in front of the part being read
    Type *type;
    List<Symbol> parts{};  // members or parameters
    std::uint32_t place = 0;
};

constinit std::vector<OpenType> open_types;

// "[" number "x" from behind the bracket.
void openarray()
{
    Type *array = makenode(kind::array, nullptr);
    Token t;
    gettoken(t);
    if (t.code == token::number)
        array->count = number(tokentext(t));
    else
        report("missing number for array size");
    expectword("x", "missing x for array type");
    open_types.push_back({OpenType::Form::array, false, array});
}

// "{" from behind the brace. Returns the type if it ends at once.
Type *openstructure()
{
    Type *structure = makenode(kind::structure, nullptr);
    if (acceptif(token::right_brace))
        return structure;
    open_types.push_back({OpenType::Form::structure, false, structure});
    ++aggregate_depth;
    return nullptr;
}

// Takes the token in front of a parameter: the end of the list, a comma, which is not insisted on, or nothing. Returns
// whether the list has ended; readtype() reports the parameter that is missing at the end of a line.
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

// "(" from behind the parenthesis. Returns the type if the list is empty.
Type *openparameters(Type *result)
{
    OpenType open{OpenType::Form::parameters, false, makenode(kind::function, result)};
    if (endsparameters(open))
        return open.type;
    open_types.push_back(open);
    return nullptr;
}

// Takes the token behind a member. Returns whether the list has ended; what doesn't fit is reported and clears `clean`.
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
    --aggregate_depth;
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
        return makenode(row->kind, nullptr);
    report("invalid base type %.*s", tokentext(t));
    return makenode(kind::int16, nullptr);
}

// The name behind "%", plain or quoted.
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
            return makenode(kind::int16, nullptr);
        return namedaggregate(intern(tokentext(t)))->type;
    case token::ellipsis:
        return makenode(kind::ellipsis, nullptr);
    default:
        return readbasetype(t);
    }
}

// Any number of "*" and parameter lists behind a type; null if one is open, whose first parameter comes next.
Type *readsuffixes(Type *type)
{
    while (type) {
        Token t;
        gettoken(t);
        if (t.code == token::star) {
            type = makenode(kind::pointer, type);
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

bool samescalar(const Type *a, const Type *b)
{
    return a && b && a->kind == b->kind && a->kind <= kind::last_scalar;
}

// ---- Aggregate definitions --------------------------------------------------------------------------------------

namespace {

struct AggregatePrefix {
    std::string_view text;
    std::uint8_t kind;
};

constexpr AggregatePrefix aggregate_prefixes[] = {
    {"struct.", kind::structure},
    {"class.", kind::structure},
    {"union.", kind::union_},
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

// Everything that was named and not placed goes in front of `definition`, the newest first and each further one in
// front of it: in the order of the naming.
void drainforward(Symbol *definition)
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
    drainforward(placed);
}

// type { "," type } "}", read from the first type on. Returns false after a report.
bool readmembers(Type *aggregate)
{
    bool clean = true;
    List<Symbol> members{};
    ++aggregate_depth;
    std::uint32_t place = 0;
    do
        append(members, newsym(membername(place++), readtype()));
    while (!endsmembers("syntax error in aggregate definition", clean));
    --aggregate_depth;
    aggregate->members = members.head;
    return clean;
}

// "{" [members] behind the word `type`; `t` is the token at hand. Returns false after a report.
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
    symbol->type->in_aggregate = true;
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

// ---- Shapes -----------------------------------------------------------------------------------------------------

namespace {

using TypePair = std::pair<const Type *, const Type *>;

// Aggregates that are known to be equal form classes, kept as trees. A comparison takes what it has yet to find equal
// for equal at once, so that types which reach themselves through pointers come to an end, and takes it back if
// something tells the two apart. So each pair of aggregates is looked at once in a run, or once in a comparison that
// fails.
struct ShapeClasses {
    std::unordered_map<const Type *, const Type *> parent;  // an aggregate without an entry is a root
    std::unordered_map<const Type *, std::uint32_t> rank;   // height of a root's tree
};

// Like the index below never destroyed: at the end of the run its entries would be given back one by one.
ShapeClasses &shapeclasses()
{
    static auto &classes = *new ShapeClasses;
    return classes;
}

const Type *classof(const Type *type)
{
    const auto &parent = shapeclasses().parent;
    for (auto entry = parent.find(type); entry != parent.end(); entry = parent.find(type))
        type = entry->second;
    return type;
}

// Joins two classes by their roots, the lower tree under the higher one. Returns the root that lost its place.
const Type *joinclasses(const Type *a, const Type *b)
{
    ShapeClasses &classes = shapeclasses();
    if (classes.rank[a] < classes.rank[b])
        std::swap(a, b);
    if (classes.rank[a] == classes.rank[b])
        ++classes.rank[a];
    classes.parent[b] = a;
    return b;
}

// A comparison: pairs of types that have yet to be found equal, and the classes that were joined for it.
struct ShapeComparison {
    std::vector<TypePair> pending;
    std::vector<const Type *> joined;
};

// Down through pointers and arrays in step, to the first other kind. Returns false if the types differ.
bool descend(const Type *&a, const Type *&b)
{
    while (a && b && a != b) {
        if (a->kind != b->kind || (a->kind == kind::array && a->count != b->count))
            return false;
        if (a->kind != kind::pointer && a->kind != kind::array)
            return true;
        a = a->sub;
        b = b->sub;
    }
    return a == b;
}

// Both are aggregates of one kind: their members become pending. Returns false if the member lists differ in length.
bool comparemembers(ShapeComparison &comparison, const Type *a, const Type *b)
{
    const Type *root_a = classof(a);
    const Type *root_b = classof(b);
    if (root_a == root_b)
        return true;
    comparison.joined.push_back(joinclasses(root_a, root_b));
    const Symbol *x = a->members;
    const Symbol *y = b->members;
    for (; x && y; x = x->next, y = y->next)
        comparison.pending.emplace_back(x->type, y->type);
    return x == y;
}

bool runcomparison(ShapeComparison &comparison)
{
    while (!comparison.pending.empty()) {
        auto [a, b] = comparison.pending.back();
        comparison.pending.pop_back();
        if (!descend(a, b))
            return false;
        if (a != b && isaggregate(a) && !comparemembers(comparison, a, b))
            return false;
    }
    return true;
}

}  // namespace

bool equaltype(const Type *a, const Type *b)
{
    ShapeComparison comparison;
    comparison.pending.emplace_back(a, b);
    if (runcomparison(comparison))
        return true;
    for (const Type *type : comparison.joined)
        shapeclasses().parent.erase(type);
    return false;
}

// ---- Literal aggregates that have a tag -------------------------------------------------------------------------

namespace {

// Entries that have a hash in common, the newest last. A few are told apart by comparing; more than that, and they
// move on to buckets by a hash that goes as deep as any line can nest.
struct AnonBucket {
    std::vector<const Type *> entries;
    bool split = false;
};

using AnonIndex = std::unordered_map<std::size_t, AnonBucket>;

AnonIndex &anonindex()
{
    static auto &index = *new AnonIndex;
    return index;
}

constinit std::vector<const Type *> anon_types;  // all entries, the newest last
bool anon_stale;                                 // a type has changed since the index was built

constexpr std::size_t bucket_size = 8;
constexpr int shallow_nodes = 48;
constexpr int deep_nodes = 8192;

std::size_t mixed(std::size_t hash, std::size_t value)
{
    constexpr std::size_t multiplier = 0x9E3779B97F4A7C15U;
    hash = (hash ^ value) * multiplier;
    return hash ^ hash >> 29U;
}

// The first `nodes` nodes of a type, aggregates unrolled into their members in order. Equal types unroll alike, also
// where they reach themselves.
std::size_t shapehash(const Type *type, int nodes)
{
    static std::vector<const Symbol *> rest;  // members to come, the next one last
    rest.clear();
    std::size_t hash = static_cast<std::size_t>(nodes);
    while (nodes-- > 0) {
        const std::uint8_t code = type ? type->kind : 0;
        hash = mixed(hash, code);
        if (code == kind::array)
            hash = mixed(hash, type->count);
        if (code == kind::pointer || code == kind::array) {
            type = type->sub;
            continue;
        }
        if (code == kind::structure || code == kind::union_)
            rest.push_back(type->members);
        while (!rest.empty() && !rest.back()) {
            hash = mixed(hash, 0);  // the end of an aggregate
            rest.pop_back();
        }
        if (rest.empty())
            break;
        type = rest.back()->type;
        rest.back() = rest.back()->next;
    }
    return hash;
}

AnonBucket &anonbucket(const Type *type)
{
    AnonBucket &shallow = anonindex()[shapehash(type, shallow_nodes)];
    return shallow.split ? anonindex()[shapehash(type, deep_nodes)] : shallow;
}

void enteranon(const Type *type)
{
    AnonBucket &bucket = anonbucket(type);
    bucket.entries.push_back(type);
    if (bucket.entries.size() <= bucket_size || bucket.split)
        return;
    AnonBucket &shallow = anonindex()[shapehash(type, shallow_nodes)];
    if (&shallow != &bucket)
        return;  // a deep one: nothing goes deeper
    shallow.split = true;
    const std::vector<const Type *> entries = std::move(shallow.entries);
    for (const Type *entry : entries)
        anonindex()[shapehash(entry, deep_nodes)].entries.push_back(entry);
}

void refreshindex()
{
    if (!anon_stale)
        return;
    anon_stale = false;
    shapeclasses() = {};
    anonindex().clear();
    for (const Type *type : anon_types)
        enteranon(type);
}

}  // namespace

void addanon(const Type *type)
{
    refreshindex();
    anon_types.push_back(type);
    enteranon(type);
}

const Type *findanon(const Type *type)
{
    refreshindex();
    const std::vector<const Type *> &entries = anonbucket(type).entries;
    for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry)
        if (equaltype(type, *entry))
            return *entry;
    return nullptr;
}

void retyped(const Type *type)
{
    anon_stale |= type->in_aggregate;
}
