// Micro-benchmarks of the three loops that every run spends its time in: the scanner, the interning of names and the
// printing of expressions. bench/run measures the whole program; this shows a change in one of them above the noise.
#include "base/base.h"
#include "emit/emit.h"
#include "model/model.h"
#include "reader/reader.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr const char *lines[] = {
    "  %0 = load i16, i16* %a.addr, align 2\n",
    "  %add12 = add nsw i16 %0, 17\n",
    "  store i16 %add12, i16* %counter, align 2\n",
    "  %arrayidx = getelementptr inbounds [8 x i8], [8 x i8]* %name, i16 0, i16 3\n",
    "  br i1 %cmp, label %for.body, label %for.end\n",
    "for.cond:                                         ; preds = %for.inc, %entry\n",
    "  %call = call i16 @ext(i16 %8, i8* getelementptr inbounds ([7 x i8], [7 x i8]* @msg, i16 0, i16 0))\n",
    "!7 = !DIDerivedType(tag: DW_TAG_member, name: \"key\", scope: !5, file: !3, line: 3, baseType: !12, size: 16)\n",
};

void scan_lines(benchmark::State &state)
{
    std::int64_t bytes = 0;
    for (auto _ : state) {
        for (const char *line : lines) {
            setcursor(line);
            Token t;
            do {
                gettoken(t);
                benchmark::DoNotOptimize(t);
            } while (t.code != token::end_of_line);
            bytes += static_cast<std::int64_t>(std::string_view(line).size());
        }
    }
    state.SetBytesProcessed(bytes);
}
BENCHMARK(scan_lines);

// The argument is the number of names, each of which is already known.
void intern_known(benchmark::State &state)
{
    std::vector<std::string> names;
    for (std::int64_t i = 0; i < state.range(0); ++i)
        names.push_back("arrayidx" + std::to_string(i));
    for (const std::string &name : names)
        intern(name);
    for (auto _ : state)
        for (const std::string &name : names)
            benchmark::DoNotOptimize(intern(name));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(intern_known)->Range(1 << 6, 1 << 18);

Expr *newname(const char *text, Type *type)
{
    Expr *name = newexpr(op::leaf, type);
    name->leaf = leaf::name;
    name->value = intern(text);
    return name;
}

// table[i] = (i + 1) * 2 + ... with the argument as the number of operators.
Expr *newassignment(std::int64_t operators)
{
    Type *type = newtype(kind::int16, nullptr);
    Expr *sum = newname("i", type);
    for (std::int64_t i = 0; i < operators; ++i) {
        Expr *next = newexpr(i % 2 ? op::multiply : op::add, type);
        next->left = sum;
        next->right = i % 4 ? newname("count.addr", type) : newnumber("17");
        sum = next;
    }
    Expr *element = newexpr(op::index, newtype(kind::array, type));
    element->left = newname("table", element->type);
    element->right = newname("i", type);
    Expr *assignment = newexpr(op::assign, type);
    assignment->left = element;
    assignment->right = sum;
    return assignment;
}

void print_assignment(benchmark::State &state)
{
    if (!createoutput("/dev/null")) {
        state.SkipWithError("can't write to /dev/null");
        return;
    }
    Expr *assignment = newassignment(state.range(0));
    for (auto _ : state)
        outexpr(assignment, false);
    closeoutput();
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(print_assignment)->Range(1 << 2, 1 << 14);

}  // namespace

BENCHMARK_MAIN();
