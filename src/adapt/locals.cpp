// Names of a function's variables and labels as C has them. A variable keeps its name unless C has another meaning for
// it in this function: a word of the language, a global that the function uses, another variable.
#include "adapt/passes/passes.h"
#include "adapt/tree.h"
#include "frontend/frontend.h"

namespace adapt {

namespace {

using Taken = std::unordered_set<std::string>;

void takeglobals(const Value *value, Taken &taken, int depth)
{
    constexpr int deepest = 64;
    if (value->kind == ValueKind::global) {
        taken.insert(std::string(cname(value->global->written)));
        return;
    }
    if (value->kind != ValueKind::expression && value->kind != ValueKind::aggregate) {
        return;
    }
    for (std::size_t place = 0; depth < deepest && place < value->operand_count; ++place) {
        takeglobals(operand(value, place), taken, depth + 1);
    }
}

Taken globalsof(const Function &function)
{
    Taken taken;
    for (const Block *block : function.blocks) {
        for (const Value *inst = block->first; inst != nullptr; inst = inst->next) {
            for (std::size_t place = 0; place < inst->operand_count; ++place) {
                takeglobals(operand(inst, place), taken, 0);
            }
        }
    }
    return taken;
}

std::string claim(Taken &taken, std::unordered_map<std::string, std::size_t> &numbers, std::string_view wanted)
{
    std::string stem = plainname(wanted);
    for (char &c : stem) {
        c = c == '.' ? '_' : c;
    }
    std::string name = stem;
    std::size_t &number = numbers[stem];
    while (isreservedname(name) || !taken.insert(name).second) {
        name = stem + std::to_string(++number);
    }
    return name;
}

std::string labelname(const Node &node)
{
    const std::string_view name = node.block == nullptr ? std::string_view() : node.block->name;
    const bool plain = !name.empty() && name.find('.') == std::string_view::npos && name != "entry" &&
                       name != "return" && !name.starts_with("cleanup") && plainname(name) == name;
    return plain ? std::string(name) : "L" + std::to_string(node.index);
}

}  // namespace

void settlelocals(Tree &tree)
{
    Taken taken = globalsof(*tree.function);
    std::unordered_map<std::string, std::size_t> numbers;
    std::size_t unnamed = 0;
    for (Value *param : tree.function->params) {
        std::string name(param->name);
        name = name.empty() ? "_unused" + std::to_string(unnamed++) + "_" : name;
        param->name = keeptext(*tree.function, claim(taken, numbers, name));
        tree.params.at(param)->name = param->name;
    }
    for (Variable &variable : tree.variables) {
        if (variable.param == nullptr) {
            variable.name = claim(taken, numbers, variable.name.empty() ? "tmp" : variable.name);
        }
    }
    for (Node &node : tree.nodes) {
        if (node.labelled) {
            node.label = claim(taken, numbers, labelname(node));
        }
    }
}

}  // namespace adapt
