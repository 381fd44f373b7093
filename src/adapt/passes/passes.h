// The passes, in the sections of their files.
#pragma once

#include "adapt/ir.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace adapt {

// ---- lowerglobals.cpp ----

// Resolves aliases, drops definitions that another file has, and makes variables that several files may define
// reachable by a function. Before the names are settled; makes new globals.
void lowerglobals(Module &module);
// Makes the function reach such variables by a call at its start.
void lowershared(Function &function);

// ---- lowertables.cpp ----

// Gives arrays that the front end writes as packed structures their type.
void lowertables(Module &module);

// ---- settletypes.cpp: structures as C has them ----

// Settles names and layout of all structures that the lines outside of functions name.
void settletypes(Module &module);
// Names the literal structures in a type that settletypes() hasn't seen.
void settleliterals(Module &module, Type *type);
void settleliteral(Module &module, Type *type);
// The record of a structure, or null.
StructType *structof(const Type *type);
// What the arrays around it hold.
Type *elementof(Type *type);
// The tag in C.
std::string_view tagof(const StructType &type);
// The alignment in C; 0 for a type that C hasn't.
std::size_t calign(const Module &module, const Type *type);
// The place of a member among the written ones; -1 if it can only be reached by its offset in bytes.
std::int64_t writtenplace(const StructType &type, std::uint64_t index);

// ---- settlenames.cpp ----

// Gives each global a name that C takes. Names that other files may know stay.
void settlenames(Module &module);
// A name in the characters of C: others become _.
std::string plainname(std::string_view name);
// The name to print of a global, also of one that a pass has made since.
const std::string &writtenname(const Global &global);
// A word of the language.
bool iskeyword(std::string_view name);
// A name that no local and no static of the input may have in C: a keyword, a word of the dialect, a function of the
// headers that quarl includes.
bool isreservedname(std::string_view name);

// ---- lowerlayout.cpp ----

// Makes accesses to members that aren't written in their place, or at all, count bytes.
void lowerlayout(Function &function);
// The same in a constant: itself, or a changed copy.
Value *lowerlayout(Module &module, Value *constant);

// ---- lowerunaligned.cpp ----

// Copies what isn't aligned as its type wants, before a load and after a store.
void lowerunaligned(Function &function);

// ---- lowernan.cpp ----

// Loads what isn't a number from a constant variable.
void lowernan(Function &function);

// ---- lowermemory.cpp ----

// Copies memory by plain functions where the module has declarations of string.h itself.
void lowermemory(Function &function);
// Once all functions are lowered, leaves out the declarations that would bring the header in.
void dropcopies(Module &module);

// ---- inlines.cpp ----

// Finds the inline functions that call each other in a circle, by Global::calls of all definitions.
void findcircles(Module &module);
// True if quarl prints the definition as an inline function.
bool printsinline(const Global &global);
// The definitions in the order to print: inline functions after those that they call, which spares quarl the search.
std::vector<Global *> printorder(Module &module);

// ---- Lowering to plain IR: from what the front end writes to what the structuring takes, in this order ----

// Exceptions: an invoke is a call, landing pads go.
void lowerinvoke(Function &function);
// va_start, va_arg, va_end and va_copy become macros of runtime/arguments.h.
void lowervarargs(Function &function);
// Arrays of variable length become memory of malloc.
void lowervla(Function &function);
// Calls of llvm.* become instructions, functions of the C library or of runtime/bits.c.
void lowerintrinsics(Function &function);
// Atomic accesses become volatile ones, or functions of runtime/atomic.c.
void loweratomics(Function &function);
// Structures and arrays as values go through variables.
void loweraggregates(Function &function);
// Integers of more than 64 bits, as runs of bit fields are, become words.
void lowerwide(Function &function);
// Computed constants other than addresses become instructions.
void hoistconstants(Function &function);
// Integers of other widths, bits of floating-point numbers, pointers of other widths, copies of arguments.
void lowerodd(Function &function);
// Floating-point numbers to unsigned integers of 64 bits.
void lowerfloats(Function &function);
// Each way out of a scope with destructors gets a copy of them.
void threadcleanups(Function &function);
// The shared return becomes one in each place that jumps to it.
void foldreturns(Function &function);
// Values that nothing uses go.
void dropdead(Function &function);
// Variables go to the start of the entry block.
void hoistallocas(Function &function);

// ---- addresses.cpp: what constants come to ----

// A constant as an address: a global and bytes from its start. Without a global: a number.
struct Address {
    Global *global = nullptr;
    std::int64_t offset = 0;
};
// False if the constant comes to something else.
bool findaddress(const Module &module, const Value *constant, Address &address);

}  // namespace adapt
