#include "adapt/text.h"

#include <algorithm>
#include <array>

namespace adapt {

namespace {

bool is_digit(char c)
{
    return c >= '0' && c <= '9';
}

bool is_letter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool is_blank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\v' || c == '\f';
}

bool is_name(char c)
{
    return is_letter(c) || is_digit(c) || c == '_' || c == '.' || c == '$' || c == '-';
}

bool is_word_start(char c)
{
    return is_letter(c) || c == '_' || c == '.' || c == '$';
}

// The functions below take the position of a token's first character and give the position behind the token.

std::size_t behind_string(std::string_view line, std::size_t at)
{
    const std::size_t close = line.find('"', at + 1);
    return close == std::string_view::npos ? line.size() : close + 1;
}

std::size_t behind_name(std::string_view line, std::size_t at)
{
    while (at < line.size() && is_name(line[at])) {
        ++at;
    }
    return at;
}

std::size_t behind_number(std::string_view line, std::size_t at)
{
    ++at;
    while (at < line.size()) {
        const char c = line[at];
        const bool exponent_sign = (c == '+' || c == '-') && line[at - 1] == 'e';
        if (!is_digit(c) && !is_letter(c) && c != '.' && !exponent_sign) {
            break;
        }
        ++at;
    }
    return at;
}

struct Scan {
    Kind kind;
    std::size_t end;
};

Scan scan_sigil(std::string_view line, std::size_t at)
{
    static constexpr std::string_view sigils = "%@$!#";
    static constexpr std::array<Kind, 5> kinds = {Kind::local, Kind::global, Kind::comdat, Kind::meta, Kind::group};
    const Kind kind = kinds.at(sigils.find(line[at]));
    if (kind != Kind::meta && at + 1 < line.size() && line[at + 1] == '"') {
        return {kind, behind_string(line, at + 1)};
    }
    return {kind, behind_name(line, at + 1)};
}

Scan scan_token(std::string_view line, std::size_t at)
{
    const char c = line[at];
    const char next = at + 1 < line.size() ? line[at + 1] : '\0';
    if (c == ';') {
        return {Kind::comment, line.size()};
    }
    if (c == '%' || c == '@' || c == '!' || c == '#' || (c == '$' && (next == '"' || is_name(next)))) {
        return scan_sigil(line, at);
    }
    if (is_digit(c) || (c == '-' && is_digit(next))) {
        return {Kind::number, behind_number(line, at)};
    }
    if (c == '"' || (c == 'c' && next == '"')) {
        return {Kind::string, behind_string(line, c == '"' ? at : at + 1)};
    }
    if (line.substr(at, 3) == "...") {
        return {Kind::punct, at + 3};
    }
    if (is_word_start(c)) {
        return {Kind::word, behind_name(line, at)};
    }
    return {Kind::punct, at + 1};
}

bool opens(const Token &token)
{
    return token.kind == Kind::punct && token.text.size() == 1 && std::string_view("([{<").find(token.text[0]) != npos;
}

bool closes(const Token &token)
{
    return token.kind == Kind::punct && token.text.size() == 1 && std::string_view(")]}>").find(token.text[0]) != npos;
}

bool is_type_word(std::string_view word)
{
    static constexpr std::array<std::string_view, 12> words = {"void",   "float",    "double", "half",
                                                               "bfloat", "x86_fp80", "fp128",  "ppc_fp128",
                                                               "label",  "metadata", "ptr",    "token"};
    if (std::find(words.begin(), words.end(), word) != words.end()) {
        return true;
    }
    return word.size() > 1 && word[0] == 'i' && std::all_of(word.begin() + 1, word.end(), is_digit);
}

int hex_digit(char c)
{
    static constexpr std::string_view digits = "0123456789abcdef0123456789ABCDEF";
    const std::size_t at = digits.find(c);
    return at == std::string_view::npos ? -1 : static_cast<int>(at % 16);
}

}  // namespace

Tokens lex(std::string_view line)
{
    Tokens tokens;
    std::size_t at = 0;
    while (at < line.size()) {
        const std::size_t start = at;
        while (at < line.size() && is_blank(line[at])) {
            ++at;
        }
        if (at == line.size()) {
            break;
        }
        const Scan scan = scan_token(line, at);
        tokens.push_back({scan.kind, line.substr(start, at - start), line.substr(at, scan.end - at)});
        at = scan.end;
    }
    return tokens;
}

