// Function definitions: the header, and the loop over the lines of a body.

#include "reader/reader.h"

#include "base/base.h"
#include "frontend/frontend.h"

namespace {

// The label of an entry block without one in the input; no branch can refer to it.
Name *entrylabel()
{
    static Name *const label = privatename("_entry_");
    return label;
}

// The body being read.
struct Body {
    Symbol *fn;
    Block *block;      // the current one, null until the first label or instruction
    Ref<Block> *tail;  // where the next block goes
};

void openblock(Body &body, Name *label, Inst *before)
{
    Block *block = newblock();
    block->label = label;
    block->last = before;
    *body.tail = block;
    body.tail = &block->next;
    body.block = block;
}

void openentry(Body &body)
{
    if (!body.block)
        openblock(body, entrylabel(), nullptr);
}

// The prev chain runs through the whole function, next stays within the block.
void appendinst(Block *block, Inst *instruction)
{
    instruction->block = block;
    instruction->prev = block->last;
    (block->first ? block->last->next : block->first) = instruction;
    block->last = instruction;
    notelocal(instruction);
}

// Returns true if the block ends in an invoke's branch to `label`: the branch is unlinked, and the block goes on. While
// the block is still empty the branch is that of the block before, which keeps it.
bool continuesinvoke(Block *block, const Name *label)
{
    if (!block || !block->last || !namebegins(label, labels::invoke))
        return false;
    Inst *jump = block->last;
    if (jump->op != inst::jump || jump->name != label)
        return false;
    if (block->first)
        (block->first == jump ? block->first : jump->prev->next) = nullptr;
    block->last = jump->prev;
    dropjump();
    return true;
}

void readbodylabel(Body &body, Name *label)
{
    if (!continuesinvoke(body.block, label))
        openblock(body, label, body.block ? body.block->last.get() : nullptr);
}

// ---- Statements -------------------------------------------------------------------------------------------------

Inst *readcallstatement(Block *block)
{
    return readcall(block, nullptr);
}

Inst *readinvokestatement(Block *block)
{
    return readinvoke(block, nullptr);
}

Inst *readnothing(Block * /*block*/)
{
    Inst *instruction = newinst();
    instruction->op = inst::nothing;
    return instruction;
}

struct StatementForm {
    std::string_view word;
    Inst *(*read)(Block *block);
};

constexpr StatementForm statement_forms[] = {
    {"store", readstore},    {"call", readcallstatement},  {"invoke", readinvokestatement},
    {"br", readbr},          {"switch", readswitch},       {"ret", readret},
    {"resume", readnothing}, {"unreachable", readnothing},
};

// The statement that begins with `word`; null for none.
Inst *readstatement(const Token &word, Block *block)
{
    if (after_invoke && isword(word, "to"))
        return readto();
    if (const StatementForm *form = findword<statement_forms>(word))
        return form->read(block);
    report("invalid instruction code %s", tokentext(word));
    return nullptr;
}

// What a line of a body means for the reading of the function: it goes on, ends at its brace, or fails.
enum class Line { next, end, failure };

// A statement or a label that begins with the identifier `first`.
Line readwordline(Body &body, const Token &first)
{
    Token word = first;
    if (!skiptailmarker(word))
        return Line::failure;
    if (acceptif(token::colon)) {
        readbodylabel(body, intern(tokentext(word)));
        return Line::next;
    }
    openentry(body);
    if (Inst *instruction = readstatement(word, body.block))
        appendinst(body.block, instruction);
    return Line::next;
}

// name "=" instruction, from after the "%".
void readvalueline(Body &body)
{
    openentry(body);
    Token t;
    gettoken(t);
    if (t.code != token::identifier && t.code != token::number) {
        report("invalid temp name %.*s in define", tokentext(t));
        return;
    }
    Name *name = intern(tokentext(t));
    if (!expect(token::assign, "missing = in temp define"))
        return;
    if (Inst *instruction = readinst(name, body.block))
        appendinst(body.block, instruction);
}

Line readbodyline(Body &body)
{
    Token t;
    gettoken(t);
    switch (t.code) {
    case token::end_of_line:
        return Line::next;
    case token::right_brace:
        return Line::end;
    case token::identifier:
        return readwordline(body, t);
    case token::percent:
        readvalueline(body);
        return Line::next;
    default:
        report("invalid instruction construct");
        return Line::next;
    }
}

// The lines up to the closing brace.
int readbody(Symbol *fn)
{
    Body body{fn, nullptr, &fn->type->blocks};
    beginlocals();
    for (;;) {
        if (!nextline()) {
            report("unexpected end of file");
            return 1;
        }
        switch (readbodyline(body)) {
        case Line::next:
            break;
        case Line::failure:
            return 1;
        case Line::end:
            fn->calls = takecalls();
            add_function(fn);
            return 0;
        }
    }
}

// ---- The header -------------------------------------------------------------------------------------------------

std::uint8_t functionstorage(std::uint32_t flags)
{
    if (flags & flag::internal)
        return storage::static_;
    return flags & flag::hidden ? storage::hidden : storage::none;
}

// parameter { "," parameter } ")" from after the opening parenthesis.
Symbol *readheaderparams()
{
    if (acceptif(token::right_paren))
        return nullptr;
    unnamed_params = 0;
    List<Symbol> parameters{};
    do
        append(parameters, readparam());
    while (!endsparams());
    return parameters.head;
}

}  // namespace

// words type "@" name "(" parameters ")" anything, and the body
int readdefine()
{
    const std::uint32_t flags = readwords();
    Type *result = readtype();
    if (!expect(token::at, "invalid global prefix in define"))
        return 1;
    Name *name = expectname("invalid global name in define");
    if (!name)
        return 1;
    Symbol *fn = newsym(name, newtype(kind::function, result));
    fn->storage = functionstorage(flags);
    fn->flags = flags;
    if (!expect(token::left_paren, "missing ( in define"))
        return 1;
    fn->type->params = readheaderparams();
    return readbody(fn);
}
