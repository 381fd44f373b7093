// The expression printer. Trees grow from line to line of the input, so it keeps its own stack: a form pushes the
// pieces of its text in order, and the loop pops them one by one. Whether an operand gets parentheses is decided
// when its turn comes, since what was printed before may have rewritten it.
//
//     a + (b * c)      +  pushes  a, " + ", (b * c);  a prints;  " + " prints;  *  pushes  "(", b, " * ", c, ")"
//
// Rewrites happen here, at print time, and stay in the tree: chars lose their casts to int, x + -1 becomes x - 1,
// !(a < b) becomes a >= b.

#include "emit/emit.h"

#include "base/base.h"
#include "frontend/frontend.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <vector>

namespace {

// When an operand that is no leaf gets parentheses.
enum class Paren : std::uint8_t {
    never,
    always,
    unless_index,      // base of an index
    unless_step,       // pointer of a dereference: also none for a dereference, x++ and x--
    unless_logical,    // operand of && and ||: none for comparisons and !
    unless_selection,  // left side of a member: none for members and indexes
    unless_postfix,    // operand of a cast: none for what binds tighter
    if_cast,           // pointer before ->
};

bool isstep(std::uint8_t code)
{
    return code == op::dereference || code == op::increment || code == op::decrement;
}

bool ispostfix(std::uint8_t code)
{
    return code == op::field || code == op::dereference || code == op::index || code == op::cast || code == op::call;
}

bool needsparens(std::uint8_t code, Paren rule)
{
    if (code == op::leaf)
        return false;
    switch (rule) {
    case Paren::never:
        return false;
    case Paren::always:
        return true;
    case Paren::unless_index:
        return code != op::index;
    case Paren::unless_step:
        return !isstep(code);
    case Paren::unless_logical:
        return !iscomparison(code) && code != op::logical_not;
    case Paren::unless_selection:
        return code != op::field && code != op::index;
    case Paren::unless_postfix:
        return !ispostfix(code);
    case Paren::if_cast:
        return code == op::cast;
    }
    return false;
}

// ---- The stack --------------------------------------------------------------------------------------------------

enum class Piece : std::uint8_t { expr, text, type, late };

struct Item {
    Piece piece;
    Paren paren;
    union {
        Expr *expr;
        const char *text;
        const Type *type;
    };
    union {
        std::size_t length;    // of the text
        void (*form)(Expr *);  // a late piece: pushes the pieces of the expression
    };
};

constinit std::vector<Item> stack;

constexpr long largest_tree = 10'000'000;  // printed nodes of one expression
long printed_nodes;
bool too_large;

void push(Expr *expr, Paren paren)
{
    if (!expr)
        return;
    Item &item = stack.emplace_back();
    item.piece = Piece::expr;
    item.paren = paren;
    item.expr = expr;
}

// The text must live until it is printed: a literal or the text of a name.
void push(std::string_view text)
{
    Item &item = stack.emplace_back();
    item.piece = Piece::text;
    item.text = text.data();
    item.length = text.size();
}

void push(const Type *type)
{
    Item &item = stack.emplace_back();
    item.piece = Piece::type;
    item.type = type;
}

// Pieces that depend on the tree as it is when what comes before them has been written.
void pushlate(void (*form)(Expr *), Expr *expr)
{
    Item &item = stack.emplace_back();
    item.piece = Piece::late;
    item.expr = expr;
    item.form = form;
}

// ---- Leaves -----------------------------------------------------------------------------------------------------

void outllnumber(std::string_view text)
{
    const Halves halves = splitnumber(text);
    if (!in_initialiser)
        outtext("(_lglg_)");
    outchar('{');
    outnumber(halves.high);
    outchar(',');
    outnumber(halves.low);
    outchar('}');
}

void outnumberleaf(const Expr *expr)
{
    const std::string_view text = nametext(expr->value);
    if (text.starts_with("0x") && iskind(expr->type, kind::float32))
        outtext(hexfloattext(text));
    else if (long_long && is64bit(expr->type))
        outllnumber(text);
    else
        outtext(text);
}

void outnameleaf(const Expr *expr)
{
    if (nametext(expr->value) == slot_suffix)
        outtext(nametext(unusedname(0)));
    else
        outtext(cname(nametext(expr->value)));
}

void outlocalleaf(const Expr *expr)
{
    outchar('.');
    outtext(nametext(expr->value));
    outchar('.');
    report("unreplaced operand %s", nametext(expr->value));
}

// (type ){1,2}; a last 0 stands for all members without an element.
void pushaggregate(const Expr *expr)
{
    push("(");
    push(expr->type);
    push("){");
    const Symbol *member = isaggregate(expr->type) ? expr->type->members.get() : nullptr;
    for (Expr *element = expr->list; element; element = element->next) {
        push(element, Paren::never);
        if (element->next)
            push(",");
        if (member)
            member = member->next;
    }
    push(member ? "0}" : "}");
}

void outleaf(const Expr *expr)
{
    switch (expr->leaf) {
    case leaf::number:
        outnumberleaf(expr);
        break;
    case leaf::name:
        outnameleaf(expr);
        break;
    case leaf::string:
        outtext(cstring(nametext(expr->value), true));
        break;
    case leaf::local:
        outlocalleaf(expr);
        break;
    case leaf::aggregate:
        pushaggregate(expr);
        break;
    default:
        outtext("????");
        report("unknown leaf type %x", expr->leaf);
        break;
    }
}

// ---- 64-bit operands --------------------------------------------------------------------------------------------

bool is64bitoperand(const Expr *expr)
{
    return long_long && expr && is64bit(expr->type);
}

bool isunsignedoperand(const Expr *expr)
{
    return expr && isunsigned(expr->type);
}

bool either64bit(const Expr *expr)
{
    return is64bitoperand(expr->left) || is64bitoperand(expr->right);
}

std::string_view widener(const Expr *operand)
{
    return isunsignedoperand(operand) ? "_llsetu_" : "_llsets_";
}

// An operand of a helper is passed by its address; a narrower one is widened first.
void pushllarg(Expr *expr)
{
    push("&");
    if (is64bitoperand(expr)) {
        push(expr, Paren::never);
        return;
    }
    push(widener(expr));
    push("(");
    push(expr, Paren::never);
    push(")");
}

// The rest of name(&left, &right); the caller has pushed the name and the parenthesis.
void pushllargs(const Expr *expr)
{
    pushllarg(expr->left);
    push(", ");
    pushllarg(expr->right);
    push(")");
}

void pushllcall(std::string_view name, Expr *operand)
{
    push(name);
    push("(");
    pushllarg(operand);
    push(")");
}

std::string_view llnameof(const Expr *expr)
{
    return llname(expr->op, isunsignedoperand(expr->left) || isunsignedoperand(expr->right));
}

// ---- Binary operators -------------------------------------------------------------------------------------------

struct OperatorText {
    std::uint8_t op;
    std::string_view text;
};

constexpr OperatorText operator_texts[] = {
    {op::add, " + "},          {op::subtract, " - "},       {op::multiply, " * "}, {op::divide, " / "},
    {op::remainder, " % "},    {op::bit_and, " & "},        {op::bit_or, " | "},   {op::bit_xor, " ^ "},
    {op::shift_left, " << "},  {op::shift_right, " >> "},   {op::equal, " == "},   {op::not_equal, " != "},
    {op::greater, " > "},      {op::greater_equal, " >= "}, {op::less, " < "},     {op::less_equal, " <= "},
    {op::logical_and, " && "}, {op::logical_or, " || "},
};

std::string_view operatortext(std::uint8_t code)
{
    for (const OperatorText &row : operator_texts)
        if (row.op == code)
            return row.text;
    return {};
}

void pushbinary(Expr *expr, Paren paren)
{
    push(expr->left, paren);
    push(operatortext(expr->op));
    push(expr->right, paren);
}

void formarithmetic(Expr *expr)
{
    if (!either64bit(expr)) {
        pushbinary(expr, Paren::always);
        return;
    }
    push(llnameof(expr));
    push("(");
    pushllargs(expr);
}

void formcomparison(Expr *expr)
{
    if (!either64bit(expr)) {
        pushbinary(expr, Paren::always);
        return;
    }
    push("_llcmp_(");
    push(llnameof(expr));
    push(", ");
    pushllargs(expr);
}

// The count of a 64-bit shift is a plain number.
void pushcount(Expr *shift)
{
    Expr *count = shift->right;
    while (isop(count, op::cast))
        count = count->left;
    if (isleaf(count, leaf::number) && is64bit(count->type))
        count->type = newtype(kind::int16, nullptr);
    push(count, Paren::never);
    if (is64bitoperand(count))
        push(".low");
}

void formshift(Expr *expr)
{
    if (!is64bitoperand(expr->left)) {
        pushbinary(expr, Paren::always);
        return;
    }
    push(llname(expr->op, isunsignedoperand(expr->left)));
    push("(");
    pushllarg(expr->left);
    push(", ");
    pushlate(pushcount, expr);
    push(")");
}

void formlogical(Expr *expr)
{
    pushbinary(expr, Paren::unless_logical);
}

bool isnumbertext(const Expr *expr, std::string_view text)
{
    return isleaf(expr, leaf::number) && nametext(expr->value) == text;
}

void pushnegation(Expr *operand)
{
    if (is64bitoperand(operand)) {
        pushllcall("_llneg_", operand);
        return;
    }
    push("-");
    push(operand, Paren::always);
}

// x + -1 becomes x - 1 and the other way round.
void formsum(Expr *expr)
{
    Expr *right = expr->right;
    if (isleaf(right, leaf::number) && namebegins(right->value, "-")) {
        right->value = intern(nametext(right->value).substr(1));
        expr->op = expr->op == op::add ? op::subtract : op::add;
    }
    formarithmetic(expr);
}

// 0 - x is -x; for float the zero of either sign is, as the front end writes a negation.
void formdifference(Expr *expr)
{
    const Expr *left = expr->left;
    const bool float_zero =
        isleaf(left, leaf::number) && iskind(left->type, kind::float32) && iszerotext(nametext(left->value));
    if (isnumbertext(left, "0"))
        pushnegation(expr->right);
    else if (float_zero) {
        push("-");
        push(expr->right, Paren::always);
    } else {
        formsum(expr);
    }
}

// Writes the opposite of a comparison. The change stays in the tree.
void pushopposite(Expr *comparison)
{
    comparison->op = opposite(comparison->op);
    push(comparison, Paren::never);
}

// x ^ -1 is ~x, and a comparison ^ 1 is the opposite one.
void formxor(Expr *expr)
{
    if (isnumbertext(expr->right, "-1")) {
        if (is64bitoperand(expr->right)) {
            pushllcall("_llcom_", expr->left);
        } else {
            push("~");
            push(expr->left, Paren::always);
        }
    } else if (isnumbertext(expr->right, "1") && expr->left && iscomparison(expr->left->op)) {
        pushopposite(expr->left);
    } else {
        formarithmetic(expr);
    }
}

// ---- Unary operators --------------------------------------------------------------------------------------------

void formpostfix(Expr *expr)
{
    const bool increment = expr->op == op::increment;
    if (is64bitoperand(expr->left)) {
        pushllcall(increment ? "_llinc_" : "_lldec_", expr->left);
        return;
    }
    push(expr->left, Paren::always);
    push(increment ? "++" : "--");
}

void formdereference(Expr *expr)
{
    push("*");
    push(expr->left, Paren::unless_step);
}

// The number that is added to a pointer.
void pushoffset(Expr *target)
{
    const std::string_view offset = nametext(target->right->value);
    const bool negative = offset.starts_with('-');
    push(negative ? " - " : " + ");
    push(negative ? offset.substr(1) : offset);
}

// &a[0] is a, and &p[2] of a pointer is p + 2.
void formaddress(Expr *expr)
{
    Expr *target = expr->left;
    if (isop(target, op::index) && isleaf(target->right, leaf::number)) {
        if (number(nametext(target->right->value)) == 0) {
            push(target->left, Paren::never);
            return;
        }
        if (target->left && iskind(target->left->type, kind::pointer)) {
            push(target->left, Paren::always);
            pushlate(pushoffset, target);
            return;
        }
    }
    push("&");
    push(expr->left, Paren::never);
}

// !!x is x != 0, and the negation of a comparison is its opposite.
void formnot(Expr *expr)
{
    Expr *operand = expr->left;
    if (isop(operand, op::logical_not)) {
        operand = operand->left;
        if (operand && iscomparison(operand->op)) {
            push(operand, Paren::never);
        } else {
            push(operand, Paren::always);
            push(" != 0");
        }
    } else if (operand && iscomparison(operand->op)) {
        pushopposite(operand);
    } else {
        push("!");
        push(operand, Paren::always);
    }
}

// ---- Casts ------------------------------------------------------------------------------------------------------

// The operand of a cast without the inner casts that the outer one makes redundant.
Expr *castoperand(Expr *expr)
{
    Expr *operand = expr->left;
    if (!expr->type)
        return operand;
    const std::uint8_t target = expr->type->kind;
    const bool stepped = target == kind::pointer || target <= kind::last_scalar;
    Expr *last = nullptr;  // of the redundant casts
    while (stepped && isop(operand, op::cast) && iskind(operand->type, target)) {
        last = operand;
        operand = operand->left;
    }
    // The others go, so that no further printing passes them.
    if (last)
        expr->left = last;
    return operand;
}

void pushcasttype(const Type *type)
{
    push("(");
    push(type);
    push(")");
}

void formcast(Expr *expr)
{
    const bool to64 = long_long && is64bit(expr->type);
    const bool from64 = is64bitoperand(expr->left);
    if (to64 && from64) {
        push(expr->left, Paren::never);
    } else if (to64) {
        push(widener(expr->left));
        push("{");
        push(expr->left, Paren::never);
        push("}");
    } else if (from64) {
        pushcasttype(expr->type);
        push(expr->left, Paren::never);
        push(".low");
    } else {
        pushcasttype(expr->type);
        push(castoperand(expr), Paren::unless_postfix);
    }
}

// ---- Members, calls and assignments -----------------------------------------------------------------------------

void formfield(Expr *expr)
{
    if (isop(expr->left, op::dereference)) {
        push(expr->left->left, Paren::if_cast);
        push("->");
    } else {
        push(expr->left, Paren::unless_selection);
        push(".");
    }
    if (expr->right && expr->right->symbol)
        push(nametext(expr->right->symbol->name));
}

void formindex(Expr *expr)
{
    push(expr->left, Paren::unless_index);
    push("[");
    push(expr->right, Paren::never);
    push("]");
}

void pusharguments(const Expr *cell)
{
    for (; cell; cell = cell->right) {
        push(cell->left, Paren::never);
        if (cell->right)
            push(", ");
    }
}

void formcall(Expr *expr)
{
    const std::string_view value = iskind(expr->type, kind::float32) ? foldmath(expr->left, expr->right) : "";
    if (!value.empty()) {
        push(value);
        return;
    }
    if (isleaf(expr->left, leaf::name)) {
        if (memoryheader(expr->left->value))
            rewritecall(expr);
        if (nametext(expr->left->value) == intrinsics::stack_restore)
            need_flags |= need::frees;
    }
    push(expr->left, Paren::always);
    push("(");
    pusharguments(expr->right);
    push(")");
}

// A call with a literal structure as its result takes the destination's address as its first argument.
void pushresultcall(const Expr *destination, const Expr *call)
{
    push(call->left, Paren::always);
    if (isop(destination, op::dereference)) {
        push("(");
        push(destination->left, Paren::never);
    } else {
        push("(&");
        push(const_cast<Expr *>(destination), Paren::never);
    }
    if (call->right)
        push(", ");
    pusharguments(call->right);
    push(")");
}

// The type of what a destination holds: a leaf has the pointer type of its variable.
const Type *destinationtype(const Expr *destination)
{
    if (!destination || !destination->type)
        return nullptr;
    return destination->op == op::leaf ? destination->type->sub : destination->type;
}

void formassign(Expr *expr)
{
    const Expr *left = expr->left;
    const Type *type = exprtype(left);
    if (isop(expr->right, op::call) && iskind(type, kind::structure) && !type->tag) {
        pushresultcall(left, expr->right);
        return;
    }
    const bool to64 = long_long && is64bit(destinationtype(left));
    const bool from64 = is64bitoperand(expr->right);
    push(expr->left, Paren::never);
    push(" = ");
    if (to64 && !from64) {
        push(widener(expr->right));
        push("(");
    }
    push(expr->right, Paren::never);
    if (to64 && !from64)
        push(")");
    else if (from64 && !to64)
        push(".low");
}

void formcomma(Expr *expr)
{
    push(expr->left, Paren::never);
    push(", ");
    push(expr->right, Paren::never);
}

void formconditional(Expr *expr)
{
    push(expr->left, Paren::always);
    push(" ? ");
    push(expr->middle, Paren::always);
    push(" : ");
    push(expr->right, Paren::always);
}

// A phi that has not become an operator has no text; reports one that can't become any, once.
void formphi(Expr *expr)
{
    if (expr->cyclic)
        report("expression too large");
    expr->cyclic = false;
}

// ---- Dispatch ---------------------------------------------------------------------------------------------------

using Form = void (*)(Expr *expr);

struct FormRow {
    std::uint8_t op;
    Form form;
};

constexpr FormRow form_rows[] = {
    {op::comma, formcomma},
    // Left over from a join.
    {op::phi, formphi},
    {op::field, formfield},
    {op::conditional, formconditional},
    {op::index, formindex},
    {op::increment, formpostfix},
    {op::decrement, formpostfix},
    {op::cast, formcast},
    {op::call, formcall},
    {op::dereference, formdereference},
    {op::address, formaddress},
    {op::logical_not, formnot},
    {op::divide, formarithmetic},
    {op::remainder, formarithmetic},
    {op::shift_left, formshift},
    {op::shift_right, formshift},
    {op::bit_xor, formxor},
    {op::bit_or, formarithmetic},
    {op::less, formcomparison},
    {op::greater_equal, formcomparison},
    {op::greater, formcomparison},
    {op::less_equal, formcomparison},
    {op::equal, formcomparison},
    {op::not_equal, formcomparison},
    {op::logical_and, formlogical},
    {op::logical_or, formlogical},
    {op::assign, formassign},
    {op::add, formsum},
    {op::subtract, formdifference},
    {op::multiply, formarithmetic},
    {op::bit_and, formarithmetic},
};

// The form of each operator; null for a code that prints nothing.
constexpr std::array<Form, 256> makeforms()
{
    std::array<Form, 256> forms{};
    for (const FormRow &row : form_rows)
        forms[row.op] = row.form;
    return forms;
}

constexpr std::array<Form, 256> forms = makeforms();

// Operator codes with an ordinary left, and with an ordinary right operand.
constexpr unsigned has_left = 0x60;
constexpr unsigned has_right = 0x40;

// Removes the cast of a char to int.
void narrow(Ref<Expr> &operand)
{
    if (!isop(operand, op::cast) || !iskind(operand->type, kind::int16))
        return;
    const Expr *inner = operand->left;
    if (inner && inner->type && inner->type->kind <= kind::plain_char)
        operand = operand->left;
}

void narrowoperands(Expr *expr)
{
    if (!iskind(expr->type, kind::int16))
        return;
    if (expr->op & has_left)
        narrow(expr->left);
    if (expr->op & has_right)
        narrow(expr->right);
}

// Writes a leaf, or pushes the pieces of an operator.
void expand(Expr *expr, Paren paren)
{
    if (expr->op == op::leaf) {
        outleaf(expr);
        return;
    }
    const bool parens = needsparens(expr->op, paren);
    if (parens)
        push("(");
    narrowoperands(expr);
    if (const Form form = forms[expr->op])
        form(expr);
    if (parens)
        push(")");
}

void print(const Item &item)
{
    const std::size_t mark = stack.size();
    switch (item.piece) {
    case Piece::text:
        outtext({item.text, item.length});
        break;
    case Piece::type:
        outdecl(nullptr, item.type);
        break;
    case Piece::late:
        item.form(item.expr);
        break;
    case Piece::expr:
        ++printed_nodes;
        expand(item.expr, item.paren);
        break;
    }
    // The pieces were pushed in the order of the text; the first one has to be on top.
    std::reverse(stack.begin() + static_cast<std::ptrdiff_t>(mark), stack.end());
}

}  // namespace

