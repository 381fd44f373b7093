#include "driver/driver.h"
#include "harness/process.h"
#include "reader/reader.h"

#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace {

using Scanned = std::vector<std::pair<unsigned, std::string>>;

// All tokens of the line in front of its end.
Scanned scan(const char *line)
{
    Scanned tokens;
    Token t;
    setcursor(line);
    for (gettoken(t); t.code != token::end_of_line; gettoken(t))
        tokens.emplace_back(t.code, std::string(tokentext(t)));
    EXPECT_EQ(t.len, 0U);
    return tokens;
}

TEST(scanner, words_and_labels)
{
    EXPECT_EQ(scan("entry:   ; preds = %a\n"), (Scanned{{token::identifier, "entry"}, {token::colon, ":"}}));
    EXPECT_EQ(
        scan("llvm.memcpy.p0i8 x86-64 _a.b"),
        (Scanned{{token::identifier, "llvm.memcpy.p0i8"}, {token::identifier, "x86-64"}, {token::identifier, "_a.b"}}));
    EXPECT_EQ(scan("...a"), (Scanned{{token::ellipsis, "..."}, {token::identifier, "a"}}));
    EXPECT_EQ(scan(".. c x"), (Scanned{{token::identifier, ".."}, {token::identifier, "c"}, {token::identifier, "x"}}));
}

TEST(scanner, numbers_take_what_looks_like_one)
{
    EXPECT_EQ(scan("-1 1.500000e+00 -2.5e-3 1-2"), (Scanned{{token::number, "-1"},
                                                            {token::number, "1.500000e+00"},
                                                            {token::number, "-2.5e-3"},
                                                            {token::number, "1-2"}}));
    EXPECT_EQ(scan("- 1"), (Scanned{{token::minus, "-"}, {token::number, "1"}}));
    EXPECT_EQ(scan("1E5"), (Scanned{{token::number, "1"}, {token::identifier, "E5"}}));
    EXPECT_EQ(scan("0x3FF0aBcd 0xg"),
              (Scanned{{token::number, "0x3FF0aBcd"}, {token::number, "0x"}, {token::identifier, "g"}}));
    EXPECT_EQ(scan("0X1"), (Scanned{{token::number, "0"}, {token::identifier, "X1"}}));
}

TEST(scanner, strings_keep_quotes_and_escapes)
{
    EXPECT_EQ(scan("c\"ab\\00\""), (Scanned{{token::string, "\"ab\\00\""}}));
    EXPECT_EQ(scan("cc\"x\" '\"'"),
              (Scanned{{token::identifier, "cc"}, {token::string, "\"x\""}, {token::string, "'\"'"}}));
    EXPECT_EQ(scan("\"a\\\"b\\\\\" ,"), (Scanned{{token::string, "\"a\\\"b\\\\\""}, {token::comma, ","}}));
}

TEST(scanner, an_open_string_is_reported_and_ends_with_the_line)
{
    const int before = error_count;
    EXPECT_EQ(scan("\"ab, c"), (Scanned{{token::string, "\"ab, c"}}));
    EXPECT_EQ(scan("\"ab\\"), (Scanned{{token::string, "\"ab\\"}}));
    EXPECT_EQ(error_count, before + 2);
}

TEST(scanner, the_longest_operator_wins)
{
    const std::vector<std::pair<const char *, unsigned>> signs = {
        {",", 1},   {":", 2},     {"@", 5},     {"->", 8},   {"?", 9},   {"(", 10},  {")", 11},  {"[", 12},
        {"]", 13},  {"++", 14},   {"--", 15},   {"{", 16},   {"}", 17},  {"#", 20},  {"##", 21}, {"!", 61},
        {"~", 62},  {"/", 68},    {"%", 69},    {"<<", 70},  {">>", 71}, {"^", 73},  {"|", 74},  {"<", 75},
        {">=", 76}, {">", 77},    {"<=", 78},   {"==", 79},  {"!=", 80}, {"+=", 81}, {"-=", 82}, {"*=", 83},
        {"/=", 84}, {"%=", 85},   {"<<=", 86},  {">>=", 87}, {"&=", 88}, {"^=", 89}, {"|=", 90}, {"&&", 91},
        {"||", 92}, {"=", 95},    {"+", 97},    {"-", 98},   {"*", 99},  {"&", 104}, {"$", 252}, {"\\", 24},
        {"`", 24},  {"\x80", 24}, {"\x01", 24},
    };
    for (const auto &[text, code] : signs)
        EXPECT_EQ(scan(text), (Scanned{{code, text}})) << text;
    EXPECT_EQ(scan("<{-x"),
              (Scanned{{token::less, "<"}, {token::left_brace, "{"}, {token::minus, "-"}, {token::identifier, "x"}}));
}

TEST(scanner, a_token_is_pushed_back_whole)
{
    Token t;
    Token again;
    setcursor("  c\"a\" b");
    gettoken(t);
    EXPECT_EQ(t.lead, 2U);
    ungettoken(t);
    gettoken(again);
    EXPECT_EQ(again.code, token::string);
    EXPECT_EQ(tokentext(again), "\"a\"");
    unquote(again);
    EXPECT_TRUE(isword(again, "a"));
    gettoken(t);
    gettoken(t);
    ungettoken(t);
    gettoken(t);
    EXPECT_EQ(t.code, token::end_of_line);
}

TEST(scanner, strings_for_c)
{
    EXPECT_EQ(cstring("\"ab\\0A\\00\"", true), "\"ab\\n\"");
    EXPECT_EQ(cstring("\"\\00\\00\"", true), "\"\\000\"");
    EXPECT_EQ(cstring("\"\\5C\\22\\0a\\0D\\09\\08\\0b\"", true), "\"\\\\\\\"\\n\\r\\t\\b\\v\"");
    EXPECT_EQ(cstring("\"\\5C000\"", true), "\"\\\\000\"");  // a backslash and three digits, no zero byte
    EXPECT_EQ(cstring("\"\\\\x\\q\"", true), "\"\\\\x\\q\"");
    EXPECT_EQ(cstring("dir\\5Ca\\00", false), "dir\\\\a\\000");
}

// A line beyond the buffer comes in pieces, each of them counted.
TEST(scanner, lines_of_a_file)
{
    const std::string directory = harness::make_directory();
    harness::write_file(directory + "/a.ll", "one\n\n" + std::string(10000, 'x') + "\nlast");
    ASSERT_TRUE(openinput((directory + "/a.ll").c_str()));
    line_no = 0;
    std::vector<size_t> lengths;
    Token t;
    while (nextline() != nullptr) {
        gettoken(t);
        lengths.push_back(t.len);
    }
    EXPECT_EQ(lengths, (std::vector<size_t>{3, 0, 8191, 10000 - 8191, 4}));
    EXPECT_EQ(line_no, 5);
    EXPECT_EQ(nextline(), nullptr);
    EXPECT_FALSE(openinput((directory + "/none.ll").c_str()));
    harness::remove_directory(directory);
}

}  // namespace
