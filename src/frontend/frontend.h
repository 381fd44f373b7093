// What the programs of this tree must agree on: the names that the front end gives to blocks, values and aggregates,
// and what becomes of names and strings in C.
#pragma once

#include <string_view>

// ---- Names that the front end gives (names.cpp) -----------------------------------------------------------------
// It numbers what it names more than once: a label begins with the text given here, and so does a value.

// Labels. One that ends in a dot is the beginning of all labels of a construct.
namespace labels {
inline constexpr std::string_view if_ = "if.";
inline constexpr std::string_view if_then = "if.then";
inline constexpr std::string_view if_else = "if.else";
inline constexpr std::string_view if_end = "if.end";
inline constexpr std::string_view while_ = "while.";
inline constexpr std::string_view while_cond = "while.cond";
inline constexpr std::string_view while_body = "while.body";
inline constexpr std::string_view while_end = "while.end";
inline constexpr std::string_view for_ = "for.";
inline constexpr std::string_view for_cond = "for.cond";
inline constexpr std::string_view for_body = "for.body";
inline constexpr std::string_view for_inc = "for.inc";
inline constexpr std::string_view for_end = "for.end";
inline constexpr std::string_view do_ = "do.";
inline constexpr std::string_view do_body = "do.body";
inline constexpr std::string_view do_cond = "do.cond";
inline constexpr std::string_view do_end = "do.end";
inline constexpr std::string_view switch_default = "sw.default";
inline constexpr std::string_view switch_end = "sw.epilog";
inline constexpr std::string_view conditional = "cond.";  // the branches of ?: and where they meet
inline constexpr std::string_view logical_and = "land.";
inline constexpr std::string_view logical_or = "lor.";
inline constexpr std::string_view invoke = "invoke.";  // where an invoke goes on
inline constexpr std::string_view cleanup_cont = "cleanup.cont";
}  // namespace labels

// Values of ++ and --: of a number, and of a pointer in either direction.
namespace value_names {
inline constexpr std::string_view increment = "inc";
inline constexpr std::string_view decrement = "dec";
inline constexpr std::string_view pointer_step = "incdec.ptr";
}  // namespace value_names

// The stack slot of the parameter x is x.addr; of parameters without a name, .addr, .addr1, .addr2 and so on.
inline constexpr std::string_view slot_suffix = ".addr";
bool isparameterslot(std::string_view local);

// How the names of aggregates begin.
namespace tag_prefixes {
inline constexpr std::string_view structure = "struct.";
inline constexpr std::string_view class_ = "class.";
inline constexpr std::string_view union_ = "union.";
}  // namespace tag_prefixes

// Intrinsics. One that ends in a dot goes on with the types of its operands.
namespace intrinsics {
inline constexpr std::string_view prefix = "llvm.";
inline constexpr std::string_view debug = "llvm.dbg.";
inline constexpr std::string_view invariant = "llvm.invariant.";
inline constexpr std::string_view memory_copy = "llvm.memcpy.";
inline constexpr std::string_view memory_move = "llvm.memmove.";
inline constexpr std::string_view memory_set = "llvm.memset.";
inline constexpr std::string_view stack_restore = "llvm.stackrestore";
}  // namespace intrinsics
// Whether it is one for the debugger or the optimiser, which does nothing.
bool ismarker(std::string_view function);

// ---- Names and strings in C (spelling.cpp) ----------------------------------------------------------------------

// The C form of an IR name: `.`, `:`, `<` and `>` become `_`. Either `name` itself or a copy that is valid until the
// next call.
std::string_view cname(std::string_view name);

// Translates the escapes of an IR string into those of C. Of a text that stands in its quotes, a translated zero byte
// before the closing one is taken out. The result is valid until the next call.
std::string_view cstring(std::string_view text, bool quoted);
