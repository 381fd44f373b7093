// Accesses at addresses that the target can't reach as a whole, as those to members of packed structures. A machine
// that reads words at even addresses only would read another word.
//
//     %v = load i16, i16* %p, align 1
//
//     call void @llvm.memcpy.p0i8.p0i8.i16(i8* %slot8, i8* %p8, i16 2, i1 false)
//     %v = load i16, i16* %slot
//
// Before: accesses are of types that C has. After: no access is aligned by less than its type.
#include "adapt/passes/edit.h"
#include "adapt/passes/passes.h"

namespace adapt {

namespace {

Value *bytesof(Value *place, Value *pointer)
{
    Module &module = *place->block->function->module;
    return putbitcast(place, pointer, pointerto(module, inttype(module, 8)));
}

void putmemcpy(Value *place, Value *to, Value *from, const Type *type)
{
    Module &module = *place->block->function->module;
    Type *bytes = pointerto(module, inttype(module, 8));
    Type *size = inttype(module, static_cast<std::uint32_t>(module.layout.pointer_size * 8));
    Type *flag = inttype(module, 1);
    Type *callee = functiontype(module, voidtype(module), {bytes, bytes, size, flag}, false);
    Global *copy = needfunction(module, "llvm.memcpy.p0i8.p0i8." + typetext(size), callee);
    putcall(place, copy,
            {bytesof(place, to), bytesof(place, from), intconst(module, size, sizeoftype(module, type)),
             intconst(module, flag, 0)});
}

// Each byte once, which memcpy doesn't promise.
void putvolatilecopy(Value *place, Value *to, Value *from, const Type *type)
{
    Module &module = *place->block->function->module;
    Type *byte = inttype(module, 8);
    Value *target = bytesof(place, to);
    Value *source = bytesof(place, from);
    for (std::size_t i = 0; i < sizeoftype(module, type); ++i) {
        Value *load = putload(place, putoffset(place, source, byte, i), byte);
        load->is_volatile = true;
        putstore(place, load, putoffset(place, target, byte, i))->is_volatile = true;
    }
}

void putcopy(Value *access, Value *to, Value *from, const Type *type)
{
    if (access->is_volatile) {
        putvolatilecopy(access, to, from, type);
    } else {
        putmemcpy(access, to, from, type);
    }
}

void lowerload(Function &function, Value *load)
{
    Value *slot = addslot(function, load->type, "unaligned");
    putcopy(load, slot, operand(load, 0), load->type);
    replaceinst(load, putload(load, slot, load->type));
}

void lowerstore(Function &function, Value *store)
{
    Value *value = operand(store, 0);
    Value *slot = addslot(function, value->type, "unaligned");
    putstore(store, value, slot);
    putcopy(store, operand(store, 1), slot, value->type);
    remove(store);
}

bool isunaligned(const Module &module, const Value *access)
{
    if (access->op != Op::load && access->op != Op::store) {
        return false;
    }
    const Type *type = access->op == Op::load ? access->type : operand(access, 0)->type;
    return access->number != 0 && access->number < calign(module, type);
}

}  // namespace

void lowerunaligned(Function &function)
{
    for (Block *block : function.blocks) {
        for (Value *inst : instsof(block)) {
            if (!isunaligned(*function.module, inst)) {
                continue;
            }
            if (inst->op == Op::load) {
                lowerload(function, inst);
            } else {
                lowerstore(function, inst);
            }
        }
    }
}

}  // namespace adapt
