#include "adapt/constants.h"
#include "adapt/function.h"

#include <algorithm>
#include <array>

namespace adapt {

namespace {

enum class Shape : std::uint8_t { cast, pair, list };

struct Operator {
    std::string_view word;
    Shape shape;
};

// All that a constant can be computed by, the four apart.
constexpr std::array operators = {
    Operator{"add", Shape::pair},          Operator{"and", Shape::pair},         Operator{"ashr", Shape::pair},
    Operator{"extractvalue", Shape::list}, Operator{"fadd", Shape::pair},        Operator{"fcmp", Shape::pair},
    Operator{"fdiv", Shape::pair},         Operator{"fmul", Shape::pair},        Operator{"fneg", Shape::list},
    Operator{"fpext", Shape::cast},        Operator{"fptosi", Shape::cast},      Operator{"fptoui", Shape::cast},
    Operator{"fptrunc", Shape::cast},      Operator{"frem", Shape::pair},        Operator{"fsub", Shape::pair},
    Operator{"icmp", Shape::pair},         Operator{"insertvalue", Shape::list}, Operator{"lshr", Shape::pair},
    Operator{"mul", Shape::pair},          Operator{"or", Shape::pair},          Operator{"sdiv", Shape::pair},
    Operator{"select", Shape::list},       Operator{"sext", Shape::cast},        Operator{"shl", Shape::pair},
    Operator{"sitofp", Shape::cast},       Operator{"srem", Shape::pair},        Operator{"sub", Shape::pair},
    Operator{"trunc", Shape::cast},        Operator{"udiv", Shape::pair},        Operator{"uitofp", Shape::cast},
    Operator{"urem", Shape::pair},         Operator{"xor", Shape::pair},         Operator{"zext", Shape::cast},
};

const Operator *find_operator(std::string_view word)
{
    const auto *const found =
        std::find_if(operators.begin(), operators.end(), [=](const Operator &row) { return row.word == word; });
    return found == operators.end() ? nullptr : found;
}

// Position of the parenthesis behind the operator and its flags or predicate, or npos.
std::size_t find_list(const Tokens &tokens, std::size_t at)
{
    for (std::size_t list = at + 1; list < tokens.size() && list < at + 4; ++list) {
        if (is(tokens[list], "(")) {
            return list;
        }
        if (tokens[list].kind != Kind::word || behind_type(tokens, list) != npos) {
            return npos;
        }
    }
    return npos;
}

// `sub (i16 A, i16 B)` as an instruction: `sub i16 A, B`. The constant is the whole of `tokens`.
Tokens as_instruction(const Tokens &tokens, Shape shape)
{
    const std::size_t list = find_list(tokens, 0);
    Tokens result(tokens.begin(), tokens.begin() + static_cast<std::ptrdiff_t>(list));
    const std::vector<Range> operands = list_elements(tokens, list);
    for (std::size_t place = 0; place < operands.size(); ++place) {
        std::size_t begin = operands[place].begin;
        if (place > 0) {
            result.push_back({Kind::punct, "", ","});
            const std::size_t value = behind_type(tokens, begin);
            begin = shape == Shape::pair && value != npos ? value : begin;
        }
        const std::size_t first = result.size();
        const Tokens operand = slice(tokens, {begin, operands[place].end});
        result.insert(result.end(), operand.begin(), operand.end());
        if (first < result.size()) {
            result[first].gap = " ";
        }
    }
    return result;
}

// A parenthesis that is open, and the operator that it belongs to.
struct Open {
    std::size_t start = npos;  // in the output
    Shape shape = Shape::list;
};

Token compute(Module &module, Function &function, Tokens &out, const Open &open, std::vector<Tokens> &before)
{
    const auto start = out.begin() + static_cast<std::ptrdiff_t>(open.start);
    const std::string_view gap = start->gap;
    Tokens constant(start, out.end());
    out.erase(start, out.end());
    Tokens line = as_instruction(constant, open.shape);
    line[0].gap = " ";
    const Token name = {Kind::local, "  ", fresh_name(module, function, "const")};
    line.insert(line.begin(), {name, {Kind::punct, " ", "="}});
    before.push_back(std::move(line));
    return {Kind::local, gap, name.text};
}

}  // namespace

bool is_constant_operator(const Tokens &tokens, std::size_t at)
{
    return tokens[at].kind == Kind::word && find_operator(tokens[at].text) != nullptr && find_list(tokens, at) != npos;
}

void hoist_constants(Module &module, Function &function, Tokens &tokens, std::vector<Tokens> &before)
{
    const Instruction parts = find_parts(tokens);
    if (parts.op == npos) {
        return;
    }
    // quarl reads a comparison of constants as the condition of a branch itself.
    const bool branch = is(tokens[parts.op], "br");
    Tokens out(tokens.begin(), tokens.begin() + static_cast<std::ptrdiff_t>(parts.op) + 1);
    std::vector<Open> opens;
    Open next;
    for (std::size_t at = parts.op + 1; at < tokens.size(); ++at) {
        const Token &token = tokens[at];
        const bool condition = branch && at == parts.op + 2;
        if (!condition && is_constant_operator(tokens, at)) {
            next = {out.size(), find_operator(token.text)->shape};
        }
        out.push_back(token);
        if (is(token, "(")) {
            opens.push_back(next);
            next = {};
        } else if (is(token, ")") && !opens.empty()) {
            const Open open = opens.back();
            opens.pop_back();
            if (open.start != npos) {
                out.push_back(compute(module, function, out, open, before));
            }
        }
    }
    tokens = std::move(out);
}

}  // namespace adapt
