// The right-hand sides of value lines, and the store: each becomes a tree in C shape. The signed and unsigned variants
// of an instruction differ in casts on its operands.

#include "reader/reader.h"

#include "base/base.h"

namespace {

struct InstForm;

Expr *castto(Type *type, Expr *operand)
{
    Expr *cast = newexpr(op::cast, type);
    cast->left = operand;
    return cast;
}

Expr *dereference(Expr *pointer, Type *type)
{
    Expr *expr = newexpr(op::dereference, type);
    expr->left = pointer;
    return expr;
}

// The operand of the address-of, whose node is dropped.
Expr *stripaddress(const Expr *address)
{
    Expr *thing = address->left;
    dropexpr(address);
    return thing;
}

// A cast of the address `term`, of the pointer type `type`, to a pointer to volatile.
Expr *volatileaddress(Expr *term, const Type *type)
{
    Type *pointer = newtype(kind::pointer, type->sub);
    pointer->qual = qual::volatile_;
    return castto(pointer, term);
}

// ---- Signedness -------------------------------------------------------------------------------------------------

// The kinds that differ in signedness alone come in pairs: 16 and 17, 32 and 33, 48 and 49, 64 and 65, 72 and 73.
bool hassignedness(std::uint8_t code)
{
    switch (code & ~1U) {
    case kind::signed_char:
    case kind::short_int:
    case kind::int16:
    case kind::int32:
    case kind::int64:
        return true;
    default:
        return false;
    }
}

void flipsign(Type *type)
{
    if (type && hassignedness(type->kind))
        type->kind ^= 1U;
}

// Gives an integer of up to 32 bits the signedness asked for, in place; 64 bits stay.
void setsign(Type *type, bool as_unsigned)
{
    if (type->kind < kind::int64 && isunsigned(type) != as_unsigned)
        flipsign(type);
}

void forceoperand(Ref<Expr> &operand, bool as_unsigned)
{
    if (isunsigned(operand->type) != as_unsigned)
        operand = forcesign(operand);
}

// ---- Memory -----------------------------------------------------------------------------------------------------

// A load of 24 bits reads the upper part of a 32-bit word.
Expr *widenload(Expr *load, Type *type)
{
    type->kind = kind::uint32;
    Expr *shift = newexpr(op::shift_right, type);
    shift->left = load;
    shift->right = newnumber("8");
    return shift;
}

// words type "," type pointer
Inst *readload(Inst *instruction, Block *block, const InstForm & /*form*/)
{
    const bool is_volatile = (readwords() & flag::volatile_) != 0;
    Type *type = readtype();
    if (!expect(token::comma, "missing , in load instruction"))
        return nullptr;
    Type *pointer = readtype();
    Expr *term = readterm(pointer, block);
    if (is_volatile)
        term = volatileaddress(term, pointer);
    term = term->op == op::address ? stripaddress(term) : dereference(term, nullptr);
    term->type = type;
    instruction->expr = type->kind == kind::int24 ? widenload(term, type) : term;
    return instruction;
}

// The local that a store's value operand names, null for anything else. The tokens are pushed back.
Name *storedlocal()
{
    Token percent;
    gettoken(percent);
    Token t = percent;
    if (percent.code == token::percent)
        gettoken(t);
    const bool named = t.code == token::identifier || t.code == token::number;
    Name *name = percent.code == token::percent && named ? intern(tokentext(t)) : nullptr;
    ungettoken(percent);
    return name;
}

// type ["," ["align" ...] | type count]
Inst *readalloca(Inst *instruction, Block *block, const InstForm & /*form*/)
{
    instruction->op = inst::local;
    instruction->expr = newexpr(op::leaf, readtype());
    if (!acceptif(token::comma))
        return instruction;
    Token t;
    gettoken(t);
    if (isword(t, "align"))
        return instruction;
    ungettoken(t);
    instruction->expr->left = readterm(nullptr, block);
    instruction->expr->op = op::dereference;
    need_flags |= need::dynamic_array;
    return instruction;
}

// ---- Forms ------------------------------------------------------------------------------------------------------

// How an instruction forces the signedness of its operands.
enum class Sign : std::uint8_t { asread, both_signed, both_unsigned, left_signed, left_unsigned };

// The word of an instruction, its reader, and the reader's parameters.
struct InstForm {
    std::string_view word;
    Inst *(*read)(Inst *instruction, Block *block, const InstForm &form);
    std::uint8_t op = 0;
    Sign sign = Sign::asread;
    const char *message = nullptr;  // where a comma or the word `to` is missing
};

// type left "," right; null after a report.
Inst *readoperands(Inst *instruction, Block *block, const InstForm &form)
{
    Type *type = readtype();
    Expr *tree = newexpr(form.op, type);
    tree->left = readterm(type, block);
    if (!expect(token::comma, form.message))
        return nullptr;
    tree->right = readterm(type, block);
    instruction->expr = tree;
    return instruction;
}

// {"nsw" | "nuw"} operands
Inst *readarithmetic(Inst *instruction, Block *block, const InstForm &form)
{
    constexpr std::uint16_t flag_length = 3;
    Token t;
    do
        gettoken(t);
    while (t.code == token::identifier && t.len == flag_length && t.text[0] == 'n');
    ungettoken(t);
    return readoperands(instruction, block, form);
}

// ["exact"] operands. The cast of the left operand flips a type record that the right one may share.
Inst *readdivision(Inst *instruction, Block *block, const InstForm &form)
{
    Token t;
    gettoken(t);
    if (!isword(t, "exact"))
        ungettoken(t);
    if (!readoperands(instruction, block, form))
        return nullptr;
    const bool as_unsigned = form.sign == Sign::both_unsigned || form.sign == Sign::left_unsigned;
    forceoperand(instruction->expr->left, as_unsigned);
    if (form.sign == Sign::both_signed || form.sign == Sign::both_unsigned)
        forceoperand(instruction->expr->right, as_unsigned);
    return instruction;
}

// type value "to" type: the inner cast sets the signedness of the operand.
Inst *readextension(Inst *instruction, Block *block, const InstForm &form)
{
    Type *source = readtype();
    setsign(source, form.sign == Sign::both_unsigned);
    Expr *inner = castto(source, readterm(source, block));
    if (!expectword("to", form.message))
        return nullptr;
    Type *target = readtype();
    instruction->expr = source->kind == kind::boolean ? inner->left : castto(target, inner);
    return instruction;
}

// type value "to" type
Inst *readconversion(Inst *instruction, Block *block, const InstForm &form)
{
    Expr *operand = readterm(nullptr, block);
    if (!expectword("to", form.message))
        return nullptr;
    Type *target = readtype();
    if (form.sign == Sign::both_unsigned)
        setsign(target, true);
    instruction->expr = castto(target, operand);
    return instruction;
}

// type value "to" type; a byte truncated to a bool stays as it is.
Inst *readtruncation(Inst *instruction, Block *block, const InstForm &form)
{
    Type *source = readtype();
    Expr *operand = readterm(source, block);
    if (!expectword("to", form.message))
        return nullptr;
    Type *target = readtype();
    const bool byte = source->kind == kind::signed_char || source->kind == kind::plain_char;
    instruction->expr = byte && target->kind == kind::boolean ? operand : castto(target, operand);
    return instruction;
}

// ---- Compares ---------------------------------------------------------------------------------------------------

struct Predicate {
    std::string_view word;
    std::uint8_t op;
    Sign sign;
};

constexpr Predicate int_predicates[] = {
    {"eq", op::equal, Sign::asread},           {"ne", op::not_equal, Sign::asread},
    {"ugt", op::greater, Sign::both_unsigned}, {"uge", op::greater_equal, Sign::both_unsigned},
    {"ult", op::less, Sign::both_unsigned},    {"ule", op::less_equal, Sign::both_unsigned},
    {"sgt", op::greater, Sign::both_signed},   {"sge", op::greater_equal, Sign::both_signed},
    {"slt", op::less, Sign::both_signed},      {"sle", op::less_equal, Sign::both_signed},
};

// Ordered and unordered compares are the same in C.
constexpr Predicate float_predicates[] = {
    {"oeq", op::equal, Sign::asread},         {"ueq", op::equal, Sign::asread},
    {"one", op::not_equal, Sign::asread},     {"une", op::not_equal, Sign::asread},
    {"ogt", op::greater, Sign::asread},       {"ugt", op::greater, Sign::asread},
    {"oge", op::greater_equal, Sign::asread}, {"uge", op::greater_equal, Sign::asread},
    {"olt", op::less, Sign::asread},          {"ult", op::less, Sign::asread},
    {"ole", op::less_equal, Sign::asread},    {"ule", op::less_equal, Sign::asread},
};

struct CompareMessages {
    const char *comma;
    const char *typed_comma;
    const char *typed_close;
};

constexpr CompareMessages int_messages = {
    "missing , in compare instruction",
    "missing , in (compare) instruction",
    "missing ) in (compare) instruction",
};

constexpr CompareMessages float_messages = {
    "missing , in fcompare instruction",
    "missing , in (fcompare) instruction",
    "missing ) in (fcompare) instruction",
};

// The predicate word; null after a report.
template <const auto &table>
const Predicate *readpredicate()
{
    Token t;
    gettoken(t);
    if (t.code != token::identifier) {
        report("invalid compare code");
        return nullptr;
    }
    const Predicate *predicate = findword<table>(t);
    if (!predicate)
        report("invalid compare operator");
    return predicate;
}

// type left "," right, or "(" type left "," type right ")" of a constant compare; null after a report.
Expr *readcompareoperands(std::uint8_t op, Block *block, const CompareMessages &messages)
{
    const bool typed = acceptif(token::left_paren);
    Type *type = typed ? nullptr : readtype();
    Expr *tree = newexpr(op, type);
    tree->left = readterm(type, block);
    if (!expect(token::comma, typed ? messages.typed_comma : messages.comma))
        return nullptr;
    tree->right = readterm(type, block);
    if (!typed)
        return tree;
    if (!expect(token::right_paren, messages.typed_close))
        return nullptr;
    tree->type = tree->left->type;
    return tree;
}

Inst *readintcompare(Inst *instruction, Block *block, const InstForm & /*form*/)
{
    const Predicate *predicate = readpredicate<int_predicates>();
    if (!predicate)
        return nullptr;
    Expr *tree = readcompareoperands(predicate->op, block, int_messages);
    if (!tree)
        return nullptr;
    instruction->expr = tree;
    if (iskind(tree->left->type, kind::pointer) || predicate->sign == Sign::asread)
        return instruction;
    const bool as_unsigned = predicate->sign == Sign::both_unsigned;
    forceoperand(tree->left, as_unsigned);
    forceoperand(tree->right, as_unsigned);
    return instruction;
}

Inst *readfloatcompare(Inst *instruction, Block *block, const InstForm & /*form*/)
{
    const Predicate *predicate = readpredicate<float_predicates>();
    if (!predicate)
        return nullptr;
    instruction->expr = readcompareoperands(predicate->op, block, float_messages);
    return instruction->expr ? instruction : nullptr;
}

// ---- Other forms ------------------------------------------------------------------------------------------------

Inst *readcallvalue(Inst *instruction, Block *block, const InstForm & /*form*/)
{
    return readcall(block, instruction);
}

Inst *readinvokevalue(Inst *instruction, Block *block, const InstForm & /*form*/)
{
    return readinvoke(block, instruction);
}

// type value "," index; further indices are ignored.
Inst *readextract(Inst *instruction, Block *block, const InstForm & /*form*/)
{
    Expr *tree = newexpr(op::field, nullptr);
    tree->left = readterm(nullptr, block);
    if (!expect(token::comma, "missing , in extractvalue"))
        return nullptr;
    Token t;
    gettoken(t);
    if (t.code != token::number) {
        report("invalid index in extractvalue");
        return nullptr;
    }
    if (!iskind(tree->left->type, kind::structure)) {
        report("unexpected type in extractvalue");
        return nullptr;
    }
    Symbol *member = memberat(tree->left->type, number(tokentext(t)));
    if (!member) {
        report("invalid index in extractvalue");
        return nullptr;
    }
    tree->right = newexpr(op::leaf, nullptr);
    tree->right->symbol = member;
    tree->type = member->type;
    instruction->expr = tree;
    return instruction;
}

// type condition "," type value "," type value
Inst *readselect(Inst *instruction, Block *block, const InstForm & /*form*/)
{
    constexpr const char *message = "missing , in select instruction";
    Expr *tree = newexpr(op::conditional, nullptr);
    tree->left = readterm(nullptr, block);
    if (!expect(token::comma, message))
        return nullptr;
    tree->middle = readterm(nullptr, block);
    note_initref(tree->middle);
    if (!expect(token::comma, message))
        return nullptr;
    tree->right = readterm(nullptr, block);
    note_initref(tree->right);
    tree->type = tree->middle->type;
    instruction->expr = tree;
    return instruction;
}

Inst *readphivalue(Inst *instruction, Block * /*block*/, const InstForm & /*form*/)
{
    return readphi(instruction);
}

// The clauses of a landing pad are on a line of their own.
Inst *readlandingpad(Inst *instruction, Block *block, const InstForm & /*form*/)
{
    instruction->op = inst::nothing;
    block->mark = mark::exception;
    nextline();
    return instruction;
}

Inst *dropinstruction(Inst * /*instruction*/, Block * /*block*/, const InstForm & /*form*/)
{
    return nullptr;
}

constexpr const char *int_arithmetic = "missing , in add/sub/mul instruction";
constexpr const char *bit_arithmetic = "missing , in and/or/xor instruction";  // float operations report it too
constexpr const char *division = "missing , in div/rem instruction";
constexpr const char *extension = "missing to in ext instruction";
constexpr const char *float_conversion = "missing to in int/fp instruction";
constexpr const char *pointer_conversion = "missing to in int/ptr instruction";
constexpr const char *truncation = "missing to in trunc instruction";

constexpr InstForm inst_forms[] = {
    {"load", readload},
    {"call", readcallvalue},
    {"alloca", readalloca},
    {"icmp", readintcompare},
    {"add", readarithmetic, op::add, Sign::asread, int_arithmetic},
    {"sub", readarithmetic, op::subtract, Sign::asread, int_arithmetic},
    {"mul", readarithmetic, op::multiply, Sign::asread, int_arithmetic},
    {"sext", readextension, op::cast, Sign::both_signed, extension},
    {"zext", readextension, op::cast, Sign::both_unsigned, extension},
    {"trunc", readtruncation, op::cast, Sign::asread, truncation},
    {"phi", readphivalue},
    {"fadd", readoperands, op::add, Sign::asread, bit_arithmetic},
    {"fsub", readoperands, op::subtract, Sign::asread, bit_arithmetic},
    {"fmul", readoperands, op::multiply, Sign::asread, bit_arithmetic},
    {"fdiv", readoperands, op::divide, Sign::asread, bit_arithmetic},
    {"and", readoperands, op::bit_and, Sign::asread, bit_arithmetic},
    {"or", readoperands, op::bit_or, Sign::asread, bit_arithmetic},
    {"xor", readoperands, op::bit_xor, Sign::asread, bit_arithmetic},
    {"shl", readoperands, op::shift_left, Sign::asread, bit_arithmetic},
    {"sdiv", readdivision, op::divide, Sign::both_signed, division},
    {"udiv", readdivision, op::divide, Sign::both_unsigned, division},
    {"srem", readdivision, op::remainder, Sign::both_signed, division},
    {"urem", readdivision, op::remainder, Sign::both_unsigned, division},
    {"ashr", readdivision, op::shift_right, Sign::left_signed, division},
    {"lshr", readdivision, op::shift_right, Sign::left_unsigned, division},
    {"fptosi", readconversion, op::cast, Sign::asread, float_conversion},
    {"fptoui", readconversion, op::cast, Sign::both_unsigned, float_conversion},
    {"sitofp", readconversion, op::cast, Sign::asread, float_conversion},
    {"uitofp", readconversion, op::cast, Sign::asread, float_conversion},
    {"ptrtoint", readconversion, op::cast, Sign::asread, pointer_conversion},
    {"inttoptr", readconversion, op::cast, Sign::asread, pointer_conversion},
    {"fcmp", readfloatcompare},
    {"invoke", readinvokevalue},
    {"select", readselect},
    {"extractvalue", readextract},
    {"landingpad", readlandingpad},
    {"insertvalue", dropinstruction},
};

// getelementptr and bitcast are terms without a type before them.
Inst *readtermvalue(Inst *instruction, Block *block, const Token &word)
{
    ungettoken(word);
    instruction->expr = readterm(newtype(kind::void_, nullptr), block);
    return instruction;
}

}  // namespace

