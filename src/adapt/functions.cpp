// A function as a whole: which of its lines go, in which order its steps are taken, and where added variables stand.
#include "adapt/function.h"
#include "adapt/intrinsics.h"

#include <algorithm>

namespace adapt {

namespace {

// The name of the intrinsic that a line calls, or nothing.
std::string called_intrinsic(const Tokens &tokens)
{
    for (std::size_t at = 0; at + 1 < tokens.size(); ++at) {
        if (tokens[at].kind == Kind::global && is(tokens[at + 1], "(")) {
            return tokens[at].text.starts_with("@llvm.") ? name_of(tokens[at].text) : std::string();
        }
    }
    return {};
}

bool is_dropped_call(const Tokens &tokens)
{
    const Intrinsic *intrinsic = find_intrinsic(called_intrinsic(tokens));
    return intrinsic != nullptr && intrinsic->fate == Fate::drop;
}

bool is_clause(const Tokens &tokens)
{
    return is(tokens[0], "catch") || is(tokens[0], "cleanup") || is(tokens[0], "filter");
}

// A landing pad lists its clauses line by line. quarl skips one line behind it, which stands for all.
bool is_further_clause(const std::vector<Line> &lines, const Line &line)
{
    return is_clause(line.tokens) && !lines.empty() && !lines.back().tokens.empty() && is_clause(lines.back().tokens);
}

// Keeps the lines that have something to say, with their words adapted.
std::vector<Line> filter_lines(Module &module, std::vector<Line> &lines)
{
    std::vector<Line> kept;
    for (std::size_t place = 1; place < lines.size(); ++place) {
        Line &line = lines[place];
        module.line = line.number;
        if (line.tokens.empty() || is_dropped_call(line.tokens) || is_further_clause(kept, line)) {
            continue;
        }
        if (is_label(line.tokens)) {
            line.tokens.resize(2);  // the comment names blocks that may get other names
        } else {
            line.tokens = filter_words(module, line.tokens);
        }
        kept.push_back(std::move(line));
    }
    return kept;
}

// A pointer into an address space of its own is followed by other instructions than the rest. Function pointers are
// another matter: the type in front of their address space ends in a parenthesis.
void refuse_elsewhere(Module &module, const std::vector<Line> &lines)
{
    for (const Line &line : lines) {
        const Tokens &tokens = line.tokens;
        for (std::size_t at = 1; at + 5 < tokens.size(); ++at) {
            const bool pointer = is(tokens[at], "addrspace") && is(tokens[at + 4], "*");
            if (pointer && !is(tokens[at - 1], ")") && !is(tokens[at + 5], "*") && !is(tokens[at + 5], ",") &&
                (find_parts(tokens).op != npos) &&
                (is(tokens[find_parts(tokens).op], "load") || is(tokens[find_parts(tokens).op], "store"))) {
                module.line = line.number;
                refuse(module, "access to an address space of its own");
            }
        }
    }
}

// The parameters of the header lose the numbers that stand for their names: quarl counts them itself.
void drop_numbered_names(Tokens &header)
{
    header.erase(std::remove_if(header.begin(), header.end(), is_numbered), header.end());
}

void write_lines(Module &module, Function &function)
{
    bool entry = true;
    for (Line &line : *function.lines) {
        module.line = line.number;
        if (is_label(line.tokens)) {
            function.body += entry ? "" : "\n";
            print(line.tokens, entry ? function.head : function.body);
        } else {
            adapt_instruction(module, function, line);
        }
        entry = false;
    }
}

}  // namespace

Instruction find_parts(const Tokens &tokens)
{
    Instruction parts;
    std::size_t at = 0;
    if (tokens.size() > 2 && tokens[0].kind == Kind::local && is(tokens[1], "=")) {
        parts.result = 0;
        at = 2;
    }
    if (at < tokens.size() && (is(tokens[at], "tail") || is(tokens[at], "musttail") || is(tokens[at], "notail"))) {
        ++at;
    }
    parts.op = at < tokens.size() && tokens[at].kind == Kind::word ? at : npos;
    return parts;
}

bool is_label(const Tokens &tokens)
{
    return tokens.size() > 1 && is(tokens[1], ":") && tokens[1].gap.empty() && tokens[0].gap.empty();
}

std::string_view fresh_name(Module &module, Function &function, const std::string &stem, char separator)
{
    std::string name = stem;
    for (std::size_t n = 1; function.taken.contains(name) || function.forms.contains(c_form(name)); ++n) {
        name = stem + separator + std::to_string(n);
    }
    function.taken.insert(name);
    function.forms.insert(c_form(name));
    return keep(module, "%" + name);
}

std::string_view fresh_number(Module &module, Function &function)
{
    return keep(module, "%" + std::to_string(function.next_number++));
}

void adapt_function(Module &module, std::vector<Line> &lines)
{
    refuse_elsewhere(module, lines);
    module.line = lines[0].number;
    adapt_header(module, lines[0]);
    std::vector<Line> body = filter_lines(module, lines);
    body.insert(body.begin(), std::move(lines[0]));

    Function function;
    function.lines = &body;
    settle_locals(module, function);

    drop_numbered_names(body[0].tokens);
    print(body[0].tokens, function.head);
    body.erase(body.begin());
    write_lines(module, function);
    module.out += function.head;
    module.out += function.slots;
    module.out += function.body;
}

}  // namespace adapt
