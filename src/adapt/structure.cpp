// The graph of nodes becomes a tree of statements, along the dominator tree.
//
// A node with one predecessor is written where the branch to it stands. A node with more (a join) is written after the
// statement that all of them are in: after its immediate dominator, the joins of one dominator in the order of the
// graph. An edge to what follows in the text anyway is nothing, one to the end or the next round of the innermost loop
// or switch is break or continue, and any other a goto. So each node is written once and each edge is kept, whatever
// the graph looks like; the labels of the front end only choose between forms that mean the same.
//
//     b: br c, t, j    t: br j      becomes    b; if (c) { t }  j
//     h: br c, x, f    x: br h      becomes    while (c) { x }  f
#include "adapt/tree.h"
#include "frontend/frontend.h"

#include <algorithm>
#include <cassert>

namespace adapt {

namespace {

constexpr std::uint32_t deepest_nesting = 5000;  // what is deeper is written at the end of the function, behind a label

using Stmts = std::vector<Stmt *>;

// What surrounds a piece of text.
struct Scope {
    Node *next = nullptr;             // what comes after it in the text
    Node *break_target = nullptr;     // where break leads; null outside of loops and switches
    Node *continue_target = nullptr;  // where continue leads
    bool has_break = false;
    std::uint32_t depth = 0;
};

struct Walk {
    Tree &tree;
    std::vector<Node *> deferred;                       // written at the end of the function, behind their labels
    std::unordered_map<const Node *, Stmts> continues;  // by where they lead
};

void writenodes(Walk &walk, Node *node, Stmts &out, Scope scope);

bool begins(const Node *node, std::string_view prefix)
{
    return node->block != nullptr && node->block->name.starts_with(prefix);
}

bool isnameless(const Node *node)
{
    return node->block == nullptr || node->block->name.empty();
}

Stmt *addstmt(Walk &walk, Stmts &out, StmtKind kind)
{
    Stmt *stmt = newstmt(walk.tree, kind);
    out.push_back(stmt);
    return stmt;
}

bool isjump(const Stmt *stmt)
{
    switch (stmt->kind) {
    case StmtKind::break_:
    case StmtKind::continue_:
    case StmtKind::return_:
    case StmtKind::goto_:
    case StmtKind::unreachable:
        return true;
    default:
        return false;
    }
}

// True if nothing after these statements is reached from them.
bool leaves(const Stmts &stmts)
{
    return !stmts.empty() && isjump(stmts.back());
}

// ---- Edges ----

// A node that only leads on.
bool isempty(const Node *node)
{
    return node->exit == Exit::jump && node->statements.empty() && !node->is_header && !node->is_set_apart;
}

// A return or an unreachable end that may be written at each edge to it.
bool isshortend(const Node *node)
{
    if (!node->statements.empty()) {
        return false;
    }
    return node->exit == Exit::unreachable ||
           (node->exit == Exit::return_ && (node->result == nullptr || node->result->size <= 4));
}

void writeend(Walk &walk, const Node *node, Stmts &out)
{
    if (node->exit == Exit::unreachable) {
        addstmt(walk, out, StmtKind::unreachable);
        return;
    }
    Stmt *stmt = addstmt(walk, out, StmtKind::return_);
    stmt->value = node->result;
    stmt->origin = node->terminator;
}

// True if the edge needs no goto in this scope; writes what it needs.
bool writenearedge(Walk &walk, Node *target, Stmts &out, const Scope &scope)
{
    if (target == scope.next) {
        return true;
    }
    if (scope.has_break && target == scope.break_target) {
        addstmt(walk, out, StmtKind::break_)->target = target;
        return true;
    }
    if (scope.continue_target != nullptr && target == scope.continue_target) {
        Stmt *stmt = addstmt(walk, out, StmtKind::continue_);
        stmt->target = target;
        walk.continues[target].push_back(stmt);
        return true;
    }
    if (isshortend(target)) {
        writeend(walk, target, out);
        return true;
    }
    return false;
}

// True if the node is written where the one edge to it stands.
bool isinline(const Node *from, const Node *target)
{
    return target->preds.size() == 1 && target->dominator == from && !target->is_set_apart && !target->placed;
}

void writegoto(Walk &walk, Node *target, Stmts &out)
{
    target->labelled = true;
    addstmt(walk, out, StmtKind::goto_)->target = target;
}

// An edge to a node that isn't written here.
void writefaredge(Walk &walk, Node *target, Stmts &out, const Scope &scope)
{
    constexpr int most_hops = 16;
    assert(target != nullptr);
    for (int hop = 0; hop < most_hops; ++hop) {
        if (writenearedge(walk, target, out, scope)) {
            return;
        }
        if (!isempty(target) || target->preds.size() == 1) {
            break;
        }
        const Node *next = target->succs[0];
        if (next->preds.size() == 1 && !next->is_set_apart) {
            break;
        }
        target = target->succs[0];
    }
    writegoto(walk, target, out);
}

// The edge as an arm of a branch.
void writearm(Walk &walk, Node *from, Node *target, Stmts &out, Scope scope)
{
    if (!isinline(from, target)) {
        writefaredge(walk, target, out, scope);
        return;
    }
    if (writenearedge(walk, target, out, scope)) {
        target->placed = true;
        return;
    }
    ++scope.depth;
    if (scope.depth > deepest_nesting) {
        target->placed = true;
        walk.deferred.push_back(target);
        writegoto(walk, target, out);
        return;
    }
    writenodes(walk, target, out, scope);
}

// ---- Loops ----

struct Loop {
    Node *header = nullptr;
    Node *follow = nullptr;  // what is written after it; null: none
    Node *latch = nullptr;   // the origin of the only edge back, or null
    bool is_while = false;   // the header is nothing but the condition
    bool is_do = false;      // the latch is nothing but the condition
    bool has_step = false;   // the latch is the step
};

// What leaves the loop, of the nodes that its nodes dominate.
std::vector<Node *> exitsof(const Node *header)
{
    std::vector<Node *> exits;
    std::vector<const Node *> work = {header};
    while (!work.empty()) {
        const Node *node = work.back();
        work.pop_back();
        for (Node *child : node->children) {
            if (isinloop(child, header)) {
                work.push_back(child);
            } else if (!child->is_set_apart) {
                exits.push_back(child);
            }
        }
    }
    return exits;
}

Node *findnamed(const std::vector<Node *> &nodes, std::string_view prefix)
{
    Node *found = nullptr;
    for (Node *node : nodes) {
        if (begins(node, prefix) && (found == nullptr || node->index > found->index)) {
            found = node;
        }
    }
    return found;
}

Node *onlylatch(const Node *header)
{
    Node *latch = nullptr;
    for (Node *pred : header->preds) {
        if (!dominates(header, pred)) {
            continue;
        }
        if (latch != nullptr && latch != pred) {
            return nullptr;
        }
        latch = pred;
    }
    return latch;
}

bool contains(const std::vector<Node *> &nodes, const Node *node)
{
    return std::find(nodes.begin(), nodes.end(), node) != nodes.end();
}

// The exit of a branch whose other target goes on with the loop, or null.
Node *exitofbranch(const Node *node, const Node *header)
{
    if (node == nullptr || node->exit != Exit::branch) {
        return nullptr;
    }
    const bool first = isinloop(node->succs[0], header);
    const bool second = isinloop(node->succs[1], header);
    if (first == second) {
        return nullptr;
    }
    return first ? node->succs[1] : node->succs[0];
}

struct Ending {
    std::string_view head;
    std::string_view end;
    bool by_condition;  // the header tests, and leaves to the end
};

constexpr std::string_view for_cleanup = "for.cond.cleanup";  // what a for destroys when it ends

constexpr Ending endings[] = {
    {labels::for_cond, labels::for_end, true},
    {labels::while_cond, labels::while_end, true},
    {labels::while_body, labels::while_end, false},
    {labels::do_body, labels::do_end, false},
};

Node *choosefollow(const Loop &loop, const std::vector<Node *> &exits, const Scope &scope)
{
    Node *by_header = exitofbranch(loop.header, loop.header);
    for (const Ending &ending : endings) {
        if (!begins(loop.header, ending.head)) {
            continue;
        }
        if (by_header != nullptr && ending.by_condition &&
            (begins(by_header, ending.end) || begins(by_header, for_cleanup))) {
            return contains(exits, by_header) ? by_header : nullptr;
        }
        Node *by_latch = exitofbranch(loop.latch, loop.header);
        if (by_latch != nullptr && begins(by_latch, ending.end)) {
            return contains(exits, by_latch) ? by_latch : nullptr;
        }
        return findnamed(exits, ending.end);
    }
    for (Node *exit : {by_header, exitofbranch(loop.latch, loop.header)}) {
        if (exit != nullptr) {
            return contains(exits, exit) || exit == scope.next ? exit : nullptr;
        }
    }
    Node *joined = nullptr;
    for (Node *exit : exits) {
        if (exit->preds.size() > 1 && (joined == nullptr || exit->order < joined->order)) {
            joined = exit;
        }
    }
    return joined;
}

bool isstep(const Stmt *stmt)
{
    return stmt->kind == StmtKind::expression || stmt->kind == StmtKind::store || stmt->kind == StmtKind::set;
}

// The statements of a latch that are written in the head of a for.
bool cansteps(const Node *latch)
{
    constexpr std::size_t most_steps = 6;
    return latch->exit == Exit::jump && latch->statements.size() <= most_steps && latch->phis.empty() &&
           std::all_of(latch->statements.begin(), latch->statements.end(), isstep);
}

Loop describeloop(Node *header, const Scope &scope)
{
    Loop loop;
    loop.header = header;
    loop.latch = onlylatch(header);
    const std::vector<Node *> exits = exitsof(header);
    loop.follow = choosefollow(loop, exits, scope);
    const Node *end = loop.follow != nullptr ? loop.follow : scope.next;
    loop.is_while = exitofbranch(header, header) == end && end != nullptr && header->statements.empty() &&
                    !begins(header, labels::do_body);
    if (loop.latch == nullptr || loop.latch == header) {
        return loop;
    }
    loop.has_step = cansteps(loop.latch) &&
                    (begins(loop.latch, labels::for_inc) ||
                     (isnameless(loop.latch) && loop.latch->preds.size() > 1 && !loop.latch->statements.empty()));
    loop.is_do = !loop.is_while && (isnameless(header) || begins(header, labels::do_body)) && end != nullptr &&
                 loop.latch->statements.empty() && exitofbranch(loop.latch, header) == end;
    return loop;
}

Expr *conditionof(Walk &walk, const Node *node, const Node *yes)
{
    return node->succs[0] == yes ? node->result : negate(walk.tree, node->result);
}

// `do { body; if (c) break; } while (1)` is the same as `do { body } while (!c)` when nothing continues.
void makedo(Walk &walk, Stmt *loop, const Node *header)
{
    if ((!begins(header, labels::do_body) && !isnameless(header)) || loop->kind != StmtKind::for_ ||
        !loop->step.empty() || loop->condition != nullptr || loop->body.empty()) {
        return;
    }
    const Stmt *last = loop->body.back();
    const bool ends = last->kind == StmtKind::if_ && last->other.empty() && last->body.size() == 1 &&
                      last->body[0]->kind == StmtKind::break_;
    const auto found = walk.continues.find(header);
    if (!ends || (found != walk.continues.end() && !found->second.empty())) {
        return;
    }
    loop->kind = StmtKind::do_;
    loop->condition = negate(walk.tree, last->condition);
    loop->body.pop_back();
}

// A goto leads to the step or the condition of the loop: it stands at the end of the body then, behind its label.
void unfoldlatch(Walk &walk, Stmt *loop, Node *latch)
{
    for (Stmt *stmt : walk.continues[latch]) {
        stmt->kind = StmtKind::goto_;
    }
    Stmt *label = newstmt(walk.tree, StmtKind::label);
    label->target = latch;
    latch->has_label = true;
    loop->body.push_back(label);
    loop->body.insert(loop->body.end(), loop->step.begin(), loop->step.end());
    loop->step.clear();
}

// Writes the loop; what follows it is left to the caller.
Node *writeloop(Walk &walk, Node *header, Stmts &out, const Scope &scope)
{
    const Loop loop = describeloop(header, scope);
    Stmt *stmt = addstmt(walk, out, StmtKind::for_);
    Scope inner;
    inner.depth = scope.depth + 1;
    inner.has_break = true;
    inner.break_target = loop.follow != nullptr ? loop.follow : scope.next;
    const bool apart = loop.has_step || loop.is_do;
    inner.continue_target = apart ? loop.latch : header;
    inner.next = inner.continue_target;
    if (loop.follow != nullptr && loop.follow != scope.next) {
        loop.follow->is_set_apart = true;
    }
    if (apart) {
        loop.latch->is_set_apart = true;
        loop.latch->placed = true;
    }
    if (loop.has_step) {
        stmt->step = loop.latch->statements;
    }
    if (loop.is_while) {
        Node *body = exitofbranch(header, header) == header->succs[0] ? header->succs[1] : header->succs[0];
        stmt->condition = conditionof(walk, header, body);
        stmt->kind = begins(header, labels::for_cond) || loop.has_step ? StmtKind::for_ : StmtKind::while_;
        stmt->origin = header->terminator;
    } else if (loop.is_do) {
        stmt->kind = StmtKind::do_;
        stmt->condition = conditionof(walk, loop.latch, header);
        stmt->origin = loop.latch->terminator;
    }
    header->opened = loop.is_while ? Opened::tested : Opened::entered;
    writenodes(walk, header, stmt->body, inner);
    if (apart && loop.latch->labelled) {
        unfoldlatch(walk, stmt, loop.latch);
    }
    makedo(walk, stmt, header);
    return loop.follow != scope.next ? loop.follow : nullptr;
}

// ---- Switches ----

struct Group {
    Node *target = nullptr;
    std::vector<Value *> cases;
    bool is_default = false;
};

// The targets of a switch, each once, in the order of the input, with the cases that lead there. Joins of the switch
// that stand between them in the input are among them, without cases.
std::vector<Group> casegroups(const Node *node, const Node *follow)
{
    std::vector<Group> groups;
    std::unordered_map<const Node *, std::size_t> places;
    const auto groupof = [&](Node *target) -> Group & {
        const auto [place, added] = places.emplace(target, groups.size());
        if (added) {
            groups.push_back({target, {}, false});
        }
        return groups[place->second];
    };
    for (std::size_t place = 1; place < node->succs.size(); ++place) {
        groupof(node->succs[place]).cases.push_back(node->cases[place - 1]);
    }
    groupof(node->succs[0]).is_default = true;
    for (Node *child : node->children) {
        if (child != follow && !child->is_set_apart && !child->placed &&
            (follow == nullptr || child->index < follow->index)) {
            groupof(child);
        }
    }
    std::stable_sort(groups.begin(), groups.end(),
                     [](const Group &a, const Group &b) { return a.target->index < b.target->index; });
    return groups;
}

Node *switchfollow(const Node *node, Node *next)
{
    std::vector<Node *> candidates;
    for (Node *child : node->children) {
        if (!child->is_set_apart && !child->placed) {
            candidates.push_back(child);
        }
    }
    if (Node *named = findnamed(candidates, labels::switch_end); named != nullptr) {
        return named;
    }
    if (begins(node->succs[0], labels::switch_default)) {
        return nullptr;  // no way leads to the end
    }
    Node *last = nullptr;
    for (Node *child : candidates) {
        const bool joins = child->preds.size() > 1 && child != next;
        if (joins && (last == nullptr || child->order > last->order)) {
            last = child;
        }
    }
    return last;
}

// Returns what follows the switch, if it is to be written then.
Node *writeswitch(Walk &walk, Node *node, Stmts &out, const Scope &scope)
{
    Node *follow = switchfollow(node, scope.next);
    if (follow != nullptr) {
        follow->is_set_apart = true;
    }
    Node *end = follow != nullptr ? follow : scope.next;
    Stmt *stmt = addstmt(walk, out, StmtKind::switch_);
    stmt->value = node->result;
    stmt->origin = node->terminator;
    Scope inner = scope;
    ++inner.depth;
    inner.has_break = true;
    inner.break_target = end;
    const std::vector<Group> groups = casegroups(node, follow);
    for (std::size_t place = 0; place < groups.size(); ++place) {
        const Group &group = groups[place];
        if (group.is_default && group.cases.empty() &&
            (group.target == end || (group.target->exit == Exit::unreachable && group.target->statements.empty()))) {
            continue;
        }
        if (group.is_default || !group.cases.empty()) {
            Stmt *label = addstmt(walk, stmt->body, StmtKind::case_);
            label->cases = group.cases;
            label->is_default = group.is_default;
        }
        inner.next = end;
        const bool here = group.target != follow && group.target->dominator == node && !group.target->is_set_apart &&
                          !group.target->placed;
        for (std::size_t later = place + 1; later < groups.size(); ++later) {
            const Node *target = groups[later].target;
            if (target->dominator == node && !target->is_set_apart && !target->placed) {
                inner.next = groups[later].target;
                break;
            }
        }
        if (!here) {
            const Node *fallthrough = inner.next;
            inner.next = group.target == fallthrough ? inner.next : nullptr;
            writefaredge(walk, group.target, stmt->body, inner);
        } else if (inner.depth > deepest_nesting) {
            group.target->placed = true;
            walk.deferred.push_back(group.target);
            writegoto(walk, group.target, stmt->body);
        } else {
            writenodes(walk, group.target, stmt->body, inner);
        }
        const bool last = place + 1 == groups.size();
        const bool bare = !stmt->body.empty() && stmt->body.back()->kind == StmtKind::case_;
        if (inner.next == end && (bare || (!last && !leaves(stmt->body)))) {
            addstmt(walk, stmt->body, StmtKind::break_)->target = end;
        }
    }
    return follow;
}

// ---- Sequences ----

// Writes the branch. Returns the target that the caller goes on with, or null: an arm that leaves has no else.
Node *writebranch(Walk &walk, Node *node, Stmts &out, const Scope &scope)
{
    Stmt *stmt = addstmt(walk, out, StmtKind::if_);
    stmt->origin = node->terminator;
    stmt->condition = node->result;
    Node *yes = node->succs[0];
    Node *no = node->succs[1];
    if (node->opened == Opened::entered && isinline(node, yes) && !isinline(node, no)) {  // a loop is left first
        writearm(walk, node, no, stmt->body, scope);
        if (leaves(stmt->body)) {
            stmt->condition = negate(walk.tree, stmt->condition);
            return yes;
        }
        stmt->body.swap(stmt->other);
    }
    Scope inner = scope;
    // What the front end calls the end of an if is no else: the first arm leaves.
    if (begins(no, labels::if_end) && isinline(node, no) && scope.next != nullptr &&
        (scope.next == scope.continue_target || (scope.has_break && scope.next == scope.break_target) ||
         isshortend(scope.next))) {
        inner.next = nullptr;
    }
    writearm(walk, node, yes, stmt->body, inner);
    if (leaves(stmt->body) && stmt->other.empty()) {
        return no;
    }
    if (stmt->other.empty()) {
        writearm(walk, node, no, stmt->other, scope);
    }
    if (stmt->body.empty() && !stmt->other.empty()) {
        stmt->condition = negate(walk.tree, stmt->condition);
        stmt->body.swap(stmt->other);
    }
    return nullptr;
}

// The joins that a node dominates, the last one first.
void pushjoins(const Node *node, std::vector<Node *> &later)
{
    std::vector<Node *> joins;
    for (Node *child : node->children) {
        if (child->preds.size() > 1 && !child->is_set_apart && !child->placed) {
            joins.push_back(child);
        }
    }
    std::sort(joins.begin(), joins.end(), [](const Node *a, const Node *b) { return a->order > b->order; });
    later.insert(later.end(), joins.begin(), joins.end());
}

// A piece of straight text: nodes one after the other.
struct Sequence {
    std::vector<Node *> later;  // joins that are still to be written, the next one last
};

Scope scopewithin(const Sequence &sequence, const Scope &scope)
{
    Scope inner = scope;
    if (!sequence.later.empty()) {
        inner.next = sequence.later.back();
    }
    return inner;
}

// Writes the exit of a node. Returns the node to go on with here, or null.
Node *writeexit(Walk &walk, Node *node, Stmts &out, Sequence &sequence, const Scope &scope)
{
    if (node->exit == Exit::return_ || node->exit == Exit::unreachable) {
        writeend(walk, node, out);
        return nullptr;
    }
    if (node->exit == Exit::switch_) {
        Node *follow = writeswitch(walk, node, out, scopewithin(sequence, scope));
        if (follow != nullptr) {
            follow->is_set_apart = false;
            pushjoins(node, sequence.later);  // those that stand after it in the input
            std::erase(sequence.later, follow);
        }
        return follow;
    }
    pushjoins(node, sequence.later);
    const Scope inner = scopewithin(sequence, scope);
    Node *target = node->succs[0];
    if (node->exit == Exit::branch && node->opened == Opened::tested) {
        target = isinloop(node->succs[0], node) ? node->succs[0] : node->succs[1];
    } else if (node->exit == Exit::branch) {
        target = writebranch(walk, node, out, inner);
        if (target == nullptr) {
            return nullptr;
        }
    }
    if (isinline(node, target)) {
        if (!writenearedge(walk, target, out, inner)) {
            return target;
        }
        target->placed = true;
        return nullptr;
    }
    writefaredge(walk, target, out, inner);
    return nullptr;
}

void writenodes(Walk &walk, Node *node, Stmts &out, Scope scope)
{
    Sequence sequence;
    while (node != nullptr) {
        Node *follow = nullptr;
        if (node->opened == Opened::no) {
            node->placed = true;
            if (node->preds.size() > 1 || node->labelled) {
                addstmt(walk, out, StmtKind::label)->target = node;
                node->has_label = true;
            }
        }
        if (node->is_header && node->opened == Opened::no) {
            follow = writeloop(walk, node, out, scopewithin(sequence, scope));
            if (follow != nullptr) {
                follow->is_set_apart = false;
            }
        } else {
            out.insert(out.end(), node->statements.begin(), node->statements.end());
            follow = writeexit(walk, node, out, sequence, scope);
        }
        if (follow == nullptr && !sequence.later.empty()) {
            follow = sequence.later.back();
            sequence.later.pop_back();
            while (follow != nullptr && follow->placed) {
                follow = sequence.later.empty() ? nullptr : sequence.later.back();
                if (follow != nullptr) {
                    sequence.later.pop_back();
                }
            }
        }
        node = follow;
    }
}

// A jump to a node that only leads on, and that nothing else leads to, goes where that node goes.
void skipempty(Tree &tree)
{
    std::unordered_map<const Node *, std::size_t> preds;
    for (const Node &node : tree.nodes) {
        for (const Node *succ : node.succs) {
            ++preds[succ];
        }
    }
    for (Node &node : tree.nodes) {
        while (node.exit == Exit::jump && !node.removed) {
            Node *next = node.succs[0];
            if (next == &node || next->exit != Exit::jump || !next->statements.empty() || preds[next] != 1 ||
                begins(next, labels::for_inc)) {
                break;
            }
            node.succs[0] = next->succs[0];
            next->removed = true;
            next->succs.clear();
        }
    }
}

}  // namespace

void structure(Tree &tree)
{
    skipempty(tree);
    std::vector<Node *> order;
    analyse(tree, order);
    Walk walk = {tree, {}, {}};
    writenodes(walk, order.front(), tree.body, {});
    for (std::size_t place = 0; place < walk.deferred.size(); ++place) {
        writenodes(walk, walk.deferred[place], tree.body, {});
    }
    for (const Node *node : order) {
        if (node->labelled && !node->has_label) {
            refuse(*tree.function, node->terminator, "control flow nests too deeply");
        }
    }
}

}  // namespace adapt
