// Operands: numbers, strings, globals, locals, constant words, address computations, casts, aggregate constants.
// The instructions getelementptr and bitcast are read here too: their parentheses are optional.

#include "reader/reader.h"

#include "base/base.h"
#include "frontend/frontend.h"

namespace {

Expr *makeleaf(Expr *node, std::uint8_t code, std::string_view text)
{
    node->leaf = code;
    node->value = intern(text);
    return node;
}

// The name after `@` or `%`; any other token is reported and its text used.
std::string_view operandname(bool numbers, const char *message)
{
    Token t;
    gettoken(t);
    if (t.code != token::identifier && !(numbers && t.code == token::number))
        report(message);
    return tokentext(t);
}

// "@" name: the address of the global.
Expr *readglobal(Expr *node)
{
    makeleaf(node, leaf::name, operandname(false, "invalid global name in term"));
    node->symbol = find_variable(node->value);
    if (node->symbol) {
        ++node->symbol->uses;
        node->counted = true;
    } else {
        unknown_global_ref = true;
        note_unresolved(node->value);
    }
    Expr *address = newexpr(op::address, node->type);
    address->left = node;
    return address;
}

// "%" name: the slot %x.addr of a parameter has the name of %x and a mark in the leaf.
Expr *readlocal(Expr *node, Block *block)
{
    std::string_view text = operandname(true, "invalid local name in term");
    if (text.size() > slot_suffix.size() && text.ends_with(slot_suffix)) {
        text.remove_suffix(slot_suffix.size());
        node->slot = block != nullptr;
    }
    makeleaf(node, leaf::local, text);
    if (!block)
        return node;
    Expr *tree = substitute(node, block);
    // A node that substitution made to hold the leaf is newer, and then the leaf stays.
    if (tree != node)
        dropexpr(node);
    return tree;
}

// ---- Address computations ---------------------------------------------------------------------------------------

Type *freshvoid()
{
    return newtype(kind::void_, nullptr);
}

// Whether the text of a number leaf has the value 0.
bool iszero(const Expr *expr)
{
    return isleaf(expr, leaf::number) && number(nametext(expr->value)) == 0;
}

// The state of a getelementptr: the tree so far, and the type that its last step reached.
struct AddressWalk {
    Expr *node;
    Type *type;  // never null
};

void walkto(AddressWalk &walk, Type *type)
{
    walk.type = type ? type : freshvoid();
}

// A struct index: a field of the aggregate.
void stepfield(AddressWalk &walk, Expr *index)
{
    constexpr const char *message = "invalid structure offset in getelementptr";
    if (!isleaf(index, leaf::number)) {
        report(message);
        index = newnumber("0");
    }
    Symbol *member = memberat(walk.type, number(nametext(index->value)));
    if (!member)
        report(message);
    index->symbol = member;
    walk.node->op = op::field;
    walk.node->right = index;
    walkto(walk, member ? member->type.get() : nullptr);
    walk.node->type = walk.type;
}

// A zero index of a pointer: a dereference, which cancels an address-of.
void stepthrough(AddressWalk &walk)
{
    Ref<Expr> &base = walk.node->left;
    if (isop(base, op::address)) {
        base = base->left;
    } else {
        walk.node->op = op::dereference;
        walk.node->type = subtype(base->type);
    }
    walkto(walk, walk.type->sub);
}

// Any other index. The node has the type of the container, not of the element.
void stepindex(AddressWalk &walk, Expr *index)
{
    walk.node->op = op::index;
    walk.node->right = index;
    walk.node->type = walk.type;
    walkto(walk, walk.type->sub);
}

void step(AddressWalk &walk, Expr *index)
{
    if (walk.node->op != op::leaf) {
        Expr *wrapper = newexpr(op::leaf, walk.node->type);
        wrapper->left = walk.node;
        walk.node = wrapper;
    }
    if (isleaf(index, leaf::number) && iskind(index->type, kind::int64))
        index->type = newtype(kind::int16, nullptr);
    if (isaggregate(walk.type))
        stepfield(walk, index);
    else if (walk.type->kind == kind::pointer && iszero(index))
        stepthrough(walk);
    else
        stepindex(walk, index);
}

// Takes the next token of an index list. Returns whether an index follows: `!` begins metadata, which ends the list.
bool opensindex(Token &t)
{
    do
        gettoken(t);
    while (isword(t, "inrange"));
    if (t.code == token::bang)
        return false;
    ungettoken(t);
    return true;
}

// ["inbounds"] ["("] type "," type base { "," ["inrange"] type index } [")"]
Expr *readaddress(Expr *node, Block *block)
{
    Token t;
    gettoken(t);
    if (isword(t, "inbounds"))
        gettoken(t);
    if (t.code != token::left_paren)
        ungettoken(t);
    readtype();
    expect(token::comma, "missing , in getelementptr");
    AddressWalk walk{node, readtype()};
    node->left = readterm(walk.type, block);
    expect(token::comma, "missing , in getelementptr");
    while (opensindex(t)) {
        Expr *index = readterm(nullptr, block);
        step(walk, index);
        gettoken(t);
        if (t.code != token::comma)
            break;
    }
    if (t.code != token::right_paren)
        ungettoken(t);
    const bool wrapper = isleaf(walk.node, leaf::none);
    Expr *address = newexpr(op::address, newtype(kind::pointer, walk.node->type));
    address->left = wrapper ? walk.node->left : walk.node;
    return address;
}

// ---- Casts and aggregate constants ------------------------------------------------------------------------------

// ["("] type value "to" type [")"]
Expr *readcast(Expr *node, Block *block, const char *message)
{
    acceptif(token::left_paren);
    node->op = op::cast;
    node->left = readterm(nullptr, block);
    expectword("to", message);
    node->type = readtype();
    acceptif(token::right_paren);
    return node;
}

Expr *readbitcast(Expr *node, Block *block)
{
    return readcast(node, block, "missing to in bitcast");
}

Expr *readpointercast(Expr *node, Block *block)
{
    return readcast(node, block, "missing to in inttoptr/ptrtoint");
}

// The element, or a copy of its node if that is linked in a list already: an element of a constant in a function can be
// the tree of a value that is used elsewhere.
Expr *unlinked(Expr *element, const List<Expr> &elements)
{
    if (!element->next && element != elements.tail)
        return element;
    Expr *copy = newexpr(element->op, element->type);
    *copy = *element;
    copy->next = nullptr;
    return copy;
}

// Reads an element after the end of the line, only for its reports: a type can have far more members than the line has
// characters, so nothing is kept.
void readmissing()
{
    const Expr *element = readterm(nullptr, nullptr);
    const Type *type = element->type;
    dropexpr(element);
    droptype(type);
}

// One element for each member, also if the line ends early: type value { "," type value } "}"
Expr *readaggregateconstant(Expr *node, Block *block)
{
    node->leaf = leaf::aggregate;
    List<Expr> elements{};
    for (const Symbol *member = node->type->members; member; member = member->next) {
        if (atend()) {
            readmissing();
        } else {
            Expr *element = unlinked(readterm(nullptr, block), elements);
            append(elements, element);
            note_initref(element);
        }
        Token t;
        gettoken(t);
        if (t.code != (member->next ? token::comma : token::right_brace))
            report("invalid cstr token %.*s", tokentext(t));
    }
    node->list = elements.head;
    return node;
}

// ---- Words ------------------------------------------------------------------------------------------------------

Expr *readzero(Expr *node, Block * /*block*/)
{
    return makeleaf(node, leaf::number, "0");
}

Expr *readone(Expr *node, Block * /*block*/)
{
    return makeleaf(node, leaf::number, "1");
}

Expr *readzeroinitializer(Expr *node, Block *block)
{
    if (!iskind(node->type, kind::structure))
        return readzero(node, block);
    node->leaf = leaf::aggregate;
    return node;
}

struct TermWord {
    std::string_view word;
    Expr *(*read)(Expr *node, Block *block);
};

constexpr TermWord term_words[] = {
    {"null", readzero},
    {"false", readzero},
    {"undef", readzero},
    {"true", readone},
    {"getelementptr", readaddress},
    {"bitcast", readbitcast},
    {"inttoptr", readpointercast},
    {"ptrtoint", readpointercast},
    {"zeroinitializer", readzeroinitializer},
};

}  // namespace

Expr *readterm(Type *type, Block *block)
{
    Expr *node = newexpr(op::leaf, type ? type : readtype());
    Token t;
    gettoken(t);
    switch (t.code) {
    case token::number:
        return makeleaf(node, leaf::number, tokentext(t));
    case token::string:
        return makeleaf(node, leaf::string, tokentext(t));
    case token::at:
        return readglobal(node);
    case token::percent:
        return readlocal(node, block);
    case token::left_brace:
        if (iskind(node->type, kind::structure))
            return readaggregateconstant(node, block);
        break;
    case token::identifier:
        if (const TermWord *row = findword<term_words>(t))
            return row->read(node, block);
        break;
    default:
        break;
    }
    report("invalid term token %.*s", tokentext(t));
    return node;
}
