// The lines of a module outside function bodies that are no type definitions: variables, aliases, declarations and
// metadata.

#include "reader/reader.h"

#include "base/base.h"
#include "frontend/frontend.h"

// ---- Attribute words --------------------------------------------------------------------------------------------

namespace {

struct AttributeWord {
    std::string_view word;
    std::uint32_t flag;
};

constexpr AttributeWord attribute_words[] = {
    {"sret", flag::accepted},
    {"weak", flag::weak},
    {"byval", flag::accepted},
    {"align", flag::align},
    {"alias", flag::alias},
    {"hidden", flag::hidden},
    {"global", flag::global},
    {"atomic", flag::accepted},
    {"fastcc", flag::accepted},
    {"noalias", flag::accepted},
    {"zeroext", flag::zeroext},
    {"signext", flag::signext},
    {"private", flag::private_},
    {"nonnull", flag::accepted},
    {"internal", flag::internal},
    {"external", flag::external},
    {"constant", flag::constant},
    {"volatile", flag::volatile_},
    {"readonly", flag::accepted},
    {"returned", flag::accepted},
    {"appending", flag::appending},
    {"nocapture", flag::accepted},
    {"writeonly", flag::accepted},
    {"extern_weak", flag::extern_weak},
    {"linkonce_odr", flag::linkonce_odr},
    {"unnamed_addr", flag::accepted},
    {"dereferenceable", flag::dereferenceable},
    {"available_externally", flag::accepted},
};

// The flag of an attribute word, 0 for any other token.
std::uint32_t attributeflag(const Token &t)
{
    const AttributeWord *row = findword<attribute_words>(t);
    return row ? row->flag : 0;
}

void skiptokens(int count)
{
    Token t;
    while (count-- > 0)
        gettoken(t);
}

}  // namespace

std::uint32_t readwords()
{
    std::uint32_t flags = 0;
    for (;;) {
        Token t;
        gettoken(t);
        const std::uint32_t word = attributeflag(t);
        if (word == 0) {
            ungettoken(t);
            return flags;
        }
        flags |= word;
        if (word & flag::dereferenceable)
            skiptokens(3);  // ( number )
        else if (word & flag::align)
            skiptokens(1);
    }
}

// ---- Variables --------------------------------------------------------------------------------------------------

namespace {

bool opensaggregate(const Token &t)
{
    return t.code == token::left_brace || t.code == token::left_bracket;
}

bool closesaggregate(const Token &t)
{
    return t.code == token::right_brace || t.code == token::right_bracket;
}

// How an element begins after its type.
enum class Element { aggregate, zero, term };

Element elementform()
{
    Token t;
    gettoken(t);
    if (t.code == token::less) {
        gettoken(t);
        if (t.code == token::left_brace)
            return Element::aggregate;
        ungettoken(t);
        return Element::term;
    }
    if (opensaggregate(t))
        return Element::aggregate;
    if (isword(t, "zeroinitializer") || isword(t, "undef"))
        return Element::zero;
    ungettoken(t);
    return Element::term;
}

Expr *marker(std::uint8_t op)
{
    return newexpr(op, nullptr);
}

// Closes as many aggregates as end after an element. Returns the token that follows; `depth` falls below zero when the
// outermost aggregate has ended.
Token closeelements(List<Expr> &elements, int &depth)
{
    Token t;
    gettoken(t);
    while (closesaggregate(t)) {
        if (--depth < 0)
            return t;
        if (t.code == token::right_brace)
            acceptif(token::greater);
        append(elements, marker(op::close_brace));
        gettoken(t);
    }
    return t;
}

// The elements of an initialiser, from after its opening bracket:
//   element = type ( "zeroinitializer" | "undef" | ["<"] ("{" | "[") element { "," element } ("}" | "]") [">"] | term )
// The list is flat; markers enclose the elements of an inner aggregate.
Expr *readelements()
{
    List<Expr> elements{};
    int depth = 0;
    for (;;) {
        Type *type = readtype();
        const Element form = elementform();
        if (form == Element::aggregate) {
            ++depth;
            append(elements, marker(op::open_brace));
            continue;
        }
        append(elements, form == Element::zero ? marker(op::zero_element) : readterm(type, nullptr));
        const Token t = closeelements(elements, depth);
        if (depth < 0)
            break;
        if (t.code != token::comma)
            report("missing , in declaration initializer");
        if (t.code == token::end_of_line)
            break;
    }
    return elements.head;
}

// A single initialiser whose first token is `t`; null where there is none.
Expr *readsinglevalue(Type *type, const Token &t)
{
    if (isword(t, "zeroinitializer") || isword(t, "null") || t.code == token::comma || t.code == token::end_of_line)
        return nullptr;
    ungettoken(t);
    return readterm(type, nullptr);
}

// type ["<"] [initialiser] [">"]
void readinitialiser(Symbol *variable)
{
    Token t;
    gettoken(t);
    const bool packed = t.code == token::less;
    if (packed)
        gettoken(t);
    variable->value = opensaggregate(t) ? readelements() : readsinglevalue(variable->type, t);
    if (packed)
        expect(token::greater, "missing > in packed variable declaration");
}

// type "," type "@" name
int readalias(Name *name)
{
    readtype();
    if (!expect(token::comma, "missing , in alias"))
        return 1;
    readtype();
    if (!expect(token::at, "invalid alias prefix"))
        return 1;
    Name *aliasee = expectname("invalid alias name");
    if (!aliasee)
        return 1;
    Symbol *alias = newsym(name, nullptr);
    alias->aliasee = aliasee;
    add_alias(alias);
    return 0;
}

// words alias | words variable
int readvariable(Name *name)
{
    const std::uint32_t flags = readwords();
    if (flags & flag::alias)
        return readalias(name);
    Symbol *variable = newsym(name, readtype());
    if (flags & (flag::private_ | flag::internal))
        variable->storage = storage::static_;
    else if (flags & flag::external)
        variable->storage = storage::extern_;
    if (flags & flag::constant)
        variable->qual = qual::const_;
    variable->flags = flags;
    add_variable(variable);  // before the initialiser, which may refer to it
    unknown_global_ref = false;
    readinitialiser(variable);
    if (unknown_global_ref)
        variable->flags |= flag::forward_ref;
    return 0;
}

}  // namespace

