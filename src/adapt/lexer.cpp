#include "adapt/lexer.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>

namespace adapt {

namespace {

enum CharClass : std::uint8_t { name_char = 1, digit_char = 2, space_char = 4 };

constexpr std::array<std::uint8_t, 256> makeclasses()
{
    std::array<std::uint8_t, 256> classes = {};
    for (const char c : std::string_view("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ$._-0123456789")) {
        classes[static_cast<unsigned char>(c)] |= name_char;
    }
    for (const char c : std::string_view("0123456789")) {
        classes[static_cast<unsigned char>(c)] |= digit_char;
    }
    for (const char c : std::string_view(" \t\r\n")) {
        classes[static_cast<unsigned char>(c)] |= space_char;
    }
    return classes;
}

constexpr std::array<std::uint8_t, 256> classes = makeclasses();

bool isclass(char c, CharClass wanted)
{
    return (classes[static_cast<unsigned char>(c)] & wanted) != 0;
}

std::string_view viewof(const char *start, const char *end)
{
    return {start, static_cast<std::size_t>(end - start)};
}

const char *findnewline(const Lexer &lexer)
{
    const void *found = std::memchr(lexer.at, '\n', static_cast<std::size_t>(lexer.end - lexer.at));
    return found == nullptr ? lexer.end : static_cast<const char *>(found);
}

void skipspace(Lexer &lexer)
{
    while (lexer.at < lexer.end) {
        if (*lexer.at == '\n') {
            ++lexer.line;
        } else if (*lexer.at == ';') {
            lexer.at = findnewline(lexer);
            continue;
        } else if (!isclass(*lexer.at, space_char)) {
            return;
        }
        ++lexer.at;
    }
}

void skipname(Lexer &lexer)
{
    while (lexer.at < lexer.end && isclass(*lexer.at, name_char)) {
        ++lexer.at;
    }
}

int hexdigit(char c)
{
    if (c >= '0' && c <= '9') {
        return c - '0';
    }
    const char low = static_cast<char>(c | 0x20);
    return low >= 'a' && low <= 'f' ? low - 'a' + 10 : -1;
}

// Takes \\ and \hh for the bytes that they mean; any other backslash is one.
std::string unescape(std::string_view text)
{
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\\' && i + 1 < text.size() && text[i + 1] == '\\') {
            out += '\\';
            ++i;
        } else if (text[i] == '\\' && i + 2 < text.size() && hexdigit(text[i + 1]) >= 0 && hexdigit(text[i + 2]) >= 0) {
            out += static_cast<char>(hexdigit(text[i + 1]) * 16 + hexdigit(text[i + 2]));
            i += 2;
        } else {
            out += text[i];
        }
    }
    return out;
}

// Reads a text in quotes, from its opening quote on. False if the closing one isn't there.
bool readquoted(Lexer &lexer, std::string_view &text)
{
    const char *start = lexer.at + 1;
    const void *found = std::memchr(start, '"', static_cast<std::size_t>(lexer.end - start));
    if (found == nullptr) {
        return false;
    }
    const char *end = static_cast<const char *>(found);
    text = viewof(start, end);
    lexer.line += static_cast<std::size_t>(std::count(start, end, '\n'));
    lexer.at = end + 1;
    if (text.find('\\') != std::string_view::npos) {
        text = lexer.arena->texts.emplace_back(unescape(text));
    }
    return true;
}

// The name after a sigil, in quotes or not. A sigil without a name is a fault, but for !.
void readsigil(Lexer &lexer, TokenKind kind)
{
    Token &token = lexer.token;
    ++lexer.at;
    token.kind = kind;
    if (lexer.at < lexer.end && *lexer.at == '"' && kind != TokenKind::metadata) {
        token.quoted = true;
        if (!readquoted(lexer, token.text) || token.text.empty()) {
            token.kind = TokenKind::fault;
        }
        return;
    }
    const char *start = lexer.at;
    skipname(lexer);
    while (kind == TokenKind::metadata && lexer.at + 2 < lexer.end && *lexer.at == '\\') {
        lexer.at += 3;  // names of metadata write odd characters as \hh without quotes
        skipname(lexer);
    }
    token.text = viewof(start, lexer.at);
    if (token.text.empty() && kind != TokenKind::metadata) {
        token.kind = TokenKind::fault;
    }
}

