// The walk over the blocks of one function: indentation, local declarations, plain statements, return, plain labels
// and the end of a block. Every block has to end in an Inst whose handler finishes it; there is no fall-through.
//
// The output puts braces at the depth of the statements that they enclose, and the head of a construct one tab to the
// left of them.

#include "structure/structure.h"

#include "base/base.h"
#include "emit/emit.h"
#include "frontend/frontend.h"

#include <algorithm>
#include <array>

int indent_depth;

// ---- Lines ------------------------------------------------------------------------------------------------------

void outindent()
{
    constexpr std::string_view tabs = "\t\t\t\t\t\t\t\t";
    for (int left = indent_depth; left > 0; left -= static_cast<int>(tabs.size()))
        outtext(tabs.substr(0, static_cast<std::size_t>(left)));
}

void outline(std::string_view text)
{
    outindent();
    outtext(text);
    outchar('\n');
}

void openbrace()
{
    ++indent_depth;
    outline("{");
}

void closebrace()
{
    outline("}");
    --indent_depth;
}

void closebraces(int depth)
{
    while (indent_depth > depth)
        closebrace();
}

// ---- Blocks by label --------------------------------------------------------------------------------------------

namespace {

// Numbers the blocks and enters them by label.
void indexblocks(WalkState &state)
{
    std::uint32_t position = 0;
    beginlocals();
    for (Block *block = state.firstblock; block; block = block->next) {
        block->position = position++;
        if (block->label)
            localname(block->label).blocks.append(block);
        if (block->last)
            state.lastinst = block->last;
    }
}

}  // namespace

Block *blockfrom(std::uint32_t position, const Name *label)
{
    LocalName *local = label ? findlocal(label) : nullptr;
    if (!local)
        return nullptr;
    auto &blocks = local->blocks;
    const auto first = std::partition_point(blocks.begin(), blocks.end(),
                                            [position](const Block *block) { return block->position < position; });
    auto at = first;
    while (at != blocks.end() && ((*at)->label != label || (*at)->removed))
        ++at;
    Block *found = at == blocks.end() ? nullptr : *at;
    // What is passed has no label any more: it is not looked at again.
    blocks.erase(static_cast<std::size_t>(first - blocks.begin()), static_cast<std::size_t>(at - blocks.begin()),
                 [](const Block *) { return true; });
    return found;
}

Block *findblock(Block *start, const Name *label)
{
    if (Block *block = blockfrom(start->position, label))
        return block;
    report("block not found %s\n", label ? label->text : nullptr);
    return start;
}

// ---- Declarations -----------------------------------------------------------------------------------------------

namespace {

// T *name = malloc(count * sizeof(T))
void outdynamicarray(WalkState &state)
{
    Expr *array = state.inst->expr;
    Expr *count = array->left;
    outdecl(state.inst->name, newtype(kind::pointer, array->type));
    outtext(" = malloc(");
    outexpr(count, count->op != op::leaf);
    outtext(" * sizeof(");
    outdecl(nullptr, array->type);
    outtext("))");
    if (!state.allocfirst)
        state.allocfirst = state.inst;
    ++state.alloccount;
}

void handlelocal(WalkState &state)
{
    if (isparameterslot(nametext(state.inst->name)))
        return;
    outindent();
    if (state.inst->expr->op == op::leaf)
        outdecl(state.inst->name, state.inst->expr->type);
    else
        outdynamicarray(state);
    outtext(";\n");
    state.declgap = true;
}

bool isdynamicarray(const Inst *instruction)
{
    return instruction->op == inst::local && instruction->expr->op != op::leaf;
}

// Directly after the call that restores the stack: frees the dynamic arrays in the order of their declarations. Only
// the block of the first one is searched.
void outpendingfrees(WalkState &state)
{
    for (; state.alloccount != 0; --state.alloccount) {
        while (state.allocfirst && !isdynamicarray(state.allocfirst))
            state.allocfirst = state.allocfirst->next;
        if (!state.allocfirst)
            break;
        outindent();
        outtext("free(");
        outtext(nametext(state.allocfirst->name));
        outtext(");\n");
        state.allocfirst = state.allocfirst->next;
    }
    state.allocfirst = nullptr;
    state.alloccount = 0;
    need_flags &= ~need::frees;
}

// ---- Statements -------------------------------------------------------------------------------------------------

// Whether the statement is the last one before a branch to the head of a `for`: it becomes the init.
bool initsfor(const WalkState &state)
{
    const Inst *jump = state.inst->next;
    if (state.inst->op != inst::statement || !jump || jump->op != inst::jump)
        return false;
    const Block *head = state.block->next;
    return namebegins(jump->name, labels::for_cond) && head && endsin(head, inst::for_branch);
}

void deferstatement(WalkState &state)
{
    Expr *statement = state.inst->expr;
    if (state.pending) {
        Expr *sequence = newexpr(op::comma, state.pending->type);
        sequence->left = state.pending;
        sequence->right = statement;
        statement = sequence;
    }
    state.pending = statement;
}

void handlestatement(WalkState &state)
{
    Expr *expr = state.inst->expr;
    if (isop(expr, op::assign) && sameoperand(expr->left, expr->right))
        return;
    if (state.joinstate != join::none) {
        deferstatement(state);
    } else if (initsfor(state)) {
        state.pending = expr;
    } else {
        outindent();
        outexpr(expr, false);
        outtext(";\n");
    }
}

void handlevalue(WalkState &state)
{
    if (isstatement(state.inst))
        handlestatement(state);
}

// Ends the block; the rest of it is dropped.
void handlenothing(WalkState &state)
{
    state.inst = nullptr;
}

}  // namespace