// "@" name "=" words type [initialiser]
int readgloballine()
{
    Name *name = expectname("invalid variable name");
    if (!name || !expect(token::assign, "missing = in variable definition"))
        return 1;
    return readvariable(name);
}

// ---- Declarations -----------------------------------------------------------------------------------------------

namespace {

// { type words "," } ")" from after the opening parenthesis.
Symbol *readdeclareparameters()
{
    if (acceptif(token::right_paren))
        return nullptr;
    List<Symbol> parameters{};
    do {
        append(parameters, newsym(nullptr, readtype()));
        readwords();
    } while (!endsparams());
    return parameters.head;
}

// An intrinsic whose result is a literal structure returns it through a pointer, its first parameter.
void returnthroughpointer(Type *function)
{
    Type *nothing = newtype(kind::void_, nullptr);
    Symbol *result = newsym(nullptr, newtype(kind::pointer, nothing));
    result->next = function->params;
    function->params = result;
    function->sub = nothing;
}

// Where the declaration goes: the includes, or the prototypes.
void placedeclaration(Symbol *symbol)
{
    const char *header = memoryheader(symbol->name);
    if (header && !no_header) {
        add_include(header);
        return;
    }
    if (header)
        rewritedeclare(symbol);
    add_prototype(symbol);
}

}  // namespace

// words type "@" name "(" parameters ")"
int readdeclare()
{
    readwords();
    Type *result = readtype();
    if (!expect(token::at, "invalid global prefix in declare"))
        return 1;
    Name *name = expectname("invalid global name in declare");
    if (!name)
        return 1;
    if (isannotation(nametext(name)))
        return 0;
    Symbol *symbol = newsym(name, newtype(kind::function, result));
    if (result->kind == kind::float32)
        markmath(name);
    if (!expect(token::left_paren, "missing ( in declare"))
        return 1;
    symbol->type->params = readdeclareparameters();
    symbol->storage = storage::extern_;
    placedeclaration(symbol);
    if (namebegins(symbol->name, intrinsics::prefix) && result->kind == kind::structure && !result->tag)
        returnthroughpointer(symbol->type);
    return 0;
}

// ---- Metadata ---------------------------------------------------------------------------------------------------

// "!" number "=" anything "!" text; named metadata is dropped.
int readmetaline()
{
    Token t;
    gettoken(t);
    if (t.code != token::number)
        return 0;
    const std::uint32_t id = number(tokentext(t));
    do
        gettoken(t);
    while (t.code != token::bang && t.code != token::end_of_line);
    if (t.code == token::end_of_line) {
        report("unexpected en of line in debug info");
        return 1;
    }
    gettoken(t);
    Meta *meta = newmeta();
    meta->text = keeptext(t.start);
    meta->id = id;
    add_meta(meta);
    return 0;
}
