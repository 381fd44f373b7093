// The checker's reader: it takes the forms of the printer, and each small change to one of them is told.
#include "adapt/readback.h"

#include <gtest/gtest.h>
#include <string>

namespace adapt {
namespace {

std::string complaint(const std::string &text)
{
    Program program;
    std::string why;
    return readback(text, program, why) ? "" : why;
}

// An if with a chain in a for, with break and continue.
const std::string loop = R"(entry:
  %i = alloca i16
  store i16 0, i16* %i
  br label %for.cond0

for.cond0:
  %0 = load i16, i16* %i
  %1 = icmp slt i16 %0, 9
  br i1 %1, label %for.body0, label %for.end0

for.body0:
  %2 = load i16, i16* @a
  %3 = icmp ne i16 %2, 0
  br i1 %3, label %land.lhs.true2, label %if.else1

land.lhs.true2:
  call void @f()
  %4 = load i16, i16* @b
  %5 = icmp eq i16 %4, 3
  br i1 %5, label %if.then1, label %if.else1

if.then1:
  br label %for.end0

if.else1:
  br label %for.inc0

if.end1:
  call void @g()
  br label %for.inc0

for.inc0:
  %6 = load i16, i16* %i
  %7 = add i16 %6, 1
  store i16 %7, i16* %i
  br label %for.cond0

for.end0:
  ret void
)";

// x = p && (q || r), a switch, a step, an assignment that is used, and a goto.
const std::string rest = R"(entry:
  %0 = load i8, i8* @p
  %1 = icmp ne i8 %0, 0
  br i1 %1, label %land.rhs1, label %land.end0

land.rhs1:
  %2 = load i8, i8* @q
  %3 = icmp ne i8 %2, 0
  br i1 %3, label %lor.end2, label %lor.rhs3

lor.rhs3:
  %4 = load i8, i8* @r
  %5 = icmp ne i8 %4, 0
  br label %lor.end2

lor.end2:
  %6 = phi i1 [ true, %land.rhs1 ], [ %5, %lor.rhs3 ]
  br label %land.end0

land.end0:
  %7 = phi i1 [ false, %entry ], [ %6, %lor.end2 ]
  store i1 %7, i1* %x
  %8 = load i16, i16* @n
  %inc.0 = add i16 %8, 1
  store i16 %inc.0, i16* @n
  switch i16 %8, label %sw.default4 [
    i16 1, label %sw.bb5
  ]

sw.bb5:
  %9 = call i16 @f()
  store i16 %9, i16* @a
  store i16 %9, i16* @b
  br label %n.6

n.6:
  br label %out

sw.default4:
  br label %sw.epilog4

sw.epilog4:
  br label %out

out:
  ret void
)";

struct Change {
    const std::string &body;
    const char *from;
    const char *to;
    const char *reason;
};

const Change changes[] = {
    {loop, "%1, label %for.body0, label %for.end0", "%1, label %for.end0, label %for.body0", "doesn't follow"},
    {loop, "label %land.lhs.true2, label %if.else1", "label %land.lhs.true2, label %if.end1", "doesn't merge"},
    {loop, "label %land.lhs.true2, label %if.else1", "label %if.else1, label %land.lhs.true2", "crossed targets"},
    {loop, "label %if.then1, label %if.else1", "label %if.then1, label %if.end1", "doesn't merge"},
    {loop, "if.then1:\n  br label %for.end0", "if.then1:\n  br label %for.end1", "out of the innermost"},
    {loop, "if.else1:\n  br label %for.inc0", "if.else1:\n  br label %for.cond0", "doesn't follow"},
    {loop, "store i16 %7, i16* %i\n  br label %for.cond0", "store i16 %7, i16* %i\n  br label %for.body0", "steps"},
    {loop, "  %1 = icmp slt", "  call void @g()\n  %1 = icmp slt", "between a value and its use"},
    {loop, "for.cond0:\n", "for.cond0:\n  call void @g()\n", "condition stands"},
    {loop, "if.end1:\n", "n.9:\n", "latch"},
    {loop, "%5 = icmp eq i16 %4, 3", "%5 = icmp eq i16 %2, 3", "second use"},
    {loop, "  %7 = add i16 %6, 1", "  call void @g()\n  %7 = add i16 %6, 1", "between a value and its use"},
    {loop, "store i16 0, i16* %i", "store i16* %i, i16** @q", "bare name"},
    {rest, "[ true, %land.rhs1 ]", "[ false, %land.rhs1 ]", "other values"},
    {rest, "[ false, %entry ]", "[ false, %land.rhs1 ]", "other values"},
    {rest, "%5 = icmp ne i8 %4, 0", "%5 = call i1 @f(i8 %4)", "end of a chain"},
    {rest, "%inc.0, i16* @n", "%inc.0, i16* @m", "stored elsewhere"},
    {rest, "store i16 %9, i16* @a\n", "store i16 %9, i16* @a\n  call void @g()\n", "between a value and its use"},
    {rest, "label %sw.bb5\n", "label %sw.bb7\n", "no value leads to"},
    {rest, "sw.default4:", "sw.default5:", "isn't one"},
    {rest, "  br label %n.6\n\nn.6:\n", "", "neutral"},
    {rest, "n.6:\n  br label %out", "n.6:\n  br label %gone", "isn't there"},
    {rest, "out:\n  ret void", "out:\n  unreachable", "isn't printed"},
};

TEST(Readback, TakesTheForms)
{
    EXPECT_EQ(complaint(loop), "");
    EXPECT_EQ(complaint(rest), "");
}

TEST(Readback, TellsEachChange)
{
    for (const Change &change : changes) {
        std::string text = change.body;
        const std::size_t place = text.find(change.from);
        ASSERT_NE(place, std::string::npos) << change.from;
        text.replace(place, std::string(change.from).size(), change.to);
        EXPECT_NE(complaint(text).find(change.reason), std::string::npos)
            << change.from << " -> " << change.to << ": " << complaint(text);
    }
}

}  // namespace
}  // namespace adapt
