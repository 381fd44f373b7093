// Loops and branches: the dispatch by label at the start of each block, which writes braces, `else`, `do`, `default:`
// and labels, and the handlers of the branches, which write the heads of constructs and the jumps.

#include "structure/structure.h"

#include "base/base.h"
#include "emit/emit.h"
#include "frontend/frontend.h"

#include <algorithm>

namespace {

// What the last jump was; not reset between functions.
enum class GotoState : std::uint8_t {
    none,
    leaves_then,  // the current jump is a goto out of an if.then block
    left_then,    // the last one was
    leaves_else,  // the current jump is a goto out of an if.else block directly after such a one
};

GotoState gotostate = GotoState::none;

bool holdsdot(const Name *label)
{
    return nametext(label).find('.') != std::string_view::npos;
}

// head condition tail, as one line
void outhead(std::string_view head, Expr *condition, std::string_view tail, bool paren = false)
{
    outindent();
    outtext(head);
    outexpr(condition, paren);
    outtext(tail);
}

// ---- Label dispatch ---------------------------------------------------------------------------------------------

bool isbodylabel(const Block *block)
{
    return labelbegins(block, labels::if_then) || labelbegins(block, labels::while_body) ||
           labelbegins(block, labels::for_body);
}

// The start of a body: its brace, or the empty statement of a loop whose body is empty.
void openbody(WalkState &state)
{
    if (state.block->label->text[0] == 'w' && !state.whilehead)
        outline("for (;;)");
    state.whilehead = false;
    const Inst *first = state.inst;
    if (first && first->op == inst::jump && first->name == state.block->label) {
        ++indent_depth;
        outline(";");
        --indent_depth;
    } else {
        openbrace();
    }
}

// A for.cond block without a condition of its own: the loop is endless.
bool isendlesshead(const Block *block)
{
    return labelbegins(block, labels::for_cond) && !endsin(block, inst::for_branch) &&
           !endsin(block, inst::chain_branch);
}

void openendless(WalkState & /*state*/)
{
    outline("for (;;)");
    openbrace();
}

void opendo(WalkState &state)
{
    outline("do\t{");
    ++indent_depth;
    state.dotail = false;
}

void closedo(WalkState &state)
{
    if (!state.dotail) {
        closebrace();
        outline("while (0);");
    }
    state.dotail = false;
}

void openelse(WalkState & /*state*/)
{
    closebrace();
    outline("else");
    openbrace();
}

// The end of a switch can be the target of cases: their labels go inside the braces, followed by a `break`.
void closeconstruct(WalkState &state)
{
    if (state.inst && state.inst->op == inst::case_label && labelbegins(state.block, labels::switch_end)) {
        for (; state.inst && state.inst->op == inst::case_label; state.inst = state.inst->next)
            handlecase(state);
        outline("break;");
    }
    closebrace();
}

void outdefault(WalkState & /*state*/)
{
    --indent_depth;
    outline("default:");
    ++indent_depth;
}

bool isconstructend(const Block *block)
{
    return labelbegins(block, labels::if_end) || labelbegins(block, labels::while_end) ||
           labelbegins(block, labels::for_end) || labelbegins(block, labels::switch_end);
}

bool isdobody(const Block *block)
{
    return labelbegins(block, labels::do_body);
}

bool isdoend(const Block *block)
{
    return labelbegins(block, labels::do_end);
}

bool iselse(const Block *block)
{
    return labelbegins(block, labels::if_else);
}

bool isdefault(const Block *block)
{
    return labelbegins(block, labels::switch_default);
}

bool isplain(const Block *block)
{
    return !holdsdot(block->label);
}

struct DispatchRow {
    bool (*fits)(const Block *block);
    void (*act)(WalkState &state);
};

// The first row that fits is used.
constexpr DispatchRow dispatch_rows[] = {
    {isbodylabel, openbody}, {isendlesshead, openendless},     {isdobody, opendo},      {isdoend, closedo},
    {iselse, openelse},      {isconstructend, closeconstruct}, {isdefault, outdefault}, {isplain, outplainlabel},
};

}  // namespace

void dispatchlabel(WalkState &state)
{
    if (!state.block->label)
        return;  // a join has consumed the block
    for (const DispatchRow &row : dispatch_rows) {
        if (row.fits(state.block)) {
            row.act(state);
            return;
        }
    }
}

// ---- if, while, do ----------------------------------------------------------------------------------------------

namespace {

void negate(Ref<Expr> &condition)
{
    if (condition && iscomparison(condition->op)) {
        condition->op = opposite(condition->op);
        return;
    }
    Expr *negated = newexpr(op::logical_not, exprtype(condition));
    negated->left = condition;
    condition = negated;
}

}  // namespace

