// The names within a function. They matter more than names usually do, since quarl reads them:
//
//   - the name of a variable (a parameter or an alloca) is its name in the C. Two that are alike in C, or one that is
//     alike to a global that the function uses (`int n; int f(int n) { return ::n + n; }`), are told apart;
//   - a value whose name begins with inc or dec stands for ++ or --. Members called `index` or `decay` give their names
//     to values too; those that don't step anything are renamed;
//   - a named value that is used twice is written twice, and a numbered one gets a variable that is declared in the
//     middle of the code, behind a label or case where C allows no declaration. A value that must not be written twice,
//     because its expression calls a function or steps a variable, and one with a number, get a variable here;
//   - a label has to have a name, and one with a dot in it is never the target of a goto.
#include "adapt/function.h"
#include "adapt/shape.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace adapt {

namespace {

constexpr std::string_view slot_suffix = ".addr";
constexpr std::size_t longest_alias_chain = 1000;

std::string_view bare(std::string_view text)
{
    return text.substr(1);
}

bool is_digits(std::string_view text)
{
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

std::string_view op_of(const Tokens &tokens)
{
    const Instruction parts = find_parts(tokens);
    return parts.op == npos ? std::string_view() : tokens[parts.op].text;
}

// ---- What there is ----

// The values that stand for another operand.
void collect_aliases(Function &function)
{
    for (std::size_t place = 1; place < function.lines->size(); ++place) {
        const Tokens &tokens = (*function.lines)[place].tokens;
        if (find_parts(tokens).result == npos) {
            continue;
        }
        if (Tokens operand = passed_operand(tokens); !operand.empty()) {
            function.aliases.emplace(tokens[0].text, std::move(operand));
        }
    }
}

const Tokens *resolve(const Function &function, std::string_view text)
{
    const Tokens *operand = nullptr;
    for (std::size_t steps = 0; steps < longest_alias_chain; ++steps) {
        const auto found = function.aliases.find(text);
        if (found == function.aliases.end()) {
            break;
        }
        operand = &found->second;
        text = operand->front().text;
    }
    return operand;
}

void replace_aliases(Function &function)
{
    if (function.aliases.empty()) {
        return;
    }
    for (Line &line : *function.lines) {
        Tokens tokens;
        tokens.reserve(line.tokens.size());
        const bool alias = !line.tokens.empty() && function.aliases.contains(line.tokens[0].text);
        for (const Token &token : line.tokens) {
            const Tokens *operand = token.kind == Kind::local && !alias ? resolve(function, token.text) : nullptr;
            if (operand == nullptr) {
                tokens.push_back(token);
                continue;
            }
            const std::size_t first = tokens.size();
            tokens.insert(tokens.end(), operand->begin(), operand->end());
            tokens[first].gap = token.gap;
        }
        line.tokens = alias ? Tokens() : std::move(tokens);
    }
    std::erase_if(*function.lines, [](const Line &line) { return line.tokens.empty(); });
}

void note_name(Function &function, std::string_view name)
{
    function.taken.emplace(name);
    if (is_digits(name) && name.size() < 10) {
        std::size_t number = 0;
        for (const char c : name) {
            number = number * 10 + static_cast<std::size_t>(c - '0');
        }
        function.next_number = std::max(function.next_number, number + 1);
    }
}

// The name tokens of the header's parameters.
std::vector<std::string_view> parameters(const Tokens &header)
{
    std::vector<std::string_view> names;
    for (std::size_t at = 0; at + 1 < header.size(); ++at) {
        if (header[at].kind != Kind::global || !is(header[at + 1], "(")) {
            continue;
        }
        for (const Range element : list_elements(header, at + 1)) {
            const Token &last = header[element.end - 1];
            const std::size_t type = behind_type(header, element.begin);
            if (last.kind == Kind::local && type != npos && type < element.end) {
                names.push_back(last.text);
            }
        }
        break;
    }
    return names;
}

void collect_definitions(const Module &module, Function &function)
{
    for (const std::string_view name : parameters((*function.lines)[0].tokens)) {
        function.values[name].line = npos;
    }
    for (std::size_t place = 1; place < function.lines->size(); ++place) {
        const Tokens &tokens = (*function.lines)[place].tokens;
        if (is_label(tokens)) {
            function.taken.emplace(tokens[0].text);
        } else if (find_parts(tokens).result != npos) {
            function.values[tokens[0].text].line = place;
            function.values[tokens[0].text].variable = op_of(tokens) == "alloca";
        }
        for (const Token &token : tokens) {
            if (token.kind == Kind::local) {
                note_name(function, bare(token.text));
            } else if (token.kind == Kind::global) {
                const auto found = module.globals.find(name_of(token.text));
                function.forms.insert(c_form(found == module.globals.end() ? name_of(token.text) : found->second));
            }
        }
    }
}

void collect_uses(Function &function)
{
    for (std::size_t place = 1; place < function.lines->size(); ++place) {
        const Tokens &tokens = (*function.lines)[place].tokens;
        const Instruction parts = find_parts(tokens);
        const std::string_view op = op_of(tokens);
        const bool aggregate = op == "insertvalue" || op == "resume";
        for (std::size_t at = parts.result == npos ? 0 : 1; at < tokens.size(); ++at) {
            const auto found = function.values.find(tokens[at].text);
            if (tokens[at].kind != Kind::local || found == function.values.end()) {
                continue;
            }
            Value &value = found->second;
            const bool first = value.uses++ == 0;
            value.only_aggregate = value.only_aggregate && aggregate;
            // The value of a store stands in front of its comma, the address behind it.
            const bool stored = op == "store" && is_at(tokens, at + 1, ",");
            value.stored = value.stored || stored;
            value.stored_first = value.stored_first || (stored && first);
        }
    }
}

// The variables that the adapter adds are declared in front of all others.
void add_slots(Module &module, Function &function)
{
    std::vector<Line> lines;
    const std::size_t number = (*function.lines)[0].number;
    for (const auto &[name, type] : function.slot_types) {
        function.added.insert(name);
        lines.push_back({number, compose(module, {"  ", name, " = alloca ", type})});
    }
    const bool label = function.lines->size() > 1 && is_label((*function.lines)[1].tokens);
    function.lines->insert(function.lines->begin() + (label ? 2 : 1), lines.begin(), lines.end());
    function.slot_types.clear();
}

// ---- Names that begin with inc or dec ----

bool begins_step(std::string_view name)
{
    return name.starts_with("inc") || name.starts_with("dec");
}

// True for the values by which the front end itself steps a variable: %inc, %dec12, %incdec.ptr.
bool is_step(const Tokens &tokens)
{
    const std::string_view op = op_of(tokens);
    std::string_view name = bare(tokens[0].text);
    if (name.starts_with("incdec.ptr")) {
        name.remove_prefix(10);
        return op == "getelementptr" && (name.empty() || is_digits(name));
    }
    if (!begins_step(name)) {
        return false;
    }
    name.remove_prefix(3);
    const bool steps = op == "add" || op == "sub" || op == "fadd" || op == "fsub";
    return steps && (name.empty() || is_digits(name));
}

bool is_step_at(const Function &function, std::size_t place)
{
    if (place >= function.lines->size()) {
        return false;
    }
    const Tokens &tokens = (*function.lines)[place].tokens;
    return find_parts(tokens).result != npos && is_step(tokens);
}

// ---- Arithmetic with overflow ----

// The parts of `%r = call { i16, i1 } @llvm.umul.with.overflow.i16(i16 A, i16 B)`.
struct Checked {
    std::string_view sign;  // zext or sext
    std::string op;
    std::string narrow;
    std::string wide;
    std::string left;
    std::string right;
};

bool find_checked(const Tokens &tokens, Checked &checked)
{
    static constexpr std::string_view middle = ".with.overflow.";
    for (std::size_t at = 0; at + 1 < tokens.size(); ++at) {
        const std::string_view name = tokens[at].text;
        const std::size_t dot = name.find(middle);
        if (tokens[at].kind != Kind::global || !name.starts_with("@llvm.") || dot != 10 || !is(tokens[at + 1], "(")) {
            continue;
        }
        const std::vector<Range> operands = list_elements(tokens, at + 1);
        checked.sign = name[6] == 's' ? "sext" : "zext";
        checked.op = name.substr(7, 3);
        checked.narrow = name.substr(dot + middle.size());
        checked.wide = checked.narrow == "i8" ? "i16" : checked.narrow == "i16" ? "i32" : "i64";
        const bool fits = checked.narrow == "i8" || checked.narrow == "i16" || checked.narrow == "i32";
        if (operands.size() != 2 || !fits || find_parts(tokens).result == npos) {
            return false;
        }
        checked.left = text_of(tokens, {operands[0].begin + 1, operands[0].end});
        checked.right = text_of(tokens, {operands[1].begin + 1, operands[1].end});
        return true;
    }
    return false;
}

// The result and whether it overflowed, told from the same operation in twice the width.
std::array<std::string_view, 2> expand_checked(Module &module, Function &function, const Checked &checked,
                                               std::size_t number, std::vector<Line> &lines)
{
    std::array<std::string_view, 6> names;  // operands, wide result, result, result again, overflow
    for (std::string_view &name : names) {
        name = fresh_number(module, function);
    }
    const auto write = [&](std::string_view name, const std::string &text) {
        lines.push_back({number, compose(module, {"  ", name, " = ", text})});
    };
    const std::string sign(checked.sign);
    const std::string to_wide = " to " + checked.wide;
    write(names[0], sign + " " + checked.narrow + " " + checked.left + to_wide);
    write(names[1], sign + " " + checked.narrow + " " + checked.right + to_wide);
    write(names[2], checked.op + " " + checked.wide + " " + std::string(names[0]) + ", " + std::string(names[1]));
    write(names[3], "trunc " + checked.wide + " " + std::string(names[2]) + " to " + checked.narrow);
    write(names[4], sign + " " + checked.narrow + " " + std::string(names[3]) + to_wide);
    write(names[5], "icmp ne " + checked.wide + " " + std::string(names[2]) + ", " + std::string(names[4]));
    return {names[3], names[5]};
}

void expand_overflows(Module &module, Function &function)
{
    std::unordered_map<std::string_view, std::array<std::string_view, 2>> results;
    std::vector<Line> lines;
    for (Line &line : *function.lines) {
        Checked checked;
        if (op_of(line.tokens) == "call" && find_checked(line.tokens, checked)) {
            const std::string_view result = line.tokens[0].text;
            results[result] = expand_checked(module, function, checked, line.number, lines);
            continue;
        }
        const Token *last = line.tokens.empty() ? nullptr : &line.tokens.back();
        if (op_of(line.tokens) == "extractvalue" && line.tokens.size() > 3 && last->text.size() == 1) {
            const auto found = results.find(line.tokens[line.tokens.size() - 3].text);
            if (found != results.end()) {
                const std::string_view part = found->second.at(last->text == "0" ? 0 : 1);
                function.aliases.emplace(line.tokens[0].text, Tokens{{Kind::local, " ", part}});
            }
        }
        lines.push_back(std::move(line));
    }
    *function.lines = std::move(lines);
}

// ---- Members behind two pointers ----

// True if quarl writes the value as `*p`: it is loaded by a pointer that isn't the address of something by name.
bool is_dereference(const Function &function, std::string_view text)
{
    const auto found = function.values.find(text);
    if (found == function.values.end() || found->second.line == npos) {
        return false;
    }
    const Tokens &tokens = (*function.lines)[found->second.line].tokens;
    if (op_of(tokens) != "load") {
        return false;
    }
    const auto address = std::find_if(tokens.begin() + 3, tokens.end(), [&](const Token &token) {
        return token.kind == Kind::local && function.values.contains(token.text);
    });
    if (address == tokens.end()) {
        return false;
    }
    const auto pointer = function.values.find(address->text);
    if (pointer->second.line == npos) {
        return true;
    }
    const std::string_view op = op_of((*function.lines)[pointer->second.line].tokens);
    return op != "alloca" && op != "getelementptr";
}

// Position of the base of a getelementptr that selects a member behind a pointer which is a dereference, or npos.
std::size_t find_dereferenced_base(const Function &function, const Tokens &tokens)
{
    const Instruction parts = find_parts(tokens);
    if (parts.result == npos || op_of(tokens) != "getelementptr") {
        return npos;
    }
    const std::size_t comma = behind_type(tokens, parts.op + (is_at(tokens, parts.op + 1, "inbounds") ? 2 : 1));
    const std::size_t base = comma == npos ? npos : behind_type(tokens, comma + 1);
    const bool member = base < tokens.size() && is_at(tokens, base + 3, "0") && is_at(tokens, base + 4, ",");
    return member && is_dereference(function, tokens[base].text) ? base : npos;
}

// quarl writes the member of `**p` as `*p->m`. A cast to the type that the pointer has anyway brings the parentheses:
// `((struct t *)*p)->m`.
void cast_dereferences(Module &module, Function &function)
{
    std::vector<Line> lines;
    for (std::size_t place = 0; place < function.lines->size(); ++place) {
        Line line = (*function.lines)[place];
        const std::size_t base = place == 0 ? npos : find_dereferenced_base(function, line.tokens);
        if (base != npos) {
            const std::size_t op = find_parts(line.tokens).op;
            const std::size_t comma = behind_type(line.tokens, op + (is_at(line.tokens, op + 1, "inbounds") ? 2 : 1));
            const std::string type = text_of(line.tokens, {comma + 1, base});
            const std::string_view name = fresh_name(module, function, "cast");
            lines.push_back({line.number, compose(module, {"  ", name, " = bitcast ", type, " ", line.tokens[base].text,
                                                           " to ", type})});
            line.tokens[base].text = name;
        }
        lines.push_back(std::move(line));
    }
    *function.lines = std::move(lines);
}

// ---- Values that must not be written twice ----

bool has_effects(const Tokens &tokens)
{
    const std::string_view op = op_of(tokens);
    if (op == "call" || op == "invoke") {
        return true;
    }
    const bool word_behind =
        op == "load" && (is_at(tokens, 3, "volatile") || is_at(tokens, 3, "atomic") || is_at(tokens, 4, "volatile"));
    return word_behind;
}

// True if the value is the plain content of a variable: quarl writes the variable's name.
bool is_plain_load(const Function &function, const Tokens &tokens)
{
    if (op_of(tokens) != "load" || has_effects(tokens)) {
        return false;
    }
    const std::size_t comma = behind_type(tokens, find_parts(tokens).op + 1);
    const std::size_t address = comma == npos ? npos : behind_type(tokens, comma + 1);
    if (address >= tokens.size()) {
        return false;
    }
    const auto found = function.values.find(tokens[address].text);
    return tokens[address].kind == Kind::global || (found != function.values.end() && found->second.variable);
}

// True if the value steps a variable, or is the variable's content in front of the step (`i++`).
bool takes_part_in_step(const Function &function, const Value &value)
{
    return is_step_at(function, value.line) || is_step_at(function, value.line + 1);
}

bool inherits_effects(const Function &function, const Tokens &tokens)
{
    for (std::size_t at = 1; at < tokens.size(); ++at) {
        const auto found = function.values.find(tokens[at].text);
        if (tokens[at].kind != Kind::local || found == function.values.end() || found->second.line == npos) {
            continue;
        }
        const Value &value = found->second;
        const bool assigns =
            value.uses > 1 && !value.variable && !value.kept && (value.stored || takes_part_in_step(function, value));
        if (assigns || (value.effects && !value.kept)) {
            return true;
        }
    }
    return false;
}

// Decides which values get a variable: those that are used more than once, and can't be written more than once. One
// that is stored first and used once more goes on as the assignment (`b = a = f()`).
void choose_kept(Function &function)
{
    for (std::size_t place = 1; place < function.lines->size(); ++place) {
        const Tokens &tokens = (*function.lines)[place].tokens;
        const std::string_view op = op_of(tokens);
        if (find_parts(tokens).result == npos || op == "alloca" || op == "phi" || op == "landingpad") {
            continue;
        }
        Value &value = function.values[tokens[0].text];
        value.effects = has_effects(tokens) || inherits_effects(function, tokens);
        const bool several = value.uses > 1 && !(value.uses == 2 && value.stored_first);
        const bool numbered = is_digits(bare(tokens[0].text)) && (value.stored || !is_plain_load(function, tokens));
        value.kept = several && (value.effects || numbered) && !takes_part_in_step(function, value);
    }
}

// The type of the operand at `at`: in front of it in its place of a list, with attributes between them, or behind the
// operator. Empty for a callee, whose type is written nowhere.
std::string operand_type(const Tokens &tokens, std::size_t at)
{
    if (is_at(tokens, at + 1, "(")) {
        return {};
    }
    std::size_t depth = 0;
    for (std::size_t start = at; start-- > 0;) {
        const Token &token = tokens[start];
        if (is(token, ")") || is(token, "]") || is(token, "}")) {
            ++depth;
        } else if (depth > 0 && (is(token, "(") || is(token, "[") || is(token, "{"))) {
            --depth;
        } else if (depth == 0 && (is(token, ",") || is(token, "(") || is(token, "["))) {
            const std::size_t end = start + 1 == at ? npos : behind_type(tokens, start + 1);
            if (end != npos) {
                return text_of(tokens, {start + 1, end});
            }
            break;
        }
    }
    for (std::size_t start = find_parts(tokens).op + 1; start < at; ++start) {
        if (const std::size_t end = behind_type(tokens, start); end != npos) {
            return text_of(tokens, {start, end});
        }
    }
    return {};
}

// The variables that values are kept in, by the values.
using Kept = std::unordered_map<std::string_view, std::string_view>;

Kept name_kept(Module &module, Function &function)
{
    Kept kept;
    for (std::size_t place = 1; place < function.lines->size(); ++place) {
        const Tokens &tokens = (*function.lines)[place].tokens;
        for (std::size_t at = find_parts(tokens).result == npos ? 0 : 1; at < tokens.size(); ++at) {
            const auto found = function.values.find(tokens[at].text);
            if (tokens[at].kind != Kind::local || found == function.values.end() || !found->second.kept ||
                kept.contains(tokens[at].text)) {
                continue;
            }
            const std::string type = operand_type(tokens, at);
            if (!type.empty() && op_of((*function.lines)[found->second.line].tokens) != "invoke") {
                const std::string_view slot = fresh_name(module, function, "tmp");
                function.slot_types[slot] = type;
                kept[tokens[at].text] = slot;
            }
        }
    }
    return kept;
}

void read_kept(Module &module, Function &function, const Kept &kept, Line &line, std::vector<Line> &lines)
{
    Kept loaded;
    for (std::size_t at = find_parts(line.tokens).result == npos ? 0 : 1; at < line.tokens.size(); ++at) {
        Token &token = line.tokens[at];
        const auto found = token.kind == Kind::local ? kept.find(token.text) : kept.end();
        if (found == kept.end()) {
            continue;
        }
        std::string_view &name = loaded[token.text];
        if (name.empty()) {
            const std::string &type = function.slot_types[found->second];
            name = fresh_number(module, function);
            lines.push_back(
                {line.number, compose(module, {"  ", name, " = load ", type, ", ", type, "* ", found->second})});
        }
        token.text = name;
    }
}

// Lines that belong at the ends of blocks, by label: a phi takes its values where they come from.
using Ends = std::unordered_map<std::string_view, std::vector<Line>>;

Ends read_kept_for_phis(Module &module, Function &function, const Kept &kept)
{
    Ends ends;
    for (Line &line : *function.lines) {
        for (std::size_t at = 1; op_of(line.tokens) == "phi" && at + 2 < line.tokens.size(); ++at) {
            Token &token = line.tokens[at];
            const auto found = is(line.tokens[at - 1], "[") ? kept.find(token.text) : kept.end();
            if (found == kept.end()) {
                continue;
            }
            const std::string &type = function.slot_types[found->second];
            const std::string_view name = fresh_number(module, function);
            ends[bare(line.tokens[at + 2].text)].push_back(
                {line.number, compose(module, {"  ", name, " = load ", type, ", ", type, "* ", found->second})});
            token.text = name;
        }
    }
    return ends;
}

bool ends_block(const Tokens &tokens)
{
    const std::string_view op = op_of(tokens);
    return op == "br" || op == "switch" || op == "invoke";
}

// Stores the kept values where they are made, and reads them back where they are used.
void keep_values(Module &module, Function &function)
{
    choose_kept(function);
    const Kept kept = name_kept(module, function);
    if (kept.empty()) {
        return;
    }
    Ends ends = read_kept_for_phis(module, function, kept);
    std::vector<Line> lines;
    std::string_view label;
    for (Line &line : *function.lines) {
        const bool instruction = !lines.empty() && !is_label(line.tokens);
        if (!instruction) {
            label = line.tokens[0].text;
        } else if (op_of(line.tokens) != "phi") {
            const auto end = ends_block(line.tokens) ? ends.find(label) : ends.end();
            if (end != ends.end()) {
                std::move(end->second.begin(), end->second.end(), std::back_inserter(lines));
            }
            read_kept(module, function, kept, line, lines);
        }
        const bool result = instruction && find_parts(line.tokens).result != npos;
        const auto found = result ? kept.find(line.tokens[0].text) : kept.end();
        const std::size_t number = line.number;
        lines.push_back(std::move(line));
        if (found != kept.end()) {
            const std::string &type = function.slot_types[found->second];
            lines.push_back(
                {number, compose(module, {"  store ", type, " ", found->first, ", ", type, "* ", found->second})});
        }
    }
    *function.lines = std::move(lines);
    add_slots(module, function);
}

// ---- Spellings ----

// A name for a variable whose C form nothing else in the function has.
std::string variable_name(Function &function, const std::string &wanted)
{
    std::string name = plain_name(wanted);
    const std::string stem = name;
    const bool own = name == wanted;
    for (std::size_t n = 1; function.forms.contains(c_form(name)) ||
                            ((!own || n > 1) && (function.taken.contains(name) ||
                                                 function.taken.contains(name + std::string(slot_suffix))));
         ++n) {
        name = stem + '_' + std::to_string(n);
    }
    function.forms.insert(c_form(name));
    function.taken.insert(name);
    return name;
}

// The place of a value that the front end takes for a parameter, but that the header doesn't have by this name
// (`%m = load ...` of a parameter passed by value, with %m.addr): quarl would take the value for the variable. The
// value gets another name, and the place its own.
void settle_false_slot(Module &module, Function &function, std::string_view text, const std::string &stem)
{
    const std::string_view value = keep(module, "%" + stem);
    const std::string chosen = variable_name(function, stem);
    if (chosen == stem && function.values.contains(value)) {
        function.renamed[value] = fresh_name(module, function, stem + ".value");
    }
    function.renamed[text] = keep(module, "%" + chosen);
}

void settle_variable(Module &module, Function &function, std::string_view text, bool parameter)
{
    const std::string name = name_of(text);
    // .addr and .addr1 are the places of parameters without a name: quarl writes none of them.
    if (name.starts_with(slot_suffix) || (is_digits(name) && parameter) || function.added.contains(text)) {
        return;
    }
    if (is_digits(name)) {
        function.renamed[text] = fresh_name(module, function, "local");
        return;
    }
    // The place of a parameter goes by the parameter's name.
    if (name.ends_with(slot_suffix) && !parameter) {
        const std::string stem = name.substr(0, name.size() - slot_suffix.size());
        const std::string_view stem_text = keep(module, "%" + stem);
        const auto value = function.values.find(stem_text);
        if (value == function.values.end() || value->second.line != npos) {
            settle_false_slot(module, function, text, stem);
        } else if (const auto found = function.renamed.find(stem_text); found != function.renamed.end()) {
            function.renamed[text] = keep(module, std::string(found->second) + std::string(slot_suffix));
        }
        return;
    }
    const std::string chosen = variable_name(function, name);
    if (chosen != name || text.substr(1, 1) == "\"") {
        function.renamed[text] = keep(module, "%" + chosen);
    }
}

// True for rest.addr2, the slot of one of several parameters that were written as one: rest, rest1, ...
bool is_slot_of_pack(std::string_view slot, std::string_view parameter)
{
    const std::size_t suffix = slot.rfind(slot_suffix);
    return suffix != npos && suffix > 0 && is_digits(slot.substr(suffix + slot_suffix.size())) &&
           parameter.starts_with(slot.substr(0, suffix));
}

// The front end numbers such parameters and their slots apart. The slot is the one that the parameter is stored to, and
// goes by its name from here on.
void settle_pack_slot(Module &module, Function &function, const Tokens &tokens)
{
    const std::size_t value = behind_type(tokens, find_parts(tokens).op + 1);
    const std::size_t place = value == npos ? npos : behind_type(tokens, value + 2);
    if (place >= tokens.size()) {
        return;
    }
    const auto parameter = function.values.find(tokens[value].text);
    const auto slot = function.values.find(tokens[place].text);
    if (parameter == function.values.end() || parameter->second.line != npos || slot == function.values.end() ||
        !slot->second.variable || !is_slot_of_pack(name_of(slot->first), name_of(parameter->first))) {
        return;
    }
    const auto renamed = function.renamed.find(parameter->first);
    const std::string_view chosen = renamed == function.renamed.end() ? parameter->first : renamed->second;
    const std::string name = name_of(chosen) + std::string(slot_suffix);
    if (function.taken.insert(name).second) {
        function.renamed[slot->first] = keep(module, "%" + name);
    }
}

void settle_value(Module &module, Function &function, const Tokens &tokens)
{
    const std::string_view text = tokens[0].text;
    const std::string name = name_of(text);
    if (function.renamed.contains(text) || is_digits(name)) {
        return;
    }
    const bool misleading = begins_step(name) && !is_step(tokens);
    if (plain_name(name) == name && text.substr(1, 1) != "\"" && !misleading) {
        return;
    }
    function.renamed[text] = fresh_name(module, function, (misleading ? "m." : "") + plain_name(name));
}

// True for the numbers that a branch, a switch or a phi takes for a label.
std::unordered_set<std::string_view> numbered_targets(const Function &function)
{
    std::unordered_set<std::string_view> targets;
    for (const Line &line : *function.lines) {
        const bool phi = op_of(line.tokens) == "phi";
        for (std::size_t at = 1; at < line.tokens.size(); ++at) {
            const Token &token = line.tokens[at];
            const bool label = is(line.tokens[at - 1], "label") ||
                               (phi && is(line.tokens[at - 1], ",") && is_at(line.tokens, at + 1, "]"));
            if (label && is_numbered(token)) {
                targets.insert(token.text);
            }
        }
    }
    return targets;
}

void settle_label(Module &module, Function &function, Token &token, const std::unordered_set<std::string_view> &targets)
{
    const std::string text = "%" + std::string(token.text);
    const std::string name = name_of(text);
    if (is_digits(name)) {
        const std::string stem = targets.contains(text) ? "unnamed" + name : "unnamed." + name;
        const std::string_view chosen = fresh_name(module, function, stem);
        function.renamed[keep(module, text)] = chosen;
        token.kind = Kind::word;
        token.text = bare(chosen);
    } else if (token.kind == Kind::string || plain_name(name) != name) {
        const std::string_view chosen = fresh_name(module, function, plain_name(name));
        function.renamed[keep(module, text)] = chosen;
        token.kind = Kind::word;
        token.text = bare(chosen);
    }
}

// The first block may do without its label, and then counts as a number. If a phi names it, it needs the label.
void label_entry(Module &module, Function &function, const std::unordered_set<std::string_view> &targets)
{
    std::vector<Line> &lines = *function.lines;
    if (lines.size() < 2 || is_label(lines[1].tokens)) {
        return;
    }
    for (const std::string_view target : targets) {
        if (function.renamed.contains(target)) {
            continue;
        }
        const std::string_view chosen = fresh_name(module, function, "entry");
        function.renamed[target] = chosen;
        Line line;
        line.number = lines[1].number;
        line.tokens = {{Kind::word, "", bare(chosen)}, {Kind::punct, "", ":"}};
        lines.insert(lines.begin() + 1, std::move(line));
        return;
    }
}

void settle_names(Module &module, Function &function)
{
    std::vector<Line> &lines = *function.lines;
    for (const std::string_view name : parameters(lines[0].tokens)) {
        settle_variable(module, function, name, true);
    }
    for (const Line &line : lines) {
        if (op_of(line.tokens) == "store") {
            settle_pack_slot(module, function, line.tokens);
        }
    }
    for (std::size_t place = 1; place < lines.size(); ++place) {
        if (op_of(lines[place].tokens) == "alloca" && find_parts(lines[place].tokens).result != npos &&
            !function.renamed.contains(lines[place].tokens[0].text)) {
            settle_variable(module, function, lines[place].tokens[0].text, false);
        }
    }
    const std::unordered_set<std::string_view> targets = numbered_targets(function);
    for (std::size_t place = 1; place < lines.size(); ++place) {
        Tokens &tokens = lines[place].tokens;
        if (is_label(tokens)) {
            settle_label(module, function, tokens[0], targets);
        } else if (find_parts(tokens).result != npos && op_of(tokens) != "alloca") {
            settle_value(module, function, tokens);
        }
    }
    label_entry(module, function, targets);
}

void write_name(Module &module, const Function &function, Token &token, bool header)
{
    if (token.kind == Kind::global && !header) {
        rename_global(module, token);
    }
    if (token.kind != Kind::local) {
        return;
    }
    const auto found = function.renamed.find(token.text);
    if (found != function.renamed.end()) {
        token.text = found->second;
    } else if (!header && !function.values.contains(token.text)) {
        rename_type(module, token);
    }
}

void write_names(Module &module, Function &function)
{
    for (std::size_t place = 0; place < function.lines->size(); ++place) {
        for (Token &token : (*function.lines)[place].tokens) {
            write_name(module, function, token, place == 0);
        }
    }
}

// Learns the values once more, after lines came or went.
void learn_again(Module &module, Function &function)
{
    function.values.clear();
    collect_definitions(module, function);
    collect_uses(function);
}

}  // namespace

void settle_locals(Module &module, Function &function)
{
    drop_dead_blocks(module, *function.lines);
    collect_definitions(module, function);
    expand_overflows(module, function);
    collect_aliases(function);
    replace_aliases(function);
    function.values.clear();
    collect_definitions(module, function);
    collect_uses(function);
    keep_values(module, function);
    learn_again(module, function);
    settle_shape(module, function);
    learn_again(module, function);
    cast_dereferences(module, function);
    learn_again(module, function);
    settle_names(module, function);
    write_names(module, function);
}

}  // namespace adapt
