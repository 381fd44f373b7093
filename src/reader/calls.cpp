// Calls: call, invoke, inline assembler, and the typed elements of argument and parameter lists.

#include "reader/reader.h"

#include "base/base.h"
#include "frontend/frontend.h"

std::uint32_t unnamed_params;
bool after_invoke;

namespace {

// A call of `thrower` throws an exception, which the output can't express.
void rejectthrow(const Name *callee, std::string_view thrower)
{
    if (nametext(callee) == thrower)
        report("exception mechanism not implemented");
}

// The called operand; a direct call holds the plain name.
Expr *readcallee(Type *type, Block *block)
{
    Expr *callee = readterm(type, block);
    return callee->op == op::address ? callee->left : callee;
}

Expr *makecall(Type *type, Expr *callee)
{
    Expr *call = newexpr(op::call, type);
    call->left = callee;
    return call;
}

// A cell of an argument list.
Expr *argumentcell(Expr *argument)
{
    Expr *cell = newexpr(op::comma, nullptr);
    cell->left = argument;
    return cell;
}

// argument { "," argument } ")" into the chain that starts at `link`, from after "(". Returns false after a report.
bool readarguments(Ref<Expr> *link, Block *block, const char *message)
{
    if (acceptif(token::right_paren))
        return true;
    for (;;) {
        Expr *cell = argumentcell(readparam(block));
        *link = cell;
        link = &cell->right;
        Token t;
        gettoken(t);
        if (t.code == token::right_paren)
            return true;
        if (t.code != token::comma) {
            report(message);
            return false;
        }
    }
}

Expr *nameleaf(std::uint8_t code, std::string_view text)
{
    Expr *expr = newexpr(op::leaf, nullptr);
    expr->leaf = code;
    expr->value = intern(text);
    return expr;
}

// [word] string "," string: a call of _asm with the text as its first argument. Returns the link for the further
// arguments, null after a report.
Ref<Expr> *readassembler(Inst *instruction, Type *type)
{
    Token t;
    gettoken(t);
    if (t.code == token::identifier)
        gettoken(t);
    if (t.code != token::string) {
        report("missing string in asm call");
        return nullptr;
    }
    Expr *call = makecall(type, nameleaf(leaf::name, "_asm"));
    call->right = argumentcell(nameleaf(leaf::string, tokentext(t)));
    instruction->expr = call;
    if (!expect(token::comma, "missing , in asm call") || !expect(token::string, "missing string in asm call"))
        return nullptr;
    if (type->kind != kind::void_ && type->kind != kind::int16) {
        instruction->expr = newexpr(op::cast, type);
        instruction->expr->left = call;
    }
    return &call->right->right;
}

// The callee of a plain call. Returns the link for the arguments, null for a call that is dropped.
Ref<Expr> *readplaincallee(Inst *instruction, Type *type, Block *block)
{
    Expr *callee = readcallee(type, block);
    if (isleaf(callee, leaf::name)) {
        if (isannotation(nametext(callee->value)))
            return nullptr;
        note_call(callee->value);
        rejectthrow(callee->value, "__cxa_rethrow");
    }
    instruction->expr = makecall(type, callee);
    return &instruction->expr->right;
}

Inst *orstatement(Inst *instruction)
{
    if (instruction)
        return instruction;
    instruction = newinst();
    instruction->op = inst::statement;
    return instruction;
}

}  // namespace

// words type ("asm" assembler | callee) "(" arguments
Inst *readcall(Block *block, Inst *instruction)
{
    instruction = orstatement(instruction);
    readwords();
    Type *type = readtype();
    Token t;
    gettoken(t);
    Ref<Expr> *arguments = nullptr;
    if (isword(t, "asm")) {
        arguments = readassembler(instruction, type);
    } else {
        ungettoken(t);
        arguments = readplaincallee(instruction, type, block);
    }
    if (!arguments || !expect(token::left_paren, "missing ( in call"))
        return nullptr;
    return readarguments(arguments, block, "missing ) in call") ? instruction : nullptr;
}

// words type callee "(" arguments; the destinations are on the next line.
Inst *readinvoke(Block *block, Inst *instruction)
{
    instruction = orstatement(instruction);
    after_invoke = true;
    readwords();
    Type *type = readtype();
    Expr *callee = readcallee(type, block);
    if (isleaf(callee, leaf::name)) {
        note_call(callee->value);
        rejectthrow(callee->value, "__cxa_throw");
    }
    instruction->expr = makecall(type, callee);
    if (!expect(token::left_paren, "missing ( in invoke"))
        return nullptr;
    return readarguments(&instruction->expr->right, block, "missing ) in invoke") ? instruction : nullptr;
}

bool skiptailmarker(Token &t)
{
    if (!isword(t, "tail") && !isword(t, "notail") && !isword(t, "musttail"))
        return true;
    gettoken(t);
    if (isword(t, "call"))
        return true;
    report("expecting call after tail marker");
    return false;
}

namespace {

// type words: an extension word sets the signedness of a char.
Type *readparamtype()
{
    Type *type = readtype();
    const std::uint32_t words = readwords();
    if ((words & flag::zeroext) && type->kind == kind::signed_char)
        type->kind = kind::plain_char;
    else if ((words & flag::signext) && type->kind == kind::plain_char)
        type->kind = kind::signed_char;
    return type;
}

}  // namespace

bool endsparams()
{
    Token t;
    gettoken(t);
    if (t.code == token::right_paren)
        return true;
    if (t.code != token::comma)
        report("missing , in declare arguments");
    return t.code == token::end_of_line;
}

// type words operand. The cast of a char to int is dropped.
Expr *readparam(Block *block)
{
    Type *type = readparamtype();
    Expr *term = readterm(type, block);
    const bool widened = term->op == op::cast && iskind(term->type, kind::int16) && isop(term->left, op::cast) &&
                         term->left->type && term->left->type->kind < kind::int16;
    return widened ? term->left : term;
}

// type words ["%" name]
Symbol *readparam()
{
    Symbol *parameter = newsym(nullptr, readparamtype());
    Token t;
    gettoken(t);
    switch (t.code) {
    case token::percent:
        gettoken(t);
        if (t.code == token::identifier)
            parameter->name = intern(tokentext(t));
        else
            report("invalid argument name");
        break;
    case token::comma:
    case token::right_paren:
        ungettoken(t);
        parameter->name = unusedname(unnamed_params++);
        break;
    default:
        report("invalid argument prefix");
        break;
    }
    return parameter;
}
