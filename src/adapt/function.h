// The state of the function that is being adapted, and what its files offer each other.
#pragma once

#include "adapt/module.h"

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace adapt {

// What is known of a value, by the text of its token (%x).
struct Value {
    std::size_t line = 0;  // that defines it; npos for a parameter
    std::size_t uses = 0;
    bool stored = false;         // a store writes it
    bool stored_first = false;   // the store is its first use
    bool variable = false;       // an alloca
    bool kept = false;           // gets a variable of its own
    bool only_aggregate = true;  // no use but in insertvalue and resume
    bool effects = false;        // its expression calls, steps a variable or reads a volatile one
};

struct Function {
    std::vector<Line> *lines = nullptr;

    std::unordered_map<std::string_view, Value> values;
    std::unordered_map<std::string_view, Tokens> aliases;            // values that are another operand
    std::unordered_map<std::string_view, std::string_view> renamed;  // token texts
    std::unordered_set<std::string> taken;                           // names of values and labels
    std::unordered_set<std::string> forms;                           // C names: variables and the globals used here
    std::size_t next_number = 0;                                     // behind the highest %0, %1, ...

    std::map<std::string_view, std::string> slot_types;  // of variables that are added
    std::unordered_set<std::string_view> added;          // those variables

    std::string head;   // the header, and the label of the entry block
    std::string slots;  // variables that the adapter adds
    std::string body;
};

// Where the parts of an instruction stand.
struct Instruction {
    std::size_t result = npos;  // the %x of `%x = ...`
    std::size_t op = npos;      // the operator; behind tail, musttail and notail
};

Instruction find_parts(const Tokens &tokens);

// True for `name:`. What labels look like is settled by their own table, not by the words of instructions.
bool is_label(const Tokens &tokens);

// A name that nothing in the function has: `stem`, or with the separator and a number behind it. With its %.
std::string_view fresh_name(Module &module, Function &function, const std::string &stem, char separator = '.');
std::string_view fresh_number(Module &module, Function &function);

// ---- locals.cpp: names, aliases and uses ----

// Learns the values of the function and settles their names, then writes those names into the lines.
void settle_locals(Module &module, Function &function);

// ---- instructions.cpp ----

// Rewrites one instruction and appends it to the body.
void adapt_instruction(Module &module, Function &function, Line &line);

// If the instruction only passes an operand on, that operand. Empty for all others.
Tokens passed_operand(const Tokens &tokens);

}  // namespace adapt
