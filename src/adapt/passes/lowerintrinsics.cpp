// The front end's own functions, llvm.*: each becomes instructions, a function of the C library, or a function of
// runtime/bits.c under its name as C has it.
//
//     %0 = call float @llvm.fabs.f32(float %x)
//     %1 = call i32 @llvm.smax.i32(i32 %a, i32 %b)
//     call void @llvm.lifetime.end.p0i8(i64 4, i8* %p)
//     call void @llvm.memcpy.p0i8.p0i8.i16(i8* %b8, i8* %a8, i16 6, i1 false)
// becomes, with %a8 and %b8 made from pointers to a structure of 6 bytes,
//     %0 = call float @fabsf(float %x)
//     %2 = icmp sgt i32 %a, %b
//     %1 = select i1 %2, i32 %a, i32 %b
//     %3 = load %struct.S, %struct.S* %a
//     store %struct.S %3, %struct.S* %b
//
// Before: variable arguments and arrays of variable length are lowered. After: only memory intrinsics (printed as those
// of string.h) and functions that the runtime has are called; whatever has no row in the table is refused.
#include "adapt/passes/edit.h"
#include "adapt/passes/passes.h"

#include <algorithm>
#include <array>
#include <string>

namespace adapt {

namespace {

struct Row;
using Lower = void (*)(Function &function, Value *call, const Row &row);

struct Row {
    std::string_view name;  // what follows llvm., up to the dot before the types; a row that ends in a dot is a prefix
    Lower lower = nullptr;
    std::string_view text = {};  // the library's function; why it is refused
    Op op = Op::none;            // of overflow and saturating arithmetic
    Predicate predicate = Predicate::none;
    bool is_signed = false;
};

Module &moduleof(const Value *inst)
{
    return *inst->block->function->module;
}

Value *argument(const Value *call, std::uint32_t place)
{
    return operand(call, place + 1);
}

// Gives the result of the call to its users. Casts that were made for the arguments go if nothing else needs them.
void replacecall(Value *call, Value *with)
{
    std::vector<Value *> arguments;
    for (std::uint32_t i = 1; i < call->operand_count; ++i) {
        arguments.push_back(operand(call, i));
    }
    if (with != nullptr) {
        replaceinst(call, with);
    } else {
        remove(call);
    }
    for (Value *value : arguments) {
        if (value->kind == ValueKind::instruction && value->op == Op::bitcast && !value->removed && !hasuses(value)) {
            remove(value);
        }
    }
}

// ---- Calls that say something to an optimiser only ----

void dropcall(Function & /*function*/, Value *call, const Row & /*row*/)
{
    const bool gives = call->type->kind != TypeKind::void_type;
    replacecall(call, gives ? undefconst(moduleof(call), call->type) : nullptr);
}

void firstoperand(Function & /*function*/, Value *call, const Row & /*row*/)
{
    replacecall(call, argument(call, 0));
}

void zeroresult(Function & /*function*/, Value *call, const Row & /*row*/)
{
    replacecall(call, zeroconst(moduleof(call), call->type));
}

void oneresult(Function & /*function*/, Value *call, const Row & /*row*/)
{
    replacecall(call, intconst(moduleof(call), call->type, 1));
}

// The size of an object that isn't known: 0 if the least is asked for, else -1.
void objectsize(Function & /*function*/, Value *call, const Row & /*row*/)
{
    const bool least = argument(call, 1)->number != 0;
    replacecall(call, intconst(moduleof(call), call->type, least ? 0 : ~std::uint64_t{0}));
}

void refusecall(Function &function, Value *call, const Row &row)
{
    refuse(function, call, std::string(row.text));
}

// ---- Functions of the C library and of the runtime ----

void keepcall(Function & /*function*/, Value * /*call*/, const Row & /*row*/) {}

// With an f for float. The arguments are the same.
void libraryfunction(Function &function, Value *call, const Row &row)
{
    const Type *first = argument(call, 0)->type;
    if (!isfloating(first)) {
        refuse(function, call, "floating type " + typetext(first));
        return;
    }
    const std::string name = std::string(row.text) + (first->kind == TypeKind::float_type ? "f" : "");
    setoperand(call, 0, needfunction(moduleof(call), name, call->element)->value);
}

void plaintrap(Function & /*function*/, Value *call, const Row & /*row*/)
{
    Module &module = moduleof(call);
    Type *type = functiontype(module, voidtype(module), {}, false);
    putcall(call, needfunction(module, "llvm.trap", type), {});
    remove(call);
}

// ---- Arithmetic ----

void multiplyadd(Function & /*function*/, Value *call, const Row & /*row*/)
{
    Value *product = putinst(call, Op::fmul, call->type, {argument(call, 0), argument(call, 1)});
    replacecall(call, putinst(call, Op::fadd, call->type, {product, argument(call, 2)}));
}

void minmax(Function & /*function*/, Value *call, const Row &row)
{
    Value *left = argument(call, 0);
    Value *right = argument(call, 1);
    replacecall(call, putselect(call, putcompare(call, row.predicate, left, right), left, right));
}

void absolute(Function & /*function*/, Value *call, const Row & /*row*/)
{
    Value *value = argument(call, 0);
    Value *zero = intconst(moduleof(call), call->type, 0);
    Value *negative = putinst(call, Op::sub, call->type, {zero, value});
    replacecall(call, putselect(call, putcompare(call, Predicate::slt, value, zero), negative, value));
}

// A shift of two words that are put together. By a variable count, the second word is shifted in two steps, as a shift
// by the full width has no meaning.
void funnelshift(Function &function, Value *call, const Row &row)
{
    Module &module = moduleof(call);
    Type *type = call->type;
    if ((type->bits & (type->bits - 1)) != 0) {
        refuse(function, call, "shift of " + typetext(type));
        return;
    }
    const bool left = row.op == Op::shl;
    Value *near = argument(call, left ? 0 : 1);
    Value *far = argument(call, left ? 1 : 0);
    const Op back = left ? Op::lshr : Op::shl;
    const auto constant = [&](std::uint64_t number) { return intconst(module, type, number); };
    Value *count = argument(call, 2);
    if (isintconst(count)) {
        const std::uint64_t by = count->number & (type->bits - 1);
        if (by == 0) {
            replacecall(call, near);
            return;
        }
        Value *high = putinst(call, row.op, type, {near, constant(by)});
        Value *low = putinst(call, back, type, {far, constant(type->bits - by)});
        replacecall(call, putinst(call, Op::or_, type, {high, low}));
        return;
    }
    Value *by = putinst(call, Op::and_, type, {count, constant(type->bits - 1)});
    Value *high = putinst(call, row.op, type, {near, by});
    Value *half = putinst(call, back, type, {far, constant(1)});
    Value *rest = putinst(call, Op::xor_, type, {by, constant(type->bits - 1)});
    replacecall(call, putinst(call, Op::or_, type, {high, putinst(call, back, type, {half, rest})}));
}

// ---- Arithmetic that tells of an overflow ----

struct Checked {
    Value *result = nullptr;
    Value *overflow = nullptr;  // i1
};

Checked checkedsum(Value *call, const Row &row, Value *left, Value *right)
{
    Value *result = putinst(call, row.op, left->type, {left, right});
    if (!row.is_signed) {
        const bool add = row.op == Op::add;
        return {result, putcompare(call, Predicate::ult, add ? result : left, add ? left : right)};
    }
    // A sum overflows if both operands differ from it in sign, a difference if the left one differs from both.
    Value *first = putinst(call, Op::xor_, left->type, {left, result});
    Value *second =
        putinst(call, Op::xor_, left->type, {row.op == Op::add ? right : left, row.op == Op::add ? result : right});
    Value *both = putinst(call, Op::and_, left->type, {first, second});
    return {result, putcompare(call, Predicate::slt, both, intconst(moduleof(call), left->type, 0))};
}

// Computed in twice the width, which has to give what the result has when it is widened again.
Checked wideproduct(Value *call, const Row &row, Value *left, Value *right)
{
    Module &module = moduleof(call);
    Type *wide = inttype(module, left->type->bits * 2);
    const Op widen = row.is_signed ? Op::sext : Op::zext;
    Value *product =
        putinst(call, Op::mul, wide, {putcast(call, widen, left, wide), putcast(call, widen, right, wide)});
    Value *result = putcast(call, Op::trunc, product, left->type);
    return {result, putcompare(call, Predicate::ne, putcast(call, widen, result, wide), product)};
}

// There is no wider type, so the runtime tells.
Checked longproduct(Value *call, const Row &row, Value *left, Value *right)
{
    Module &module = moduleof(call);
    Type *type = functiontype(module, inttype(module, 8), {left->type, left->type}, false);
    Global *callee = needfunction(module, row.is_signed ? "_mul_overflows_s64_" : "_mul_overflows_u64_", type);
    Value *told = putcall(call, callee, {left, right});
    Value *result = putinst(call, Op::mul, left->type, {left, right});
    return {result, putcompare(call, Predicate::ne, told, intconst(module, told->type, 0))};
}

Checked checkedproduct(Value *call, const Row &row, Value *left, Value *right)
{
    Module &module = moduleof(call);
    if (!row.is_signed && isintconst(right) && right->number != 0) {
        const std::uint64_t most = intconst(module, left->type, ~std::uint64_t{0})->number / right->number;
        Value *result = putinst(call, Op::mul, left->type, {left, right});
        return {result, putcompare(call, Predicate::ugt, left, intconst(module, left->type, most))};
    }
    return left->type->bits < 64 ? wideproduct(call, row, left, right) : longproduct(call, row, left, right);
}

bool ischeckable(const Type *type)
{
    return type->kind == TypeKind::integer && type->bits >= 8 && type->bits <= 64 &&
           (type->bits & (type->bits - 1)) == 0;
}

Checked checkedresult(Value *call, const Row &row)
{
    Value *left = argument(call, 0);
    Value *right = argument(call, 1);
    return row.op == Op::mul ? checkedproduct(call, row, left, right) : checkedsum(call, row, left, right);
}

// The pair of the result and the flag is only ever taken apart.
void withoverflow(Function &function, Value *call, const Row &row)
{
    bool apart = ischeckable(argument(call, 0)->type);
    for (const Use *use = call->uses; use != nullptr; use = use->next) {
        apart = apart && use->user->op == Op::extractvalue;
    }
    if (!apart) {
        refuse(function, call, "arithmetic with overflow of " + typetext(argument(call, 0)->type));
        return;
    }
    const Checked checked = checkedresult(call, row);
    while (hasuses(call)) {
        Value *part = call->uses->user;
        replaceinst(part, part->indices[0] == 0 ? checked.result : checked.overflow);
    }
    remove(call);
}

// On overflow the end of the range that the true result is beyond.
void saturated(Function &function, Value *call, const Row &row)
{
    Module &module = moduleof(call);
    Type *type = call->type;
    if (!ischeckable(type)) {
        refuse(function, call, "arithmetic that saturates of " + typetext(type));
        return;
    }
    const Checked checked = checkedresult(call, row);
    Value *end = intconst(module, type, row.op == Op::add ? ~std::uint64_t{0} : 0);
    if (row.is_signed) {
        Value *sign = putinst(call, Op::ashr, type, {argument(call, 0), intconst(module, type, type->bits - 1)});
        const std::uint64_t most = (std::uint64_t{1} << (type->bits - 1)) - 1;
        end = putinst(call, Op::xor_, type, {sign, intconst(module, type, most)});
    }
    replacecall(call, putselect(call, checked.overflow, end, checked.result));
}

// ---- Pointers and memory ----

// The pointer with the bits outside of the mask cleared.
void maskpointer(Function & /*function*/, Value *call, const Row & /*row*/)
{
    Value *mask = argument(call, 1);
    Value *bits = putcast(call, Op::ptrtoint, argument(call, 0), mask->type);
    Value *masked = putinst(call, Op::and_, mask->type, {bits, mask});
    replacecall(call, putcast(call, Op::inttoptr, masked, call->type));
}

constexpr std::uint32_t deepest_type = 64;

bool hasunion(const Type *type, std::uint32_t depth)
{
    while (type->kind == TypeKind::array) {
        type = type->sub;
    }
    if (type->kind != TypeKind::structure) {
        return false;
    }
    if (depth == 0 || (type->named != nullptr && type->named->name.starts_with("union"))) {
        return true;
    }
    const std::vector<Type *> &members = membersof(type);
    return std::any_of(members.begin(), members.end(), [=](const Type *member) { return hasunion(member, depth - 1); });
}

// The structure that a pointer given as i8* points to, if it has `size` bytes.
Type *structureat(const Module &module, const Value *pointer, std::uint64_t size)
{
    Type *type = pointer->type->sub;
    const bool fits = type != nullptr && type->kind == TypeKind::structure &&
                      (type->named == nullptr || !type->named->opaque) && sizeoftype(module, type) == size;
    return fits ? type : nullptr;
}

// A copy of a whole structure reads better as an assignment. A union keeps memcpy: its padding may hold data.
void copymemory(Function & /*function*/, Value *call, const Row & /*row*/)
{
    Module &module = moduleof(call);
    Value *size = argument(call, 2);
    if (!isintconst(size)) {
        return;
    }
    if (size->number == 0) {
        replacecall(call, nullptr);
        return;
    }
    Value *to = withoutcasts(argument(call, 0));
    Value *from = withoutcasts(argument(call, 1));
    Type *type = structureat(module, to, size->number);
    if (type == nullptr || from->type != to->type || hasunion(type, deepest_type)) {
        return;
    }
    const bool is_volatile = argument(call, 3)->number != 0;
    Value *load = putload(call, from, type);
    Value *store = putstore(call, load, to);
    load->is_volatile = is_volatile;
    store->is_volatile = is_volatile;
    replacecall(call, nullptr);
}

// ---- The table ----

// Sorted by name.
constexpr std::array rows = {
    Row{"abs", absolute},
    Row{"annotation", firstoperand},
    Row{"arithmetic.fence", firstoperand},
    Row{"assume", dropcall},
    Row{"bitreverse", keepcall},
    Row{"bswap", keepcall},
    Row{"canonicalize", firstoperand},
    Row{"ceil", libraryfunction, "ceil"},
    Row{"codeview.annotation", dropcall},
    Row{"copysign", libraryfunction, "copysign"},
    Row{"coro.", refusecall, "coroutine"},
    Row{"cos", libraryfunction, "cos"},
    Row{"ctlz", keepcall},
    Row{"ctpop", keepcall},
    Row{"cttz", keepcall},
    Row{"dbg.", dropcall},
    Row{"debugtrap", keepcall},
    Row{"donothing", dropcall},
    Row{"eh.", refusecall, "exceptions"},
    Row{"exp", libraryfunction, "exp"},
    Row{"exp2", libraryfunction, "exp2"},
    Row{"expect", firstoperand},
    Row{"expect.with.probability", firstoperand},
    Row{"experimental.constrained.", refusecall, "floating-point environment"},
    Row{"experimental.noalias.scope.decl", dropcall},
    Row{"fabs", libraryfunction, "fabs"},
    Row{"floor", libraryfunction, "floor"},
    Row{"flt.rounds", oneresult},
    Row{"fma", libraryfunction, "fma"},
    Row{"fmuladd", multiplyadd},
    Row{"frameaddress", refusecall, "address of a stack frame"},
    Row{"fshl", funnelshift, {}, Op::shl},
    Row{"fshr", funnelshift, {}, Op::lshr},
    Row{"invariant.end", dropcall},
    Row{"invariant.start", dropcall},
    Row{"is.constant", zeroresult},
    Row{"launder.invariant.group", firstoperand},
    Row{"lifetime.end", dropcall},
    Row{"lifetime.start", dropcall},
    Row{"llrint", libraryfunction, "llrint"},
    Row{"llround", libraryfunction, "llround"},
    Row{"log", libraryfunction, "log"},
    Row{"log10", libraryfunction, "log10"},
    Row{"log2", libraryfunction, "log2"},
    Row{"lrint", libraryfunction, "lrint"},
    Row{"lround", libraryfunction, "lround"},
    Row{"maxnum", libraryfunction, "fmax"},
    Row{"memcpy", copymemory},
    Row{"memcpy.inline", copymemory},
    Row{"memmove", copymemory},
    Row{"memset", keepcall},
    Row{"memset.inline", keepcall},
    Row{"minnum", libraryfunction, "fmin"},
    Row{"nearbyint", libraryfunction, "nearbyint"},
    Row{"objc.", refusecall, "Objective-C"},
    Row{"objectsize", objectsize},
    Row{"pow", libraryfunction, "pow"},
    Row{"powi", keepcall},
    Row{"prefetch", dropcall},
    Row{"pseudoprobe", dropcall},
    Row{"ptr.annotation", firstoperand},
    Row{"ptrmask", maskpointer},
    Row{"returnaddress", refusecall, "return address"},
    Row{"rint", libraryfunction, "rint"},
    Row{"round", libraryfunction, "round"},
    Row{"sadd.sat", saturated, {}, Op::add, Predicate::none, true},
    Row{"sadd.with.overflow", withoverflow, {}, Op::add, Predicate::none, true},
    Row{"sideeffect", dropcall},
    Row{"sin", libraryfunction, "sin"},
    Row{"smax", minmax, {}, Op::none, Predicate::sgt},
    Row{"smin", minmax, {}, Op::none, Predicate::slt},
    Row{"smul.with.overflow", withoverflow, {}, Op::mul, Predicate::none, true},
    Row{"sqrt", libraryfunction, "sqrt"},
    Row{"ssa.copy", firstoperand},
    Row{"ssub.sat", saturated, {}, Op::sub, Predicate::none, true},
    Row{"ssub.with.overflow", withoverflow, {}, Op::sub, Predicate::none, true},
    Row{"strip.invariant.group", firstoperand},
    Row{"thread.pointer", refusecall, "thread-local variable"},
    Row{"threadlocal.address", refusecall, "thread-local variable"},
    Row{"trap", keepcall},
    Row{"trunc", libraryfunction, "trunc"},
    Row{"uadd.sat", saturated, {}, Op::add},
    Row{"uadd.with.overflow", withoverflow, {}, Op::add},
    Row{"ubsantrap", plaintrap},
    Row{"umax", minmax, {}, Op::none, Predicate::ugt},
    Row{"umin", minmax, {}, Op::none, Predicate::ult},
    Row{"umul.with.overflow", withoverflow, {}, Op::mul},
    Row{"usub.sat", saturated, {}, Op::sub},
    Row{"usub.with.overflow", withoverflow, {}, Op::sub},
    Row{"var.annotation", dropcall},
};
static_assert(std::is_sorted(rows.begin(), rows.end(), [](const Row &a, const Row &b) { return a.name < b.name; }));

// A row fits a name that goes on with types only, or with anything after a row that ends in a dot.
bool fits(const Row &row, std::string_view name)
{
    if (!name.starts_with(row.name)) {
        return false;
    }
    return row.name.ends_with('.') || name.size() == row.name.size() || name[row.name.size()] == '.';
}

// The longest row that fits. Rows that begin alike stand together, but others can stand between.
const Row *findrow(std::string_view name)
{
    auto row = std::upper_bound(rows.begin(), rows.end(), name,
                                [](std::string_view text, const Row &candidate) { return text < candidate.name; });
    while (row != rows.begin()) {
        --row;
        if (fits(*row, name)) {
            return &*row;
        }
        if (row->name.empty() || row->name[0] != name[0]) {
            break;
        }
    }
    return nullptr;
}

constexpr std::string_view intrinsic_prefix = "llvm.";

void lowercall(Function &function, Value *call)
{
    const Global *callee = calledglobal(call);
    if (callee == nullptr || !callee->name.starts_with(intrinsic_prefix)) {
        return;
    }
    const Row *row = findrow(std::string_view(callee->name).substr(intrinsic_prefix.size()));
    if (row == nullptr) {
        refuse(function, call, "call of " + callee->name);
        return;
    }
    row->lower(function, call, *row);
}

}  // namespace

void lowerintrinsics(Function &function)
{
    for (Block *block : function.blocks) {
        for (Value *inst : instsof(block)) {
            if (!inst->removed) {
                lowercall(function, inst);
            }
        }
    }
}

}  // namespace adapt
