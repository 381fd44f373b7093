// Checks that a function is what ir.h says: links of records, types, and definitions that dominate their uses.
#include "adapt/reader.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace adapt {

namespace {

constexpr std::uint32_t none = UINT32_MAX;

bool fault(Fault &found, const Value *inst, std::string text)
{
    if (found.text.empty()) {
        found.inst = inst;
        found.text = std::move(text);
    }
    return false;
}

// ---- Dominators of blocks ----

// By semidominators with path compression, so in almost linear time. All lists are by the numbers of a depth-first walk
// but for `number`, which is by the index of a block.
struct Dominators {
    std::vector<std::uint32_t> number;  // none for a block that the entry doesn't reach
    std::vector<const Block *> blocks;
    std::vector<std::uint32_t> parent;
    std::vector<std::uint32_t> semi;
    std::vector<std::uint32_t> label;
    std::vector<std::uint32_t> ancestor;
    std::vector<std::uint32_t> dominator;
    std::vector<std::uint32_t> enter;  // numbers of a walk over the tree of dominators
    std::vector<std::uint32_t> leave;
};

void visitblocks(Dominators &doms, const Function &function)
{
    struct Step {
        std::uint32_t from;
        const Block *to;
    };
    doms.number.assign(function.blocks.size(), none);
    std::vector<Step> work = {{none, function.blocks.front()}};
    while (!work.empty()) {
        const Step step = work.back();
        work.pop_back();
        if (doms.number[step.to->index] != none) {
            continue;
        }
        const auto number = static_cast<std::uint32_t>(doms.blocks.size());
        doms.number[step.to->index] = number;
        doms.blocks.push_back(step.to);
        doms.parent.push_back(step.from);
        for (const Block *target : step.to->last->targets) {
            work.push_back({number, target});
        }
    }
}

// The number with the least semidominator on the linked path above v, which is shortened.
std::uint32_t leastabove(Dominators &doms, std::uint32_t v)
{
    std::vector<std::uint32_t> path;
    while (doms.ancestor[v] != none && doms.ancestor[doms.ancestor[v]] != none) {
        path.push_back(v);
        v = doms.ancestor[v];
    }
    for (auto at = path.rbegin(); at != path.rend(); ++at) {
        const std::uint32_t above = doms.ancestor[*at];
        if (doms.semi[doms.label[above]] < doms.semi[doms.label[*at]]) {
            doms.label[*at] = doms.label[above];
        }
        doms.ancestor[*at] = doms.ancestor[above];
    }
    return doms.label[path.empty() ? v : path.front()];
}

void findsemidominators(Dominators &doms)
{
    const auto count = static_cast<std::uint32_t>(doms.blocks.size());
    doms.ancestor.assign(count, none);
    for (std::uint32_t i = 0; i < count; ++i) {
        doms.semi.push_back(i);
        doms.label.push_back(i);
    }
    for (std::uint32_t w = count - 1; w > 0; --w) {
        for (const Block *pred : doms.blocks[w]->preds) {
            const std::uint32_t v = doms.number[pred->index];
            if (v != none) {
                doms.semi[w] = std::min(doms.semi[w], doms.semi[leastabove(doms, v)]);
            }
        }
        doms.ancestor[w] = doms.parent[w];
    }
}

// Numbers the tree of dominators. A dominator has a lower number than what it dominates, so sizes of subtrees add up
// from the end, and places from the start.
void numbertree(Dominators &doms)
{
    const std::size_t count = doms.blocks.size();
    std::vector<std::uint32_t> size(count, 1);
    for (std::size_t w = count - 1; w > 0; --w) {
        size[doms.dominator[w]] += size[w];
    }
    doms.enter.assign(count, 0);
    doms.leave.assign(count, static_cast<std::uint32_t>(count));
    std::vector<std::uint32_t> taken(count, 1);
    for (std::size_t w = 1; w < count; ++w) {
        const std::uint32_t above = doms.dominator[w];
        doms.enter[w] = doms.enter[above] + taken[above];
        doms.leave[w] = doms.enter[w] + size[w];
        taken[above] += size[w];
    }
}

Dominators finddominators(const Function &function)
{
    Dominators doms;
    visitblocks(doms, function);
    findsemidominators(doms);
    const auto count = static_cast<std::uint32_t>(doms.blocks.size());
    doms.dominator.assign(count, 0);
    for (std::uint32_t w = 1; w < count; ++w) {
        std::uint32_t above = doms.parent[w];
        while (above > doms.semi[w]) {
            above = doms.dominator[above];
        }
        doms.dominator[w] = above;
    }
    numbertree(doms);
    return doms;
}

bool isreached(const Dominators &doms, const Block *block)
{
    return doms.number[block->index] != none;
}

bool blockdominates(const Dominators &doms, const Block *a, const Block *b)
{
    const std::uint32_t first = doms.number[a->index];
    const std::uint32_t second = doms.number[b->index];
    return first != none && doms.enter[first] <= doms.enter[second] && doms.enter[second] < doms.leave[first];
}

// ---- Blocks ----

bool checkblocks(const Function &function, Fault &found)
{
    if (function.blocks.empty()) {
        return fault(found, nullptr, "a function without blocks");
    }
    for (const Block *block : function.blocks) {
        if (block->last == nullptr || !isterminator(block->last->op)) {
            return fault(found, block->last, "a block without a terminator");
        }
        for (const Value *inst = block->first; inst != nullptr; inst = inst->next) {
            if (isterminator(inst->op) && inst != block->last) {
                return fault(found, inst, "a terminator inside of a block");
            }
        }
    }
    return true;
}

bool checktargets(const Function &function, Fault &found)
{
    for (const Block *block : function.blocks) {
        for (const Block *target : block->last->targets) {
            const bool known =
                target != nullptr && target->index < function.blocks.size() && function.blocks[target->index] == target;
            if (!known) {
                return fault(found, block->last, "a branch to a block of another function");
            }
            if (target == function.blocks.front()) {
                return fault(found, block->last, "a branch to the first block");
            }
        }
    }
    return true;
}

// Whether two values are the same or constants that are written alike; computed ones have a record for each place.
bool samevalue(const Value *a, const Value *b)
{
    if (a == b) {
        return true;
    }
    const bool alike = isconstant(a) && a->kind == b->kind && a->op == b->op && a->type == b->type &&
                       a->predicate == b->predicate && a->element == b->element && a->number == b->number &&
                       a->text == b->text && a->indices == b->indices && a->global == b->global &&
                       a->operand_count == b->operand_count;
    for (std::uint32_t i = 0; alike && i < a->operand_count; ++i) {
        if (!samevalue(operand(a, i), operand(b, i))) {
            return false;
        }
    }
    return alike;
}

// Each edge into the block has a pair in the phi, and edges from one block the same value.
bool checkpairs(const Value *phi, Fault &found)
{
    struct Pair {
        const Block *block;
        const Value *value;
        bool operator<(const Pair &other) const { return block->index < other.block->index; }
    };
    std::vector<const Block *> preds(phi->block->preds.begin(), phi->block->preds.end());
    std::vector<Pair> pairs;
    for (std::uint32_t i = 0; i < phi->operand_count && i < phi->targets.size(); ++i) {
        pairs.push_back({phi->targets[i], operand(phi, i)});
    }
    const auto byindex = [](const Block *a, const Block *b) { return a->index < b->index; };
    std::sort(preds.begin(), preds.end(), byindex);
    std::stable_sort(pairs.begin(), pairs.end());
    if (pairs.size() != preds.size() || phi->targets.size() != phi->operand_count) {
        return fault(found, phi, "a phi with other pairs than edges into its block");
    }
    for (std::size_t i = 0; i < pairs.size(); ++i) {
        if (pairs[i].block != preds[i]) {
            return fault(found, phi, "a phi with a pair for a block that doesn't lead to it");
        }
        if (i > 0 && pairs[i].block == pairs[i - 1].block && !samevalue(pairs[i].value, pairs[i - 1].value)) {
            return fault(found, phi, "a phi with two values for one block");
        }
    }
    return true;
}

bool checkphis(const Function &function, Fault &found)
{
    for (const Block *block : function.blocks) {
        bool head = true;
        for (const Value *inst = block->first; inst != nullptr; inst = inst->next) {
            const bool is_phi = inst->op == Op::phi;
            if (is_phi && !head) {
                return fault(found, inst, "a phi after other instructions");
            }
            head = is_phi;
            if (is_phi && !checkpairs(inst, found)) {
                return false;
            }
        }
    }
    return true;
}

// ---- Dominance ----

bool comesbefore(const Dominators &doms, const Value *definition, const Value *user, std::size_t place)
{
    if (user->op == Op::phi) {
        const Block *pred = user->targets[place];
        return !isreached(doms, pred) || blockdominates(doms, definition->block, pred);
    }
    if (definition->block == user->block) {
        return definition->mark < user->mark;
    }
    return blockdominates(doms, definition->block, user->block);
}

// The marks become the places of instructions in the function.
bool checkdominance(const Function &function, Fault &found)
{
    std::uint32_t place = 0;
    for (const Block *block : function.blocks) {
        for (Value *inst = block->first; inst != nullptr; inst = inst->next) {
            inst->mark = place++;
        }
    }
    const Dominators doms = finddominators(function);
    for (const Block *block : doms.blocks) {
        for (const Value *inst = block->first; inst != nullptr; inst = inst->next) {
            for (std::uint32_t i = 0; i < inst->operand_count; ++i) {
                const Value *value = operand(inst, i);
                if (value->kind != ValueKind::instruction) {
                    continue;
                }
                if (value->block == nullptr || !comesbefore(doms, value, inst, i)) {
                    return fault(found, inst, "a value that isn't defined on every way to its use");
                }
            }
        }
    }
    return true;
}

// ---- Records ----

bool checkuse(const Value *inst, const Use &use, Fault &found)
{
    const Value *value = use.value;
    if (value == nullptr || use.user != inst) {
        return fault(found, inst, "an operand that is lost");
    }
    const bool linked = value->kind == ValueKind::instruction || value->kind == ValueKind::parameter;
    if (linked != (use.link != nullptr) || (linked && *use.link != &use)) {
        return fault(found, inst, "an operand that isn't in the list of uses");
    }
    if (value->removed || value->type == nullptr) {
        return fault(found, inst, "an operand that was removed");
    }
    return true;
}

bool checklinks(const Function &function, Fault &found)
{
    for (const Block *block : function.blocks) {
        const Value *before = nullptr;
        for (const Value *inst = block->first; inst != nullptr; inst = inst->next) {
            if (inst->prev != before || inst->block != block || inst->removed || inst->type == nullptr ||
                (inst->next == nullptr && inst != block->last)) {
                return fault(found, inst, "an instruction whose links are wrong");
            }
            for (std::uint32_t i = 0; i < inst->operand_count; ++i) {
                if (!checkuse(inst, inst->operands[i], found)) {
                    return false;
                }
            }
            for (const Use *use = inst->uses; use != nullptr; use = use->next) {
                if (use->value != inst || use->user->removed) {
                    return fault(found, inst, "a use by what was removed");
                }
            }
            before = inst;
        }
    }
    return true;
}

// ---- Types ----

const Type *typeof_operand(const Value *inst, std::size_t place)
{
    return operand(inst, place)->type;
}

bool pointsto(const Type *pointer, const Type *type)
{
    return pointer->kind == TypeKind::pointer && pointer->sub == type;
}

bool fitscall(const Value *inst)
{
    const Type *type = inst->element;
    if (type == nullptr || type->kind != TypeKind::function || type->sub != inst->type || inst->operand_count == 0 ||
        inst->operand_count - 1 < type->members.size() || !pointsto(typeof_operand(inst, 0), type) ||
        (!type->variadic && inst->operand_count - 1 != type->members.size()) ||
        (!inst->attributes.empty() && inst->attributes.size() != inst->operand_count)) {
        return false;
    }
    for (std::size_t i = 0; i < type->members.size(); ++i) {
        if (typeof_operand(inst, i + 1) != type->members[i]) {
            return false;
        }
    }
    return true;
}

bool fitsphi(const Value *inst)
{
    for (std::uint32_t i = 0; i < inst->operand_count; ++i) {
        if (typeof_operand(inst, i) != inst->type) {
            return false;
        }
    }
    return true;
}

bool fitsret(const Function &function, const Value *inst)
{
    const Type *result = function.global->type->sub;
    return result->kind == TypeKind::void_type ? inst->operand_count == 0
                                               : inst->operand_count == 1 && typeof_operand(inst, 0) == result;
}

bool fitsterminator(const Function &function, const Value *inst)
{
    switch (inst->op) {
    case Op::ret:
        return fitsret(function, inst);
    case Op::br:
        return inst->targets.size() == inst->operand_count + 1U &&
               (inst->operand_count == 0 || isinteger(typeof_operand(inst, 0), 1));
    case Op::switch_:
        return inst->operand_count > 0 && inst->targets.size() == inst->operand_count &&
               typeof_operand(inst, 0)->kind == TypeKind::integer;
    case Op::invoke:
        return inst->targets.size() == 2 && fitscall(inst);
    default:
        return inst->targets.empty();
    }
}

bool fitsmemory(const Value *inst)
{
    switch (inst->op) {
    case Op::alloca_:
        return inst->element != nullptr && pointsto(inst->type, inst->element);
    case Op::load:
        return inst->operand_count == 1 && inst->element == inst->type && pointsto(typeof_operand(inst, 0), inst->type);
    case Op::store:
        return inst->operand_count == 2 && pointsto(typeof_operand(inst, 1), typeof_operand(inst, 0));
    case Op::getelementptr:
        return inst->operand_count > 0 && inst->element != nullptr &&
               pointsto(typeof_operand(inst, 0), inst->element) && inst->type->kind == TypeKind::pointer;
    default:
        return true;
    }
}

bool fitstypes(const Function &function, const Value *inst)
{
    if (isterminator(inst->op)) {
        return fitsterminator(function, inst);
    }
    if (isbinary(inst->op)) {
        return inst->operand_count == 2 && typeof_operand(inst, 0) == inst->type &&
               typeof_operand(inst, 1) == inst->type;
    }
    if (iscast(inst->op)) {
        return inst->operand_count == 1 && fitscast(inst->op, typeof_operand(inst, 0), inst->type);
    }
    switch (inst->op) {
    case Op::icmp:
    case Op::fcmp:
        return inst->operand_count == 2 && typeof_operand(inst, 0) == typeof_operand(inst, 1) &&
               isinteger(inst->type, 1);
    case Op::select:
        return inst->operand_count == 3 && isinteger(typeof_operand(inst, 0), 1) &&
               typeof_operand(inst, 1) == inst->type && typeof_operand(inst, 2) == inst->type;
    case Op::phi:
        return fitsphi(inst);
    case Op::call:
        return fitscall(inst);
    default:
        return fitsmemory(inst);
    }
}

bool checktypes(const Function &function, Fault &found)
{
    for (const Block *block : function.blocks) {
        for (const Value *inst = block->first; inst != nullptr; inst = inst->next) {
            if (!fitstypes(function, inst)) {
                return fault(found, inst, std::string(opname(inst->op)) + " with operands of other types or number");
            }
        }
    }
    return true;
}

}  // namespace

Fault findfault(Function &function)
{
    Fault found;
    if (checkblocks(function, found)) {
        numberblocks(function);
        if (checktargets(function, found)) {
            findpreds(function);
            if (checkphis(function, found)) {
                checkdominance(function, found);
            }
        }
    }
    return found;
}

void verify(Function &function, const char *when)
{
    Fault found;
    if (checklinks(function, found) && checkblocks(function, found) && checktypes(function, found)) {
        found = findfault(function);
    }
    if (found.text.empty()) {
        return;
    }
    std::string text;
    printfunction(function, text);
    const std::size_t line = found.inst == nullptr ? function.global->line : found.inst->line;
    std::fprintf(stderr, "%s%s: line %zu of the input: %s\n", text.c_str(), when, line, found.text.c_str());
    constexpr int internal_error = 3;
    std::exit(internal_error);
}

}  // namespace adapt
