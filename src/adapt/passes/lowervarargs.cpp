// Variable arguments, said with macros of runtime/arguments.h, which take the address of the list.
//
//     call void @llvm.va_start(i8* %ap1)        %ap1 is a bitcast of %ap
//     %0 = va_arg i8** %ap, i16
//     call void @llvm.va_end(i8* %ap1)
// becomes, with %fmt the last parameter that has a name,
//     %1 = load i8*, i8** %fmt.addr
//     call void (...) @_va_start_(i8** %ap, i8* %1)
//     %0 = call i16 (...) @_va_arg_int_(i8** %ap)
//     call void (...) @_va_end_(i8** %ap)
//
// Front ends for targets that pass arguments on the stack walk them by addresses. That is said in the same way:
//     %argp.cur = load i8*, i8** %ap
//     %argp.next = getelementptr inbounds i8, i8* %argp.cur, i32 4
//     store i8* %argp.next, i8** %ap
//     %2 = bitcast i8* %argp.cur to i32*
//     %3 = load i32, i32* %2
// becomes
//     %3 = call i32 (...) @_va_arg_long_(i8** %ap)
//
// Before: any function. After: no va_arg and none of these intrinsics. A list that isn't one pointer is refused.
#include "adapt/passes/edit.h"
#include "adapt/passes/passes.h"

