// What the files of the printer share.
#pragma once

#include "adapt/ir.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace adapt {

// quarl reads no longer lines, the newline counted.
inline constexpr std::size_t longest_line = 8191;

// ---- initialisers.cpp ----

// An initialiser as C has it: the elements of the written members, in braces.
enum class ItemKind : unsigned char {
    open,  // of an aggregate of `type`
    close,
    scalar,
    text,  // bytes of an array of i8, in full
    zero,  // an aggregate that is all zero
};

struct InitItem {
    ItemKind kind = ItemKind::zero;
    Type *type = nullptr;
    Value *value = nullptr;
    std::string_view text;
};

// Flattens the initialiser of a variable; what C can't compute is refused.
std::vector<InitItem> flatteninitialiser(Module &module, const Global &global);
// The initialiser as quarl reads it, with a blank before it; nothing for an external variable. `before` tells whether
// a variable was printed already.
std::string initialisertext(Module &module, const Global &global, const std::vector<InitItem> &items,
                            bool (*before)(const Global &));
bool iszero(const Value *value);
// The variables and functions that a constant names are added to the list.
void collectglobals(const Value *constant, std::vector<Global *> &globals);
// A number as C reads it: at least one of . and e in it, and as many digits as the type needs.
std::string floattext(const Value *value);

// ---- fieldnames.cpp ----

// Gives the written members the names that debug metadata tells.
void namefields(Module &module);

}  // namespace adapt
