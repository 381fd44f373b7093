// Trees of expressions as the instructions that quarl nests into the same trees.
//
// quarl prints an operator where an instruction stands, and C decides what it means: operands are promoted to int, and
// the sign of an operation is that of its operands' types. So each operand is known by its C value (Operand), and gets
// a cast where an operation takes it otherwise. Casts are said by instructions that quarl reads as such:
//
//     bitcast i16 %x to i16      (int )x              fptoui i16 %x to i16      (unsigned int )x
//     bitcast float 1.5 to float (float )1.5
#include "adapt/formprinter.h"
#include "adapt/printer.h"

#include <algorithm>
#include <cstdlib>

namespace adapt {

namespace {

enum class Need : std::uint8_t {
    bits,         // the low bits alone count
    as_signed,    // the signed value, of a signed type
    as_unsigned,  // the unsigned value
};

constexpr std::uint32_t bits_of_byte = 8;

std::uint32_t widthof(const Type *type)
{
    return type->kind == TypeKind::integer ? type->bits : 0;
}

std::uint32_t promoted(const BodyPrinter &printer, std::uint32_t bits)
{
    return std::max(printer.int_bits, bits);
}

// What reading an object of the type gives: char is unsigned, all others are signed.
Operand objectoperand(const BodyPrinter &printer, const Type *type, std::string text)
{
    Operand result;
    result.text = std::move(text);
    const std::uint32_t bits = widthof(type);
    result.bits = promoted(printer, bits);
    result.is_flag = bits == 1;
    result.is_unsigned = bits <= bits_of_byte;
    result.is_signed = bits != bits_of_byte;
    return result;
}

Operand defined(BodyPrinter &printer, const Type *type, const std::string &text)
{
    std::string name = newvalue(printer);
    printline(printer, name + " = " + text);
    return objectoperand(printer, type, std::move(name));
}

std::string typed(const Type *type, const Operand &operand)
{
    return typetext(type) + " " + operand.text;
}

// ---- Constants ----

// The bits of an integer constant of any kind, or null.
const std::uint64_t *constantnumber(const Value *value)
{
    static constexpr std::uint64_t zero = 0;
    switch (value->kind) {
    case ValueKind::integer:
        return &value->number;
    case ValueKind::undef:
    case ValueKind::zero:
        return &zero;
    default:
        return nullptr;
    }
}

// i8 with a sign, which C declares as signed char.
bool issignedparam(const Function &function, const Value *param)
{
    const std::size_t place = static_cast<std::size_t>(param->number) + 1;
    const std::vector<Attributes> &attributes = function.global->attributes;
    return place < attributes.size() && attributes[place].signext;
}

std::uint64_t maskof(std::uint32_t bits)
{
    return bits >= 64 ? ~std::uint64_t{0} : (std::uint64_t{1} << bits) - 1;
}

bool isintconstant(const Expr *expr)
{
    return expr->kind == ExprKind::constant && widthof(expr->type) > 0 && constantnumber(expr->value) != nullptr;
}

bool topbit(const Expr *expr)
{
    const std::uint32_t bits = widthof(expr->type);
    return ((*constantnumber(expr->value) >> (bits - 1)) & 1) != 0;
}

std::uint32_t literalbits(const BodyPrinter &printer, std::int64_t number)
{
    for (const std::uint32_t bits : {printer.int_bits, 32U}) {
        const std::int64_t limit = std::int64_t{1} << (bits - 1);
        if (number >= -limit + 1 && number < limit) {
            return bits;
        }
    }
    return 64;
}

Operand castto(BodyPrinter &printer, const Type *type, const Operand &operand)
{
    const std::string text = typetext(type);
    return defined(printer, type, "bitcast " + text + " " + operand.text + " to " + text);
}

Operand unsignedcast(BodyPrinter &printer, const Type *type, const Operand &operand)
{
    if (widthof(type) <= bits_of_byte) {
        return castto(printer, type, operand);
    }
    const std::string text = typetext(type);
    // quarl reads the other widths of an unsigned result here; a shift takes its operand as unsigned.
    Operand result = widthof(type) == 64
                         ? defined(printer, type, "lshr " + text + " " + operand.text + ", 0")
                         : defined(printer, type, "fptoui " + text + " " + operand.text + " to " + text);
    result.is_signed = false;
    result.is_unsigned = true;
    result.type_unsigned = widthof(type) >= printer.int_bits;
    return result;
}

std::int64_t signednumber(std::uint64_t number, std::uint32_t bits)
{
    if (bits == 0) {
        return 0;
    }
    const std::uint64_t top = std::uint64_t{1} << (bits - 1);
    return static_cast<std::int64_t>(((number & maskof(bits)) ^ top) - top);
}

// The constant with the value that is needed. The least number of a type has no literal of it in C.
Operand integerconstant(BodyPrinter &printer, const Type *type, std::uint64_t bits_set, Need need)
{
    const std::uint32_t bits = widthof(type);
    Operand result;
    if (bits == 1) {
        result.text = (bits_set & 1) != 0 ? "true" : "false";
        result.bits = printer.int_bits;
        result.is_unsigned = true;
        return result;
    }
    const std::int64_t number = signednumber(bits_set, bits);
    const bool narrow = bits < printer.int_bits;
    if (need == Need::as_unsigned && narrow) {
        result.text = std::to_string(bits_set & maskof(bits));
        result.is_unsigned = true;
        result.is_signed = number >= 0;
        result.bits = printer.int_bits;
        return result;
    }
    result.text = std::to_string(number);
    result.bits = literalbits(printer, number);
    result.is_unsigned = number >= 0;
    if (!narrow && need != Need::bits && number < 0 &&
        static_cast<std::uint64_t>(number) << (64 - bits) == std::uint64_t{1} << 63) {
        result = castto(printer, type, result);
    }
    return need == Need::as_unsigned && number < 0 ? unsignedcast(printer, type, result) : result;
}

Operand constantoperand(BodyPrinter &printer, const Expr *expr, Need need)
{
    if (isintconstant(expr)) {
        return integerconstant(printer, expr->type, *constantnumber(expr->value), need);
    }
    Operand result = objectoperand(printer, expr->type, constanttext(expr->value));
    return result;
}

// ---- Operands as they are needed ----

Operand adjust(BodyPrinter &printer, const Type *type, Operand operand, Need need)
{
    switch (need) {
    case Need::as_signed:
        return operand.is_signed && !operand.type_unsigned ? operand : castto(printer, type, operand);
    case Need::as_unsigned:
        return operand.is_unsigned ? operand : unsignedcast(printer, type, operand);
    case Need::bits:
        break;
    }
    return operand;
}

Operand printneeded(BodyPrinter &printer, const Expr *expr, Need need)
{
    if (isintconstant(expr)) {
        return constantoperand(printer, expr, need);
    }
    Operand operand = printexpr(printer, expr);
    if (operand.is_assigned && need != Need::bits) {
        operand = castto(printer, expr->type, operand);
    }
    return adjust(printer, expr->type, operand, need);
}

// A condition as `c ? 1 : 0`.
Operand chosenflag(BodyPrinter &printer, const Type *type, const Operand &condition)
{
    const std::string text = typetext(type);
    Operand result = defined(printer, type, "select i1 " + condition.text + ", " + text + " 1, " + text + " 0");
    result.is_signed = true;
    result.is_unsigned = true;
    result.is_flag = false;
    result.bits = printer.int_bits;
    return result;
}

// An operand whose type in C has the width that the operation needs.
Operand widened(BodyPrinter &printer, const Type *type, Operand operand)
{
    if (operand.bits >= widthof(type)) {
        return operand;
    }
    return castto(printer, type, operand.is_flag ? chosenflag(printer, type, operand) : operand);
}

// An assignment as a value has the type of an address for quarl. A comparison as a number: quarl would change the sign
// of the comparison itself.
Operand unflagged(BodyPrinter &printer, const Type *type, const Operand &operand)
{
    if (operand.is_assigned) {
        return castto(printer, type, operand);
    }
    return operand.is_flag && widthof(type) > 1 ? chosenflag(printer, type, operand) : operand;
}

// A comparison of 64 bits, which quarl takes for a value of 64 bits where it is converted.
bool compareswide(const Expr *expr)
{
    return expr->kind == ExprKind::operation && expr->op == Op::icmp && widthof(expr->operands[0]->type) == 64;
}

// ---- Arithmetic ----

std::string binarytext(Op op, const Type *type, const Operand &left, const Operand &right)
{
    return std::string(opname(op)) + " " + typetext(type) + " " + left.text + ", " + right.text;
}

// The result of an operation that C does in the wider of its operands' types.
Operand arithmeticresult(BodyPrinter &printer, const Type *type, const Operand &left, const Operand &right,
                         const std::string &text)
{
    Operand result = defined(printer, type, text);
    result.is_flag = false;
    result.bits = std::max({left.bits, right.bits, printer.int_bits});
    result.type_unsigned =
        (left.type_unsigned && left.bits == result.bits) || (right.type_unsigned && right.bits == result.bits);
    const bool exact = result.bits == widthof(type);
    result.is_signed = exact && !result.type_unsigned;
    result.is_unsigned = exact && result.type_unsigned;
    return result;
}

Operand printsum(BodyPrinter &printer, const Expr *expr)
{
    const Type *type = expr->type;
    Operand left = printneeded(printer, expr->operands[0], Need::bits);
    Operand right = printneeded(printer, expr->operands[1], Need::bits);
    if (left.bits < widthof(type) && right.bits < widthof(type)) {
        (isintconstant(expr->operands[0]) ? right : left) =
            castto(printer, type, isintconstant(expr->operands[0]) ? right : left);
    }
    return arithmeticresult(printer, type, left, right, binarytext(expr->op, type, left, right));
}

// and, or, xor: operands with one sign give a result with it.
Operand printbits(BodyPrinter &printer, const Expr *expr)
{
    const Type *type = expr->type;
    const Expr *first = expr->operands[0];
    const Expr *second = expr->operands[1];
    Operand left = printneeded(printer, first, Need::bits);
    const bool complement = expr->op == Op::xor_ && isintconstant(second) &&
                            signednumber(*constantnumber(second->value), widthof(type)) == -1;
    const bool as_unsigned = !complement && left.is_unsigned && !left.is_signed;
    Operand right = isintconstant(second)
                        ? constantoperand(printer, second, as_unsigned ? Need::as_unsigned : Need::bits)
                        : printexpr(printer, second);
    if (widthof(type) == 1) {
        left = compareswide(first) ? chosenflag(printer, type, left) : left;
        right = compareswide(second) ? chosenflag(printer, type, right) : right;
        Operand flag = defined(printer, type, binarytext(expr->op, type, left, right));
        flag.is_flag = false;
        flag.is_unsigned = true;
        return flag;
    }
    if (left.bits < widthof(type) && right.bits < widthof(type)) {
        left = castto(printer, type, left);
    }
    Operand result = arithmeticresult(printer, type, left, right, binarytext(expr->op, type, left, right));
    const bool exact = result.bits == widthof(type);
    if (!exact) {
        result.is_signed = left.is_signed && right.is_signed;
        result.is_unsigned = left.is_unsigned && right.is_unsigned && !complement;
    }
    if (expr->op == Op::and_ && isintconstant(second) && !topbit(second)) {
        result.is_unsigned = true;
        result.is_signed = true;
    }
    return result;
}

Operand printshift(BodyPrinter &printer, const Expr *expr)
{
    const Type *type = expr->type;
    Need need = Need::bits;
    if (expr->op != Op::shl) {
        need = expr->op == Op::lshr ? Need::as_unsigned : Need::as_signed;
    }
    const bool narrow = widthof(type) <= bits_of_byte;
    // quarl casts the left operand to the sign that it needs, from i16 on; char is unsigned by itself.
    const bool by_quarl = expr->op == Op::lshr ? !narrow : narrow && expr->op == Op::ashr;
    Operand left =
        printneeded(printer, expr->operands[0], by_quarl && !isintconstant(expr->operands[0]) ? Need::bits : need);
    left = unflagged(printer, type, widened(printer, type, left));
    Operand right = printexpr(printer, expr->operands[1]);
    if (!right.is_signed && !right.is_unsigned) {
        right = unsignedcast(printer, type, right);
    }
    if (expr->op == Op::lshr && by_quarl) {
        left.type_unsigned = widthof(type) >= printer.int_bits;
        left.bits = promoted(printer, widthof(type));
    }
    Operand none;
    Operand result = arithmeticresult(printer, type, left, none, binarytext(expr->op, type, left, right));
    if (expr->op == Op::lshr) {
        result.is_unsigned = true;
        result.is_signed = false;
    } else if (expr->op == Op::ashr) {
        result.is_signed = true;
        result.is_unsigned = false;
    }
    return result;
}

Operand printdivision(BodyPrinter &printer, const Expr *expr)
{
    const Type *type = expr->type;
    const bool is_unsigned = expr->op == Op::udiv || expr->op == Op::urem;
    const bool narrow = widthof(type) <= bits_of_byte;
    const bool by_quarl = is_unsigned ? !narrow : narrow;
    Operand operands[2];
    for (std::size_t place = 0; place < 2; ++place) {
        const Expr *part = expr->operands[place];
        // A constant shares its type with the operation: quarl's change of sign would reach both.
        const bool plain = isintconstant(part) ? place == 1 && !topbit(part) && !narrow : by_quarl;
        const Need need = is_unsigned ? Need::as_unsigned : Need::as_signed;
        operands[place] = unflagged(printer, type, printneeded(printer, part, plain ? Need::bits : need));
        if (isintconstant(part) && place == 0 && is_unsigned && !narrow && !operands[place].type_unsigned) {
            operands[place] = unsignedcast(printer, type, operands[place]);
        }
        if (is_unsigned && !narrow) {
            operands[place].type_unsigned = widthof(type) >= printer.int_bits;
            operands[place].bits = promoted(printer, widthof(type));
        }
    }
    if (operands[0].bits < widthof(type) && operands[1].bits < widthof(type)) {
        operands[0] = castto(printer, type, operands[0]);
    }
    Operand result =
        arithmeticresult(printer, type, operands[0], operands[1], binarytext(expr->op, type, operands[0], operands[1]));
    result.is_unsigned = is_unsigned;
    result.is_signed = !is_unsigned;
    return result;
}

// ---- Floating point ----

bool isfloatconstant(const Expr *expr)
{
    return expr->kind == ExprKind::constant && isfloating(expr->type);
}

// A literal is a double in C: it takes a cast to keep an operation in float, and to round as float does.
Operand printfloat(BodyPrinter &printer, const Expr *expr)
{
    Operand result = printexpr(printer, expr);
    const bool single = expr->type->kind == TypeKind::float_type;
    const bool composed = result.text.find('-', 1) != std::string::npos && result.text.find("e9") != std::string::npos;
    return isfloatconstant(expr) && (single || composed) ? castto(printer, expr->type, result) : result;
}

bool isexactliteral(const Operand &operand)
{
    const double value = std::strtod(operand.text.c_str(), nullptr);
    return static_cast<double>(static_cast<float>(value)) == value && operand.text.find("e9") == std::string::npos;
}

Operand printcompared(BodyPrinter &printer, const Expr *expr)
{
    if (isfloatconstant(expr) && expr->type->kind == TypeKind::float_type) {
        Operand result = printexpr(printer, expr);
        return isexactliteral(result) ? result : castto(printer, expr->type, result);
    }
    return printfloat(printer, expr);
}

Operand flag(BodyPrinter &printer, const std::string &text)
{
    Operand result = defined(printer, inttype(printer.module, 1), text);
    result.is_unsigned = true;
    return result;
}

struct FloatCompare {
    std::string_view word;  // the comparison that C has
    Predicate predicate;
    bool negated;
};

constexpr FloatCompare float_compares[] = {
    {"oeq", Predicate::oeq, false},  {"une", Predicate::une, false},  {"ogt", Predicate::ogt, false},
    {"oge", Predicate::oge, false},  {"olt", Predicate::olt, false},  {"ole", Predicate::ole, false},
    {"ole", Predicate::ugt_f, true}, {"olt", Predicate::uge_f, true}, {"oge", Predicate::ult_f, true},
    {"ogt", Predicate::ule_f, true},
};

Operand negatedflag(BodyPrinter &printer, const Operand &operand)
{
    return flag(printer, "icmp eq i1 " + operand.text + ", false");
}

// one: a < b or a > b; ueq is the opposite. ord: both equal themselves; uno is the opposite.
Operand printpaircompare(BodyPrinter &printer, const Expr *expr)
{
    const bool order = expr->predicate == Predicate::ord || expr->predicate == Predicate::uno;
    const Expr *left = expr->operands[0];
    const Expr *right = expr->operands[1];
    const std::string type = typetext(left->type);
    const auto compare = [&](std::string_view word, const Expr *a, const Expr *b) {
        const Operand first = printcompared(printer, a);
        const Operand second = printcompared(printer, b);
        return flag(printer, "fcmp " + std::string(word) + " " + type + " " + first.text + ", " + second.text);
    };
    if (order) {
        const std::string_view word = expr->predicate == Predicate::ord ? "oeq" : "une";
        if (isfloatconstant(right)) {
            return compare(word, left, left);
        }
        if (isfloatconstant(left)) {
            return compare(word, right, right);
        }
        const Operand first = compare(word, left, left);
        const Operand second = compare(word, right, right);
        return flag(printer,
                    (expr->predicate == Predicate::ord ? "and i1 " : "or i1 ") + first.text + ", " + second.text);
    }
    const Operand below = compare("olt", left, right);
    const Operand above = compare("ogt", left, right);
    const Operand differs = flag(printer, "or i1 " + below.text + ", " + above.text);
    return expr->predicate == Predicate::ueq ? negatedflag(printer, differs) : differs;
}

Operand printfcmp(BodyPrinter &printer, const Expr *expr)
{
    for (const FloatCompare &row : float_compares) {
        if (row.predicate == expr->predicate) {
            const Operand left = printcompared(printer, expr->operands[0]);
            const Operand right = printcompared(printer, expr->operands[1]);
            const Operand result =
                flag(printer, "fcmp " + std::string(row.word) + " " + typetext(expr->operands[0]->type) + " " +
                                  left.text + ", " + right.text);
            return row.negated ? negatedflag(printer, result) : result;
        }
    }
    return printpaircompare(printer, expr);
}

Operand printfloatbinary(BodyPrinter &printer, const Expr *expr)
{
    const Operand left = printfloat(printer, expr->operands[0]);
    const Operand right = printfloat(printer, expr->operands[1]);
    return defined(printer, expr->type, binarytext(expr->op, expr->type, left, right));
}

// ---- Comparisons ----

bool issigned(Predicate predicate)
{
    return predicate >= Predicate::sgt && predicate <= Predicate::sle;
}

// eq and ne: both operands as C compares them, by value.
void matchsigns(BodyPrinter &printer, const Expr *expr, Operand &left, Operand &right)
{
    const Type *type = expr->operands[0]->type;
    const std::uint32_t bits = widthof(type);
    const bool plain = bits >= printer.int_bits && left.bits <= bits && right.bits <= bits;
    if (plain || (left.is_signed && right.is_signed && !left.type_unsigned && !right.type_unsigned) ||
        (left.is_unsigned && right.is_unsigned)) {
        return;
    }
    const Need need =
        bits <= bits_of_byte || left.is_unsigned || right.is_unsigned ? Need::as_unsigned : Need::as_signed;
    left = adjust(printer, type, left, need);
    right = isintconstant(expr->operands[1]) ? constantoperand(printer, expr->operands[1], need)
                                             : adjust(printer, type, right, need);
}

// An operand of < and the like. Where quarl makes no cast, an assignment needs none for it.
Operand comparand(BodyPrinter &printer, const Expr *expr, Need need, bool by_quarl)
{
    if (expr->kind == ExprKind::assign && !by_quarl) {
        const Operand operand = printexpr(printer, expr);
        return operand.is_signed ? operand : castto(printer, expr->type, operand);
    }
    return unflagged(printer, expr->type, printneeded(printer, expr, need));
}

Operand printicmp(BodyPrinter &printer, const Expr *expr)
{
    const Expr *first = expr->operands[0];
    const Expr *second = expr->operands[1];
    const Type *type = first->type;
    const bool narrow = widthof(type) <= bits_of_byte;
    Operand left;
    Operand right;
    if (widthof(type) == 0) {
        left = printexpr(printer, first);
        right = printexpr(printer, second);
    } else if (expr->predicate == Predicate::eq || expr->predicate == Predicate::ne) {
        left = printneeded(printer, first, Need::bits);
        right = printneeded(printer, second, Need::bits);
        matchsigns(printer, expr, left, right);
    } else {
        const bool is_signed = issigned(expr->predicate);
        const bool by_quarl = is_signed ? narrow : !narrow;
        const Need need = is_signed ? Need::as_signed : Need::as_unsigned;
        left = comparand(printer, first, by_quarl ? Need::bits : need, by_quarl);
        right = comparand(printer, second, by_quarl ? Need::bits : need, by_quarl);
    }
    return flag(printer, "icmp " + std::string(predicatename(expr->predicate)) + " " + typetext(type) + " " +
                             left.text + ", " + right.text);
}

// ---- Conversions ----

std::string casttext(std::string_view word, const Type *from, const Operand &operand, const Type *to)
{
    return std::string(word) + " " + typetext(from) + " " + operand.text + " to " + typetext(to);
}

Operand printsext(BodyPrinter &printer, const Expr *expr)
{
    const Expr *part = expr->operands[0];
    const Operand operand = printneeded(printer, part, Need::bits);
    if (widthof(part->type) > 1) {
        Operand result = defined(printer, expr->type, casttext("sext", part->type, operand, expr->type));
        result.is_signed = true;
        result.is_unsigned = false;
        return result;
    }
    const std::string type = typetext(expr->type);
    Operand result = defined(printer, expr->type, "select i1 " + operand.text + ", " + type + " -1, " + type + " 0");
    result.is_signed = true;
    result.is_unsigned = false;
    result.bits = printer.int_bits;
    return result;
}

Operand printzext(BodyPrinter &printer, const Expr *expr)
{
    const Expr *part = expr->operands[0];
    const Operand operand = printneeded(printer, part, Need::bits);
    if (widthof(part->type) == 1 && widthof(expr->type) == 64 && printer.module.emulate64) {
        Type *word = inttype(printer.module, 16);
        return defined(printer, expr->type, casttext("sext", word, chosenflag(printer, word, operand), expr->type));
    }
    if (widthof(part->type) == 1 && compareswide(part)) {
        return chosenflag(printer, expr->type, operand);
    }
    Operand result = defined(printer, expr->type, casttext("zext", part->type, operand, expr->type));
    result.is_signed = true;
    result.is_unsigned = true;
    if (widthof(part->type) == 1) {
        result.bits = printer.int_bits;
        result.is_flag = true;
    }
    return result;
}

// True if the value is known to be 0 or 1.
bool isboolean(const Expr *expr)
{
    if (expr->kind != ExprKind::operation) {
        return false;
    }
    if (expr->op == Op::and_) {
        return isintconstant(expr->operands[1]) && *constantnumber(expr->operands[1]->value) == 1;
    }
    return (expr->op == Op::load && isinteger(expr->type, bits_of_byte)) ||
           (expr->op == Op::zext && isinteger(expr->operands[0]->type, 1));
}

Operand printtrunc(BodyPrinter &printer, const Expr *expr)
{
    const Expr *part = expr->operands[0];
    const Operand operand = printneeded(printer, part, Need::bits);
    if (printer.module.emulate64 && widthof(part->type) == 64 && widthof(expr->type) > 1) {
        // quarl leaves out a cast within a cast to the same type, and would leave out the low half with it.
        Type *half = inttype(printer.module, 32);
        const Operand low =
            unsignedcast(printer, half, defined(printer, half, casttext("trunc", part->type, operand, half)));
        return widthof(expr->type) == 32 ? low : defined(printer, expr->type, casttext("trunc", half, low, expr->type));
    }
    if (widthof(expr->type) > 1) {
        return defined(printer, expr->type, casttext("trunc", part->type, operand, expr->type));
    }
    if (isboolean(part) && isinteger(part->type, bits_of_byte)) {
        return flag(printer, casttext("trunc", part->type, operand, expr->type));
    }
    const std::string type = typetext(part->type);
    const Operand low =
        isboolean(part) ? operand : defined(printer, part->type, "and " + type + " " + operand.text + ", 1");
    return flag(printer, "icmp ne " + type + " " + low.text + ", 0");
}

Operand printtofloat(BodyPrinter &printer, const Expr *expr)
{
    const Expr *part = expr->operands[0];
    const std::uint32_t bits = widthof(part->type);
    if (bits == 1) {
        const Operand operand = printexpr(printer, part);
        return defined(printer, expr->type, casttext("sitofp", part->type, operand, expr->type));
    }
    if (expr->op == Op::uitofp) {
        Operand operand = printneeded(printer, part, Need::as_unsigned);
        return defined(printer, expr->type, casttext("sitofp", part->type, operand, expr->type));
    }
    Operand operand = printneeded(printer, part, bits <= bits_of_byte ? Need::bits : Need::as_signed);
    Type *type = part->type;
    if (bits <= bits_of_byte) {
        Type *word = inttype(printer.module, 16);
        operand = defined(printer, word, casttext("sext", type, operand, word));
        type = word;
    }
    return defined(printer, expr->type, casttext("sitofp", type, operand, expr->type));
}

Operand printfromfloat(BodyPrinter &printer, const Expr *expr)
{
    const Expr *part = expr->operands[0];
    const Operand operand = printexpr(printer, part);
    if (expr->op == Op::fptosi && widthof(expr->type) <= bits_of_byte) {
        Type *word = inttype(printer.module, 16);
        const Operand wide = defined(printer, word, casttext("fptosi", part->type, operand, word));
        return defined(printer, expr->type, casttext("trunc", word, wide, expr->type));
    }
    Operand result = defined(printer, expr->type, casttext(opname(expr->op), part->type, operand, expr->type));
    if (expr->op == Op::fptoui && widthof(expr->type) > bits_of_byte) {
        result.is_unsigned = true;
        result.is_signed = false;
        result.type_unsigned = widthof(expr->type) >= printer.int_bits;
    }
    return result;
}

Operand printcast(BodyPrinter &printer, const Expr *expr)
{
    const Expr *part = expr->operands[0];
    const bool number = expr->op == Op::fpext || expr->op == Op::fptrunc;
    const Operand operand = printexpr(printer, part);
    return defined(printer, expr->type,
                   casttext(number ? "bitcast" : opname(expr->op), part->type, operand, expr->type));
}

// ---- Memory ----

Operand printload(BodyPrinter &printer, const Expr *expr)
{
    const Operand address = printexpr(printer, expr->operands[0]);
    const std::string type = typetext(expr->type);
    Operand result =
        defined(printer, expr->type,
                std::string(expr->is_volatile ? "load volatile " : "load ") + type + ", " + type + "* " + address.text);
    const Expr *place = expr->operands[0];
    if (place->kind == ExprKind::address && place->variable->param != nullptr && isinteger(expr->type, bits_of_byte) &&
        issignedparam(*printer.tree.function, place->variable->param)) {
        result.is_signed = true;
        result.is_unsigned = false;
    }
    return result;
}

// quarl writes `->` after these without the parentheses that C needs.
bool bindsloosely(const Expr *pointer)
{
    if (pointer->kind == ExprKind::choice || pointer->kind == ExprKind::assign) {
        return true;
    }
    if (pointer->kind != ExprKind::operation || pointer->op != Op::load) {
        return false;
    }
    const Expr *address = pointer->operands[0];
    const bool named = address->kind == ExprKind::address || address->kind == ExprKind::constant;
    return pointer->is_volatile || (!named && address->op != Op::getelementptr);
}

Operand printgep(BodyPrinter &printer, const Expr *expr)
{
    std::string text = "getelementptr inbounds " + typetext(expr->value->element);
    for (std::size_t place = 0; place < expr->operands.size(); ++place) {
        const Expr *part = expr->operands[place];
        Operand operand = place == 0 ? printexpr(printer, part) : printneeded(printer, part, Need::bits);
        const bool member = expr->operands.size() > 2 && expr->value->element->kind == TypeKind::structure;
        if (place == 0 && member && bindsloosely(part)) {
            operand = castto(printer, part->type, operand);
        }
        if (place > 0 && !operand.is_signed && !operand.type_unsigned) {
            operand = castto(printer, part->type, operand);
        }
        text += ", " + typed(part->type, operand);
    }
    return defined(printer, expr->type, text);
}

// The old value, and `x = x + 1` by the name that makes quarl write a step of it.
Operand printstep(BodyPrinter &printer, const Expr *expr)
{
    const Expr *place = expr->operands[0];
    const Operand target = printexpr(printer, place);
    const Operand source = printexpr(printer, place);
    const std::string type = typetext(expr->type);
    Operand old = defined(printer, expr->type, "load " + type + ", " + type + "* " + source.text);
    const std::string number = expr->negative ? "-1" : "1";
    std::string name;
    if (expr->op == Op::getelementptr) {
        name = "%incdec.ptr." + std::to_string(printer.next_step++);
        printline(printer, name + " = getelementptr inbounds " + typetext(expr->value->element) + ", " + type + " " +
                               old.text + ", " + typetext(operand(expr->value, 1)->type) + " " + number);
    } else {
        name = (expr->negative ? "%dec." : "%inc.") + std::to_string(printer.next_step++);
        printline(printer, name + " = add " + type + " " + old.text + ", " + number);
    }
    printline(printer, "store " + type + " " + name + ", " + type + "* " + target.text);
    return old;
}

Operand printassign(BodyPrinter &printer, const Expr *expr)
{
    const Operand value = printexpr(printer, expr->operands[1]);
    const Operand address = printexpr(printer, expr->operands[0]);
    const std::string type = typetext(expr->type);
    printline(printer, "store " + type + " " + value.text + ", " + type + "* " + address.text);
    Operand result = objectoperand(printer, expr->type, value.text);
    result.is_assigned = true;
    return result;
}

// ---- Calls ----

// An argument without a parameter: C passes it with the type that it has.
Operand printfree(BodyPrinter &printer, const Expr *expr)
{
    const std::uint32_t bits = widthof(expr->type);
    if (bits > 0) {
        Operand operand = printneeded(printer, expr, Need::bits);
        const bool right = operand.bits == promoted(printer, bits) && (operand.is_signed || operand.is_unsigned);
        return right ? operand : castto(printer, expr->type, operand);
    }
    Operand operand = printexpr(printer, expr);
    if (expr->kind == ExprKind::constant && expr->value->kind == ValueKind::null) {
        operand = defined(printer, expr->type, "inttoptr i16 0 to " + typetext(expr->type));
    }
    return operand;
}

std::string assemblertext(const Value *assembler)
{
    std::string text = "asm sideeffect \"";
    for (const char c : assembler->text) {
        constexpr char digits[] = "0123456789ABCDEF";
        const auto byte = static_cast<unsigned char>(c);
        if (byte < ' ' || byte > '~' || c == '"' || c == '\\') {
            text += '\\';
            text += digits[byte >> 4];
            text += digits[byte & 15];
        } else {
            text += c;
        }
    }
    return text + "\", \"\"";
}

Operand printcall(BodyPrinter &printer, const Expr *expr)
{
    const Type *function = expr->value->element;
    const Expr *callee = expr->operands[0];
    std::string arguments;
    const bool assembler = callee->kind == ExprKind::constant && callee->value->kind == ValueKind::assembler;
    std::string target = assembler ? assemblertext(callee->value) : printexpr(printer, callee).text;
    for (std::size_t place = 1; place < expr->operands.size(); ++place) {
        const Expr *part = expr->operands[place];
        const bool fixed = place - 1 < function->members.size();
        const Operand operand = fixed ? printneeded(printer, part, Need::bits) : printfree(printer, part);
        arguments += (place == 1 ? "" : ", ") + typed(part->type, operand);
    }
    const std::string type = typetext(function->variadic ? function : expr->type);
    const std::string text = "call " + type + " " + target + "(" + arguments + ")";
    if (expr->type->kind == TypeKind::void_type) {
        printline(printer, text);
        return {};
    }
    return defined(printer, expr->type, text);
}

// ---- Choices ----

Operand printarm(BodyPrinter &printer, const Expr *expr, Need need)
{
    return isfloating(expr->type) ? printfloat(printer, expr) : printneeded(printer, expr, need);
}

Operand printchoice(BodyPrinter &printer, const Expr *expr)
{
    const bool before = printer.no_chains;
    printer.no_chains = true;
    const Operand condition = printexpr(printer, expr->operands[0]);
    // quarl takes the type of the first arm for that of the choice. The cast stands before the other arm, whose
    // assignments would part it from its operand.
    Operand yes = printarm(printer, expr->operands[1], Need::bits);
    yes = widthof(expr->type) > 1 ? unflagged(printer, expr->type, yes) : yes;
    Operand no = printarm(printer, expr->operands[2], Need::bits);
    printer.no_chains = before;
    const std::uint32_t bits = widthof(expr->type);
    yes = compareswide(expr->operands[1]) ? chosenflag(printer, expr->type, yes) : yes;
    no = compareswide(expr->operands[2]) ? chosenflag(printer, expr->type, no) : no;
    if (bits > 1) {
        const Need need = yes.is_unsigned && no.is_unsigned ? Need::bits : Need::as_unsigned;
        if (bits <= bits_of_byte && (isintconstant(expr->operands[1]) || isintconstant(expr->operands[2]))) {
            yes = isintconstant(expr->operands[1]) ? constantoperand(printer, expr->operands[1], need) : yes;
            no = isintconstant(expr->operands[2]) ? constantoperand(printer, expr->operands[2], need) : no;
        }
    }
    Operand result = defined(printer, expr->type,
                             "select i1 " + condition.text + ", " + typed(expr->operands[1]->type, yes) + ", " +
                                 typed(expr->operands[2]->type, no));
    if (bits > 1) {
        result.bits = std::max(yes.bits, no.bits);
        result.type_unsigned =
            (yes.type_unsigned && yes.bits == result.bits) || (no.type_unsigned && no.bits == result.bits);
        result.is_signed = yes.is_signed && no.is_signed && !result.type_unsigned;
        result.is_unsigned = (yes.is_unsigned && no.is_unsigned) || (result.type_unsigned && result.bits == bits);
    }
    result.is_flag = false;
    return result;
}

// a && b as `a ? b : 0`, a || b as `a ? 1 : b`.
Operand printlogical(BodyPrinter &printer, const Expr *expr)
{
    if (!printer.no_chains) {
        return printchain(printer, expr);
    }
    const bool all = expr->kind == ExprKind::logical_and;
    std::vector<Operand> terms;
    for (const Expr *term : expr->operands) {
        if (term->kind == ExprKind::comma) {
            refuse(*printer.tree.function, nullptr, "condition with statements inside of an expression");
        }
        const Operand condition = printexpr(printer, term);
        terms.push_back(compareswide(term) ? chosenflag(printer, term->type, condition) : condition);
    }
    Operand result = terms.back();
    for (std::size_t place = terms.size() - 1; place-- > 0;) {
        result = flag(printer, "select i1 " + terms[place].text + ", i1 " + (all ? result.text : "true") + ", i1 " +
                                   (all ? "false" : result.text));
    }
    return result;
}

// ---- Operations by their code ----

using Print = Operand (*)(BodyPrinter &printer, const Expr *expr);

Operand printfneg(BodyPrinter &printer, const Expr *expr)
{
    const Operand operand = printfloat(printer, expr->operands[0]);
    return defined(printer, expr->type, "fsub " + typetext(expr->type) + " 0, " + operand.text);
}

struct Row {
    Op op;
    Print print;
};

constexpr Row rows[] = {
    {Op::load, printload},        {Op::getelementptr, printgep}, {Op::call, printcall},
    {Op::icmp, printicmp},        {Op::add, printsum},           {Op::sub, printsum},
    {Op::mul, printsum},          {Op::and_, printbits},         {Op::or_, printbits},
    {Op::xor_, printbits},        {Op::shl, printshift},         {Op::lshr, printshift},
    {Op::ashr, printshift},       {Op::udiv, printdivision},     {Op::sdiv, printdivision},
    {Op::urem, printdivision},    {Op::srem, printdivision},     {Op::zext, printzext},
    {Op::sext, printsext},        {Op::trunc, printtrunc},       {Op::fadd, printfloatbinary},
    {Op::fsub, printfloatbinary}, {Op::fmul, printfloatbinary},  {Op::fdiv, printfloatbinary},
    {Op::fneg, printfneg},        {Op::fcmp, printfcmp},         {Op::sitofp, printtofloat},
    {Op::uitofp, printtofloat},   {Op::fptosi, printfromfloat},  {Op::fptoui, printfromfloat},
    {Op::fpext, printcast},       {Op::fptrunc, printcast},      {Op::bitcast, printcast},
    {Op::ptrtoint, printcast},    {Op::inttoptr, printcast},
};

Operand printoperation(BodyPrinter &printer, const Expr *expr)
{
    for (const Row &row : rows) {
        if (row.op == expr->op) {
            return row.print(printer, expr);
        }
    }
    refuse(*printer.tree.function, expr->value, "instruction '" + std::string(opname(expr->op)) + "'");
    return {};
}

}  // namespace

std::string newvalue(BodyPrinter &printer)
{
    return "%" + std::to_string(printer.next_value++);
}

void printline(BodyPrinter &printer, const std::string &text)
{
    printer.out += "  ";
    printer.out += text;
    printer.out += '\n';
}

std::string slotname(const Variable *variable)
{
    return "%" + variable->name + (variable->param != nullptr ? ".addr" : "");
}

Operand printexpr(BodyPrinter &printer, const Expr *expr)
{
    switch (expr->kind) {
    case ExprKind::constant:
        return constantoperand(printer, expr, Need::bits);
    case ExprKind::address: {
        Operand result;
        expr->variable->used = true;
        result.text = slotname(expr->variable);
        return result;
    }
    case ExprKind::operation:
        return printoperation(printer, expr);
    case ExprKind::post_step:
        return printstep(printer, expr);
    case ExprKind::assign:
        return printassign(printer, expr);
    case ExprKind::logical_and:
    case ExprKind::logical_or:
        return printlogical(printer, expr);
    case ExprKind::choice:
        return printchoice(printer, expr);
    case ExprKind::comma:
        for (const Stmt *stmt : expr->statements) {
            printstatement(printer, stmt);
        }
        return printexpr(printer, expr->operands[0]);
    }
    return {};
}

Operand printstored(BodyPrinter &printer, const Expr *expr, Type *type)
{
    Operand result = printexpr(printer, expr);
    if (expr->kind == ExprKind::address) {
        const std::string object = typetext(type->sub);
        result.text = newvalue(printer);
        printline(printer, result.text + " = getelementptr " + object + ", " + object + "* " +
                               slotname(expr->variable) + ", i16 0");
    }
    return result;
}

std::string printtarget(BodyPrinter &printer, const Expr *address, const Type *type)
{
    const Operand operand = printexpr(printer, address);
    // quarl takes an element of an array for the array, which tells it nothing of the 64 bits.
    const bool element = (address->kind == ExprKind::operation && address->op == Op::getelementptr) ||
                         (address->kind == ExprKind::constant && address->value->kind == ValueKind::expression);
    if (printer.module.emulate64 && widthof(type) == 64 && element) {
        return castto(printer, address->type, operand).text;
    }
    return operand.text;
}

Operand printselector(BodyPrinter &printer, const Expr *expr)
{
    Operand result = printneeded(printer, expr, Need::bits);
    if (result.is_signed && !result.type_unsigned) {
        return result;
    }
    return widthof(expr->type) <= bits_of_byte ? adjust(printer, expr->type, result, Need::as_unsigned)
                                               : castto(printer, expr->type, result);
}

}  // namespace adapt
