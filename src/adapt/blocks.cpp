#include "adapt/blocks.h"

#include <algorithm>
#include <array>

namespace adapt {

namespace {

constexpr std::array<std::string_view, 10> terminators = {
    "br", "switch", "ret", "unreachable", "invoke", "resume", "indirectbr", "cleanupret", "catchret", "callbr"};

bool is_terminator(const Line &line)
{
    const std::size_t op = find_parts(line.tokens).op;
    return op != npos && std::find(terminators.begin(), terminators.end(), line.tokens[op].text) != terminators.end();
}

}  // namespace

Blocks split_blocks(Module &module, std::vector<Line> &lines)
{
    Blocks blocks;
    blocks.header = std::move(lines[0]);
    for (std::size_t place = 1; place < lines.size(); ++place) {
        Line &line = lines[place];
        const bool label = is_label(line.tokens);
        if (label || blocks.list.empty()) {
            blocks.list.emplace_back();
            blocks.list.back().number = line.number;
        }
        if (label) {
            blocks.list.back().label = std::move(line.tokens);
        } else {
            blocks.list.back().lines.push_back(std::move(line));
        }
    }
    index_blocks(module, blocks);
    return blocks;
}

void join_blocks(Blocks &blocks, std::vector<Line> &lines)
{
    lines.clear();
    lines.push_back(std::move(blocks.header));
    for (Block &block : blocks.list) {
        if (!block.label.empty()) {
            lines.push_back({block.number, std::move(block.label)});
        }
        for (Line &line : block.lines) {
            lines.push_back(std::move(line));
        }
    }
}

void index_blocks(Module &module, Blocks &blocks)
{
    blocks.places.clear();
    for (std::size_t place = 0; place < blocks.list.size(); ++place) {
        if (!blocks.list[place].label.empty()) {
            blocks.places.emplace(label_of(module, blocks.list[place]), place);
        }
    }
}

std::string_view label_of(Module &module, const Block &block)
{
    return block.label.empty() ? std::string_view() : keep(module, "%" + std::string(block.label[0].text));
}

Block make_block(std::size_t number, std::string_view label, Tokens line)
{
    Block block;
    block.number = number;
    block.label = {{Kind::word, "", label.substr(1)}, {Kind::punct, "", ":"}};
    if (!line.empty()) {
        block.lines.push_back({number, std::move(line)});
    }
    return block;
}

void rename_labels(Module &module, Blocks &blocks, const Renames &labels)
{
    if (labels.empty()) {
        return;
    }
    for (Block &block : blocks.list) {
        const auto own = labels.find(label_of(module, block));
        if (own != labels.end()) {
            block.label[0] = {Kind::word, "", own->second.substr(1)};
        }
        for (Line &line : block.lines) {
            for (Token &token : line.tokens) {
                const auto found = token.kind == Kind::local ? labels.find(token.text) : labels.end();
                token.text = found == labels.end() ? token.text : found->second;
            }
        }
    }
    index_blocks(module, blocks);
}

std::size_t terminator_of(const Block &block)
{
    const auto found = std::find_if(block.lines.begin(), block.lines.end(), is_terminator);
    return static_cast<std::size_t>(found - block.lines.begin());
}

std::vector<const Token *> targets_of(const Block &block)
{
    std::vector<const Token *> targets;
    for (std::size_t place = terminator_of(block); place < block.lines.size(); ++place) {
        const Tokens &tokens = block.lines[place].tokens;
        for (std::size_t at = 0; at + 1 < tokens.size(); ++at) {
            if (is(tokens[at], "label") && tokens[at + 1].kind == Kind::local) {
                targets.push_back(&tokens[at + 1]);
            }
        }
    }
    return targets;
}

bool is_conditional(const Block &block)
{
    const std::size_t place = terminator_of(block);
    return place < block.lines.size() && is(block.lines[place].tokens[0], "br") && targets_of(block).size() == 2;
}

}  // namespace adapt
