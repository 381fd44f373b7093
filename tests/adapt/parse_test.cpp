#include "adapt/ir.h"

#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace adapt {
namespace {

// A module that was read, with its functions. Everything is kept until the end of the test.
struct Read {
    std::string text;
    Module module;
    std::deque<Function> functions;

    explicit Read(std::string input) : text(std::move(input))
    {
        module.text = text;
        module.file = "in.ll";
        parsemodule(module);
        for (Global &global : module.globals) {
            if (global.kind == GlobalKind::function && global.body.data() != nullptr) {
                Function &function = functions.emplace_back();
                function.global = &global;
                function.module = &module;
                if (parsebody(function)) {
                    verify(function, "read");
                }
            }
        }
    }
};

std::string reasons(const Module &module)
{
    std::string out;
    for (const Message &message : module.messages) {
        out += std::to_string(message.line) + ": " + message.text + "\n";
    }
    return out;
}

// The functions as they are printed, or what was refused.
std::string printed(const std::string &input)
{
    Read read(input);
    std::string out = reasons(read.module);
    for (const Function &function : read.functions) {
        printfunction(function, out);
    }
    return out;
}

TEST(parse, what_says_nothing_to_c_is_left_out)
{
    const std::string head = "declare i32 @g(i32, ...)\ndeclare void @llvm.dbg.value(metadata, metadata, metadata)\n";
    const std::string input = R"(define internal fastcc noundef zeroext i8 @f(i8* nocapture noundef readonly align 2 %p,
        i32 %"odd name", %t* byval(%t) align 4 %0) unnamed_addr #0 comdat($f) align 2 !dbg !3 {
  %2 = alloca i32, i32 1, align 4
  call void @llvm.dbg.value(metadata i32 %"odd name", metadata !4, metadata !DIExpression()), !dbg !5
  %3 = load atomic volatile i8, i8* %p syncscope("agent") seq_cst, align 1, !tbaa !6
  %4 = getelementptr inbounds %t, %t* %0, i32 0, i32 1 ; a comment
  %q = udiv exact i32 %"odd name", 3
  %5 = tail call fastcc i32 (i32, ...) @g(i32 noundef %q, i8 signext %3) #5, !srcloc !{i32 1}
  br label %loop, !llvm.loop !7
loop:                                             ; preds = %loop, %1
  %sum = phi i32 [ 0, %1 ], [ %next, %loop ]
  %next = add nuw nsw i32 %sum, -1
  switch i32 %next, label %loop [
    i32 4, label %"the end"
    i32 -5, label %"the end"
  ], !dbg !5
"the end":
  ret i8 %3
}
%t = type <{ i8, i32 }>
attributes #0 = { noinline nounwind allocsize(0,1) align=4 "frame-pointer"="all" }
)";
    const std::string expected = R"(define zeroext i8 @f(i8* %p, i32 %"odd name", %t* byval(%t) %0) {
1:
  %2 = alloca i32, align 4
  %3 = load atomic volatile i8, i8* %p acquire, align 1
  %4 = getelementptr %t, %t* %0, i32 0, i32 1
  %q = udiv i32 %"odd name", 3
  %5 = call i32 (i32, ...) @g(i32 %q, i8 signext %3)
  br label %loop
loop:
  %sum = phi i32 [ 0, %1 ], [ %next, %loop ]
  %next = add nuw nsw i32 %sum, -1
  switch i32 %next, label %loop [
    i32 4, label %"the end"
    i32 -5, label %"the end"
  ]
"the end":
  ret i8 %3
}
)";
    EXPECT_EQ(printed(head + input), expected);
}

