// What has to happen to a line word by word, wherever the word stands. Names carry a % or @, so a bare word is always a
// word of the language, and a flat list of tokens is enough to decide.
#include "adapt/words.h"
#include "adapt/module.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>

namespace adapt {

namespace {

bool keeps_flag(const Tokens &out, std::string_view flag)
{
    if (out.empty()) {
        return false;
    }
    const std::string_view before = out.back().text;
    if (flag == "exact") {
        return before == "udiv" || before == "sdiv" || before == "lshr" || before == "ashr";
    }
    return before == "add" || before == "sub" || before == "mul" || before == "nuw" || before == "nsw";
}

bool is_flag(std::string_view word)
{
    return word == "nuw" || word == "nsw" || word == "exact";
}

// An integer type word that the vocabulary has no kind for.
bool is_odd_integer(std::string_view word)
{
    if (word.size() < 2 || word[0] != 'i' || word.find_first_not_of("0123456789", 1) != npos) {
        return false;
    }
    return std::find(integer_types.begin(), integer_types.end(), word) == integer_types.end();
}

// Behind a word, the bracketed list that belongs to it.
std::size_t behind_argument(const Tokens &tokens, std::size_t word)
{
    return is_at(tokens, word + 1, "(") ? behind_bracket(tokens, word + 1) : word + 1;
}

// Takes the word at `at` to `out` or drops it. Returns the position behind what it took.
std::size_t filter_word(Module &module, const Tokens &tokens, std::size_t at, Tokens &out)
{
    const Token &token = tokens[at];
    const std::string_view word = token.text;
    if (is_flag(word)) {
        if (keeps_flag(out, word)) {
            out.push_back(token);
        }
        return at + 1;
    }
    if (const WordRule *rule = find_word(word)) {
        switch (rule->action) {
        case Action::drop:
            return at + 1;
        case Action::drop_with_list:
            return behind_argument(tokens, at);
        case Action::drop_list:
            out.push_back(token);
            return behind_argument(tokens, at);
        case Action::replace:
            out.push_back({Kind::word, token.gap, rule->text});
            return at + 1;
        case Action::refuse:
            refuse(module, std::string(rule->text) + " ('" + std::string(word) + "')");
            break;
        }
    }
    if (is_odd_integer(word)) {
        refuse(module, "integer width ('" + std::string(word) + "')");
    }
    out.push_back(token);
    return at + 1;
}

// Floating constants that have no short decimal form come as the bits of a double. quarl takes those for what they are
// in a float alone, and with one digit too few, so all are written as decimals.
Token decimal(Module &module, const Token &token)
{
    std::uint64_t bits = 0;
    for (const char c : token.text.substr(2)) {
        bits = bits * 16 + static_cast<std::uint64_t>(c <= '9' ? c - '0' : (c | 0x20) - 'a' + 10);
    }
    const double value = std::bit_cast<double>(bits);
    if (std::isnan(value)) {
        refuse(module, "constant that is not a number");
        return token;
    }
    if (std::isinf(value)) {  // beyond any range, which C's compilers take for infinity
        return {Kind::number, token.gap, value < 0 ? "-1.000000e+999" : "1.000000e+999"};
    }
    const bool single = static_cast<double>(static_cast<float>(value)) == value;
    std::array<char, 40> text = {};
    std::snprintf(text.data(), text.size(), "%.*e", single ? 8 : 16, value);
    return {Kind::number, token.gap, keep(module, text.data())};
}

bool is_bits(const Token &token)
{
    return token.kind == Kind::number && token.text.size() == 18 && token.text.starts_with("0x") &&
           token.text.find_first_not_of("0123456789abcdefABCDEF", 2) == std::string_view::npos;
}

// An attachment is a named metadata token with a second one behind it: `, !dbg !5`. It takes its comma along.
bool is_attachment(const Tokens &tokens, std::size_t at)
{
    return tokens[at].kind == Kind::meta && tokens[at].text.size() > 1 && at + 1 < tokens.size() &&
           tokens[at + 1].kind == Kind::meta && tokens[at + 1].text.size() > 1 &&
           std::string_view("0123456789").find(tokens[at].text[1]) == std::string_view::npos;
}

// Takes the `<{` of a packed structure as `{`.
void open_packed(Module &module, const Tokens &tokens, std::size_t at, Tokens &out)
{
    if (!naturally_packed(module, tokens, at)) {
        refuse(module, "packed structure without a name whose layout C doesn't give");
    }
    out.push_back({Kind::punct, tokens[at].gap, "{"});
}

}  // namespace

Tokens filter_words(Module &module, const Tokens &tokens)
{
    Tokens out;
    out.reserve(tokens.size());
    std::vector<bool> packed;  // for each open brace, whether its < was dropped
    for (std::size_t at = 0; at < tokens.size();) {
        const Token &token = tokens[at];
        if (token.kind == Kind::word) {
            at = filter_word(module, tokens, at, out);
            continue;
        }
        if (is_attachment(tokens, at)) {
            if (!out.empty() && is(out.back(), ",")) {
                out.pop_back();
            }
            at += 2;
            continue;
        }
        const bool angle = is(token, "<");
        if (angle && !is_at(tokens, at + 1, "{")) {
            refuse(module, "vector");
            return out;
        }
        if (angle || is(token, "{")) {
            packed.push_back(angle);
        }
        if (angle) {
            open_packed(module, tokens, at, out);
            at += 2;
            continue;
        }
        out.push_back(is_bits(token) ? decimal(module, token) : token);
        ++at;
        if (is(token, "}") && !packed.empty()) {
            at += packed.back() && is_at(tokens, at, ">") ? std::size_t{1} : std::size_t{0};
            packed.pop_back();
        }
    }
    return out;
}

}  // namespace adapt
