// Else arms that quarl doesn't close, see elses.cpp.
#pragma once

#include "adapt/blocks.h"

namespace adapt {

// Renames the labels of the else arms that no block closes. The function's blocks are as the front end wrote them.
void open_elses(Module &module, Function &function, Blocks &blocks);

}  // namespace adapt