Expr *forcesign(Expr *operand)
{
    Expr *cast = castto(operand->type, operand);
    flipsign(operand->type);
    return cast;
}

// words type value "," type pointer
Inst *readstore(Block *block)
{
    Expr *tree = newexpr(op::assign, nullptr);
    const bool is_volatile = (readwords() & flag::volatile_) != 0;
    Type *type = readtype();
    tree->value = storedlocal();
    tree->right = readterm(type, block);
    if (!expect(token::comma, "missing , in store"))
        return nullptr;
    Type *pointer = readtype();
    if (tree->right->op == op::cast && samescalar(tree->right->type, pointer->sub))
        tree->right = tree->right->left;
    tree->left = readterm(pointer, block);
    if (is_volatile)
        tree->left = volatileaddress(tree->left, pointer);
    if (tree->left->op == op::address)
        tree->left = stripaddress(tree->left);
    else
        tree->left = dereference(tree->left, subtype(tree->left->type));
    tree->type = tree->left->type;
    Inst *instruction = newinst();
    instruction->op = inst::statement;
    instruction->expr = tree;
    return instruction;
}

Inst *readinst(Name *name, Block *block)
{
    Token t;
    gettoken(t);
    if (t.code != token::identifier) {
        report("invalid operator name in instruction");
        return nullptr;
    }
    if (!skiptailmarker(t))
        return nullptr;
    Inst *instruction = newinst();
    instruction->name = name;
    if (isword(t, "getelementptr") || isword(t, "bitcast"))
        return readtermvalue(instruction, block, t);
    if (const InstForm *form = findword<inst_forms>(t))
        return form->read(instruction, block, *form);
    report("unimplemented operator %.*s", tokentext(t));
    return nullptr;
}