void outexpr(Expr *expr, bool paren)
{
    if (too_large)
        return;
    printed_nodes = 0;
    push(expr, paren ? Paren::always : Paren::never);
    while (!stack.empty()) {
        const Item item = stack.back();
        stack.pop_back();
        print(item);
        if (printed_nodes > largest_tree) {
            report("expression too large");
            too_large = true;
            stack.clear();
        }
    }
}

bool iszerotext(std::string_view text)
{
    if (text.starts_with('-') || text.starts_with('+'))
        text.remove_prefix(1);
    return text == "0.000000e+00";
}

std::string_view hexfloattext(std::string_view text)
{
    constexpr std::size_t half = 8;  // hexadecimal digits of 32 bits, the high ones first
    const auto word = [&text](std::size_t from) {
        std::uint64_t value = 0;
        for (const char c : text.substr(std::min(from, text.size()), half)) {
            value = value * 16 + hexvalue(c);
        }
        return value;
    };
    constexpr std::size_t prefix = 2;
    const std::uint64_t bits = word(prefix) << 32U | word(prefix + half);
    double value = 0;
    static_assert(sizeof value == sizeof bits);
    std::memcpy(&value, &bits, sizeof value);
    static std::array<char, 32> buffer;
    const int length = std::snprintf(buffer.data(), buffer.size(), "%.7e", value);
    return {buffer.data(), static_cast<std::size_t>(length)};
}
