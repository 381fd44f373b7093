// Copies of memory in a module with declarations of string.h of its own. quarl includes string.h for a copy, and that
// header would contradict them: they say char where it says void, and know no const. So such a module has copies by the
// plain functions, which need no header:
//
//     call void @llvm.memcpy.p0i8.p0i8.i16(i8* %to, i8* %from, i16 6, i1 false)
//
//     %0 = call i8* @memcpy(i8* %to, i8* %from, i16 6)
#include "adapt/passes/edit.h"
#include "adapt/passes/passes.h"

#include <algorithm>
#include <iterator>

namespace adapt {

namespace {

constexpr std::string_view string_functions[] = {
    "memchr",  "memcmp",  "memcpy",  "memmove", "memset",   "strcat", "strchr",  "strcmp",
    "strcoll", "strcpy",  "strcspn", "strdup",  "strerror", "strlen", "strncat", "strncmp",
    "strncpy", "strnlen", "strpbrk", "strrchr", "strspn",   "strstr", "strtok",  "strxfrm",
};

struct Copier {
    std::string_view intrinsic;
    std::string_view name;
};

constexpr Copier copiers[] = {
    {"llvm.memcpy.", "memcpy"},
    {"llvm.memmove.", "memmove"},
    {"llvm.memset.", "memset"},
};

const Copier *copierof(const Global *global)
{
    const auto *const found = std::find_if(std::begin(copiers), std::end(copiers), [=](const Copier &copier) {
        return global != nullptr && global->name.starts_with(copier.intrinsic);
    });
    return found == std::end(copiers) ? nullptr : found;
}

bool hasstringfunctions(const Module &module)
{
    return std::any_of(std::begin(string_functions), std::end(string_functions), [&](std::string_view name) {
        const auto found = module.global_by_name.find(name);
        return found != module.global_by_name.end() && found->second->kind == GlobalKind::function &&
               found->second->linkage != Linkage::internal;
    });
}

// The function of the library; int is the second parameter of memset.
Global *plainfunction(Module &module, const Copier &copier, Type *size)
{
    Type *bytes = pointerto(module, inttype(module, 8));
    Type *second = copier.name == "memset" ? inttype(module, module.layout.native32 ? 32 : 16) : bytes;
    return needfunction(module, copier.name, functiontype(module, bytes, {bytes, second, size}, false));
}

Value *converted(Value *place, Value *value, Type *type)
{
    return type->kind == TypeKind::integer ? putresize(place, value, type) : putbitcast(place, value, type);
}

void lowercopy(Function &function, Value *call, const Copier &copier)
{
    Module &module = *function.module;
    Global *callee = plainfunction(module, copier, operand(call, 3)->type);
    const std::vector<Type *> &params = callee->type->members;
    if (params.size() != 3) {
        refuse(function, call, "call of a " + std::string(copier.name) + " with other parameters than C's");
        return;
    }
    std::vector<Value *> arguments;
    for (std::uint32_t i = 0; i < params.size(); ++i) {
        arguments.push_back(converted(call, operand(call, i + 1), params[i]));
    }
    putcall(call, callee, arguments);
    remove(call);
}

}  // namespace

void dropcopies(Module &module)
{
    if (hasstringfunctions(module)) {
        for (Global &global : module.globals) {
            global.dropped = global.dropped || copierof(&global) != nullptr;
        }
    }
}

void lowermemory(Function &function)
{
    if (!hasstringfunctions(*function.module)) {
        return;
    }
    for (const Block *block : function.blocks) {
        for (Value *inst : instsof(block)) {
            Global *callee = inst->op == Op::call ? calledglobal(inst) : nullptr;
            if (const Copier *copier = copierof(callee); copier != nullptr) {
                lowercopy(function, inst, *copier);
            }
        }
    }
}

}  // namespace adapt
