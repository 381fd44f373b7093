// Value joins: the blocks of `a && b`, `a || b` and `c ? x : y` folded back into one expression. While a join is open
// its branches print nothing, its statements are deferred, and each block's condition is kept in its last Inst. At its
// end the conditions are merged into one tree, which replaces a phi or the condition of an `if`.
//
// The merge depends on the targets alone: two neighbours with the same target on true form an or, with the same target
// on false an and. For `if (a || (b && c))`:
//
//     block            on true    on false
//     entry         a  if.then    lor.lhs.false
//     lor.lhs.false b  land.true  if.end
//     land.true     c  if.then    if.end
//
// First pass: entry and lor.lhs.false share nothing; lor.lhs.false and land.true share if.end: b && c, now with the
// targets if.then and if.end, and land.true is consumed. Second pass: entry and lor.lhs.false share if.then:
// a || (b && c).

#include "structure/structure.h"

#include "base/base.h"
#include "emit/emit.h"
#include "frontend/frontend.h"

#include <unordered_set>
#include <utility>
#include <vector>

namespace {

// The condition of a block is the tree of its last Inst, its targets are the branch pair there.
Expr *conditionof(const Block *block)
{
    return block->last ? block->last->expr.get() : nullptr;
}

void reportunmerged(const Block *start)
{
    report("no condition accumulation from %s", start->label ? start->label->text : nullptr);
}

}  // namespace

void addcomma(Inst *instruction, Expr *&pending)
{
    if (!pending)
        return;
    Expr *sequence = newexpr(op::comma, pending->type);
    sequence->left = pending;
    sequence->right = instruction->expr;
    instruction->expr = sequence;
    pending = nullptr;
}

// ---- Merging conditions -----------------------------------------------------------------------------------------

namespace {

// Whether a condition may get a `!`. A comparison may not, since it would print as its opposite; x != 0 counts as none.
bool negatable(const Expr *expr)
{
    if (!expr || !iscomparison(expr->op))
        return true;
    return expr->op == op::not_equal && isleaf(expr->right, leaf::number) && number(nametext(expr->right->value)) == 0;
}

void negate(Inst *branch, Expr *pair)
{
    Expr *negated = newexpr(op::logical_not, newtype(kind::boolean, nullptr));
    negated->left = branch->expr;
    branch->expr = negated;
    std::swap(pair->true_label, pair->false_label);
}

void combine(Inst *first, const Inst *second, std::uint8_t code)
{
    Expr *merged = newexpr(code, exprtype(first->expr));
    merged->left = first->expr;
    merged->right = second->expr;
    first->expr = merged;
}

// Merges the condition of `c` into that of `a` if they have a target in common. If that is the true target of one and
// the false target of the other, one condition is negated first.
bool mergepair(Inst *a, Inst *c)
{
    Expr *pa = branchpair(a);
    Expr *pc = branchpair(c);
    const bool aligned = pa->true_label == pc->true_label || pa->false_label == pc->false_label;
    if (!aligned) {
        if (pa->true_label != pc->false_label && pa->false_label != pc->true_label)
            return false;
        if (negatable(a->expr))
            negate(a, pa);
        else if (negatable(c->expr))
            negate(c, pc);
        else
            return false;
    }
    if (pa->true_label == pc->true_label) {
        combine(a, c, op::logical_or);
        pa->false_label = pc->false_label;
    } else {
        combine(a, c, op::logical_and);
        pa->true_label = pc->true_label;
    }
    return true;
}

// The next block of a chain that is not consumed. The last one stops the search even if it is.
Block *nextlive(const Block *block, Block *end)
{
    Block *next = block->next;
    while (next != end && !next->label)
        next = next->next;
    return next;
}

// All passes over the chain. Each merges the first neighbours from the left that fit; a pair that doesn't fit is worth
// another try only when one of the two has changed. So a pass starts where the one before has merged, one neighbour
// back: `left` holds the blocks before that place, `right` those after it that were tried already, the nearest last;
// `frontier` is the last block that was tried. Returns false if a condition is left over: no neighbour of it fits, or
// one has no pair.
bool runpasses(Block *start, Block *end)
{
    std::vector<Block *> left{start};
    std::vector<Block *> right;
    const Block *frontier = start;
    for (;;) {
        if (right.empty()) {
            if (frontier == end)
                return false;
            right.push_back(nextlive(frontier, end));
            frontier = right.back();
        }
        Block *a = left.back();
        Block *c = right.back();
        if (c == end && !c->label)
            return a == start;
        if (!branchpair(a->last) || !branchpair(c->last))
            return false;
        if (!mergepair(a->last, c->last)) {
            left.push_back(c);
            right.pop_back();
            continue;
        }
        c->label = nullptr;
        if (c != end)
            right.pop_back();
        if (left.size() > 1) {
            left.pop_back();
            right.push_back(a);
        }
    }
}

}  // namespace