namespace adapt {

namespace {

constexpr std::string_view walk_name = "argp.cur";
constexpr std::string_view list_structure = "struct.__va_list";  // and ..._tag

bool ispointer(const Type *type)
{
    return type->kind == TypeKind::pointer;
}

// The address of the list that an intrinsic was given as i8*, null after a refusal.
Value *listaddress(Function &function, Value *inst, Value *pointer)
{
    Value *list = withoutcasts(pointer);
    if (!ispointer(list->type) || list->type->sub == nullptr || !ispointer(list->type->sub)) {
        refuse(function, inst, "variable arguments of a target whose list isn't one pointer");
        return nullptr;
    }
    return list;
}

// The macro that gives an argument of this type. A structure is passed by its address, and so is what va_arg gives.
std::string_view macroof(const Type *type)
{
    switch (type->kind) {
    case TypeKind::integer:
        return type->bits == 16   ? "_va_arg_int_"
               : type->bits == 32 ? "_va_arg_long_"
               : type->bits == 64 ? "_va_arg_llong_"
                                  : std::string_view();
    case TypeKind::double_type:
        return "_va_arg_double_";
    case TypeKind::pointer:
        return "_va_arg_ptr_";
    default:
        return {};
    }
}

Value *putargument(Value *place, Value *list, Type *type)
{
    Module &module = *place->block->function->module;
    Type *result = ispointer(type) ? pointerto(module, inttype(module, 8)) : type;
    Value *call = putcall(place, needmacro(module, macroof(type), result), {list});
    return ispointer(type) ? putbitcast(place, call, type) : call;
}

void lowerargument(Function &function, Value *inst)
{
    Value *list = listaddress(function, inst, operand(inst, 0));
    if (list == nullptr) {
        return;
    }
    if (macroof(inst->type).empty()) {
        refuse(function, inst, "va_arg of " + typetext(inst->type));
        return;
    }
    replaceinst(inst, putargument(inst, list, inst->type));
}

// ---- Intrinsics ----

// The last parameter as C names it: what is loaded from its slot.
Value *lastparameter(Function &function, Value *place)
{
    Value *param = function.params.back();
    for (const Use *use = param->uses; use != nullptr; use = use->next) {
        if (use->user->op == Op::store && operand(use->user, 0) == param) {
            Value *slot = operand(use->user, 1);
            if (slot->op == Op::alloca_) {
                return putload(place, slot, param->type);
            }
        }
    }
    return param;
}

void lowerstart(Function &function, Value *call)
{
    Value *list = listaddress(function, call, operand(call, 1));
    if (list == nullptr) {
        return;
    }
    if (function.params.empty()) {
        refuse(function, call, "variable arguments after no parameter");
        return;
    }
    Module &module = *function.module;
    Value *last = lastparameter(function, call);
    putcall(call, needmacro(module, "_va_start_", voidtype(module)), {list, last});
    Value *given = operand(call, 1);
    remove(call);
    dropunused(given);
}

// va_end and va_copy: the same call, of the lists themselves.
void lowerlists(Function &function, Value *call, std::string_view macro)
{
    std::vector<Value *> lists;
    for (std::uint32_t i = 1; i < call->operand_count; ++i) {
        lists.push_back(listaddress(function, call, operand(call, i)));
        if (lists.back() == nullptr) {
            return;
        }
    }
    putcall(call, needmacro(*function.module, macro, voidtype(*function.module)), lists);
    std::vector<Value *> given;
    for (std::uint32_t i = 1; i < call->operand_count; ++i) {
        given.push_back(operand(call, i));
    }
    remove(call);
    for (Value *pointer : given) {
        dropunused(pointer);
    }
}

// ---- The walk by addresses ----

// What is done with the address of an argument: the list steps on, and the argument is loaded.
struct Walk {
    Value *list = nullptr;
    Value *next = nullptr;
    Value *store = nullptr;
    Value *address = nullptr;  // with the argument's type
    bool plain = true;         // nothing else
};

Walk findwalk(Value *cur)
{
    Walk walk;
    walk.list = operand(cur, 0);
    for (const Use *use = cur->uses; use != nullptr; use = use->next) {
        Value *user = use->user;
        if (user->op == Op::getelementptr && walk.next == nullptr && hasoneuse(user)) {
            walk.next = user;
            walk.store = user->uses->user;
        } else if (user->op == Op::bitcast && walk.address == nullptr) {
            walk.address = user;
        } else {
            walk.plain = false;
        }
    }
    walk.plain = walk.plain && walk.address != nullptr && walk.next != nullptr && walk.store->op == Op::store &&
                 operand(walk.store, 1) == walk.list;
    for (const Use *use = walk.plain ? walk.address->uses : nullptr; use != nullptr; use = use->next) {
        walk.plain = walk.plain && use->user->op == Op::load;
    }
    return walk;
}

bool iswalk(const Value *inst)
{
    return inst->op == Op::load && inst->name.starts_with(walk_name) && ispointer(inst->type);
}

// The argument is taken where the list steps on. What is loaded from it later is the same value.
void lowerwalk(Function &function, Value *cur)
{
    const Walk walk = findwalk(cur);
    if (!walk.plain || macroof(walk.address->type->sub).empty()) {
        refuse(function, cur, "va_arg of a structure or a narrow type");
        return;
    }
    remove(walk.store);
    remove(walk.next);
    Value *argument = putargument(cur, walk.list, walk.address->type->sub);
    while (hasuses(walk.address)) {
        replaceinst(walk.address->uses->user, argument);
    }
    remove(walk.address);
    remove(cur);
}

bool walksstructure(const Value *inst)
{
    return inst->op == Op::getelementptr && inst->element != nullptr && inst->element->named != nullptr &&
           inst->element->named->name.starts_with(list_structure);
}

void lowerinst(Function &function, Value *inst)
{
    if (inst->op == Op::va_arg) {
        lowerargument(function, inst);
        return;
    }
    if (iswalk(inst)) {
        lowerwalk(function, inst);
        return;
    }
    if (walksstructure(inst)) {
        refuse(function, inst, "variable arguments of a target whose list isn't one pointer");
        return;
    }
    const Global *callee = calledglobal(inst);
    if (callee == nullptr || !callee->name.starts_with("llvm.va_")) {
        return;
    }
    if (callee->name.starts_with("llvm.va_start")) {
        lowerstart(function, inst);
    } else {
        lowerlists(function, inst, callee->name.starts_with("llvm.va_end") ? "_va_end_" : "_va_copy_");
    }
}

}  // namespace

void lowervarargs(Function &function)
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