TEST(parse, every_kind_of_instruction_and_constant_comes_back)
{
    const std::string types = "%s = type { i32, [4 x i8] }\n@v = external global %s\ndeclare void @may(%s*, double)\n";
    const std::string body = R"(define void @f(i32* %p, i32 %i, double %d, i1 %c, i8* %list) {
entry:
  %slot = alloca %s, i32 %i, align 16
  %x = cmpxchg i32* %p, i32 %i, i32 7 seq_cst seq_cst, align 4
  %old = extractvalue { i32, i1 } %x, 0
  %more = insertvalue { i32, i1 } %x, i1 %c, 1
  %r = atomicrmw volatile umax i32* %p, i32 %old seq_cst, align 4
  fence seq_cst
  store %s { i32 1, [4 x i8] c"a\22\00\FF" }, %s* @v, align 4
  store i8* getelementptr (%s, %s* @v, i32 0, i32 1, i32 2), i8** inttoptr (i32 add (i32 ptrtoint (%s* @v to i32), i32 4) to i8**), align 4
  %n = fneg double %d
  %u = fcmp ule double %n, 0x3FB999999999999A
  %o = select i1 %u, double 0x7FF0000000000000, double undef
  %i1 = fptosi double %o to i32
  %i2 = freeze i32 %i1
  %va = va_arg i8* %list, i32
  call void asm sideeffect "nop", "~{memory}"()
  invoke void @may(%s* null, double %o) to label %next unwind label %pad
next:
  %cmp = icmp ugt i32* %p, null
  br i1 %cmp, label %dead, label %dead
pad:
  %lp = landingpad { i8*, i32 } cleanup catch i8* null filter [0 x i8*] zeroinitializer
  resume { i8*, i32 } %lp
dead:
  unreachable
}
)";
    EXPECT_EQ(printed(types + body), body);
}

TEST(parse, globals_keep_what_their_lines_say)
{
    Read read(R"(target datalayout = "e-m:e-p:16:16-i32:16-i64:16-f32:16-f64:16-a:8-n8:16-S16"
@a = linkonce_odr hidden unnamed_addr constant [3 x i16] [i16 -1, i16 2, i16 ptrtoint (i8** @later to i16)], section "rom", comdat, align 8
@later = dso_local global i8* bitcast ([3 x i16]* @a to i8*), !dbg !0
@"odd\22name" = extern_weak thread_local global float
@same = weak alias i8*, i8** @later
@f1 = global { float, double } { float 0x3FB99999A0000000, double -1.5e-2 }
)");
    EXPECT_EQ(reasons(read.module), "");
    const auto &named = read.module.global_by_name;
    const Global &a = *named.at("a");
    EXPECT_TRUE(a.hidden && a.is_constant && a.linkage == Linkage::linkonce_odr && a.section == "rom" && a.align == 8);
    EXPECT_EQ(signedvalue(operand(a.initialiser, 0)), -1);
    EXPECT_EQ(operand(operand(a.initialiser, 2), 0)->global, named.at("later"));
    EXPECT_EQ(named.at("later")->location, 1U);
    EXPECT_TRUE(named.at("odd\"name")->declared_only && named.at("odd\"name")->thread_local_);
    EXPECT_EQ(named.at("same")->initialiser, named.at("later")->value);
    EXPECT_EQ(operand(named.at("f1")->initialiser, 1)->number, 0xBF8EB851EB851EB8U);
}

TEST(parse, structures_are_laid_out_by_the_target)
{
    const std::string types = "%a = type { i8, i64, i16, float }\n%p = type <{ i8, %a, [3 x i16], i1 }>\n";
    const auto measure = [&](const std::string &layout) {
        const Read read("target datalayout = \"" + layout + "\"\n" + types);
        const Type *a = read.module.struct_by_name.at("a")->type;
        const Type *p = read.module.struct_by_name.at("p")->type;
        return std::vector<std::size_t>{offsetof_member(read.module, a, 1), offsetof_member(read.module, a, 3),
                                        sizeoftype(read.module, a),         alignof_type(read.module, a),
                                        offsetof_member(read.module, p, 2), sizeoftype(read.module, p)};
    };
    EXPECT_EQ(measure("e-p:16:16-i32:16-i64:16-f32:16"), (std::vector<std::size_t>{2, 12, 16, 2, 17, 24}));
    EXPECT_EQ(measure("e-p:32:32"), (std::vector<std::size_t>{4, 16, 20, 4, 21, 28}));
    EXPECT_EQ(measure("e-i64:64"), (std::vector<std::size_t>{8, 20, 24, 8, 25, 32}));
}

