// The scanner: lines and tokens.

#include "reader/reader.h"

#include "base/base.h"

#include <array>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

// ---- Lines ------------------------------------------------------------------------------------------------------

namespace {

constexpr std::size_t longest_line = 8191;
constexpr std::size_t block_size = std::size_t{1} << 18;

FILE *in;
bool in_ended;                       // the file has no more bytes
constinit std::vector<char> window;  // bytes of the input; one spare byte for a terminator
std::size_t window_next;             // first byte not yet delivered
std::size_t window_end;              // end of the bytes
char held;                           // the byte that the terminator of the current line has replaced
const char *cursor = "";
const char *last_text;    // the token that was scanned last, null for none
const char *last_end;     // its end
std::uint16_t last_code;  // of it

void movecursor(const char *text)
{
    cursor = text;
    last_text = nullptr;
}

// Moves the rest to the start of the window and fills the window up.
void refill()
{
    std::memmove(window.data(), window.data() + window_next, window_end - window_next);
    window_end -= window_next;
    window_next = 0;
    const std::size_t got = std::fread(window.data() + window_end, 1, window.size() - 1 - window_end, in);
    window_end += got;
    in_ended = got == 0;
    leaveifinterrupted();
}

void closeinput()
{
    if (std::ferror(in))
        report("can't read %s", input_name);
    std::fclose(in);
    in = nullptr;
    movecursor("");
}

}  // namespace

bool openinput(const char *name)
{
    std::error_code error;
    if (std::filesystem::is_directory(name, error))
        return false;
    in = std::fopen(name, "r");
    if (!in)
        leaveifinterrupted();
    window.resize(block_size + 1);
    return in != nullptr;
}

const char *nextline()
{
    if (!in)
        return nullptr;
    leaveifinterrupted();
    window[window_next] = held;  // undo the terminator of the line before
    while (!in_ended && window_end - window_next < longest_line)
        refill();
    const std::size_t left = window_end - window_next;
    if (left == 0) {
        closeinput();
        return nullptr;
    }
    char *line = window.data() + window_next;
    std::size_t length = std::min(left, longest_line);
    if (const void *newline = std::memchr(line, '\n', length))
        length = static_cast<std::size_t>(static_cast<const char *>(newline) - line) + 1;
    window_next += length;
    held = window[window_next];
    window[window_next] = '\0';
    ++line_no;
    movecursor(line);
    return line;
}

// ---- Tokens -----------------------------------------------------------------------------------------------------

