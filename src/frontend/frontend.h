// What the programs of this tree must agree on: the names that the front end gives to blocks, values and aggregates,
// and how names and strings are spelled in C.
#pragma once

#include <string_view>

// ---- Names that the front end gives (names.cpp) -----------------------------------------------------------------
// The names are prefixes: the front end appends a number when it uses a name again.

// Labels. One that ends in a dot is the common prefix of all labels of a construct.
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
inline constexpr std::string_view conditional = "cond.";  // the arms of ?: and their join
inline constexpr std::string_view logical_and = "land.";
inline constexpr std::string_view logical_or = "lor.";
inline constexpr std::string_view invoke = "invoke.";  // the normal destination of an invoke
inline constexpr std::string_view cleanup_cont = "cleanup.cont";
}  // namespace labels

// Results of ++ and --: of a number, and of a pointer for either operator.
namespace value_names {
inline constexpr std::string_view increment = "inc";
inline constexpr std::string_view decrement = "dec";
inline constexpr std::string_view pointer_step = "incdec.ptr";
}  // namespace value_names

// The stack slot of the parameter x is x.addr; of parameters without a name, .addr, .addr1, .addr2 and so on.
inline constexpr std::string_view slot_suffix = ".addr";
bool isparameterslot(std::string_view local);

// Prefixes of the names of aggregates.
namespace tag_prefixes {
inline constexpr std::string_view structure = "struct.";
inline constexpr std::string_view class_ = "class.";
inline constexpr std::string_view union_ = "union.";
}  // namespace tag_prefixes

// Intrinsics. One that ends in a dot is followed by the types of its operands.
namespace intrinsics {
inline constexpr std::string_view prefix = "llvm.";
inline constexpr std::string_view debug = "llvm.dbg.";
inline constexpr std::string_view invariant = "llvm.invariant.";
inline constexpr std::string_view memory_copy = "llvm.memcpy.";
inline constexpr std::string_view memory_move = "llvm.memmove.";
inline constexpr std::string_view memory_set = "llvm.memset.";
inline constexpr std::string_view stack_restore = "llvm.stackrestore";
}  // namespace intrinsics
// Whether it is an intrinsic for the debugger or the optimiser, whose calls have no effect.
bool isannotation(std::string_view function);

// ---- Names and strings in C (spelling.cpp) ----------------------------------------------------------------------

// The C form of an IR name: `.`, `:`, `<` and `>` become `_`. Either `name` itself or a copy that is valid until the
// next call.
std::string_view cname(std::string_view name);

// Translates the escapes of an IR string into those of C. With `quoted` the text includes its quotes, and a zero byte
// at the end of the string, which C adds itself, is left out. The result is valid until the next call.
std::string_view cstring(std::string_view text, bool quoted);
