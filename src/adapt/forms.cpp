// Statements in the forms of blocks and labels for which quarl prints just that statement.
//
// N and K are numbers of the construct's own. A jump ends its block.
//
//   if            br i1 %c, %if.thenN, %if.endN; if.thenN: ... br %if.endN; if.endN:
//   if-else       br i1 %c, %if.thenN, %if.elseN; if.thenN: ... br %if.endN; if.elseN: ... br %if.endN; if.endN:
//   chain         land.* and lor.* blocks, each ending in `br i1 term, next or target`; && and || flattened, no phi in
//   ifs value chain   the same, then nested land.endK / lor.endK with `phi i1 [false or true, block]..., [%last,
//   block]` while         br %while.condN; while.condN: %c; br i1 %c, %while.bodyN, %while.endN; body, br %while.condN;
//   while.endN: do            br %do.bodyN; body, br %do.condN; do.condN: %c; br i1 %c, %do.bodyN, %do.endN; do.endN:
//   for           br %for.condN; for.condN: br i1 %c, %for.bodyN, %for.endN; body; for.incN: steps; br %for.condN;
//   for.endN: for, chain    as for, but for.incN leads to the block of the loop's branch for (;;)      br %for.condN;
//   for.condN: br %n.K; n.K: body; for.incN: br %for.condN; for.endN: switch        sw.bb* in the order of the source,
//   fall through by br, sw.defaultN anywhere, sw.epilogN always break         br %while.endN, %do.endN, %for.endN,
//   %sw.epilogN of the innermost continue      br %while.condN, %do.condN, %for.incN return        ret in place, at any
//   depth goto, label   n.K: br %L; L: without a dot, with a statement after it
//
// What holds besides: the true target of a branch is the next block. No statement stands in while.cond or do.cond. The
// last term before a phi is an instruction of its own, never a bare call. A goto stands in a neutral block. A function
// doesn't end in a jump.
#include "adapt/formprinter.h"

#include <algorithm>

