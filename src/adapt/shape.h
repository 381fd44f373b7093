// The labels and branches of a function, see shape.cpp.
#pragma once

#include "adapt/function.h"

namespace adapt {

// Takes out the numbered blocks that nothing leads to. lines[0] is the header.
void drop_dead_blocks(Module &module, std::vector<Line> &lines);

// Rewrites what quarl would not follow. The values of the function, with their uses, are known.
void settle_shape(Module &module, Function &function);

}  // namespace adapt
