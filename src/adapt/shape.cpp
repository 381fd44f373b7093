// The shape of a function, as its labels tell it. quarl rebuilds the statements of C from the labels of the front end,
// and some of what the front end writes leads it to C that does something else, or to nothing. The same function can
// be said in labels that it follows rightly:
//
//   dead blocks     what stands behind a call that doesn't return, in a block with a number, goes
//   crossed terms   of !a ? b : c, a && !b and so on have their conditions turned round
//   ?:              is an expression for quarl, and it looks for the phi at its end. Without one (`c ? f() : g();` of
//                   nothing), or with statements in its arms, it becomes an if with an else
//   other branches  around more than a straight line (the test for null of `new T[n]`, the guard of a static variable)
//                   become an if
//   phi             outside of ?:, && and || becomes a variable, stored to where the values come from
//   loops           with statements in their conditions, see loops.cpp
//   else, switch    whose arms all leave are given an end, see ends.cpp
//   cleanup         the switch over where to go on behind a destructor becomes a chain of ifs with a jump in each
//   operands        of the phis that stay: quarl writes the last value of the block that they come from, and a call
//                   twice; a cast to the same type as the last line of the block prevents both
#include "adapt/shape.h"

#include "adapt/blocks.h"
#include "adapt/ends.h"
#include "adapt/loops.h"

#include <algorithm>
#include <array>