TEST(parse, refusals_name_the_line_and_reading_goes_on)
{
    // Lines of a body, and what is said of each.
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"%x = add <4 x i32> undef, undef", "vector"},
        {"%x = add i32 %b, 1", "a local that isn't defined"},
        {"%x = add i64 %a, 1", "'%a' is i32, not i64"},
        {"%x = add i8 %h, 256", "integer constant too large for its type"},
        {"%x = frob i32 %a", "'frob' where an instruction is expected"},
        {"%x = add strange i32 %a, 1", "'strange' where a type is expected"},
        {"%x = load i32, ptr null", "opaque pointer ('ptr'): clang 15 and 16 need -Xclang -no-opaque-pointers"},
        {"%x = load i32, i8* null", "load of i32 through i8*"},
        {"%x = phi i32 !dbg !5", "'!dbg' where '[' is expected"},
        {"%x = zext i32 %a to i8", "zext from i32 to i8"},
        {"%x = load x86_fp80, x86_fp80* null", "floating type ('x86_fp80')"},
        {"%x = load i32, i32 addrspace(1)* null", "address space"},
        {"%x = call i32 @f(i8 1)", "'@f' is i32 (i32, i8)*, not i32 (i8)*"},
        {"%x = getelementptr { i8 }, { i8 }* null, i32 0, i32 1",
         "getelementptr with indices that its type doesn't have"},
        {"%a = add i32 1, 1", "a second definition of this name"},
        {"indirectbr i8* null, [label %entry]", "computed goto ('indirectbr')"},
        {"call void @f() [ \"deopt\"() ]", "'@f' is i32 (i32, i8)*, not void ()*"},
        {"br label %entry", "a branch to the first block"},
        {"ret i8 %h", "ret of i8 in a function of type i32"},
        {"%x = add i32 %a, \"", "a character or quote that IR doesn't have here"},
    };
    for (const auto &[line, reason] : cases) {
        const bool ends = line.starts_with("br") || line.starts_with("ind");
        const Read read("define i32 @f(i32 %a, i8 %h) {\nentry:\n  " + line + "\n" + (ends ? "\n" : "  ret i32 %a\n") +
                        "}\ndefine half @g() {\n}\n");
        EXPECT_EQ(reasons(read.module), "6: floating type ('half')\n3: " + reason + "\n") << line;
    }
}

TEST(parse, values_must_be_defined_on_every_way)
{
    const std::string head = "define i32 @f(i1 %c) {\nentry:\n  br i1 %c, label %a, label %b\na:\n  %x = add i32 1, 1\n"
                             "  br label %b\nb:\n";
    EXPECT_EQ(printed(head + "  ret i32 %x\n}\n").substr(0, 55),
              "8: a value that isn't defined on every way to its use\nd");
    EXPECT_EQ(printed(head + "  %y = phi i32 [ %x, %a ]\n  ret i32 %y\n}\n").substr(0, 50),
              "8: a phi with other pairs than edges into its bloc");
    EXPECT_EQ(printed(head + "  %y = phi i32 [ %x, %a ], [ 0, %entry ]\n  ret i32 %y\n}\n").substr(0, 6), "define");
}

