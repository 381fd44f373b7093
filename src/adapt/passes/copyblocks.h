// Copies of blocks, for passes that give each way through a function blocks of its own.
#pragma once

#include "adapt/ir.h"

#include <unordered_map>
#include <vector>

namespace adapt {

// Blocks of which only the first is entered from outside, as far as the copy is concerned.
struct Region {
    std::vector<Block *> blocks;  // the first one first
    std::size_t size = 0;         // in instructions
};

// What became of the blocks and values of a region in its copy.
struct Copy {
    std::unordered_map<const Block *, Block *> blocks;
    std::unordered_map<const Value *, Value *> values;
};

// Whether no value of the region is used outside of it, so that a copy needs no phi elsewhere.
bool isclosed(const Region &region);

// Copies the region for the edges from `from` to its first block, which lead to the copy then. Jumps out of the region
// go where they went; phis there get a pair for the copy. The new blocks are appended to `made`, not to the function.
Copy copyregion(Function &function, const Region &region, Block *from, std::vector<Block *> &made);

// Puts the instructions of `block`, whose only predecessor `from` jumps to it and nowhere else, at the end of `from`.
void mergeinto(Block *from, Block *block);

}  // namespace adapt
