// Inputs that nobody writes: damaged modules, bytes of no meaning, nesting and lines beyond any size.
// All of them are made from fixed seeds, so that a run that fails can be repeated.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace robustness {

struct Input {
    std::string name;
    std::string text;
};

// The module cut off at `count` places spread over its length.
std::vector<Input> truncations(const Input &module, size_t count);

// The module with a few of its tokens and bytes replaced, taken out, doubled or exchanged; `count` variants.
std::vector<Input> mutations(const Input &module, size_t count, uint32_t seed);

// Bytes of no meaning, the NUL byte and the bytes of the IR's punctuation among them.
std::vector<Input> random_bytes(size_t count, uint32_t seed);

// Lines of `length` bytes: one endless name, number, string, list, type and more.
std::vector<Input> long_lines(size_t length);

// Types, constants and statements that nest `depth` deep, closed and left open.
std::vector<Input> nests(size_t depth);

// Well-formed functions whose trees and blocks grow from line to line.
std::vector<Input> deep_functions(size_t depth);

}  // namespace robustness
