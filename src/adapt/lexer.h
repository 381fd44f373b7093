// The tokens of IR text. A lexer is a cursor over the input; its texts are views of the input, or of the arena where
// quotes and escapes had to be taken away.
#pragma once

#include "adapt/ir.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace adapt {

enum class TokenKind : std::uint8_t {
    end,       // of the text, or after an error
    word,      // define, i32, x
    local,     // %name; `text` without the %
    global,    // @name
    comdat,    // $name
    metadata,  // !name, !5, or ! alone
    group,     // #5
    number,    // 12, -3, 1.5e3, 0x3FF8000000000000, 0xK...
    string,    // "..." decoded
    bytes,     // c"..." decoded
    label,     // name: at the start of a block; without the colon
    ellipsis,  // ...
    punct,     // one character
    fault,     // what no token begins with, or a quote without an end
};

struct Token {
    TokenKind kind = TokenKind::end;
    bool quoted = false;  // a name in quotes, which is never a number
    std::string_view text;
    std::size_t line = 0;
    const char *start = nullptr;  // in the input
};

struct Lexer {
    const char *at = nullptr;
    const char *end = nullptr;
    std::size_t line = 1;
    Arena *arena = nullptr;  // keeps decoded texts
    Token token;             // the current one
};

// A cursor over `text`, whose first line is `line`, standing on the first token.
Lexer startlexer(std::string_view text, std::size_t line, Arena &arena);
// Goes to the next token.
void advance(Lexer &lexer);
// Goes to the start of the line after the one that the lexer stands in, without reading a token.
void skipline(Lexer &lexer);
// Whether `text` is a plain decimal number, as of %5 or !5.
bool isdigits(std::string_view text);
// The number that decimal digits give; all ones if it is too large.
std::uint64_t decimalnumber(std::string_view digits);

}  // namespace adapt
