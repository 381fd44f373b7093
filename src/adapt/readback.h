// The printed body of a function, read back into the statements that quarl makes of it.
#pragma once

#include "adapt/marks.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace adapt {

enum class StepKind : std::uint8_t { nothing, leaf, jump, branch, switch_, return_, end };

struct Case {
    std::int64_t number = 0;
    std::uint32_t label = 0;
};

// What C does at one point of the text, and where it goes on: labels are places in Program::places.
struct Step {
    StepKind kind = StepKind::nothing;
    bool has_value = false;  // return
    std::uint32_t yes = 0;   // jump, branch; switch: the default
    std::uint32_t no = 0;
    std::uint32_t cases = 0;  // switch: place in Program::cases
    Mark mark;                // leaf, condition, value
};

struct Program {
    std::vector<Step> steps;            // the last one is the end of the function
    std::vector<std::uint32_t> places;  // of labels
    std::vector<std::vector<Case>> cases;
};

// Reads the blocks, which have the forms that forms.cpp prints; anything else is false, with what is wrong in `why`.
bool readback(std::string_view text, Program &program, std::string &why);

}  // namespace adapt
