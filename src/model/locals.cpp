// The index of the current function. A definition is found by name, as a walk back through the chain of Insts from the
// newest to the oldest would find it; the lists by name have the order of the chain.
//
// An Inst gets its order when it is appended, in steps of three: the two Insts that a temporary inserts before its
// definition, at most once, take the two numbers in between.

#include "model/locals.h"

#include "frontend/frontend.h"

#include <algorithm>
#include <array>
#include <map>
#include <new>
#include <unordered_map>

namespace {

constexpr std::uint32_t order_step = 3;

struct LocalIndex {
    std::uint32_t epoch = 0;  // Name::local is valid for this one only
    std::uint32_t next_order = 0;
    std::vector<LocalName *> pool;  // entries of all epochs, reused
    std::size_t taken = 0;          // entries of this epoch
    std::vector<Inst *> jumps;
    std::vector<Inst *> statements;            // appended ones; next_live skips those that are none any more
    std::vector<std::uint32_t> next_live;      // disjoint sets: an entry that points to itself is a statement
    std::map<std::uint32_t, Inst *> inserted;  // statements that belong to temporaries, by order
    // Stores that assign a thing to itself, by the nodes of both sides: when one of these becomes the name of a
    // temporary, the sides may differ.
    std::unordered_map<const Expr *, std::vector<Inst *>> set_aside;
};

// Made with the first function and never destroyed, which would free its lists one by one at the end of the run.
LocalIndex *locals;

bool byorder(std::uint32_t order, const Inst *instruction)
{
    return order < instruction->order;
}

void insertbyorder(ShortList<Inst> &insts, Inst *instruction)
{
    Inst *const *place = upto(insts.begin(), insts.end(), instruction->order);
    insts.insert(static_cast<std::size_t>(place - insts.begin()), instruction);
}

// The first entry from `place` on that is still a statement; the end of the list if there is none. One that is none
// any more is skipped from then on.
std::uint32_t livefrom(std::uint32_t place)
{
    std::uint32_t root = place;
    while (root < locals->statements.size()) {
        std::uint32_t &next = locals->next_live[root];
        if (next == root && locals->statements[root]->op == inst::statement)
            break;
        next = std::max(next, root + 1);
        root = next;
    }
    while (place < locals->statements.size() && locals->next_live[place] != root) {
        const std::uint32_t next = locals->next_live[place];
        locals->next_live[place] = root;
        place = next;
    }
    return root;
}

// The place of the first appended statement whose order is not below `order`.
std::uint32_t statementplace(std::uint32_t order)
{
    const auto at = std::partition_point(locals->statements.begin(), locals->statements.end(),
                                         [order](const Inst *s) { return s->order < order; });
    return static_cast<std::uint32_t>(at - locals->statements.begin());
}

void notestatement(Inst *statement)
{
    locals->next_live.push_back(static_cast<std::uint32_t>(locals->statements.size()));
    locals->statements.push_back(statement);
    const Expr *store = statement->expr;
    if (!isop(store, op::assign) || !store->value)
        return;
    // The assignment of a plain name to itself never folds.
    if (!isop(store->left, op::leaf) || !sameoperand(store->left, store->right))
        localname(statement->expr->value).stores.append(statement);
}

// x for x.addr, else null.
Name *slotowner(const Name *name)
{
    const std::string_view text = nametext(name);
    return text.ends_with(slot_suffix) ? intern(text.substr(0, text.size() - slot_suffix.size())) : nullptr;
}

// Enters a store that assigns a thing to itself by the nodes in which its sides differ. Returns false for more of them
// than in any program: entering those for each store could take more memory than is in proportion to the input.
bool watchaddress(Inst *store)
{
    constexpr std::size_t longest = 8;
    std::array<std::array<const Expr *, 2>, longest> pairs{};
    std::size_t count = 0;
    const Expr *left = store->expr->left;
    const Expr *right = store->expr->right;
    for (; left != right && left->op != op::leaf; left = left->left, right = right->left) {
        if (count == longest)
            return false;
        pairs[count++] = {left, right};
    }
    for (std::size_t i = 0; i < count; ++i)
        for (const Expr *node : pairs[i])
            locals->set_aside[node].push_back(store);
    return true;
}

// Enters an Inst that has its order already.
void enter(Inst *instruction)
{
    switch (instruction->op) {
    case inst::local:
        if (Name *owner = slotowner(instruction->name))
            localname(owner).slots.append(instruction);
        [[fallthrough]];
    case inst::value:
    case inst::phi:
        if (instruction->name)
            localname(instruction->name).named.append(instruction);
        break;
    case inst::statement:
        notestatement(instruction);
        break;
    case inst::jump:
        locals->jumps.push_back(instruction);
        break;
    default:
        break;
    }
}

}  // namespace

