// What the passes that lower a function share: short ways to put instructions before others, variables of the
// compiler's own, and functions of the runtime.
#pragma once

#include "adapt/ir.h"

#include <string_view>
#include <vector>

namespace adapt {

// Puts a new instruction before `place`, with its line and location.
Value *putinst(Value *place, Op op, Type *type, const std::vector<Value *> &operands);
Value *putcast(Value *place, Op op, Value *value, Type *type);
// bitcast, nothing if the type is right already.
Value *putbitcast(Value *place, Value *pointer, Type *type);
// zext or trunc between integers; the value itself if the width is right.
Value *putresize(Value *place, Value *value, Type *type);
Value *putcompare(Value *place, Predicate predicate, Value *left, Value *right);
Value *putselect(Value *place, Value *condition, Value *yes, Value *no);
Value *putload(Value *place, Value *pointer, Type *type);
Value *putstore(Value *place, Value *value, Value *pointer);
// The address of a member of the aggregate `type` at `pointer`.
Value *putmember(Value *place, Value *pointer, Type *type, std::uint64_t member);
// The address `offset` elements of `type` after `pointer`.
Value *putoffset(Value *place, Value *pointer, Type *type, std::uint64_t offset);
Value *putcall(Value *place, Global *callee, const std::vector<Value *> &arguments);

// A variable, at the start of the entry block.
Value *addslot(Function &function, Type *type, std::string_view name);

// The function of this name; declared if the module doesn't have it yet, with a type that may then differ.
Global *needfunction(Module &module, std::string_view name, Type *type);
// The same for what is a macro in C: it is called without being declared.
Global *needmacro(Module &module, std::string_view name, Type *result);

// The instructions that a block has now. Passes that take out more than the one they visit skip the removed ones.
std::vector<Value *> instsof(const Block *block);
// The blocks in an order in which each comes after those that dominate it.
std::vector<Block *> reachedorder(Function &function);
// Replaces the result of an instruction and takes it out.
void replaceinst(Value *inst, Value *with);
// A pointer without the bitcasts, of both instructions and constants, that lead to it.
Value *withoutcasts(Value *pointer);
// The function that a call calls by its name; null for any other call.
Global *calledglobal(const Value *call);
// Takes out instructions that give a value without any effect, from `value` on back, as far as nothing uses them.
void dropunused(Value *value);
// Whether a variable is only loaded and stored, as a whole and not as volatile.
bool isplainslot(const Value *slot);
// Takes out a variable that is only stored to, with the stores. Does nothing to any other.
void dropunread(Value *slot);
bool isintconst(const Value *value);
// A copy of an instruction outside of any block, with the same operands and targets.
Value *copyinst(Function &function, const Value *inst);

}  // namespace adapt
