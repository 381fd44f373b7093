// Instructions, one at a time: what the accepted vocabulary says in another way, or doesn't say at all.
#include "adapt/constants.h"
#include "adapt/function.h"
#include "adapt/intrinsics.h"
#include "adapt/words.h"

#include <algorithm>
#include <array>

namespace adapt {

namespace {

constexpr std::array<std::string_view, 6> orderings = {"unordered", "monotonic", "acquire",
                                                       "release",   "acq_rel",   "seq_cst"};

using Texts = std::vector<std::string_view>;

// Rewrites the tokens of one instruction; what has to stand in front of it goes to `before`. False drops the line.
using Rewrite = bool (*)(Module &module, Function &function, Tokens &tokens, std::vector<Tokens> &before);

void splice(Tokens &tokens, Range range, const Tokens &with)
{
    tokens.erase(tokens.begin() + static_cast<std::ptrdiff_t>(range.begin),
                 tokens.begin() + static_cast<std::ptrdiff_t>(range.end));
    tokens.insert(tokens.begin() + static_cast<std::ptrdiff_t>(range.begin), with.begin(), with.end());
}

// A line made of text that the adapter writes itself.
Tokens make_line(Module &module, std::string text)
{
    return lex(keep(module, std::move(text)));
}

std::string quoted_text(const Tokens &tokens, std::size_t begin, std::size_t end)
{
    return text_of(tokens, {begin, end});
}

std::size_t op_at(const Tokens &tokens)
{
    return find_parts(tokens).op;
}

// The operands of `op T a, b`: the type, and the ranges of both.
struct Pair {
    std::size_t type_begin = npos;
    Range left;
    Range right;
};

Pair find_pair(const Tokens &tokens, std::size_t type)
{
    Pair pair;
    const std::size_t value = behind_type(tokens, type);
    if (value == npos) {
        return pair;
    }
    std::size_t depth = 0;
    for (std::size_t at = value; at < tokens.size(); ++at) {
        if (is(tokens[at], "(")) {
            ++depth;
        } else if (is(tokens[at], ")") && depth > 0) {
            --depth;
        } else if (is(tokens[at], ",") && depth == 0) {
            const bool comment = tokens.back().kind == Kind::comment;
            return {type, {value, at}, {at + 1, comment ? tokens.size() - 1 : tokens.size()}};
        }
    }
    return pair;
}

// A variable in the entry block, of the given type. Gives its name.
std::string_view add_slot(Module &module, Function &function, const std::string &stem, const std::string &type)
{
    const std::string_view name = fresh_name(module, function, stem);
    function.slots += "  " + std::string(name) + " = alloca " + type + "\n";
    return name;
}

// ---- Values ----

// fneg T x: -0.0 - x is the same for all x.
bool rewrite_fneg(Module & /*module*/, Function & /*function*/, Tokens &tokens, std::vector<Tokens> & /*before*/)
{
    const std::size_t op = op_at(tokens);
    tokens[op].text = "fsub";
    const std::size_t value = behind_type(tokens, op + 1);
    if (value != npos) {
        splice(tokens, {value, value}, {{Kind::number, " ", "-0.000000e+00"}, {Kind::punct, "", ","}});
    }
    return true;
}

// fcmp uno T a, b asks whether one of them is no number, that is, differs from itself. ord is the opposite.
bool rewrite_fcmp(Module &module, Function &function, Tokens &tokens, std::vector<Tokens> &before)
{
    const std::size_t op = op_at(tokens);
    const bool unordered = is_at(tokens, op + 1, "uno");
    if (!unordered && !is_at(tokens, op + 1, "ord")) {
        if (is_at(tokens, op + 1, "true") || is_at(tokens, op + 1, "false")) {
            refuse(module, "comparison that compares nothing");
        }
        return true;
    }
    const Pair pair = find_pair(tokens, op + 2);
    if (pair.type_begin == npos) {
        return true;
    }
    const std::string type = quoted_text(tokens, op + 2, pair.left.begin);
    const std::string left = quoted_text(tokens, pair.left.begin, pair.left.end);
    const std::string right = quoted_text(tokens, pair.right.begin, pair.right.end);
    const std::string predicate = unordered ? "une " : "oeq ";
    const std::string result(tokens[0].text);
    if (left == right || tokens[pair.right.begin].kind == Kind::number) {
        tokens = make_line(module, "  " + result + " = fcmp " + predicate + type + " " + left + ", " + left);
        return true;
    }
    const std::string first(fresh_name(module, function, "nan"));
    const std::string second(fresh_name(module, function, "nan"));
    before.push_back(make_line(module, "  " + first + " = fcmp " + predicate + type + " " + left + ", " + left));
    before.push_back(make_line(module, "  " + second + " = fcmp " + predicate + type + " " + right + ", " + right));
    tokens = make_line(module, "  " + result + (unordered ? " = or i1 " : " = and i1 ") + first + ", " + second);
    return true;
}

// quarl has no word for these, but writes a cast for the conversion of an integer, whatever the operand is.
bool rewrite_float_cast(Module & /*module*/, Function & /*function*/, Tokens &tokens, std::vector<Tokens> & /*before*/)
{
    tokens[op_at(tokens)].text = "sitofp";
    return true;
}

bool is_float_word(const Token &token)
{
    return is(token, "float") || is(token, "double");
}

// A cast in C would convert the number. So the bits go through a variable.
bool rewrite_bitcast(Module &module, Function &function, Tokens &tokens, std::vector<Tokens> &before)
{
    const std::size_t op = op_at(tokens);
    const std::size_t value = behind_type(tokens, op + 1);
    const auto to = std::find_if(tokens.begin(), tokens.end(), [](const Token &token) { return is(token, "to"); });
    if (value != op + 2 || to == tokens.end() || to + 1 == tokens.end()) {
        return true;
    }
    const Token &target = *(to + 1);
    const bool scalar = target.kind == Kind::word && (to + 2 == tokens.end() || !is(*(to + 2), "*"));
    if (!scalar || is_float_word(tokens[op + 1]) == is_float_word(target)) {
        return true;
    }
    const std::string from_type(tokens[op + 1].text);
    const std::string to_type(target.text);
    const std::string operand = quoted_text(tokens, value, static_cast<std::size_t>(to - tokens.begin()));
    const std::string slot(add_slot(module, function, "bits", from_type));
    const std::string pointer(fresh_name(module, function, "bits.ptr"));
    before.push_back(make_line(module, "  store " + from_type + " " + operand + ", " + from_type + "* " + slot));
    before.push_back(
        make_line(module, "  " + pointer + " = bitcast " + from_type + "* " + slot + " to " + to_type + "*"));
    tokens =
        make_line(module, "  " + std::string(tokens[0].text) + " = load " + to_type + ", " + to_type + "* " + pointer);
    return true;
}

// ---- Memory ----

bool is_wide(const Tokens &tokens, std::size_t type)
{
    const std::size_t end = behind_type(tokens, type);
    if (end == npos || is(tokens[end - 1], "*")) {
        return false;
    }
    return !is(tokens[type], "i1") && !is(tokens[type], "i8") && !is(tokens[type], "i16");
}

// An atomic access of a width that the target takes in one step is what volatile says in C.
void make_volatile(Module &module, Tokens &tokens, std::size_t atomic)
{
    const bool already = is_at(tokens, atomic + 1, "volatile");
    if (is_wide(tokens, atomic + (already ? 2 : 1))) {
        refuse(module, "atomic access to more than 16 bits");
        return;
    }
    tokens[atomic].text = "volatile";
    if (already) {
        tokens.erase(tokens.begin() + static_cast<std::ptrdiff_t>(atomic) + 1);
    }
    std::erase_if(tokens, [](const Token &token) {
        return token.kind == Kind::word && std::find(orderings.begin(), orderings.end(), token.text) != orderings.end();
    });
}

bool rewrite_access(Module &module, Function & /*function*/, Tokens &tokens, std::vector<Tokens> & /*before*/)
{
    const std::size_t op = op_at(tokens);
    if (is_at(tokens, op + 1, "atomic")) {
        make_volatile(module, tokens, op + 1);
    }
    const std::size_t type = is_at(tokens, op + 1, "volatile") ? op + 2 : op + 1;
    // quarl takes the upper three bytes of four, which is right for a target that has the high byte first.
    if (is_at(tokens, type, "i24") && !is_at(tokens, type + 1, "*") && module.little_endian) {
        refuse(module, "access to three bytes (a bit field?)");
    }
    if (is(tokens[op], "store")) {
        const std::size_t value = behind_type(tokens, type);
        if (value < tokens.size() && (tokens[value].kind == Kind::string || is(tokens[value], "["))) {
            refuse(module, "array as a value");
        }
    }
    return true;
}

bool rewrite_alloca(Module &module, Function & /*function*/, Tokens &tokens, std::vector<Tokens> & /*before*/)
{
    const std::size_t comma = behind_type(tokens, op_at(tokens) + 1);
    if (comma == npos) {
        refuse(module, "variable without a type");
    }
    return true;
}

// ---- Values of several parts ----

bool rewrite_insertvalue(Module &module, Function &function, Tokens &tokens, std::vector<Tokens> & /*before*/)
{
    const auto found = function.values.find(tokens[0].text);
    if (found != function.values.end() && !found->second.only_aggregate) {
        refuse(module, "structure put together without a variable (insertvalue)");
    }
    return true;
}

bool rewrite_extractvalue(Module &module, Function & /*function*/, Tokens &tokens, std::vector<Tokens> & /*before*/)
{
    const std::size_t type = op_at(tokens) + 1;
    const auto indices = std::count_if(tokens.begin() + static_cast<std::ptrdiff_t>(type), tokens.end(),
                                       [](const Token &token) { return is(token, ","); });
    const std::size_t value = behind_type(tokens, type);
    const auto inner = value == npos ? 0
                                     : std::count_if(tokens.begin() + static_cast<std::ptrdiff_t>(type),
                                                     tokens.begin() + static_cast<std::ptrdiff_t>(value),
                                                     [](const Token &token) { return is(token, ","); });
    if (indices - inner != 1 || is_at(tokens, type, "[")) {
        refuse(module, "extractvalue that isn't one member of a structure");
    }
    return true;
}

// ---- Phi ----

struct PhiPair {
    Range value;
    Range label;
};

std::vector<PhiPair> phi_pairs(const Tokens &tokens)
{
    std::vector<PhiPair> pairs;
    std::size_t at = behind_type(tokens, op_at(tokens) + 1);
    while (at != npos && at < tokens.size() && is(tokens[at], "[")) {
        const std::vector<Range> parts = list_elements(tokens, at);
        if (parts.size() < 2) {
            break;
        }
        pairs.push_back({{parts[0].begin, parts[parts.size() - 2].end}, parts.back()});
        at = behind_bracket(tokens, at);
        if (is_at(tokens, at, ",")) {
            ++at;
        }
    }
    return pairs;
}

// quarl keeps the first and the last pair. That is right for the phi of a && or || chain, where all but the last
// bring the same constant.
bool rewrite_phi(Module &module, Function & /*function*/, Tokens &tokens, std::vector<Tokens> & /*before*/)
{
    const std::vector<PhiPair> pairs = phi_pairs(tokens);
    for (std::size_t place = 1; place + 1 < pairs.size(); ++place) {
        const bool same = is_at(tokens, op_at(tokens) + 1, "i1") &&
                          tokens[pairs[place].value.begin].kind == Kind::word &&
                          text_of(tokens, pairs[place].value) == text_of(tokens, pairs[0].value);
        if (!same) {
            refuse(module, "phi of more than two values");
            break;
        }
    }
    return true;
}

// ---- Calls ----

// Position of the callee's ( in a call, or npos.
std::size_t find_arguments(const Tokens &tokens, std::size_t op)
{
    for (std::size_t at = op + 1; at < tokens.size(); ++at) {
        const std::size_t type = behind_type(tokens, at);
        if (type == npos) {
            continue;  // an attribute; its own arguments are numbers
        }
        std::size_t callee = type;
        if (callee < tokens.size() && tokens[callee].kind == Kind::word) {  // a cast of the callee
            while (callee < tokens.size() && !is(tokens[callee], "(")) {
                ++callee;
            }
            return behind_bracket(tokens, callee);
        }
        return callee + 1;
    }
    return npos;
}

// Position of an argument's operand, behind its attributes and their numbers.
std::size_t find_operand(const Tokens &tokens, Range rest)
{
    for (std::size_t at = rest.begin; at < rest.end; ++at) {
        const Token &token = tokens[at];
        const bool word = token.kind == Kind::word && token.text != "bitcast" && token.text != "getelementptr";
        if (!word && token.kind != Kind::number) {
            return at;
        }
    }
    return rest.end - 1;
}

// Arguments by value are copied by the caller, without a word in the IR. C's pointer needs the copy said. The front
// end's own temporaries are such copies already.
void copy_value_arguments(Module &module, Function &function, Tokens &tokens, std::vector<Tokens> &before)
{
    const std::size_t list = find_arguments(tokens, op_at(tokens));
    if (list == npos || !is_at(tokens, list, "(")) {
        return;
    }
    std::vector<Range> arguments = list_elements(tokens, list);
    for (auto argument = arguments.rbegin(); argument != arguments.rend(); ++argument) {
        const std::size_t attributes = behind_type(tokens, argument->begin);
        const Tokens rest = slice(tokens, {attributes, argument->end});
        const bool by_value =
            std::any_of(rest.begin(), rest.end(), [](const Token &token) { return is(token, "byval"); });
        Token &operand = tokens[argument->end - 1];
        if (!by_value || operand.text.starts_with("%agg.tmp") || operand.text.starts_with("%byval-temp") ||
            operand.text.starts_with("%byval_temp")) {
            continue;
        }
        const std::size_t value = find_operand(tokens, {attributes, argument->end});
        const std::string type = quoted_text(tokens, argument->begin, attributes - 1);
        const std::string address = quoted_text(tokens, value, argument->end);
        const std::string_view slot = add_slot(module, function, "byval", type);
        const std::string loaded(fresh_name(module, function, "byval.val"));
        before.push_back(compose(module, {"  ", loaded, " = load ", type, ", ", type, "* ", address}));
        before.push_back(compose(module, {"  store ", type, " ", loaded, ", ", type, "* ", slot}));
        splice(tokens, {value, argument->end}, {{Kind::local, " ", slot}});
    }
}

// The assembler call keeps the one word that quarl reads over.
void adapt_assembler(Module &module, Tokens &tokens, std::size_t assembler)
{
    if (is_at(tokens, op_at(tokens) + 1, "{")) {
        refuse(module, "assembler code with several results");
    }
    while (assembler + 1 < tokens.size() && tokens[assembler + 1].kind == Kind::word) {
        if (is(tokens[assembler + 1], "sideeffect")) {
            ++assembler;
        } else {
            tokens.erase(tokens.begin() + static_cast<std::ptrdiff_t>(assembler) + 1);
        }
    }
}

void expand_multiply(Module &module, Function &function, Tokens &tokens, std::size_t list, std::vector<Tokens> &before)
{
    const std::vector<Range> arguments = list_elements(tokens, list);
    if (arguments.size() != 3 || find_parts(tokens).result == npos) {
        refuse(module, "fmuladd without three operands");
        return;
    }
    const std::string type(tokens[arguments[0].begin].text);
    std::array<std::string, 3> operands;
    for (std::size_t place = 0; place < operands.size(); ++place) {
        operands.at(place) = quoted_text(tokens, arguments[place].begin + 1, arguments[place].end);
    }
    const std::string product(fresh_name(module, function, "product"));
    before.push_back(make_line(module, "  " + product + " = fmul " + type + " " + operands[0] + ", " + operands[1]));
    tokens =
        make_line(module, "  " + std::string(tokens[0].text) + " = fadd " + type + " " + product + ", " + operands[2]);
}

bool adapt_intrinsic(Module &module, Function &function, Tokens &tokens, std::size_t list, std::vector<Tokens> &before)
{
    const std::string name = name_of(tokens[list - 1].text);
    if (name.starts_with("llvm.mem") && name.find(".p0") != name.find(".p")) {
        refuse(module, "access to an address space of its own");
    }
    const Intrinsic *intrinsic = find_intrinsic(name);
    if (intrinsic == nullptr) {
        return true;
    }
    switch (intrinsic->fate) {
    case Fate::refuse:
        refuse(module, "call of " + name);
        return true;
    case Fate::multiply:
        expand_multiply(module, function, tokens, list, before);
        return true;
    case Fate::drop:
    case Fate::operand:
    case Fate::no:
    case Fate::unknown:
        return false;
    }
    return true;
}

bool rewrite_call(Module &module, Function &function, Tokens &tokens, std::vector<Tokens> &before)
{
    const auto assembler =
        std::find_if(tokens.begin(), tokens.end(), [](const Token &token) { return is(token, "asm"); });
    if (assembler != tokens.end()) {
        adapt_assembler(module, tokens, static_cast<std::size_t>(assembler - tokens.begin()));
        return true;
    }
    copy_value_arguments(module, function, tokens, before);
    const std::size_t list = find_arguments(tokens, op_at(tokens));
    if (list != npos && list > 0 && list < tokens.size() && tokens[list - 1].text.starts_with("@llvm.")) {
        return adapt_intrinsic(module, function, tokens, list, before);
    }
    return true;
}

struct Row {
    std::string_view op;
    Rewrite rewrite;
};

constexpr std::array rows = {
    Row{"alloca", rewrite_alloca},
    Row{"bitcast", rewrite_bitcast},
    Row{"call", rewrite_call},
    Row{"extractvalue", rewrite_extractvalue},
    Row{"fcmp", rewrite_fcmp},
    Row{"fneg", rewrite_fneg},
    Row{"fpext", rewrite_float_cast},
    Row{"fptrunc", rewrite_float_cast},
    Row{"insertvalue", rewrite_insertvalue},
    Row{"invoke", rewrite_call},
    Row{"load", rewrite_access},
    Row{"phi", rewrite_phi},
    Row{"store", rewrite_access},
};

// The instructions that quarl reads as they are, besides those with a row of their own.
constexpr std::array<std::string_view, 36> plain_operators = {
    "add",      "and",    "ashr",          "br",   "fadd",     "fdiv",        "fmul", "fptosi", "fptoui",
    "freeze",   "fsub",   "getelementptr", "icmp", "inttoptr", "landingpad",  "lshr", "mul",    "or",
    "ptrtoint", "resume", "ret",           "sdiv", "select",   "sext",        "shl",  "sitofp", "srem",
    "sub",      "switch", "trunc",         "udiv", "uitofp",   "unreachable", "urem", "xor",    "zext",
};

// The lines of a switch and of an invoke that go on from the line before hold labels and plain constants.
bool is_continuation(const Tokens &tokens)
{
    return find_parts(tokens).op == npos || is(tokens[0], "to") ||
           (tokens[0].kind != Kind::local && behind_type(tokens, 0) != npos) || is(tokens[0], "catch") ||
           is(tokens[0], "cleanup") || is(tokens[0], "filter");
}

}  // namespace

Tokens passed_operand(const Tokens &tokens)
{
    const Instruction parts = find_parts(tokens);
    if (parts.op == npos) {
        return {};
    }
    const std::size_t end = tokens.size() - (tokens.back().kind == Kind::comment ? 1 : 0);
    if (is(tokens[parts.op], "freeze")) {
        const std::size_t value = behind_type(tokens, parts.op + 1);
        return slice(tokens, {value, end});
    }
    if (is(tokens[parts.op], "phi")) {
        const std::vector<PhiPair> pairs = phi_pairs(tokens);
        return pairs.size() == 1 ? slice(tokens, pairs[0].value) : Tokens();
    }
    const std::size_t list = is(tokens[parts.op], "call") ? find_arguments(tokens, parts.op) : npos;
    if (list == npos || list >= tokens.size() || !tokens[list - 1].text.starts_with("@llvm.")) {
        return {};
    }
    const Intrinsic *intrinsic = find_intrinsic(name_of(tokens[list - 1].text));
    const std::vector<Range> arguments = list_elements(tokens, list);
    if (intrinsic == nullptr || arguments.empty()) {
        return {};
    }
    if (intrinsic->fate == Fate::operand) {
        const std::size_t value = behind_type(tokens, arguments[0].begin);
        return slice(tokens, {value, arguments[0].end});
    }
    if (intrinsic->fate == Fate::no) {
        return {{Kind::word, " ", "false"}};
    }
    if (intrinsic->fate == Fate::unknown) {
        const bool least = arguments.size() > 1 && is(tokens[arguments[1].end - 1], "true");
        return {{Kind::number, " ", least ? "0" : "-1"}};
    }
    return {};
}

void adapt_instruction(Module &module, Function &function, Line &line)
{
    if (is_continuation(line.tokens)) {
        print(line.tokens, function.body);
        return;
    }
    std::vector<Tokens> before;
    const std::string_view op = line.tokens[find_parts(line.tokens).op].text;
    hoist_constants(module, function, line.tokens, before);
    if (op == "phi" && !before.empty()) {
        refuse(module, "phi of a computed constant");
    }
    const auto *const row =
        std::find_if(rows.begin(), rows.end(), [=](const Row &candidate) { return candidate.op == op; });
    const bool plain = std::find(plain_operators.begin(), plain_operators.end(), op) != plain_operators.end();
    const WordRule *rule = find_word(op);
    const bool refused = rule != nullptr && rule->action == Action::refuse;  // and told, like any such word
    if (row == rows.end() && !plain && !refused) {
        refuse(module, "instruction '" + std::string(op) + "'");
    }
    const bool kept = row == rows.end() || row->rewrite(module, function, line.tokens, before);
    for (const Tokens &tokens : before) {
        print(tokens, function.body);
    }
    if (kept) {
        print(line.tokens, function.body);
    }
}

}  // namespace adapt
