// Variables to the start of the entry block, one after the other.
//
//     for.body:
//       %x = alloca i16
// becomes
//     entry:
//       %x = alloca i16
//
// Before: arrays of variable length are lowered. After: every alloca stands at the start of the entry block and has no
// count. Memory that would be new each time a loop comes to it is refused.
#include "adapt/passes/edit.h"
#include "adapt/passes/passes.h"

namespace adapt {

namespace {

// Whether a block can be reached from itself.
bool inloop(Function &function, const Block *block)
{
    std::vector<bool> reached(function.blocks.size(), false);
    std::vector<const Block *> work = {block};
    while (!work.empty()) {
        const Block *at = work.back();
        work.pop_back();
        for (const Block *target : at->last->targets) {
            if (target == block) {
                return true;
            }
            if (!reached[target->index]) {
                reached[target->index] = true;
                work.push_back(target);
            }
        }
    }
    return false;
}

// The same variable before `place`. A count makes it an array, whose first element is what the users point to.
Value *moveslot(Function &function, const Value *slot, Value *place)
{
    if (slot->operand_count == 0) {
        Value *made = copyinst(function, slot);
        insertbefore(made, place);
        return made;
    }
    Module &module = *function.module;
    Type *array = arrayof(module, slot->element, operand(slot, 0)->number);
    Value *made = putinst(place, Op::alloca_, pointerto(module, array), {});
    made->element = array;
    made->name = slot->name;
    made->number = slot->number;
    return putmember(place, made, array, 0);
}

// The variables that don't stand as they should, given the first instruction after those that do.
std::vector<Value *> findslots(const Function &function, const Value *place)
{
    std::vector<Value *> slots;
    for (const Block *block : function.blocks) {
        bool settled = block == place->block;
        for (Value *inst = block->first; inst != nullptr; inst = inst->next) {
            settled = settled && inst != place;
            if (inst->op == Op::alloca_ && (!settled || inst->operand_count > 0)) {
                slots.push_back(inst);
            }
        }
    }
    return slots;
}

}  // namespace

void hoistallocas(Function &function)
{
    numberblocks(function);
    Value *place = function.blocks.front()->first;
    while (place->op == Op::alloca_) {
        place = place->next;
    }
    for (Value *slot : findslots(function, place)) {
        if (slot->block != place->block && inloop(function, slot->block)) {
            refuse(function, slot, "variable made anew each time in a loop (alloca)");
            continue;
        }
        replaceuses(slot, moveslot(function, slot, place));
        remove(slot);
    }
}

}  // namespace adapt
