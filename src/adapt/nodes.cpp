// The nodes of a function and its variables: the start of the way to statements.
#include "adapt/tree.h"
#include "frontend/frontend.h"

namespace adapt {

namespace {

// The parameter that a store puts into its slot at the start of the function, or null. A bool comes widened.
Value *storedparam(const Value *store)
{
    Value *value = operand(store, 0);
    if (value->kind == ValueKind::instruction && value->op == Op::zext && hasoneuse(value) &&
        isinteger(operand(value, 0)->type, 1)) {
        value = operand(value, 0);
    }
    return value->kind == ValueKind::parameter ? value : nullptr;
}

// The slot that a store to a whole variable writes, or null.
Variable *writtenslot(Tree &tree, const Value *store)
{
    const auto found = tree.slots.find(operand(store, 1));
    return found == tree.slots.end() ? nullptr : found->second;
}

// True if no more is done with the address than loads and stores of what it leads to.
bool staysprivate(const Value *address, int depth)
{
    constexpr int deepest = 16;
    if (depth > deepest) {
        return false;
    }
    for (const Use *use = address->uses; use != nullptr; use = use->next) {
        const Value *user = use->user;
        switch (user->op) {
        case Op::load:
            break;
        case Op::store:
            if (operand(user, 0) == address) {
                return false;
            }
            break;
        case Op::getelementptr:
            if (operand(user, 0) != address || !staysprivate(user, depth + 1)) {
                return false;
            }
            break;
        case Op::bitcast:
            if (!staysprivate(user, depth + 1)) {
                return false;
            }
            break;
        default:
            return false;
        }
    }
    return true;
}

// True if the slot is loaded as a whole and stored in once, by `store`.
bool isstoredonce(const Value *slot, const Value *store)
{
    for (const Use *use = slot->uses; use != nullptr; use = use->next) {
        const Value *user = use->user;
        if (user != store && (user->op != Op::load || user->type != slot->element || user->is_volatile)) {
            return false;
        }
    }
    return true;
}

void makevariable(Tree &tree, Value *slot)
{
    Variable *variable = newvariable(tree, slot->name, slot->element);
    variable->slot = slot;
    variable->escapes = !staysprivate(slot, 0);
    tree.slots.emplace(slot, variable);
}

// Finds the slots of parameters: what the entry block stores there at its start is the parameter itself, which is used
// nowhere else. C has one variable for both.
void findparamslots(Tree &tree)
{
    Block *entry = tree.function->blocks.front();
    for (Value *inst = entry->first; inst != nullptr; inst = inst->next) {
        const bool early = inst->op == Op::alloca_ || inst->op == Op::zext || inst->op == Op::store;
        if (!early) {
            return;
        }
        Value *param = inst->op == Op::store && !inst->is_volatile ? storedparam(inst) : nullptr;
        Variable *variable = param == nullptr ? nullptr : writtenslot(tree, inst);
        if (variable == nullptr || variable->param != nullptr || !hasoneuse(param)) {
            continue;
        }
        const bool same = variable->type == param->type;
        const bool flag = isinteger(param->type, 1) && isinteger(variable->type, 8);
        const std::string wanted = std::string(param->name) + std::string(slot_suffix);
        if ((!same && !flag) || variable->slot->name != wanted) {
            continue;
        }
        variable->param = param;
        variable->stable = !variable->escapes && isstoredonce(variable->slot, inst);
        tree.params.emplace(param, variable);
        tree.dropped.insert(inst);
        if (operand(inst, 0) != param) {
            tree.dropped.insert(operand(inst, 0));
        }
    }
}

void makevariables(Tree &tree)
{
    for (Block *block : tree.function->blocks) {
        for (Value *inst = block->first; inst != nullptr; inst = inst->next) {
            if (inst->op == Op::alloca_) {
                makevariable(tree, inst);
            }
        }
    }
    findparamslots(tree);
    for (Value *param : tree.function->params) {
        if (tree.params.find(param) == tree.params.end()) {
            Variable *variable = newvariable(tree, param->name, param->type);
            variable->param = param;
            variable->stable = true;
            tree.params.emplace(param, variable);
        }
    }
}

void fillexit(Tree &tree, Node *node, Value *last)
{
    node->terminator = last;
    for (Block *target : last->targets) {
        node->succs.push_back(static_cast<Node *>(target->note));
    }
    switch (last->op) {
    case Op::br:
        if (last->targets.size() > 1 && node->succs[0] != node->succs[1]) {
            node->exit = Exit::branch;
            tree.conditions.push_back({});
            node->condition = &tree.conditions.back();
            node->condition->value = operand(last, 0);
        } else {
            node->exit = Exit::jump;
            node->succs.resize(1);
        }
        break;
    case Op::switch_:
        node->exit = Exit::switch_;
        node->value = operand(last, 0);
        for (std::size_t place = 1; place < last->operand_count; ++place) {
            node->cases.push_back(operand(last, place));
        }
        break;
    case Op::ret:
        node->exit = Exit::return_;
        node->value = last->operand_count == 0 ? nullptr : operand(last, 0);
        break;
    default:
        node->exit = Exit::unreachable;
        node->succs.clear();
        break;
    }
}

void fillnode(Tree &tree, Node *node, Block *block)
{
    for (Value *inst = block->first; inst != nullptr; inst = inst->next) {
        if (isterminator(inst->op)) {
            fillexit(tree, node, inst);
            return;
        }
        if (inst->op == Op::phi) {
            Phi phi;
            phi.value = inst;
            ++tree.stamp;
            for (std::size_t place = 0; place < inst->targets.size(); ++place) {
                Node *from = static_cast<Node *>(inst->targets[place]->note);
                if (from->mark != tree.stamp) {  // a block that leads here by several cases has a pair for each
                    from->mark = tree.stamp;
                    phi.incoming.push_back({from, operand(inst, place)});
                }
            }
            node->phis.push_back(std::move(phi));
        } else if (inst->op != Op::alloca_ && !tree.dropped.contains(inst)) {
            node->items.push_back(inst);
        }
    }
}

}  // namespace

Expr *newexpr(Tree &tree, ExprKind kind, Type *type)
{
    Expr &expr = tree.exprs.emplace_back();
    expr.kind = kind;
    expr.type = type;
    return &expr;
}

Stmt *newstmt(Tree &tree, StmtKind kind)
{
    Stmt &stmt = tree.stmts.emplace_back();
    stmt.kind = kind;
    return &stmt;
}

Node *newnode(Tree &tree, const Block *block)
{
    Node &node = tree.nodes.emplace_back();
    node.block = block;
    node.index = static_cast<std::uint32_t>(tree.nodes.size() - 1);
    return &node;
}

Variable *newvariable(Tree &tree, std::string_view name, Type *type)
{
    Variable &variable = tree.variables.emplace_back();
    variable.name = name;
    variable.type = type;
    return &variable;
}

void makenodes(Tree &tree)
{
    makevariables(tree);
    for (Block *block : tree.function->blocks) {
        block->note = newnode(tree, block);
    }
    for (Block *block : tree.function->blocks) {
        fillnode(tree, static_cast<Node *>(block->note), block);
    }
}

}  // namespace adapt
