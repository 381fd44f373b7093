// The scanner: lines and tokens.

#include "reader/reader.h"

#include "driver/driver.h"

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
std::size_t window_end;              // behind the last byte
char held;                           // the byte that the terminator of the current line stands on
const char *cursor = "";
const char *last_text;    // the token that was scanned last, null for none
const char *last_end;     // behind it
std::uint16_t last_code;  // of it

void movecursor(const char *text)
{
    cursor = text;
    last_text = nullptr;
}

// Moves the rest to the front of the window and reads behind it.
void refill()
{
    std::memmove(window.data(), window.data() + window_next, window_end - window_next);
    window_end -= window_next;
    window_next = 0;
    const std::size_t got = std::fread(window.data() + window_end, 1, window.size() - 1 - window_end, in);
    window_end += got;
    in_ended = got == 0;
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
    window.resize(block_size + 1);
    return in != nullptr;
}

const char *nextline()
{
    if (!in)
        return nullptr;
    window[window_next] = held;  // take the terminator of the line before back out
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
constexpr std::uint8_t opens_word = 8;       // letter, _ and .
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
    addclass(classes, "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ_.", opens_word | continues_word);
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

bool quiet;       // strings without an end are only noted
bool unbalanced;  // one was noted

void reportunbalanced(char quote)
{
    unbalanced = true;
    if (!quiet)
        report("unbalanced %c", static_cast<unsigned char>(quote));
}

// The end of the string that opens at `at`.
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

// Longer operators stand in front of their own beginnings.
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

// What a token can be, by its first character.
enum class Start : std::uint8_t { single, longer, word, letter_c, dot, digit, minus, quote, comment, end };

constexpr std::array<Start, 256> makestarts()
{
    std::array<Start, 256> starts{};
    for (const Operator &row : operators)
        if (row.text.size() > 1)
            starts[static_cast<unsigned char>(row.text[0])] = Start::longer;
    for (std::size_t c = 0; c < starts.size(); ++c) {
        if (classes[c] & opens_word)
            starts[c] = Start::word;
        else if (classes[c] & is_digit)
            starts[c] = Start::digit;
    }
    starts['c'] = Start::letter_c;  // can open a c"..." string
    starts['.'] = Start::dot;
    starts['-'] = Start::minus;
    starts['"'] = starts['\''] = Start::quote;
    starts[';'] = Start::comment;
    starts['\0'] = Start::end;
    return starts;
}

constexpr std::array<Start, 256> starts = makestarts();

Start startof(char c)
{
    return starts[static_cast<unsigned char>(c)];
}

const char *scannumber(const char *at)
{
    if (at[0] == '0' && at[1] == 'x')
        return skipwhile(at + 2, is_hex);
    return skipwhile(at + 1, continues_number);
}

const char *scanword(Token &t, const char *at)
{
    t.code = token::identifier;
    return skipwhile(at + 1, continues_word);
}

// Sets the code of the token that opens at t.text and returns its end; a c"..." string drops its c.
const char *scantoken(Token &t, const char *at, Start start)
{
    switch (start) {
    case Start::word:
        return scanword(t, at);
    case Start::letter_c:
        if (at[1] != '"')
            return scanword(t, at);
        t.text = ++at;
        [[fallthrough]];
    case Start::quote:
        t.code = token::string;
        return stringend(at);
    case Start::dot:
        if (at[1] != '.' || at[2] != '.')
            return scanword(t, at);
        t.code = token::ellipsis;
        return at + 3;
    case Start::minus:
        if (!is(at[1], is_digit))
            return at + scanoperator(at, t.code);
        t.code = token::number;
        return scannumber(at);
    case Start::digit:
        t.code = token::number;
        return scannumber(at);
    case Start::longer:
        if (is(at[1], continues_operator))
            return at + scanoperator(at, t.code);
        [[fallthrough]];
    default:
        t.code = singles[static_cast<unsigned char>(*at)];
        return at + 1;
    }
}

void endtoken(Token &t, const char *end)
{
    cursor = end;
    t.len = static_cast<std::uint16_t>(end - t.text);
    // Strings are scanned again: a fault in one is met each time.
    last_text = t.code == token::string ? nullptr : t.text;
    last_end = end;
    last_code = t.code;
}

// What gettoken() does about tokens that are neither words nor single characters, the smaller part. It stays a
// function of its own: all its registers would have to be saved for the others as well.
[[gnu::noinline]] void scanother(Token &t, const char *at, Start start)
{
    if (start == Start::comment) {
        at += std::strlen(at);
        start = Start::end;
    }
    t.lead = static_cast<std::uint16_t>(at - t.start);
    t.text = at;
    if (start != Start::end) {
        endtoken(t, scantoken(t, at, start));
        return;
    }
    cursor = at;
    t.code = token::end_of_line;
    t.len = 0;
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
    const Start start = startof(*at);
    if (start != Start::word && start != Start::single) {
        scanother(t, at, start);
        return;
    }
    t.lead = static_cast<std::uint16_t>(at - t.start);
    t.text = at;
    const bool word = start == Start::word;
    t.code = word ? token::identifier : singles[static_cast<unsigned char>(*at)];
    ++at;
    endtoken(t, word ? skipwhile(at, continues_word) : at);
}

void ungettoken(const Token &t)
{
    if (t.code != token::end_of_line)
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

// ---- Strings ----------------------------------------------------------------------------------------------------

namespace {

unsigned hexvalue(char c)
{
    const auto u = static_cast<unsigned char>(c);
    return is(c, is_digit) ? u - static_cast<unsigned>('0') : (u | 0x20U) - static_cast<unsigned>('a') + 10U;
}

// The escapes of C that have a letter; all other bytes are written in octal.
constexpr struct {
    unsigned byte;
    std::string_view text;
} letter_escapes[] = {
    {0x5C, "\\\\"}, {0x22, "\\\""}, {0x0A, "\\n"}, {0x0D, "\\r"}, {0x09, "\\t"}, {0x08, "\\b"}, {0x0B, "\\v"},
};

void appendescape(std::string &result, unsigned byte)
{
    for (const auto &escape : letter_escapes) {
        if (escape.byte == byte) {
            result += escape.text;
            return;
        }
    }
    const auto octal = [](unsigned digit) { return static_cast<char>('0' + (digit & 7U)); };
    result += {'\\', octal(byte >> 6U), octal(byte >> 3U), octal(byte)};
}

}  // namespace

std::string_view cstring(std::string_view text, bool quoted)
{
    static std::string result;
    result.clear();
    std::size_t zero_end = 0;  // behind the last translated zero byte of the result
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            result += text[i];
        } else if (i + 2 < text.size() && is(text[i + 1], is_hex) && is(text[i + 2], is_hex)) {
            const unsigned byte = hexvalue(text[i + 1]) * 16 + hexvalue(text[i + 2]);
            appendescape(result, byte);
            if (byte == 0)
                zero_end = result.size();
            i += 2;
        } else {
            result += text[i];
            if (++i < text.size())
                result += text[i];
        }
    }
    constexpr std::size_t zero_length = 4;
    const bool closed = quoted && text.size() > 1 && text.back() == text.front();
    if (closed && zero_end != 0 && zero_end + 1 == result.size())
        result.erase(zero_end - zero_length, zero_length);
    return result;
}