void beginlocals()
{
    if (!locals)
        locals = new LocalIndex;
    ++locals->epoch;
    locals->next_order = 0;
    locals->taken = 0;
    locals->jumps.clear();
    locals->statements.clear();
    locals->next_live.clear();
    locals->inserted.clear();
    locals->set_aside.clear();
}

LocalName *findlocal(const Name *name)
{
    return name->local_epoch == locals->epoch ? name->local : nullptr;
}

LocalName &localname(Name *name)
{
    if (name->local_epoch == locals->epoch)
        return *name->local;
    if (locals->taken == locals->pool.size())
        locals->pool.push_back(new (poolalloc(sizeof(LocalName))) LocalName{});
    LocalName &entry = *locals->pool[locals->taken++];
    entry.named.clear();
    entry.stores.clear();
    entry.slots.clear();
    entry.blocks.clear();
    name->local = &entry;
    name->local_epoch = locals->epoch;
    return entry;
}

void notelocal(Inst *instruction)
{
    locals->next_order += order_step;
    instruction->order = locals->next_order;
    enter(instruction);
}

void dropjump()
{
    locals->jumps.pop_back();
}

void indexchain(Inst *last)
{
    std::vector<Inst *> chain;
    for (Inst *at = last; at; at = at->prev)
        chain.push_back(at);
    for (auto at = chain.rbegin(); at != chain.rend(); ++at)
        enter(*at);
}

Inst *const *upto(Inst *const *first, Inst *const *last, std::uint32_t order)
{
    // While a function is read the newest is nearly always the one.
    if (first == last || last[-1]->order <= order)
        return last;
    return std::upper_bound(first, last, order, byorder);
}

bool nojumpbetween(std::uint32_t older, std::uint32_t newer)
{
    Inst *const *first = locals->jumps.data();
    Inst *const *at = upto(first, first + locals->jumps.size(), newer);
    while (at != first && at[-1]->op != inst::jump)
        --at;  // closes a loop now
    return at == first || at[-1]->order <= older;
}

Inst *nextstatement(const Inst *from)
{
    const std::uint32_t place = livefrom(statementplace(from->order));
    Inst *found = place < locals->statements.size() ? locals->statements[place] : nullptr;
    auto temporary = locals->inserted.lower_bound(from->order);
    while (temporary != locals->inserted.end() && temporary->second->op != inst::statement)
        temporary = locals->inserted.erase(temporary);
    if (temporary != locals->inserted.end() && (!found || temporary->first < found->order))
        found = temporary->second;
    return found && found->block == from->block ? found : nullptr;
}

void setaside(LocalName &local, Inst *const *first, Inst *const *last)
{
    if (first == last)
        return;
    Inst *const *begin = local.stores.begin();
    local.stores.erase(static_cast<std::size_t>(first - begin), static_cast<std::size_t>(last - begin),
                       [](Inst *store) { return store->op != inst::statement || watchaddress(store); });
}

void noterenamed(const Expr *node)
{
    const auto entry = locals->set_aside.find(node);
    if (entry == locals->set_aside.end())
        return;
    for (Inst *store : entry->second)
        insertbyorder(localname(store->expr->value).stores, store);
    locals->set_aside.erase(entry);
}

void notefolded(Inst *store)
{
    insertbyorder(localname(store->name).named, store);
}

void noteinserted(Inst *declaration, Inst *assignment, const Inst *definition)
{
    assignment->order = definition->order - 1;
    declaration->order = definition->order - 2;
    locals->inserted.emplace(assignment->order, assignment);
    insertbyorder(localname(declaration->name).named, declaration);
}
