// The check of a printed body.
#pragma once

#include "adapt/tree.h"

#include <string>

namespace adapt {

// True if quarl makes of the text what the nodes of the graph say: each statement, each way that control goes, each
// value in its place. If not, `why` says what differs. After printfunctionbody().
bool checkbody(const Tree &tree, const std::string &text, std::string &why);

}  // namespace adapt
