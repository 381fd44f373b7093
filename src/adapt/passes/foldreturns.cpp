// The one return at the end of a function becomes one wherever the source has it.
//
//   if.then:
//     store i16 -1, i16* %retval
//     br label %return
//   return:
//     %0 = load i16, i16* %retval
//     ret i16 %0
// becomes
//   if.then:
//     ret i16 -1
//
// Where something is done between, destructors for instance, the variable stays:
//     store i16 %n, i16* %retval
//     call void @~A(%struct.A* %a)
//     %1 = load i16, i16* %retval
//     ret i16 %1
//
// Before: cleanups are threaded. After: no block that only returns is jumped to from elsewhere by br.
#include "adapt/passes/copyblocks.h"
#include "adapt/passes/edit.h"
#include "adapt/passes/passes.h"

#include <unordered_set>

namespace adapt {

namespace {

constexpr std::size_t most_instructions = 4;  // of a block that only returns
constexpr std::size_t most_between = 16;      // instructions between a store and the load of it

constexpr std::string_view slot_name = "retval";
constexpr std::string_view block_name = "return";

// The variables of results that only loads and stores know. Whoever is called leaves them as they are.
using Slots = std::unordered_set<const Value *>;

Slots findslots(const Function &function)
{
    Slots slots;
    for (const Value *inst = function.blocks.front()->first; inst != nullptr; inst = inst->next) {
        if (inst->op == Op::alloca_ && inst->name.starts_with(slot_name) && isplainslot(inst)) {
            slots.insert(inst);
        }
    }
    return slots;
}

bool isplain(const Value *inst)
{
    return inst->op == Op::phi || inst->op == Op::load || inst->op == Op::getelementptr || inst->op == Op::ret ||
           (inst->op >= Op::trunc && inst->op <= Op::addrspacecast);
}

// A block of the front end's that returns and does nothing else. Others, as at the end of an if, aren't copied: what
// comes before them just goes on.
bool onlyreturns(const Block *block)
{
    std::size_t count = 0;
    bool shared = block->name.starts_with(block_name);
    for (const Value *inst = block->first; inst != nullptr; inst = inst->next) {
        shared = shared || (inst->op == Op::load && operand(inst, 0)->name.starts_with(slot_name));
        if (!isplain(inst) || inst->is_volatile || ++count > most_instructions) {
            return false;
        }
    }
    return shared && block->last->op == Op::ret;
}

// What the load gives if the variable was stored before in this block: the value itself if nothing happens between, a
// constant also if other functions are called, as they don't know the variable.
void forwardload(Value *load)
{
    const Value *slot = operand(load, 0);
    bool called = false;
    const Value *inst = load->prev;
    for (std::size_t i = 0; i < most_between && inst != nullptr; ++i, inst = inst->prev) {
        if (inst->op == Op::store && operand(inst, 1) == slot) {
            Value *value = operand(inst, 0);
            if (value->type == load->type && (!called || isintconst(value))) {
                replaceuses(load, value);
                remove(load);
            }
            return;
        }
        called = called || inst->op == Op::call || inst->op == Op::store || inst->is_volatile;
    }
}

// Takes out a store to a variable that nothing reads until the return.
void dropstore(const Block *block, const Slots &slots)
{
    Value *inst = block->last;
    for (std::size_t i = 0; i < most_between && inst != nullptr; ++i, inst = inst->prev) {
        const bool stores = inst->op == Op::store && !inst->is_volatile;
        const Value *address = inst->op == Op::load ? operand(inst, 0) : stores ? operand(inst, 1) : nullptr;
        if (address != nullptr && slots.contains(address)) {
            if (stores) {
                remove(inst);
            }
            return;
        }
    }
}

void forwardloads(const Block *block, const Slots &slots)
{
    for (Value *inst = block->last; inst != nullptr && isplain(inst);) {
        Value *before = inst->prev;
        if (inst->op == Op::load && !inst->is_volatile && slots.contains(operand(inst, 0))) {
            forwardload(inst);
        }
        inst = before;
    }
    dropstore(block, slots);
}

// Gives each block that jumps here a copy.
void copyreturn(Function &function, Block *block, const Slots &slots, std::vector<std::vector<Block *>> &after)
{
    Region region;
    region.blocks = {block};
    std::unordered_set<const Block *> done;
    for (Block *pred : block->preds) {
        if (!done.insert(pred).second) {
            continue;  // another edge of the same block
        }
        std::vector<Block *> made;
        copyregion(function, region, pred, made);
        if (pred->last->targets.size() == 1) {
            mergeinto(pred, made.front());
            forwardloads(pred, slots);
        } else {
            after[pred->index].push_back(made.front());
        }
    }
}

}  // namespace

void foldreturns(Function &function)
{
    numberblocks(function);
    findpreds(function);
    const Slots slots = findslots(function);
    std::vector<std::vector<Block *>> after(function.blocks.size());
    for (Block *block : function.blocks) {
        if (block != function.blocks.front() && isclosed({{block}, 0}) && onlyreturns(block)) {
            copyreturn(function, block, slots, after);
        }
    }
    std::vector<Block *> blocks;
    for (Block *block : function.blocks) {
        blocks.push_back(block);
        blocks.insert(blocks.end(), after[block->index].begin(), after[block->index].end());
    }
    function.blocks = blocks;
    removeunreachable(function);
    for (Value *inst : instsof(function.blocks.front())) {
        if (inst->op == Op::alloca_ && inst->name.starts_with(slot_name)) {
            dropunread(inst);
        }
    }
}

}  // namespace adapt
