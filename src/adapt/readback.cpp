// The checker's reader. It goes through the blocks as quarl does: labels open and close braces, values are written
// where they are used, and jumps are break, continue or goto by the words of their labels. So where control goes is
// taken from the braces, not from the branches; a branch that says something else is an error, and so is any form that
// the printer doesn't have.
#include "adapt/readback.h"
#include "frontend/frontend.h"

#include <algorithm>
#include <array>
#include <limits>
#include <unordered_map>

namespace adapt {

namespace {

constexpr std::uint32_t nowhere = std::numeric_limits<std::uint32_t>::max();

// ---- Labels ----

enum class LabelKind : std::uint8_t {
    if_then,
    if_else,
    if_end,
    while_cond,
    while_body,
    while_end,
    for_cond,
    for_body,
    for_inc,
    for_end,
    do_body,
    do_cond,
    do_end,
    case_,
    default_,
    switch_end,
    neutral,
    logical,
    plain,
    unknown,
};

struct LabelRow {
    std::string_view word;
    LabelKind kind;
};

constexpr std::string_view word_case = "sw.bb";
constexpr std::string_view word_neutral = "n.";

constexpr LabelRow label_rows[] = {
    {labels::if_then, LabelKind::if_then},       {labels::if_else, LabelKind::if_else},
    {labels::if_end, LabelKind::if_end},         {labels::while_cond, LabelKind::while_cond},
    {labels::while_body, LabelKind::while_body}, {labels::while_end, LabelKind::while_end},
    {labels::for_cond, LabelKind::for_cond},     {labels::for_body, LabelKind::for_body},
    {labels::for_inc, LabelKind::for_inc},       {labels::for_end, LabelKind::for_end},
    {labels::do_body, LabelKind::do_body},       {labels::do_cond, LabelKind::do_cond},
    {labels::do_end, LabelKind::do_end},         {labels::switch_default, LabelKind::default_},
    {labels::switch_end, LabelKind::switch_end}, {word_case, LabelKind::case_},
    {word_neutral, LabelKind::neutral},
};

struct Label {
    LabelKind kind = LabelKind::unknown;
    std::string_view number;
};

bool islogical(std::string_view label)
{
    return label.starts_with(labels::logical_and) || label.starts_with(labels::logical_or);
}

Label readlabel(std::string_view label)
{
    if (islogical(label)) {
        return {LabelKind::logical, {}};
    }
    for (const LabelRow &row : label_rows) {
        const std::string_view rest = label.substr(std::min(label.size(), row.word.size()));
        if (label.starts_with(row.word) && !rest.empty() &&
            rest.find_first_not_of("0123456789") == std::string_view::npos) {
            return {row.kind, rest};
        }
    }
    const bool plain = label.find('.') == std::string_view::npos && label != "return" && !label.starts_with("cleanup");
    return {plain ? LabelKind::plain : LabelKind::unknown, {}};
}

// ---- The reader ----

struct BlockText {
    std::string_view label;
    std::size_t first = 0;  // lines
    std::size_t last = 0;   // past the end
};

enum class Shape : std::uint8_t { if_, while_, do_, for_, forever, switch_ };

struct Construct {
    Shape shape = Shape::if_;
    std::string_view number;
    bool has_else = false;
    bool in_else = false;
    bool testing = false;  // its condition is read: no statement may stand here
    bool ending = false;   // the steps, or the test of a do, have been there
    std::uint32_t end = nowhere;
    std::uint32_t other = nowhere;  // else
    std::uint32_t head = nowhere;   // the test, or the start of the body
    std::uint32_t next = nowhere;   // where continue leads
    std::string_view again;         // for: the block that the steps lead to
    std::uint32_t first_step = 0;   // of its condition
    std::size_t cases = 0;          // of a switch, that are still to come
    std::uint32_t cases_at = 0;     // Program::cases
    std::string_view otherwise;     // the default's label, until it has come
};

// A value: first its definition, then the store that it went into, are good for one use each.
struct Carrier {
    Mark mark;
    std::size_t line = 0;
    std::uint32_t step = nowhere;  // of the call or the store
    std::uint32_t region = 0;
    std::uint32_t links = 0;
    bool ready = false;
    bool is_stored = false;
};

struct Leaf {
    std::uint32_t step = 0;
    std::size_t line = 0;
};

// One branch of a chain.
struct Term {
    Mark mark;
    std::string_view block;
    std::string_view yes;
    std::string_view no;
};

struct CaseLabel {
    std::uint32_t label = nowhere;
    std::size_t depth = 0;  // of the switch
    bool found = false;
};

struct Reader {
    Program &program;
    std::string &why;
    std::vector<std::string_view> lines = {};
    std::vector<BlockText> blocks = {};
    std::unordered_map<std::string_view, std::uint32_t> plain_labels = {};
    std::unordered_map<std::string_view, CaseLabel> case_labels = {};
    std::vector<Construct> constructs = {};
    std::size_t block = 0;
    std::size_t line = 0;
    std::string_view opened = {};  // the body that the last head opens
    bool label_open = false;       // a label wants a statement
    // Values.
    std::vector<Carrier> values = {};
    std::vector<Leaf> leaves = {};  // statements that may still become parts of others
    std::size_t live = 0;
    std::size_t oldest = 0;    // line of the oldest value that this line uses
    std::uint32_t region = 0;  // values don't leave the blocks of a region
    std::uint32_t links = 0;   // jumps within conditions so far
    // A chain that is being read.
    bool joined = false;
    bool phi_open = false;
    std::vector<Term> terms = {};
    std::vector<std::uint32_t> pending = {};  // statements before its next term
    std::string_view linked_value = {};       // the last term of a chain as a value
    Mark linked = {};
};

bool fail(Reader &reader, std::string_view text)
{
    if (reader.why.empty()) {
        reader.why = text;
        if (reader.block < reader.blocks.size()) {
            reader.why += " at " + std::string(reader.blocks[reader.block].label);
        }
        if (reader.line < reader.lines.size()) {
            reader.why += ": " + std::string(reader.lines[reader.line].substr(0, 120));
        }
    }
    return false;
}

// ---- Steps and labels ----

std::uint32_t addstep(Reader &reader, StepKind kind, const Mark &mark)
{
    Step &step = reader.program.steps.emplace_back();
    step.kind = kind;
    step.mark = mark;
    return static_cast<std::uint32_t>(reader.program.steps.size() - 1);
}

std::uint32_t newlabel(Reader &reader)
{
    reader.program.places.push_back(nowhere);
    return static_cast<std::uint32_t>(reader.program.places.size() - 1);
}

void place(Reader &reader, std::uint32_t label)
{
    reader.program.places[label] = static_cast<std::uint32_t>(reader.program.steps.size());
}

std::uint32_t placed(Reader &reader)
{
    const std::uint32_t label = newlabel(reader);
    place(reader, label);
    return label;
}

void addjump(Reader &reader, std::uint32_t label)
{
    reader.program.steps[addstep(reader, StepKind::jump, {})].yes = label;
}

void addbranch(Reader &reader, const Mark &mark, std::uint32_t yes, std::uint32_t no)
{
    Step &step = reader.program.steps[addstep(reader, StepKind::branch, mark)];
    step.yes = yes;
    step.no = no;
    reader.label_open = false;
}

std::string_view nextlabel(const Reader &reader)
{
    return reader.block + 1 < reader.blocks.size() ? reader.blocks[reader.block + 1].label : std::string_view();
}

Construct *top(Reader &reader, Shape shape, std::string_view number)
{
    if (reader.constructs.empty()) {
        return nullptr;
    }
    Construct &construct = reader.constructs.back();
    return construct.shape == shape && construct.number == number ? &construct : nullptr;
}

bool close(Reader &reader, std::uint32_t end)
{
    if (reader.label_open) {
        return fail(reader, "no statement after a label");
    }
    place(reader, end);
    reader.constructs.pop_back();
    return true;
}

Construct &open(Reader &reader, Shape shape, std::string_view number)
{
    Construct &construct = reader.constructs.emplace_back();
    construct.shape = shape;
    construct.number = number;
    construct.end = newlabel(reader);
    return construct;
}

// ---- Words of a line ----

bool take(std::string_view &text, std::string_view word)
{
    if (!text.starts_with(word)) {
        return false;
    }
    text.remove_prefix(word.size());
    return true;
}

// The length of a text in brackets, both counted.
std::size_t bracketed(std::string_view text)
{
    std::size_t depth = 0;
    bool quoted = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        quoted = quoted != (c == '"');
        if (quoted) {
            continue;
        }
        if (c == '(' || c == '[' || c == '{' || c == '<') {
            ++depth;
        } else if ((c == ')' || c == ']' || c == '}' || c == '>') && --depth == 0) {
            return i + 1;
        }
    }
    return text.size();
}

std::string_view taketype(std::string_view &text)
{
    std::size_t i = 0;
    if (!text.empty() && (text[0] == '[' || text[0] == '{' || text[0] == '<')) {
        i = bracketed(text);
    } else if (text.starts_with("%\"")) {
        i = text.find('"', 2) + 1;
    } else {
        i = std::min(text.find_first_of(" *,()[]{}"), text.size());
    }
    while (i < text.size()) {
        if (text[i] == '*') {
            ++i;
        } else if (text.substr(i).starts_with(" (")) {
            i += 1 + bracketed(text.substr(i + 1));
        } else {
            break;
        }
    }
    const std::string_view type = text.substr(0, i);
    text.remove_prefix(i);
    take(text, " ");
    return type;
}

std::uint32_t bitsof(std::string_view type)
{
    if (type.size() < 2 || type[0] != 'i' || type.find_first_not_of("0123456789", 1) != std::string_view::npos) {
        return 0;
    }
    std::uint32_t bits = 0;
    for (const char c : type.substr(1)) {
        bits = bits * 10 + static_cast<std::uint32_t>(c - '0');
    }
    return bits;
}

std::string_view takename(std::string_view &text)
{
    std::size_t end = std::min(text.find_first_of(" ,()]"), text.size());
    if (text.size() > 1 && text[1] == '"') {
        end = std::min(text.find('"', 2), text.size() - 1) + 1;
    }
    const std::string_view name = text.substr(0, end);
    text.remove_prefix(end);
    return name;
}

// A constant: a word, or an operator with its operands in parentheses.
std::string_view takeliteral(std::string_view &text)
{
    std::size_t end = std::min(text.find_first_of(" ,()]"), text.size());
    std::string_view rest = text.substr(end);
    const std::size_t before = rest.size();
    take(rest, " inbounds");
    if (rest.starts_with(" (") || rest.starts_with("(")) {
        take(rest, " ");
        rest.remove_prefix(bracketed(rest));
        end += before - rest.size();
    }
    const std::string_view literal = text.substr(0, end);
    text.remove_prefix(end);
    return literal;
}

bool isvaluename(std::string_view name)
{
    return name.size() > 1 && name[0] == '%' && name[1] >= '0' && name[1] <= '9';
}

std::size_t valuenumber(std::string_view name)
{
    std::size_t number = 0;
    for (const char c : name.substr(1)) {
        number = number * 10 + static_cast<std::size_t>(c - '0');
    }
    return number;
}

// ---- Values ----

bool isleaf(const Reader &reader, std::uint32_t step)
{
    return reader.program.steps[step].kind == StepKind::leaf;
}

bool use(Reader &reader, std::string_view name, Mark &mark)
{
    const std::size_t number = valuenumber(name);
    if (number >= reader.values.size() || !reader.values[number].ready) {
        return fail(reader, "a value without a definition or with a second use");
    }
    Carrier &carrier = reader.values[number];
    if (carrier.region != reader.region) {
        return fail(reader, "a value that is used in another block");
    }
    if (carrier.is_stored && carrier.links != reader.links) {
        return fail(reader, "a stored value that is used after a jump");
    }
    if (carrier.step == nowhere) {
        --reader.live;
    } else if (isleaf(reader, carrier.step)) {
        reader.program.steps[carrier.step].kind = StepKind::nothing;
    } else {
        return fail(reader, "a value whose statement belongs to another one");
    }
    carrier.ready = false;
    reader.oldest = std::min(reader.oldest, carrier.line);
    mark = carrier.mark;
    return true;
}

// An operand without its type.
bool takevalue(Reader &reader, std::string_view &text, std::uint32_t bits, Mark &mark)
{
    if (text.empty()) {
        return fail(reader, "no operand");
    }
    if (text[0] == '@') {
        mark = literalmark(takename(text), 0);
        return true;
    }
    if (text[0] != '%') {
        mark = literalmark(takeliteral(text), bits);
        return true;
    }
    const std::string_view name = takename(text);
    if (isvaluename(name)) {
        return use(reader, name, mark);
    }
    mark = plainmark(hashtext(name.substr(1)));
    return true;
}

// An operand with its type.
bool takeoperand(Reader &reader, std::string_view &text, Mark &mark)
{
    const std::uint32_t bits = bitsof(taketype(text));
    return takevalue(reader, text, bits, mark);
}

// No statement stands between a value that this line uses and the line, but those that have become a part of it.
bool settleline(Reader &reader)
{
    while (!reader.leaves.empty() && !isleaf(reader, reader.leaves.back().step)) {
        reader.leaves.pop_back();
    }
    const bool crossed = !reader.leaves.empty() && reader.leaves.back().line > reader.oldest;
    reader.oldest = std::numeric_limits<std::size_t>::max();
    return !crossed || fail(reader, "a statement between a value and its use");
}

Carrier *define(Reader &reader, std::string_view name, const Mark &mark)
{
    const std::size_t number = valuenumber(name);
    if (number != reader.values.size()) {
        fail(reader, "a value with a second definition, or out of order");
        return nullptr;
    }
    Carrier &carrier = reader.values.emplace_back();
    carrier.mark = mark;
    carrier.line = reader.line;
    carrier.region = reader.region;
    carrier.links = reader.links;
    carrier.ready = true;
    return &carrier;
}

void addleaf(Reader &reader, const Mark &mark, std::uint32_t &step)
{
    step = addstep(reader, StepKind::leaf, mark);
    reader.leaves.push_back({step, reader.line});
    if (reader.joined) {
        reader.pending.push_back(step);
    } else {
        reader.label_open = false;
    }
}

// A loop's condition has no statement before it: it would be outside of the loop.
bool checkhead(Reader &reader)
{
    if (reader.constructs.empty() || !reader.constructs.back().testing) {
        return true;
    }
    while (!reader.leaves.empty() && !isleaf(reader, reader.leaves.back().step)) {
        reader.leaves.pop_back();
    }
    const bool stands = !reader.leaves.empty() && reader.leaves.back().step >= reader.constructs.back().first_step;
    return !stands || fail(reader, "a statement where a loop's condition stands");
}

// The statements that are evaluated before a term.
Mark withpending(Reader &reader, const Mark &mark)
{
    Hash statements = 0;
    bool any = false;
    for (const std::uint32_t step : reader.pending) {
        if (isleaf(reader, step)) {
            statements = addhash(statements, reader.program.steps[step].mark.yes);
            reader.program.steps[step].kind = StepKind::nothing;
            any = true;
        }
    }
    reader.pending.clear();
    return any ? commamark(statements, mark) : mark;
}

// ---- Lines that compute ----

bool readcast(Reader &reader, std::string_view word, std::string_view rest, Mark &mark)
{
    Mark operand;
    if (!takeoperand(reader, rest, operand) || !take(rest, " to ")) {
        return fail(reader, "a conversion");
    }
    mark = operationmark(word, {operand}, rest == "i1");
    return true;
}

bool readbinary(Reader &reader, std::string_view word, std::string_view rest, Mark &mark)
{
    const std::uint32_t bits = bitsof(taketype(rest));
    Mark left;
    Mark right;
    if (!takevalue(reader, rest, bits, left) || !take(rest, ", ") || !takevalue(reader, rest, bits, right)) {
        return fail(reader, "an operation");
    }
    mark = operationmark(word, {left, right}, bits == 1);
    return rest.empty() || fail(reader, "an operation");
}

bool readcompare(Reader &reader, std::string_view word, std::string_view rest, Mark &mark)
{
    const std::string_view predicate = takename(rest);
    take(rest, " ");
    const std::uint32_t bits = bitsof(taketype(rest));
    Mark left;
    Mark right;
    if (!takevalue(reader, rest, bits, left) || !take(rest, ", ") || !takevalue(reader, rest, bits, right)) {
        return fail(reader, "a comparison");
    }
    mark = comparemark(predicate, word == "fcmp", left, right);
    return mark.yes != 0 || fail(reader, "a comparison");
}

bool readaccess(Reader &reader, std::string_view rest, Mark &mark)
{
    take(rest, "inbounds ");
    taketype(rest);
    std::vector<Mark> operands;
    while (take(rest, ", ")) {
        if (!takeoperand(reader, rest, operands.emplace_back())) {
            return false;
        }
    }
    mark = operationmark("getelementptr", operands, false);
    return (rest.empty() && !operands.empty()) || fail(reader, "an address");
}

bool readselect(Reader &reader, std::string_view rest, Mark &mark)
{
    Mark condition;
    Mark yes;
    Mark no;
    if (!takeoperand(reader, rest, condition) || !take(rest, ", ")) {
        return fail(reader, "a choice");
    }
    const bool is_flag = rest.starts_with("i1 ");
    if (!takeoperand(reader, rest, yes) || !take(rest, ", ") || !takeoperand(reader, rest, no)) {
        return fail(reader, "a choice");
    }
    mark = choicemark(condition, yes, no, is_flag);
    return true;
}

bool readcall(Reader &reader, std::string_view rest, Mark &mark)
{
    const std::string_view type = taketype(rest);
    std::vector<Mark> operands(1);
    if (take(rest, "asm ")) {
        rest.remove_prefix(rest.rfind('('));
        operands[0] = plainmark(hashtext("asm"));
    } else if (!takevalue(reader, rest, 0, operands[0])) {
        return false;
    }
    if (!take(rest, "(")) {
        return fail(reader, "a call");
    }
    while (!rest.empty() && rest[0] != ')') {
        if (!takeoperand(reader, rest, operands.emplace_back())) {
            return false;
        }
        take(rest, ", ");
    }
    mark = operationmark("call", operands, type == "i1" || type.starts_with("i1 "));
    return rest == ")" || fail(reader, "a call");
}

bool readload(Reader &reader, std::string_view rest, Mark &mark)
{
    const bool is_volatile = take(rest, "volatile ");
    const std::string_view type = taketype(rest);
    Mark address;
    if (!take(rest, ", ") || !takeoperand(reader, rest, address) || !rest.empty()) {
        return fail(reader, "a load");
    }
    mark = loadmark(address, is_volatile, type == "i1");
    return true;
}

// The lines after a load that make a step of it: `x++` is the old value.
bool isstep(const Reader &reader)
{
    if (reader.line + 1 >= reader.blocks[reader.block].last) {
        return false;
    }
    const std::string_view next = reader.lines[reader.line + 1];
    return next.starts_with("%") && !isvaluename(next);
}

bool readstep(Reader &reader, std::string_view old, const Mark &loaded, Mark &mark)
{
    ++reader.line;
    std::string_view rest = reader.lines[reader.line];
    const std::string_view name = takename(rest);
    const std::string_view word = name.substr(1);
    const bool pointer = word.starts_with(value_names::pointer_step);
    const bool up = word.starts_with(value_names::increment);
    if (!take(rest, pointer ? " = getelementptr inbounds " : " = add ")) {
        return fail(reader, "a step");
    }
    if (pointer) {
        taketype(rest);
        take(rest, ", ");
    }
    taketype(rest);
    if (takename(rest) != old || !take(rest, ", ")) {
        return fail(reader, "a step of another value");
    }
    if (pointer) {
        taketype(rest);
    }
    const bool negative = rest == "-1";
    const bool fits = pointer || (up ? !negative : word.starts_with(value_names::decrement) && negative);
    if ((!negative && rest != "1") || !fits || reader.line + 1 >= reader.blocks[reader.block].last) {
        return fail(reader, "a step");
    }
    ++reader.line;
    rest = reader.lines[reader.line];
    Mark address;
    if (!take(rest, "store ") || taketype(rest).empty() || takename(rest) != name || !take(rest, ", ") ||
        !takeoperand(reader, rest, address) || loadmark(address, false, false).yes != loaded.yes) {
        return fail(reader, "a step that is stored elsewhere");
    }
    mark = stepmark(address, pointer, negative);
    return true;
}

using ReadOperation = bool (*)(Reader &reader, std::string_view word, std::string_view rest, Mark &mark);

struct WordRow {
    std::string_view word;
    ReadOperation read;
};

constexpr WordRow word_rows[] = {
    {"load",
     [](Reader &reader, std::string_view, std::string_view rest, Mark &mark) { return readload(reader, rest, mark); }},
    {"getelementptr", [](Reader &reader, std::string_view, std::string_view rest,
                         Mark &mark) { return readaccess(reader, rest, mark); }},
    {"select", [](Reader &reader, std::string_view, std::string_view rest,
                  Mark &mark) { return readselect(reader, rest, mark); }},
    {"icmp", readcompare},
    {"fcmp", readcompare},
    {"add", readbinary},
    {"sub", readbinary},
    {"mul", readbinary},
    {"and", readbinary},
    {"or", readbinary},
    {"xor", readbinary},
    {"shl", readbinary},
    {"lshr", readbinary},
    {"ashr", readbinary},
    {"udiv", readbinary},
    {"sdiv", readbinary},
    {"urem", readbinary},
    {"srem", readbinary},
    {"fadd", readbinary},
    {"fsub", readbinary},
    {"fmul", readbinary},
    {"fdiv", readbinary},
    {"trunc", readcast},
    {"zext", readcast},
    {"sext", readcast},
    {"fptrunc", readcast},
    {"fpext", readcast},
    {"fptosi", readcast},
    {"fptoui", readcast},
    {"sitofp", readcast},
    {"uitofp", readcast},
    {"bitcast", readcast},
    {"ptrtoint", readcast},
    {"inttoptr", readcast},
};

bool readcomputed(Reader &reader, std::string_view word, std::string_view rest, Mark &mark)
{
    for (const WordRow &row : word_rows) {
        if (row.word == word) {
            return row.read(reader, word, rest, mark);
        }
    }
    return fail(reader, "an unknown instruction");
}

bool readphi(Reader &reader, std::string_view name, std::string_view rest);

bool readdefinition(Reader &reader, std::string_view text)
{
    const std::string_view name = takename(text);
    if (!isvaluename(name) || !take(text, " = ")) {
        return fail(reader, "a definition");
    }
    const std::string_view word = takename(text);
    take(text, " ");
    if (word == "phi") {
        return readphi(reader, name, text);
    }
    Mark mark;
    if (word == "call") {
        std::uint32_t step = nowhere;
        if (!readcall(reader, text, mark) || !settleline(reader)) {
            return false;
        }
        addleaf(reader, mark, step);
        Carrier *carrier = define(reader, name, mark);
        if (carrier != nullptr) {
            carrier->step = step;
        }
        return carrier != nullptr;
    }
    if (!readcomputed(reader, word, text, mark) || !settleline(reader)) {
        return false;
    }
    if (word == "load" && isstep(reader) && (!readstep(reader, name, mark, mark) || !settleline(reader))) {
        return false;
    }
    ++reader.live;
    return define(reader, name, mark) != nullptr;
}

bool readstore(Reader &reader, std::string_view text)
{
    const bool is_volatile = take(text, "volatile ");
    const std::uint32_t bits = bitsof(taketype(text));
    std::string_view ahead = text;
    const std::string_view name = takename(ahead);
    const bool is_value = isvaluename(name);
    if (name.starts_with('%') && !is_value) {
        return fail(reader, "a store of a variable's bare name");
    }
    Mark value;
    Mark address;
    if (!takevalue(reader, text, bits, value) || !take(text, ", ") || !takeoperand(reader, text, address) ||
        !text.empty()) {
        return fail(reader, "a store");
    }
    std::uint32_t step = nowhere;
    if (!settleline(reader)) {
        return false;
    }
    addleaf(reader, storemark(address, value, is_volatile), step);
    if (is_value && !is_volatile) {
        Carrier &carrier = reader.values[valuenumber(name)];
        carrier.mark = assignmark(address, value, bits == 1);
        carrier.line = reader.line;
        carrier.step = step;
        carrier.links = reader.links;
        carrier.ready = true;
        carrier.is_stored = true;
    }
    return true;
}

bool readstatement(Reader &reader, std::string_view text)
{
    if (text.starts_with('%')) {
        return readdefinition(reader, text);
    }
    if (take(text, "store ")) {
        return readstore(reader, text);
    }
    Mark mark;
    std::uint32_t step = nowhere;
    if (!take(text, "call ") || !readcall(reader, text, mark) || !settleline(reader)) {
        return fail(reader, "an unknown line");
    }
    addleaf(reader, mark, step);
    return true;
}

// ---- Chains ----

// Merges neighbours as long as they share a target.
bool mergeterms(Reader &reader, Term &whole)
{
    std::vector<Term> stack;
    for (const Term &term : reader.terms) {
        stack.push_back(term);
        while (stack.size() > 1) {
            const Term &right = stack.back();
            Term &left = stack[stack.size() - 2];
            const bool any = left.yes == right.yes;
            if (!any && left.no != right.no) {
                if (left.yes == right.no || left.no == right.yes) {
                    return fail(reader, "a chain with crossed targets");
                }
                break;
            }
            if ((any ? left.no : left.yes) != right.block) {
                return fail(reader, "a term of a chain that doesn't lead to the next");
            }
            left.mark = chainmark(any ? Chain::any : Chain::all, left.mark, right.mark);
            left.yes = right.yes;
            left.no = right.no;
            stack.pop_back();
        }
    }
    reader.terms.clear();
    if (stack.size() != 1) {
        return fail(reader, "a chain that doesn't merge");
    }
    whole = stack.front();
    return true;
}

struct Pair {
    std::string_view value;
    std::string_view block;
};

bool readpairs(Reader &reader, std::string_view rest, std::vector<Pair> &pairs)
{
    if (!take(rest, "i1 ")) {
        return fail(reader, "a phi");
    }
    do {
        Pair pair;
        if (!take(rest, "[ ")) {
            return fail(reader, "a phi");
        }
        pair.value = takename(rest);
        if (!take(rest, ", %")) {
            return fail(reader, "a phi");
        }
        pair.block = takename(rest);
        if (!take(rest, " ]")) {
            return fail(reader, "a phi");
        }
        pairs.push_back(pair);
    } while (take(rest, ", "));
    return (rest.empty() && pairs.size() > 1) || fail(reader, "a phi");
}

// Every term that leads here has its pair, in order, and the last pair is the last term.
bool matchpairs(Reader &reader, const std::vector<Pair> &pairs, std::string_view end)
{
    const std::string_view constant = end.starts_with(labels::logical_and) ? "false" : "true";
    std::size_t place = 0;
    for (const Term &term : reader.terms) {
        if (term.yes != end && term.no != end) {
            continue;
        }
        if (place + 1 >= pairs.size() || pairs[place].value != constant || pairs[place].block != term.block) {
            return fail(reader, "a phi with other values than its chain");
        }
        ++place;
    }
    return (place + 1 == pairs.size() && pairs[place].value == reader.linked_value &&
            pairs[place].block == reader.blocks[reader.block - 1].label) ||
           fail(reader, "a phi with other values than its chain");
}

Term *findterm(Reader &reader, std::string_view block)
{
    const auto found =
        std::find_if(reader.terms.begin(), reader.terms.end(), [=](const Term &term) { return term.block == block; });
    return found == reader.terms.end() ? nullptr : &*found;
}

bool readphi(Reader &reader, std::string_view name, std::string_view rest)
{
    const BlockText &block = reader.blocks[reader.block];
    std::vector<Pair> pairs;
    if (!reader.joined || reader.line != block.first || reader.linked_value.empty()) {
        return fail(reader, "a phi without a chain");
    }
    if (!readpairs(reader, rest, pairs) || !matchpairs(reader, pairs, block.label)) {
        return false;
    }
    if (!reader.phi_open) {
        reader.phi_open = true;
        reader.terms.push_back({reader.linked, reader.blocks[reader.block - 1].label, block.label, block.label});
    } else {
        const Term &last = reader.terms.back();
        const bool is_false = pairs[0].value == "false";
        const bool known = last.yes != last.no || last.yes.starts_with(block.label.substr(0, block.label.find('.')));
        // quarl gives the last term a target for each kind of chain. Beyond that it changes the target of the first
        // term that leads to the phi, which must be the only one.
        Term *term = known ? findterm(reader, pairs[0].block) : &reader.terms.back();
        if (term == nullptr || (known && pairs.size() != 2)) {
            return fail(reader, "phis of a chain that quarl doesn't tell apart");
        }
        (is_false ? term->no : term->yes) = known ? (is_false ? last.no : last.yes) : block.label;
    }
    reader.linked_value = {};
    ++reader.live;
    if (reader.lines[reader.line + 1].starts_with("br label ")) {
        return define(reader, name, {}) != nullptr;  // the last term of another chain
    }
    Term whole;
    if (!mergeterms(reader, whole)) {
        return false;
    }
    reader.joined = false;
    reader.phi_open = false;
    return define(reader, name, whole.mark) != nullptr;
}

// The jump from the last term of a chain to its phi. quarl takes what the block computes last.
bool readlink(Reader &reader, std::string_view target)
{
    const std::string_view before =
        reader.line > reader.blocks[reader.block].first ? reader.lines[reader.line - 1] : "";
    std::string_view rest = before;
    const std::string_view name = takename(rest);
    if (target != nextlabel(reader) || !islogical(target) || !isvaluename(name) || rest.starts_with(" = call")) {
        return fail(reader, "the end of a chain");
    }
    Mark mark;
    if (!use(reader, name, mark)) {
        return false;
    }
    reader.linked = withpending(reader, mark);
    reader.linked_value = name;
    ++reader.links;
    return settleline(reader);
}

// ---- Jumps ----

bool isloop(const Construct &construct)
{
    return construct.shape != Shape::if_ && construct.shape != Shape::switch_;
}

bool hasshape(const Construct &construct, LabelKind kind)
{
    switch (kind) {
    case LabelKind::while_cond:
    case LabelKind::while_end:
        return construct.shape == Shape::while_;
    case LabelKind::do_cond:
    case LabelKind::do_end:
        return construct.shape == Shape::do_;
    case LabelKind::for_inc:
    case LabelKind::for_end:
        return construct.shape == Shape::for_ || construct.shape == Shape::forever;
    default:
        return construct.shape == Shape::switch_;
    }
}

// break and continue lead out of the innermost, whatever the label says: it has to say the same.
bool readexit(Reader &reader, const Label &label, bool is_break)
{
    reader.label_open = false;
    for (auto construct = reader.constructs.rbegin(); construct != reader.constructs.rend(); ++construct) {
        if (isloop(*construct) || (is_break && construct->shape == Shape::switch_)) {
            if (!hasshape(*construct, label.kind) || construct->number != label.number || construct->ending) {
                break;
            }
            addjump(reader, is_break ? construct->end : construct->next);
            return true;
        }
    }
    return fail(reader, "a jump that doesn't lead out of the innermost");
}

std::uint32_t plainlabel(Reader &reader, std::string_view name)
{
    const auto [found, added] = reader.plain_labels.emplace(name, nowhere);
    if (added) {
        found->second = newlabel(reader);
    }
    return found->second;
}

// The end of a loop's steps.
bool readagain(Reader &reader, std::string_view target)
{
    const Construct &loop = reader.constructs.back();
    const Label label = readlabel(nextlabel(reader));
    return (target == loop.again && label.kind == LabelKind::for_end && label.number == loop.number) ||
           fail(reader, "steps that don't lead to their loop");
}

bool readjump(Reader &reader, std::string_view target)
{
    if (reader.joined) {
        return readlink(reader, target);
    }
    const std::string_view next = nextlabel(reader);
    const Label label = readlabel(target);
    if (!reader.constructs.empty() && reader.constructs.back().ending) {
        return readagain(reader, target);
    }
    const Label following = readlabel(next);
    const bool testing = !reader.constructs.empty() && reader.constructs.back().testing;
    if (testing) {
        return fail(reader, "a jump where a loop's condition stands");
    }
    switch (label.kind) {
    case LabelKind::while_end:
    case LabelKind::for_end:
    case LabelKind::do_end:
    case LabelKind::switch_end:
        return readexit(reader, label, true);
    case LabelKind::while_cond:
        if (target == next || (following.kind == LabelKind::while_end && following.number == label.number &&
                               top(reader, Shape::while_, label.number) != nullptr)) {
            return true;
        }
        return (following.kind != LabelKind::while_end || fail(reader, "a continue that is lost")) &&
               readexit(reader, label, false);
    case LabelKind::for_inc:
    case LabelKind::do_cond:
        return target == next || readexit(reader, label, false);
    case LabelKind::plain:
        if (target == next) {
            return true;
        }
        if (next.empty() || readlabel(reader.blocks[reader.block].label).kind != LabelKind::neutral) {
            return fail(reader, "a goto outside of a neutral block");
        }
        reader.label_open = false;
        addjump(reader, plainlabel(reader, target));
        return true;
    case LabelKind::if_end:
        if (following.kind == LabelKind::if_else && following.number == label.number &&
            top(reader, Shape::if_, label.number) != nullptr) {
            return true;
        }
        break;
    default:
        break;
    }
    return target == next || fail(reader, "a jump to what doesn't follow");
}

// ---- Heads ----

bool readifhead(Reader &reader, Term whole, const Label &yes)
{
    const Label no = readlabel(whole.no);
    const bool has_else = no.kind == LabelKind::if_else;
    if (yes.kind != LabelKind::if_then || (!has_else && no.kind != LabelKind::if_end) || no.number != yes.number) {
        return fail(reader, "the targets of an if");
    }
    Construct &construct = open(reader, Shape::if_, yes.number);
    construct.has_else = has_else;
    construct.other = has_else ? newlabel(reader) : nowhere;
    const std::uint32_t otherwise = has_else ? construct.other : construct.end;
    const std::uint32_t then = newlabel(reader);
    addbranch(reader, whole.mark, then, otherwise);
    place(reader, then);
    return true;
}

bool readloophead(Reader &reader, const Term &whole, const Label &yes)
{
    const bool is_for = yes.kind == LabelKind::for_body;
    Construct *loop = top(reader, is_for ? Shape::for_ : Shape::while_, yes.number);
    const Label no = readlabel(whole.no);
    if (loop == nullptr || !loop->testing || no.number != yes.number ||
        no.kind != (is_for ? LabelKind::for_end : LabelKind::while_end)) {
        return fail(reader, "the targets of a loop");
    }
    loop->testing = false;
    loop->again = reader.blocks[reader.block].label;
    const std::uint32_t body = newlabel(reader);
    addbranch(reader, whole.mark, body, loop->end);
    place(reader, body);
    return true;
}

bool readdotail(Reader &reader, const Term &whole, const Label &yes)
{
    Construct *loop = top(reader, Shape::do_, yes.number);
    const Label no = readlabel(whole.no);
    if (loop == nullptr || !loop->testing || no.kind != LabelKind::do_end || no.number != yes.number ||
        nextlabel(reader) != whole.no) {
        return fail(reader, "the targets of a do");
    }
    if (reader.label_open) {
        return fail(reader, "no statement after a label");
    }
    loop->testing = false;
    loop->ending = true;
    addbranch(reader, whole.mark, loop->head, loop->end);
    return true;
}

bool readbranch(Reader &reader, std::string_view text)
{
    Term whole;
    whole.block = reader.blocks[reader.block].label;
    if (!takevalue(reader, text, 1, whole.mark) || !take(text, ", label %") || !settleline(reader)) {
        return fail(reader, "a branch");
    }
    whole.yes = takename(text);
    if (!take(text, ", label %")) {
        return fail(reader, "a branch");
    }
    whole.no = takename(text);
    if (reader.joined) {
        whole.mark = withpending(reader, whole.mark);
    }
    if (islogical(whole.yes) || islogical(whole.no)) {
        if (reader.phi_open || !islogical(nextlabel(reader))) {
            return fail(reader, "a chain that isn't closed");
        }
        if (!checkhead(reader)) {
            return false;
        }
        reader.joined = true;
        reader.terms.push_back(whole);
        return true;
    }
    const Label yes = readlabel(whole.yes);
    const bool testing = !reader.constructs.empty() && reader.constructs.back().testing;
    const bool ending = !reader.constructs.empty() && reader.constructs.back().ending;
    if (testing == (yes.kind == LabelKind::if_then) || ending || (reader.joined && yes.kind != LabelKind::if_then)) {
        return fail(reader, "a branch in the wrong place");
    }
    if (reader.joined) {
        reader.terms.push_back(whole);
        reader.joined = false;
        if (!mergeterms(reader, whole)) {
            return false;
        }
    }
    if (!checkhead(reader)) {
        return false;
    }
    if (yes.kind == LabelKind::do_body) {
        return readdotail(reader, whole, yes);
    }
    if (nextlabel(reader) != whole.yes) {
        return fail(reader, "a branch whose first target doesn't follow");
    }
    reader.opened = whole.yes;
    return yes.kind == LabelKind::if_then ? readifhead(reader, whole, yes) : readloophead(reader, whole, yes);
}

bool readcases(Reader &reader, std::uint32_t bits, std::vector<Case> &cases, std::size_t &count)
{
    const std::size_t depth = reader.constructs.size();
    for (++reader.line; reader.line < reader.blocks[reader.block].last; ++reader.line) {
        std::string_view text = reader.lines[reader.line];
        if (text == "]") {
            return true;
        }
        taketype(text);
        const Mark mark = literalmark(takeliteral(text), bits);
        if (!mark.is_constant || !take(text, ", label %")) {
            return fail(reader, "a case");
        }
        const auto [found, added] = reader.case_labels.emplace(text, CaseLabel{});
        if (added) {
            found->second = {newlabel(reader), depth, false};
            ++count;
        }
        if (found->second.depth != depth || found->second.found) {
            return fail(reader, "a case of another switch");
        }
        cases.push_back({mark.number, found->second.label});
    }
    return fail(reader, "cases without an end");
}

bool readswitch(Reader &reader, std::string_view text)
{
    const std::uint32_t bits = bitsof(taketype(text));
    Mark selector;
    if (!takevalue(reader, text, bits, selector) || !take(text, ", label %") || !settleline(reader)) {
        return fail(reader, "a switch");
    }
    const std::string_view otherwise = takename(text);
    const Label label = readlabel(otherwise);
    if (text != " [" || (label.kind != LabelKind::default_ && label.kind != LabelKind::switch_end)) {
        return fail(reader, "a switch");
    }
    Construct &construct = open(reader, Shape::switch_, label.number);
    std::vector<Case> cases;
    std::size_t count = 0;
    const std::uint32_t end = construct.end;
    if (label.kind == LabelKind::default_) {
        construct.otherwise = otherwise;
        construct.other = newlabel(reader);
    }
    Construct settled = construct;
    if (!readcases(reader, bits, cases, count)) {
        return false;
    }
    settled.cases = count;
    const std::uint32_t step = addstep(reader, StepKind::switch_, selector);
    reader.program.steps[step].yes = settled.other != nowhere ? settled.other : end;
    reader.program.steps[step].cases = static_cast<std::uint32_t>(reader.program.cases.size());
    reader.program.cases.push_back(std::move(cases));
    reader.constructs.back() = settled;
    reader.label_open = false;
    return true;
}

bool readreturn(Reader &reader, std::string_view text)
{
    Mark mark;
    const bool has_value = text != "void";
    if (has_value && (!takeoperand(reader, text, mark) || !settleline(reader))) {
        return fail(reader, "a return");
    }
    reader.program.steps[addstep(reader, StepKind::return_, mark)].has_value = has_value;
    reader.label_open = false;
    return true;
}

// ---- Blocks ----

bool readloopstart(Reader &reader, const Label &label)
{
    if (label.kind == LabelKind::do_body) {
        Construct &loop = open(reader, Shape::do_, label.number);
        loop.head = placed(reader);
        loop.next = newlabel(reader);
        reader.label_open = false;
        return true;
    }
    const std::string_view last = reader.lines[reader.blocks[reader.block].last - 1];
    const bool tested = label.kind == LabelKind::while_cond || last.starts_with("br i1 ");
    Construct &loop = open(reader,
                           label.kind == LabelKind::while_cond ? Shape::while_
                           : tested                            ? Shape::for_
                                                               : Shape::forever,
                           label.number);
    loop.head = placed(reader);
    loop.next = label.kind == LabelKind::while_cond ? loop.head : newlabel(reader);
    loop.testing = tested;
    loop.first_step = reader.program.places[loop.head];
    reader.label_open = false;
    if (!tested) {
        loop.again = reader.blocks[reader.block].label;
        const bool bare = reader.blocks[reader.block].first + 1 == reader.blocks[reader.block].last;
        const Label next = readlabel(nextlabel(reader));
        return (bare && next.kind == LabelKind::neutral) || fail(reader, "the start of an endless loop");
    }
    return true;
}

bool readloopend(Reader &reader, const Label &label)
{
    Construct *loop = reader.constructs.empty() ? nullptr : &reader.constructs.back();
    const bool is_while = label.kind == LabelKind::while_end;
    if (loop == nullptr || !hasshape(*loop, label.kind) || loop->number != label.number || loop->testing ||
        loop->ending == is_while) {
        return fail(reader, "the end of a loop");
    }
    if (label.kind != LabelKind::do_end) {
        addjump(reader, loop->head);
    }
    return close(reader, loop->end);
}

bool readlatch(Reader &reader, const Label &label)
{
    Construct *loop = reader.constructs.empty() ? nullptr : &reader.constructs.back();
    if (loop == nullptr || !hasshape(*loop, label.kind) || loop->number != label.number || loop->testing ||
        loop->ending) {
        return fail(reader, "the latch of a loop");
    }
    if (reader.label_open) {
        return fail(reader, "no statement after a label");
    }
    place(reader, loop->next);
    loop->first_step = reader.program.places[loop->next];
    loop->testing = label.kind == LabelKind::do_cond;
    loop->ending = !loop->testing;
    const bool bare = reader.blocks[reader.block].first + 1 == reader.blocks[reader.block].last;
    return loop->shape != Shape::forever || bare || fail(reader, "steps of an endless loop");
}

bool readelse(Reader &reader, const Label &label)
{
    Construct *construct = top(reader, Shape::if_, label.number);
    if (construct == nullptr || !construct->has_else || construct->in_else || reader.label_open) {
        return fail(reader, "an else");
    }
    construct->in_else = true;
    addjump(reader, construct->end);
    place(reader, construct->other);
    return true;
}

bool readcaselabel(Reader &reader, std::string_view name, const Label &label)
{
    Construct *construct = reader.constructs.empty() ? nullptr : &reader.constructs.back();
    if (construct == nullptr || construct->shape != Shape::switch_ || reader.label_open) {
        return fail(reader, "a case outside of its switch");
    }
    const auto found = reader.case_labels.find(name);
    if (found != reader.case_labels.end()) {
        if (found->second.found || found->second.depth != reader.constructs.size()) {
            return fail(reader, "a case outside of its switch");
        }
        found->second.found = true;
        place(reader, found->second.label);
        --construct->cases;
    } else if (label.kind == LabelKind::case_) {
        return fail(reader, "a case that no value leads to");
    }
    if (label.kind == LabelKind::default_) {
        if (name != construct->otherwise) {
            return fail(reader, "a default that isn't one");
        }
        construct->otherwise = {};
        place(reader, construct->other);
    }
    return true;
}

bool readlabelled(Reader &reader, std::string_view name)
{
    const Label label = readlabel(name);
    const std::string_view opened = reader.opened;
    reader.opened = {};
    if (reader.joined != (label.kind == LabelKind::logical) && reader.joined) {
        return fail(reader, "a chain that isn't closed");
    }
    const bool testing = !reader.constructs.empty() && reader.constructs.back().testing;
    const bool ending = !reader.constructs.empty() && reader.constructs.back().ending;
    if ((testing && label.kind != LabelKind::logical) ||
        (ending && label.kind != LabelKind::for_end && label.kind != LabelKind::do_end)) {
        return fail(reader, "a loop that isn't closed");
    }
    switch (label.kind) {
    case LabelKind::if_then:
    case LabelKind::while_body:
    case LabelKind::for_body:
        return name == opened || fail(reader, "a body without a head");
    case LabelKind::if_else:
        return readelse(reader, label);
    case LabelKind::if_end: {
        const Construct *construct = top(reader, Shape::if_, label.number);
        return construct != nullptr && construct->has_else == construct->in_else ? close(reader, construct->end)
                                                                                 : fail(reader, "the end of an if");
    }
    case LabelKind::while_cond:
    case LabelKind::for_cond:
    case LabelKind::do_body:
        return readloopstart(reader, label);
    case LabelKind::for_inc:
    case LabelKind::do_cond:
        return readlatch(reader, label);
    case LabelKind::while_end:
    case LabelKind::for_end:
    case LabelKind::do_end:
        return readloopend(reader, label);
    case LabelKind::case_:
    case LabelKind::default_:
        return readcaselabel(reader, name, label);
    case LabelKind::switch_end: {
        const Construct *construct = top(reader, Shape::switch_, label.number);
        return construct != nullptr && construct->cases == 0 && construct->otherwise.empty()
                   ? close(reader, construct->end)
                   : fail(reader, "the end of a switch");
    }
    case LabelKind::logical:
        return reader.joined || fail(reader, "a term outside of a chain");
    case LabelKind::neutral:
        return true;
    case LabelKind::plain: {
        const std::uint32_t place_of = plainlabel(reader, name);
        if (reader.program.places[place_of] != nowhere ||
            reader.lines[reader.blocks[reader.block].first] == "unreachable") {
            return fail(reader, "a label that isn't printed");
        }
        place(reader, place_of);
        reader.label_open = true;
        return true;
    }
    case LabelKind::unknown:
        break;
    }
    return fail(reader, "an unknown label");
}

bool readterminator(Reader &reader, std::string_view text)
{
    if (take(text, "br label %")) {
        return readjump(reader, text);
    }
    if (take(text, "br i1 ")) {
        return readbranch(reader, text);
    }
    const bool apart = reader.joined || (!reader.constructs.empty() &&
                                         (reader.constructs.back().testing || reader.constructs.back().ending));
    if (apart) {
        return fail(reader, "the end of a block within a loop's head or a chain");
    }
    if (take(text, "ret ")) {
        return readreturn(reader, text);
    }
    if (take(text, "switch ")) {
        return readswitch(reader, text);
    }
    return text == "unreachable" || fail(reader, "the end of a block");
}

bool isterminator(std::string_view text)
{
    return text.starts_with("br ") || text.starts_with("ret ") || text.starts_with("switch ") || text == "unreachable";
}

bool readblock(Reader &reader)
{
    const BlockText &block = reader.blocks[reader.block];
    reader.line = block.first;
    if (block.first == block.last) {
        return fail(reader, "an empty block");
    }
    if (reader.block > 0 && !readlabelled(reader, block.label)) {
        return false;
    }
    if (!reader.joined) {
        ++reader.region;
    }
    for (; reader.line < block.last; ++reader.line) {
        const std::string_view text = reader.lines[reader.line];
        if (isterminator(text)) {
            return readterminator(reader, text) &&
                   (reader.line + 1 >= block.last || fail(reader, "a line after the end"));
        }
        if (reader.block == 0 && text.find(" = alloca ") != std::string_view::npos) {
            continue;
        }
        if (!readstatement(reader, text)) {
            return false;
        }
    }
    return fail(reader, "a block without an end");
}

bool splitblocks(Reader &reader, std::string_view text)
{
    std::unordered_map<std::string_view, bool> known;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size() - 1);
        std::string_view line = text.substr(0, end);
        text.remove_prefix(end + 1);
        const bool is_label = !line.empty() && line[0] != ' ';
        line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
        if (line.empty()) {
            continue;
        }
        if (is_label) {
            const std::string_view label = line.substr(0, line.size() - 1);
            if (!line.ends_with(':') || !known.emplace(label, true).second) {
                return fail(reader, "a label that stands twice");
            }
            reader.blocks.push_back({label, reader.lines.size(), reader.lines.size()});
        } else if (reader.blocks.empty()) {
            return fail(reader, "a line outside of a block");
        } else {
            reader.lines.push_back(line);
            reader.blocks.back().last = reader.lines.size();
        }
    }
    return !reader.blocks.empty();
}

// The function ends with nothing open.
bool readend(Reader &reader)
{
    if (!reader.constructs.empty() || reader.joined || reader.label_open) {
        return fail(reader, "a construct that isn't closed");
    }
    if (reader.live != 0) {
        return fail(reader, "a value that nothing uses");
    }
    const std::string_view last = reader.lines.back();
    if (!last.starts_with("ret ") && last != "unreachable") {
        return fail(reader, "a jump at the end");
    }
    addstep(reader, StepKind::end, {});
    for (const auto &[name, label] : reader.plain_labels) {
        if (reader.program.places[label] == nowhere) {
            return fail(reader, "a goto to a label that isn't there");
        }
    }
    return true;
}

}  // namespace

bool readback(std::string_view text, Program &program, std::string &why)
{
    Reader reader = {program, why};
    reader.oldest = std::numeric_limits<std::size_t>::max();
    if (!splitblocks(reader, text)) {
        return fail(reader, "no blocks");
    }
    for (; reader.block < reader.blocks.size(); ++reader.block) {
        if (!readblock(reader)) {
            return false;
        }
    }
    return readend(reader);
}

}  // namespace adapt
