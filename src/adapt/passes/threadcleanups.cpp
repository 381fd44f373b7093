// Destructors on several ways out of a scope. The front end has one copy of them for all ways, and a variable that says
// where to go on; here each way gets a copy of its own.
//
//   if.then:
//     store i32 2, i32* %cleanup.dest.slot
//     br label %cleanup
//   cleanup:
//     call void @~A(%struct.A* %a)
//     %cleanup.dest = load i32, i32* %cleanup.dest.slot
//     switch i32 %cleanup.dest, label %unreachable [ i32 0, label %cleanup.cont i32 2, label %for.end ]
// becomes
//   if.then:
//     call void @~A(%struct.A* %a)
//     br label %for.end
//
// A block that stores the number knows the way. If it jumps to the blocks of a cleanup, which lead to the switch
// without storing another number, or to a return, they are copied, and the way goes on at the target for this number
// with the same knowledge: scopes that enclose this one are left in the same manner. What is too large to be copied
// keeps the variable and the switch.
//
// Before: invokes are lowered. After: a variable for the way is there only where a cleanup is large. Variables of the
// front end that nothing reads are gone.
#include "adapt/passes/copyblocks.h"
#include "adapt/passes/edit.h"
#include "adapt/passes/passes.h"

#include <algorithm>
#include <array>

