// Value substitution: a local operand is replaced by the tree of the Inst that defines it, so that a chain of
// three-address lines collapses into one nested expression while it is read.
//
//     %0 = load i16, i16* %i            the load is the leaf `i`
//     %inc = add i16 %0, 1              i + 1
//     store i16 %inc, i16* %i           i = i + 1
//     store i16 %0, i16* %j             %0 is used again after an increment: i++ replaces the store above
//   gives
//     j = i++;
//
// There is no data-flow analysis. Substitution relies on the shape of unoptimised code, in which every value has one
// use, except for the cases below. A tree is shared by its definition and its uses: a change of a node affects all of
// them.

#include "model/locals.h"
#include "model/model.h"

#include "base/base.h"
#include "frontend/frontend.h"

#include <charconv>
#include <string>

Name *unusedname(std::uint32_t number)
{
    return intern("_unused" + std::to_string(static_cast<std::int32_t>(number)) + "_");
}

Name *tempname(const Name *name)
{
    return intern(std::string("_temp").append(nametext(name)).append("_"));
}

namespace {

Expr *addressof(Expr *operand)
{
    Expr *address = newexpr(op::address, operand->type);
    address->left = operand;
    return address;
}

// ---- Further uses -----------------------------------------------------------------------------------------------

// Marks the first statement from `from` on as part of an expression: it prints nothing of its own any more.
Inst *absorbstatement(const Inst *from)
{
    Inst *statement = nextstatement(from);
    if (statement)
        statement->op = inst::absorbed;
    return statement;
}

// A further use of %inc or %dec is the new value: the assignment of the whole step replaces the operand. The trees of
// other named values are printed twice.
Expr *reusenamed(Inst *definition)
{
    if (!namebegins(definition->name, value_names::increment) && !namebegins(definition->name, value_names::decrement))
        return definition->expr;
    const Inst *statement = absorbstatement(definition);
    return statement ? statement->expr : definition->expr;
}

// Links `first` in before `definition`, for the walk through the block. The predecessor of a block's first Inst belongs
// to the block before, and its `next` stays null; case labels are not in the prev chain.
void linkbefore(Block *block, Inst *first, const Inst *definition)
{
    if (definition->prev && definition->prev->block == block) {
        definition->prev->next = first;
        return;
    }
    Ref<Inst> *link = &block->first;
    while (*link && (*link)->op == inst::case_label)
        link = &(*link)->next;
    if (*link == definition)
        *link = first;
}

// Moves the value of `definition` to a variable:
//     declaration of _tempN_, _tempN_ = tree, definition
// The node of the tree becomes the name, also in all uses read so far; a copy of the node is assigned.
Expr *movetotemporary(Inst *definition)
{
    Expr *tree = definition->expr;
    if (tree->op == op::leaf)
        return tree;
    definition->used = used::temporary;
    Expr *copy = newexpr(tree->op, tree->type);
    copy->left = tree->left;
    copy->value = tree->value;
    copy->right = tree->right;
    tree->op = op::leaf;
    tree->leaf = leaf::name;
    tree->value = tempname(definition->name);
    noterenamed(tree);

    Inst *assignment = newinst();
    assignment->op = inst::statement;
    assignment->used = used::temporary;
    assignment->expr = newexpr(op::assign, tree->type);
    assignment->expr->left = newexpr(op::leaf, tree->type);
    assignment->expr->left->leaf = leaf::name;
    assignment->expr->left->value = tree->value;
    assignment->expr->right = copy;

    Inst *declaration = newinst();
    declaration->op = inst::local;
    declaration->name = tree->value;
    declaration->expr = newexpr(op::leaf, tree->type);

    Block *block = definition->block;
    declaration->block = block;
    assignment->block = block;
    declaration->prev = definition->prev;
    declaration->next = assignment;
    assignment->prev = declaration;
    assignment->next = definition;
    linkbefore(block, declaration, definition);
    definition->prev = assignment;
    noteinserted(declaration, assignment, definition);
    return tree;
}

// The direction of a pointer step, by its tree. Any other tree is reported.
std::uint8_t stepdirection(const Expr *step)
{
    while (isop(step, op::cast) || isop(step, op::address))
        step = step->left;
    if (isop(step, op::add) || isop(step, op::index))
        step = step->right;
    if (!isop(step, op::leaf)) {
        report("unexpected operator in postop\n");
        return op::increment;
    }
    const bool text = step->leaf != leaf::none && step->leaf != leaf::aggregate;
    return text && namebegins(step->value, "-") ? op::decrement : op::increment;
}

// The postfix operator that the Inst after a numbered definition stands for, by its name; 0 if it is no step.
std::uint8_t stepoperator(const Inst *step)
{
    if (!step || !step->name)
        return 0;
    if (namebegins(step->name, value_names::pointer_step))
        return stepdirection(step->expr);
    if (namebegins(step->name, value_names::increment))
        return op::increment;
    if (namebegins(step->name, value_names::decrement))
        return op::decrement;
    return 0;
}

// A further use of the value of `definition`.
Expr *postop(Inst *definition)
{
    Expr *tree = definition->expr;
    if (!isnumbered(definition->name))
        return reusenamed(definition);
    const std::uint8_t step = stepoperator(definition->next);
    if (!step)
        return movetotemporary(definition);
    if (!absorbstatement(definition->next))
        return tree;
    Expr *post = newexpr(step, tree->type);
    post->left = tree;
    return post;
}

// ---- The search -------------------------------------------------------------------------------------------------

// The newest Inst of a list up to `order`, or null. A phi that closes a loop is no definition any more.
Inst *newest(const ShortList<Inst> &insts, std::uint32_t order)
{
    Inst *const *at = upto(insts.begin(), insts.end(), order);
    while (at != insts.begin() && at[-1]->op == inst::loop_close)
        --at;
    return at == insts.begin() ? nullptr : at[-1];
}

bool isolder(const Inst *a, const Inst *b)
{
    return !a || (b && a->order < b->order);
}

// The newest store up to `order` that can be folded into a use of the stored local: it is after the last jump and after
// `definition`, and does not assign a thing to itself. Stores that can never be folded are skipped in later searches.
Inst *foldablestore(LocalName &local, const Inst *definition, std::uint32_t order)
{
    Inst *const *end = upto(local.stores.begin(), local.stores.end(), order);
    Inst *const *at = end;
    for (; at != local.stores.begin(); --at) {
        Inst *store = at[-1];
        if (!isolder(definition, store) || !nojumpbetween(store->order, order))
            break;
        if (store->op == inst::statement && !sameoperand(store->expr->left, store->expr->right)) {
            setaside(local, at, end);
            return store;
        }
    }
    setaside(local, at, end);
    return nullptr;
}

Expr *foldstore(Inst *store)
{
    store->op = inst::value;
    store->name = store->expr->value;
    store->used = used::folded;
    notefolded(store);
    return store->expr;
}

// A name that no Inst defines: a parameter, or the address of a thing outside the function.
Expr *undefinedlocal(Expr *operand)
{
    if (isnumbered(operand->value)) {
        operand->value = unusedname(number(nametext(operand->value)));
        return operand;
    }
    if (iskind(operand->type, kind::pointer) && isaggregate(operand->type->sub))
        return operand;
    return addressof(operand);
}

// The stack slot of the parameter that the operand names: its address where the operand was written with ".addr",
// else the parameter's value.
Expr *slotoperand(Expr *operand)
{
    if (!operand->slot)
        return operand;
    operand->slot = false;
    return addressof(operand);
}

}  // namespace

Expr *substitute(Expr *operand, Block *block)
{
    if (!isleaf(operand, leaf::local))
        return operand;
    operand->leaf = leaf::name;
    LocalName *local = findlocal(operand->value);
    if (!local || !block || !block->last)
        return undefinedlocal(operand);

    const std::uint32_t order = block->last->order;
    Inst *definition = newest(local->named, order);
    Inst *slot = newest(local->slots, order);
    const Inst *nearest = isolder(definition, slot) ? slot : definition;
    if (Inst *store = foldablestore(*local, nearest, order))
        return foldstore(store);
    if (!nearest)
        return undefinedlocal(operand);
    if (nearest == slot)
        return slotoperand(operand);
    // A dynamic array's name is a pointer already.
    if (definition->op == inst::local)
        return definition->expr->op == op::leaf ? addressof(operand) : operand;
    if (definition->used == used::folded)
        return postop(definition);
    definition->used = used::folded;
    return definition->expr;
}