void mergeconds(Block *start, Block *end)
{
    if (!start || !end || end->position < start->position || end->removed) {
        report("not found end block\n");
        return;
    }
    if (start == end)
        return;
    if (!runpasses(start, end))
        reportunmerged(start);
    if (end->last && start->last)
        end->last->expr = start->last->expr;
}

// ---- Opening and continuing a join ------------------------------------------------------------------------------

// A term of && or ||.
void handlechain(WalkState &state)
{
    if (state.joinstate == join::none) {
        state.joinstate = join::chain;
        state.joinstart = state.block;
        state.pending = nullptr;
    } else {
        addcomma(state.inst, state.pending);
    }
    state.inst = nullptr;
}

// The branch of a conditional value. An open chain is its condition.
void handlecond(WalkState &state)
{
    if (state.joinstate == join::none) {
        state.joinstate = join::value;
        state.pending = nullptr;
    } else {
        addcomma(state.inst, state.pending);
        if (state.joinstate & join::value)
            state.savedconds.push_back(state.block);
        if (state.joinstate & join::chain) {
            mergeconds(state.joinstart, state.block);
            state.joinstate = join::value;
        }
    }
    if (state.savedconds.empty())
        state.joinstart = state.block;
    state.inst = nullptr;
}

// A jump within a join: the deferred statements of the block go before the value that it computes.
void handlejoinjump(WalkState &state)
{
    if (!state.pending)
        return;
    Inst *named = state.inst->prev;
    while (named && !named->name && !named->targets)
        named = named->prev;
    if (named)
        addcomma(named, state.pending);
    else
        report("cannot accumulate assignments");
}

// ---- Phi --------------------------------------------------------------------------------------------------------

