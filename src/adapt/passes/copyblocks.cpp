// Copies of blocks: see copyblocks.h.
#include "adapt/passes/copyblocks.h"

#include "adapt/passes/edit.h"

#include <algorithm>
#include <string>

namespace adapt {

namespace {

Block *copied(const Copy &copy, Block *block)
{
    const auto found = copy.blocks.find(block);
    return found != copy.blocks.end() ? found->second : block;
}

Value *copied(const Copy &copy, Value *value)
{
    const auto found = copy.values.find(value);
    return found != copy.values.end() ? found->second : value;
}

// A block that isn't in the function's list yet.
Block *looseblock(Function &function, std::string_view name)
{
    Block &block = function.arena.blocks.emplace_back();
    block.name = name;
    block.function = &function;
    return &block;
}

bool inregion(const Copy &copy, const Block *block)
{
    return copy.blocks.contains(block);
}

void keeppairs(Value *phi, const Value *original, const Copy &copy, const Block *from, bool first)
{
    for (std::uint32_t i = phi->operand_count; i-- > 0;) {
        const Block *pred = original->targets[i];
        if (!inregion(copy, pred) && !(first && pred == from)) {
            removeoperand(phi, i);
        }
    }
}

// Operands and targets as they are in the copy.
void redirect(Value *inst, const Copy &copy)
{
    for (std::uint32_t i = 0; i < inst->operand_count; ++i) {
        Value *value = operand(inst, i);
        if (Value *other = copied(copy, value); other != value) {
            setoperand(inst, i, other);
        }
    }
    for (Block *&target : inst->targets) {
        target = copied(copy, target);
    }
}

// The phis of a block outside of the region get a pair for the new edge.
void addpairs(Function &function, Block *target, const Block *from, Block *made, const Copy &copy)
{
    for (Value *phi = target->first; phi != nullptr && phi->op == Op::phi; phi = phi->next) {
        const auto pair = std::find(phi->targets.begin(), phi->targets.end(), from);
        if (pair == phi->targets.end() ||
            std::find(phi->targets.begin(), phi->targets.end(), made) != phi->targets.end()) {
            continue;
        }
        Value *value = operand(phi, static_cast<std::size_t>(pair - phi->targets.begin()));
        addoperand(function, phi, copied(copy, value));
        phi->targets.push_back(made);
    }
}

void leadtocopy(Block *from, Block *first, Block *made)
{
    for (Block *&target : from->last->targets) {
        if (target == first) {
            target = made;
        }
    }
    for (Value *phi = first->first; phi != nullptr && phi->op == Op::phi; phi = phi->next) {
        for (std::uint32_t i = phi->operand_count; i-- > 0;) {
            if (phi->targets[i] == from) {
                removeoperand(phi, i);
            }
        }
    }
}

}  // namespace

bool isclosed(const Region &region)
{
    for (const Block *block : region.blocks) {
        for (const Value *inst = block->first; inst != nullptr; inst = inst->next) {
            for (const Use *use = inst->uses; use != nullptr; use = use->next) {
                const auto found = std::find(region.blocks.begin(), region.blocks.end(), use->user->block);
                if (found == region.blocks.end()) {
                    return false;
                }
            }
        }
    }
    return true;
}

Copy copyregion(Function &function, const Region &region, Block *from, std::vector<Block *> &made)
{
    Copy copy;
    for (Block *block : region.blocks) {
        made.push_back(looseblock(function, block->name));
        copy.blocks[block] = made.back();
    }
    for (Block *block : region.blocks) {
        for (const Value *inst = block->first; inst != nullptr; inst = inst->next) {
            Value *other = copyinst(function, inst);
            copy.values[inst] = other;
            append(other, copy.blocks[block]);
            if (other->op == Op::phi) {
                keeppairs(other, inst, copy, from, block == region.blocks.front());
            }
        }
    }
    for (Block *block : region.blocks) {
        Block *other = copy.blocks[block];
        for (Value *inst = other->first; inst != nullptr; inst = inst->next) {
            redirect(inst, copy);
        }
        for (Block *target : block->last->targets) {
            if (!inregion(copy, target)) {
                addpairs(function, target, block, other, copy);
            }
        }
    }
    leadtocopy(from, region.blocks.front(), copy.blocks[region.blocks.front()]);
    return copy;
}

void mergeinto(Block *from, Block *block)
{
    remove(from->last);
    while (block->first != nullptr) {
        Value *inst = block->first;
        block->first = inst->next;
        (inst->next != nullptr ? inst->next->prev : block->last) = nullptr;
        if (inst->op == Op::phi) {
            replaceuses(inst, operand(inst, 0));
            inst->block = nullptr;
            remove(inst);
        } else {
            append(inst, from);
        }
    }
    for (Block *target : from->last->targets) {
        for (Value *phi = target->first; phi != nullptr && phi->op == Op::phi; phi = phi->next) {
            std::replace(phi->targets.begin(), phi->targets.end(), block, from);
        }
    }
}

}  // namespace adapt
