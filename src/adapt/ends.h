// Statements that the front end gives no end, see ends.cpp.
#pragma once

#include "adapt/blocks.h"

namespace adapt {

// Turns the else arms without an end into what follows their ifs, and gives an end to every switch. The blocks are as
// the front end wrote them.
void settle_ends(Module &module, Function &function, Blocks &blocks);

}  // namespace adapt