namespace adapt {

namespace {

constexpr std::size_t most_instructions = 48;  // of a cleanup that is copied
constexpr std::size_t most_blocks = 12;
constexpr std::size_t least_growth = 4000;  // all copies of a function may have, and eight times its own size
constexpr std::size_t growth_factor = 8;

constexpr std::string_view slot_name = "cleanup.dest.slot";
constexpr std::string_view cleanup_name = "cleanup";

// Variables that say nothing once nobody reads them.
constexpr std::array<std::string_view, 6> own_names = {"cleanup.dest.slot", "saved_stack",     "__vla_expr",
                                                       "exn.slot",          "ehselector.slot", "result.ptr"};

// An edge that is taken with a known number in the variable.
struct Way {
    Block *from = nullptr;
    Block *to = nullptr;
    std::uint64_t number = 0;
    std::size_t parent = 0;  // the way that led here, by its place in the list plus one
};

struct State {
    Function *function = nullptr;
    Value *slot = nullptr;
    std::vector<Way> ways;
    std::unordered_map<const Block *, std::vector<Block *>> after;  // copies by the block that leads to them
    std::size_t budget = 0;
};

// cleanup, cleanup8: what the front end calls the blocks in which the destructors of a scope begin.
bool iscleanup(const Block *block)
{
    return block->name.starts_with(cleanup_name) &&
           std::all_of(block->name.begin() + cleanup_name.size(), block->name.end(),
                       [](char c) { return c >= '0' && c <= '9'; });
}

// Whether the block ends by the number in the variable.
bool switches(const State &state, const Block *block)
{
    const Value *last = block->last;
    if (last->op != Op::switch_) {
        return false;
    }
    const Value *number = operand(last, 0);
    return number->kind == ValueKind::instruction && number->op == Op::load && number->block == block &&
           operand(number, 0) == state.slot;
}

// Adds a block to the region. False if it can't be copied.
bool addblock(const State &state, Region &region, Block *block)
{
    region.blocks.push_back(block);
    for (const Value *inst = block->first; inst != nullptr; inst = inst->next) {
        ++region.size;
        const bool stores = inst->op == Op::store && operand(inst, 1) == state.slot;
        if (stores || inst->op == Op::alloca_ || region.size > most_instructions) {
            return false;
        }
    }
    return region.blocks.size() <= most_blocks;
}

// The blocks from `start` to the switch or the return; empty if they can't be copied. At most one block switches.
Region findregion(const State &state, Block *start, Block *&end)
{
    Region region;
    end = nullptr;
    std::vector<Block *> work = {start};
    while (!work.empty()) {
        Block *block = work.back();
        work.pop_back();
        if (std::find(region.blocks.begin(), region.blocks.end(), block) != region.blocks.end()) {
            continue;
        }
        if (!addblock(state, region, block)) {
            return {};
        }
        if (!switches(state, block)) {
            work.insert(work.end(), block->last->targets.begin(), block->last->targets.end());
        } else if (end == nullptr) {
            end = block;
        } else {
            return {};
        }
    }
    return isclosed(region) ? region : Region{};
}

Block *targetof(const Value *choice, std::uint64_t number)
{
    for (std::uint32_t i = 1; i < choice->operand_count; ++i) {
        if (operand(choice, i)->number == number) {
            return choice->targets[i];
        }
    }
    return choice->targets[0];
}

// Takes the pair of an edge that is no more out of the phis.
void dropedge(const Block *from, Block *to)
{
    for (Value *phi = to->first; phi != nullptr && phi->op == Op::phi; phi = phi->next) {
        for (std::uint32_t i = phi->operand_count; i-- > 0;) {
            if (phi->targets[i] == from) {
                removeoperand(phi, i);
            }
        }
    }
}

// The end of a copied cleanup jumps where its number says.
Block *settlejump(Block *end, std::uint64_t number)
{
    Value *choice = end->last;
    Value *load = operand(choice, 0);
    Block *target = targetof(choice, number);
    std::vector<Block *> others = choice->targets;
    std::sort(others.begin(), others.end());
    others.erase(std::unique(others.begin(), others.end()), others.end());
    for (Block *other : others) {
        if (other != target) {
            dropedge(end, other);
        }
    }
    Value *jump = putinst(choice, Op::br, choice->type, {});
    jump->targets = {target};
    remove(choice);
    if (!hasuses(load)) {
        remove(load);
    }
    return target;
}

bool camethrough(const State &state, std::size_t place, const Block *block)
{
    for (std::size_t at = state.ways[place].parent; at != 0; at = state.ways[at - 1].parent) {
        if (state.ways[at - 1].to == block) {
            return true;
        }
    }
    return false;
}

// The first block of a copy joins the block that leads to it if that goes nowhere else.
bool joins(const Block *from, const Block *first)
{
    bool only = from->last->op == Op::br && from->last->targets.size() == 1;
    for (const Value *phi = first->first; phi != nullptr && phi->op == Op::phi; phi = phi->next) {
        only = only && phi->operand_count == 1;
    }
    return only;
}

bool jumpsto(const std::vector<Block *> &blocks, const Block *target)
{
    return std::any_of(blocks.begin(), blocks.end(), [=](const Block *block) {
        return std::find(block->last->targets.begin(), block->last->targets.end(), target) !=
               block->last->targets.end();
    });
}

void threadway(State &state, std::size_t place)
{
    const Way way = state.ways[place];
    Block *end = nullptr;
    if (!iscleanup(way.to) || camethrough(state, place, way.to)) {
        return;
    }
    const Region region = findregion(state, way.to, end);
    if (region.blocks.empty() || region.size > state.budget) {
        return;
    }
    state.budget -= region.size;
    std::vector<Block *> made;
    const Copy copy = copyregion(*state.function, region, way.from, made);
    Block *first = made.front();
    Block *last = end != nullptr ? copy.blocks.at(end) : nullptr;
    Block *next = last != nullptr ? settlejump(last, way.number) : nullptr;
    if (joins(way.from, first) && !jumpsto(made, first)) {
        mergeinto(way.from, first);
        made.erase(made.begin());
        last = last == first ? way.from : last;
    }
    std::vector<Block *> &after = state.after[way.from];
    after.insert(after.end(), made.begin(), made.end());
    if (last != nullptr) {
        state.ways.push_back({last, next, way.number, place + 1});
    }
}

// ---- The ways that begin with a store ----

bool islaststore(const Value *store, const Value *slot)
{
    for (const Value *inst = store->next; inst != nullptr; inst = inst->next) {
        if (inst->op == Op::store && operand(inst, 1) == slot) {
            return false;
        }
    }
    return true;
}

void addways(State &state)
{
    std::vector<Value *> stores;
    for (const Use *use = state.slot->uses; use != nullptr; use = use->next) {
        Value *store = use->user;
        if (store->op == Op::store && isintconst(operand(store, 0)) && islaststore(store, state.slot)) {
            stores.push_back(store);
        }
    }
    std::sort(stores.begin(), stores.end(),
              [](const Value *a, const Value *b) { return a->block->index < b->block->index; });
    for (const Value *store : stores) {
        const std::vector<Block *> &targets = store->block->last->targets;
        if (targets.size() == 1) {
            state.ways.push_back({store->block, targets[0], operand(store, 0)->number, 0});
        }
    }
}

// Copies stand after the block that leads to them.
void placecopies(const State &state)
{
    std::vector<Block *> blocks;
    std::vector<Block *> work(state.function->blocks.rbegin(), state.function->blocks.rend());
    while (!work.empty()) {
        Block *block = work.back();
        work.pop_back();
        blocks.push_back(block);
        if (const auto found = state.after.find(block); found != state.after.end()) {
            work.insert(work.end(), found->second.rbegin(), found->second.rend());
        }
    }
    state.function->blocks = blocks;
}

std::size_t countinsts(const Function &function)
{
    std::size_t count = 0;
    for (const Block *block : function.blocks) {
        for (const Value *inst = block->first; inst != nullptr; inst = inst->next) {
            ++count;
        }
    }
    return count;
}

void threadslot(Function &function, Value *slot)
{
    State state;
    state.function = &function;
    state.slot = slot;
    state.budget = least_growth + growth_factor * countinsts(function);
    numberblocks(function);
    addways(state);
    for (std::size_t i = 0; i < state.ways.size(); ++i) {
        threadway(state, i);
    }
    placecopies(state);
    removeunreachable(function);
}

bool isown(const Value *slot)
{
    return std::any_of(own_names.begin(), own_names.end(),
                       [=](std::string_view name) { return slot->name.starts_with(name); });
}

std::vector<Value *> findslots(const Function &function)
{
    std::vector<Value *> slots;
    for (Value *inst = function.blocks.front()->first; inst != nullptr; inst = inst->next) {
        if (inst->op == Op::alloca_) {
            slots.push_back(inst);
        }
    }
    return slots;
}

}  // namespace

void threadcleanups(Function &function)
{
    for (Value *slot : findslots(function)) {
        if (slot->name.starts_with(slot_name) && isplainslot(slot)) {
            threadslot(function, slot);
        }
    }
    for (Value *slot : findslots(function)) {
        if (isown(slot)) {
            dropunread(slot);
        } else if (!hasuses(slot)) {
            remove(slot);
        }
    }
}

}  // namespace adapt
