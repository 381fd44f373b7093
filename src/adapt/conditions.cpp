// Short-circuit conditions and ?: come back from branches.
//
// Nodes are visited in postorder, so what a branch leads to is folded before the branch itself. A branch and the branch
// that one of its targets consists of are one condition if they share a target:
//
//     b: br a, s, o      s: br c, t, o        becomes      b: br a && c, t, o
//
// and three more by the sides, where an operand is negated. A phi over a constant and such a target is the condition as
// a value, and a phi over two arms that only compute is a choice. The rest of the join then belongs to the node.
#include "adapt/tree.h"
#include "frontend/frontend.h"

#include <algorithm>

namespace adapt {

namespace {

using Kind = Condition::Kind;

constexpr std::size_t longest_arm = 64;  // instructions of one arm of a choice
constexpr std::uint32_t deepest_condition = 60;

Condition *newcondition(Tree &tree, Kind kind)
{
    Condition &condition = tree.conditions.emplace_back();
    condition.kind = kind;
    return &condition;
}

Condition *leaf(Tree &tree, Value *value)
{
    Condition *condition = newcondition(tree, Kind::leaf);
    condition->value = value;
    return condition;
}

// The condition that evaluates `right` after `left` and only if need be. `items` come right before `right`.
Condition *combine(Tree &tree, Kind kind, Condition *left, Condition *right, std::vector<Value *> items)
{
    const bool flat = right->kind == kind && !right->negated;
    Condition *whole = flat ? right : newcondition(tree, kind);
    whole->depth = std::max(left->depth, right->depth) + 1;
    whole->has_comma = left->has_comma || right->has_comma;
    if (flat) {
        whole->terms.back()->items = std::move(items);
    } else {
        right->items = std::move(items);
        whole->terms.push_back(right);
    }
    if (left->kind == kind && !left->negated) {
        whole->terms.insert(whole->terms.end(), left->terms.begin(), left->terms.end());
    } else {
        whole->terms.push_back(left);
    }
    return whole;
}

Incoming *incomingfrom(Phi &phi, const Node *from)
{
    const auto found =
        std::find_if(phi.incoming.begin(), phi.incoming.end(), [=](const Incoming &pair) { return pair.from == from; });
    return found == phi.incoming.end() ? nullptr : &*found;
}

bool samevalue(const Value *a, const Value *b)
{
    if (a == b) {
        return true;
    }
    return a->kind == ValueKind::integer && b->kind == ValueKind::integer && a->type == b->type &&
           a->number == b->number;
}

// True if all phis of `node` take the same from both, or nothing from one.
bool takessame(Node *node, const Node *one, const Node *other)
{
    return std::all_of(node->phis.begin(), node->phis.end(), [=](Phi &phi) {
        const Incoming *a = incomingfrom(phi, one);
        const Incoming *b = incomingfrom(phi, other);
        return a == nullptr || b == nullptr || samevalue(a->value, b->value);
    });
}

// What came from `from` comes from `to` now.
void moveincoming(Node *node, const Node *from, Node *to)
{
    for (Phi &phi : node->phis) {
        Incoming *pair = incomingfrom(phi, from);
        if (pair == nullptr) {
            continue;
        }
        if (incomingfrom(phi, to) != nullptr) {
            phi.incoming.erase(phi.incoming.begin() + (pair - phi.incoming.data()));
        } else {
            pair->from = to;
        }
    }
}

// A node that only its one predecessor leads to, without phis.
bool isarm(const Node *node, const Node *pred)
{
    return node != pred && node->pred_count == 1 && node->phis.empty();
}

bool isshortcircuit(const Node *node)
{
    return node->block != nullptr &&
           (node->block->name.starts_with(labels::logical_and) || node->block->name.starts_with(labels::logical_or));
}

void removenode(Node *node)
{
    node->removed = true;
    node->succs.clear();
}

// Both branch, and share a target.
bool foldbranches(Tree &tree, Node *b, std::size_t side)
{
    Node *s = b->succs[side];
    Node *o = b->succs[1 - side];
    if (!isarm(s, b) || s->exit != Exit::branch || s == o) {
        return false;
    }
    const std::size_t shared = s->succs[0] == o ? 0 : 1;
    if (s->succs[shared] != o || s->succs[1 - shared] == o || !takessame(o, b, s) ||
        s->condition->depth > deepest_condition) {
        return false;
    }
    const Fit fit = fitexpression(tree, s->items, firstvalue(s->condition));
    if (fit == Fit::no || (fit == Fit::comma && !isshortcircuit(s))) {
        return false;
    }
    s->condition->has_comma = s->condition->has_comma || fit == Fit::comma;
    Node *t = s->succs[1 - shared];
    // o is reached when b goes there, or s does: an "or" if s shares on true.
    const Kind kind = shared == 0 ? Kind::any : Kind::all;
    const bool negate = (kind == Kind::any) == (side == 0);
    b->condition->negated = b->condition->negated != negate;
    b->condition = combine(tree, kind, b->condition, s->condition, std::move(s->items));
    moveincoming(o, s, b);
    moveincoming(t, s, b);
    b->succs = shared == 0 ? std::vector<Node *>{o, t} : std::vector<Node *>{t, o};
    --o->pred_count;
    removenode(s);
    return true;
}

// True if the condition can be a part of a larger expression.
bool maynest(const Condition *condition)
{
    return !condition->has_comma && condition->depth <= deepest_condition;
}

bool ischoicearm(Tree &tree, const Node *arm)
{
    return maynest(arm->condition) && fitexpression(tree, arm->items, firstvalue(arm->condition)) == Fit::plain;
}

// `b: br a, s1, s2` where both branch to the same two nodes.
bool foldchoice(Tree &tree, Node *b)
{
    Node *one = b->succs[0];
    Node *two = b->succs[1];
    if (!isarm(one, b) || !isarm(two, b) || one->exit != Exit::branch || two->exit != Exit::branch || one == two) {
        return false;
    }
    Node *t = one->succs[0];
    Node *f = one->succs[1];
    const bool crossed = two->succs[0] == f && two->succs[1] == t;
    if ((!crossed && (two->succs[0] != t || two->succs[1] != f)) || t == f || t == one || t == two || f == one ||
        f == two || !takessame(t, one, two) || !takessame(f, one, two) || !ischoicearm(tree, one) ||
        !ischoicearm(tree, two) || !maynest(b->condition)) {
        return false;
    }
    two->condition->negated = two->condition->negated != crossed;
    one->condition->items = std::move(one->items);
    two->condition->items = std::move(two->items);
    Condition *whole = newcondition(tree, Kind::choice);
    whole->terms = {b->condition, one->condition, two->condition};
    whole->depth = std::max({b->condition->depth, one->condition->depth, two->condition->depth}) + 1;
    b->condition = whole;
    b->succs = {t, f};
    for (Node *target : {t, f}) {
        moveincoming(target, one, b);
        moveincoming(target, two, b);
        --target->pred_count;
    }
    removenode(one);
    removenode(two);
    return true;
}

// The join goes on where b ends.
void takejoin(Node *b, Node *join)
{
    b->items.insert(b->items.end(), join->items.begin(), join->items.end());
    b->exit = join->exit;
    b->condition = join->condition;
    b->value = join->value;
    b->terminator = join->terminator;
    b->cases = std::move(join->cases);
    b->succs = join->succs;
    for (Node *succ : b->succs) {
        moveincoming(succ, join, b);
    }
    removenode(join);
}

// The only phi of the join, or null.
Phi *onlyphi(Node *join)
{
    return join->phis.size() == 1 ? &join->phis.front() : nullptr;
}

Folded *newfolded(Tree &tree, Phi *phi, Condition *condition)
{
    Folded &folded = tree.folded.emplace_back();
    folded.condition = condition;
    tree.folded_phis.emplace(phi->value, &folded);
    return &folded;
}

// `b: br a, s, j   s: br j   j: phi i1 [false, b], [c, s]`: a chain as a value.
bool foldflag(Tree &tree, Node *b, std::size_t side)
{
    Node *s = b->succs[side];
    Node *join = b->succs[1 - side];
    if (!isarm(s, b) || s->exit != Exit::jump || s->succs[0] != join || join->pred_count != 2 || join == b) {
        return false;
    }
    Phi *phi = onlyphi(join);
    if (phi == nullptr || !isinteger(phi->value->type, 1)) {
        return false;
    }
    const Incoming *direct = incomingfrom(*phi, b);
    const Incoming *computed = incomingfrom(*phi, s);
    if (direct == nullptr || computed == nullptr || direct->value->kind != ValueKind::integer ||
        !maynest(b->condition) || fitexpression(tree, s->items, computed->value) != Fit::plain) {
        return false;
    }
    const bool constant = direct->value->number != 0;
    const Kind kind = constant ? Kind::any : Kind::all;
    const bool negate = constant == (side == 0);
    b->condition->negated = b->condition->negated != negate;
    Condition *right = leaf(tree, computed->value);
    newfolded(tree, phi, combine(tree, kind, b->condition, right, std::move(s->items)));
    b->items.push_back(phi->value);
    removenode(s);
    takejoin(b, join);
    return true;
}

// True if an arm does nothing but compute `value`.
bool computes(Tree &tree, const Node *arm, Value *value)
{
    return arm->items.size() <= longest_arm && fitexpression(tree, arm->items, value) == Fit::plain;
}

// `b: br a, s1, s2   s1: br j   s2: br j   j: phi T [x, s1], [y, s2]`, where one arm may be the edge from b.
bool foldvalue(Tree &tree, Node *b)
{
    Node *one = b->succs[0];
    Node *two = b->succs[1];
    const bool has_one = isarm(one, b) && one->exit == Exit::jump;
    const bool has_two = isarm(two, b) && two->exit == Exit::jump;
    Node *join = nullptr;
    if (has_one && has_two && one->succs[0] == two->succs[0]) {
        join = one->succs[0];
    } else if (has_one && one->succs[0] == two) {
        join = two;
    } else if (has_two && two->succs[0] == one) {
        join = one;
    }
    if (join == nullptr || join == b || join->pred_count != 2 || one == two) {
        return false;
    }
    Phi *phi = onlyphi(join);
    // An emulated integer is passed by its address, which a choice doesn't have.
    const bool emulated = phi != nullptr && tree.function->module->emulate64 && isinteger(phi->value->type, 64);
    if (phi == nullptr || emulated || isaggregate(phi->value->type) || !maynest(b->condition)) {
        return false;
    }
    const Incoming *first = incomingfrom(*phi, one == join ? b : one);
    const Incoming *second = incomingfrom(*phi, two == join ? b : two);
    if (first == nullptr || second == nullptr || (one != join && !computes(tree, one, first->value)) ||
        (two != join && !computes(tree, two, second->value))) {
        return false;
    }
    Folded *folded = newfolded(tree, phi, b->condition);
    folded->is_choice = true;
    folded->true_value = first->value;
    folded->false_value = second->value;
    if (one != join) {
        folded->true_items = std::move(one->items);
        removenode(one);
    }
    if (two != join) {
        folded->false_items = std::move(two->items);
        removenode(two);
    }
    b->items.push_back(phi->value);
    takejoin(b, join);
    return true;
}

bool foldonce(Tree &tree, Node *b)
{
    if (b->exit != Exit::branch) {
        return false;
    }
    return foldbranches(tree, b, 0) || foldbranches(tree, b, 1) || foldflag(tree, b, 0) || foldflag(tree, b, 1) ||
           foldvalue(tree, b) || foldchoice(tree, b);
}

struct Visit {
    Node *node;
    std::size_t next;
};

std::vector<Node *> postorder(Tree &tree)
{
    std::vector<Node *> order;
    std::vector<Visit> stack;
    const std::uint32_t stamp = ++tree.stamp;
    Node *entry = &tree.nodes.front();
    entry->mark = stamp;
    stack.push_back({entry, 0});
    while (!stack.empty()) {
        Visit &top = stack.back();
        if (top.next == top.node->succs.size()) {
            order.push_back(top.node);
            stack.pop_back();
            continue;
        }
        Node *succ = top.node->succs[top.next++];
        if (succ->mark != stamp) {
            succ->mark = stamp;
            stack.push_back({succ, 0});
        }
    }
    return order;
}

}  // namespace

Value *firstvalue(const Condition *condition)
{
    while (condition->kind != Kind::leaf) {
        condition = condition->kind == Kind::choice ? condition->terms.front() : condition->terms.back();
    }
    return condition->value;
}

void foldconditions(Tree &tree)
{
    const std::vector<Node *> order = postorder(tree);
    tree.nodes.front().pred_count = 1;  // the way in
    for (const Node *node : order) {
        for (Node *succ : node->succs) {
            ++succ->pred_count;
        }
    }
    for (Node *node : order) {
        while (!node->removed && foldonce(tree, node)) {
        }
    }
}

}  // namespace adapt
