// Values that nothing uses go, as far back as they have no effect. Lowering leaves some, the front end others:
//
//     %cast = zext i8 %v to i16     (no use)     goes, and %v with it if this was its only use
//
// Loads that aren't volatile and phis have no effect. Needs nothing, keeps the graph.
#include "adapt/passes/edit.h"
#include "adapt/passes/passes.h"

namespace adapt {

void dropdead(Function &function)
{
    for (Block *block : function.blocks) {
        for (Value *inst : instsof(block)) {
            if (!inst->removed) {
                dropunused(inst);
            }
        }
    }
}

}  // namespace adapt
