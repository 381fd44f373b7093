// Marks of expressions, and those of the trees that are printed.
#include "adapt/marks.h"
#include "adapt/printer.h"

namespace adapt {

namespace {

// What a mark is of.
enum Kind : Hash {
    kind_flip = 1,
    kind_number,
    kind_test,
    kind_all,
    kind_any,
    kind_and,
    kind_or,
    kind_choice,
    kind_load,
    kind_step,
    kind_assign,
    kind_store,
    kind_comma,
    kind_compare,
    kind_last
};

constexpr Hash base = 0x9E3779B97F4A7C15;  // odd, so that no term of a sequence gets lost

Hash mix(Hash a, Hash b)
{
    Hash x = (a ^ (b + base + (a << 6) + (a >> 2))) * 0xBF58476D1CE4E5B9;
    x ^= x >> 31;
    return x * 0x94D049BB133111EB;
}

Mark flagmark(Mark mark)
{
    mark.is_flag = true;
    return mark;
}

std::int64_t extended(std::uint64_t number, std::uint32_t bits)
{
    if (bits == 0 || bits >= 64) {
        return static_cast<std::int64_t>(number);
    }
    const std::uint64_t top = std::uint64_t{1} << (bits - 1);
    return static_cast<std::int64_t>(((number & ((top << 1) - 1)) ^ top) - top);
}

bool isnumber(const Mark &mark, std::int64_t number)
{
    return mark.is_constant && mark.number == number;
}

// Whether a chain isn't changed by this term.
bool isneutral(Chain kind, const Mark &mark)
{
    return mark.is_constant && mark.is_flag && (mark.number != 0) == (kind == Chain::all);
}

struct Predicates {
    std::string_view name;
    std::string_view basic;
    bool negated;
};

constexpr Predicates integer_predicates[] = {
    {"eq", "eq", false},  {"ne", "eq", true},    {"slt", "slt", false}, {"sge", "slt", true},  {"sle", "sle", false},
    {"sgt", "sle", true}, {"ult", "ult", false}, {"uge", "ult", true},  {"ule", "ule", false}, {"ugt", "ule", true},
};

constexpr Predicates float_predicates[] = {
    {"oeq", "oeq", false}, {"une", "oeq", true},  {"olt", "olt", false}, {"uge", "olt", true},  {"ole", "ole", false},
    {"ugt", "ole", true},  {"ogt", "ogt", false}, {"ule", "ogt", true},  {"oge", "oge", false}, {"ult", "oge", true},
};

constexpr std::string_view conversions[] = {"trunc",  "zext",   "sext",   "fptrunc", "fpext",    "fptosi",
                                            "fptoui", "sitofp", "uitofp", "bitcast", "ptrtoint", "inttoptr"};

bool isconversion(std::string_view word)
{
    for (const std::string_view conversion : conversions) {
        if (word == conversion) {
            return true;
        }
    }
    return false;
}

Mark bitsmark(bool all, const Mark &a, const Mark &b)
{
    Mark mark = plainmark(mix(mix(all ? kind_and : kind_or, a.yes), b.yes));
    mark.no = mix(mix(all ? kind_or : kind_and, a.no), b.no);
    return flagmark(mark);
}

}  // namespace

Hash hashtext(Hash start, std::string_view text)
{
    for (const char c : text) {
        start = (start ^ static_cast<unsigned char>(c)) * 0x100000001B3;
    }
    return start;
}

Hash hashtext(std::string_view text)
{
    return hashtext(0xCBF29CE484222325, text);
}

Hash addhash(Hash list, Hash next)
{
    return mix(list, next);
}

Mark plainmark(Hash hash)
{
    Mark mark;
    mark.yes = hash;
    mark.tested = hash;
    mark.no = mix(hash, kind_flip);
    return mark;
}

Mark numbermark(std::int64_t number, bool is_flag)
{
    const std::int64_t value = is_flag ? number & 1 : number;
    Mark mark = plainmark(mix(kind_number, static_cast<Hash>(value)));
    mark.is_constant = true;
    mark.number = value;
    mark.is_flag = is_flag;
    if (is_flag) {
        mark.no = mix(kind_number, static_cast<Hash>(1 - value));
    }
    return mark;
}

Mark negatedmark(const Mark &mark)
{
    if (mark.is_constant) {
        return numbermark(mark.number == 0 ? 1 : 0, true);
    }
    Mark result = mark;
    std::swap(result.yes, result.no);
    std::swap(result.sequence_yes, result.sequence_no);
    result.tested = result.yes;
    result.is_flag = true;
    if (mark.chain != Chain::none) {
        result.chain = mark.chain == Chain::all ? Chain::any : Chain::all;
    }
    return result;
}

Mark chainmark(Chain kind, const Mark &left, const Mark &right)
{
    if (isneutral(kind, left)) {
        return right;
    }
    if (isneutral(kind, right)) {
        return left;
    }
    const auto sequence = [kind](const Mark &mark, Hash Mark::*part, Hash Mark::*whole) {
        return mark.chain == kind ? mark.*part : mark.*whole;
    };
    const Hash left_power = left.chain == kind ? left.power : base;
    const Hash power = right.chain == kind ? right.power : base;
    Mark mark;
    mark.is_flag = true;
    mark.chain = kind;
    mark.sequence_yes =
        sequence(left, &Mark::sequence_yes, &Mark::yes) * power + sequence(right, &Mark::sequence_yes, &Mark::yes);
    mark.sequence_no =
        sequence(left, &Mark::sequence_no, &Mark::no) * power + sequence(right, &Mark::sequence_no, &Mark::no);
    mark.power = left_power * power;
    mark.yes = mix(kind == Chain::all ? kind_all : kind_any, mark.sequence_yes);
    mark.no = mix(kind == Chain::all ? kind_any : kind_all, mark.sequence_no);
    mark.tested = mark.yes;
    return mark;
}

Mark testedmark(const Mark &mark)
{
    if (mark.is_constant) {
        return numbermark(mark.number == 0 ? 0 : 1, true);
    }
    if (mark.is_flag) {
        return mark;
    }
    return flagmark(plainmark(mix(kind_test, mark.tested)));
}

Mark choicemark(const Mark &condition, const Mark &yes, const Mark &no, bool is_flag)
{
    if (is_flag && isnumber(no, 0)) {
        return chainmark(Chain::all, condition, yes);
    }
    if (is_flag && isnumber(yes, 1)) {
        return chainmark(Chain::any, condition, no);
    }
    if (isnumber(no, 0) && (isnumber(yes, 1) || isnumber(yes, -1))) {
        return condition;
    }
    Mark mark = plainmark(mix(mix(mix(kind_choice, condition.yes), yes.yes), no.yes));
    if (is_flag) {
        mark.no = mix(mix(mix(kind_choice, condition.yes), yes.no), no.no);
        mark.is_flag = true;
    }
    return mark;
}

Mark comparemark(std::string_view predicate, bool is_float, const Mark &left, const Mark &right)
{
    for (const Predicates &row : is_float ? float_predicates : integer_predicates) {
        if (row.name != predicate) {
            continue;
        }
        if (row.basic == "eq" && isnumber(right, 0)) {
            return row.negated ? testedmark(left) : negatedmark(testedmark(left));
        }
        const Mark mark = flagmark(plainmark(mix(mix(mix(kind_compare, hashtext(row.basic)), left.yes), right.yes)));
        return row.negated ? negatedmark(mark) : mark;
    }
    return {};
}

Mark operationmark(std::string_view word, const std::vector<Mark> &operands, bool is_flag)
{
    if (isconversion(word)) {
        return is_flag ? testedmark(operands[0]) : operands[0];
    }
    const bool binary = operands.size() == 2;
    if (is_flag && binary && (word == "and" || word == "or")) {
        return bitsmark(word == "and", operands[0], operands[1]);
    }
    if (binary && isnumber(operands[1], 0) && (word == "lshr" || word == "getelementptr")) {
        return operands[0];
    }
    Hash hash = hashtext(word);
    for (const Mark &operand : operands) {
        hash = mix(hash, operand.yes);
    }
    Mark mark = plainmark(hash);
    mark.is_flag = is_flag;
    if (binary && word == "and" && isnumber(operands[1], 1)) {
        if (operands[0].is_flag) {
            return operands[0];
        }
        mark.tested = operands[0].tested;
    }
    return mark;
}

Mark loadmark(const Mark &address, bool is_volatile, bool is_flag)
{
    Mark mark = plainmark(mix(mix(kind_load, is_volatile ? 1 : 0), address.yes));
    mark.is_flag = is_flag;
    return mark;
}

Mark stepmark(const Mark &address, bool is_pointer, bool is_negative)
{
    return plainmark(mix(mix(kind_step, (is_pointer ? 2U : 0U) + (is_negative ? 1U : 0U)), address.yes));
}

Mark assignmark(const Mark &address, const Mark &value, bool is_flag)
{
    Mark mark = plainmark(mix(mix(kind_assign, address.yes), value.yes));
    mark.is_flag = is_flag;
    return mark;
}

Mark storemark(const Mark &address, const Mark &value, bool is_volatile)
{
    return plainmark(mix(mix(mix(kind_store, is_volatile ? 1 : 0), address.yes), value.yes));
}

Mark commamark(Hash statements, const Mark &value)
{
    Mark mark = flagmark(plainmark(mix(mix(kind_comma, statements), value.yes)));
    mark.no = mix(mix(kind_comma, statements), value.no);
    return mark;
}

Mark literalmark(std::string_view text, std::uint32_t bits)
{
    if (text == "true" || text == "false") {
        return numbermark(text == "true" ? 1 : 0, true);
    }
    if (text == "null" || text == "undef" || text == "zeroinitializer") {
        return numbermark(0, bits == 1);
    }
    const bool negative = text.starts_with('-');
    const std::string_view digits = text.substr(negative ? 1 : 0);
    if (bits == 0 || digits.find_first_not_of("0123456789") != std::string_view::npos) {
        return plainmark(hashtext(text));
    }
    std::uint64_t number = 0;
    for (const char c : digits) {
        number = number * 10 + static_cast<std::uint64_t>(c - '0');
    }
    return numbermark(extended(negative ? ~number + 1 : number, bits), bits == 1);
}

// ---- Trees ----

namespace {

std::uint32_t bitsof(const Type *type)
{
    return type->kind == TypeKind::integer ? type->bits : 0;
}

bool isflag(const Expr *expr)
{
    return bitsof(expr->type) == 1;
}

Mark constantmark(const Value *value)
{
    const std::uint32_t bits = bitsof(value->type);
    if (value->kind == ValueKind::integer) {
        return numbermark(extended(value->number, bits), bits == 1);
    }
    if (value->kind == ValueKind::assembler) {
        return plainmark(hashtext("asm"));
    }
    return bits > 0 && value->kind != ValueKind::expression ? numbermark(0, bits == 1)
                                                            : literalmark(constanttext(value), bits);
}

// Comparisons of floating-point numbers that C has no operator for.
Mark orderedmark(const Expr *expr)
{
    const Expr *first = expr->operands[0];
    const Expr *second = expr->operands[1];
    const Mark left = markof(first);
    const Mark right = markof(second);
    const bool order = expr->predicate == Predicate::ord || expr->predicate == Predicate::uno;
    const bool negated = expr->predicate == Predicate::uno || expr->predicate == Predicate::ueq;
    Mark mark;
    if (!order) {
        mark = bitsmark(false, comparemark("olt", true, left, right), comparemark("ogt", true, left, right));
    } else if (second->kind == ExprKind::constant) {
        mark = comparemark("oeq", true, left, left);
    } else if (first->kind == ExprKind::constant) {
        mark = comparemark("oeq", true, right, right);
    } else {
        mark = bitsmark(true, comparemark("oeq", true, left, left), comparemark("oeq", true, right, right));
    }
    return negated ? negatedmark(mark) : mark;
}

Mark fcmpmark(const Expr *expr)
{
    switch (expr->predicate) {
    case Predicate::ord:
    case Predicate::uno:
    case Predicate::one:
    case Predicate::ueq:
        return orderedmark(expr);
    default:
        return comparemark(predicatename(expr->predicate), true, markof(expr->operands[0]), markof(expr->operands[1]));
    }
}

Mark treemark(const Expr *expr)
{
    switch (expr->op) {
    case Op::load:
        return loadmark(markof(expr->operands[0]), expr->is_volatile, isflag(expr));
    case Op::icmp:
        return comparemark(predicatename(expr->predicate), false, markof(expr->operands[0]), markof(expr->operands[1]));
    case Op::fcmp:
        return fcmpmark(expr);
    case Op::fneg:
        return operationmark("fsub", {literalmark("0", 0), markof(expr->operands[0])}, false);
    default:
        break;
    }
    std::vector<Mark> operands;
    operands.reserve(expr->operands.size());
    for (const Expr *part : expr->operands) {
        operands.push_back(markof(part));
    }
    return operationmark(opname(expr->op), operands, isflag(expr));
}

Hash addressofvariable(const Variable *variable)
{
    const Hash hash = hashtext(variable->name);
    return variable->param != nullptr ? hashtext(hash, ".addr") : hash;
}

}  // namespace

Mark markof(const Expr *expr)
{
    switch (expr->kind) {
    case ExprKind::constant:
        return constantmark(expr->value);
    case ExprKind::address:
        return plainmark(addressofvariable(expr->variable));
    case ExprKind::operation:
        return treemark(expr);
    case ExprKind::post_step:
        return stepmark(markof(expr->operands[0]), expr->op == Op::getelementptr, expr->negative);
    case ExprKind::assign:
        return assignmark(markof(expr->operands[0]), markof(expr->operands[1]), isflag(expr));
    case ExprKind::choice:
        return choicemark(markof(expr->operands[0]), markof(expr->operands[1]), markof(expr->operands[2]),
                          isflag(expr));
    case ExprKind::comma: {
        Hash statements = 0;
        for (const Stmt *stmt : expr->statements) {
            statements = addhash(statements, markof(stmt).yes);
        }
        return commamark(statements, markof(expr->operands[0]));
    }
    default:
        break;
    }
    const Chain kind = expr->kind == ExprKind::logical_and ? Chain::all : Chain::any;
    Mark mark = markof(expr->operands[0]);
    for (std::size_t place = 1; place < expr->operands.size(); ++place) {
        mark = chainmark(kind, mark, markof(expr->operands[place]));
    }
    return mark;
}

Mark markof(const Stmt *stmt)
{
    switch (stmt->kind) {
    case StmtKind::store:
        return storemark(markof(stmt->address), markof(stmt->value), stmt->is_volatile);
    case StmtKind::set:
        return storemark(plainmark(addressofvariable(stmt->variable)), markof(stmt->value), false);
    default:
        return markof(stmt->value);
    }
}

}  // namespace adapt
