// Branches, switch, return and phi. The label prefixes of a branch's targets show the construct of the source that it
// belongs to; the op that a branch gets here selects its handler in the statement walk.

#include "reader/reader.h"

#include "base/base.h"
#include "frontend/frontend.h"

namespace {

// "label" "%" name; null after a report.
Name *readlabel()
{
    if (!expectword("label", "invalid label syntax") || !expect(token::percent, "invalid label prefix"))
        return nullptr;
    return expectname("invalid label name");
}

struct BranchClass {
    std::string_view first_target;
    std::uint8_t op;
};

// By the prefix of the first target, for what is neither a short-circuit term nor an `if`.
constexpr BranchClass branch_classes[] = {
    {labels::do_, inst::do_branch},
    {labels::for_, inst::for_branch},
    {labels::conditional, inst::cond_branch},
    {labels::while_, inst::while_branch},
};

bool isshortcircuit(const Name *label)
{
    return namebegins(label, labels::logical_and) || namebegins(label, labels::logical_or);
}

std::uint8_t classify(const Expr *pair)
{
    if (isshortcircuit(pair->true_label) || isshortcircuit(pair->false_label))
        return inst::chain_branch;
    if (namebegins(pair->true_label, labels::if_))
        return namebegins(pair->false_label, labels::if_) ? inst::if_branch : inst::other_branch;
    for (const BranchClass &row : branch_classes)
        if (namebegins(pair->true_label, row.first_target))
            return row.op;
    return inst::other_branch;
}

// "," label "," label; null after a report.
Expr *readtargets()
{
    Expr *pair = newexpr(op::branch_pair, nullptr);
    for (Ref<Name> *target : {&pair->true_label, &pair->false_label}) {
        if (!expect(token::comma, "missing , in br"))
            return nullptr;
        *target = readlabel();
        if (!*target)
            return nullptr;
    }
    return pair;
}

// A branch on the condition after the token `width`, the i1. A constant compare is read as an instruction.
Inst *readconditional(const Token &width, Block *block)
{
    Token t;
    gettoken(t);
    Inst *instruction = nullptr;
    if (isword(t, "icmp")) {
        ungettoken(t);
        instruction = readinst(nullptr, block);
        if (!instruction)
            return nullptr;
    } else {
        instruction = newinst();
        ungettoken(width);
        instruction->expr = readterm(nullptr, block);
    }
    instruction->targets = readtargets();
    if (!instruction->targets)
        return nullptr;
    instruction->op = classify(instruction->targets);
    return instruction;
}

// label, whose first word `t` is taken already; null after a report.
Inst *readjump(const Token &t)
{
    Inst *instruction = newinst();
    instruction->op = inst::jump;
    ungettoken(t);
    instruction->name = readlabel();
    return instruction->name ? instruction : nullptr;
}

Inst *invalidbranch()
{
    report("invalid br syntax");
    return nullptr;
}

}  // namespace

// label | "i1" condition "," label "," label
Inst *readbr(Block *block)
{
    Token t;
    gettoken(t);
    if (isword(t, "label"))
        return readjump(t);
    if (isword(t, "i1"))
        return readconditional(t, block);
    return invalidbranch();
}

// label "unwind" ...: the destinations of an invoke.
Inst *readto()
{
    after_invoke = false;
    Token t;
    gettoken(t);
    return isword(t, "label") ? readjump(t) : invalidbranch();
}

namespace {

// type value "," label; null after a report.
Expr *readcase()
{
    Expr *value = readterm(nullptr, nullptr);
    if (!expect(token::comma, "missing , in case"))
        return nullptr;
    value->label = readlabel();
    value->type = nullptr;  // a case prints as the plain text of its number
    return value->label ? value : nullptr;
}

// The case lines up to "]". Returns false after a report.
bool readcases(Inst *instruction)
{
    List<Expr> cases{};
    for (;;) {
        if (!nextline()) {
            report("unexpected en of file in switch");
            return false;
        }
        if (acceptif(token::right_bracket))
            break;
        Expr *value = readcase();
        if (!value)
            return false;
        append(cases, value);
    }
    instruction->cases = cases.head;
    return true;
}

}  // namespace

// type value "," label "[" and the cases on lines of their own. The default is found by its label later.
Inst *readswitch(Block *block)
{
    Inst *instruction = newinst();
    instruction->op = inst::switch_;
    instruction->expr = readterm(nullptr, block);
    if (!expect(token::comma, "missing , in switch") || !readlabel())
        return nullptr;
    if (!expect(token::left_bracket, "missing [ in switch"))
        return nullptr;
    return readcases(instruction) ? instruction : nullptr;
}

// "void" | type value
Inst *readret(Block *block)
{
    Inst *instruction = newinst();
    instruction->op = inst::ret;
    Type *type = readtype();
    if (type->kind != kind::void_)
        instruction->expr = readterm(type, block);
    return instruction;
}

namespace {

// "[" value "," "%" label "]"; null after a report. Locals stay unresolved: they may be defined in later blocks.
Expr *readphipair(Type *type)
{
    if (!expect(token::left_bracket, "missing [ in phi instruction"))
        return nullptr;
    Expr *value = readterm(type, nullptr);
    if (!expect(token::comma, "missing , in phi instruction") ||
        !expect(token::percent, "invalid label prefix in phi instruction"))
        return nullptr;
    value->label = expectname("invalid label in phi instruction");
    if (!value->label)
        return nullptr;
    return expect(token::right_bracket, "missing ] in phi instruction") ? value : nullptr;
}

}  // namespace

// type pair "," pair { "," pair }: the first and the last pair are kept.
Inst *readphi(Inst *instruction)
{
    Type *type = readtype();
    Expr *tree = newexpr(op::phi, type);
    tree->left = readphipair(type);
    if (!tree->left || !expect(token::comma, "missing , in phi instruction"))
        return nullptr;
    do {
        tree->right = readphipair(type);
        if (!tree->right)
            return nullptr;
    } while (acceptif(token::comma));
    instruction->expr = tree;
    instruction->op = inst::phi;
    return instruction;
}
