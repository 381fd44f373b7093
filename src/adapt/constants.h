// Constants that are computed from addresses. The accepted vocabulary knows four: getelementptr, bitcast, inttoptr and
// ptrtoint, and an icmp as the condition of a branch. All others become instructions in front of the line.
#pragma once

#include "adapt/module.h"

namespace adapt {

struct Function;

// True if the word at `at` opens such a constant: `sub (i16 ...`, `icmp eq (i8* ...`.
bool is_constant_operator(const Tokens &tokens, std::size_t at);

// Takes the constants out of an instruction. The lines that compute them are appended to `before`.
void hoist_constants(Module &module, Function &function, Tokens &tokens, std::vector<Tokens> &before);

}  // namespace adapt
