// The readers of the input: a line-oriented scanner and one reader for each construct of the text.
//
// A line reader returns 0, or non-zero after a reported failure. A reader of a construct returns null after a
// reported failure or for an input that is dropped: the caller adds nothing and goes on with the next line. The rest of
// a line after what a reader needs is ignored.
#pragma once

#include "model/model.h"

#include <cstdint>
#include <cstring>
#include <iterator>
#include <string_view>
#include <utility>

// ---- Scanner (scanner.cpp) --------------------------------------------------------------------------------------

// One scan result: a view of the line, valid until the next nextline().
struct Token {
    const char *start;   // where the scan began, before any white space
    const char *text;    // the first character; at the end of a line, its terminator
    std::uint16_t lead;  // characters between start and text
    std::uint16_t len;   // characters of the token, 0 at the end of a line
    std::uint16_t code;  // token::...
};

// Opens the input. Returns false, unreported, if it can't be read as a file.
bool openinput(const char *name);

// Reads the next line, of at most 8191 characters: a longer one comes in pieces. Returns the line, or null at the end
// of the input and ever after; the input is closed then. A read error is reported.
const char *nextline();

// Scans one token and moves the cursor past it. At the end of a line it gives token::end_of_line again and again.
// A string without its closing quote is reported and ends with the line.
void gettoken(Token &t);

// Moves the cursor back, so that the next gettoken() scans `t` again.
void ungettoken(const Token &t);

// Points the cursor at NUL-terminated text.
void setcursor(const char *text);

// Switches the report of strings without an end off or on. Returns whether one was found since the last call.
bool scanquietly(bool on);

// Turns a string token into a name token without the quotes.
void unquote(Token &t);

inline std::string_view tokentext(const Token &t)
{
    return {t.text, t.len};
}
// Whether the token is the identifier `word`.
inline bool isword(const Token &t, std::string_view word)
{
    return t.code == token::identifier && tokentext(t) == word;
}
// For findword(): each row has a comparison of its own, with a word of known length.
template <const auto &table, std::size_t place>
bool isrow(std::string_view text)
{
    constexpr std::string_view word = table[place].word;
    return text.size() == word.size() && std::memcmp(text.data(), word.data(), word.size()) == 0;
}
template <const auto &table, std::size_t... places>
auto findword(std::string_view text, std::index_sequence<places...> /*rows*/) -> decltype(&table[0])
{
    decltype(&table[0]) found = nullptr;
    static_cast<void>(((isrow<table, places>(text) && (found = &table[places])) || ...));
    return found;
}
// The row of `table`, an array whose rows have a `word`, that has the text of the token; null for none and for a token
// that is no identifier. The first of two rows with one word counts.
template <const auto &table>
auto findword(const Token &t)
{
    const std::string_view text = t.code == token::identifier ? tokentext(t) : std::string_view();
    return findword<table>(text, std::make_index_sequence<std::size(table)>());
}
// Takes the next token if its code is `code`, or reports `message` and returns false; the token is taken either way.
bool expect(std::uint16_t code, const char *message);
// The same for an identifier.
bool expectword(std::string_view word, const char *message);
// Takes an identifier and gives its name, or reports `message` and returns null.
Name *expectname(const char *message);
// Takes the next token only if its code is `code`.
bool acceptif(std::uint16_t code);
// Whether nothing is left on the line.
bool atend();

// ---- Types (types.cpp) ------------------------------------------------------------------------------------------

// Reads one type; the token after it is left. Never null: a type that can't be read is reported and gives an int.
Type *readtype();
// The rest of a line that begins with `%`: name = type ...
int readaggregateline();

// ---- Module lines (globals.cpp) ---------------------------------------------------------------------------------

int readgloballine();  // the rest of a line that begins with `@`
int readdeclare();     // the rest of a `declare` line
int readmetaline();    // the rest of a line that begins with `!`
// Scans attribute words and returns the OR of their flags; the first other token is left.
std::uint32_t readwords();

// ---- Operands (terms.cpp) ---------------------------------------------------------------------------------------

// Reads one operand; never null. `type` is its type, null if the text has the type before it. With a
// `block`, locals are replaced by the trees that define them; without, they stay leaves of code leaf::local.
Expr *readterm(Type *type, Block *block);

// ---- Instructions (instructions.cpp) ----------------------------------------------------------------------------

// The right-hand side of `%name = ...`; `name` is null where only the tree is wanted.
Inst *readinst(Name *name, Block *block);
Inst *readstore(Block *block);
// A cast of `operand` to its own type record, which gets the other signedness, also in all other nodes that have it.
Expr *forcesign(Expr *operand);

// ---- Calls (calls.cpp) ------------------------------------------------------------------------------------------

// What follows the words `call` and `invoke`. `instruction` is the Inst of a value line; null makes a statement.
Inst *readcall(Block *block, Inst *instruction);
Inst *readinvoke(Block *block, Inst *instruction);
// Takes the marker before the word `call`, if `t` is one; `t` is then that word. Returns false after a report.
bool skiptailmarker(Token &t);
// One argument of a call.
Expr *readparam(Block *block);
// One parameter of a function header; unnamed ones are numbered from unnamed_params.
Symbol *readparam();
extern std::uint32_t unnamed_params;
// Takes the token after a parameter of a declaration or a header. Returns whether the list has ended, at ")" or with
// the line; anything but a comma is reported.
bool endsparams();
extern bool after_invoke;  // an invoke was read and its `to` line is due

// ---- Branches (branches.cpp) ------------------------------------------------------------------------------------

Inst *readbr(Block *block);
Inst *readto();
Inst *readswitch(Block *block);
Inst *readret(Block *block);
// The pairs of a phi, into `instruction`.
Inst *readphi(Inst *instruction);

// ---- Functions (functions.cpp) ----------------------------------------------------------------------------------

int readdefine();  // from after the word `define` to the closing brace
