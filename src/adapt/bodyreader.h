// What the readers of bodies and of instructions share.
#pragma once

#include "adapt/reader.h"

#include <unordered_set>

namespace adapt {

struct BodyReader {
    Reader reader;
    Locals locals;
    Block *block = nullptr;           // that is being filled; null after a terminator
    const char *statement = nullptr;  // where the current one begins
    bool bad = false;                 // an error was reported
    std::unordered_set<std::string> reported;
};

// label %name
Block *readblockname(Reader &reader);
// %name
Block *readbareblockname(Reader &reader);
// The instruction at the cursor, outside of any block; null after an error, and for what leaves no trace.
Value *readinstruction(Reader &reader);

}  // namespace adapt
