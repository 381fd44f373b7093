// Marks: numbers that stand for what an expression computes, so that the printed text can be compared with the tree
// that it came from. Conversions don't count, for the printer adds and leaves out casts; operators, the order of
// operands, constants, names, calls, steps and assignments do.
#pragma once

#include "adapt/tree.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace adapt {

using Hash = std::uint64_t;

enum class Chain : std::uint8_t { none, all, any };

// A condition has a mark for its opposite, too. A chain of && or || has one for the sequence of its terms, so that it
// is the same however it was put together.
struct Mark {
    Hash yes = 0;
    Hash no = 0;
    Hash tested = 0;  // what matters where it is compared with 0: `x & 1` counts as x
    Hash sequence_yes = 0;
    Hash sequence_no = 0;
    Hash power = 0;  // of the length of the sequence
    Chain chain = Chain::none;
    bool is_flag = false;
    bool is_constant = false;
    std::int64_t number = 0;
};

Hash hashtext(std::string_view text);
Hash hashtext(Hash start, std::string_view text);
Mark plainmark(Hash hash);
Mark numbermark(std::int64_t number, bool is_flag);
Mark negatedmark(const Mark &mark);
Mark chainmark(Chain kind, const Mark &left, const Mark &right);
Mark testedmark(const Mark &mark);  // mark != 0
Mark choicemark(const Mark &condition, const Mark &yes, const Mark &no, bool is_flag);
Mark comparemark(std::string_view predicate, bool is_float, const Mark &left, const Mark &right);
Mark operationmark(std::string_view word, const std::vector<Mark> &operands, bool is_flag);
Mark loadmark(const Mark &address, bool is_volatile, bool is_flag);
Mark stepmark(const Mark &address, bool is_pointer, bool is_negative);
Mark assignmark(const Mark &address, const Mark &value, bool is_flag);
Mark storemark(const Mark &address, const Mark &value, bool is_volatile);
Mark commamark(Hash statements, const Mark &value);
Hash addhash(Hash list, Hash next);
// A constant as it is written, of so many bits; 0: no integer.
Mark literalmark(std::string_view text, std::uint32_t bits);

// The marks of what was to be printed.
Mark markof(const Expr *expr);
Mark markof(const Stmt *stmt);  // a call, a store or a set

}  // namespace adapt
