// Atomic accesses, for one core with interrupts. A load or store of one machine word is a volatile access. All else is
// a function of runtime/atomic.c, which runs with interrupts off; so are the library functions that the front end calls
// for targets without atomic instructions.
//
//     %0 = load atomic i16, i16* %p seq_cst, align 2
//     %1 = atomicrmw add i32* %q, i32 1 seq_cst
//     %2 = cmpxchg i16* %p, i16 %a, i16 %b seq_cst seq_cst
//     %3 = extractvalue { i16, i1 } %2, 1
// becomes
//     %0 = load volatile i16, i16* %p
//     %1 = call i32 @_atomic_add_4_(i8* %q8, i32 1)
//     %4 = call i16 @_atomic_compare_2_(i8* %p8, i16 %a, i16 %b)
//     %3 = icmp eq i16 %4, %a
//
// Before: any function. After: no atomic access, atomicrmw, cmpxchg or fence.
#include "adapt/passes/edit.h"
#include "adapt/passes/passes.h"

#include <array>
#include <string>

namespace adapt {

namespace {

// How IR names an operation, how the library does, and how the runtime does.
struct Operation {
    std::string_view inst;
    std::string_view library;
    std::string_view runtime;
};

constexpr std::array operations = {
    Operation{"xchg", "exchange", "exchange"}, Operation{"add", "fetch_add", "add"},
    Operation{"sub", "fetch_sub", "sub"},      Operation{"and", "fetch_and", "and"},
    Operation{"or", "fetch_or", "or"},         Operation{"xor", "fetch_xor", "xor"},
    Operation{"nand", "fetch_nand", "nand"},   Operation{"max", "fetch_max", "max"},
    Operation{"min", "fetch_min", "min"},      Operation{"umax", "fetch_umax", "umax"},
    Operation{"umin", "fetch_umin", "umin"},
};

// The integer type that a value is exchanged as, null if the runtime has none of this size.
Type *carrier(Module &module, const Type *type)
{
    const bool scalar = type->kind == TypeKind::integer || type->kind == TypeKind::pointer || isfloating(type);
    const std::size_t size = scalar ? sizeoftype(module, type) : 0;
    return size == 1 || size == 2 || size == 4 || size == 8 ? inttype(module, static_cast<std::uint32_t>(size * 8))
                                                            : nullptr;
}

bool isword(const Module &module, const Type *type)
{
    return sizeoftype(module, type) <= (module.layout.native32 ? 4U : 2U);
}

Type *bytepointer(Module &module)
{
    return pointerto(module, inttype(module, 8));
}

Value *tocarrier(Value *place, Value *value, Type *type)
{
    if (value->type == type) {
        return value;
    }
    return putcast(place, value->type->kind == TypeKind::pointer ? Op::ptrtoint : Op::bitcast, value, type);
}

Value *fromcarrier(Value *place, Value *value, Type *type)
{
    if (value->type == type) {
        return value;
    }
    return putcast(place, type->kind == TypeKind::pointer ? Op::inttoptr : Op::bitcast, value, type);
}

// _atomic_NAME_SIZE_(pointer, values...). Without a result if `result` is null.
Value *putatomic(Value *place, std::string_view name, Type *result, Value *pointer, const std::vector<Value *> &values)
{
    Module &module = *place->block->function->module;
    const Type *sized = result != nullptr ? result : values[0]->type;
    std::vector<Type *> params = {bytepointer(module)};
    std::vector<Value *> arguments = {putbitcast(place, pointer, params[0])};
    for (Value *value : values) {
        params.push_back(value->type);
        arguments.push_back(value);
    }
    Type *type = functiontype(module, result != nullptr ? result : voidtype(module), params, false);
    const std::string function = "_atomic_" + std::string(name) + "_" + std::to_string(sized->bits / 8) + "_";
    return putcall(place, needfunction(module, function, type), arguments);
}

void refusesize(Function &function, Value *inst, const Type *type)
{
    refuse(function, inst, "atomic access to " + typetext(type));
}

// ---- Instructions ----

void lowerload(Function &function, Value *load)
{
    Module &module = *function.module;
    load->is_atomic = false;
    load->is_volatile = true;
    if (isword(module, load->type)) {
        return;
    }
    Type *type = carrier(module, load->type);
    if (type == nullptr) {
        refusesize(function, load, load->type);
        return;
    }
    Value *loaded = putatomic(load, "load", type, operand(load, 0), {});
    replaceinst(load, fromcarrier(load, loaded, load->type));
}

void lowerstore(Function &function, Value *store)
{
    Module &module = *function.module;
    Value *value = operand(store, 0);
    store->is_atomic = false;
    store->is_volatile = true;
    if (isword(module, value->type)) {
        return;
    }
    Type *type = carrier(module, value->type);
    if (type == nullptr) {
        refusesize(function, store, value->type);
        return;
    }
    putatomic(store, "store", nullptr, operand(store, 1), {tocarrier(store, value, type)});
    remove(store);
}

const Operation *findoperation(std::string_view name, std::string_view Operation::*column)
{
    for (const Operation &row : operations) {
        if (row.*column == name) {
            return &row;
        }
    }
    return nullptr;
}

void lowerupdate(Function &function, Value *update)
{
    Value *value = operand(update, 1);
    Type *type = carrier(*function.module, value->type);
    const Operation *operation = findoperation(update->text, &Operation::inst);
    if (type == nullptr || operation == nullptr || (isfloating(value->type) && operation->inst != "xchg")) {
        refuse(function, update, "atomic " + std::string(update->text) + " of " + typetext(value->type));
        return;
    }
    Value *old = putatomic(update, operation->runtime, type, operand(update, 0), {tocarrier(update, value, type)});
    replaceinst(update, fromcarrier(update, old, update->type));
}

// The pair of the old value and the success is only ever taken apart.
void lowerexchange(Function &function, Value *exchange)
{
    Value *expected = operand(exchange, 1);
    Type *type = carrier(*function.module, expected->type);
    bool apart = type != nullptr;
    for (const Use *use = exchange->uses; use != nullptr; use = use->next) {
        apart = apart && use->user->op == Op::extractvalue;
    }
    if (!apart) {
        refuse(function, exchange, "atomic exchange of " + typetext(expected->type));
        return;
    }
    Value *wanted = tocarrier(exchange, expected, type);
    Value *made = tocarrier(exchange, operand(exchange, 2), type);
    Value *old = putatomic(exchange, "compare", type, operand(exchange, 0), {wanted, made});
    while (hasuses(exchange)) {
        Value *part = exchange->uses->user;
        replaceinst(part, part->indices[0] == 0 ? fromcarrier(part, old, part->type)
                                                : putcompare(part, Predicate::eq, old, wanted));
    }
    remove(exchange);
}

// Memory is in order before and after a call of a function that the compiler can't see.
void lowerfence(Function &function, Value *fence)
{
    Module &module = *function.module;
    putcall(fence, needfunction(module, "_atomic_fence_", functiontype(module, voidtype(module), {}, false)), {});
    remove(fence);
}

// ---- Functions of the library: __atomic_NAME_SIZE(pointer, values..., orders) ----

constexpr std::string_view library_prefix = "__atomic_";

struct LibraryCall {
    std::string_view name;
    std::uint32_t size = 0;  // 0 if the call says it in an argument
};

LibraryCall librarycall(const Value *call)
{
    const Global *callee = calledglobal(call);
    if (callee == nullptr || !callee->name.starts_with(library_prefix)) {
        return {};
    }
    std::string_view name = std::string_view(callee->name).substr(library_prefix.size());
    const std::size_t size = name.size() > 2 && name[name.size() - 2] == '_' && name.back() >= '1' && name.back() <= '8'
                                 ? static_cast<std::size_t>(name.back() - '0')
                                 : 0;
    if (size != 0) {
        name.remove_suffix(2);
    }
    return {name, static_cast<std::uint32_t>(size)};
}

Value *typedpointer(Value *place, Value *pointer, Type *type)
{
    return putbitcast(place, pointer, pointerto(*place->block->function->module, type));
}

void libraryload(Value *call, Type *type)
{
    Value *pointer = operand(call, 1);
    if (!isword(*call->block->function->module, type)) {
        replaceinst(call, putatomic(call, "load", type, pointer, {}));
        return;
    }
    Value *load = putload(call, typedpointer(call, pointer, type), type);
    load->is_volatile = true;
    replaceinst(call, load);
}

void librarystore(Value *call, Type *type)
{
    Value *pointer = operand(call, 1);
    if (!isword(*call->block->function->module, type)) {
        putatomic(call, "store", nullptr, pointer, {operand(call, 2)});
    } else {
        putstore(call, operand(call, 2), typedpointer(call, pointer, type))->is_volatile = true;
    }
    remove(call);
}

// The expected value is in memory, and what was found instead is stored there. If it was the same that changes nothing.
void libraryexchange(Value *call, Type *type)
{
    Value *place = typedpointer(call, operand(call, 2), type);
    Value *expected = putload(call, place, type);
    Value *old = putatomic(call, "compare", type, operand(call, 1), {expected, operand(call, 3)});
    putstore(call, old, place);
    Value *same = putcompare(call, Predicate::eq, old, expected);
    replaceinst(call, call->type->bits == 1 ? same : putcast(call, Op::zext, same, call->type));
}

// Of any size: the size, the pointer, pointers to the values, and the orders. The runtime has these under names of its
// own, as some compilers take the library's for theirs.
void genericcall(Value *call, std::string_view name)
{
    Module &module = *call->block->function->module;
    const std::string function = "_atomic_" + std::string(name) + "_any_";
    setoperand(call, 0, needfunction(module, function, call->element)->value);
}

bool lowerlibrary(Value *call, const LibraryCall &library)
{
    if (library.size == 0) {
        const bool known = library.name == "load" || library.name == "store" || library.name == "exchange" ||
                           library.name == "compare_exchange";
        if (known) {
            genericcall(call, library.name);
        }
        return known;
    }
    Type *type = inttype(*call->block->function->module, library.size * 8);
    if (library.name == "load") {
        libraryload(call, type);
    } else if (library.name == "store") {
        librarystore(call, type);
    } else if (library.name == "compare_exchange") {
        libraryexchange(call, type);
    } else if (const Operation *operation = findoperation(library.name, &Operation::library); operation != nullptr) {
        replaceinst(call, putatomic(call, operation->runtime, type, operand(call, 1), {operand(call, 2)}));
    } else {
        return false;
    }
    return true;
}

void lowerinst(Function &function, Value *inst)
{
    switch (inst->op) {
    case Op::load:
        if (inst->is_atomic) {
            lowerload(function, inst);
        }
        return;
    case Op::store:
        if (inst->is_atomic) {
            lowerstore(function, inst);
        }
        return;
    case Op::atomicrmw:
        lowerupdate(function, inst);
        return;
    case Op::cmpxchg:
        lowerexchange(function, inst);
        return;
    case Op::fence:
        lowerfence(function, inst);
        return;
    default:
        break;
    }
    const LibraryCall library = librarycall(inst);
    if (!library.name.empty() && !lowerlibrary(inst, library)) {
        refuse(function, inst, "call of " + calledglobal(inst)->name);
    }
}

}  // namespace

void loweratomics(Function &function)
{
    for (Block *block : function.blocks) {
        for (Value *inst : instsof(block)) {
            if (!inst->removed) {
                lowerinst(function, inst);
            }
        }
    }
}

}  // namespace adapt
