// Reads instructions.
#include "adapt/bodyreader.h"

#include <algorithm>
#include <array>
#include <unordered_set>

namespace adapt {

namespace {

Value *make(Reader &reader, Op op, Type *type, const std::vector<Value *> &operands)
{
    return reader.failed ? nullptr : newinst(*reader.function, op, type, operands);
}

Type *voidof(Reader &reader)
{
    return voidtype(*reader.module);
}

// ---- Terminators ----

Value *readret(Reader &reader)
{
    Type *type = readtype(reader);
    const Type *result = reader.function->global->type->sub;
    if (type != result) {
        fail(reader, "ret of " + typetext(type) + " in a function of type " + typetext(result));
    }
    if (type->kind == TypeKind::void_type) {
        return make(reader, Op::ret, voidof(reader), {});
    }
    Value *value = readvalue(reader, type);
    return make(reader, Op::ret, voidof(reader), {value});
}

Value *readbr(Reader &reader)
{
    if (isword(reader, "label")) {
        Block *target = readblockname(reader);
        Value *inst = make(reader, Op::br, voidof(reader), {});
        if (inst != nullptr) {
            inst->targets = {target};
        }
        return inst;
    }
    Value *condition = readtypedvalue(reader);
    if (!isinteger(condition->type, 1)) {
        fail(reader, "br on a condition of type " + typetext(condition->type));
    }
    expectpunct(reader, ',');
    Block *yes = readblockname(reader);
    expectpunct(reader, ',');
    Block *no = readblockname(reader);
    Value *inst = make(reader, Op::br, voidof(reader), {condition});
    if (inst != nullptr) {
        inst->targets = {yes, no};
    }
    return inst;
}

// switch TYPE VALUE, label %default [ TYPE CASE, label %target ... ]
Value *readswitch(Reader &reader)
{
    Value *value = readtypedvalue(reader);
    if (value->type->kind != TypeKind::integer) {
        fail(reader, "switch on a value of type " + typetext(value->type));
    }
    expectpunct(reader, ',');
    std::vector<Block *> targets = {readblockname(reader)};
    std::vector<Value *> operands = {value};
    std::unordered_set<std::uint64_t> seen;
    expectpunct(reader, '[');
    while (!reader.failed && !ispunct(reader, ']')) {
        Value *constant = readtypedconstant(reader);
        if (constant->type != value->type || constant->kind != ValueKind::integer) {
            fail(reader, "a case that is no constant of the switch's type");
        } else if (!seen.insert(constant->number).second) {
            fail(reader, "a second case of this value");
        }
        operands.push_back(constant);
        expectpunct(reader, ',');
        targets.push_back(readblockname(reader));
    }
    expectpunct(reader, ']');
    Value *inst = make(reader, Op::switch_, voidof(reader), operands);
    if (inst != nullptr) {
        inst->targets = std::move(targets);
    }
    return inst;
}

Value *readresume(Reader &reader)
{
    Value *value = readtypedvalue(reader);
    return make(reader, Op::resume, voidof(reader), {value});
}

// ---- Memory ----

// ", align N" if it stands there; other things after a comma stay.
std::uint64_t readalignment(Reader &reader)
{
    if (!ispunct(reader, ',')) {
        return 0;
    }
    const Lexer before = reader.lexer;
    next(reader);
    if (takeword(reader, "align")) {
        const std::uint64_t align = readnumber(reader);
        if (align == 0 || (align & (align - 1)) != 0) {
            fail(reader, "an alignment that is no power of two");
        }
        return align;
    }
    if (isword(reader, "addrspace")) {
        fail(reader, "address space");
    } else {
        goback(reader, before);
    }
    return 0;
}

// alloca TYPE, TYPE COUNT, align N
Value *readalloca(Reader &reader)
{
    if (isword(reader, "inalloca")) {
        fail(reader, "arguments in the caller's memory ('inalloca')");
    }
    takeword(reader, "swifterror");
    Type *element = readtype(reader);
    if (element->kind == TypeKind::void_type || element->kind == TypeKind::function ||
        element->kind == TypeKind::label || element->kind == TypeKind::metadata) {
        fail(reader, "alloca of " + typetext(element));
    }
    std::vector<Value *> operands;
    const Lexer before = reader.lexer;
    if (takepunct(reader, ',')) {
        const TokenKind kind = reader.lexer.token.kind;
        if (kind == TokenKind::metadata || isword(reader, "align") || isword(reader, "addrspace")) {
            goback(reader, before);
        } else {
            operands.push_back(readtypedvalue(reader));
        }
    }
    const bool one = !operands.empty() && operands[0]->kind == ValueKind::integer && operands[0]->number == 1;
    if (!operands.empty() && operands[0]->type->kind != TypeKind::integer) {
        fail(reader, "alloca of a number that is no integer");
    }
    const std::uint64_t align = readalignment(reader);
    Value *inst =
        make(reader, Op::alloca_, pointerto(*reader.module, element), one ? std::vector<Value *>{} : operands);
    if (inst != nullptr) {
        inst->element = element;
        inst->number = align;
    }
    return inst;
}

// How far other threads see the access. There are none that quarl's programs know, so only the fact is kept.
void skipordering(Reader &reader, unsigned orders)
{
    constexpr std::array<std::string_view, 6> words = {"unordered", "monotonic", "acquire",
                                                       "release",   "acq_rel",   "seq_cst"};
    if (takeword(reader, "syncscope")) {
        skipbrackets(reader);
    }
    for (unsigned i = 0; i < orders && !reader.failed; ++i) {
        const Token &token = reader.lexer.token;
        if (token.kind != TokenKind::word || std::find(words.begin(), words.end(), token.text) == words.end()) {
            return failunexpected(reader, "the order of an atomic access");
        }
        next(reader);
    }
}

Value *readpointeroperand(Reader &reader)
{
    Value *pointer = readtypedvalue(reader);
    if (!reader.failed && (pointer->type->kind != TypeKind::pointer || pointer->type->sub == nullptr)) {
        fail(reader, "an access through " + typetext(pointer->type));
    }
    return pointer;
}

bool isfirstclass(const Type *type)
{
    return type->kind == TypeKind::integer || isfloating(type) || type->kind == TypeKind::pointer || isaggregate(type);
}

Value *readload(Reader &reader)
{
    const bool atomic = takeword(reader, "atomic");
    const bool is_volatile = takeword(reader, "volatile");
    Type *type = readtype(reader);
    expectpunct(reader, ',');
    Value *pointer = readpointeroperand(reader);
    if (!reader.failed && (!isfirstclass(type) || pointer->type->sub != type)) {
        fail(reader, "load of " + typetext(type) + " through " + typetext(pointer->type));
    }
    if (atomic) {
        skipordering(reader, 1);
    }
    const std::uint64_t align = readalignment(reader);
    Value *inst = make(reader, Op::load, type, {pointer});
    if (inst != nullptr) {
        inst->element = type;
        inst->is_atomic = atomic;
        inst->is_volatile = is_volatile;
        inst->number = align;
    }
    return inst;
}

Value *readstore(Reader &reader)
{
    const bool atomic = takeword(reader, "atomic");
    const bool is_volatile = takeword(reader, "volatile");
    Type *type = readtype(reader);
    Value *value = readvalue(reader, type);
    expectpunct(reader, ',');
    Value *pointer = readpointeroperand(reader);
    if (!reader.failed && (!isfirstclass(type) || pointer->type->sub != type)) {
        fail(reader, "store of " + typetext(type) + " through " + typetext(pointer->type));
    }
    if (atomic) {
        skipordering(reader, 1);
    }
    const std::uint64_t align = readalignment(reader);
    Value *inst = make(reader, Op::store, voidof(reader), {value, pointer});
    if (inst != nullptr) {
        inst->is_atomic = atomic;
        inst->is_volatile = is_volatile;
        inst->number = align;
    }
    return inst;
}

// cmpxchg weak volatile TYPE* P, TYPE EXPECTED, TYPE NEW ORDER ORDER, align N
Value *readcmpxchg(Reader &reader)
{
    takeword(reader, "weak");
    const bool is_volatile = takeword(reader, "volatile");
    Value *pointer = readpointeroperand(reader);
    expectpunct(reader, ',');
    Type *type = readtype(reader);
    Value *expected = readvalue(reader, type);
    expectpunct(reader, ',');
    Value *desired = readtypedvalue(reader);
    const bool fits = type->kind == TypeKind::integer || type->kind == TypeKind::pointer;
    if (!reader.failed && (!fits || pointer->type->sub != type || desired->type != type)) {
        fail(reader, "cmpxchg of " + typetext(type) + " through " + typetext(pointer->type));
    }
    skipordering(reader, 2);
    const std::uint64_t align = readalignment(reader);
    Type *result = literalstruct(*reader.module, {type, inttype(*reader.module, 1)}, false);
    Value *inst = make(reader, Op::cmpxchg, result, {pointer, expected, desired});
    if (inst != nullptr) {
        inst->is_volatile = is_volatile;
        inst->is_atomic = true;
        inst->number = align;
    }
    return inst;
}

// The word of an operation that atomicrmw has, empty if it is none.
std::string_view readrmwoperation(Reader &reader, bool &floating)
{
    constexpr std::array<std::string_view, 17> words = {"xchg", "add",  "sub",  "and",       "nand",     "or",
                                                        "xor",  "max",  "min",  "umax",      "umin",     "fadd",
                                                        "fsub", "fmax", "fmin", "uinc_wrap", "udec_wrap"};
    const std::string_view word = reader.lexer.token.text;
    if (reader.lexer.token.kind != TokenKind::word || std::find(words.begin(), words.end(), word) == words.end()) {
        failunexpected(reader, "an operation of atomicrmw");
        return {};
    }
    floating = word[0] == 'f';
    next(reader);
    return word;
}

// atomicrmw volatile OPERATION TYPE* P, TYPE VALUE ORDER, align N
Value *readatomicrmw(Reader &reader)
{
    const bool is_volatile = takeword(reader, "volatile");
    bool floating = false;
    const std::string_view operation = readrmwoperation(reader, floating);
    Value *pointer = readpointeroperand(reader);
    expectpunct(reader, ',');
    Type *type = readtype(reader);
    Value *value = readvalue(reader, type);
    const bool fits = floating ? isfloating(type)
                      : operation == "xchg"
                          ? type->kind == TypeKind::integer || isfloating(type) || type->kind == TypeKind::pointer
                          : type->kind == TypeKind::integer;
    if (!reader.failed && (!fits || pointer->type->sub != type)) {
        fail(reader, "atomicrmw of " + typetext(type) + " through " + typetext(pointer->type));
    }
    skipordering(reader, 1);
    const std::uint64_t align = readalignment(reader);
    Value *inst = make(reader, Op::atomicrmw, type, {pointer, value});
    if (inst != nullptr) {
        inst->text = operation;
        inst->is_volatile = is_volatile;
        inst->is_atomic = true;
        inst->number = align;
    }
    return inst;
}

Value *readfence(Reader &reader)
{
    skipordering(reader, 1);
    return make(reader, Op::fence, voidof(reader), {});
}

// Operands with their types, as long as a comma and no attachment follows.
void readmoreoperands(Reader &reader, std::vector<Value *> &operands)
{
    while (ispunct(reader, ',')) {
        const Lexer before = reader.lexer;
        next(reader);
        if (reader.lexer.token.kind == TokenKind::metadata) {
            goback(reader, before);
            return;
        }
        operands.push_back(readtypedvalue(reader));
    }
}

Value *readgetelementptr(Reader &reader)
{
    takeword(reader, "inbounds");
    Type *source = readtype(reader);
    std::vector<Value *> operands;
    readmoreoperands(reader, operands);
    Type *type = indexedtype(reader, source, operands);
    Value *inst = make(reader, Op::getelementptr, type, operands);
    if (inst != nullptr) {
        inst->element = source;
    }
    return inst;
}

// ---- Arithmetic, conversions, comparisons ----

Value *readbinary(Reader &reader, Op op)
{
    bool nuw = false;
    bool nsw = false;
    readflags(reader, nuw, nsw);
    skipfastmath(reader);
    Type *type = readtype(reader);
    checkbinary(reader, op, type);
    Value *a = readvalue(reader, type);
    expectpunct(reader, ',');
    Value *b = readvalue(reader, type);
    Value *inst = make(reader, op, type, {a, b});
    if (inst != nullptr) {
        inst->nuw = nuw;
        inst->nsw = nsw;
    }
    return inst;
}

Value *readfneg(Reader &reader)
{
    skipfastmath(reader);
    Value *value = readtypedvalue(reader);
    checkbinary(reader, Op::fadd, value->type);
    return make(reader, Op::fneg, value->type, {value});
}

Value *readcast(Reader &reader, Op op)
{
    Value *value = readtypedvalue(reader);
    expectword(reader, "to");
    Type *type = readtype(reader);
    checkcast(reader, op, value->type, type);
    return make(reader, op, type, {value});
}

Value *readcompare(Reader &reader, Op op)
{
    skipfastmath(reader);
    const Predicate predicate = readpredicate(reader, op);
    Type *type = readtype(reader);
    checkbinary(reader, op, type);
    Value *a = readvalue(reader, type);
    expectpunct(reader, ',');
    Value *b = readvalue(reader, type);
    Value *inst = make(reader, op, inttype(*reader.module, 1), {a, b});
    if (inst != nullptr) {
        inst->predicate = predicate;
    }
    return inst;
}

// ---- Others ----

// phi TYPE [ VALUE, %block ], ...
Value *readphi(Reader &reader)
{
    skipfastmath(reader);
    Type *type = readtype(reader);
    if (!isfirstclass(type)) {
        fail(reader, "phi of " + typetext(type));
    }
    std::vector<Value *> operands;
    std::vector<Block *> targets;
    do {
        const Lexer before = reader.lexer;
        if (!takepunct(reader, '[')) {
            if (operands.empty() || reader.lexer.token.kind != TokenKind::metadata) {
                failunexpected(reader, "'['");
            }
            goback(reader, before);
            break;
        }
        operands.push_back(readvalue(reader, type));
        expectpunct(reader, ',');
        targets.push_back(readbareblockname(reader));
        expectpunct(reader, ']');
    } while (takepunct(reader, ','));
    Value *inst = make(reader, Op::phi, type, operands);
    if (inst != nullptr) {
        inst->targets = std::move(targets);
    }
    return inst;
}

Value *readselect(Reader &reader)
{
    skipfastmath(reader);
    Value *condition = readtypedvalue(reader);
    expectpunct(reader, ',');
    Value *yes = readtypedvalue(reader);
    expectpunct(reader, ',');
    Value *no = readtypedvalue(reader);
    if (!isinteger(condition->type, 1) || yes->type != no->type || !isfirstclass(yes->type)) {
        fail(reader, "select of other than a condition and two values of one type");
    }
    return make(reader, Op::select, yes->type, {condition, yes, no});
}

Value *readextractvalue(Reader &reader)
{
    Value *aggregate = readtypedvalue(reader);
    std::vector<std::uint32_t> indices = readindices(reader);
    Type *type = membertype(reader, aggregate->type, indices);
    Value *inst = make(reader, Op::extractvalue, type, {aggregate});
    if (inst != nullptr) {
        inst->indices = std::move(indices);
    }
    return inst;
}

Value *readinsertvalue(Reader &reader)
{
    Value *aggregate = readtypedvalue(reader);
    expectpunct(reader, ',');
    Value *member = readtypedvalue(reader);
    std::vector<std::uint32_t> indices = readindices(reader);
    if (membertype(reader, aggregate->type, indices) != member->type) {
        fail(reader, "insertvalue of another type than the member's");
    }
    Value *inst = make(reader, Op::insertvalue, aggregate->type, {aggregate, member});
    if (inst != nullptr) {
        inst->indices = std::move(indices);
    }
    return inst;
}

// landingpad TYPE cleanup catch TYPE VALUE filter TYPE VALUE ...
Value *readlandingpad(Reader &reader)
{
    Type *type = readtype(reader);
    const bool cleanup = takeword(reader, "cleanup");
    std::vector<Value *> clauses;
    std::vector<std::uint32_t> kinds;
    while (isword(reader, "catch") || isword(reader, "filter")) {
        kinds.push_back(isword(reader, "filter") ? 1 : 0);
        next(reader);
        clauses.push_back(readtypedconstant(reader));
    }
    if (!isfirstclass(type)) {
        fail(reader, "landingpad of " + typetext(type));
    }
    Value *inst = make(reader, Op::landingpad, type, clauses);
    if (inst != nullptr) {
        inst->number = cleanup ? 1 : 0;
        inst->indices = std::move(kinds);
    }
    return inst;
}

Value *readfreeze(Reader &reader)
{
    Value *value = readtypedvalue(reader);
    return make(reader, Op::freeze, value->type, {value});
}

// va_arg TYPE* LIST, TYPE
Value *readvaarg(Reader &reader)
{
    Value *list = readtypedvalue(reader);
    if (list->type->kind != TypeKind::pointer) {
        fail(reader, "va_arg of " + typetext(list->type));
    }
    expectpunct(reader, ',');
    Type *type = readtype(reader);
    if (!isfirstclass(type)) {
        fail(reader, "va_arg of " + typetext(type));
    }
    return make(reader, Op::va_arg, type, {list});
}

// ---- Calls ----

struct Call {
    std::vector<Value *> operands = {nullptr};  // the callee first
    std::vector<Attributes> attributes;
    Type *type = nullptr;    // of the function
    bool forgotten = false;  // a call that describes variables to debuggers
};

// A metadata operand, up to the comma or bracket after it. The word metadata was taken.
Value *skipmetadata(Reader &reader)
{
    while (!reader.failed && !ispunct(reader, ',') && !ispunct(reader, ')')) {
        if (reader.lexer.token.kind == TokenKind::end) {
            failunexpected(reader, "a metadata operand");
        } else if (ispunct(reader, '(') || ispunct(reader, '{') || ispunct(reader, '[')) {
            skipbrackets(reader);
        } else {
            next(reader);
        }
    }
    Value *value = make(reader, Op::none, othertype(*reader.module, TypeKind::metadata), {});
    if (value != nullptr) {
        value->kind = ValueKind::metadata;
    }
    return value;
}

// (TYPE ATTRIBUTES VALUE, ...)
void readarguments(Reader &reader, Call &call)
{
    expectpunct(reader, '(');
    if (takepunct(reader, ')')) {
        return;
    }
    do {
        if (reader.lexer.token.kind == TokenKind::ellipsis) {  // a musttail call that passes all on
            fail(reader, "a call that passes on unnamed arguments");
        }
        Type *type = readtype(reader);
        if (type->kind == TypeKind::metadata) {
            call.attributes.emplace_back();
            call.operands.push_back(skipmetadata(reader));
            continue;
        }
        call.attributes.push_back(readattributes(reader, type));
        call.operands.push_back(readvalue(reader, type));
    } while (takepunct(reader, ','));
    expectpunct(reader, ')');
}

// asm sideeffect "TEMPLATE", "CONSTRAINTS"
Value *readassembler(Reader &reader)
{
    next(reader);
    bool effects = false;
    while (isword(reader, "sideeffect") || isword(reader, "alignstack") || isword(reader, "inteldialect") ||
           isword(reader, "unwind")) {
        effects |= isword(reader, "sideeffect");
        next(reader);
    }
    const Token text = reader.lexer.token;
    next(reader);
    expectpunct(reader, ',');
    const Token constraints = reader.lexer.token;
    if (text.kind != TokenKind::string || constraints.kind != TokenKind::string) {
        failunexpected(reader, "a text in quotes");
    }
    next(reader);
    Value *callee = make(reader, Op::none, voidof(reader), {});
    if (callee != nullptr) {
        callee->kind = ValueKind::assembler;
        callee->text = text.text;
        callee->constraints = constraints.text;
        callee->number = effects ? 1 : 0;
    }
    return callee;
}

// Whether a call of this type can have these arguments.
bool fitsarguments(const Type *type, const std::vector<Value *> &operands)
{
    const std::vector<Type *> &params = type->members;
    const std::size_t given = operands.size() - 1;
    if (given < params.size() || (given > params.size() && !type->variadic)) {
        return false;
    }
    for (std::size_t i = 0; i < params.size(); ++i) {
        if (operands[i + 1]->type != params[i]) {
            return false;
        }
    }
    return true;
}

// The callee is given by a name, whose type is known only with the arguments, so it is read again after them.
void readcallee(Reader &reader, Call &call, Type *type)
{
    const Lexer callee = reader.lexer;
    if (isword(reader, "asm")) {
        call.operands[0] = readassembler(reader);
    } else if (reader.lexer.token.kind == TokenKind::local || reader.lexer.token.kind == TokenKind::global) {
        next(reader);
    } else {  // a constant expression of a type that the call spells out
        Type *params = type->kind == TypeKind::function ? type : functiontype(*reader.module, type, {}, false);
        call.operands[0] = readconstant(reader, pointerto(*reader.module, params));
    }
    if (callee.token.kind == TokenKind::global && callee.token.text.starts_with("llvm.dbg.")) {
        call.forgotten = true;
        return skipbrackets(reader);
    }
    readarguments(reader, call);
    if (reader.failed) {
        return;
    }
    call.type = type;
    if (type->kind != TypeKind::function) {
        std::vector<Type *> params;
        for (std::size_t i = 1; i < call.operands.size(); ++i) {
            params.push_back(call.operands[i]->type);
        }
        call.type = functiontype(*reader.module, type, params, false);
    }
    if (call.operands[0] != nullptr && call.operands[0]->kind == ValueKind::assembler) {
        call.operands[0]->type = pointerto(*reader.module, call.type);
    }
    if (call.operands[0] == nullptr) {
        const Lexer after = reader.lexer;
        reader.lexer = callee;
        call.operands[0] = readvalue(reader, pointerto(*reader.module, call.type));
        goback(reader, after);
    }
    if (!reader.failed && !fitsarguments(call.type, call.operands)) {
        fail(reader, "a call with other arguments than its function takes");
    }
}

// [ "name"(...), ... ] after a call. An assumption's are hints; others change what the call does.
void skipbundles(Reader &reader, const Call &call)
{
    if (!ispunct(reader, '[')) {
        return;
    }
    const Global *callee = call.forgotten ? nullptr : call.operands[0]->global;
    if (callee == nullptr || !callee->name.starts_with("llvm.assume")) {
        fail(reader, "operand bundle");
    }
    skipbrackets(reader);
}

// FASTMATH CONVENTION ATTRIBUTES TYPE CALLEE(ARGUMENTS) ATTRIBUTES
Call readcallparts(Reader &reader)
{
    Call call;
    skipfastmath(reader);
    skipheaderwords(reader);
    call.attributes.push_back(readattributes(reader, voidof(reader)));
    skipheaderwords(reader);
    Type *type = readtype(reader);
    readcallee(reader, call, type);
    skipfunctionattributes(reader);
    if (!reader.failed) {
        skipbundles(reader, call);
    }
    return call;
}

bool saysnothing(const Attributes &attributes)
{
    return !attributes.zeroext && !attributes.signext && !attributes.inreg && attributes.byval == nullptr &&
           attributes.sret == nullptr;
}

Value *makecall(Reader &reader, Op op, Call &call)
{
    if (reader.failed || call.forgotten) {
        return nullptr;
    }
    Value *inst = make(reader, op, call.type->sub, call.operands);
    inst->element = call.type;
    if (!std::all_of(call.attributes.begin(), call.attributes.end(), saysnothing)) {
        inst->attributes = std::move(call.attributes);
    }
    return inst;
}

Value *readcall(Reader &reader)
{
    Call call = readcallparts(reader);
    return makecall(reader, Op::call, call);
}

Value *readtailcall(Reader &reader)
{
    expectword(reader, "call");
    return readcall(reader);
}

Value *readinvoke(Reader &reader)
{
    Call call = readcallparts(reader);
    expectword(reader, "to");
    Block *normal = readblockname(reader);
    expectword(reader, "unwind");
    Block *unwind = readblockname(reader);
    if (call.forgotten) {
        fail(reader, "invoke of a function for debuggers");
    }
    Value *inst = makecall(reader, Op::invoke, call);
    if (inst != nullptr) {
        inst->targets = {normal, unwind};
    }
    return inst;
}

// ---- By the word ----

struct OpReader {
    Op op;
    Value *(*read)(Reader &);
};

constexpr std::array op_readers = {
    OpReader{Op::ret, readret},
    OpReader{Op::br, readbr},
    OpReader{Op::switch_, readswitch},
    OpReader{Op::invoke, readinvoke},
    OpReader{Op::resume, readresume},
    OpReader{Op::alloca_, readalloca},
    OpReader{Op::load, readload},
    OpReader{Op::store, readstore},
    OpReader{Op::getelementptr, readgetelementptr},
    OpReader{Op::cmpxchg, readcmpxchg},
    OpReader{Op::atomicrmw, readatomicrmw},
    OpReader{Op::fence, readfence},
    OpReader{Op::fneg, readfneg},
    OpReader{Op::phi, readphi},
    OpReader{Op::select, readselect},
    OpReader{Op::call, readcall},
    OpReader{Op::extractvalue, readextractvalue},
    OpReader{Op::insertvalue, readinsertvalue},
    OpReader{Op::landingpad, readlandingpad},
    OpReader{Op::freeze, readfreeze},
    OpReader{Op::va_arg, readvaarg},
};

}  // namespace

Value *readinstruction(Reader &reader)
{
    const Token word = reader.lexer.token;
    if (word.kind != TokenKind::word) {
        failunexpected(reader, "an instruction");
        return nullptr;
    }
    if (const WordRow *row = findword(foreign_operations, word.text)) {
        fail(reader, std::string(row->reason) + " ('" + std::string(word.text) + "')");
        return nullptr;
    }
    const Op op = findop(word.text);
    const bool tail = word.text == "tail" || word.text == "musttail" || word.text == "notail";
    if (op == Op::none && !tail) {
        failunexpected(reader, "an instruction");
        return nullptr;
    }
    next(reader);
    if (tail) {
        return readtailcall(reader);
    }
    if (isbinary(op)) {
        return readbinary(reader, op);
    }
    if (iscast(op)) {
        return readcast(reader, op);
    }
    if (op == Op::icmp || op == Op::fcmp) {
        return readcompare(reader, op);
    }
    if (op == Op::unreachable) {
        return make(reader, op, voidof(reader), {});
    }
    const auto *const found =
        std::find_if(op_readers.begin(), op_readers.end(), [op](const OpReader &row) { return row.op == op; });
    return found->read(reader);
}

}  // namespace adapt
