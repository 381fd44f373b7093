// Constants that aren't numbers. C has no literal for one, and the difference of two infinities that stands for it
// can't be an operand, as quarl puts no parentheses around it. So there is a constant variable for it:
//
//     store float 0x7FF8000000000000, float* %p
//
//     @nan_float = internal constant float 0x7FF8000000000000
//     %0 = load float, float* @nan_float
//     store float %0, float* %p
#include "adapt/passes/edit.h"
#include "adapt/passes/passes.h"

#include <bit>
#include <cmath>

namespace adapt {

namespace {

bool isnan(const Value *value)
{
    return value != nullptr && value->kind == ValueKind::floating && std::isnan(std::bit_cast<double>(value->number));
}

Global &nanvariable(Module &module, Value *constant)
{
    const std::string name = "nan." + typetext(constant->type);
    if (const auto found = module.global_by_name.find(name); found != module.global_by_name.end()) {
        return *found->second;
    }
    Global &made = module.globals.emplace_back();
    made.linkage = Linkage::internal;
    made.is_constant = true;
    made.name = name;
    made.written = plainname("_" + name + "_");
    made.type = constant->type;
    made.initialiser = constant;
    Value &address = module.arena.values.emplace_back();
    address.kind = ValueKind::global;
    address.type = pointerto(module, made.type);
    address.global = &made;
    made.value = &address;
    module.global_by_name.emplace(made.name, &made);
    return made;
}

}  // namespace

void lowernan(Function &function)
{
    for (const Block *block : function.blocks) {
        for (Value *inst = block->first; inst != nullptr; inst = inst->next) {
            for (std::uint32_t i = 0; i < inst->operand_count; ++i) {
                if (Value *value = operand(inst, i); isnan(value)) {
                    Value *place = inst->op == Op::phi ? inst->targets[i]->last : inst;
                    Value *variable = nanvariable(*function.module, value).value;
                    setoperand(inst, i, putload(place, variable, value->type));
                }
            }
        }
    }
}

}  // namespace adapt