void print(const Tokens &tokens, std::string &out)
{
    for (const Token &token : tokens) {
        out += token.gap;
        out += token.text;
    }
    out += '\n';
}

bool is(const Token &token, std::string_view text)
{
    return token.text == text && token.kind != Kind::string;
}

void replace_local(Tokens &tokens, std::string_view from, std::string_view to)
{
    for (Token &token : tokens) {
        if (token.kind == Kind::local && token.text == from) {
            token.text = to;
        }
    }
}

bool is_at(const Tokens &tokens, std::size_t at, std::string_view text)
{
    return at < tokens.size() && is(tokens[at], text);
}

bool is_numbered(const Token &token)
{
    return token.kind == Kind::local && token.text.size() > 1 &&
           std::all_of(token.text.begin() + 1, token.text.end(), is_digit);
}

std::size_t behind_bracket(const Tokens &tokens, std::size_t open)
{
    std::size_t depth = 0;
    for (std::size_t at = open; at < tokens.size(); ++at) {
        if (opens(tokens[at])) {
            ++depth;
        } else if (closes(tokens[at]) && --depth == 0) {
            return at + 1;
        }
    }
    return tokens.size();
}

std::size_t behind_type(const Tokens &tokens, std::size_t at)
{
    if (at >= tokens.size()) {
        return npos;
    }
    const Token &head = tokens[at];
    if (is(head, "[") || is(head, "{") || is(head, "<")) {
        at = behind_bracket(tokens, at);
    } else if (head.kind == Kind::local || is(head, "...") || (head.kind == Kind::word && is_type_word(head.text))) {
        ++at;
    } else {
        return npos;
    }
    while (at < tokens.size()) {
        if (is(tokens[at], "*")) {
            ++at;
        } else if (is(tokens[at], "(")) {
            at = behind_bracket(tokens, at);
        } else if (is(tokens[at], "addrspace") && is_at(tokens, at + 1, "(")) {
            at = behind_bracket(tokens, at + 1);
        } else {
            break;
        }
    }
    return at;
}

Tokens slice(const Tokens &tokens, Range range)
{
    const std::size_t end = std::min(range.end, tokens.size());
    if (range.begin >= end) {
        return {};
    }
    return {tokens.begin() + static_cast<std::ptrdiff_t>(range.begin),
            tokens.begin() + static_cast<std::ptrdiff_t>(end)};
}

std::vector<Range> list_elements(const Tokens &tokens, std::size_t open)
{
    std::vector<Range> elements;
    const std::size_t end = behind_bracket(tokens, open);
    const bool closed = end > open + 1 && closes(tokens[end - 1]);
    const std::size_t last = closed ? end - 1 : end;
    std::size_t start = open + 1;
    std::size_t depth = 0;
    for (std::size_t at = open + 1; at < last; ++at) {
        if (opens(tokens[at])) {
            ++depth;
        } else if (closes(tokens[at])) {
            --depth;
        } else if (depth == 0 && is(tokens[at], ",")) {
            elements.push_back({start, at});
            start = at + 1;
        }
    }
    if (start < last) {
        elements.push_back({start, last});
    }
    return elements;
}

std::string text_of(const Tokens &tokens, Range range)
{
    std::string text;
    for (std::size_t at = range.begin; at < range.end && at < tokens.size(); ++at) {
        if (at > range.begin) {
            text += tokens[at].gap;
        }
        text += tokens[at].text;
    }
    return text;
}

std::string name_of(std::string_view text)
{
    if (text.size() < 2 || text[1] != '"') {
        return std::string(text.substr(text.empty() ? 0 : 1));
    }
    text.remove_prefix(2);
    if (!text.empty() && text.back() == '"') {
        text.remove_suffix(1);
    }
    std::string name;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '\\' && at + 2 < text.size() + 0 && hex_digit(text[at + 1]) >= 0 &&
            hex_digit(text[at + 2]) >= 0) {
            name += static_cast<char>(hex_digit(text[at + 1]) * 16 + hex_digit(text[at + 2]));
            at += 2;
        } else {
            name += text[at];
        }
    }
    return name;
}

}  // namespace adapt