void handlereturn(WalkState &state)
{
    outindent();
    outtext("return");
    if (state.inst->expr) {
        outchar(' ');
        outexpr(state.inst->expr, false);
    }
    outtext(";\n");
    if (labelbegins(state.block, labels::cleanup_cont))
        closebraces(1);
    state.inst = nullptr;
}

void outplainlabel(WalkState &state)
{
    if (state.inst && state.inst->op == inst::nothing)
        return;
    const std::string_view label = nametext(state.block->label);
    if (!state.block->next && (label == "return" || label == "cleanup"))
        closebraces(1);
    --indent_depth;
    outindent();
    outchar('_');
    outtext(label);
    outtext("_:\n");
    ++indent_depth;
}

// ---- The walk ---------------------------------------------------------------------------------------------------

namespace {

using Handler = void (*)(WalkState &state);

struct HandlerRow {
    std::uint8_t op;
    Handler handler;
};

constexpr HandlerRow handler_rows[] = {
    {inst::value, handlevalue},
    {inst::phi, handlephi},
    {inst::loop_close, handleloopclose},
    {inst::cond_branch, handlecond},
    {inst::statement, handlestatement},
    {inst::local, handlelocal},
    {inst::nothing, handlenothing},
    {inst::case_label, handlecase},
    {inst::chain_branch, handlechain},
    {inst::do_branch, handledo},
    {inst::other_branch, handleother},
    {inst::for_branch, handlefor},
    {inst::jump, handlejump},
    {inst::if_branch, handleif},
    {inst::ret, handlereturn},
    {inst::switch_, handleswitch},
    {inst::while_branch, handlewhile},
};

// The handler of each op; null for an op that prints nothing and goes on.
constexpr std::array<Handler, 256> makehandlers()
{
    std::array<Handler, 256> handlers{};
    for (const HandlerRow &row : handler_rows)
        handlers[row.op] = row.handler;
    return handlers;
}

constexpr std::array<Handler, 256> handlers = makehandlers();

void step(WalkState &state)
{
    if (need_flags & need::frees)
        outpendingfrees(state);
    const std::uint8_t code = state.inst->op;
    if (state.declgap && code != inst::value && code != inst::local) {
        state.declgap = false;
        outchar('\n');
    }
    if (const Handler handler = handlers[code])
        handler(state);
}

// At the start of a block: braces that are due there are written in place of what its label stands for.
void enterblock(WalkState &state)
{
    state.inst = state.block->first;
    if (state.closecount != 0 && --state.closecount == 0) {
        for (; state.closers > 0; --state.closers)
            closebrace();
    } else {
        dispatchlabel(state);
    }
}

// Moves to the next Inst, or into the next block. Returns false when the walk is over.
bool advance(WalkState &state)
{
    if (state.inst) {
        state.inst = state.inst->next;
    } else {
        state.block = state.block->next;
        if (!state.block) {
            closebraces(1);
            return false;
        }
        enterblock(state);
    }
    if (state.inst)
        return true;
    report("unexpected end of block\n");
    return false;
}

}  // namespace

void outbody(Block *first)
{
    if (!first)
        return;
    WalkState state;
    state.block = first;
    state.firstblock = first;
    state.inst = first->first;
    indexblocks(state);
    stripexceptions(first);
    if (!state.inst) {
        report("unexpected end of block\n");
        return;
    }
    do
        step(state);
    while (advance(state));
}