namespace {

// Classes of characters, by bits.
constexpr std::uint8_t is_space = 1;
constexpr std::uint8_t is_digit = 2;
constexpr std::uint8_t is_hex = 4;
constexpr std::uint8_t starts_word = 8;      // letter, _ and .
constexpr std::uint8_t continues_word = 16;  // these, digits and -
constexpr std::uint8_t continues_operator = 64;
constexpr std::uint8_t continues_number = 32;  // digits . e + -

constexpr void addclass(std::array<std::uint8_t, 256> &classes, std::string_view characters, std::uint8_t bits)
{
    for (const char c : characters)
        classes[static_cast<unsigned char>(c)] |= bits;
}

constexpr std::array<std::uint8_t, 256> makeclasses()
{
    std::array<std::uint8_t, 256> classes{};
    addclass(classes, " \t\n\v\f\r", is_space);
    addclass(classes, "0123456789", is_digit | is_hex | continues_word | continues_number);
    addclass(classes, "abcdefABCDEF", is_hex);
    addclass(classes, "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ_.", starts_word | continues_word);
    addclass(classes, "-", continues_word);
    addclass(classes, "=><+-&|#", continues_operator);
    addclass(classes, ".e+-", continues_number);
    return classes;
}

constexpr std::array<std::uint8_t, 256> classes = makeclasses();

bool is(char c, std::uint8_t bits)
{
    return (classes[static_cast<unsigned char>(c)] & bits) != 0;
}

const char *skipwhile(const char *at, std::uint8_t bits)
{
    while (is(*at, bits))
        ++at;
    return at;
}

// White space, and a comment up to the end of the text.
const char *skipblanks(const char *at)
{
    for (;;) {
        if (is(*at, is_space))
            ++at;
        else if (*at == ';')
            at += std::strlen(at);
        else
            return at;
    }
}

// Length of the escape or plain character at `at` within a string.
std::size_t stringunit(const char *at)
{
    if (*at != '\\')
        return 1;
    if (is(at[1], is_hex) && is(at[2], is_hex))
        return 3;
    return at[1] != '\0' && std::strchr("\"'?\\abfnrtv", at[1]) ? 2 : 1;
}

bool quiet;       // strings without an end are noted, not reported
bool unbalanced;  // one was noted

void reportunbalanced(char quote)
{
    unbalanced = true;
    if (!quiet)
        report("unbalanced %c", static_cast<unsigned char>(quote));
}

// The end of the string that starts at `at`.
const char *stringend(const char *at)
{
    const char quote = *at++;
    while (*at != '\0' && *at != quote)
        at += stringunit(at);
    if (*at == quote)
        return at + 1;
    reportunbalanced(quote);
    return at;
}

struct Operator {
    std::string_view text;
    std::uint16_t code;
};

constexpr Operator operators[] = {
    {",", token::comma},
    {"%", token::percent},
    {"*", token::star},
    {"(", token::left_paren},
    {")", token::right_paren},
    {"=", token::assign},
    {"@", token::at},
    {"!", token::bang},
    {":", token::colon},
    {"[", token::left_bracket},
    {"]", token::right_bracket},
    {"{", token::left_brace},
    {"}", token::right_brace},
    {"#", token::hash},
    {"<", token::less},
    {">", token::greater},
    {"->", token::arrow},
    {"?", token::question},
    {"++", token::increment},
    {"--", token::decrement},
    {"##", token::double_hash},
    {"~", token::tilde},
    {"/", token::slash},
    {"<<=", token::shift_left_assign},
    {"<<", token::shift_left},
    {">>=", token::shift_right_assign},
    {">>", token::shift_right},
    {"^", token::caret},
    {"|", token::bar},
    {">=", token::greater_equal},
    {"<=", token::less_equal},
    {"==", token::equal},
    {"!=", token::not_equal},
    {"+=", token::add_assign},
    {"-=", token::sub_assign},
    {"*=", token::mul_assign},
    {"/=", token::div_assign},
    {"%=", token::rem_assign},
    {"&=", token::and_assign},
    {"^=", token::xor_assign},
    {"|=", token::or_assign},
    {"&&", token::and_and},
    {"||", token::or_or},
    {"+", token::plus},
    {"-", token::minus},
    {"&", token::ampersand},
    {"$", token::dollar},
};

// Codes of the operators of one character, by that character.
constexpr std::array<std::uint16_t, 256> makesingles()
{
    std::array<std::uint16_t, 256> codes{};
    codes.fill(token::other);
    for (const Operator &row : operators)
        if (row.text.size() == 1)
            codes[static_cast<unsigned char>(row.text[0])] = row.code;
    return codes;
}

constexpr std::array<std::uint16_t, 256> singles = makesingles();

// The longest operator at `at`; sets the code.
std::size_t scanoperator(const char *at, std::uint16_t &code)
{
    code = singles[static_cast<unsigned char>(*at)];
    std::size_t length = 1;
    for (const Operator &row : operators) {
        if (row.text.size() > length && std::strncmp(at, row.text.data(), row.text.size()) == 0) {
            code = row.code;
            length = row.text.size();
        }
    }
    return length;
}

// What a token can be, by its first character. That of a plain token decides: a word, a number, or an operator that is
// no prefix of another one.
enum class Start : std::uint8_t { plain, longer, letter_c, dot, zero, minus, quote, comment, end };

struct Opening {
    Start start;
    std::uint8_t continues;  // the class of the characters that belong to the token as well; not of strings
    std::uint16_t code;      // of the token, but for strings, negative numbers and longer operators
};

constexpr std::array<Opening, 256> makeopenings()
{
    std::array<Opening, 256> openings{};
    for (std::size_t c = 0; c < openings.size(); ++c) {
        if (classes[c] & starts_word)
            openings[c] = {Start::plain, continues_word, token::identifier};
        else if (classes[c] & is_digit)
            openings[c] = {Start::plain, continues_number, token::number};
        else
            openings[c].code = singles[c];
    }
    const auto setstart = [&openings](char c, Start start) { openings[static_cast<unsigned char>(c)].start = start; };
    for (const Operator &row : operators)
        if (row.text.size() > 1)
            setstart(row.text[0], Start::longer);
    setstart('c', Start::letter_c);  // can open a c"..." string
    setstart('.', Start::dot);
    setstart('0', Start::zero);  // can open 0x...
    setstart('-', Start::minus);
    setstart('"', Start::quote);
    setstart('\'', Start::quote);
    setstart(';', Start::comment);
    setstart('\0', Start::end);
    return openings;
}

constexpr std::array<Opening, 256> openings = makeopenings();

const Opening &openingof(char c)
{
    return openings[static_cast<unsigned char>(c)];
}

// The end of the token that starts at `at`, if nothing but its first character matters.
const char *plainend(const char *at, const Opening &opening)
{
    return skipwhile(at + 1, opening.continues);
}

// Sets the code of the token that starts at t.text and returns its end; a c"..." string loses its c.
const char *scantoken(Token &t, const char *at, const Opening &opening)
{
    t.code = opening.code;
    switch (opening.start) {
    case Start::letter_c:
        if (at[1] != '"')
            break;
        t.text = ++at;
        [[fallthrough]];
    case Start::quote:
        t.code = token::string;
        return stringend(at);
    case Start::dot:
        if (at[1] != '.' || at[2] != '.')
            break;
        t.code = token::ellipsis;
        return at + 3;
    case Start::zero:
        if (at[1] != 'x')
            break;
        return skipwhile(at + 2, is_hex);
    case Start::minus:
        if (!is(at[1], is_digit))
            return at + scanoperator(at, t.code);
        t.code = token::number;
        return skipwhile(at + 1, continues_number);
    case Start::longer:
        return at + scanoperator(at, t.code);
    default:
        break;
    }
    return plainend(at, opening);
}

void endtoken(Token &t, const char *end)
{
    cursor = end;
    t.len = static_cast<std::uint16_t>(end - t.text);
    last_text = t.text;
    last_end = end;
    last_code = t.code;
}

// gettoken() for the tokens that are not plain, which are fewer. Not inlined: its registers would have to be saved for
// the plain ones too.
[[gnu::noinline]] void scanother(Token &t, const char *at, const Opening &opening)
{
    const bool comment = opening.start == Start::comment;
    if (comment)
        at += std::strlen(at);
    t.lead = static_cast<std::uint16_t>(at - t.start);
    t.text = at;
    if (comment || opening.start == Start::end) {
        cursor = at;
        t.code = token::end_of_line;
        t.len = 0;
        return;
    }
    endtoken(t, scantoken(t, at, opening));
    // Strings are scanned again: a fault in one is reported each time.
    if (t.code == token::string)
        last_text = nullptr;
}

}  // namespace