// The branch of an `if`; in a join it ends the chain of its condition. The body is the next block, so a branch that
// goes elsewhere on true is negated.
void handleif(WalkState &state)
{
    if (state.joinstate != join::none) {
        addcomma(state.inst, state.pending);
        mergeconds(state.joinstart, state.block);
        state.joinstate = join::none;
    }
    outindent();
    outtext("if (");
    const Block *next = state.block->next;
    if (next && nametext(branchpair(state.inst)->true_label) != nametext(next->label))
        negate(state.inst->expr);
    outexpr(state.inst->expr, false);
    outtext(")\n");
    state.inst = nullptr;
}

void handlewhile(WalkState &state)
{
    outhead("while (", state.inst->expr, ")\n");
    state.whilehead = true;
    state.inst = nullptr;
}

void handledo(WalkState &state)
{
    closebrace();
    outhead("while (", state.inst->expr, ");\n");
    state.dotail = true;
    state.inst = nullptr;
}

// ---- for --------------------------------------------------------------------------------------------------------

namespace {

void indexincrements(WalkState &state)
{
    state.increments_indexed = true;
    for (Block *block = state.firstblock; block; block = block->next)
        if (labelbegins(block, labels::for_inc) && endsin(block, inst::jump) && block->last->name)
            state.increments[block->last->name].push_back(block);
}

// The first for.inc block after the head that branches back to it, or null.
Block *incrementblock(WalkState &state)
{
    if (!state.block->label)
        return nullptr;
    if (!state.increments_indexed)
        indexincrements(state);
    const auto entry = state.increments.find(state.block->label);
    if (entry == state.increments.end())
        return nullptr;
    const auto &blocks = entry->second;
    auto at = std::partition_point(blocks.begin(), blocks.end(),
                                   [&state](const Block *block) { return block->position <= state.block->position; });
    for (; at != blocks.end(); ++at)
        if (labelbegins(*at, labels::for_inc) && (*at)->last->name == state.block->label)
            return *at;
    return nullptr;
}

// Moves the statements of the increment into the head; only the branch is left of the block.
void outincrement(Block *block)
{
    bool first = true;
    for (Inst *at = block->first; at && at != block->last; at = at->next) {
        if (!isstatement(at))
            continue;
        if (!first)
            outtext(", ");
        first = false;
        outexpr(at->expr, false);
    }
    block->first = block->last;
}

}  // namespace

void handlefor(WalkState &state)
{
    outindent();
    outtext("for (");
    if (state.pending)
        outexpr(state.pending, false);
    else
        outchar(' ');
    state.pending = nullptr;
    outtext("; ");
    outexpr(state.inst->expr, false);
    outtext("; ");
    if (Block *block = incrementblock(state))
        outincrement(block);
    outtext(")\n");
    state.inst = nullptr;
}

// ---- switch -----------------------------------------------------------------------------------------------------

// Each case becomes an Inst at the front of its target block.
void handleswitch(WalkState &state)
{
    outhead("switch (", state.inst->expr, ")\n");
    openbrace();
    for (Expr *value = state.inst->cases; value; value = value->next) {
        Block *target = blockfrom(state.block->position + 1, value->label);
        if (!target)
            continue;
        Inst *label = newinst();
        label->op = inst::case_label;
        label->expr = value;
        label->block = target;
        label->next = target->first;
        target->first = label;
    }
    state.inst = nullptr;
}

void handlecase(WalkState &state)
{
    --indent_depth;
    outhead("case ", state.inst->expr, ":\n");
    ++indent_depth;
}

// ---- Other conditional branches ---------------------------------------------------------------------------------

