// Exceptions: C has none, so a call that may throw is a call, and what would run while the stack is unwound goes.
//
//     %r = invoke i16 @f() to label %invoke.cont unwind label %lpad
//   lpad:
//     %0 = landingpad { i8*, i32 } cleanup
// becomes
//     %r = call i16 @f()
//     br label %invoke.cont
//
// Before: any function. After: no invoke, no landing pad, no resume; all blocks are reached. What throws or catches and
// can still be reached is refused.
#include "adapt/passes/edit.h"
#include "adapt/passes/passes.h"

#include <array>

namespace adapt {

namespace {

constexpr std::array<std::string_view, 4> throwers = {"__cxa_throw", "__cxa_rethrow", "__cxa_begin_catch",
                                                      "_Unwind_Resume"};
// Written by the front end for exceptions that leave a noexcept function. It ends the program whatever is thrown.
constexpr std::string_view terminator = "__clang_call_terminate";

void makecall(Function &function, Value *invoke)
{
    Value *call = copyinst(function, invoke);
    call->op = Op::call;
    call->targets.clear();
    insertbefore(call, invoke);
    Value *jump = putinst(invoke, Op::br, voidtype(*function.module), {});
    jump->targets = {invoke->targets[0]};
    replaceuses(invoke, call);
    remove(invoke);
}

bool throws(const Value *inst)
{
    const Global *callee = calledglobal(inst);
    if (callee == nullptr) {
        return false;
    }
    for (const std::string_view name : throwers) {
        if (callee->name == name) {
            return true;
        }
    }
    return false;
}

void checkinst(Function &function, Value *inst)
{
    if (inst->op == Op::landingpad || inst->op == Op::resume) {
        refuse(function, inst, "exceptions (what runs while the stack is unwound)");
    } else if (throws(inst)) {
        if (function.global->name == terminator && !hasuses(inst)) {
            remove(inst);
        } else {
            refuse(function, inst, "exceptions (throw or catch)");
        }
    }
}

}  // namespace

void lowerinvoke(Function &function)
{
    bool changed = false;
    for (Block *block : function.blocks) {
        if (block->last->op == Op::invoke) {
            makecall(function, block->last);
            changed = true;
        }
    }
    if (changed) {
        removeunreachable(function);
    }
    for (Block *block : function.blocks) {
        for (Value *inst : instsof(block)) {
            checkinst(function, inst);
        }
    }
}

}  // namespace adapt
