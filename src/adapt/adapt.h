// What main asks of the adapter.
#pragma once

#include "adapt/ir.h"

#include <string>

namespace adapt {

struct AdaptOptions {
    std::string print_after;    // show each function after the pass of this name; empty: none
    bool verify = false;        // check the model after each pass
    bool check_layout = false;  // let the C compiler check where structures have their members
};

// Adapts module.text. `out` is the IR for quarl, `tail` the C that has to follow quarl's, mostly empty. What can't be
// adapted is counted in module.errors and noted in module.messages; the texts are worth nothing then.
void adaptmodule(Module &module, const AdaptOptions &options, std::string &out, std::string &tail);

}  // namespace adapt
