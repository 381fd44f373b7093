#include "base/base.h"
#include "frontend/frontend.h"
#include "harness/harness.h"
#include "reader/reader.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

// All tokens of the line before its end, separated by blanks: words after w:, numbers after n:, strings after s:.
std::string scan(const char *line)
{
    std::string tokens;
    Token t;
    setcursor(line);
    for (gettoken(t); t.code != token::end_of_line; gettoken(t)) {
        tokens += tokens.empty() ? "" : " ";
        tokens += t.code == token::identifier ? "w:" : t.code == token::number ? "n:" : "";
        tokens += t.code == token::string ? "s:" : "";
        tokens += tokentext(t);
    }
    EXPECT_EQ(t.len, 0U);
    return tokens;
}

TEST(scanner, words_and_labels)
{
    EXPECT_EQ(scan("entry:   ; preds = %a\n"), "w:entry :");
    EXPECT_EQ(scan("llvm.memcpy.p0i8\tx86-64 _a.b"), "w:llvm.memcpy.p0i8 w:x86-64 w:_a.b");
    EXPECT_EQ(scan("...a .. c x"), "... w:a w:.. w:c w:x");
}

TEST(scanner, numbers_take_what_looks_like_one)
{
    EXPECT_EQ(scan("-1 1.500000e+00 -2.5e-3 1-2"), "n:-1 n:1.500000e+00 n:-2.5e-3 n:1-2");
    EXPECT_EQ(scan("- 1,1E5"), "- n:1 , n:1 w:E5");
    EXPECT_EQ(scan("0x3FF0aBcd 0xg 0X1 -0x1"), "n:0x3FF0aBcd n:0x w:g n:0 w:X1 n:-0 w:x1");
}

TEST(scanner, strings_keep_quotes_and_escapes)
{
    EXPECT_EQ(scan("c\"ab\\00\""), "s:\"ab\\00\"");
    EXPECT_EQ(scan("cc\"x\" '\"'"), "w:cc s:\"x\" s:'\"'");
    EXPECT_EQ(scan("\"a\\\"b\\\\\" ,"), "s:\"a\\\"b\\\\\" ,");
}

TEST(scanner, an_open_string_is_reported_and_ends_with_the_line)
{
    const int before = error_count;
    EXPECT_EQ(scan("\"ab, c"), "s:\"ab, c");
    EXPECT_EQ(scan("\"ab\\"), "s:\"ab\\");
    EXPECT_EQ(error_count, before + 2);
}

TEST(scanner, the_longest_operator_wins)
{
    EXPECT_EQ(scan("<<=<<%=%==>>>=#%a##"), "<<= << %= %= = >> >= # % w:a ##");
    EXPECT_EQ(scan("<{-x->#*\x80`\\"), "< { - w:x- > # * \x80 ` \\");
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
    EXPECT_EQ(cstring("\"a\\00b\"", true), "\"a\\000b\"");
    EXPECT_EQ(cstring("x\\00x", false), "x\\000x");
    EXPECT_EQ(cstring("dir\\5Ca\\00", false), "dir\\\\a\\000");
}

// A line longer than the buffer is read in pieces, each of which counts as a line.
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
