#include "model/model.h"

#include <gtest/gtest.h>
#include <set>
#include <string>

namespace {

TEST(names, a_text_has_one_record_and_a_record_one_text)
{
    const std::string line = "counter.addr";
    Name *const counter = intern(std::string_view(line).substr(0, 7));
    EXPECT_EQ(counter, intern("counter"));
    EXPECT_STREQ(counter->text, "counter");
    EXPECT_NE(counter, intern(line));
    EXPECT_NE(intern(""), intern(std::string_view("\0", 1)));
    EXPECT_EQ(intern("")->length, 0U);
    EXPECT_EQ(intern(std::string(100000, 'x'))->length, 100000U);
}

// Far more names than the table has room for at first: all stay different, and none moves.
TEST(names, many_names_stay_apart)
{
    constexpr size_t many = 300000;  // enough for texts of the same hash
    std::set<Name *> records;
    Name *const first = intern("n0");
    for (size_t i = 0; i < many; i++)
        records.insert(intern("n" + std::to_string(i)));
    EXPECT_EQ(records.size(), many);
    EXPECT_EQ(first, intern("n0"));
    EXPECT_STREQ(first->text, "n0");
}

TEST(names, no_text_finds_a_private_name)
{
    Name *const hidden = privatename("entry");
    EXPECT_NE(hidden, intern("entry"));
    EXPECT_NE(hidden, privatename("entry"));
    EXPECT_STREQ(hidden->text, "entry");
}

TEST(names, numbers_are_decimal_and_wrap)
{
    EXPECT_EQ(number("0123"), 123U);
    EXPECT_EQ(number("4294967297"), 1U);
}

}  // namespace
