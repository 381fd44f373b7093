// IR text as the adapter sees it: lines, and the tokens of a line with the blanks in front of each.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace adapt {

enum class Kind : std::uint8_t {
    word,     // define, i16, nsw, if.then (as a label at the start of a line)
    local,    // %x, %0, %"struct.a::b"
    global,   // @f, @"f$1"
    comdat,   // $f
    meta,     // !dbg, !5, and a ! alone in front of a { or a string
    group,    // #0
    number,   // -1, 1.500000e+00, 0x3FF0000000000000
    string,   // "..." and c"..."
    punct,    // one character, and the ellipsis
    comment,  // ; and the rest of the line
};

// A token is a view: of the input, or of a text that Module::made keeps.
struct Token {
    Kind kind = Kind::punct;
    std::string_view gap;  // the blanks in front
    std::string_view text;
};

using Tokens = std::vector<Token>;

struct Line {
    std::size_t number = 0;  // in the input, from 1
    Tokens tokens;
};

inline constexpr std::size_t npos = static_cast<std::size_t>(-1);

// Splits one line, without its newline, into tokens. Every byte of it ends up in a gap or in a text.
Tokens lex(std::string_view line);

// Appends the tokens and a newline to out.
void print(const Tokens &tokens, std::string &out);

bool is(const Token &token, std::string_view text);
bool is_at(const Tokens &tokens, std::size_t at, std::string_view text);

// True for %0, %1, ...: a local without a name of its own.
bool is_numbered(const Token &token);

// Position behind the bracket that closes the one at `open`, or tokens.size(). Brackets of all kinds count.
std::size_t behind_bracket(const Tokens &tokens, std::size_t open);

// Position behind the type that starts at `at`, or npos if no type starts there.
std::size_t behind_type(const Tokens &tokens, std::size_t at);

// Gives the locals of that text another one.
void replace_local(Tokens &tokens, std::string_view from, std::string_view to);

// A piece of a token list.
struct Range {
    std::size_t begin = 0;
    std::size_t end = 0;
};

// The tokens of a range. One that ends in front of its start has none: malformed text has such.
Tokens slice(const Tokens &tokens, Range range);

// What stands between the commas of the bracketed list that opens at `open`, outside of inner brackets.
std::vector<Range> list_elements(const Tokens &tokens, std::size_t open);

// The tokens of a range as text, without the gap in front of the first.
std::string text_of(const Tokens &tokens, Range range);

// The name of a local, global or comdat token: without its first character, its quotes and its escapes.
std::string name_of(std::string_view text);

}  // namespace adapt
