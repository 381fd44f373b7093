#include "base/base.h"
#include "frontend/frontend.h"
#include "harness/harness.h"
#include "model/model.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

// Enough for several chunks of the pool of texts; each block is written to its end.
TEST(memory, kept_texts_stay_apart)
{
    constexpr size_t count = 100000;
    std::vector<const char *> kept;
    for (size_t i = 0; i < count; i++)
        kept.push_back(keeptext(std::string(i % 17, 'x')));
    for (size_t i = 0; i < count; i++)
        EXPECT_STREQ(kept[i], std::string(i % 17, 'x').c_str());
    EXPECT_EQ(std::string(static_cast<char *>(poolalloc(1000)), 1000), std::string(1000, '\0'));
}

// More chunks of records than the table of chunks has room for at first.
TEST(memory, links_lead_back_to_their_records)
{
    constexpr size_t count = 600000;
    Expr *last = nullptr;
    for (size_t i = 0; i < count; i++) {
        Expr *made = newexpr(op::leaf, nullptr);
        made->next = last;
        last = made;
    }
    size_t found = 0;
    for (const Expr *at = last; at; at = at->next)
        found++;
    EXPECT_EQ(found, count);
    recordalloc(4, 4);
    EXPECT_EQ(reinterpret_cast<uintptr_t>(recordalloc(4, 8)) % 8, 0U);
    EXPECT_EQ(reinterpret_cast<uintptr_t>(recordalloc(8, 8)) % 8, 0U);
}

TEST(output, texts_beyond_the_buffer_arrive_in_order)
{
    const std::string directory = harness::make_directory();
    const std::string big(200000, 'b');
    ASSERT_TRUE(createoutput((directory + "/a.c").c_str()));
    std::string expected = "a" + big;
    outchar('a');
    outtext(big);
    for (int i = 0; i < 200000; i++)
        outchar('c');
    for (int i = 0; i < 20000; i++)
        outnumber(-i);
    expected += std::string(200000, 'c');
    for (int i = 0; i < 20000; i++)
        expected += std::to_string(-i);
    EXPECT_TRUE(closeoutput());
    EXPECT_TRUE(harness::read_file(directory + "/a.c") == expected);
    harness::remove_directory(directory);
}

TEST(frontend, names_of_slots_and_of_calls_without_effect)
{
    for (const char *slot : {".addr", ".addr1", "x.addr", "a.b.addr"})
        EXPECT_TRUE(isparameterslot(slot)) << slot;
    for (const char *other : {"", "addr", "x.addr1", ".addr.x", ".address"})
        EXPECT_FALSE(isparameterslot(other)) << other;
    EXPECT_TRUE(isannotation("llvm.dbg.value") && isannotation("llvm.invariant.start.p0i8"));
    EXPECT_FALSE(isannotation("llvm.dbg") || isannotation("llvm.lifetime.start"));
    EXPECT_EQ(cname("ns::box<a.b>"), "ns__box_a_b_");
}

}  // namespace
