// Order, dominators and loops of the nodes.
//
// Dominators by semidominators with path compression, so in almost linear time. A loop is a node that dominates the
// origin of an edge to it, with all that reaches that edge; other cycles are none, and their edges become gotos.
#include "adapt/tree.h"

#include <algorithm>

namespace adapt {

namespace {

struct Visit {
    Node *node;
    std::size_t next;
};

// Reverse postorder of what the entry reaches, with the predecessors. The last successor is visited first, so that the
// first one comes first in the order.
void orderednodes(Tree &tree, std::vector<Node *> &order)
{
    const std::uint32_t stamp = ++tree.stamp;
    std::vector<Visit> stack;
    Node *entry = &tree.nodes.front();
    entry->mark = stamp;
    stack.push_back({entry, 0});
    while (!stack.empty()) {
        Visit &top = stack.back();
        const std::vector<Node *> &succs = top.node->succs;
        if (top.next == succs.size()) {
            order.push_back(top.node);
            stack.pop_back();
            continue;
        }
        ++top.next;
        Node *succ = succs[succs.size() - top.next];
        succ->preds.push_back(top.node);
        if (succ->mark != stamp) {
            succ->mark = stamp;
            stack.push_back({succ, 0});
        }
    }
    std::reverse(order.begin(), order.end());
    for (std::size_t place = 0; place < order.size(); ++place) {
        order[place]->order = static_cast<std::uint32_t>(place);
    }
}

// The depth-first tree by numbers, and what the dominators are computed with.
struct Forest {
    std::vector<Node *> nodes;  // by number
    std::vector<std::uint32_t> parent;
    std::vector<std::uint32_t> ancestor;
    std::vector<std::uint32_t> label;
    std::vector<std::uint32_t> semi;
    std::vector<std::uint32_t> dominator;
    std::unordered_map<const Node *, std::uint32_t> number;
};

constexpr std::uint32_t none = 0xFFFFFFFFU;

void buildforest(Tree &tree, Forest &forest)
{
    struct Step {
        Node *node;
        std::uint32_t parent;
    };
    std::vector<Step> stack = {{&tree.nodes.front(), 0}};
    while (!stack.empty()) {
        const Step step = stack.back();
        stack.pop_back();
        if (forest.number.contains(step.node)) {
            continue;
        }
        const auto number = static_cast<std::uint32_t>(forest.nodes.size());
        forest.number.emplace(step.node, number);
        forest.nodes.push_back(step.node);
        forest.parent.push_back(step.parent);
        for (Node *succ : step.node->succs) {
            stack.push_back({succ, number});
        }
    }
    const std::size_t count = forest.nodes.size();
    forest.ancestor.assign(count, none);
    forest.dominator.assign(count, 0);
    for (std::uint32_t place = 0; place < count; ++place) {
        forest.label.push_back(place);
        forest.semi.push_back(place);
    }
}

// The number with the least semidominator on the linked path above v.
std::uint32_t evaluate(Forest &forest, std::uint32_t v)
{
    if (forest.ancestor[v] == none) {
        return v;
    }
    std::vector<std::uint32_t> path;
    std::uint32_t at = v;
    while (forest.ancestor[forest.ancestor[at]] != none) {
        path.push_back(at);
        at = forest.ancestor[at];
    }
    for (auto step = path.rbegin(); step != path.rend(); ++step) {
        const std::uint32_t above = forest.ancestor[*step];
        if (forest.semi[forest.label[above]] < forest.semi[forest.label[*step]]) {
            forest.label[*step] = forest.label[above];
        }
        forest.ancestor[*step] = forest.ancestor[above];
    }
    return forest.label[v];
}

void finddominators(Tree &tree)
{
    Forest forest;
    buildforest(tree, forest);
    for (auto w = static_cast<std::uint32_t>(forest.nodes.size()); w-- > 1;) {
        for (const Node *pred : forest.nodes[w]->preds) {
            const std::uint32_t u = evaluate(forest, forest.number.at(pred));
            forest.semi[w] = std::min(forest.semi[w], forest.semi[u]);
        }
        forest.ancestor[w] = forest.parent[w];
    }
    for (std::uint32_t w = 1; w < forest.nodes.size(); ++w) {
        std::uint32_t dominator = forest.parent[w];
        while (dominator > forest.semi[w]) {
            dominator = forest.dominator[dominator];
        }
        forest.dominator[w] = dominator;
        forest.nodes[w]->dominator = forest.nodes[dominator];
    }
}

// Numbers of a walk over the dominator tree, so that dominance is a comparison.
void numberdominators(Tree &tree, const std::vector<Node *> &order)
{
    for (Node *node : order) {
        if (node->dominator != nullptr) {
            node->dominator->children.push_back(node);
        }
    }
    std::vector<Visit> stack = {{&tree.nodes.front(), 0}};
    std::uint32_t clock = 0;
    stack.back().node->enter = clock++;
    while (!stack.empty()) {
        Visit &top = stack.back();
        if (top.next == top.node->children.size()) {
            top.node->leave = clock++;
            stack.pop_back();
            continue;
        }
        Node *child = top.node->children[top.next++];
        child->enter = clock++;
        stack.push_back({child, 0});
    }
}

// The outermost known loop that a node is in, or itself.
Node *outermost(Node *node)
{
    Node *top = node;
    while (top->outer_link != nullptr) {
        top = top->outer_link;
    }
    while (node != top) {
        Node *next = node->outer_link;
        node->outer_link = top;
        node = next;
    }
    return top;
}

// A label of the source: what leads back to it was a goto there, and stays one.
bool issourcelabel(const Node *node)
{
    return node->block != nullptr && !node->block->name.empty() &&
           node->block->name.find('.') == std::string_view::npos && node->order != 0;
}

// Inner loops come first, so that each is one node for the next.
void findloops(const std::vector<Node *> &order)
{
    for (auto place = order.size(); place-- > 0;) {
        Node *header = order[place];
        std::vector<Node *> work;
        for (Node *pred : header->preds) {
            if (dominates(header, pred) && !issourcelabel(header)) {
                header->is_header = true;
                work.push_back(pred);
            }
        }
        if (!header->is_header) {
            continue;
        }
        header->loop = header;
        while (!work.empty()) {
            Node *node = outermost(work.back());
            work.pop_back();
            if (node == header) {
                continue;
            }
            node->outer_link = header;
            if (node->is_header) {
                node->outer_loop = header;
            } else {
                node->loop = header;
            }
            work.insert(work.end(), node->preds.begin(), node->preds.end());
        }
    }
}

}  // namespace

bool dominates(const Node *a, const Node *b)
{
    return a->enter <= b->enter && b->leave <= a->leave;
}

Node *enclosing(const Node *header)
{
    return header->outer_loop;
}

bool isinloop(const Node *node, const Node *header)
{
    for (const Node *loop = node->loop; loop != nullptr; loop = enclosing(loop)) {
        if (loop == header) {
            return true;
        }
    }
    return false;
}

void analyse(Tree &tree, std::vector<Node *> &order)
{
    orderednodes(tree, order);
    finddominators(tree);
    numberdominators(tree, order);
    findloops(order);
}

}  // namespace adapt