void gettoken(Token &t)
{
    const char *at = cursor;
    t.start = at;
    // A token that was pushed back, one in five, is not scanned again.
    if (at == last_text) {
        t.text = at;
        t.lead = 0;
        t.len = static_cast<std::uint16_t>(last_end - at);
        t.code = last_code;
        cursor = last_end;
        return;
    }
    at = skipwhile(at, is_space);
    const Opening &opening = openingof(*at);
    const bool plain =
        opening.start == Start::plain || (opening.start == Start::longer && !is(at[1], continues_operator));
    if (!plain) {
        scanother(t, at, opening);
        return;
    }
    t.lead = static_cast<std::uint16_t>(at - t.start);
    t.text = at;
    t.code = opening.code;
    endtoken(t, plainend(at, opening));
}

void ungettoken(const Token &t)
{
    cursor = t.text;
}

void setcursor(const char *text)
{
    movecursor(text);
}

bool scanquietly(bool on)
{
    const bool noted = unbalanced;
    quiet = on;
    unbalanced = false;
    return noted;
}

void unquote(Token &t)
{
    constexpr std::uint16_t quotes = 2;
    t.code = token::identifier;
    ++t.text;
    t.len = static_cast<std::uint16_t>(t.len > quotes ? t.len - quotes : 0);
}

bool expect(std::uint16_t code, const char *message)
{
    Token t;
    gettoken(t);
    if (t.code == code)
        return true;
    report(message);
    return false;
}

bool expectword(std::string_view word, const char *message)
{
    Token t;
    gettoken(t);
    if (isword(t, word))
        return true;
    report(message);
    return false;
}

Name *expectname(const char *message)
{
    Token t;
    gettoken(t);
    if (t.code == token::identifier)
        return intern(tokentext(t));
    report(message);
    return nullptr;
}

bool acceptif(std::uint16_t code)
{
    Token t;
    gettoken(t);
    if (t.code == code)
        return true;
    ungettoken(t);
    return false;
}

bool atend()
{
    return *skipblanks(cursor) == '\0';
}
