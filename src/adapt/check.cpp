// Compares the printed text, read back, with the graph of nodes that it was made of. Both are walked at once: a point
// of the text belongs to one point of the graph, and both do the same there and go on to points that belong together.
#include "adapt/check.h"
#include "adapt/readback.h"

#include <algorithm>
#include <limits>

namespace adapt {

namespace {

constexpr std::uint32_t endless = std::numeric_limits<std::uint32_t>::max();

// A point of the graph: a statement of the node, or its exit.
struct Point {
    const Node *node = nullptr;  // null: an empty loop
    std::size_t place = 0;

    bool operator==(const Point &) const = default;
};

struct Meeting {
    std::uint32_t step;
    Point point;
};

struct Checker {
    const Program &program;
    std::string &why;
    std::vector<std::uint32_t> settled;  // for each step: where it leads without doing anything, plus one
    std::vector<Point> points;           // of steps
    std::vector<bool> met;
    std::vector<const Node *> settled_nodes;  // by Node::order
    std::vector<std::uint8_t> node_states;    // 1: being followed, 2: settled
    std::vector<Meeting> work = {};
};

std::string placeof(const Point &point)
{
    if (point.node == nullptr) {
        return "an empty loop";
    }
    const Block *block = point.node->block;
    return "block '" + (block == nullptr ? std::string("between blocks") : std::string(block->name)) + "'";
}

bool differ(Checker &checker, const Point &point, std::string_view what)
{
    checker.why = std::string(what) + " of " + placeof(point) + " isn't what was printed";
    return false;
}

// ---- Points that do nothing ----

// The next step without an effect leads to, or null if this one has an effect.
bool passes(const Checker &checker, std::uint32_t at, std::uint32_t &next)
{
    const Step &step = checker.program.steps[at];
    switch (step.kind) {
    case StepKind::nothing:
        next = at + 1;
        return true;
    case StepKind::jump:
        next = checker.program.places[step.yes];
        return true;
    case StepKind::branch:
        next = checker.program.places[step.mark.number != 0 ? step.yes : step.no];
        return step.mark.is_constant;
    default:
        return false;
    }
}

std::uint32_t settle(Checker &checker, std::uint32_t at)
{
    constexpr std::uint32_t following = 1;
    std::vector<std::uint32_t> path;
    std::uint32_t result = at;
    for (;;) {
        std::uint32_t &known = checker.settled[result];
        if (known != 0) {
            result = known == following ? endless : known - 2;
            break;
        }
        std::uint32_t next = 0;
        if (!passes(checker, result, next)) {
            break;
        }
        known = following;
        path.push_back(result);
        result = next;
    }
    for (const std::uint32_t step : path) {
        checker.settled[step] = result == endless ? following : result + 2;
    }
    return result;
}

// The exit of a node that has only one way to go.
const Node *onlyway(const Node *node)
{
    if (node->exit == Exit::jump) {
        return node->succs[0];
    }
    if (node->exit == Exit::branch && node->result->kind == ExprKind::constant) {
        return node->succs[markof(node->result).number != 0 ? 0 : 1];
    }
    return nullptr;
}

Point settlenode(Checker &checker, const Node *node)
{
    std::vector<const Node *> path;
    for (;;) {
        const std::uint8_t state = checker.node_states[node->order];
        if (state != 0) {
            node = state == 1 ? nullptr : checker.settled_nodes[node->order];
            break;
        }
        const Node *next = node->statements.empty() ? onlyway(node) : nullptr;
        if (next == nullptr) {
            break;
        }
        checker.node_states[node->order] = 1;
        path.push_back(node);
        node = next;
    }
    for (const Node *passed : path) {
        checker.node_states[passed->order] = 2;
        checker.settled_nodes[passed->order] = node;
    }
    return {node, 0};
}

Point settlepoint(Checker &checker, const Point &point)
{
    const bool at_exit = point.node != nullptr && point.place == point.node->statements.size();
    const Node *next = at_exit ? onlyway(point.node) : nullptr;
    return next == nullptr ? point : settlenode(checker, next);
}

// ---- Exits ----

void meet(Checker &checker, std::uint32_t label, const Node *node)
{
    checker.work.push_back({settle(checker, checker.program.places[label]), settlenode(checker, node)});
}

bool checkbranch(Checker &checker, const Step &step, const Point &point)
{
    const Mark mark = markof(point.node->result);
    const bool same = step.mark.yes == mark.yes;
    if (!same && step.mark.yes != mark.no) {
        return differ(checker, point, "the condition");
    }
    meet(checker, step.yes, point.node->succs[same ? 0 : 1]);
    meet(checker, step.no, point.node->succs[same ? 1 : 0]);
    return true;
}

struct NodeCase {
    std::int64_t number;
    const Node *target;
};

bool checkswitch(Checker &checker, const Step &step, const Point &point)
{
    const Node *node = point.node;
    if (step.mark.yes != markof(node->result).yes) {
        return differ(checker, point, "the value of the switch");
    }
    std::vector<NodeCase> wanted;
    for (std::size_t place = 0; place < node->cases.size(); ++place) {
        wanted.push_back({signedvalue(node->cases[place]), node->succs[place + 1]});
    }
    std::vector<Case> cases = checker.program.cases[step.cases];
    std::sort(wanted.begin(), wanted.end(), [](const auto &a, const auto &b) { return a.number < b.number; });
    std::sort(cases.begin(), cases.end(), [](const auto &a, const auto &b) { return a.number < b.number; });
    if (cases.size() != wanted.size()) {
        return differ(checker, point, "the number of cases");
    }
    for (std::size_t place = 0; place < cases.size(); ++place) {
        if (cases[place].number != wanted[place].number) {
            return differ(checker, point, "a case");
        }
        meet(checker, cases[place].label, wanted[place].target);
    }
    meet(checker, step.yes, node->succs[0]);
    return true;
}

bool checkreturn(Checker &checker, const Step &step, const Point &point)
{
    const Expr *value = point.node->result;
    if (step.kind == StepKind::end) {
        return value == nullptr || differ(checker, point, "the return");
    }
    const bool fits = step.has_value == (value != nullptr) && (value == nullptr || step.mark.yes == markof(value).yes);
    return fits || differ(checker, point, "the return");
}

bool checkexit(Checker &checker, const Step &step, const Point &point)
{
    switch (point.node->exit) {
    case Exit::branch:
        return step.kind == StepKind::branch ? checkbranch(checker, step, point) : differ(checker, point, "the branch");
    case Exit::switch_:
        return step.kind == StepKind::switch_ ? checkswitch(checker, step, point)
                                              : differ(checker, point, "the switch");
    case Exit::return_:
        return step.kind == StepKind::return_ || step.kind == StepKind::end ? checkreturn(checker, step, point)
                                                                            : differ(checker, point, "the return");
    default:
        return true;
    }
}

// ---- The walk ----

// Whether the two points met before; as strangers to each other they mustn't.
bool known(Checker &checker, const Meeting &meeting, bool &fits)
{
    if (!checker.met[meeting.step]) {
        checker.met[meeting.step] = true;
        checker.points[meeting.step] = meeting.point;
        return false;
    }
    fits = checker.points[meeting.step] == meeting.point || differ(checker, meeting.point, "the way");
    return true;
}

bool isunreachable(const Point &point)
{
    return point.node != nullptr && point.node->exit == Exit::unreachable &&
           point.place == point.node->statements.size();
}

// From one meeting on to where the ways part.
bool follow(Checker &checker, Meeting meeting)
{
    for (;;) {
        if (isunreachable(meeting.point)) {
            return true;
        }
        if (meeting.step == endless || meeting.point.node == nullptr) {
            return (meeting.step == endless && meeting.point.node == nullptr) ||
                   differ(checker, meeting.point, "the end");
        }
        bool fits = true;
        if (known(checker, meeting, fits)) {
            return fits;
        }
        const Step &step = checker.program.steps[meeting.step];
        const Node *node = meeting.point.node;
        if (meeting.point.place == node->statements.size()) {
            return checkexit(checker, step, meeting.point);
        }
        if (step.kind != StepKind::leaf || step.mark.yes != markof(node->statements[meeting.point.place]).yes) {
            return differ(checker, meeting.point, "a statement");
        }
        meeting.step = settle(checker, meeting.step + 1);
        ++meeting.point.place;
        meeting.point = settlepoint(checker, meeting.point);
    }
}

}  // namespace

bool checkbody(const Tree &tree, const std::string &text, std::string &why)
{
    Program program;
    if (!readback(text, program, why)) {
        return false;
    }
    const std::size_t count = program.steps.size();
    Checker checker = {program,
                       why,
                       std::vector<std::uint32_t>(count),
                       std::vector<Point>(count),
                       std::vector<bool>(count),
                       std::vector<const Node *>(tree.nodes.size()),
                       std::vector<std::uint8_t>(tree.nodes.size())};
    checker.work.push_back({settle(checker, 0), settlenode(checker, &tree.nodes.front())});
    while (!checker.work.empty()) {
        const Meeting meeting = checker.work.back();
        checker.work.pop_back();
        if (!follow(checker, meeting)) {
            return false;
        }
    }
    return true;
}

}  // namespace adapt
