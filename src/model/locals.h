// Queries of the index that value substitution needs; only temporaries.cpp uses them.
#pragma once

#include "model/model.h"

// One past the newest of the Insts from `first` to `last` that is not newer than `order`; `first` if there is none.
Inst *const *upto(Inst *const *first, Inst *const *last, std::uint32_t order);

// Whether there is no jump between the Inst of order `older` and the one of order `newer`, the newer one included.
bool nojumpbetween(std::uint32_t older, std::uint32_t newer);

// The first Inst of op `statement` in the block of `from`, from `from` on, or null.
Inst *nextstatement(const Inst *from);

// A search has passed the stores of `local` from `first` to before `last`, which can't be folded. Later searches pass
// them no more, but for a store that no longer assigns a thing to itself.
void setaside(LocalName &local, Inst *const *first, Inst *const *last);

// The node of a tree has become the name of a temporary.
void noterenamed(const Expr *node);

// A store was folded into a use: from now on it is a value, which defines its `name`.
void notefolded(Inst *store);

// The declaration and the assignment of a temporary were linked in before `definition`, in this order.
void noteinserted(Inst *declaration, Inst *assignment, const Inst *definition);
