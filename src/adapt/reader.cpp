// The cursor of the parser, and the words that say nothing to C.
#include "adapt/reader.h"

#include <algorithm>

namespace adapt {

namespace {

constexpr unsigned deepest_brackets = 1000;

std::string shown(const Token &token)
{
    constexpr std::size_t most = 40;
    switch (token.kind) {
    case TokenKind::end:
        return "the end";
    case TokenKind::local:
        return "'%" + std::string(token.text.substr(0, most)) + "'";
    case TokenKind::global:
        return "'@" + std::string(token.text.substr(0, most)) + "'";
    case TokenKind::metadata:
        return "'!" + std::string(token.text.substr(0, most)) + "'";
    case TokenKind::group:
        return "'#" + std::string(token.text.substr(0, most)) + "'";
    case TokenKind::string:
    case TokenKind::bytes:
        return "a text in quotes";
    default:
        return "'" + std::string(token.text.substr(0, most)) + "'";
    }
}

void failforeign(Reader &reader, const WordRow &row)
{
    fail(reader, std::string(row.reason) + " ('" + std::string(row.word) + "')");
}

void skipnumber(Reader &reader)
{
    if (ispunct(reader, '(')) {
        skipbrackets(reader);
    } else {
        takepunct(reader, '=');  // as groups write it
        readnumber(reader);
    }
}

// The type in brackets after byval or sret. Without one, what the parameter points to.
Type *readattributetype(Reader &reader, Type *type)
{
    Type *pointee = type->kind == TypeKind::pointer ? type->sub : nullptr;
    if (takepunct(reader, '(')) {
        pointee = readtype(reader);
        expectpunct(reader, ')');
    }
    if (pointee == nullptr) {
        fail(reader, "an argument in memory that is no pointer");
    }
    return pointee;
}

// Takes the attribute at the cursor, which `row` describes.
void takeattribute(Reader &reader, const WordRow &row, Type *type, Attributes &attributes)
{
    if (row.action == WordAction::refuse) {
        return failforeign(reader, row);
    }
    next(reader);
    switch (row.action) {
    case WordAction::drop_with_list:
        if (ispunct(reader, '(')) {
            skipbrackets(reader);
        } else if (takepunct(reader, '=')) {
            readnumber(reader);  // as groups write it
        }
        return;
    case WordAction::drop_with_number:
        return skipnumber(reader);
    case WordAction::byval:
        attributes.byval = readattributetype(reader, type);
        return;
    case WordAction::sret:
        attributes.sret = readattributetype(reader, type);
        return;
    case WordAction::byref:
        readattributetype(reader, type);
        return;
    case WordAction::zeroext:
        attributes.zeroext = true;
        return;
    case WordAction::signext:
        attributes.signext = true;
        return;
    case WordAction::inreg:
        attributes.inreg = true;
        return;
    default:
        return;
    }
}

// "key" or "key"="value". A function that serves an interrupt ends in another way than C's functions do.
void skipstringattribute(Reader &reader)
{
    if (reader.lexer.token.text == "interrupt") {
        return fail(reader, "interrupt function");
    }
    next(reader);
    if (takepunct(reader, '=')) {
        if (reader.lexer.token.kind != TokenKind::string) {
            failunexpected(reader, "a text in quotes");
        }
        next(reader);
    }
}

}  // namespace

void fail(Reader &reader, const std::string &text)
{
    if (!reader.failed) {
        reader.failed = true;
        reader.error = text;
        // What is missing at the end of a line shows only at the next one.
        const std::size_t line = reader.lexer.token.line;
        reader.error_line = reader.last_line >= reader.line ? std::min(line, reader.last_line) : line;
        reader.lexer.token.kind = TokenKind::end;
        reader.lexer.token.text = {};
    }
}

void failunexpected(Reader &reader, std::string_view wanted)
{
    fail(reader, shown(reader.lexer.token) + " where " + std::string(wanted) + " is expected");
}

void forgiveerror(Reader &reader)
{
    reader.failed = false;
    reader.error.clear();
    reader.depth = 0;
}

void next(Reader &reader)
{
    if (reader.failed) {
        return;
    }
    reader.last_line = reader.lexer.token.line;
    advance(reader.lexer);
    if (reader.lexer.token.kind == TokenKind::fault) {
        fail(reader, "a character or quote that IR doesn't have here");
    }
}

void goback(Reader &reader, const Lexer &before)
{
    if (!reader.failed) {
        reader.lexer = before;
    }
}

bool isword(const Reader &reader, std::string_view word)
{
    return reader.lexer.token.kind == TokenKind::word && reader.lexer.token.text == word;
}

bool ispunct(const Reader &reader, char c)
{
    return reader.lexer.token.kind == TokenKind::punct && reader.lexer.token.text[0] == c;
}

bool takeword(Reader &reader, std::string_view word)
{
    const bool is = isword(reader, word);
    if (is) {
        next(reader);
    }
    return is;
}

bool takepunct(Reader &reader, char c)
{
    const bool is = ispunct(reader, c);
    if (is) {
        next(reader);
    }
    return is;
}

void expectword(Reader &reader, std::string_view word)
{
    if (!takeword(reader, word)) {
        failunexpected(reader, "'" + std::string(word) + "'");
    }
}

void expectpunct(Reader &reader, char c)
{
    if (!takepunct(reader, c)) {
        failunexpected(reader, std::string("'") + c + "'");
    }
}

void skipbrackets(Reader &reader)
{
    unsigned open = 0;
    do {
        const Token &token = reader.lexer.token;
        if (token.kind == TokenKind::end) {
            return failunexpected(reader, "a closing bracket");
        }
        if (token.kind == TokenKind::punct) {
            const char c = token.text[0];
            open += c == '(' || c == '[' || c == '{' ? 1U : 0U;
            open -= c == ')' || c == ']' || c == '}' ? 1U : 0U;
        }
        if (open > deepest_brackets) {
            return fail(reader, "brackets nested too deeply");
        }
        next(reader);
    } while (open > 0);
}

std::uint32_t locationin(std::string_view text)
{
    constexpr std::string_view mark = "!dbg !";
    const std::size_t found = text.find(mark);
    if (found == std::string_view::npos) {
        return 0;
    }
    const std::string_view rest = text.substr(found + mark.size());
    const std::string_view digits = rest.substr(0, rest.find_first_not_of("0123456789"));
    const std::uint64_t number = digits.empty() ? UINT32_MAX : decimalnumber(digits);
    return number < UINT32_MAX ? static_cast<std::uint32_t>(number + 1) : 0;
}

// The attachment at the cursor, which stands on its name.
static std::uint32_t readattachment(Reader &reader)
{
    const bool is_location = reader.lexer.token.text == "dbg";
    next(reader);
    if (reader.lexer.token.kind != TokenKind::metadata) {
        failunexpected(reader, "a metadata node");
        return 0;
    }
    const std::string_view node = reader.lexer.token.text;
    next(reader);
    if (ispunct(reader, node.empty() ? '{' : '(')) {  // the node itself stands here
        skipbrackets(reader);
    }
    const std::uint64_t number = isdigits(node) ? decimalnumber(node) : UINT32_MAX;
    return is_location && number < UINT32_MAX ? static_cast<std::uint32_t>(number + 1) : 0;
}

std::uint32_t readattachments(Reader &reader)
{
    std::uint32_t location = 0;
    for (;;) {
        const Lexer before = reader.lexer;
        const bool comma = takepunct(reader, ',');
        if (reader.lexer.token.kind != TokenKind::metadata || reader.lexer.token.text.empty()) {
            if (comma) {
                goback(reader, before);
            }
            return location;
        }
        const std::uint32_t found = readattachment(reader);
        location = found != 0 ? found : location;
    }
}

std::uint64_t readnumber(Reader &reader)
{
    const Token &token = reader.lexer.token;
    if (token.kind != TokenKind::number || !isdigits(token.text)) {
        failunexpected(reader, "a number");
        return 0;
    }
    const std::uint64_t number = decimalnumber(token.text);
    next(reader);
    return number;
}

void skipheaderwords(Reader &reader)
{
    while (reader.lexer.token.kind == TokenKind::word) {
        const WordRow *row = findword(header_words, reader.lexer.token.text);
        if (row == nullptr) {
            return;
        }
        if (row->action == WordAction::refuse) {
            return failforeign(reader, *row);
        }
        next(reader);
    }
}

void skipfastmath(Reader &reader)
{
    while (reader.lexer.token.kind == TokenKind::word &&
           findword(fast_math_words, reader.lexer.token.text) != nullptr) {
        next(reader);
    }
}

Attributes readattributes(Reader &reader, Type *type)
{
    Attributes attributes;
    while (!reader.failed) {
        if (reader.lexer.token.kind == TokenKind::string) {
            skipstringattribute(reader);
            continue;
        }
        const WordRow *row = nullptr;
        if (reader.lexer.token.kind == TokenKind::word) {
            row = findword(attribute_words, reader.lexer.token.text);
        }
        if (row == nullptr) {
            break;
        }
        takeattribute(reader, *row, type, attributes);
    }
    return attributes;
}

std::vector<std::string_view> skipfunctionattributes(Reader &reader)
{
    std::vector<std::string_view> groups;
    for (;;) {
        readattributes(reader, voidtype(*reader.module));
        if (reader.lexer.token.kind != TokenKind::group) {
            return groups;
        }
        groups.push_back(reader.lexer.token.text);
        next(reader);
    }
}

}  // namespace adapt