bool takecolon(Lexer &lexer)
{
    if (lexer.at < lexer.end && *lexer.at == ':') {
        ++lexer.at;
        return true;
    }
    return false;
}

void readstring(Lexer &lexer)
{
    Token &token = lexer.token;
    token.kind = TokenKind::fault;
    if (readquoted(lexer, token.text)) {
        token.kind = TokenKind::string;
        if (takecolon(lexer)) {
            token.kind = TokenKind::label;
            token.quoted = true;
        }
    }
}

// Words, labels and numbers: all begin with a character of names, + is for numbers alone.
void readword(Lexer &lexer)
{
    Token &token = lexer.token;
    const char *start = lexer.at;
    const char first = *start;
    ++lexer.at;
    skipname(lexer);
    if (takecolon(lexer)) {
        token.kind = TokenKind::label;
        token.text = viewof(start, lexer.at - 1);
        return;
    }
    const bool is_number = isclass(first, digit_char) || first == '+' ||
                           (first == '-' && start + 1 < lexer.end && isclass(start[1], digit_char));
    if (is_number && lexer.at < lexer.end && *lexer.at == '+' && (lexer.at[-1] == 'e' || lexer.at[-1] == 'E')) {
        ++lexer.at;  // the sign of an exponent
        skipname(lexer);
    }
    token.kind = is_number ? TokenKind::number : TokenKind::word;
    token.text = viewof(start, lexer.at);
}

void readpunct(Lexer &lexer)
{
    constexpr std::string_view puncts = "=,*[]{}()<>|:^/";
    Token &token = lexer.token;
    token.kind = puncts.find(*lexer.at) != std::string_view::npos ? TokenKind::punct : TokenKind::fault;
    token.text = viewof(lexer.at, lexer.at + 1);
    ++lexer.at;
}

void readother(Lexer &lexer, char first)
{
    Token &token = lexer.token;
    if (first == '.' && lexer.end - lexer.at >= 3 && std::memcmp(lexer.at, "...", 3) == 0) {
        token.kind = TokenKind::ellipsis;
        token.text = viewof(lexer.at, lexer.at + 3);
        lexer.at += 3;
    } else if (first == 'c' && lexer.at + 1 < lexer.end && lexer.at[1] == '"') {
        ++lexer.at;
        token.kind = readquoted(lexer, token.text) ? TokenKind::bytes : TokenKind::fault;
    } else if (isclass(first, name_char) || first == '+') {
        readword(lexer);
    } else {
        readpunct(lexer);
    }
}

}  // namespace

Lexer startlexer(std::string_view text, std::size_t line, Arena &arena)
{
    Lexer lexer;
    lexer.at = text.data();
    lexer.end = text.data() + text.size();
    lexer.line = line;
    lexer.arena = &arena;
    advance(lexer);
    return lexer;
}

void advance(Lexer &lexer)
{
    skipspace(lexer);
    Token &token = lexer.token;
    token = {TokenKind::end, false, {}, lexer.line, lexer.at};
    if (lexer.at == lexer.end) {
        return;
    }
    switch (*lexer.at) {
    case '%':
        return readsigil(lexer, TokenKind::local);
    case '@':
        return readsigil(lexer, TokenKind::global);
    case '$':
        return readsigil(lexer, TokenKind::comdat);
    case '!':
        return readsigil(lexer, TokenKind::metadata);
    case '#':
        return readsigil(lexer, TokenKind::group);
    case '"':
        return readstring(lexer);
    default:
        return readother(lexer, *lexer.at);
    }
}

void skipline(Lexer &lexer)
{
    lexer.at = findnewline(lexer);
    if (lexer.at < lexer.end) {
        ++lexer.at;
        ++lexer.line;
    }
}

bool isdigits(std::string_view text)
{
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) { return isclass(c, digit_char); });
}

std::uint64_t decimalnumber(std::string_view digits)
{
    constexpr std::uint64_t most = std::numeric_limits<std::uint64_t>::max();
    std::uint64_t number = 0;
    for (const char c : digits) {
        const auto digit = static_cast<std::uint64_t>(c - '0');
        if (number > (most - digit) / 10) {
            return most;
        }
        number = number * 10 + digit;
    }
    return number;
}

}  // namespace adapt
