// Loops whose conditions hold statements. quarl writes the condition of a while or for as one expression in its head,
// and everything in the blocks of the condition that is no part of that expression in front of the loop, where it runs
// once. That is a statement, such as the keeping of a value that is used twice:
//
//     while (p->port->ready()) ...     calls by the table of p->port, and hands p->port over
//
// The same goes for what is no expression in the steps of a for. Such loops are said as loops without a condition, with
// an if in the body that leaves them. A `continue` then has to be a goto: the label that it leads to loses its dot. And
// in a loop without a condition, it always has to be one.
#include "adapt/loops.h"

#include <algorithm>
#include <initializer_list>

namespace adapt {

namespace {

struct Loops {
    Module &module;
    Function &function;
    Blocks &blocks;
};

std::string_view op_of(const Tokens &tokens)
{
    const Instruction parts = find_parts(tokens);
    return parts.op == npos ? std::string_view() : tokens[parts.op].text;
}

bool is_result(const Tokens &tokens)
{
    return find_parts(tokens).result != npos;
}

const Value *value_of(const Function &function, std::string_view text)
{
    const auto found = function.values.find(text);
    return found == function.values.end() ? nullptr : &found->second;
}

bool is_step_name(std::string_view text)
{
    return begins(text, "inc") || begins(text, "dec");
}

// True if the line can't be part of an expression.
bool is_statement(const Loops &loops, const Tokens &tokens)
{
    const std::string_view op = op_of(tokens);
    if (op == "store") {
        const std::size_t at = behind_type(tokens, find_parts(tokens).op + 1);
        const Value *value = at < tokens.size() ? value_of(loops.function, tokens[at].text) : nullptr;
        return value == nullptr || (value->uses < 2 && !is_step_name(tokens[at].text));
    }
    if (op == "call" || op == "invoke") {
        const Value *value = is_result(tokens) ? value_of(loops.function, tokens[0].text) : nullptr;
        return value == nullptr || value->uses != 1;
    }
    return false;
}

bool holds_statements(const Loops &loops, const Block &block)
{
    return std::any_of(block.lines.begin(), block.lines.end(),
                       [&](const Line &line) { return is_statement(loops, line.tokens); });
}

// A block that leads on to the target.
Block make_way(Loops &loops, std::size_t number, std::string_view label, std::string_view target)
{
    return make_block(number, label, compose(loops.module, {"  br label ", target}));
}

// A label for a goto: without a dot, also where the function has several.
std::string_view goto_label(Loops &loops, const std::string &stem)
{
    return fresh_name(loops.module, loops.function, stem, '_');
}

void replace_in_block(Block &block, std::string_view from, std::string_view to)
{
    for (std::size_t place = terminator_of(block); place < block.lines.size(); ++place) {
        replace_local(block.lines[place].tokens, from, to);
    }
}

// Gives a label another name wherever it stands: in its line, in branches and in phis.
void rename_everywhere(Loops &loops, std::size_t place, std::string_view to)
{
    const std::string_view from = label_of(loops.module, loops.blocks.list[place]);
    for (Block &block : loops.blocks.list) {
        for (Line &line : block.lines) {
            replace_local(line.tokens, from, to);
        }
    }
    loops.blocks.list[place].label[0].text = to.substr(1);
}

void rename_in_phis(Loops &loops, std::string_view from, std::string_view to)
{
    for (Block &block : loops.blocks.list) {
        for (Line &line : block.lines) {
            if (op_of(line.tokens) == "phi") {
                replace_local(line.tokens, from, to);
            }
        }
    }
}

std::size_t count_branches(const Loops &loops, std::string_view label)
{
    std::size_t count = 0;
    for (const Block &block : loops.blocks.list) {
        for (const Token *target : targets_of(block)) {
            if (target->text == label) {
                ++count;
            }
        }
    }
    return count;
}

bool branches_to(const Block &block, std::string_view label)
{
    const std::vector<const Token *> targets = targets_of(block);
    return targets.size() == 1 && targets[0]->text == label;
}

void insert_block(Loops &loops, std::size_t place, Block block)
{
    loops.blocks.list.insert(loops.blocks.list.begin() + static_cast<std::ptrdiff_t>(place), std::move(block));
}

// The branch at the end of the condition becomes `if (!c) break;`. False if the blocks stand in another order.
bool leave_by_if(Loops &loops, std::size_t last)
{
    Block &head = loops.blocks.list[last];
    const std::vector<const Token *> targets = targets_of(head);
    const std::string_view body = targets[0]->text;
    const std::string_view out = targets[1]->text;
    const auto is_next = [&](std::size_t place, std::string_view label) {
        return place < loops.blocks.list.size() && label_of(loops.module, loops.blocks.list[place]) == label;
    };
    const bool cleanup = is_next(last + 1, out) && is_next(last + 2, body);
    if (!cleanup && !is_next(last + 1, body)) {
        return false;
    }
    const std::string_view leaving = fresh_name(loops.module, loops.function, "if.then");
    const std::string_view staying = fresh_name(loops.module, loops.function, "if.end");
    if (cleanup) {
        rename_everywhere(loops, last + 1, leaving);
        rename_everywhere(loops, last + 2, staying);
    } else {
        replace_in_block(head, out, leaving);
        rename_everywhere(loops, last + 1, staying);
        insert_block(loops, last + 1, make_way(loops, head.number, leaving, out));
    }
    return true;
}

void rewrite_while(Loops &loops, const Condition &condition)
{
    const std::string_view label = label_of(loops.module, loops.blocks.list[condition.first]);
    const std::string_view body = fresh_name(loops.module, loops.function, "while.body");
    const std::string_view again = goto_label(loops, "again");
    // The way in, and the way back from the end of the body, go by the loop itself.
    if (condition.first > 0) {
        replace_in_block(loops.blocks.list[condition.first - 1], label, body);
    }
    for (std::size_t place = condition.last + 1; place + 1 < loops.blocks.list.size(); ++place) {
        const bool end = begins(label_of(loops.module, loops.blocks.list[place + 1]), "while.end");
        if (end && branches_to(loops.blocks.list[place], label)) {
            replace_in_block(loops.blocks.list[place], label, body);
            break;
        }
    }
    const std::size_t number = loops.blocks.list[condition.first].number;
    rename_everywhere(loops, condition.first, again);
    insert_block(loops, condition.first, make_way(loops, number, body, again));
}

// The steps of a for stay behind its body; a continue leads to them by goto.
void detach_steps(Loops &loops, std::size_t place)
{
    rename_everywhere(loops, place, goto_label(loops, "next"));
}

void rewrite_for(Loops &loops, const Condition &condition)
{
    const std::string_view label = label_of(loops.module, loops.blocks.list[condition.first]);
    for (std::size_t place = condition.last + 1; place < loops.blocks.list.size(); ++place) {
        Block &block = loops.blocks.list[place];
        const std::string_view steps = label_of(loops.module, block);
        if (begins(steps, "for.inc") && branches_to(block, label)) {
            if (count_branches(loops, steps) > 1) {
                detach_steps(loops, place);
            }
            break;
        }
    }
    const std::string_view inner = fresh_name(loops.module, loops.function, "loop.head");
    const std::size_t number = loops.blocks.list[condition.first].number;
    loops.blocks.list[condition.first].label[0].text = inner.substr(1);
    rename_in_phis(loops, label, inner);
    Block block = make_way(loops, number, label, inner);
    insert_block(loops, condition.first, std::move(block));
}

void rewrite_condition(Loops &loops, const Condition &condition)
{
    const bool is_while = begins(label_of(loops.module, loops.blocks.list[condition.first]), "while.cond");
    if (!leave_by_if(loops, condition.last)) {
        loops.module.line = loops.blocks.list[condition.first].number;
        refuse(loops.module, "condition of a loop with statements in it");
        return;
    }
    if (is_while) {
        rewrite_while(loops, condition);
    } else {
        rewrite_for(loops, condition);
    }
}

bool needs_rewriting(const Loops &loops, const Condition &condition, const std::unordered_set<std::size_t> &difficult)
{
    for (std::size_t place = condition.first; place <= condition.last; ++place) {
        if (difficult.contains(loops.blocks.list[place].number) || holds_statements(loops, loops.blocks.list[place])) {
            return true;
        }
    }
    return false;
}

// The steps of a for that are no expressions can't stand in its head, and those of a do can't be skipped.
void detach_all_steps(Loops &loops, const std::unordered_set<std::size_t> &difficult)
{
    for (std::size_t place = 0; place < loops.blocks.list.size(); ++place) {
        const Block &block = loops.blocks.list[place];
        const std::string_view label = label_of(loops.module, block);
        const bool steps = begins(label, "for.inc");
        if (!steps && !begins(label, "do.cond")) {
            continue;
        }
        // The statements of a single block can stand in the head of a for.
        const bool hard = difficult.contains(block.number) ||
                          (steps ? targets_of(block).size() != 1 : holds_statements(loops, block));
        if (hard && (steps || count_branches(loops, label) > 1)) {
            detach_steps(loops, place);
        }
    }
}

// ---- Loops without a condition ----

// True if a block from `place` on leads back to it, by a branch of the given kind.
bool is_back_edge(const Block &block, std::string_view label, bool conditional)
{
    const std::vector<const Token *> targets = targets_of(block);
    return (targets.size() > 1) == conditional &&
           std::any_of(targets.begin(), targets.end(), [=](const Token *target) { return target->text == label; });
}

// The places of the blocks behind the label that lead back to it without a condition.
std::vector<std::size_t> back_edges(const Loops &loops, std::size_t place, bool conditional)
{
    const std::string_view label = label_of(loops.module, loops.blocks.list[place]);
    std::vector<std::size_t> edges;
    for (std::size_t from = place; from < loops.blocks.list.size(); ++from) {
        if (is_back_edge(loops.blocks.list[from], label, conditional)) {
            edges.push_back(from);
        }
    }
    return edges;
}

bool begins_one_of(std::string_view label, std::initializer_list<std::string_view> prefixes)
{
    return std::any_of(prefixes.begin(), prefixes.end(),
                       [=](std::string_view prefix) { return begins(label, prefix); });
}

// Whether the block behind the last one of a loop is its end: it has such a label, and a block of the loop leads there.
// Behind the last block of an inner loop that nothing leaves stands the end of the outer one.
bool ends_loop(const Loops &loops, std::size_t start, std::size_t last, std::initializer_list<std::string_view> labels)
{
    if (last + 1 == loops.blocks.list.size()) {
        return false;
    }
    const std::string_view label = label_of(loops.module, loops.blocks.list[last + 1]);
    if (!begins_one_of(label, labels)) {
        return false;
    }
    const auto leads_there = [=](const Block &block) {
        const std::vector<const Token *> targets = targets_of(block);
        return std::any_of(targets.begin(), targets.end(), [=](const Token *target) { return target->text == label; });
    };
    const auto first = loops.blocks.list.begin();
    return std::any_of(first + static_cast<std::ptrdiff_t>(start), first + static_cast<std::ptrdiff_t>(last) + 1,
                       leads_there);
}

// Whether the label opens a loop; the body of a while does if it has no condition in front.
bool opens_loop(const Loops &loops, std::string_view label, std::size_t first_source)
{
    if (begins(label, "while.body")) {
        return targets_of(loops.blocks.list[first_source]).size() == 1;
    }
    return begins_one_of(label, {"for.cond", "while.cond", "do.body"}) && !begins(label, "for.cond.cleanup");
}

// The end of the loop that starts at the block: the first end behind it that is not one of an inner loop, if only the
// loop leads to the blocks up to there. npos if nothing leaves the loop.
std::size_t find_end(const Loops &loops, std::size_t start)
{
    const auto label_at = [&](std::size_t place) { return label_of(loops.module, loops.blocks.list[place]); };
    std::unordered_map<std::string_view, std::size_t> sources;  // the first block that leads to a label
    for (std::size_t place = 0; place < loops.blocks.list.size(); ++place) {
        for (const Token *target : targets_of(loops.blocks.list[place])) {
            sources.emplace(target->text, place);
        }
    }
    std::size_t depth = 0;
    for (std::size_t place = start + 1; place < loops.blocks.list.size(); ++place) {
        const std::string_view label = label_at(place);
        const auto source = sources.find(label);
        const bool reached = source != sources.end();
        const bool ends = begins_one_of(label, {"for.end", "while.end", "do.end"});
        if (reached ? source->second < start : !ends && depth == 0) {
            return npos;  // a way from outside, or the condition of an outer loop that nothing leads to any more
        }
        if (ends && depth == 0) {
            return place;
        }
        if (ends) {
            --depth;
        } else if (reached && opens_loop(loops, label, source->second)) {
            ++depth;
        }
    }
    return npos;
}

// A loop without a condition that nothing leads back in. If nothing leaves it for its end, it is no loop, and its label
// loses its meaning. A break would be one out of nothing then, so otherwise the body gets an end that leads back.
// Returns whether it has.
bool add_way_back(Loops &loops, std::size_t start)
{
    const std::size_t end = find_end(loops, start);
    if (end == npos) {
        rename_everywhere(loops, start, fresh_name(loops.module, loops.function, "loop.once"));
        return false;
    }
    const std::string_view tail = fresh_name(loops.module, loops.function, "loop.tail");
    const std::string_view label = label_of(loops.module, loops.blocks.list[start]);
    insert_block(loops, end, make_way(loops, loops.blocks.list[end].number, tail, label));
    return true;
}

// `do ... while (1)` has no condition to write, and quarl would write 0. It becomes an endless while.
void rename_endless_do(Loops &loops, std::size_t place)
{
    if (!back_edges(loops, place, true).empty() ||
        (back_edges(loops, place, false).empty() && !add_way_back(loops, place))) {
        return;
    }
    const std::size_t last = back_edges(loops, place, false).back();
    rename_everywhere(loops, place, fresh_name(loops.module, loops.function, "while.body"));
    if (ends_loop(loops, place, last, {"do.end"})) {
        rename_everywhere(loops, last + 1, fresh_name(loops.module, loops.function, "while.end"));
    }
}

bool is_arm(std::string_view label)
{
    return begins_one_of(label, {"if.then", "if.else", "sw.bb", "sw.default"});
}

// If the last branch back is that of a `continue` in an if, and what follows leaves the loop or the function, the body
// has no end that leads back. It gets one, which nothing leads to. Inner loops hide which end is whose.
void add_end_of_body(Loops &loops, std::size_t start, std::size_t last)
{
    const auto label_at = [&](std::size_t place) { return label_of(loops.module, loops.blocks.list[place]); };
    if (last == start || !is_arm(label_at(last))) {
        return;
    }
    std::size_t end = last + 1;
    while (end < loops.blocks.list.size() && !begins_one_of(label_at(end), {"while.", "for.", "do."})) {
        ++end;
    }
    if (end == loops.blocks.list.size() || end == last + 1 || !begins_one_of(label_at(end), {"while.end", "for.end"})) {
        return;
    }
    const std::string_view tail = fresh_name(loops.module, loops.function, "loop.tail");
    insert_block(loops, end, make_way(loops, loops.blocks.list[end].number, tail, label_at(start)));
}

// A loop that nothing leaves but a return has no block behind it, and so nothing that closes its brace. It gets one.
// The last branch back has to be the end of the body: what follows a branch within an if would belong to the body.
void close_endless(Loops &loops, std::size_t start, std::size_t last)
{
    const std::size_t behind = last + 1;
    const bool empty = last == start && loops.blocks.list[start].lines.size() == 1;  // `for (;;) ;` has no brace
    if (empty || behind == loops.blocks.list.size() || ends_loop(loops, start, last, {"while.end", "for.end"})) {
        return;
    }
    const std::string_view from = label_of(loops.module, loops.blocks.list[last]);
    if (last != start && is_arm(from)) {
        loops.module.line = loops.blocks.list[start].number;
        refuse(loops.module, "endless loop whose body doesn't lead back at its end");
        return;
    }
    const std::string_view end = fresh_name(loops.module, loops.function, "while.end");
    insert_block(loops, behind, make_block(loops.blocks.list[last].number, end, lex("  unreachable")));
}

// A branch back to the start of an endless loop is written by nobody, as it should be at the end of the body. Those of
// a `continue` are made gotos to a label behind the start.
void rewrite_endless(Loops &loops, std::size_t place)
{
    const std::string_view label = label_of(loops.module, loops.blocks.list[place]);
    const bool is_for = begins(label, "for.cond");
    if (back_edges(loops, place, false).empty() && !add_way_back(loops, place)) {
        return;
    }
    add_end_of_body(loops, place, back_edges(loops, place, false).back());
    const std::vector<std::size_t> edges = back_edges(loops, place, false);
    const std::size_t last = edges.back();
    close_endless(loops, place, last);
    const bool steps = is_for && begins(label_of(loops.module, loops.blocks.list[last]), "for.inc");
    if (steps && count_branches(loops, label_of(loops.module, loops.blocks.list[last])) > 1) {
        detach_steps(loops, last);
    }
    if (edges.size() < 2) {
        return;
    }
    const std::string_view start = fresh_name(loops.module, loops.function, is_for ? "for.cond" : "while.body");
    const std::string_view again = goto_label(loops, "again");
    for (std::size_t from = 0; from < loops.blocks.list.size(); ++from) {
        if (from < place || from == last) {
            replace_in_block(loops.blocks.list[from], label, start);
        }
    }
    const std::size_t number = loops.blocks.list[place].number;
    rename_everywhere(loops, place, again);
    insert_block(loops, place, make_way(loops, number, start, again));
}

// How often each label is branched to without a condition.
std::unordered_map<std::string_view, std::size_t> count_ways(const Loops &loops)
{
    std::unordered_map<std::string_view, std::size_t> counts;
    for (const Block &block : loops.blocks.list) {
        if (const std::vector<const Token *> targets = targets_of(block); targets.size() == 1) {
            ++counts[targets[0]->text];
        }
    }
    return counts;
}

// With destructors around it, `while (true)` keeps a while.cond that only leads on to its body. The body takes its
// place.
void drop_empty_conditions(Loops &loops)
{
    Renames labels;
    std::vector<Block> list;
    for (Block &block : loops.blocks.list) {
        const std::string_view label = label_of(loops.module, block);
        const std::vector<const Token *> targets = targets_of(block);
        const bool empty = begins(label, "while.cond") && block.lines.size() == 1 && targets.size() == 1 &&
                           begins(targets[0]->text, "while.body");
        if (empty) {
            labels.emplace(label, targets[0]->text);
        } else {
            list.push_back(std::move(block));
        }
    }
    loops.blocks.list = std::move(list);
    rename_labels(loops.module, loops.blocks, labels);
}

void rewrite_endless_loops(Loops &loops)
{
    const std::unordered_map<std::string_view, std::size_t> ways = count_ways(loops);
    for (std::size_t place = loops.blocks.list.size(); place-- > 0;) {
        const std::string_view label = label_of(loops.module, loops.blocks.list[place]);
        if (begins(label, "do.body")) {
            rename_endless_do(loops, place);
        }
        if (!ways.contains(label)) {
            continue;  // the body of a loop with a condition
        }
        const bool endless_for = begins(label, "for.cond") && !begins(label, "for.cond.cleanup") &&
                                 find_condition(loops.module, loops.blocks, place).first == npos;
        if (begins(label_of(loops.module, loops.blocks.list[place]), "while.body") || endless_for) {
            rewrite_endless(loops, place);
        }
    }
}

}  // namespace

Condition find_condition(Module &module, const Blocks &blocks, std::size_t place)
{
    const std::string_view label = label_of(module, blocks.list[place]);
    const bool is_while = begins(label, "while.cond");
    if (!is_while && (!begins(label, "for.cond") || begins(label, "for.cond.cleanup"))) {
        return {};
    }
    for (std::size_t last = place; last < blocks.list.size(); ++last) {
        const Block &block = blocks.list[last];
        if (last > place && begins_one_of(label_of(module, block), {"for.", "while.", "do.", "if.", "sw."})) {
            break;  // a loop without a condition
        }
        if (is_conditional(block) && begins(targets_of(block)[0]->text, is_while ? "while.body" : "for.body")) {
            return {place, last};
        }
    }
    return {};
}

void rewrite_loops(Module &module, Function &function, Blocks &blocks, const std::unordered_set<std::size_t> &difficult)
{
    Loops loops{module, function, blocks};
    drop_empty_conditions(loops);
    rewrite_endless_loops(loops);
    for (std::size_t place = blocks.list.size(); place-- > 0;) {
        const Condition condition = find_condition(module, blocks, place);
        if (condition.first != npos && needs_rewriting(loops, condition, difficult)) {
            rewrite_condition(loops, condition);
        }
    }
    detach_all_steps(loops, difficult);
    index_blocks(module, blocks);
}

}  // namespace adapt