namespace adapt {

namespace {

constexpr std::size_t most_phis = 2;  // of a chain as a value, for which quarl finds all targets in any case

// A loop or a switch around what is printed.
struct Construct {
    std::string break_label;
    std::string continue_label;  // empty: a switch
    bool is_while = false;
};

struct FormPrinter {
    BodyPrinter &body;
    std::vector<Construct> constructs = {};
    std::unordered_map<const Stmt *, std::string> case_labels = {};
};

using Stmts = std::vector<Stmt *>;

void printlist(FormPrinter &printer, const Stmts &stmts);

// ---- Blocks ----

std::string number(BodyPrinter &printer)
{
    return std::to_string(printer.next_construct++);
}

void endblock(BodyPrinter &printer, const std::string &text)
{
    printline(printer, text);
    printer.is_open = false;
}

void jump(BodyPrinter &printer, const std::string &label)
{
    endblock(printer, "br label %" + label);
}

void beginblock(BodyPrinter &printer, const std::string &label);

// A block that quarl prints nothing for.
void neutralblock(BodyPrinter &printer)
{
    const std::string label = "n." + number(printer);
    if (printer.is_open) {
        jump(printer, label);
    }
    beginblock(printer, label);
}

void beginblock(BodyPrinter &printer, const std::string &label)
{
    if (printer.is_open) {
        jump(printer, label);
    }
    // quarl drops a `continue` in front of the end of any while loop: a block keeps them apart.
    if (!printer.continued.empty() && label.starts_with("while.end") && label != printer.continued) {
        printer.out += "\nn." + number(printer) + ":\n";
        printline(printer, "unreachable");
    }
    printer.continued.clear();
    printer.out += '\n';
    printer.out += label;
    printer.out += ":\n";
    printer.current = label;
    printer.is_open = true;
}

// Statements after a jump stand in a block that nothing leads to.
void ensureblock(BodyPrinter &printer)
{
    if (!printer.is_open) {
        neutralblock(printer);
    }
}

// ---- Conditions ----

bool islogical(const Expr *expr)
{
    return expr->kind == ExprKind::logical_and || expr->kind == ExprKind::logical_or;
}

bool hassteps(const Expr *expr)
{
    return expr->kind == ExprKind::assign || expr->kind == ExprKind::post_step || expr->kind == ExprKind::comma ||
           std::any_of(expr->operands.begin(), expr->operands.end(), hassteps);
}

// How many phis a chain as a value needs: one more for each chain that is the last term of one. quarl makes the targets
// of the innermost two fit, and of those around them the target of one block: more is as many as none can be.
std::size_t phisof(const Expr *expr)
{
    std::vector<const Expr *> levels;
    for (; islogical(expr); expr = expr->operands.back()) {
        levels.push_back(expr);
    }
    for (std::size_t level = 0; level + most_phis < levels.size(); ++level) {
        if (levels[level]->operands.size() > 2 || islogical(levels[level]->operands[0])) {
            return levels.size();
        }
    }
    return std::min(levels.size(), most_phis);
}

void branch(BodyPrinter &printer, const std::string &condition, const std::string &yes, const std::string &no)
{
    printer.edges.push_back({printer.current, yes, no});
    endblock(printer, "br i1 " + condition + ", label %" + yes + ", label %" + no);
}

// The blocks of a chain whose terms lead to the two labels.
void printjumps(BodyPrinter &printer, const Expr *expr, const std::string &yes, const std::string &no)
{
    if (!islogical(expr)) {
        branch(printer, printexpr(printer, expr).text, yes, no);
        return;
    }
    const bool all = expr->kind == ExprKind::logical_and;
    for (std::size_t place = 0; place < expr->operands.size(); ++place) {
        if (place + 1 == expr->operands.size()) {
            printjumps(printer, expr->operands[place], yes, no);
            return;
        }
        const std::string next = (all ? "land.lhs.true" : "lor.lhs.false") + number(printer);
        printjumps(printer, expr->operands[place], all ? next : yes, all ? no : next);
        beginblock(printer, next);
    }
}

// Chains as values that stand outside of other chains and choices, and how many phis the deepest needs: one more for
// each chain that is the last term of one.
void measurechains(const Expr *expr, std::size_t &chains, std::size_t &phis, bool &steps)
{
    if (expr->kind == ExprKind::choice) {
        steps = steps || hassteps(expr);
        return;
    }
    steps = steps || expr->kind == ExprKind::assign || expr->kind == ExprKind::post_step;
    if (islogical(expr)) {
        ++chains;
        phis = std::max(phis, phisof(expr));
        return;
    }
    for (const Expr *part : expr->operands) {
        measurechains(part, chains, phis, steps);
    }
}

// The statement's expressions may hold one chain as a value; more, or one beside steps, are said within expressions.
void choosechains(BodyPrinter &printer, std::initializer_list<const Expr *> exprs)
{
    std::size_t chains = 0;
    std::size_t phis = 0;
    bool steps = false;
    for (const Expr *expr : exprs) {
        if (expr != nullptr) {
            measurechains(expr, chains, phis, steps);
        }
    }
    printer.no_chains = chains > 1 || (chains > 0 && steps) || phis > most_phis;
}

}  // namespace

Operand printchain(BodyPrinter &printer, const Expr *expr)
{
    const bool all = expr->kind == ExprKind::logical_and;
    const std::string constant = all ? "false" : "true";
    const std::string end = (all ? "land.end" : "lor.end") + number(printer);
    const bool before = printer.no_chains;
    const std::size_t first_edge = printer.edges.size();
    printer.no_chains = true;
    for (std::size_t place = 0; place + 1 < expr->operands.size(); ++place) {
        const std::string next = place + 2 < expr->operands.size() ? (all ? "land.lhs.true" : "lor.lhs.false")
                                                                   : (all ? "land.rhs" : "lor.rhs");
        const std::string label = next + number(printer);
        printjumps(printer, expr->operands[place], all ? label : end, all ? end : label);
        beginblock(printer, label);
    }
    const Expr *last = expr->operands.back();
    Operand value;
    if (islogical(last)) {
        value = printchain(printer, last);
    } else {
        value = printexpr(printer, last);
        const bool compares = last->kind == ExprKind::operation && (last->op == Op::icmp || last->op == Op::fcmp);
        if (!compares) {
            const std::string name = newvalue(printer);
            printline(printer, name + " = icmp ne i1 " + value.text + ", false");
            value.text = name;
        }
    }
    const std::string last_block = printer.current;
    beginblock(printer, end);
    std::string text = "phi i1 ";
    for (std::size_t place = first_edge; place < printer.edges.size(); ++place) {
        const Edge &edge = printer.edges[place];
        if (edge.yes == end || edge.no == end) {
            text += "[ " + constant + ", %" + edge.block + " ], ";
        }
    }
    printer.no_chains = before;
    Operand result;
    result.text = newvalue(printer);
    result.bits = printer.int_bits;
    result.is_unsigned = true;
    printline(printer, result.text + " = " + text + "[ " + value.text + ", %" + last_block + " ]");
    return result;
}

// ---- Simple statements ----

void printstatement(BodyPrinter &printer, const Stmt *stmt)
{
    ensureblock(printer);
    const bool before = printer.no_chains;
    if (!before) {
        choosechains(printer, {stmt->value, stmt->address});
    }
    switch (stmt->kind) {
    case StmtKind::store: {
        Type *type = stmt->value->type;
        const Operand value = printstored(printer, stmt->value, type);
        const std::string address = printtarget(printer, stmt->address, type);
        const std::string text = typetext(type);
        printline(printer, std::string(stmt->is_volatile ? "store volatile " : "store ") + text + " " + value.text +
                               ", " + text + "* " + address);
        break;
    }
    case StmtKind::set: {
        Type *type = stmt->variable->type;
        const Operand value = printstored(printer, stmt->value, type);
        const std::string text = typetext(type);
        stmt->variable->used = true;
        printline(printer, "store " + text + " " + value.text + ", " + text + "* " + slotname(stmt->variable));
        break;
    }
    default:
        printexpr(printer, stmt->value);
        break;
    }
    printer.no_chains = before;
}

namespace {

// ---- Structured statements ----

// The operand of a loop's or a switch's condition, of which no part may be a chain of its own.
std::string printtest(BodyPrinter &printer, const Expr *condition)
{
    if (islogical(condition)) {
        return printchain(printer, condition).text;
    }
    printer.no_chains = true;
    std::string text = printexpr(printer, condition).text;
    printer.no_chains = false;
    return text;
}

void printif(FormPrinter &printer, const Stmt *stmt)
{
    BodyPrinter &body = printer.body;
    const std::string n = number(body);
    const std::string then = "if.then" + n;
    const std::string end = "if.end" + n;
    const std::string no = stmt->other.empty() ? end : "if.else" + n;
    ensureblock(body);
    if (islogical(stmt->condition)) {
        body.no_chains = true;
        printjumps(body, stmt->condition, then, no);
        body.no_chains = false;
    } else {
        choosechains(body, {stmt->condition});
        branch(body, printexpr(body, stmt->condition).text, then, no);
        body.no_chains = false;
    }
    beginblock(body, then);
    printlist(printer, stmt->body);
    if (!stmt->other.empty()) {
        if (body.is_open) {
            jump(body, end);
        }
        beginblock(body, no);
        printlist(printer, stmt->other);
    }
    beginblock(body, end);
}

void printbody(FormPrinter &printer, const Stmts &stmts, Construct construct)
{
    printer.constructs.push_back(std::move(construct));
    printlist(printer, stmts);
    printer.constructs.pop_back();
}

void printwhile(FormPrinter &printer, const Stmt *stmt)
{
    BodyPrinter &body = printer.body;
    const std::string n = number(body);
    const std::string head = "while.cond" + n;
    const std::string end = "while.end" + n;
    ensureblock(body);
    beginblock(body, head);
    branch(body, printtest(body, stmt->condition), "while.body" + n, end);
    beginblock(body, "while.body" + n);
    printbody(printer, stmt->body, {end, head, true});
    if (body.is_open) {
        jump(body, head);
    }
    beginblock(body, end);
}

void printdo(FormPrinter &printer, const Stmt *stmt)
{
    BodyPrinter &body = printer.body;
    const std::string n = number(body);
    const std::string head = "do.body" + n;
    const std::string test = "do.cond" + n;
    const std::string end = "do.end" + n;
    ensureblock(body);
    beginblock(body, head);
    printbody(printer, stmt->body, {end, test});
    beginblock(body, test);
    branch(body, printtest(body, stmt->condition), head, end);
    beginblock(body, end);
}

void printforever(FormPrinter &printer, const Stmts &stmts)
{
    BodyPrinter &body = printer.body;
    const std::string n = number(body);
    const std::string step = "for.inc" + n;
    ensureblock(body);
    beginblock(body, "for.cond" + n);
    neutralblock(body);
    printbody(printer, stmts, {"for.end" + n, step});
    beginblock(body, step);
    jump(body, "for.cond" + n);
    beginblock(body, "for.end" + n);
}

void printfor(FormPrinter &printer, const Stmt *stmt)
{
    if (stmt->condition == nullptr && stmt->step.empty()) {
        printforever(printer, stmt->body);
        return;
    }
    BodyPrinter &body = printer.body;
    const std::string n = number(body);
    const std::string step = "for.inc" + n;
    const std::string end = "for.end" + n;
    ensureblock(body);
    beginblock(body, "for.cond" + n);
    const std::string test = stmt->condition == nullptr ? "true" : printtest(body, stmt->condition);
    const std::string again = body.current;
    branch(body, test, "for.body" + n, end);
    beginblock(body, "for.body" + n);
    printbody(printer, stmt->body, {end, step});
    beginblock(body, step);
    body.no_chains = true;
    for (const Stmt *part : stmt->step) {
        printstatement(body, part);
    }
    body.no_chains = false;
    jump(body, again);
    beginblock(body, end);
}

// A loop whose condition is a chain that no form has: the body tests it first.
void printtested(FormPrinter &printer, const Stmt *stmt)
{
    Tree &tree = printer.body.tree;
    Stmt *leave = newstmt(tree, StmtKind::if_);
    leave->condition = negate(tree, stmt->condition);
    leave->body = {newstmt(tree, StmtKind::break_)};
    Stmt *loop = newstmt(tree, StmtKind::for_);
    loop->step = stmt->step;
    if (stmt->kind == StmtKind::do_) {
        loop->body = stmt->body;
        loop->body.push_back(leave);
    } else {
        loop->body = {leave};
        loop->body.insert(loop->body.end(), stmt->body.begin(), stmt->body.end());
    }
    printfor(printer, loop);
}

void printloop(FormPrinter &printer, const Stmt *stmt)
{
    if (stmt->condition != nullptr && phisof(stmt->condition) > most_phis) {
        printtested(printer, stmt);
    } else if (stmt->kind == StmtKind::while_) {
        printwhile(printer, stmt);
    } else if (stmt->kind == StmtKind::do_) {
        printdo(printer, stmt);
    } else {
        printfor(printer, stmt);
    }
}

std::string casetext(const Value *value, const Operand &selector)
{
    if (!selector.is_signed) {
        const std::uint32_t bits = value->type->bits;
        return std::to_string(bits >= 64 ? value->number : value->number & ((std::uint64_t{1} << bits) - 1));
    }
    return std::to_string(signedvalue(value));
}

void printswitch(FormPrinter &printer, const Stmt *stmt)
{
    BodyPrinter &body = printer.body;
    const std::string n = number(body);
    const std::string end = "sw.epilog" + n;
    std::string otherwise = end;
    ensureblock(body);
    body.no_chains = true;
    const Operand selector = printselector(body, stmt->value);
    body.no_chains = false;
    const std::string type = typetext(stmt->value->type);
    std::string lines;
    for (const Stmt *part : stmt->body) {
        if (part->kind != StmtKind::case_) {
            continue;
        }
        const std::string label = part->is_default ? "sw.default" + n : "sw.bb" + number(body);
        otherwise = part->is_default ? label : otherwise;
        for (auto value = part->cases.rbegin(); value != part->cases.rend(); ++value) {
            lines += "    " + type + " " + casetext(*value, selector) + ", label %" + label + "\n";
        }
        printer.case_labels[part] = label;
    }
    endblock(body, "switch " + type + " " + selector.text + ", label %" + otherwise + " [\n" + lines + "  ]");
    printbody(printer, stmt->body, {end, {}});
    beginblock(body, end);
}

void printcontinue(FormPrinter &printer)
{
    for (auto construct = printer.constructs.rbegin(); construct != printer.constructs.rend(); ++construct) {
        if (!construct->continue_label.empty()) {
            jump(printer.body, construct->continue_label);
            printer.body.continued = construct->is_while ? construct->break_label : std::string();
            return;
        }
    }
}

void printgoto(BodyPrinter &printer, const Stmt *stmt)
{
    neutralblock(printer);
    jump(printer, stmt->target->label);
}

void printreturn(BodyPrinter &printer, const Stmt *stmt)
{
    if (stmt->value == nullptr) {
        endblock(printer, "ret void");
    } else {
        choosechains(printer, {stmt->value});
        const Operand value = printstored(printer, stmt->value, stmt->value->type);
        printer.no_chains = false;
        endblock(printer, "ret " + typetext(stmt->value->type) + " " + value.text);
    }
    printer.returned = true;
}

void printstructured(FormPrinter &printer, const Stmt *stmt)
{
    BodyPrinter &body = printer.body;
    switch (stmt->kind) {
    case StmtKind::if_:
        printif(printer, stmt);
        break;
    case StmtKind::while_:
    case StmtKind::do_:
    case StmtKind::for_:
        printloop(printer, stmt);
        break;
    case StmtKind::switch_:
        printswitch(printer, stmt);
        break;
    case StmtKind::case_:
        beginblock(body, printer.case_labels[stmt]);
        break;
    case StmtKind::break_:
        ensureblock(body);
        jump(body, printer.constructs.back().break_label);
        break;
    case StmtKind::continue_:
        ensureblock(body);
        printcontinue(printer);
        break;
    case StmtKind::return_:
        ensureblock(body);
        printreturn(body, stmt);
        break;
    case StmtKind::goto_:
        printgoto(body, stmt);
        break;
    case StmtKind::label:
        if (stmt->target->labelled) {
            beginblock(body, stmt->target->label);
        }
        break;
    case StmtKind::unreachable:
        ensureblock(body);
        endblock(body, "unreachable");
        break;
    default:
        printstatement(body, stmt);
        break;
    }
}

// True if a label is the last that is printed of the first `count` statements.
bool endsinlabel(const Stmts &stmts, std::size_t count)
{
    while (count-- > 0) {
        const Stmt *stmt = stmts[count];
        if (stmt->kind == StmtKind::label && stmt->target->labelled) {
            return true;
        }
        if (stmt->kind != StmtKind::label && stmt->kind != StmtKind::unreachable) {
            return false;
        }
    }
    return false;
}

// C wants a statement after a label, and there is no empty one: `if (0) { }`.
void printnothing(BodyPrinter &printer)
{
    const std::string n = number(printer);
    ensureblock(printer);
    branch(printer, "false", "if.then" + n, "if.end" + n);
    beginblock(printer, "if.then" + n);
    beginblock(printer, "if.end" + n);
}

void printlist(FormPrinter &printer, const Stmts &stmts)
{
    for (std::size_t place = 0; place < stmts.size(); ++place) {
        printer.body.returned = false;
        printer.body.edges.clear();
        if (stmts[place]->kind == StmtKind::case_ && endsinlabel(stmts, place)) {
            printnothing(printer.body);
        }
        printstructured(printer, stmts[place]);
    }
    if (endsinlabel(stmts, stmts.size())) {
        printnothing(printer.body);
    }
}

void printslots(Tree &tree, std::string &out)
{
    for (const Variable &variable : tree.variables) {
        if (variable.used || variable.param != nullptr) {
            out += "  " + slotname(&variable) + " = alloca " + typetext(variable.type) + "\n";
        }
    }
}

}  // namespace

void printfunctionbody(Tree &tree, std::string &out)
{
    std::string text;
    Module &module = *tree.function->module;
    BodyPrinter body = {tree, module, text, module.layout.native32 ? 32U : 16U};
    body.is_open = true;
    body.current = "entry";
    FormPrinter printer = {body};
    printlist(printer, tree.body);
    if (body.is_open || !body.returned) {
        ensureblock(body);
        endblock(body, "unreachable");
    }
    out += "entry:\n";
    printslots(tree, out);
    out += text;
}

}  // namespace adapt
