// Whatever else C says in another way: integers of widths that C doesn't have, bits of floating-point numbers, casts
// between widths of pointers, copies of arguments, numbers as variable arguments.
//
//     %bf.load = load i24, i24* %p
//     %bf.shl = shl i24 %bf.load, 3
//     %0 = bitcast float %x to i32
//     %1 = frem double %a, %b
//     %2 = freeze i16 %n
// becomes
//     %3 = bitcast i24* %p to i8*                 and the same for the two bytes after it
//     %4 = load i8, i8* %3
//     %5 = zext i8 %4 to i32
//     ...
//     %bf.shl = and i32 %7, 16777215              of %7 = shl i32 %6, 3
//     store float %x, float* %bits
//     %8 = bitcast float* %bits to i32*
//     %0 = load i32, i32* %8
//     %1 = call double @fmod(double %a, double %b)
//
// A value of another width is kept in the next one that C has, zero-extended: what can set higher bits is followed by a
// mask, what looks at the sign is preceded by a sign extension. In memory it is bytes, so that no byte beside it is
// touched.
//
// Before: aggregates are lowered, computed constants are instructions. After: integers have 1, 8, 16, 32 or 64 bits,
// casts between pointers and integers keep the width, bitcasts are between pointers, no freeze, frem or addrspacecast.
#include "adapt/passes/edit.h"
#include "adapt/passes/passes.h"

#include <array>
#include <bit>
#include <string>