namespace {

Expr *resolve(WalkState &state, Expr *operand, Block *block)
{
    if (!state.chain_indexed) {
        state.chain_indexed = true;
        indexchain(state.lastinst);
    }
    return substitute(operand, block);
}

// The target of a jump as it enters a prepared pair. Without a label it must be different from every label.
Name *pairtarget(const Inst *branch)
{
    return branch->name || !branch->targets ? branch->name : privatename({});
}

// Turns the jump that the last block of a chain ends in into a conditional branch: both targets are the jump's, and the
// condition is the value that the block computed last.
Block *bprepare(Block *start, const Expr *pair)
{
    Block *block = findblock(start, pair->label);
    Inst *last = block->last;
    if (!last) {
        report("unexpected instruction in bprepare\n");
        return block;
    }
    Expr *prepared = newexpr(op::leaf, nullptr);
    prepared->true_label = pairtarget(last);
    prepared->false_label = prepared->true_label;
    last->name = nullptr;
    last->targets = prepared;
    const Inst *before = last->prev;
    if (before && (before->name || before->targets))
        last->expr = before->expr;
    else
        report("unexpected instruction in bprepare\n");
    return block;
}

// Whether the value of a phi pair counts as the constant false.
bool isfalse(const Expr *value)
{
    return value->op == op::leaf && value->leaf != leaf::aggregate && namebegins(value->value, "0");
}

// A block that gives the phi the constant false must have the false target of the end block, one that gives it true
// the true target: the first such block gives its target to the end block, the others take theirs from there.
void phitarget(const Block *end, Block *start, const Expr *value)
{
    const Block *block = findblock(start, value->label);
    Expr *prepared = branchpair(end->last);
    Expr *other = branchpair(block->last);
    if (!prepared || !other) {
        reportunmerged(start);
        return;
    }
    if (isfalse(value)) {
        if (prepared->false_taken)
            std::swap(prepared, other);
        else
            prepared->false_taken = true;
        prepared->false_label = other->false_label;
    } else {
        if (prepared->true_taken)
            std::swap(prepared, other);
        else
            prepared->true_taken = true;
        prepared->true_label = other->true_label;
    }
}

// ---- Cycles ----

// Appends the operands of an expression.
void addoperands(std::vector<const Expr *> &list, const Expr *expr)
{
    if (expr->op == op::leaf && expr->leaf == leaf::aggregate)
        for (const Expr *element = expr->list; element; element = element->next)
            list.push_back(element);
    if (expr->op == op::leaf)
        return;
    list.push_back(expr->left);
    if (expr->op == op::conditional)
        list.push_back(expr->middle);
    if (expr->op != op::field)
        list.push_back(expr->right);
}

// Whether `tree` is found from one of the expressions in `open`. All searches of a run visit so many nodes at most;
// what takes more counts as found.
bool reaches(std::vector<const Expr *> open, const Expr *tree)
{
    constexpr std::size_t largest_search = 10'000'000;
    static std::size_t visited;
    std::unordered_set<const Expr *> seen;
    while (!open.empty()) {
        const Expr *expr = open.back();
        open.pop_back();
        if (!expr || !seen.insert(expr).second)
            continue;
        if (expr == tree || ++visited > largest_search)
            return true;
        addoperands(open, expr);
    }
    return false;
}

// Whether the phi's node would become part of itself with these operands; it then stays without a value. That takes a
// value from the phi's own block or from one after it, for this phi or an earlier one: no front end writes such joins.
bool closescycle(const WalkState &state, Expr *tree, std::vector<const Expr *> operands)
{
    tree->cyclic = state.looked_ahead && reaches(std::move(operands), tree);
    return tree->cyclic;
}

// Notes the block that the phi at hand takes a value from.
Block *takefrom(WalkState &state, Block *block)
{
    if (block->position >= state.block->position)
        state.looked_ahead = true;
    return block;
}

// Turns the phi's node, which all uses of the phi refer to, into the merged condition.
void replacephi(const WalkState &state, Expr *tree, const Expr *condition)
{
    if (!condition || closescycle(state, tree, {condition}))
        return;
    tree->op = condition->op;
    tree->leaf = condition->leaf;
    tree->left = condition->left;
    tree->value = condition->value;
    tree->right = condition->right;
}

// The end or a stage of a chain.
void phichain(WalkState &state, Expr *tree)
{
    if (!state.phiopen) {
        state.phiopen = true;
        state.joinend = takefrom(state, bprepare(state.joinstart, tree->right));
    }
    phitarget(state.joinend, state.joinstart, tree->left);
    const Inst *next = state.inst->next;
    if (next && next->op == inst::jump)
        return;  // an inner stage: the chain goes on at the target of the jump
    state.phiopen = false;
    mergeconds(state.joinstart, state.joinend);
    replacephi(state, tree, conditionof(state.joinend));
    state.joinstate = join::none;
    state.pending = nullptr;
}

// The value of a phi pair.
Expr *pairvalue(WalkState &state, Expr *value)
{
    return resolve(state, value, takefrom(state, findblock(state.joinstart, value->label)));
}

// Closes the innermost conditional value and returns its condition.
Expr *takecondition(WalkState &state)
{
    if (!state.savedconds.empty()) {
        Expr *condition = conditionof(state.savedconds.back());
        state.savedconds.pop_back();
        return condition;
    }
    state.joinstate = join::none;
    state.pending = nullptr;
    return conditionof(state.joinstart);
}

// The end of a conditional value: the phi turns into a ?: in place.
void phivalue(WalkState &state, Expr *tree)
{
    Expr *otherwise = pairvalue(state, tree->right);
    Expr *value = pairvalue(state, tree->left);
    Expr *condition = takecondition(state);
    if (closescycle(state, tree, {condition, value, otherwise}))
        return;
    tree->op = op::conditional;
    tree->left = condition;
    tree->middle = value;
    tree->right = otherwise;
}

// A loop of one block: it branches to the next block on true and to itself on false.
bool isloop(const WalkState &state, const Expr *tree)
{
    const Block *block = state.block;
    if (!block->label || tree->right->label != block->label || !endsin(block, inst::other_branch))
        return false;
    const Expr *pair = branchpair(block->last);
    return block->next && pair->true_label == block->next->label && pair->false_label == block->label;
}

// { type p; for (p = init; !done; p = step) {
void outloophead(const Expr *variable, Expr *init, Expr *done, Expr *step)
{
    outline("{");
    outindent();
    outdecl(variable->value, variable->type);
    outtext(";\n");
    outindent();
    outtext("for (");
    outtext(cname(nametext(variable->value)));
    outtext(" = ");
    outexpr(init, false);
    outtext("; !");
    outexpr(done, true);
    outtext("; ");
    outtext(cname(nametext(variable->value)));
    outtext(" = ");
    outexpr(step, false);
    outtext(")\n");
    openbrace();
}

void philoop(WalkState &state, Expr *tree)
{
    if (!isloop(state, tree))
        report("unexpected direct phi construct %s", state.block->label ? state.block->label->text : nullptr);
    Expr *init = tree->left;
    Expr *step = tree->right;
    tree->op = op::leaf;
    tree->leaf = leaf::name;
    tree->value = state.inst->name;
    init = resolve(state, init, findblock(state.firstblock, init->label));
    step = resolve(state, step, findblock(state.firstblock, step->label));
    Inst *last = state.block->last;
    outloophead(tree, init, last->expr, step);
    last->op = inst::loop_close;
}

// Whether the tree of a phi still holds its pairs. The phi can be the last Inst of an empty block after it; preparing
// that for another phi has overwritten the tree.
bool holdspairs(const Expr *tree)
{
    return tree && tree->right && tree->right->label && tree->left && tree->left->label;
}

}  // namespace

void handlephi(WalkState &state)
{
    Expr *tree = state.inst->expr;
    if (!holdspairs(tree))
        report("unexpected direct phi construct %s", state.block->label ? state.block->label->text : nullptr);
    else if (state.joinstate == join::none)
        philoop(state, tree);
    else if (iskind(tree->type, kind::boolean))
        phichain(state, tree);
    else
        phivalue(state, tree);
}

void handleloopclose(WalkState &state)
{
    closebrace();
    outline("}");
    state.inst = nullptr;
}
