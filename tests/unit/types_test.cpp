#include "reader/reader.h"

#include <gtest/gtest.h>

namespace {

Type *type_of(const char *text)
{
    setcursor(text);
    return readtype();
}

bool alike(const char *a, const char *b)
{
    return equaltype(type_of(a), type_of(b));
}

// A line "%name = type ...": its first token is taken when the reader is called.
void define(const char *line)
{
    Token percent;
    setcursor(line);
    gettoken(percent);
    readaggregateline();
}

TEST(types, shapes_compare_by_kind_and_not_by_name)
{
    EXPECT_TRUE(alike("[3 x i8*]", "[3 x i8*]"));
    EXPECT_FALSE(alike("[3 x i8]", "[4 x i8]"));
    EXPECT_FALSE(alike("i8*", "i16*"));
    EXPECT_TRUE(alike("{i8, void (i16)*}", "{i8, i32 ()*}"));  // functions all look the same
    EXPECT_FALSE(alike("{i8}", "{i8, i8}"));
    EXPECT_FALSE(alike("{i8, {i16}}", "{i8, {i32}}"));
    define("%struct.left = type { %struct.left*, i16 }");
    define("%struct.right = type { %struct.right*, i16 }");
    EXPECT_TRUE(alike("%struct.left", "%struct.right"));
    EXPECT_TRUE(samescalar(type_of("double"), type_of("double")));
    EXPECT_FALSE(samescalar(type_of("i8*"), type_of("i8*")));
}

}  // namespace