namespace adapt {

namespace {

Module &moduleof(const Value *inst)
{
    return *inst->block->function->module;
}

Type *bytetype(Module &module)
{
    return inttype(module, 8);
}

// ---- Other widths ----

constexpr std::uint32_t widest = 64;

bool isodd(const Type *type)
{
    return type->kind == TypeKind::integer && type->bits != 1 &&
           (type->bits < 8 || type->bits > widest || !std::has_single_bit(type->bits));
}

std::uint32_t nextwidth(std::uint32_t bits)
{
    return std::max(8U, std::bit_ceil(bits));
}

// The bits that a value has in the input, noted while it is kept in a wider type.
std::uint32_t bitsof(const Value *value)
{
    return value->mark != 0 && value->kind == ValueKind::instruction ? value->mark : value->type->bits;
}

std::uint64_t maskof(std::uint32_t bits)
{
    return bits >= 64 ? ~std::uint64_t{0} : (std::uint64_t{1} << bits) - 1;
}

// The operand in the wider type.
Value *widened(Value *inst, Value *value)
{
    Module &module = moduleof(inst);
    if (!isconstant(value) || !isodd(value->type)) {
        return value;
    }
    Type *wide = inttype(module, nextwidth(value->type->bits));
    return value->kind == ValueKind::integer ? intconst(module, wide, value->number) : undefconst(module, wide);
}

void widenoperands(Value *inst)
{
    for (std::uint32_t i = 0; i < inst->operand_count; ++i) {
        Value *value = operand(inst, i);
        if (value != nullptr && isconstant(value) && isodd(value->type)) {
            setoperand(inst, i, widened(inst, value));
        }
    }
}

// The value with its sign in all higher bits.
Value *putsigned(Value *place, Value *value, std::uint32_t bits)
{
    const std::uint32_t width = value->type->bits;
    if (bits == width || bits == 0) {
        return value;
    }
    Module &module = moduleof(place);
    if (isintconst(value)) {
        const std::uint64_t sign = std::uint64_t{1} << (bits - 1);
        return intconst(module, value->type, (value->number ^ sign) - sign);
    }
    Value *count = intconst(module, value->type, width - bits);
    Value *high = putinst(place, Op::shl, value->type, {value, count});
    return putinst(place, Op::ashr, value->type, {high, count});
}

// Clears what an instruction may have set beyond its bits. The users get the cleared value.
void maskresult(Value *inst, std::uint32_t bits)
{
    Value *after = inst->next;
    Value *masked = newinst(*inst->block->function, Op::and_, inst->type, {});
    masked->line = inst->line;
    masked->location = inst->location;
    masked->mark = bits;
    masked->name = inst->name;
    inst->name = {};
    replaceuses(inst, masked);
    addoperand(*inst->block->function, masked, inst);
    addoperand(*inst->block->function, masked, intconst(moduleof(inst), inst->type, maskof(bits)));
    insertbefore(masked, after);
    inst->mark = 0;
}

bool setshigherbits(Op op)
{
    return op == Op::add || op == Op::sub || op == Op::mul || op == Op::shl || op == Op::sdiv || op == Op::srem ||
           op == Op::ashr;
}

bool looksatsign(const Value *inst)
{
    return inst->op == Op::sdiv || inst->op == Op::srem || inst->op == Op::ashr || inst->op == Op::sitofp ||
           (inst->op == Op::icmp && inst->predicate >= Predicate::sgt && inst->predicate <= Predicate::sle);
}

// The bits of the value that an instruction works on; those of a constant are those of its type.
std::uint32_t operandbits(const Value *inst)
{
    return bitsof(operand(inst, inst->op == Op::select ? 1 : 0));
}

void signoperands(Value *inst, std::uint32_t bits)
{
    const std::uint32_t count = inst->op == Op::ashr ? 1 : inst->operand_count;
    for (std::uint32_t i = 0; i < count; ++i) {
        setoperand(inst, i, putsigned(inst, operand(inst, i), bits));
    }
}

// The address of the bytes.
Value *bytesat(Value *place, Value *pointer)
{
    Value *from = withoutcasts(pointer);
    Module &module = moduleof(place);
    return putbitcast(place, from, pointerto(module, bytetype(module)));
}

void dropaddress(Value *address)
{
    while (address->kind == ValueKind::instruction && address->op == Op::bitcast && !hasuses(address)) {
        Value *from = operand(address, 0);
        remove(address);
        address = from;
    }
}

// The lowest byte comes first in memory, or last where the high one comes first.
std::uint32_t byteplace(const Module &module, std::uint32_t place, std::uint32_t count)
{
    return module.layout.big_endian ? count - 1 - place : place;
}

void loadbytes(Value *load)
{
    Module &module = moduleof(load);
    const std::uint32_t bits = load->type->bits;
    const std::uint32_t count = (bits + 7) / 8;
    Type *wide = inttype(module, nextwidth(bits));
    Value *address = operand(load, 0);
    Value *bytes = bytesat(load, address);
    Value *sum = nullptr;
    for (std::uint32_t i = 0; i < count; ++i) {
        Value *at = putoffset(load, bytes, bytetype(module), byteplace(module, i, count));
        Value *byte = putload(load, at, bytetype(module));
        byte->is_volatile = load->is_volatile;
        Value *part = putresize(load, byte, wide);
        if (i > 0) {
            part = putinst(load, Op::shl, wide, {part, intconst(module, wide, 8ULL * i)});
        }
        sum = sum == nullptr ? part : putinst(load, Op::or_, wide, {sum, part});
    }
    sum->mark = bits;
    if (sum->op == Op::load) {
        sum = putinst(load, Op::and_, wide, {sum, intconst(module, wide, maskof(bits))});
        sum->mark = bits;
    }
    replaceinst(load, sum);
    dropaddress(address);
}

void storebytes(Value *store, std::uint32_t bits)
{
    Module &module = moduleof(store);
    const std::uint32_t count = (bits + 7) / 8;
    Value *value = operand(store, 0);
    Value *address = operand(store, 1);
    Value *bytes = bytesat(store, address);
    for (std::uint32_t i = 0; i < count; ++i) {
        Value *part = value;
        if (i > 0 && isintconst(value)) {
            part = intconst(module, value->type, value->number >> (8 * i));
        } else if (i > 0) {
            part = putinst(store, Op::lshr, value->type, {value, intconst(module, value->type, 8ULL * i)});
        }
        Value *at = putoffset(store, bytes, bytetype(module), byteplace(module, i, count));
        putstore(store, putresize(store, part, bytetype(module)), at)->is_volatile = store->is_volatile;
    }
    remove(store);
    dropaddress(address);
}

// trunc, zext and sext between widths of which one at least is another.
void convert(Value *inst, std::uint32_t from)
{
    Module &module = moduleof(inst);
    const std::uint32_t to = inst->type->bits;
    Value *value = operand(inst, 0);
    Type *wide = inttype(module, isodd(inst->type) ? nextwidth(to) : to);
    if (inst->op == Op::sext) {
        value = putsigned(inst, value, from);
    }
    Value *resized = value;
    if (value->type->bits != wide->bits) {
        const Op op = value->type->bits > wide->bits ? Op::trunc : inst->op == Op::sext ? Op::sext : Op::zext;
        resized = putcast(inst, op, value, wide);
    }
    if (isodd(inst->type) && inst->op != Op::zext) {
        resized = putinst(inst, Op::and_, wide, {resized, intconst(module, wide, maskof(to))});
    }
    if (isodd(inst->type) && resized->kind == ValueKind::instruction && resized != value) {
        resized->mark = to;
    } else if (isodd(inst->type) && resized == value) {
        // The same bits under another number of them: a value of its own, so that each has one width.
        resized = putinst(inst, Op::and_, wide, {value, intconst(module, wide, maskof(to))});
        resized->mark = to;
    } else if (resized == value && value->mark != 0) {
        resized = putinst(inst, Op::and_, wide, {value, intconst(module, wide, maskof(from))});
    }
    replaceinst(inst, resized);
}

bool touchesodd(const Value *inst)
{
    if (isodd(inst->type)) {
        return true;
    }
    for (std::uint32_t i = 0; i < inst->operand_count; ++i) {
        const Value *value = operand(inst, i);
        if (isodd(value->type) || (value->kind == ValueKind::instruction && value->mark != 0)) {
            return true;
        }
    }
    return false;
}

void widenslot(Value *slot)
{
    Module &module = moduleof(slot);
    slot->element = inttype(module, nextwidth(slot->element->bits));
    slot->type = pointerto(module, slot->element);
}

// Arithmetic, comparisons, phi and select keep their form in the wider type.
void widen(Value *inst, std::uint32_t bits)
{
    if (looksatsign(inst)) {
        signoperands(inst, bits);
    }
    inst->nsw = false;
    inst->nuw = false;
    if (isodd(inst->type)) {
        const std::uint32_t own = inst->type->bits;
        inst->type = inttype(moduleof(inst), nextwidth(own));
        inst->mark = own;
        if (setshigherbits(inst->op)) {
            maskresult(inst, own);
        }
    }
}

bool iswidenable(Op op)
{
    return (op >= Op::add && op <= Op::xor_) || op == Op::icmp || op == Op::phi || op == Op::select ||
           op == Op::sitofp || op == Op::uitofp || op == Op::switch_;
}

void lowerwidth(Function &function, Value *inst)
{
    const bool wide = isodd(inst->type) && inst->type->bits > widest;
    const bool wide_operand = inst->operand_count > 0 && operand(inst, 0)->type->kind == TypeKind::integer &&
                              operand(inst, 0)->type->bits > widest;
    if (wide || wide_operand) {
        refuse(function, inst,
               "integer of more than 64 bits (" + typetext(wide ? inst->type : operand(inst, 0)->type) + ")");
        return;
    }
    const std::uint32_t bits = inst->operand_count > 0 ? operandbits(inst) : 0;
    if (inst->op == Op::load) {
        loadbytes(inst);
        return;
    }
    widenoperands(inst);
    if (inst->op == Op::store) {
        storebytes(inst, bits);
    } else if (inst->op == Op::trunc || inst->op == Op::zext || inst->op == Op::sext) {
        convert(inst, bits);
    } else if (iswidenable(inst->op)) {
        widen(inst, bits);
    } else {
        refuse(function, inst, std::string(opname(inst->op)) + " of an integer of " + std::to_string(bits) + " bits");
    }
}

// ---- Casts ----

void throughslot(Value *cast)
{
    Function &function = *cast->block->function;
    Value *value = operand(cast, 0);
    Value *slot = addslot(function, value->type, "bits");
    putstore(cast, value, slot);
    Value *address = putbitcast(cast, slot, pointerto(*function.module, cast->type));
    replaceinst(cast, putload(cast, address, cast->type));
}

void lowerbitcast(Function &function, Value *cast)
{
    const Type *from = operand(cast, 0)->type;
    if (from == cast->type) {
        replaceinst(cast, operand(cast, 0));
    } else if (from->kind == TypeKind::pointer && cast->type->kind == TypeKind::pointer) {
        return;
    } else if (isfloating(from) || isfloating(cast->type)) {
        throughslot(cast);
    } else {
        refuse(function, cast, "bitcast of " + typetext(from) + " to " + typetext(cast->type));
    }
}

// Through an integer of a pointer's width.
void lowerpointercast(Value *cast)
{
    Module &module = moduleof(cast);
    Type *word = inttype(module, static_cast<std::uint32_t>(module.layout.pointer_size * 8));
    Value *value = operand(cast, 0);
    if (cast->op == Op::ptrtoint && cast->type != word) {
        replaceinst(cast, putresize(cast, putcast(cast, Op::ptrtoint, value, word), cast->type));
    } else if (cast->op == Op::inttoptr && value->type != word) {
        setoperand(cast, 0, putresize(cast, value, word));
    }
}

void lowerremainder(Value *inst)
{
    Module &module = moduleof(inst);
    Type *type = functiontype(module, inst->type, {inst->type, inst->type}, false);
    Global *callee = needfunction(module, inst->type->kind == TypeKind::float_type ? "fmodf" : "fmod", type);
    replaceinst(inst, putcall(inst, callee, {operand(inst, 0), operand(inst, 1)}));
}

// ---- Calls ----

constexpr std::array<std::string_view, 2> temporaries = {"agg.tmp", "byval-temp"};

// A variable that the front end made for this argument, and that nothing else uses by value: it is the copy.
bool istemporary(const Value *slot)
{
    bool named = false;
    for (const std::string_view name : temporaries) {
        named = named || slot->name.starts_with(name);
    }
    if (slot->op != Op::alloca_ || !named) {
        return false;
    }
    std::size_t calls = 0;
    for (const Use *use = slot->uses; use != nullptr; use = use->next) {
        const Value *user = use->user;
        for (std::size_t i = 1; user->op == Op::call && i < user->operand_count && i < user->attributes.size(); ++i) {
            calls += operand(user, i) == slot && user->attributes[i].byval != nullptr ? 1U : 0U;
        }
    }
    return calls == 1;
}

// The callee may change what it gets, so it gets a copy.
void copyargument(Function &function, Value *call, std::uint32_t place, Type *type)
{
    Value *given = operand(call, place);
    if (istemporary(given)) {
        return;
    }
    Value *copy = addslot(function, type, "byval.copy");
    Value *from = putbitcast(call, given, copy->type);
    if (type->kind == TypeKind::structure) {
        putstore(call, putload(call, from, type), copy);
    } else {
        refuse(function, call, "copy of " + typetext(type) + " as an argument");
    }
    setoperand(call, place, copy);
}

// C passes a number as int where a long is expected: what the constant is has to be said.
void widenargument(Value *call, std::uint32_t place)
{
    Module &module = moduleof(call);
    Value *value = operand(call, place);
    if (!isintconst(value) || value->type->bits < 32) {
        return;
    }
    Type *narrow = inttype(module, value->type->bits / 2);
    Value *low = intconst(module, narrow, value->number);
    if (signedvalue(low) == signedvalue(value)) {
        setoperand(call, place, putcast(call, Op::sext, low, value->type));
    }
}

bool isplainassembler(const Value *call)
{
    return call->type->kind == TypeKind::void_type && call->operand_count == 1;
}

void lowercall(Function &function, Value *call)
{
    if (operand(call, 0)->kind == ValueKind::assembler && !isplainassembler(call)) {
        refuse(function, call, "assembler code with operands");
        return;
    }
    for (std::uint32_t i = 1; i < call->operand_count; ++i) {
        if (isodd(operand(call, i)->type)) {
            refuse(function, call, "argument of " + typetext(operand(call, i)->type));
        } else if (i < call->attributes.size() && call->attributes[i].byval != nullptr) {
            copyargument(function, call, i, call->attributes[i].byval);
        } else if (call->element != nullptr && call->element->variadic && i > call->element->members.size()) {
            widenargument(call, i);
        }
    }
}

void lowerinst(Function &function, Value *inst)
{
    switch (inst->op) {
    case Op::freeze:
        replaceinst(inst, operand(inst, 0));
        return;
    case Op::frem:
        lowerremainder(inst);
        return;
    case Op::addrspacecast:
        inst->op = Op::bitcast;
        return;
    case Op::call:
        lowercall(function, inst);
        return;
    case Op::alloca_:
        if (isodd(inst->element)) {
            widenslot(inst);
        }
        return;
    default:
        break;
    }
    if (touchesodd(inst)) {
        lowerwidth(function, inst);
        return;
    }
    if (inst->op == Op::bitcast) {
        lowerbitcast(function, inst);
    } else if (inst->op == Op::ptrtoint || inst->op == Op::inttoptr) {
        lowerpointercast(inst);
    }
}

void checkparameters(Function &function)
{
    for (const Value *param : function.params) {
        if (isodd(param->type)) {
            refuse(function, nullptr, "parameter of " + typetext(param->type));
        }
    }
    if (isodd(function.global->type->sub)) {
        refuse(function, nullptr, "result of " + typetext(function.global->type->sub));
    }
}

}  // namespace

void lowerodd(Function &function)
{
    checkparameters(function);
    for (Block *block : function.blocks) {
        for (Value *inst = block->first; inst != nullptr; inst = inst->next) {
            inst->mark = 0;
        }
    }
    for (const Block *block : reachedorder(function)) {
        for (Value *inst : instsof(block)) {
            if (!inst->removed) {
                lowerinst(function, inst);
            }
        }
    }
}

}  // namespace adapt