namespace adapt {

namespace {

struct Shape {
    Module &module;
    Function &function;
    Blocks blocks;
    Renames labels;
};

struct Pair {
    Range value;
    std::string_view label;
};

template <std::size_t Count>
bool begins_one(std::string_view label, const std::array<std::string_view, Count> &prefixes)
{
    return std::any_of(prefixes.begin(), prefixes.end(), [=](std::string_view prefix) {
        return label.size() > prefix.size() && label.substr(1).starts_with(prefix);
    });
}

bool is_chain_label(std::string_view label)
{
    return begins(label, "land.") || begins(label, "lor.");
}

// Labels that quarl gives a meaning, and those that a goto can reach. The front end has one of its own without a dot
// that it branches to, init, for static variables.
bool has_meaning(std::string_view label)
{
    static constexpr std::array<std::string_view, 9> prefixes = {"if.",   "do.",  "for.",  "while.", "sw.",
                                                                 "land.", "lor.", "cond.", "cleanup"};
    return begins_one(label, prefixes) || label.find('.') == std::string_view::npos;
}

std::string_view op_of(const Tokens &tokens)
{
    const Instruction parts = find_parts(tokens);
    return parts.op == npos ? std::string_view() : tokens[parts.op].text;
}

bool is_phi(const Line &line)
{
    return op_of(line.tokens) == "phi";
}

std::vector<Pair> pairs_of(const Tokens &phi)
{
    std::vector<Pair> pairs;
    std::size_t at = behind_type(phi, find_parts(phi).op + 1);
    while (at != npos && is_at(phi, at, "[")) {
        const std::vector<Range> parts = list_elements(phi, at);
        if (parts.size() < 2) {
            break;
        }
        pairs.push_back({{parts[0].begin, parts[parts.size() - 2].end}, phi[parts.back().begin].text});
        at = behind_bracket(phi, at);
        if (is_at(phi, at, ",")) {
            ++at;
        }
    }
    return pairs;
}

std::string phi_type(const Tokens &phi)
{
    const std::size_t op = find_parts(phi).op;
    return text_of(phi, {op + 1, behind_type(phi, op + 1)});
}

void insert_before_terminator(Block &block, Line line)
{
    block.lines.insert(block.lines.begin() + static_cast<std::ptrdiff_t>(terminator_of(block)), std::move(line));
}

std::size_t place_of(const Blocks &blocks, std::string_view label)
{
    const auto found = blocks.places.find(label);
    return found == blocks.places.end() ? npos : found->second;
}

// ---- Dead blocks ----

void drop_pairs_from(Tokens &phi, const std::unordered_map<std::string_view, std::size_t> &places)
{
    const std::vector<Pair> pairs = pairs_of(phi);
    const std::size_t type_end = behind_type(phi, find_parts(phi).op + 1);
    if (type_end == npos) {
        return;
    }
    Tokens kept = slice(phi, {0, type_end});
    const std::size_t bare = kept.size();
    for (const Pair &pair : pairs) {
        if (!places.contains(pair.label)) {
            continue;
        }
        if (kept.size() > bare) {
            kept.push_back({Kind::punct, "", ","});
        }
        const std::size_t end = behind_bracket(phi, pair.value.begin - 1);
        const Tokens brackets = slice(phi, {pair.value.begin - 1, end});
        kept.insert(kept.end(), brackets.begin(), brackets.end());
    }
    if (kept.size() > bare) {
        phi = std::move(kept);
    }
}

std::unordered_map<std::string_view, std::size_t> count_targets(const Blocks &blocks)
{
    std::unordered_map<std::string_view, std::size_t> counts;
    for (const Block &block : blocks.list) {
        for (const Token *target : targets_of(block)) {
            ++counts[target->text];
        }
    }
    return counts;
}

bool drop_once(Module &module, Blocks &blocks)
{
    const auto counts = count_targets(blocks);
    const std::size_t before = blocks.list.size();
    std::erase_if(blocks.list, [&](const Block &block) {
        return !block.label.empty() && block.label[0].kind == Kind::number && &block != &blocks.list.front() &&
               !counts.contains(label_of(module, block));
    });
    index_blocks(module, blocks);
    return blocks.list.size() != before;
}

// ---- ?: ----

struct Choice {
    std::size_t head = npos;  // places of blocks
    std::size_t yes = npos;
    std::size_t no = npos;
    std::size_t end = npos;
    bool plain = true;  // an expression through and through
};

// Whether a branch leads first to where its condition in the source is false: `!a ? b : c` goes to c, the last term of
// `a && !b` behind the body, the first one of `!a && b` behind it all and of `!a || b` on to b.
bool is_crossed(const Shape &shape, std::size_t place)
{
    static constexpr std::array<std::string_view, 5> bodies = {"if.then", "while.body", "for.body", "do.body",
                                                               "cond.true"};
    const Block &block = shape.blocks.list[place];
    if (!is_conditional(block)) {
        return false;
    }
    const std::vector<const Token *> targets = targets_of(block);
    const std::string_view yes = targets[0]->text;
    const std::string_view no = targets[1]->text;
    if (begins(yes, "cond.false") && begins(no, "cond.true")) {
        return true;
    }
    const std::size_t next = place + 1;
    const bool crossed = (begins(no, "land.") && place_of(shape.blocks, no) == next) ||
                         (begins(yes, "lor.") && place_of(shape.blocks, yes) == next);
    return crossed || (is_chain_label(label_of(shape.module, block)) && begins_one(no, bodies));
}

// quarl takes a crossed choice for the opposite one, and loses its way among crossed terms. Their conditions are turned
// round instead.
void uncross(Shape &shape)
{
    for (std::size_t place = 0; place < shape.blocks.list.size(); ++place) {
        if (!is_crossed(shape, place)) {
            continue;
        }
        Block &block = shape.blocks.list[place];
        const std::vector<const Token *> targets = targets_of(block);
        const std::string_view no = targets[0]->text;
        const std::string_view yes = targets[1]->text;
        Line &branch = block.lines[terminator_of(block)];
        constexpr std::size_t behind_type = 2;  // br i1; the condition can be a computed constant
        const auto target = static_cast<std::size_t>(targets[0] - branch.tokens.data());
        const std::string condition = text_of(branch.tokens, {behind_type, target - 2});
        const std::string_view negated = fresh_name(shape.module, shape.function, "lnot");
        branch.tokens = compose(shape.module, {"  br i1 ", negated, ", label ", yes, ", label ", no});
        Tokens turn = compose(shape.module, {"  ", negated, " = xor i1 ", condition, ", true"});
        insert_before_terminator(block, {branch.number, std::move(turn)});
    }
}

// The choices of the function, inner ones in front of those that hold them.
std::vector<Choice> find_choices(Shape &shape)
{
    std::vector<Choice> open;
    std::vector<Choice> found;
    for (std::size_t place = 0; place < shape.blocks.list.size(); ++place) {
        const Block &block = shape.blocks.list[place];
        const std::string_view label = label_of(shape.module, block);
        if (begins(label, "cond.end") && !open.empty()) {
            open.back().end = place;
            found.push_back(open.back());
            open.pop_back();
        }
        const std::vector<const Token *> targets = targets_of(block);
        if (is_conditional(block) && begins(targets[0]->text, "cond.true")) {
            open.push_back({place, place_of(shape.blocks, targets[0]->text), place_of(shape.blocks, targets[1]->text),
                            npos, true});
        }
    }
    return found;
}

bool is_statement(const Function &function, const Line &line)
{
    const std::string_view op = op_of(line.tokens);
    if (op == "store") {
        return true;
    }
    if (op != "call" && op != "invoke") {
        return false;
    }
    const auto found = function.values.find(line.tokens[0].text);
    return find_parts(line.tokens).result == npos || found == function.values.end() || found->second.uses == 0;
}

// True if a block in the arm of a ?: holds expressions only and leads on to another ?: at most. quarl doesn't fold the
// chain of an && or || there.
bool is_expression(const Shape &shape, const Block &block)
{
    for (const Line &line : block.lines) {
        if (is_statement(shape.function, line) || op_of(line.tokens) == "switch") {
            return false;
        }
    }
    const std::vector<const Token *> targets = targets_of(block);
    if (targets.size() < 2) {
        return targets.size() == 1;
    }
    return begins(targets[0]->text, "cond.") && !is_chain_label(targets[1]->text);
}

bool ends_in_phi(const Shape &shape, const Choice &choice)
{
    const Block &end = shape.blocks.list[choice.end];
    return !end.lines.empty() && is_phi(end.lines[0]) && pairs_of(end.lines[0].tokens).size() == 2;
}

void rename_label(Shape &shape, std::size_t place, const std::string &stem)
{
    shape.labels[label_of(shape.module, shape.blocks.list[place])] = fresh_name(shape.module, shape.function, stem);
}

// The choices that quarl doesn't take for expressions.
std::vector<Choice> difficult_choices(Shape &shape)
{
    std::vector<Choice> choices = find_choices(shape);
    for (std::size_t place = 0; place < choices.size(); ++place) {
        Choice &choice = choices[place];
        choice.plain = ends_in_phi(shape, choice);
        // Inner choices stand in front in the list: those whose head lies behind this one's.
        for (std::size_t inner = place; choice.plain && inner-- > 0 && choices[inner].head > choice.head;) {
            choice.plain = choices[inner].plain;
        }
        for (std::size_t at = choice.head + 1; choice.plain && at < choice.end; ++at) {
            choice.plain = is_expression(shape, shape.blocks.list[at]);
        }
    }
    std::erase_if(choices, [](const Choice &choice) {
        return choice.plain || choice.yes != choice.head + 1 || choice.no == npos || choice.no > choice.end;
    });
    return choices;
}

void rewrite_choices(Shape &shape)
{
    for (const Choice &choice : difficult_choices(shape)) {
        rename_label(shape, choice.yes, "if.then");
        rename_label(shape, choice.no, "if.else");
        rename_label(shape, choice.end, "if.end");
    }
}

// ---- Other branches ----

// True if quarl writes the blocks between a branch and its further target as the body of an if by itself.
bool is_straight(const Shape &shape, std::size_t first, std::size_t end)
{
    for (std::size_t place = first; place < end; ++place) {
        const std::vector<const Token *> targets = targets_of(shape.blocks.list[place]);
        if (targets.size() != 1 || place_of(shape.blocks, targets[0]->text) != place + 1) {
            return false;
        }
    }
    return true;
}

// A branch over the blocks that follow it.
struct Skip {
    std::size_t head = npos;
    std::size_t end = npos;
};

Skip find_skip(const Shape &shape, std::size_t place)
{
    const Block &block = shape.blocks.list[place];
    if (!is_conditional(block)) {
        return {};
    }
    const std::vector<const Token *> targets = targets_of(block);
    const std::size_t left = place_of(shape.blocks, targets[0]->text);
    const std::size_t right = place_of(shape.blocks, targets[1]->text);
    const bool first = left == place + 1;
    const std::size_t end = first ? right : left;
    if ((!first && right != place + 1) || end == npos || end <= place + 1) {
        return {};
    }
    const std::string_view body = targets[first ? 0 : 1]->text;
    const std::string_view behind = targets[first ? 1 : 0]->text;
    return has_meaning(behind) || (has_meaning(body) && body != "%init") ? Skip{} : Skip{place, end};
}

// Gives an inner branch to a shared end an end of its own, in front of the other.
void split_end(Shape &shape, const Skip &skip)
{
    Block &head = shape.blocks.list[skip.head];
    const std::string_view old_label = label_of(shape.module, shape.blocks.list[skip.end]);
    const std::string_view new_label = fresh_name(shape.module, shape.function, "if.end");
    replace_local(head.lines[terminator_of(head)].tokens, old_label, new_label);
    Block block =
        make_block(shape.blocks.list[skip.end].number, new_label, compose(shape.module, {"  br label ", old_label}));
    shape.blocks.list.insert(shape.blocks.list.begin() + static_cast<std::ptrdiff_t>(skip.end), std::move(block));
    index_blocks(shape.module, shape.blocks);
}

// Names the block behind the branch as the body of an if. A block that is a loop of its own keeps its label, behind a
// block that only opens the body.
void open_body(Shape &shape, std::size_t head)
{
    Block &body = shape.blocks.list[head + 1];
    const std::string_view label = label_of(shape.module, body);
    const std::vector<const Token *> own = targets_of(body);
    if (std::none_of(own.begin(), own.end(), [=](const Token *target) { return target->text == label; })) {
        rename_label(shape, head + 1, "if.then");
        return;
    }
    const std::string_view opening = fresh_name(shape.module, shape.function, "if.then");
    const std::string_view from = label_of(shape.module, shape.blocks.list[head]);
    for (Line &line : body.lines) {
        if (is_phi(line)) {
            replace_local(line.tokens, from, opening);
        }
    }
    Block &branch = shape.blocks.list[head];
    replace_local(branch.lines[terminator_of(branch)].tokens, label, opening);
    Block block = make_block(body.number, opening, compose(shape.module, {"  br label ", label}));
    shape.blocks.list.insert(shape.blocks.list.begin() + static_cast<std::ptrdiff_t>(head) + 1, std::move(block));
    index_blocks(shape.module, shape.blocks);
}

void rewrite_skips(Shape &shape)
{
    for (std::size_t place = 0; place < shape.blocks.list.size(); ++place) {
        const Skip skip = find_skip(shape, place);
        if (skip.head == npos) {
            continue;
        }
        const std::string_view end = label_of(shape.module, shape.blocks.list[skip.end]);
        if (is_straight(shape, skip.head + 1, skip.end) && !shape.labels.contains(end)) {
            continue;
        }
        if (shape.labels.contains(end)) {
            split_end(shape, skip);
        } else {
            rename_label(shape, skip.end, "if.end");
        }
        open_body(shape, skip.head);
    }
}

// ---- Phi ----

// quarl takes the phi of a loop of one block for a for statement.
bool is_loop_phi(const Shape &shape, std::size_t place, const std::vector<Pair> &pairs)
{
    return std::any_of(pairs.begin(), pairs.end(), [&](const Pair &pair) {
        const std::size_t from = place_of(shape.blocks, pair.label);
        return from == npos || from >= place;
    });
}

bool stays(const Shape &shape, std::string_view label)
{
    return !shape.labels.contains(label) && (is_chain_label(label) || begins(label, "cond."));
}

bool is_result_of_invoke(const Block &block, const Token &value)
{
    const std::size_t place = terminator_of(block);
    return place < block.lines.size() && op_of(block.lines[place].tokens) == "invoke" &&
           block.lines[place].tokens[0].text == value.text;
}

void store_phi(Shape &shape, Line &phi, const std::vector<Pair> &pairs)
{
    const std::string type = phi_type(phi.tokens);
    const std::string slot(fresh_name(shape.module, shape.function, "phi"));
    shape.function.slots += "  " + slot + " = alloca " + type + "\n";
    for (const Pair &pair : pairs) {
        Block &from = shape.blocks.list[place_of(shape.blocks, pair.label)];
        if (is_result_of_invoke(from, phi.tokens[pair.value.begin])) {
            shape.module.line = phi.number;
            refuse(shape.module, "phi of the value of an invoke");
        }
        const std::string value = text_of(phi.tokens, pair.value);
        insert_before_terminator(
            from, {phi.number, compose(shape.module, {"  store ", type, " ", value, ", ", type, "* ", slot})});
    }
    phi.tokens = compose(shape.module, {"  ", phi.tokens[0].text, " = load ", type, ", ", type, "* ", slot});
}

// quarl writes a block's last value where a phi takes one, and it counts a call that only a phi takes as one without a
// use. A cast to the same type, as the last line of the block, serves both.
void cast_operand(Shape &shape, Line &phi, const Pair &pair, bool last)
{
    const Token value = phi.tokens[pair.value.begin];
    const std::size_t from = place_of(shape.blocks, pair.label);
    if (from == npos || pair.value.end != pair.value.begin + 1) {
        return;
    }
    Block &block = shape.blocks.list[from];
    const std::size_t end = terminator_of(block);
    const auto definition = std::find_if(block.lines.begin(), block.lines.end(), [&](const Line &line) {
        return find_parts(line.tokens).result != npos && line.tokens[0].text == value.text;
    });
    const bool call = definition != block.lines.end() && op_of(definition->tokens) == "call";
    const bool behind = last && (end == 0 || block.lines.begin() + static_cast<std::ptrdiff_t>(end) - 1 != definition);
    if (!call && !behind) {
        return;
    }
    const std::string type = phi_type(phi.tokens);
    const std::string_view name = fresh_name(shape.module, shape.function, "taken");
    insert_before_terminator(
        block, {phi.number, compose(shape.module, {"  ", name, " = bitcast ", type, " ", value.text, " to ", type})});
    phi.tokens[pair.value.begin] = {Kind::local, " ", name};
}

void rewrite_phi(Shape &shape, std::size_t place, Line &phi)
{
    const std::string_view label = label_of(shape.module, shape.blocks.list[place]);
    const std::vector<Pair> pairs = pairs_of(phi.tokens);
    if (!stays(shape, label)) {
        if (!is_loop_phi(shape, place, pairs)) {
            store_phi(shape, phi, pairs);
        }
        return;
    }
    for (std::size_t pair = 0; pair < pairs.size(); ++pair) {
        cast_operand(shape, phi, pairs[pair], is_chain_label(label) && pair + 1 == pairs.size());
    }
}

void rewrite_phis(Shape &shape)
{
    for (std::size_t place = 0; place < shape.blocks.list.size(); ++place) {
        // A line that is stored to takes no other block's place, so the list stays where it is.
        for (std::size_t at = 0; at < shape.blocks.list[place].lines.size(); ++at) {
            Line &line = shape.blocks.list[place].lines[at];
            if (!is_phi(line)) {
                break;
            }
            rewrite_phi(shape, place, line);
        }
    }
}

// ---- Cleanup ----

struct Case {
    std::string value;
    std::string_view target;
};

std::vector<Case> cases_of(const Block &block, std::size_t terminator)
{
    std::vector<Case> cases;
    for (std::size_t place = terminator + 1; place < block.lines.size(); ++place) {
        const Tokens &tokens = block.lines[place].tokens;
        const auto label = std::find_if(tokens.begin(), tokens.end(), [](const Token &t) { return is(t, "label"); });
        if (label != tokens.end() && label + 1 != tokens.end() && tokens.size() > 1) {
            cases.push_back({std::string(tokens[1].text), (label + 1)->text});
        }
    }
    return cases;
}

bool is_unreachable(const Shape &shape, std::string_view label)
{
    const std::size_t place = place_of(shape.blocks, label);
    return place != npos && !shape.blocks.list[place].lines.empty() &&
           op_of(shape.blocks.list[place].lines[0].tokens) == "unreachable";
}

// A jump under a condition, as an if that quarl follows.
struct Jump {
    std::string_view predicate;
    std::string value;
    std::string_view target;
};

// What the switch at the end of a block does, as jumps in their order. `last` takes where all others go.
std::vector<Jump> jumps_of(const Shape &shape, const Block &block, std::size_t terminator, std::string_view next,
                           std::string_view &last)
{
    const std::string_view other = targets_of(block)[0]->text;
    const bool total = is_unreachable(shape, other);
    const std::vector<Case> cases = cases_of(block, terminator);
    const auto onward = std::find_if(cases.begin(), cases.end(), [=](const Case &c) { return c.target == next; });
    last = onward != cases.end() ? next : total ? cases.back().target : other;
    std::vector<Jump> jumps;
    for (const Case &one : cases) {
        if (one.target != last) {
            jumps.push_back({"eq", one.value, one.target});
        }
    }
    if (!total && other != last) {  // the one value that goes on, and all the rest
        jumps.push_back({"ne", onward->value, other});
    }
    return jumps;
}

// The blocks that take the place of the switch at the end of a block. That block's own lines change too.
std::vector<Block> chain_of_ifs(Shape &shape, Block &block, std::size_t terminator, std::string_view next)
{
    const std::string value(block.lines[terminator].tokens[2].text);
    const std::string type(block.lines[terminator].tokens[1].text);
    std::string_view last;
    const std::vector<Jump> jumps = jumps_of(shape, block, terminator, next, last);
    block.lines.resize(terminator);
    std::vector<Block> blocks;
    for (const Jump &jump : jumps) {
        const std::string test(fresh_name(shape.module, shape.function, "cleanup.test"));
        const std::string_view then = fresh_name(shape.module, shape.function, "if.then");
        const std::string_view end = fresh_name(shape.module, shape.function, "if.end");
        std::vector<Line> &lines = blocks.empty() ? block.lines : blocks.back().lines;
        lines.push_back({block.number, compose(shape.module, {"  ", test, " = icmp ", jump.predicate, " ", type, " ",
                                                              value, ", ", jump.value})});
        lines.push_back({block.number, compose(shape.module, {"  br i1 ", test, ", label ", then, ", label ", end})});
        blocks.push_back(make_block(block.number, then, compose(shape.module, {"  br label ", jump.target})));
        blocks.push_back(make_block(block.number, end, {}));
    }
    (blocks.empty() ? block.lines : blocks.back().lines)
        .push_back({block.number, compose(shape.module, {"  br label ", last})});
    return blocks;
}

// The blocks that end in a branch which takes statements, by their lines in the input.
std::unordered_set<std::size_t> difficult_blocks(Shape &shape)
{
    std::unordered_set<std::size_t> difficult;
    for (const Choice &choice : difficult_choices(shape)) {
        difficult.insert(shape.blocks.list[choice.head].number);
    }
    for (std::size_t place = 0; place < shape.blocks.list.size(); ++place) {
        if (find_skip(shape, place).head != npos) {
            difficult.insert(shape.blocks.list[place].number);
        }
    }
    return difficult;
}

void rewrite_cleanups(Shape &shape)
{
    std::vector<Block> list;
    bool changed = false;
    for (std::size_t place = 0; place < shape.blocks.list.size(); ++place) {
        Block &block = shape.blocks.list[place];
        const std::size_t terminator = terminator_of(block);
        const bool found = terminator < block.lines.size() && is(block.lines[terminator].tokens[0], "switch") &&
                           block.lines[terminator].tokens.size() > 2 &&
                           block.lines[terminator].tokens[2].text.starts_with("%cleanup.dest") &&
                           !cases_of(block, terminator).empty();
        std::vector<Block> chain;
        if (found) {
            const std::string_view next = place + 1 < shape.blocks.list.size()
                                              ? label_of(shape.module, shape.blocks.list[place + 1])
                                              : std::string_view();
            chain = chain_of_ifs(shape, block, terminator, next);
            changed = true;
        }
        list.push_back(std::move(block));
        for (Block &added : chain) {
            list.push_back(std::move(added));
        }
    }
    shape.blocks.list = std::move(list);
    if (changed) {
        index_blocks(shape.module, shape.blocks);
    }
}

// quarl takes a return behind a destructor, in a block cleanup.cont, for the end of the function and closes all braces.
void rename_ways_on(Shape &shape)
{
    for (std::size_t place = 0; place < shape.blocks.list.size(); ++place) {
        if (begins(label_of(shape.module, shape.blocks.list[place]), "cleanup.cont")) {
            rename_label(shape, place, "cleaned.up");
        }
    }
}

// ---- All of it ----

void drop_dead_pairs(Blocks &blocks)
{
    for (Block &block : blocks.list) {
        for (Line &line : block.lines) {
            if (is_phi(line)) {
                drop_pairs_from(line.tokens, blocks.places);
            }
        }
    }
}

}  // namespace

void drop_dead_blocks(Module &module, std::vector<Line> &lines)
{
    Blocks blocks = split_blocks(module, lines);
    bool changed = false;
    while (drop_once(module, blocks)) {
        changed = true;
    }
    if (changed) {
        drop_dead_pairs(blocks);
    }
    join_blocks(blocks, lines);
}

void settle_shape(Module &module, Function &function)
{
    Shape shape{module, function, split_blocks(module, *function.lines), {}};
    settle_ends(module, function, shape.blocks);
    uncross(shape);
    rewrite_cleanups(shape);
    rewrite_loops(module, function, shape.blocks, difficult_blocks(shape));
    rewrite_choices(shape);
    rewrite_skips(shape);
    rewrite_phis(shape);
    rename_ways_on(shape);
    rename_labels(module, shape.blocks, shape.labels);
    join_blocks(shape.blocks, *function.lines);
}

}  // namespace adapt
