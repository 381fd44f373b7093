// A function as a list of blocks, for the rewriting of its branches.
#pragma once

#include "adapt/function.h"

#include <string_view>
#include <unordered_map>
#include <vector>

namespace adapt {

struct Block {
    std::size_t number = 0;  // input line of the label
    Tokens label;            // the label's line; empty if the entry has none
    std::vector<Line> lines;
};

struct Blocks {
    Line header;
    std::vector<Block> list;
    std::unordered_map<std::string_view, std::size_t> places;  // by %label
};

Blocks split_blocks(Module &module, std::vector<Line> &lines);
void join_blocks(Blocks &blocks, std::vector<Line> &lines);

// Finds the places anew, after blocks came or went.
void index_blocks(Module &module, Blocks &blocks);

// The label with its %, as the branches name it. Empty for an entry block without one.
std::string_view label_of(Module &module, const Block &block);

// Whether a label, with its %, begins with the prefix.
inline bool begins(std::string_view label, std::string_view prefix)
{
    return label.size() > prefix.size() && label.substr(1).starts_with(prefix);
}

// A block of one line, or of none yet. `number` is that of the input line that it comes from.
Block make_block(std::size_t number, std::string_view label, Tokens line);

using Renames = std::unordered_map<std::string_view, std::string_view>;  // old to new label, both with their %

// Writes labels in another way wherever they stand, in their lines, in branches and in phis, and finds the places anew.
void rename_labels(Module &module, Blocks &blocks, const Renames &labels);

// Position of the block's terminator in its lines, or lines.size().
std::size_t terminator_of(const Block &block);

// The tokens that name the targets of the block's terminator, in order.
std::vector<const Token *> targets_of(const Block &block);

// A conditional branch: two targets, in the one line of a br.
bool is_conditional(const Block &block);

}  // namespace adapt