TEST(parse, hostile_input_is_refused_without_recursion)
{
    const std::vector<std::string> inputs = {
        "@g = global " + std::string(100000, '[') + "\n",
        "@g = global i8" + std::string(100000, '*') + " null\n",
        "%s = type { [2 x %s] }\n",
        "@g = global i32 1\n@g = global i32 2\n",
        "define void @f() {\n  ret void\n",
        "@g = global i8 \"\n",
        "@g = global i32 " +
            [] {
                std::string deep;
                for (int i = 0; i < 100000; ++i)
                    deep += "add (i32 ";
                return deep;
            }(),
    };
    for (const std::string &input : inputs) {
        EXPECT_EQ(Read(input).module.errors, 1U) << input.substr(0, 40);
    }
    std::string chain;
    for (int i = 0; i < 60; ++i) {  // a size of 2^60, which isn't found by adding up
        chain +=
            "%s" + std::to_string(i) + " = type { %s" + std::to_string(i + 1) + ", %s" + std::to_string(i + 1) + " }\n";
    }
    const Read read(chain + "%s60 = type { i8 }\n");
    EXPECT_EQ(sizeoftype(read.module, read.module.struct_by_name.at("s0")->type), std::size_t{1} << 60U);
}

TEST(messages, places_come_from_the_metadata)
{
    const Read read(R"(source_filename = "main.cpp"
@wide = global half 0xH0000, !dbg !8
define void @_ZN3box3putEi(i32 %a) !dbg !2 {
  %x = add half undef, undef, !dbg !4
  %y = add bfloat undef, undef
  ret void
}
!1 = !DIFile(filename: "main.cpp", directory: "/src")
!2 = distinct !DISubprogram(name: "line: 99, file: !6", scope: !1, file: !1, line: 10)
!3 = !DILexicalBlockFile(scope: !2, file: !6, discriminator: 0)
!4 = !DILocation(line: 12, column: 7, scope: !5, inlinedAt: !4)
!5 = distinct !DILexicalBlock(scope: !3, line: 11)
!6 = !DIFile(filename: "inc.h", directory: "/src")
!8 = !DIGlobalVariableExpression(var: !9, expr: !DIExpression())
!9 = distinct !DIGlobalVariable(name: "wide", file: !6, line: 3)
)");
    std::vector<std::string> places;
    for (const Message &message : read.module.messages) {
        places.push_back(message.file + ":" + std::to_string(message.line) + ":" + std::to_string(message.column) +
                         " " + message.function);
    }
    EXPECT_EQ(places,
              (std::vector<std::string>{"inc.h:3:0 ", "inc.h:12:7 box::put(int)", "main.cpp:10:0 box::put(int)"}));
}

TEST(model, uses_follow_every_change_of_operands)
{
    Read read(
        "define i32 @f(i32 %a, i32 %b) {\nentry:\n  %s = add i32 %a, %b\n  %t = add i32 %s, %s\n  br label %x\nx:\n"
        "  %p = phi i32 [ %t, %entry ], [ %p, %dead ]\n  ret i32 %p\ndead:\n  br label %x\n}\n");
    Function &function = read.functions.front();
    Value *sum = function.blocks[0]->first;
    Value *twice = sum->next;
    EXPECT_EQ(countuses(sum), 2U);
    setoperand(twice, 0, function.params[0]);
    EXPECT_TRUE(hasoneuse(sum) && countuses(function.params[0]) == 2);
    removeunreachable(function);
    Value *phi = function.blocks[1]->first;
    EXPECT_EQ(phi->operand_count, 1U);
    replaceuses(phi, twice);
    EXPECT_EQ(operand(function.blocks[1]->last, 0), twice);
    for (int i = 0; i < 100; ++i) {  // far past the room that it had
        addoperand(function, phi, sum);
        phi->targets.push_back(phi->targets[0]);
    }
    EXPECT_EQ(countuses(sum), 101U);
    while (phi->operand_count > 1) {
        removeoperand(phi, 1);
    }
    remove(phi);
    replaceuses(sum, intconst(read.module, sum->type, 5));
    EXPECT_FALSE(hasuses(sum));
    remove(sum);
    verify(function, "changed");
    EXPECT_EQ(operand(twice, 1), intconst(read.module, twice->type, 5));
}

}  // namespace
}  // namespace adapt
