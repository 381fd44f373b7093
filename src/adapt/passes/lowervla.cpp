// Arrays of variable length become memory from malloc, freed where the front end gives the stack back.
//
//     %1 = call i8* @llvm.stacksave()
//     store i8* %1, i8** %saved_stack
//     %vla = alloca i16, i16 %0
//     ...
//     %7 = load i8*, i8** %saved_stack
//     call void @llvm.stackrestore(i8* %7)
// becomes
//     %2 = mul i16 %0, 2
//     %3 = call i8* @malloc(i16 %2)
//     %4 = bitcast i8* %3 to i16*
//     store i16* %4, i16** %vla
//     ...
//     %5 = load i16*, i16** %vla
//     %6 = bitcast i16* %5 to i8*
//     call void @free(i8* %6)
//
// Each use of the array loads its address from the variable.
// The front end saves the stack once in each scope that has such arrays, in a variable of its own, and restores it
// where the scope is left. In the order of the blocks the scopes nest, so the save that an array belongs to is the last
// one whose scope is still open. An array whose memory is still there when the place is reached again (a goto back in
// the same scope) is freed first. If a restore can be reached before the array is made, its variable starts as null.
//
// Before: any function. After: no stacksave and stackrestore, no alloca of a size that isn't constant. Memory that
// lives until the function returns (alloca as a function) is refused.
#include "adapt/passes/edit.h"
#include "adapt/passes/passes.h"

#include <unordered_map>

namespace adapt {

namespace {

constexpr std::string_view array_name = "vla";

// The variable that holds an array's memory.
struct Memory {
    Value *variable = nullptr;
    bool at_once = false;  // made in the block that saves the stack: it is there whenever the stack is restored
};

// One scope: the variable that the stack pointer is saved in, and the arrays of the scope.
struct Scope {
    Value *slot = nullptr;
    Block *saved = nullptr;  // block of the save
    std::vector<Memory> memories;
};

struct Scopes {
    std::vector<Scope> scopes;
    std::unordered_map<const Value *, std::size_t> by_slot;
    std::vector<std::size_t> open;
};

bool calls(const Value *inst, std::string_view name)
{
    const Global *callee = calledglobal(inst);
    return callee != nullptr && callee->name.starts_with(name);
}

// The variable that the result of a stacksave is stored in, and nothing else is done with it.
Value *saveslot(const Value *save)
{
    if (!hasoneuse(save) || save->uses->user->op != Op::store || operand(save->uses->user, 0) != save) {
        return nullptr;
    }
    Value *slot = operand(save->uses->user, 1);
    return slot->op == Op::alloca_ ? slot : nullptr;
}

Type *bytepointer(Module &module)
{
    return pointerto(module, inttype(module, 8));
}

void opensave(Function &function, Scopes &scopes, Value *save)
{
    Value *slot = saveslot(save);
    if (slot == nullptr || scopes.by_slot.contains(slot)) {
        refuse(function, save, "saved stack pointer");
        return;
    }
    scopes.by_slot[slot] = scopes.scopes.size();
    scopes.open.push_back(scopes.scopes.size());
    scopes.scopes.push_back({slot, save->block, {}});
    remove(save->uses->user);
    remove(save);
}

Value *putsize(Value *place, Value *count, Type *element, Type *size_type)
{
    Module &module = *place->block->function->module;
    Value *wide = putresize(place, count, size_type);
    const std::size_t size = sizeoftype(module, element);
    return size == 1 ? wide : putinst(place, Op::mul, size_type, {wide, intconst(module, size_type, size)});
}

void putfree(Value *place, Value *variable)
{
    Module &module = *place->block->function->module;
    Type *bytes = bytepointer(module);
    Global *callee = needfunction(module, "free", functiontype(module, voidtype(module), {bytes}, false));
    putcall(place, callee, {putbitcast(place, putload(place, variable, variable->element), bytes)});
}

// Before the user; for a phi at the end of the block that the value comes from.
void loadateachuse(Value *array, Value *variable)
{
    while (hasuses(array)) {
        Value *user = array->uses->user;
        for (std::uint32_t i = 0; i < user->operand_count; ++i) {
            if (operand(user, i) == array) {
                Value *place = user->op == Op::phi ? user->targets[i]->last : user;
                setoperand(user, i, putload(place, variable, array->type));
            }
        }
    }
}

void lowerarray(Function &function, Scopes &scopes, Value *array)
{
    if (!array->name.starts_with(array_name) || scopes.open.empty()) {
        refuse(function, array, "memory of a variable size on the stack (alloca)");
        return;
    }
    Module &module = *function.module;
    Scope &scope = scopes.scopes[scopes.open.back()];
    Type *bytes = bytepointer(module);
    Type *size_type = inttype(module, static_cast<std::uint32_t>(module.layout.pointer_size * 8));
    Global *callee = needfunction(module, "malloc", functiontype(module, bytes, {size_type}, false));
    if (callee->type->members.size() != 1 || callee->type->members[0]->kind != TypeKind::integer ||
        callee->type->sub != bytes) {
        refuse(function, array, "malloc that isn't the one of the C library");
        return;
    }
    Value *variable = addslot(function, array->type, array->name);
    const bool at_once = array->block == scope.saved;
    if (!at_once) {
        Value *first = function.blocks.front()->first;
        while (first->op == Op::alloca_) {
            first = first->next;
        }
        putstore(first, nullconst(module, array->type), variable);
        putfree(array, variable);
    }
    scope.memories.push_back({variable, at_once});
    Value *made = putcall(array, callee, {putsize(array, operand(array, 0), array->element, callee->type->members[0])});
    putstore(array, putbitcast(array, made, array->type), variable);
    loadateachuse(array, variable);
    remove(array);
}

// Frees what the scope has.
void lowerrestore(Function &function, Scopes &scopes, Value *restore)
{
    Value *load = operand(restore, 1);
    const auto found = load->op == Op::load ? scopes.by_slot.find(operand(load, 0)) : scopes.by_slot.end();
    if (found == scopes.by_slot.end()) {
        refuse(function, restore, "saved stack pointer");
        return;
    }
    const Scope &scope = scopes.scopes[found->second];
    for (auto memory = scope.memories.rbegin(); memory != scope.memories.rend(); ++memory) {
        putfree(restore, memory->variable);
        if (!memory->at_once) {
            putstore(restore, nullconst(*function.module, memory->variable->element), memory->variable);
        }
    }
    remove(restore);
    if (!hasuses(load)) {
        remove(load);
    }
    while (!scopes.open.empty() && scopes.open.back() >= found->second) {
        scopes.open.pop_back();
    }
}

void lowerinst(Function &function, Scopes &scopes, Value *inst)
{
    if (inst->op == Op::alloca_) {
        if (inst->operand_count > 0 && !isintconst(operand(inst, 0))) {
            lowerarray(function, scopes, inst);
        }
    } else if (calls(inst, "llvm.stacksave")) {
        opensave(function, scopes, inst);
    } else if (calls(inst, "llvm.stackrestore")) {
        lowerrestore(function, scopes, inst);
    }
}

}  // namespace

void lowervla(Function &function)
{
    Scopes scopes;
    for (Block *block : function.blocks) {
        for (Value *inst : instsof(block)) {
            if (!inst->removed) {
                lowerinst(function, scopes, inst);
            }
        }
    }
}

}  // namespace adapt
