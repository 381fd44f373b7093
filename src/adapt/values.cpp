// Instructions become statements over trees of expressions.
//
// The instructions of one node are taken in order. A value that has been computed and not yet used is pending: its tree
// moves to its use. All pending trees commute, so they can be evaluated in any order; before an instruction that
// doesn't commute with one of them, that one is put into a variable. So every call, volatile access and step happens
// once and in the order of the input, and a load reads what it read:
//
//     %0 = load i16, i16* @g          tmp = g;
//     %c = call i16 @f()              x = tmp + f();
//     %s = add i16 %0, %c
//     store i16 %s, i16* %x
//
// A value with more than one use is written more than once if it has no effects and is small, as in `a[i] = a[i] + 2`;
// a load that is stepped becomes `x++`, a stored call that is used again an assignment within the expression.
#include "adapt/tree.h"

#include <algorithm>

namespace adapt {

namespace {

constexpr std::uint32_t largest_repeated = 12;  // nodes of a tree that may be written twice
constexpr std::uint32_t deepest_tree = 150;
constexpr std::size_t most_pending = 48;
constexpr std::size_t longest_effects = 8;
constexpr int deepest_stable = 6;

// ---- Effects ----

bool overlap(const Place &a, const Place &b)
{
    if (a.variable != nullptr && b.variable != nullptr) {
        return a.variable == b.variable;
    }
    if (a.global != nullptr && b.global != nullptr) {
        return a.global == b.global;
    }
    const Place &known = a.variable != nullptr ? a : b;
    const Place &other = a.variable != nullptr ? b : a;
    return known.variable == nullptr || (known.variable->escapes && other.global == nullptr);
}

bool overlapany(const std::vector<Place> &one, const std::vector<Place> &other)
{
    return std::any_of(one.begin(), one.end(), [&](const Place &a) {
        return std::any_of(other.begin(), other.end(), [&](const Place &b) { return overlap(a, b); });
    });
}

bool writes(const Effects &effects)
{
    return effects.calls || effects.writes_any || !effects.writes.empty();
}

bool reads(const Effects &effects)
{
    return effects.calls || effects.reads_any || !effects.reads.empty();
}

bool hassideeffects(const Effects &effects)
{
    return writes(effects) || effects.is_volatile;
}

// True if a call can reach one of the places.
bool reachable(const std::vector<Place> &places)
{
    return std::any_of(places.begin(), places.end(),
                       [](const Place &place) { return place.variable == nullptr || place.variable->escapes; });
}

bool callconflicts(const Effects &call, const Effects &other)
{
    return call.calls && (other.calls || other.is_volatile || other.reads_any || other.writes_any ||
                          reachable(other.reads) || reachable(other.writes));
}

bool conflict(const Effects &a, const Effects &b)
{
    if (callconflicts(a, b) || callconflicts(b, a) || (a.is_volatile && b.is_volatile)) {
        return true;
    }
    if ((a.writes_any && (reads(b) || writes(b))) || (b.writes_any && (reads(a) || writes(a))) ||
        (a.reads_any && writes(b)) || (b.reads_any && writes(a))) {
        return true;
    }
    return overlapany(a.writes, b.reads) || overlapany(a.writes, b.writes) || overlapany(a.reads, b.writes);
}

void addplace(std::vector<Place> &places, bool &any, const Place &place)
{
    const bool known = std::any_of(places.begin(), places.end(), [&](const Place &other) {
        return other.variable == place.variable && other.global == place.global;
    });
    if (any || known) {
        return;
    }
    if (places.size() == longest_effects) {
        any = true;
        places.clear();
        return;
    }
    places.push_back(place);
}

void addeffects(Effects &to, const Effects &from)
{
    to.calls = to.calls || from.calls;
    to.is_volatile = to.is_volatile || from.is_volatile;
    to.reads_any = to.reads_any || from.reads_any;
    to.writes_any = to.writes_any || from.writes_any;
    for (const Place &place : from.reads) {
        addplace(to.reads, to.reads_any, place);
    }
    for (const Place &place : from.writes) {
        addplace(to.writes, to.writes_any, place);
    }
}

// The object that an address leads into.
Place placeof(const Expr *address)
{
    while (address->kind == ExprKind::operation && (address->op == Op::getelementptr || address->op == Op::bitcast)) {
        address = address->operands[0];
    }
    if (address->kind == ExprKind::address) {
        return {address->variable, nullptr};
    }
    const Value *value = address->kind == ExprKind::constant ? address->value : nullptr;
    while (value != nullptr && value->kind == ValueKind::expression &&
           (value->op == Op::getelementptr || value->op == Op::bitcast)) {
        value = operand(value, 0);
    }
    return {nullptr, value != nullptr && value->kind == ValueKind::global ? value->global : nullptr};
}

bool isconstantplace(const Place &place)
{
    return place.global != nullptr && place.global->is_constant && !place.global->declared_only;
}

// ---- Expressions ----

void settle(Expr *expr)
{
    expr->depth = 1;
    expr->size = 1;
    for (const Expr *part : expr->operands) {
        addeffects(expr->effects, part->effects);
        expr->depth = std::max(expr->depth, part->depth + 1);
        expr->size += part->size;
    }
}

Expr *constantof(Tree &tree, Value *value)
{
    Expr *expr = newexpr(tree, ExprKind::constant, value->type);
    expr->value = value;
    return expr;
}

Expr *addressexpr(Tree &tree, Variable *variable)
{
    Expr *expr = newexpr(tree, ExprKind::address, pointerto(*tree.function->module, variable->type));
    expr->variable = variable;
    return expr;
}

void addread(Expr *expr, const Place &place)
{
    if (!isconstantplace(place)) {
        addplace(expr->effects.reads, expr->effects.reads_any, place);
    }
}

Expr *loadexpr(Tree &tree, Expr *address, Type *type)
{
    Expr *expr = newexpr(tree, ExprKind::operation, type);
    expr->op = Op::load;
    expr->operands = {address};
    settle(expr);
    addread(expr, placeof(address));
    return expr;
}

Expr *readvariable(Tree &tree, Variable *variable)
{
    return loadexpr(tree, addressexpr(tree, variable), variable->type);
}

bool sameexpr(const Expr *a, const Expr *b)
{
    if (a == b) {
        return true;
    }
    if (a->kind != b->kind || a->op != b->op || a->type != b->type || a->variable != b->variable ||
        a->size != b->size || a->size > largest_repeated || a->operands.size() != b->operands.size() ||
        a->is_volatile || b->is_volatile) {
        return false;
    }
    if (a->kind == ExprKind::constant) {
        return a->value == b->value || (a->value->kind == ValueKind::integer && b->value->kind == ValueKind::integer &&
                                        a->value->number == b->value->number);
    }
    if (a->kind != ExprKind::address && a->kind != ExprKind::operation) {
        return false;
    }
    if (a->op == Op::getelementptr && a->value->element != b->value->element) {
        return false;
    }
    for (std::size_t place = 0; place < a->operands.size(); ++place) {
        if (!sameexpr(a->operands[place], b->operands[place])) {
            return false;
        }
    }
    return true;
}

// ---- The builder ----

struct Info {
    Expr *expr = nullptr;    // while it is pending
    std::uint32_t uses = 0;  // within the list that are still to come
    bool is_pending = false;
};

struct Builder {
    Tree &tree;
    std::vector<Stmt *> *out;
    bool dry = false;
    bool failed = false;
    std::unordered_map<const Value *, Info> infos = {};
    std::vector<Value *> pending = {};  // in the order of the input; those that are used up are taken out
};

Expr *use(Builder &builder, Value *value);
Expr *conditionexpr(Builder &builder, const Condition *condition);

// Calls visit(operand) for what an item uses within its own list.
template <typename Visit>
void foreachoperand(Tree &tree, Value *item, Visit visit)
{
    const auto found = tree.folded_phis.find(item);
    if (found != tree.folded_phis.end()) {
        visit(firstvalue(found->second->condition));
        return;
    }
    for (std::size_t place = 0; place < item->operand_count; ++place) {
        visit(operand(item, place));
    }
}

void countuse(Builder &builder, const Value *value)
{
    if (value->kind == ValueKind::instruction) {
        ++builder.infos[value].uses;
    }
}

void countlist(Builder &builder, const std::vector<Value *> &items)
{
    for (Value *item : items) {
        foreachoperand(builder.tree, item, [&](const Value *value) { countuse(builder, value); });
    }
}

// Uses by instructions that C doesn't need don't count.
std::size_t realuses(const Tree &tree, const Value *value)
{
    std::size_t count = 0;
    for (const Use *next = value->uses; next != nullptr; next = next->next) {
        count += tree.dropped.contains(next->user) ? 0U : 1U;
    }
    return count;
}

Variable *variablefor(Tree &tree, Value *value)
{
    Variable *&variable = tree.held[value];
    if (variable == nullptr) {
        tree.trial.push_back(value);
        variable = newvariable(tree, {}, value->type);
        variable->name = value->name;
        if (variable->name.empty() && value->op == Op::load) {
            const Value *address = operand(value, 0);
            variable->name = address->kind == ValueKind::global ? std::string() : std::string(address->name);
        }
        if (variable->name.ends_with(".addr")) {
            variable->name.resize(variable->name.size() - 5);
        }
        if (variable->name.empty()) {
            variable->name = "tmp";
        }
    }
    return variable;
}

void emit(Builder &builder, Stmt *stmt)
{
    builder.out->push_back(stmt);
}

void emitset(Builder &builder, Variable *variable, Expr *value, const Value *origin)
{
    Stmt *stmt = newstmt(builder.tree, StmtKind::set);
    stmt->variable = variable;
    stmt->value = value;
    stmt->origin = origin;
    emit(builder, stmt);
}

void emitstore(Builder &builder, Expr *address, Expr *value, const Value *origin, bool is_volatile)
{
    Stmt *stmt = newstmt(builder.tree, StmtKind::store);
    stmt->address = address;
    stmt->value = value;
    stmt->origin = origin;
    stmt->is_volatile = is_volatile;
    emit(builder, stmt);
}

void forget(Builder &builder, const Value *value)
{
    const auto found = std::find(builder.pending.begin(), builder.pending.end(), value);
    if (found != builder.pending.end()) {
        builder.pending.erase(found);
    }
    builder.infos[value].is_pending = false;
}

// What a step writes back: the old value, in a variable, and one.
Expr *stepped(Tree &tree, const Expr *step, Variable *old)
{
    Module &module = *tree.function->module;
    Expr *expr = newexpr(tree, ExprKind::operation, step->type);
    const bool pointer = step->type->kind == TypeKind::pointer;
    expr->op = step->op;
    expr->value = step->value;
    Type *type = pointer ? step->value->operands[1].value->type : step->type;
    const std::uint64_t one = step->negative ? ~std::uint64_t{0} : 1;
    expr->operands = {readvariable(tree, old), constantof(tree, intconst(module, type, one))};
    settle(expr);
    return expr;
}

// Puts a pending value into a variable, here and now.
void materialise(Builder &builder, Value *value)
{
    Info &info = builder.infos[value];
    Expr *expr = info.expr;
    forget(builder, value);
    Variable *variable = variablefor(builder.tree, value);
    if (expr->kind == ExprKind::assign) {
        emitset(builder, variable, expr->operands[1], value);
        emitstore(builder, expr->operands[0], readvariable(builder.tree, variable), value, false);
    } else if (expr->kind == ExprKind::post_step) {
        Expr *address = expr->operands[0];
        emitset(builder, variable, loadexpr(builder.tree, address, expr->type), value);
        emitstore(builder, address, stepped(builder.tree, expr, variable), value, false);
    } else {
        emitset(builder, variable, expr, value);
    }
}

void materialiseconflicts(Builder &builder, const Effects &effects, const Value *except)
{
    for (std::size_t place = 0; place < builder.pending.size();) {
        Value *value = builder.pending[place];
        if (value != except && conflict(effects, builder.infos[value].expr->effects)) {
            materialise(builder, value);
        } else {
            ++place;
        }
    }
}

// A value that can be computed anew wherever it is used: it is the same during the whole call.
bool isstable(const Tree &tree, const Value *value, int depth)
{
    if (value->kind != ValueKind::instruction) {
        return true;
    }
    if (depth > deepest_stable) {
        return false;
    }
    if (value->op == Op::alloca_) {
        return true;
    }
    if (value->op == Op::load && !value->is_volatile) {
        const auto found = tree.slots.find(operand(value, 0));
        return found != tree.slots.end() && found->second->stable && found->second->type == value->type;
    }
    if (value->op != Op::getelementptr && value->op != Op::bitcast) {
        return false;
    }
    for (std::size_t place = 1; place < value->operand_count; ++place) {
        if (!isconstant(operand(value, place))) {
            return false;
        }
    }
    return isstable(tree, operand(value, 0), depth + 1);
}

Expr *operationexpr(Tree &tree, Value *inst, std::vector<Expr *> operands)
{
    Expr *expr = newexpr(tree, ExprKind::operation, inst->type);
    expr->op = inst->op;
    expr->predicate = inst->predicate;
    expr->is_volatile = inst->is_volatile;
    expr->value = inst;
    expr->operands = std::move(operands);
    return expr;
}

Expr *stableexpr(Builder &builder, Value *value)
{
    Tree &tree = builder.tree;
    if (value->op == Op::load) {
        return readvariable(tree, tree.slots.at(operand(value, 0)));
    }
    std::vector<Expr *> operands;
    for (std::size_t place = 0; place < value->operand_count; ++place) {
        operands.push_back(use(builder, operand(value, place)));
    }
    Expr *expr = operationexpr(tree, value, std::move(operands));
    settle(expr);
    return expr;
}

// The tree for one use of a value.
Expr *use(Builder &builder, Value *value)
{
    Tree &tree = builder.tree;
    if (value->kind == ValueKind::parameter) {
        return readvariable(tree, tree.params.at(value));
    }
    if (value->kind != ValueKind::instruction) {
        return constantof(tree, value);
    }
    if (value->op == Op::alloca_) {
        return addressexpr(tree, tree.slots.at(value));
    }
    if (!tree.folded_phis.contains(value) && isstable(tree, value, 0)) {
        return stableexpr(builder, value);
    }
    const auto found = builder.infos.find(value);
    if (found == builder.infos.end() || !found->second.is_pending) {
        return readvariable(tree, variablefor(tree, value));
    }
    Info &info = found->second;
    if (info.uses > 1 && hassideeffects(info.expr->effects)) {
        materialise(builder, value);
        --builder.infos[value].uses;
        return readvariable(tree, variablefor(tree, value));
    }
    Expr *expr = info.expr;
    if (--info.uses == 0) {
        forget(builder, value);
    }
    return expr;
}

// Makes a computed value pending, or puts it into its variable.
void produce(Builder &builder, Value *value, Expr *expr)
{
    Tree &tree = builder.tree;
    Info &info = builder.infos[value];
    const std::size_t uses = realuses(tree, value);
    if (uses == 0) {
        if (!hassideeffects(expr->effects)) {
            return;
        }
        if (expr->kind == ExprKind::operation && expr->op == Op::call) {
            Stmt *stmt = newstmt(tree, StmtKind::expression);
            stmt->value = expr;
            stmt->origin = value;
            emit(builder, stmt);
        } else {
            emitset(builder, variablefor(tree, value), expr, value);
        }
        return;
    }
    if (uses != info.uses) {  // some are in other nodes
        if (builder.dry) {
            builder.failed = true;
        }
        emitset(builder, variablefor(tree, value), expr, value);
        return;
    }
    info.expr = expr;
    info.is_pending = true;
    builder.pending.push_back(value);
    const bool repeated = info.uses > 1 && !hassideeffects(expr->effects) &&
                          (expr->size > largest_repeated || expr->kind != ExprKind::operation);
    if (expr->depth > deepest_tree || repeated) {
        materialise(builder, value);
    } else if (builder.pending.size() > most_pending) {
        materialise(builder, builder.pending.front());
    }
}

// ---- Instructions ----

// The table of virtual functions of an object, which stays the same while arguments of a call are computed.
bool isvtable(const Value *load)
{
    const Type *type = load->type->sub;
    return !load->is_volatile && load->name.starts_with("vtable") && load->type->kind == TypeKind::pointer &&
           type != nullptr && type->kind == TypeKind::pointer && type->sub != nullptr &&
           type->sub->kind == TypeKind::function && hasoneuse(load);
}

void buildload(Builder &builder, Value *inst)
{
    Expr *address = use(builder, operand(inst, 0));
    Expr *expr = operationexpr(builder.tree, inst, {address});
    settle(expr);
    Effects own;
    const Place place = placeof(address);
    if (isvtable(inst)) {
        produce(builder, inst, expr);
        return;
    }
    if (inst->is_volatile) {
        own.is_volatile = true;
        own.reads.push_back(place);
    } else if (!isconstantplace(place)) {
        own.reads.push_back(place);
    }
    addeffects(expr->effects, own);
    materialiseconflicts(builder, own, nullptr);
    produce(builder, inst, expr);
}

bool isone(const Expr *expr, bool &negative)
{
    if (expr->kind != ExprKind::constant || expr->value->kind != ValueKind::integer) {
        return false;
    }
    const std::int64_t value = signedvalue(expr->value);
    negative = value == -1;
    return value == 1 || value == -1;
}

// If `value` is a pending `old + 1` of what `address` holds, and the old value is still needed: the old value. So the
// store of `value` is a step.
Value *findstep(Builder &builder, Value *value, const Expr *address, bool &negative)
{
    const auto found = builder.infos.find(value);
    if (value->kind != ValueKind::instruction || found == builder.infos.end() || !found->second.is_pending ||
        found->second.uses != 1) {
        return nullptr;
    }
    const Expr *sum = found->second.expr;
    const bool pointer = value->op == Op::getelementptr;
    if (sum->kind != ExprKind::operation || (value->op != Op::add && !pointer) || sum->operands.size() != 2 ||
        !isone(sum->operands[1], negative)) {
        return nullptr;
    }
    if (pointer && (value->type->kind != TypeKind::pointer || value->element != value->type->sub)) {
        return nullptr;
    }
    Value *old = operand(value, 0);
    const auto entry = builder.infos.find(old);
    if (old->kind != ValueKind::instruction || old->op != Op::load || old->is_volatile ||
        entry == builder.infos.end() || !entry->second.is_pending || entry->second.uses != 1 ||
        entry->second.expr != sum->operands[0] || hassideeffects(entry->second.expr->effects) ||
        hassideeffects(address->effects)) {
        return nullptr;
    }
    return sameexpr(entry->second.expr->operands[0], address) ? old : nullptr;
}

Effects writeeffects(const Place &place, bool is_volatile)
{
    Effects own;
    own.writes.push_back(place);
    own.is_volatile = is_volatile;
    return own;
}

void buildstep(Builder &builder, Value *value, Value *old, Expr *address, bool negative)
{
    Tree &tree = builder.tree;
    use(builder, value);
    Expr *expr = newexpr(tree, ExprKind::post_step, old->type);
    expr->op = value->op;
    expr->value = value;
    expr->negative = negative;
    expr->operands = {address};
    settle(expr);
    const Place place = placeof(address);
    const Effects own = writeeffects(place, false);
    materialiseconflicts(builder, own, old);
    addeffects(expr->effects, own);
    addread(expr, place);
    builder.infos[old].expr = expr;
}

// A value that is stored and used once more, and that couldn't be computed again: `(x = f())`, `(x = x + 1)`.
bool isassigned(Builder &builder, Value *value, const Expr *address)
{
    const auto found = builder.infos.find(value);
    if (value->kind != ValueKind::instruction || found == builder.infos.end() || !found->second.is_pending ||
        found->second.uses != 2 || hassideeffects(address->effects) || isaggregate(value->type) ||
        (builder.tree.function->module->emulate64 && isinteger(value->type, 64))) {
        return false;
    }
    const Effects &effects = found->second.expr->effects;
    return hassideeffects(effects) || conflict(writeeffects(placeof(address), false), effects);
}

void buildassign(Builder &builder, Value *value, Expr *address)
{
    Info &info = builder.infos[value];
    Expr *expr = newexpr(builder.tree, ExprKind::assign, value->type);
    expr->operands = {address, info.expr};
    settle(expr);
    const Effects own = writeeffects(placeof(address), false);
    materialiseconflicts(builder, own, value);
    addeffects(expr->effects, own);
    Info &again = builder.infos[value];
    again.expr = expr;
    again.uses = 1;
}

void buildstore(Builder &builder, Value *inst)
{
    Value *value = operand(inst, 0);
    Expr *address = use(builder, operand(inst, 1));
    if (!inst->is_volatile) {
        bool negative = false;
        if (Value *old = findstep(builder, value, address, negative); old != nullptr) {
            buildstep(builder, value, old, address, negative);
            return;
        }
        if (isassigned(builder, value, address)) {
            buildassign(builder, value, address);
            return;
        }
    }
    Expr *stored = use(builder, value);
    materialiseconflicts(builder, writeeffects(placeof(address), inst->is_volatile), nullptr);
    emitstore(builder, address, stored, inst, inst->is_volatile);
}

void buildcall(Builder &builder, Value *inst)
{
    std::vector<Expr *> operands;
    for (std::size_t place = 0; place < inst->operand_count; ++place) {
        operands.push_back(use(builder, operand(inst, place)));
    }
    Expr *expr = operationexpr(builder.tree, inst, std::move(operands));
    settle(expr);
    Effects own;
    own.calls = true;
    addeffects(expr->effects, own);
    materialiseconflicts(builder, own, nullptr);
    if (inst->type->kind == TypeKind::void_type || realuses(builder.tree, inst) == 0) {
        Stmt *stmt = newstmt(builder.tree, StmtKind::expression);
        stmt->value = expr;
        stmt->origin = inst;
        emit(builder, stmt);
        return;
    }
    produce(builder, inst, expr);
}

void buildplain(Builder &builder, Value *inst)
{
    if (isstable(builder.tree, inst, 0)) {
        return;
    }
    std::vector<Expr *> operands;
    for (std::size_t place = 0; place < inst->operand_count; ++place) {
        operands.push_back(use(builder, operand(inst, place)));
    }
    if (inst->op == Op::xor_ && isinteger(inst->type, 1) && operands[1]->kind == ExprKind::constant &&
        operands[1]->value->kind == ValueKind::integer && operands[1]->value->number == 1) {
        produce(builder, inst, negate(builder.tree, operands[0]));
        return;
    }
    Expr *expr = nullptr;
    if (inst->op == Op::select) {
        expr = newexpr(builder.tree, ExprKind::choice, inst->type);
        expr->value = inst;
        expr->operands = std::move(operands);
    } else {
        expr = operationexpr(builder.tree, inst, std::move(operands));
    }
    settle(expr);
    produce(builder, inst, expr);
}

void buildlist(Builder &builder, const std::vector<Value *> &items);

// The statements and then the expression. A chain begins with its first term, which takes them along.
Expr *withstatements(Tree &tree, Expr *expr, std::vector<Stmt *> statements)
{
    Expr *comma = newexpr(tree, expr->kind, expr->type);
    if (expr->kind == ExprKind::logical_and || expr->kind == ExprKind::logical_or) {
        comma->operands = expr->operands;
        comma->operands[0] = withstatements(tree, expr->operands[0], std::move(statements));
        settle(comma);
        return comma;
    }
    comma->kind = ExprKind::comma;
    comma->statements = std::move(statements);
    comma->operands = {expr};
    settle(comma);
    comma->effects.calls = true;  // whatever the statements do
    comma->effects.reads_any = true;
    comma->effects.writes_any = true;
    return comma;
}

bool hascomma(const Expr *expr)
{
    return expr->kind == ExprKind::comma || std::any_of(expr->operands.begin(), expr->operands.end(), hascomma);
}

// What has been built in a builder of its own, as a part of a larger expression of `outer`.
Expr *lazypart(Builder &outer, const Builder &builder, Expr *expr, std::vector<Stmt *> statements)
{
    outer.failed = outer.failed || builder.failed;
    return statements.empty() ? expr : withstatements(outer.tree, expr, std::move(statements));
}

// The items and then the value as one expression, evaluated as a part of a larger one.
Expr *lazyvalue(Builder &outer, const std::vector<Value *> &items, Value *value)
{
    std::vector<Stmt *> statements;
    Builder builder = {outer.tree, &statements, outer.dry};
    countlist(builder, items);
    countuse(builder, value);
    buildlist(builder, items);
    Expr *expr = use(builder, value);
    return lazypart(outer, builder, expr, std::move(statements));
}

// The same for the items of a condition and the condition itself.
Expr *lazycondition(Builder &outer, const Condition *condition)
{
    std::vector<Stmt *> statements;
    Builder builder = {outer.tree, &statements, outer.dry};
    countlist(builder, condition->items);
    countuse(builder, firstvalue(condition));
    buildlist(builder, condition->items);
    Expr *expr = conditionexpr(builder, condition);
    return lazypart(outer, builder, expr, std::move(statements));
}

Expr *chainexpr(Builder &builder, const Condition *condition)
{
    const bool all = condition->kind == Condition::Kind::all;
    Expr *expr = newexpr(builder.tree, all ? ExprKind::logical_and : ExprKind::logical_or,
                         inttype(*builder.tree.function->module, 1));
    for (std::size_t place = condition->terms.size(); place-- > 0;) {
        const Condition *term = condition->terms[place];
        const bool first = place + 1 == condition->terms.size();
        Expr *next = first ? conditionexpr(builder, term) : lazycondition(builder, term);
        if (next->kind == expr->kind) {
            expr->operands.insert(expr->operands.end(), next->operands.begin(), next->operands.end());
        } else {
            expr->operands.push_back(next);
        }
    }
    settle(expr);
    return expr;
}

Expr *choiceexpr(Builder &builder, Expr *condition, Expr *yes, Expr *no)
{
    if (hascomma(condition) || hascomma(yes) || hascomma(no)) {
        builder.failed = true;
    }
    Expr *expr = newexpr(builder.tree, ExprKind::choice, yes->type);
    expr->operands = {condition, yes, no};
    settle(expr);
    return expr;
}

Expr *conditionexpr(Builder &builder, const Condition *condition)
{
    Expr *expr = nullptr;
    switch (condition->kind) {
    case Condition::Kind::leaf:
        expr = use(builder, condition->value);
        break;
    case Condition::Kind::all:
    case Condition::Kind::any:
        expr = chainexpr(builder, condition);
        break;
    case Condition::Kind::choice: {
        const std::vector<Condition *> &terms = condition->terms;
        Expr *test = conditionexpr(builder, terms[0]);
        Expr *yes = lazycondition(builder, terms[1]);
        Expr *no = lazycondition(builder, terms[2]);
        expr = choiceexpr(builder, test, yes, no);
        break;
    }
    }
    if (expr->depth > deepest_tree) {
        builder.failed = true;
    }
    return condition->negated ? negate(builder.tree, expr) : expr;
}

void buildfolded(Builder &builder, Value *phi, const Folded *folded)
{
    Expr *expr = conditionexpr(builder, folded->condition);
    if (folded->is_choice) {
        Expr *yes = lazyvalue(builder, folded->true_items, folded->true_value);
        Expr *no = lazyvalue(builder, folded->false_items, folded->false_value);
        expr = choiceexpr(builder, expr, yes, no);
        expr->type = phi->type;
    }
    materialiseconflicts(builder, expr->effects, nullptr);
    produce(builder, phi, expr);
}

void buildlist(Builder &builder, const std::vector<Value *> &items)
{
    for (Value *item : items) {
        const auto found = builder.tree.folded_phis.find(item);
        if (found != builder.tree.folded_phis.end()) {
            buildfolded(builder, item, found->second);
        } else if (item->op == Op::load && !isstable(builder.tree, item, 0)) {
            buildload(builder, item);
        } else if (item->op == Op::store) {
            buildstore(builder, item);
        } else if (item->op == Op::call) {
            buildcall(builder, item);
        } else {
            buildplain(builder, item);
        }
    }
}

// ---- Phis ----

Variable *phivariable(Tree &tree, Phi &phi)
{
    if (phi.variable == nullptr) {
        phi.variable = variablefor(tree, phi.value);
    }
    return phi.variable;
}

struct Edge {
    Phi *phi;
    Value *value;
};

std::vector<Edge> edgesinto(Node *join, const Node *from)
{
    std::vector<Edge> edges;
    for (Phi &phi : join->phis) {
        for (const Incoming &pair : phi.incoming) {
            if (pair.from == from && pair.value != phi.value) {
                edges.push_back({&phi, pair.value});
            }
        }
    }
    return edges;
}

bool readsvariable(const Expr *expr, const Variable *variable)
{
    return expr->effects.reads_any || expr->effects.writes_any ||
           std::any_of(expr->effects.reads.begin(), expr->effects.reads.end(),
                       [=](const Place &place) { return place.variable == variable; });
}

// All phis of a join change at once: a value that reads one that is set before it goes through a copy.
void setphis(Builder &builder, const std::vector<Edge> &edges)
{
    Tree &tree = builder.tree;
    std::vector<Expr *> values;
    for (const Edge &edge : edges) {
        Expr *value = use(builder, edge.value);
        const bool overwritten =
            std::any_of(edges.begin(), edges.begin() + static_cast<std::ptrdiff_t>(values.size()),
                        [&](const Edge &before) { return readsvariable(value, phivariable(tree, *before.phi)); });
        if (overwritten || (edges.size() > 1 && hassideeffects(value->effects))) {
            Variable *copy = newvariable(tree, "next", edge.value->type);
            emitset(builder, copy, value, edge.phi->value);
            value = readvariable(tree, copy);
        }
        values.push_back(value);
    }
    for (std::size_t place = 0; place < edges.size(); ++place) {
        emitset(builder, phivariable(tree, *edges[place].phi), values[place], edges[place].phi->value);
    }
}

// A node on the edge, to which the phis of the join give what they took from `from`.
Node *splitedge(Tree &tree, const Node *from, Node *join)
{
    Node *middle = newnode(tree, nullptr);
    middle->index = from->index;
    middle->succs = {join};
    for (Phi &phi : join->phis) {
        const auto found = std::find_if(phi.incoming.begin(), phi.incoming.end(),
                                        [=](const Incoming &pair) { return pair.from == from; });
        if (found != phi.incoming.end()) {
            phi.incoming.push_back({middle, found->value});
        }
    }
    return middle;
}

// An edge from a branch into a join with phis gets a node that sets them.
void splitedges(Tree &tree, const std::vector<Node *> &nodes)
{
    for (Node *node : nodes) {
        for (Node *&succ : node->succs) {
            if (node->exit != Exit::jump && !edgesinto(succ, node).empty()) {
                succ = splitedge(tree, node, succ);
            }
        }
    }
}

void buildnode(Tree &tree, Node *node)
{
    Builder builder = {tree, &node->statements};
    std::vector<Edge> edges;
    if (node->exit == Exit::jump) {
        edges = edgesinto(node->succs[0], node);
    }
    countlist(builder, node->items);
    for (const Edge &edge : edges) {
        countuse(builder, edge.value);
    }
    if (node->exit == Exit::branch) {
        countuse(builder, firstvalue(node->condition));
    } else if (node->value != nullptr) {
        countuse(builder, node->value);
    }
    buildlist(builder, node->items);
    if (node->exit == Exit::branch) {
        node->result = conditionexpr(builder, node->condition);
    } else if (node->value != nullptr) {
        node->result = use(builder, node->value);
    }
    if (!edges.empty()) {
        setphis(builder, edges);
    }
}

}  // namespace

Expr *negate(Tree &tree, Expr *expr)
{
    if (expr->kind == ExprKind::logical_and || expr->kind == ExprKind::logical_or) {
        Expr *other = newexpr(tree, expr->kind == ExprKind::logical_and ? ExprKind::logical_or : ExprKind::logical_and,
                              expr->type);
        for (Expr *term : expr->operands) {
            other->operands.push_back(negate(tree, term));
        }
        settle(other);
        return other;
    }
    if (expr->kind == ExprKind::comma) {
        Expr *other = newexpr(tree, ExprKind::comma, expr->type);
        other->statements = expr->statements;
        other->effects = expr->effects;
        other->operands = {negate(tree, expr->operands[0])};
        settle(other);
        return other;
    }
    if (expr->kind == ExprKind::choice) {
        Expr *other = newexpr(tree, ExprKind::choice, expr->type);
        other->operands = {expr->operands[0], negate(tree, expr->operands[1]), negate(tree, expr->operands[2])};
        settle(other);
        return other;
    }
    if (expr->kind == ExprKind::constant && expr->value->kind == ValueKind::integer) {
        return constantof(tree, intconst(*tree.function->module, expr->type, expr->value->number == 0 ? 1 : 0));
    }
    Expr *other = newexpr(tree, ExprKind::operation, expr->type);
    if (expr->kind == ExprKind::operation && (expr->op == Op::icmp || expr->op == Op::fcmp)) {
        other->op = expr->op;
        other->predicate = inversepredicate(expr->predicate);
        other->operands = expr->operands;
    } else if (expr->kind == ExprKind::operation && expr->op == Op::xor_ && isinteger(expr->type, 1) &&
               expr->operands[1]->kind == ExprKind::constant && expr->operands[1]->value->number == 1) {
        return expr->operands[0];
    } else {
        other->op = Op::icmp;
        other->predicate = Predicate::eq;
        other->operands = {expr, constantof(tree, intconst(*tree.function->module, expr->type, 0))};
    }
    settle(other);
    return other;
}

Fit fitexpression(Tree &tree, const std::vector<Value *> &items, Value *value)
{
    std::vector<Stmt *> statements;
    Builder outer = {tree, &statements, true};
    tree.trial.clear();
    const Expr *expr = lazyvalue(outer, items, value);
    for (const Value *tried : tree.trial) {
        tree.held.erase(tried);
    }
    if (outer.failed || expr->depth > deepest_tree / 2) {
        return Fit::no;
    }
    return hascomma(expr) ? Fit::comma : Fit::plain;
}

void buildstatements(Tree &tree)
{
    std::vector<Node *> nodes;
    for (Node &node : tree.nodes) {
        if (!node.removed) {
            nodes.push_back(&node);
        }
    }
    splitedges(tree, nodes);
    for (Node &node : tree.nodes) {
        if (!node.removed) {
            buildnode(tree, &node);
        }
    }
}

}  // namespace adapt
