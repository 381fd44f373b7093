#include "driver/driver.h"
#include "reader/reader.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

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

std::vector<std::uint8_t> kinds_of(const Symbol *list)
{
    std::vector<std::uint8_t> kinds;
    for (; list != nullptr; list = list->next)
        kinds.push_back(list->type->kind);
    return kinds;
}

// A line "%name = type ...": its first token is taken when the reader is called.
void define(const char *line)
{
    Token percent;
    setcursor(line);
    gettoken(percent);
    readaggregateline();
}

// The names of the aggregates that the lines define, in the order of the output.
std::string order(const std::vector<const char *> &lines)
{
    const Symbol *const before = aggregates.tail;
    for (const char *line : lines)
        define(line);
    std::string names;
    for (const Symbol *entry = before != nullptr ? before->next : aggregates.head; entry != nullptr;
         entry = entry->next)
        names += std::string(nametext(entry->name)) + " ";
    return names;
}

TEST(types, words_and_suffixes)
{
    EXPECT_EQ(type_of("i1")->kind, kind::boolean);
    EXPECT_EQ(type_of("i8")->kind, kind::plain_char);
    EXPECT_EQ(type_of("i24")->kind, kind::int24);
    EXPECT_EQ(type_of("double")->kind, kind::float64);
    const Type *const type = type_of("[0 x [12 x i32*]]* x");
    ASSERT_EQ(type->kind, kind::pointer);
    EXPECT_EQ(type->sub->kind, kind::array);
    EXPECT_EQ(type->sub->count, 0U);
    EXPECT_EQ(type->sub->sub->count, 12U);
    EXPECT_EQ(type->sub->sub->sub->sub->kind, kind::int32);
    Token t;
    gettoken(t);
    EXPECT_EQ(tokentext(t), "x");
}

TEST(types, functions_and_structures)
{
    const Type *const pointer = type_of("i16 (i8*, ...)*");
    ASSERT_EQ(pointer->sub->kind, kind::function);
    EXPECT_EQ(pointer->sub->sub->kind, kind::int16);
    EXPECT_EQ(kinds_of(pointer->sub->params), (std::vector<std::uint8_t>{kind::pointer, kind::ellipsis}));
    const Type *const structure = type_of("{ i8, { float, {} } }");
    EXPECT_EQ(kinds_of(structure->members), (std::vector<std::uint8_t>{kind::plain_char, kind::structure}));
    EXPECT_EQ(structure->members->next->name, intern("f1"));
    EXPECT_EQ(structure->members->next->type->members->name, intern("f0"));
    EXPECT_EQ(structure->tag, nullptr);
}

TEST(types, what_is_no_type_is_reported_and_reads_as_int)
{
    for (const char *text :
         {"i7", "<4 x i8>", "%12", "\"i8\"", "", "[x i8]", "[4 i8]", "[4 x i8", "{i8 i8}", "{i8", "i8 (i8", "% = "}) {
        const int before = error_count;
        const Type *const type = type_of(text);
        ASSERT_NE(type, nullptr) << text;
        EXPECT_GT(error_count, before) << text;
    }
    EXPECT_EQ(type_of("i7")->kind, kind::int16);
    EXPECT_EQ(type_of("<4 x i8>")->kind, kind::int16);
    EXPECT_EQ(type_of("")->kind, kind::int16);
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

TEST(types, an_aggregate_follows_what_it_names)
{
    EXPECT_EQ(order({"%struct.a = type { %struct.b* }", "%struct.b = type { i8 }"}), "struct.b struct.a ");
    EXPECT_EQ(order({"%class.c = type { %struct.x, %union.y*, %class.z }"}), "struct.x union.y class.z class.c ");
    EXPECT_EQ(order({"%struct.d = type { %struct.d*, i8 }"}), "struct.d ");
    EXPECT_EQ(order({"%struct.e = type { %struct.f }", "%struct.g = type { i8 }", "%struct.f = type { %struct.h }"}),
              "struct.h struct.f struct.e struct.g ");
}

TEST(types, a_definition_fills_what_another_one_named)
{
    define("%struct.user = type { %\"struct.N::S<int>\"* }");
    Type *const named = type_of("%\"struct.N::S<int>\"");
    EXPECT_EQ(named->kind, kind::void_);
    define("%\"struct.N::S<int>\" = type <{ i8, i16 }>");
    EXPECT_EQ(type_of("%\"struct.N::S<int>\""), named);
    EXPECT_EQ(named->kind, kind::structure);
    EXPECT_EQ(named->tag, intern("N::S<int>"));
    EXPECT_EQ(kinds_of(named->members), (std::vector<std::uint8_t>{kind::plain_char, kind::int16}));
}

TEST(types, a_self_reference_stays_open)
{
    define("%struct.list = type { %struct.list*, i16 }");
    EXPECT_EQ(type_of("%struct.list")->members->type->sub->kind, kind::void_);
}

}  // namespace
