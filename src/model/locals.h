// Queries of the index that value substitution needs; only temporaries.cpp uses them.
#pragma once

#include "model/model.h"

// One past the newest of the Insts from `first` to `last` that is not newer than `order`; `first` if there is none.
Inst *const *upto(Inst *const *first, Inst *const *last, std::uint32_t order);

// Whether there is no jump between the Inst of order `older` and the one of order `newer`, the newer one included.
bool nojumpbetween(std::uint32_t older, std::uint32_t newer);

// The first Inst of op `statement` in the block of `from`, from `from` on, or null.
Inst *nextstatement(const Inst *from);

// A store was folded into a use: from now on it is a value, which defines its `name`.
void notefolded(Inst *store);

// The declaration and the assignment of a temporary were linked in before `definition`, in this order.
void noteinserted(Inst *declaration, Inst *assignment, const Inst *definition);