namespace {

// A branch around the blocks up to `jointarget`, each of which ends in a jump to the next:
//
//     br i1 %c, label %guard.end, label %guard.body      if (!c)
//     guard.body: ...  br label %guard.end                   {
//     guard.end:                                             ... }
//
// Bit 0 of `count` is set if the condition is written without a `!`; the other bits count the blocks passed.
struct OtherBranch {
    Block *chainblock;
    const Name *jointarget;
    unsigned count;
};

constexpr unsigned plain_condition = 1;
constexpr unsigned one_block = 2;

// Which of the targets is the next block; without a chain block after a report.
OtherBranch openother(const WalkState &state)
{
    Block *next = state.block->next;
    const Expr *pair = branchpair(state.inst);
    if (!next) {
        report("missing blocks in other branch");
        return {};
    }
    if (next->label && next->label == pair->true_label)
        return {next, pair->false_label, plain_condition};
    if (next->label && next->label == pair->false_label)
        return {next, pair->true_label, 0};
    report("unexpected blocks order in other branch");
    return {};
}

// Whether the block ends in a second branch of the same kind: to the join target or to the next block.
bool branchesalike(const Block *block, const Name *jointarget)
{
    if (!endsin(block, inst::other_branch))
        return false;
    const Expr *pair = branchpair(block->last);
    const Name *next = block->next->label;
    return (pair->true_label == jointarget && pair->false_label == next) ||
           (pair->true_label == next && pair->false_label == jointarget);
}

void outotherhead(WalkState &state, unsigned count)
{
    if (count & plain_condition)
        outhead("if (", state.inst->expr, ")\n");
    else
        outhead("if (!", state.inst->expr, ")\n", true);
    if (!labelbegins(state.block->next, labels::if_then))
        openbrace();
    if (state.closecount == 0)
        state.closecount = static_cast<int>(count / one_block) + 2;
}

// One step along the chain. Returns false at its end, where the head is written, or after a report.
bool stepother(WalkState &state, OtherBranch &branch)
{
    if (!branch.chainblock->next) {
        report("missing blocks in other branch");
        return false;
    }
    if (branchesalike(branch.chainblock, branch.jointarget)) {
        branch.chainblock = branch.chainblock->next;
        branch.count += one_block;
        if (state.closecount == 0)
            ++state.closers;
        if (!branch.chainblock->next) {
            report("missing blocks in other branch");
            return false;
        }
    }
    const Name *next = branch.chainblock->next->label;
    if (!endsin(branch.chainblock, inst::jump) || !next || branch.chainblock->last->name != next) {
        report("unexpected blocks in other branch");
        return false;
    }
    if (next == branch.jointarget) {
        outotherhead(state, branch.count);
        return false;
    }
    branch.chainblock = branch.chainblock->next;
    branch.count += one_block;
    return true;
}

}  // namespace

void handleother(WalkState &state)
{
    OtherBranch branch = openother(state);
    if (state.closecount == 0)
        state.closers = 1;
    while (branch.chainblock && stepother(state, branch)) {
    }
    state.inst = nullptr;
}

// ---- Jumps ------------------------------------------------------------------------------------------------------

namespace {

// Ends the handling of every jump but one that became a return.
void finishjump(WalkState &state)
{
    gotostate = gotostate == GotoState::leaves_then ? GotoState::left_then : GotoState::none;
    state.inst = nullptr;
}

bool leavesloop(const Name *target)
{
    return namebegins(target, labels::while_end) || namebegins(target, labels::for_end) ||
           namebegins(target, labels::do_end) || namebegins(target, labels::switch_end);
}

// `return;` if nothing else follows the construct, else `break;`
void outbreak(const WalkState &state, const Name *target)
{
    const Block *end = findblock(state.block, target);
    const Inst *first = end->first;
    outline(first && first->op == inst::ret && !first->expr ? "return;" : "break;");
}

// Whether a jump to the head or increment of a loop is a `continue`.
bool iscontinue(const Block *next, const Name *target)
{
    if (!next || next->label == target)
        return false;
    if (namebegins(target, labels::while_cond))
        return !labelbegins(next, labels::while_end);
    return namebegins(target, labels::for_inc) || namebegins(target, labels::do_cond);
}

// A jump to the block `return` repeats its return statement. Returns false if that block has none.
bool jumpstoreturn(WalkState &state, const Name *target)
{
    if (labelbegins(state.block, labels::if_else) && labelbegins(state.block->next, labels::if_else) &&
        state.closecount == 0) {
        state.closecount = 1;
        state.closers = 1;
    }
    const Block *block = findblock(state.block, target);
    if (!endsin(block, inst::ret))
        return false;
    state.inst = block->last;
    handlereturn(state);
    return true;
}

void notegoto(const Block *block)
{
    if (labelbegins(block, labels::if_then))
        gotostate = GotoState::leaves_then;
    else if (labelbegins(block, labels::if_else) && gotostate == GotoState::left_then)
        gotostate = GotoState::leaves_else;
}

// A jump to a label of the source. Returns true if it became a return.
bool jumptolabel(WalkState &state, const Name *target)
{
    if (nametext(target) != "return")
        notegoto(state.block);
    else if (jumpstoreturn(state, target))
        return true;
    outindent();
    outtext("goto _");
    outtext(nametext(target));
    outtext("_;\n");
    // Both arms end in a goto: no if.end block closes the second.
    if (gotostate == GotoState::leaves_else)
        closebrace();
    return false;
}

}  // namespace

void handlejump(WalkState &state)
{
    const Name *target = state.inst->name;
    const Block *next = state.block->next;
    if (state.joinstate != join::none) {
        handlejoinjump(state);
    } else if (!target) {
        // It was prepared as the branch of a chain, which has ended.
    } else if (leavesloop(target)) {
        outbreak(state, target);
    } else if (iscontinue(next, target)) {
        outline("continue;");
    } else if (!holdsdot(target) && next && next->label != target) {
        if (jumptolabel(state, target))
            return;
    }
    finishjump(state);
}
