// Loops whose conditions hold statements, see loops.cpp.
#pragma once

#include "adapt/blocks.h"

#include <unordered_set>

namespace adapt {

// The blocks of a loop's condition: from its first label to the block that branches to the body or out.
struct Condition {
    std::size_t first = npos;
    std::size_t last = npos;
};

// The condition that starts at the block, if it is labelled while.cond or for.cond.
Condition find_condition(Module &module, const Blocks &blocks, std::size_t place);

// Rewrites the loops whose conditions need statements. `difficult` tells of a block that the rest of the shape needs
// statements for.
void rewrite_loops(Module &module, Function &function, Blocks &blocks,
                   const std::unordered_set<std::size_t> &difficult);

}  // namespace adapt
