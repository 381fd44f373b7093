// Reads constants and operands, and checks what operations may be given.
#include "adapt/reader.h"

#include <bit>
#include <charconv>
#include <cmath>

namespace adapt {

namespace {

constexpr unsigned deepest_constant = 200;

Value *harmless(Reader &reader, Type *type)
{
    return undefconst(*reader.module, type);
}

// ---- Numbers ----

// Of more than 64 bits: the digits are the constant's text. Initialisers have bytes instead.
Value *readwideinteger(Reader &reader, Type *type)
{
    const std::string_view text = reader.lexer.token.text;
    constexpr std::string_view digits = "0123456789";
    if (text.find_first_not_of(digits, text.starts_with('-') ? 1 : 0) != std::string_view::npos) {
        fail(reader, "'" + std::string(text.substr(0, 40)) + "' is no decimal number");
    } else if (reader.function == nullptr) {
        fail(reader, "integer of more than 64 bits ('i" + std::to_string(type->bits) + "')");
    }
    Value &made = reader.module->arena.values.emplace_back();
    made.kind = ValueKind::integer;
    made.type = type;
    made.text = text;
    next(reader);
    return &made;
}

// A decimal number, or s0x and u0x with hexadecimal digits, of an integer type.
Value *readinteger(Reader &reader, Type *type)
{
    if (type->bits > 64) {
        return readwideinteger(reader, type);
    }
    std::string_view digits = reader.lexer.token.text;
    const bool negative = digits[0] == '-';
    digits.remove_prefix(negative ? 1 : 0);
    std::uint64_t number = 0;
    const char *end = digits.data() + digits.size();
    const auto [at, error] = std::from_chars(digits.data(), end, number);
    const std::uint64_t half = std::uint64_t{1} << (type->bits - 1);
    if (at != end || error != std::errc()) {
        fail(reader, "'" + std::string(reader.lexer.token.text.substr(0, 40)) + "' is no integer of 64 bits or less");
    } else if (negative ? number > half : number > half - 1 + half) {
        fail(reader, "integer constant too large for its type");
    }
    next(reader);
    return intconst(*reader.module, type, negative ? 0 - number : number);
}

// Decimal, or the bits of a double as 0x and hexadecimal digits.
Value *readfloating(Reader &reader, Type *type)
{
    const std::string_view text = reader.lexer.token.text;
    const char *end = text.data() + text.size();
    double number = 0;
    if (text.starts_with("0x")) {
        std::uint64_t bits = 0;
        const auto [at, error] = std::from_chars(text.data() + 2, end, bits, 16);
        if (at != end || error != std::errc() || text.size() == 2) {
            fail(reader, "floating constant of a type that C lacks");
        }
        number = std::bit_cast<double>(bits);
    } else {
        const auto [at, error] = std::from_chars(text.data() + (text[0] == '+' ? 1 : 0), end, number);
        if (at != end || error != std::errc()) {
            fail(reader, "'" + std::string(text.substr(0, 40)) + "' is no floating constant");
        }
    }
    if (type->kind == TypeKind::float_type && !std::isnan(number) &&
        static_cast<double>(static_cast<float>(number)) != number) {
        fail(reader, "floating constant that a float doesn't hold");
    }
    next(reader);
    return floatconst(*reader.module, type, number);
}

Value *readnumeral(Reader &reader, Type *type)
{
    if (type->kind == TypeKind::integer) {
        return readinteger(reader, type);
    }
    if (isfloating(type)) {
        return readfloating(reader, type);
    }
    fail(reader, "a number as constant of type " + typetext(type));
    return harmless(reader, type);
}

// ---- Aggregates ----

// Elements with their types, up to the closing bracket, which is taken.
std::vector<Value *> readelements(Reader &reader, char close)
{
    std::vector<Value *> elements;
    if (!ispunct(reader, close)) {
        do {
            elements.push_back(readtypedconstant(reader));
        } while (takepunct(reader, ','));
    }
    expectpunct(reader, close);
    return elements;
}

// Whether the elements are those that the type asks for.
bool fitstype(const Type *type, const std::vector<Value *> &elements)
{
    if (type->kind == TypeKind::array) {
        bool fits = elements.size() == type->count;
        for (std::size_t i = 0; fits && i < elements.size(); ++i) {
            fits = elements[i]->type == type->sub;
        }
        return fits;
    }
    const std::vector<Type *> &members = membersof(type);
    bool fits = elements.size() == members.size();
    for (std::size_t i = 0; fits && i < elements.size(); ++i) {
        fits = elements[i]->type == members[i];
    }
    return fits;
}

// [...], {...} or <{...}>; the cursor stands on the bracket.
Value *readaggregate(Reader &reader, Type *type)
{
    const bool packed = takepunct(reader, '<');
    const bool array = ispunct(reader, '[');
    if (packed && !ispunct(reader, '{')) {
        fail(reader, "vector");
        return harmless(reader, type);
    }
    const bool type_packed = type->named != nullptr ? type->named->packed : type->packed;
    if (type->kind != (array ? TypeKind::array : TypeKind::structure) || packed != (!array && type_packed)) {
        fail(reader, "aggregate constant of another type");
        return harmless(reader, type);
    }
    next(reader);
    const std::vector<Value *> elements = readelements(reader, array ? ']' : '}');
    if (packed) {
        expectpunct(reader, '>');
    }
    if (!reader.failed && !fitstype(type, elements)) {
        fail(reader, "aggregate constant with elements of other types or number");
    }
    return reader.failed ? harmless(reader, type) : aggregateconst(*reader.module, type, elements);
}

Value *readbytes(Reader &reader, Type *type)
{
    const std::string_view bytes = reader.lexer.token.text;
    if (type->kind != TypeKind::array || !isinteger(type->sub, 8) || type->count != bytes.size()) {
        fail(reader, "text constant of another type");
        return harmless(reader, type);
    }
    next(reader);
    return stringconst(*reader.module, type, bytes);
}

// ---- Constant expressions ----

const std::unordered_map<std::string_view, Op> &opwords()
{
    static const std::unordered_map<std::string_view, Op> words = [] {
        std::unordered_map<std::string_view, Op> made;
        for (int op = static_cast<int>(Op::ret); op <= static_cast<int>(Op::va_arg); ++op) {
            made.emplace(opname(static_cast<Op>(op)), static_cast<Op>(op));
        }
        return made;
    }();
    return words;
}

Value *makeexpression(Reader &reader, Op op, Type *type, const std::vector<Value *> &operands)
{
    return reader.failed ? harmless(reader, type) : exprconst(*reader.module, op, type, operands);
}

// getelementptr inbounds (TYPE, TYPE* BASE, inrange iN INDEX, ...); the cursor stands after the word.
Value *readelementaddress(Reader &reader)
{
    takeword(reader, "inbounds");
    expectpunct(reader, '(');
    Type *source = readtype(reader);
    std::vector<Value *> operands;
    while (takepunct(reader, ',')) {
        takeword(reader, "inrange");
        operands.push_back(readtypedconstant(reader));
    }
    expectpunct(reader, ')');
    Type *type = indexedtype(reader, source, operands);
    Value *made = makeexpression(reader, Op::getelementptr, type, operands);
    made->element = made->kind == ValueKind::expression ? source : nullptr;
    return made;
}

// OP (TYPE CONSTANT to TYPE)
Value *readcastexpression(Reader &reader, Op op)
{
    expectpunct(reader, '(');
    Value *from = readtypedconstant(reader);
    expectword(reader, "to");
    Type *to = readtype(reader);
    expectpunct(reader, ')');
    checkcast(reader, op, from->type, to);
    return makeexpression(reader, op, to, {from});
}

// OP flags (TYPE A, TYPE B)
Value *readbinaryexpression(Reader &reader, Op op)
{
    bool nuw = false;
    bool nsw = false;
    readflags(reader, nuw, nsw);
    expectpunct(reader, '(');
    const std::vector<Value *> operands = readelements(reader, ')');
    if (reader.failed || operands.size() != 2 || operands[0]->type != operands[1]->type) {
        fail(reader, "constant expression with other than two operands of one type");
        return harmless(reader, voidtype(*reader.module));
    }
    checkbinary(reader, op, operands[0]->type);
    Value *made = makeexpression(reader, op, operands[0]->type, operands);
    if (made->kind == ValueKind::expression) {
        made->nuw = nuw;
        made->nsw = nsw;
    }
    return made;
}

// icmp PREDICATE (TYPE A, TYPE B)
Value *readcomparison(Reader &reader, Op op)
{
    const Predicate predicate = readpredicate(reader, op);
    expectpunct(reader, '(');
    const std::vector<Value *> operands = readelements(reader, ')');
    Type *type = inttype(*reader.module, 1);
    if (reader.failed || operands.size() != 2 || operands[0]->type != operands[1]->type) {
        fail(reader, "comparison of other than two constants of one type");
        return harmless(reader, type);
    }
    checkbinary(reader, op, operands[0]->type);
    Value *made = makeexpression(reader, op, type, operands);
    if (made->kind == ValueKind::expression) {
        made->predicate = predicate;
    }
    return made;
}

// select (i1 C, TYPE A, TYPE B)
Value *readchoice(Reader &reader)
{
    expectpunct(reader, '(');
    const std::vector<Value *> operands = readelements(reader, ')');
    if (reader.failed || operands.size() != 3 || !isinteger(operands[0]->type, 1) ||
        operands[1]->type != operands[2]->type) {
        fail(reader, "select of other than a condition and two constants of one type");
        return harmless(reader, voidtype(*reader.module));
    }
    return makeexpression(reader, Op::select, operands[1]->type, operands);
}

// extractvalue (TYPE A, N, ...) and insertvalue (TYPE A, TYPE B, N, ...)
Value *readmemberexpression(Reader &reader, Op op)
{
    expectpunct(reader, '(');
    std::vector<Value *> operands = {readtypedconstant(reader)};
    if (op == Op::insertvalue) {
        expectpunct(reader, ',');
        operands.push_back(readtypedconstant(reader));
    }
    const std::vector<std::uint32_t> indices = readindices(reader);
    expectpunct(reader, ')');
    Type *member = membertype(reader, operands[0]->type, indices);
    if (op == Op::insertvalue && member != operands[1]->type) {
        fail(reader, "insertvalue of another type than the member's");
    }
    Value *made = makeexpression(reader, op, op == Op::insertvalue ? operands[0]->type : member, operands);
    if (made->kind == ValueKind::expression) {
        made->indices = indices;
    }
    return made;
}

Value *readexpression(Reader &reader, Op op)
{
    next(reader);
    if (op == Op::getelementptr) {
        return readelementaddress(reader);
    }
    if (iscast(op)) {
        return readcastexpression(reader, op);
    }
    if (isbinary(op)) {
        return readbinaryexpression(reader, op);
    }
    if (op == Op::fneg) {
        expectpunct(reader, '(');
        Value *of = readtypedconstant(reader);
        expectpunct(reader, ')');
        checkbinary(reader, Op::fadd, of->type);
        return makeexpression(reader, op, of->type, {of});
    }
    if (op == Op::icmp || op == Op::fcmp) {
        return readcomparison(reader, op);
    }
    if (op == Op::select) {
        return readchoice(reader);
    }
    return readmemberexpression(reader, op);
}

bool isexpression(Op op)
{
    return iscast(op) || isbinary(op) || op == Op::getelementptr || op == Op::icmp || op == Op::fcmp ||
           op == Op::select || op == Op::fneg || op == Op::extractvalue || op == Op::insertvalue;
}

// ---- Constants by their first token ----

Value *readglobal(Reader &reader, Type *type)
{
    const auto found = reader.module->global_by_name.find(reader.lexer.token.text);
    if (found == reader.module->global_by_name.end()) {
        fail(reader, "'@" + std::string(reader.lexer.token.text.substr(0, 80)) + "' is refused or not declared");
        return harmless(reader, type);
    }
    Value *value = found->second->value;
    if (value->type != type) {
        fail(reader, "'@" + found->second->name + "' is " + typetext(value->type) + ", not " + typetext(type));
    }
    next(reader);
    return value;
}

// null, undef, zeroinitializer, true, ... of this type; null if the word is none of these.
Value *readsimple(Reader &reader, Type *type)
{
    Module &module = *reader.module;
    const bool has_value = type->kind != TypeKind::void_type && type->kind != TypeKind::function &&
                           type->kind != TypeKind::label && type->kind != TypeKind::metadata;
    if ((isword(reader, "undef") || isword(reader, "poison")) && has_value) {
        return undefconst(module, type);
    }
    if (isword(reader, "zeroinitializer") && has_value) {
        return zeroconst(module, type);
    }
    if (isword(reader, "null") && type->kind == TypeKind::pointer) {
        return nullconst(module, type);
    }
    if ((isword(reader, "true") || isword(reader, "false")) && isinteger(type, 1)) {
        return intconst(module, type, isword(reader, "true") ? 1 : 0);
    }
    return nullptr;
}

Value *readwordconstant(Reader &reader, Type *type)
{
    if (Value *simple = readsimple(reader, type)) {
        next(reader);
        return simple;
    }
    if (takeword(reader, "dso_local_equivalent") || takeword(reader, "no_cfi")) {
        return readconstant(reader, type);
    }
    const std::string_view word = reader.lexer.token.text;
    if (const WordRow *row = findword(foreign_operations, word)) {
        fail(reader, std::string(row->reason) + " ('" + std::string(word) + "')");
        return harmless(reader, type);
    }
    const Op op = findop(word);
    if (!isexpression(op)) {
        failunexpected(reader, "a constant of type " + typetext(type));
        return harmless(reader, type);
    }
    Value *made = readexpression(reader, op);
    if (!reader.failed && made->type != type) {
        fail(reader,
             "constant expression of type " + typetext(made->type) + " where " + typetext(type) + " is expected");
    }
    return made;
}

Value *readfirst(Reader &reader, Type *type)
{
    const Token &token = reader.lexer.token;
    switch (token.kind) {
    case TokenKind::number:
        return readnumeral(reader, type);
    case TokenKind::global:
        return readglobal(reader, type);
    case TokenKind::word:
        return readwordconstant(reader, type);
    case TokenKind::bytes:
        return readbytes(reader, type);
    case TokenKind::punct:
        if (ispunct(reader, '[') || ispunct(reader, '{') || ispunct(reader, '<')) {
            return readaggregate(reader, type);
        }
        break;
    default:
        break;
    }
    failunexpected(reader, "a constant of type " + typetext(type));
    return harmless(reader, type);
}

// ---- Indices ----

// What an index steps into; null if it doesn't fit. Only structures need to know the number.
Type *stepinto(const Type *type, const Value *index)
{
    if (index->type->kind != TypeKind::integer) {
        return nullptr;
    }
    if (type->kind == TypeKind::array) {
        return type->sub;
    }
    if (type->kind != TypeKind::structure || (type->named != nullptr && type->named->opaque)) {
        return nullptr;
    }
    const std::vector<Type *> &members = membersof(type);
    const bool fits = index->kind == ValueKind::integer && index->number < members.size();
    return fits ? members[index->number] : nullptr;
}

bool issized(const Type *type)
{
    switch (type->kind) {
    case TypeKind::integer:
    case TypeKind::float_type:
    case TypeKind::double_type:
    case TypeKind::pointer:
    case TypeKind::array:
        return true;
    case TypeKind::structure:
        return type->named == nullptr || !type->named->opaque;
    default:
        return false;
    }
}

}  // namespace

Value *readconstant(Reader &reader, Type *type)
{
    if (++reader.depth > deepest_constant) {
        fail(reader, "constant nested too deeply");
    }
    Value *made = readfirst(reader, type);
    if (!reader.failed) {
        --reader.depth;
    }
    return made;
}

Value *readtypedconstant(Reader &reader)
{
    return readconstant(reader, readtype(reader));
}

Value *readvalue(Reader &reader, Type *type)
{
    if (reader.lexer.token.kind == TokenKind::local && reader.locals != nullptr) {
        return findlocal(reader, type);
    }
    return readconstant(reader, type);
}

Value *readtypedvalue(Reader &reader)
{
    return readvalue(reader, readtype(reader));
}

Type *indexedtype(Reader &reader, Type *source, const std::vector<Value *> &operands)
{
    Type *fallback = pointerto(*reader.module, inttype(*reader.module, 8));
    if (reader.failed) {
        return fallback;
    }
    if (operands.empty() || operands[0]->type->kind != TypeKind::pointer || operands[0]->type->sub != source ||
        !issized(source)) {
        fail(reader, "getelementptr whose base is no pointer to its type");
        return fallback;
    }
    Type *type = source;
    for (std::size_t i = 1; i < operands.size() && type != nullptr; ++i) {
        type = i > 1 ? stepinto(type, operands[i]) : operands[i]->type->kind == TypeKind::integer ? type : nullptr;
    }
    if (type == nullptr) {
        fail(reader, "getelementptr with indices that its type doesn't have");
        return fallback;
    }
    return operands.size() == 1 ? operands[0]->type : pointerto(*reader.module, type);
}

Type *membertype(Reader &reader, Type *aggregate, const std::vector<std::uint32_t> &indices)
{
    Type *type = aggregate;
    for (const std::uint32_t index : indices) {
        const bool array = type->kind == TypeKind::array && index < type->count;
        const bool structure = type->kind == TypeKind::structure && index < membersof(type).size();
        if (!array && !structure) {
            fail(reader, "index of a member that the type doesn't have");
            return aggregate;
        }
        type = array ? type->sub : membersof(type)[index];
    }
    return type;
}

std::vector<std::uint32_t> readindices(Reader &reader)
{
    std::vector<std::uint32_t> indices;
    while (ispunct(reader, ',')) {
        const Lexer before = reader.lexer;
        next(reader);
        if (reader.lexer.token.kind == TokenKind::metadata) {
            goback(reader, before);  // attachments follow
            break;
        }
        const std::uint64_t index = readnumber(reader);
        if (index > UINT32_MAX) {
            fail(reader, "index of a member that the type doesn't have");
        }
        indices.push_back(static_cast<std::uint32_t>(index));
    }
    if (indices.empty()) {
        failunexpected(reader, "the index of a member");
    }
    return indices;
}

Op findop(std::string_view word)
{
    const auto found = opwords().find(word);
    return found == opwords().end() ? Op::none : found->second;
}

bool isbinary(Op op)
{
    return op >= Op::add && op <= Op::frem;
}

bool iscast(Op op)
{
    return op >= Op::trunc && op <= Op::addrspacecast;
}

Predicate readpredicate(Reader &reader, Op op)
{
    const Predicate first = op == Op::icmp ? Predicate::eq : Predicate::false_;
    const Predicate last = op == Op::icmp ? Predicate::sle : Predicate::true_;
    for (int i = static_cast<int>(first); i <= static_cast<int>(last); ++i) {
        if (takeword(reader, predicatename(static_cast<Predicate>(i)))) {
            return static_cast<Predicate>(i);
        }
    }
    failunexpected(reader, "a comparison");
    return first;
}

void checkbinary(Reader &reader, Op op, const Type *type)
{
    const bool floating = (op >= Op::fadd && op <= Op::frem) || op == Op::fcmp;
    const bool fits = floating                                            ? isfloating(type)
                      : op == Op::icmp && type->kind == TypeKind::pointer ? true
                                                                          : type->kind == TypeKind::integer;
    if (!fits) {
        fail(reader, std::string(opname(op)) + " of " + typetext(type));
    }
}

bool fitscast(Op op, const Type *from, const Type *to)
{
    const bool integers = from->kind == TypeKind::integer && to->kind == TypeKind::integer;
    const bool floats = isfloating(from) && isfloating(to);
    const bool pointers = from->kind == TypeKind::pointer && to->kind == TypeKind::pointer;
    switch (op) {
    case Op::trunc:
        return integers && from->bits > to->bits;
    case Op::zext:
    case Op::sext:
        return integers && from->bits < to->bits;
    case Op::fptrunc:
        return floats && from->kind == TypeKind::double_type && to->kind == TypeKind::float_type;
    case Op::fpext:
        return floats && from->kind == TypeKind::float_type && to->kind == TypeKind::double_type;
    case Op::fptosi:
    case Op::fptoui:
        return isfloating(from) && to->kind == TypeKind::integer;
    case Op::sitofp:
    case Op::uitofp:
        return from->kind == TypeKind::integer && isfloating(to);
    case Op::ptrtoint:
        return from->kind == TypeKind::pointer && to->kind == TypeKind::integer;
    case Op::inttoptr:
        return from->kind == TypeKind::integer && to->kind == TypeKind::pointer;
    case Op::bitcast: {
        const bool same_size =
            (from->kind == TypeKind::integer && to->kind == TypeKind::float_type && from->bits == 32) ||
            (from->kind == TypeKind::integer && to->kind == TypeKind::double_type && from->bits == 64) ||
            (to->kind == TypeKind::integer && from->kind == TypeKind::float_type && to->bits == 32) ||
            (to->kind == TypeKind::integer && from->kind == TypeKind::double_type && to->bits == 64);
        return pointers || same_size || (from == to && (integers || floats));
    }
    default:
        return pointers;
    }
}

void checkcast(Reader &reader, Op op, const Type *from, const Type *to)
{
    if (!reader.failed && !fitscast(op, from, to)) {
        fail(reader, std::string(opname(op)) + " from " + typetext(from) + " to " + typetext(to));
    }
}

void readflags(Reader &reader, bool &nuw, bool &nsw)
{
    for (;;) {
        if (takeword(reader, "nuw")) {
            nuw = true;
        } else if (takeword(reader, "nsw")) {
            nsw = true;
        } else if (!takeword(reader, "exact")) {
            return;
        }
    }
}

}  // namespace adapt
