// Control reconstruction: the bodies of functions as structured C statements, and the functions section.
//
// No control-flow graph is built. One walk goes through the blocks of a function in the order of the file and relies on
// the labels that the front end gives its blocks.
#pragma once

#include "model/model.h"

#include <string_view>
#include <unordered_map>
#include <vector>

// ---- Functions section (functions.cpp) --------------------------------------------------------------------------

// Moves inline functions before the inline functions that call them.
void orderinline();
// Writes all functions, the inline ones first.
void outfunctions();
// Whether a function is an inline candidate that nothing keeps from it; the option -i plays no part.
bool isinline(const Symbol *function);

// ---- The walk over one function (walk.cpp, branches.cpp, joins.cpp) ---------------------------------------------

// WalkState::joinstate. The two are never set together.
namespace join {
inline constexpr unsigned none = 0;
inline constexpr unsigned chain = 1;  // a condition chain of && and || is open
inline constexpr unsigned value = 2;  // a conditional value is open
}  // namespace join

struct WalkState {
    Block *block = nullptr;       // the current block
    Inst *inst = nullptr;         // the current Inst; null when its handler has finished the block
    Block *firstblock = nullptr;  // the function's first block
    Inst *lastinst = nullptr;     // the function's last Inst, from which the whole chain is reached
    bool declgap = false;         // a declaration was written and no blank line since
    Inst *allocfirst = nullptr;   // the first dynamic alloca not yet freed
    int alloccount = 0;           // how many there are
    Expr *pending = nullptr;      // deferred statements: the init of a `for`, or those of a join
    int closecount = 0;           // block starts left until `closers` are written; 0 when no count runs
    int closers = 0;              // number of closing braces to write then
    bool whilehead = false;       // a `while (...)` was written and its body is yet to come
    bool dotail = false;          // the tail of a `do` was written: do.end closes nothing
    unsigned joinstate = join::none;
    Block *joinstart = nullptr;       // where the open join began
    Block *joinend = nullptr;         // the last block of the open chain, prepared by the chain's first phi
    bool phiopen = false;             // joinend is prepared
    bool looked_ahead = false;        // a phi has taken a value from its own block or from one after it
    std::vector<Block *> savedconds;  // blocks whose branches test inner conditional values, innermost last
    bool chain_indexed = false;       // the Insts are entered in the index of locals
    // for.inc blocks by the target of their branch; filled at the first `for`.
    bool increments_indexed = false;
    std::unordered_map<const Name *, std::vector<Block *>> increments;
};

extern int indent_depth;  // of the line being written; starts at 1 for each function

// Writes the body of a function from its first block on; null writes nothing.
void outbody(Block *first);
// The first block with the label whose position is at least `position`, or null.
Block *blockfrom(std::uint32_t position, const Name *label);
// The first block from `start` on with the label; reports "block not found %s\n" and returns `start` if there is none.
Block *findblock(Block *start, const Name *label);
// Removes the blocks of exception handling after `first`.
void stripexceptions(Block *first);

// Lines of the output, indented by indent_depth tabs; outline() writes a whole line.
void outindent();
void outline(std::string_view text);
void openbrace();             // depth up, then the line "{"
void closebrace();            // the line "}", then depth down
void closebraces(int depth);  // closes braces until `depth` is reached

// Tests on blocks and Insts.
inline bool labelbegins(const Block *block, std::string_view prefix)
{
    return namebegins(block->label, prefix);
}
inline bool endsin(const Block *block, std::uint8_t op)
{
    return block->last && block->last->op == op;
}
// The branch pair of an Inst, null if it has none. A switch has one if it was prepared for a phi; a case differs
// from it in having a label.
inline Expr *branchpair(const Inst *instruction)
{
    if (!instruction)
        return nullptr;
    Expr *pair = instruction->targets;
    return pair && pair->label ? nullptr : pair;
}
// A store, a call without a result, or a call whose result nobody uses.
inline bool isstatement(const Inst *instruction)
{
    return instruction->op == inst::statement ||
           (instruction->op == inst::value && instruction->used == used::no && isop(instruction->expr, op::call));
}

// Handlers of walk.cpp that others call.
void handlereturn(WalkState &state);
void outplainlabel(WalkState &state);

// branches.cpp
void dispatchlabel(WalkState &state);
void handlecase(WalkState &state);
void handledo(WalkState &state);
void handlefor(WalkState &state);
void handleif(WalkState &state);
void handlejump(WalkState &state);
void handleother(WalkState &state);
void handleswitch(WalkState &state);
void handlewhile(WalkState &state);

// joins.cpp
void handlechain(WalkState &state);
void handlecond(WalkState &state);
void handlejoinjump(WalkState &state);
void handleloopclose(WalkState &state);
void handlephi(WalkState &state);
// Puts the deferred statements before the value of an Inst, as a comma expression, and clears them.
void addcomma(Inst *instruction, Expr *&pending);
// Merges the conditions of the blocks from `start` to `end`, both included, into one tree.
void mergeconds(Block *start, Block *end);
