// Usage analysis: which globals the output needs.
//
// Reachability is defined by passes over the variables in list order, each of which visits every reference of every
// initialiser: a live variable raises the count of a target from 0 to 1, a dead one takes its use back, and passes are
// repeated until one takes nothing back. Most visits change nothing. So the passes are run here as events: one for each
// variable (is it live now?) and one for each of its references, numbered in the order of a pass. An event is visited
// only if something that it depends on has changed since its last visit, in the pass and at the place where the full
// pass would come to it.

#include "emit/emit.h"

#include <algorithm>
#include <bit>
#include <set>
#include <unordered_map>
#include <utility>

// ---- Prototypes and aliases -------------------------------------------------------------------------------------

namespace {

// The symbols of a list by name, in list order: each with its place in the list.
using SymbolsByName = std::unordered_map<const Name *, std::set<std::pair<std::size_t, Symbol *>>>;

SymbolsByName byname(const List<Symbol> &list)
{
    SymbolsByName symbols;
    std::size_t place = 0;
    for (Symbol *symbol = list.head; symbol; symbol = symbol->next)
        symbols[symbol->name].emplace(place++, symbol);
    return symbols;
}

// Gives the first symbol of the name `from` the name `to`.
void renamefirst(SymbolsByName &symbols, const Name *from, Name *to)
{
    const auto entry = symbols.find(from);
    if (entry == symbols.end() || entry->second.empty())
        return;
    auto renamed = entry->second.extract(entry->second.begin());
    renamed.value().second->name = to;
    symbols[to].insert(std::move(renamed));
}

// Updates the look-up of a list by name after its symbols were renamed.
void refreshfirst(const SymbolsByName &symbols, Ref<Symbol> Name::*first)
{
    for (const auto &[name, entries] : symbols)
        const_cast<Name *>(name)->*first = entries.empty() ? nullptr : entries.begin()->second;
}

void renamealiases()
{
    if (!aliases.head)
        return;
    SymbolsByName defined = byname(functions);
    SymbolsByName declared = byname(prototypes);
    for (const Symbol *alias = aliases.head; alias; alias = alias->next) {
        renamefirst(defined, alias->aliasee, alias->name);
        renamefirst(declared, alias->aliasee, alias->name);
    }
    refreshfirst(defined, &Name::function);
    refreshfirst(declared, &Name::prototype);
}

void countuse(const Name *name)
{
    if (name->prototype)
        ++name->prototype->uses;
}

// Notes that the function's address is stored somewhere.
void markaddressed(const Name *name)
{
    if (name->function)
        name->function->flags |= flag::addressed;
}

}  // namespace

void countprototypes()
{
    renamealiases();
    for (const Name *name : unresolved)
        countuse(name);
    for (const Symbol *fn = functions.head; fn; fn = fn->next)
        for (const Symbol *call = fn->calls; call; call = call->next)
            countuse(call->name);
}

void markinitrefs()
{
    for (const Name *name : initrefs)
        markaddressed(name);
}

// ---- Reachability -----------------------------------------------------------------------------------------------

namespace {

// A set of numbers below a limit, as a bitmap with summary levels: each level has a bit for every word of the level
// below that isn't 0, which makes the search for the next number fast.
struct NumberSet {
    std::vector<std::vector<std::uint64_t>> levels;
};

constexpr std::uint32_t word_bits = 64;
constexpr std::uint32_t no_number = 0xFFFFFFFF;

std::uint64_t bitof(std::uint32_t number)
{
    return std::uint64_t{1} << number % word_bits;
}

NumberSet makeset(std::size_t limit)
{
    NumberSet set;
    do {
        limit = limit / word_bits + 1;
        set.levels.emplace_back(limit);
    } while (limit > 1);
    return set;
}

void insert(NumberSet &set, std::uint32_t number)
{
    for (auto &level : set.levels) {
        level[number / word_bits] |= bitof(number);
        number /= word_bits;
    }
}

void erase(NumberSet &set, std::uint32_t number)
{
    for (auto &level : set.levels) {
        level[number / word_bits] &= ~bitof(number);
        number /= word_bits;
        if (level[number] != 0)
            return;
    }
}

// The first number of the set from `from` on, or no_number.
std::uint32_t nextnumber(const NumberSet &set, std::uint32_t from)
{
    for (std::size_t height = 0; height < set.levels.size(); ++height) {
        const auto &level = set.levels[height];
        const std::uint32_t word = from / word_bits;
        const std::uint64_t rest = word < level.size() ? level[word] & ~(bitof(from) - 1) : 0;
        if (rest == 0) {
            from = word + 1;
            continue;
        }
        from = word * word_bits + static_cast<std::uint32_t>(std::countr_zero(rest));
        while (height-- > 0)
            from = from * word_bits + static_cast<std::uint32_t>(std::countr_zero(set.levels[height][from]));
        return from;
    }
    return no_number;
}

// Events.

using EventId = std::uint32_t;
using VariableId = std::uint32_t;  // place in `variables`

struct Variable {
    Symbol *symbol;
    EventId event;                  // the events of its references follow
    std::uint32_t first_reference;  // to it: place in Reachability::references, where those of one variable adjoin
    bool live;                      // as decided at its last visit
};

// The event of a variable has no leaf.
struct Event {
    Expr *leaf;           // the reference; `counted` if a use was counted for it
    VariableId owner;     // the variable, or the one whose initialiser has the reference
    VariableId target;    // variable referred to, no_number if the name is no variable's
    std::uint32_t place;  // in Reachability::references
    bool released;        // the reference has taken its use back
};

// References can change the count of their target: one of a live variable raises it from 0, one of a dead variable
// takes a use back. Only the first of them in the order of a pass has an effect when the count crosses 0, so
// that is the one to be visited.
struct Reachability {
    std::vector<Variable> variables;  // and an end
    std::vector<Event> events;
    std::vector<EventId> references;  // by target, in the order of a pass
    NumberSet raising, taking;        // places in `references`
    NumberSet due;  // events to be visited: those after the current one in this pass, the others in the next
    EventId current = 0;
    bool lowered = false;  // this pass has taken a use back
};

bool ismarker(const Expr *node)
{
    return node->op == op::open_brace || node->op == op::close_brace || node->op == op::zero_element;
}

void listvariables(Reachability &state)
{
    for (Symbol *symbol = variables.head; symbol; symbol = symbol->next) {
        symbol->place = static_cast<VariableId>(state.variables.size());
        state.variables.push_back({symbol, 0, 0, false});
    }
    state.variables.push_back({});
}

// The variable that a reference names.
VariableId targetof(Expr *reference)
{
    if (!reference->symbol)
        reference->symbol = find_variable(reference->value);
    return reference->symbol ? reference->symbol->place : no_number;
}

void addreferences(Reachability &state, VariableId owner)
{
    for (Expr *node = state.variables[owner].symbol->value; node; node = node->next) {
        Expr *reference = ismarker(node) ? nullptr : addressedleaf(node);
        if (reference)
            state.events.push_back({reference, owner, targetof(reference), 0, false});
    }
}

// Sorts the references by target: counts those to each variable, adds up, and gives each its place.
void sortreferences(Reachability &state)
{
    for (const Event &event : state.events)
        if (event.target != no_number)
            ++state.variables[event.target + 1].first_reference;
    std::uint32_t sum = 0;
    for (Variable &variable : state.variables) {
        sum += variable.first_reference;
        variable.first_reference = sum;
    }
    state.references.resize(sum);
    std::vector<std::uint32_t> next;
    for (const Variable &variable : state.variables)
        next.push_back(variable.first_reference);
    for (EventId id = 0; id < state.events.size(); ++id) {
        Event &event = state.events[id];
        if (event.target == no_number)
            continue;
        event.place = next[event.target]++;
        state.references[event.place] = id;
    }
}

void collectevents(Reachability &state)
{
    listvariables(state);
    for (VariableId owner = 0; owner + 1 < state.variables.size(); ++owner) {
        state.variables[owner].event = static_cast<EventId>(state.events.size());
        state.events.push_back({nullptr, owner, no_number, 0, false});
        addreferences(state, owner);
    }
    sortreferences(state);
    state.raising = makeset(state.references.size());
    state.taking = makeset(state.references.size());
    state.due = makeset(state.events.size());
    for (EventId id = 0; id < state.events.size(); ++id) {
        insert(state.due, id);
        // Until its first visit a variable counts as dead.
        const Event &event = state.events[id];
        if (event.target != no_number && event.leaf->counted)
            insert(state.taking, event.place);
    }
}

// Schedules the reference that has an effect on the count of a variable as it stands.
void schedulereference(Reachability &state, VariableId target)
{
    const NumberSet &waiting = state.variables[target].symbol->uses == 0 ? state.raising : state.taking;
    const std::uint32_t first = state.variables[target].first_reference;
    const std::uint32_t end = state.variables[target + 1].first_reference;
    const EventId *ids = state.references.data();
    const auto later = static_cast<std::uint32_t>(std::upper_bound(ids + first, ids + end, state.current) - ids);
    std::uint32_t place = nextnumber(waiting, later);
    if (place >= end)
        place = nextnumber(waiting, first);
    if (place < end)
        insert(state.due, ids[place]);
}

// The count of a variable has become 0 or has left it.
void countcrossed(Reachability &state, VariableId variable)
{
    insert(state.due, state.variables[variable].event);
    schedulereference(state, variable);
}

// The variable that a reference belongs to has become live or dead.
void ownerchanged(Reachability &state, EventId id, bool live)
{
    insert(state.due, id);
    const Event &event = state.events[id];
    if (event.target == no_number)
        return;
    if (live) {
        erase(state.taking, event.place);
        insert(state.raising, event.place);
    } else {
        erase(state.raising, event.place);
        if (event.leaf->counted && !event.released)
            insert(state.taking, event.place);
    }
    schedulereference(state, event.target);
}

bool islive(const Symbol *variable)
{
    if ((variable->flags & flag::appending) || variable->uses != 0)
        return true;
    if (variable->storage == storage::extern_ && !variable->value)
        return false;
    return variable->storage != storage::static_ && !(variable->flags & flag::linkonce_odr);
}

void visitvariable(Reachability &state, EventId id)
{
    Variable &variable = state.variables[state.events[id].owner];
    const bool live = islive(variable.symbol);
    if (!live)
        variable.symbol->flags |= flag::unused;
    if (live == variable.live)
        return;
    variable.live = live;
    for (EventId next = id + 1; next < state.events.size() && state.events[next].leaf; ++next)
        ownerchanged(state, next, live);
}

// A live variable's reference to something that is no variable: a function's address, or a declaration's use.
void reachfunction(const Name *name)
{
    markaddressed(name);
    Symbol *prototype = name->prototype;
    if (prototype && prototype->uses == 0)
        prototype->uses = 1;
}

void visitreference(Reachability &state, EventId id)
{
    Event &event = state.events[id];
    const bool live = state.variables[event.owner].live;
    if (event.target == no_number) {
        if (live)
            reachfunction(event.leaf->value);
        return;
    }
    Symbol *target = state.variables[event.target].symbol;
    if (live && target->uses == 0) {
        target->uses = 1;
        target->flags &= ~flag::unused;
        event.leaf->counted = true;
        countcrossed(state, event.target);
    } else if (!live && target->uses != 0 && event.leaf->counted && !event.released) {
        --target->uses;
        event.released = true;
        erase(state.taking, event.place);
        state.lowered = true;
        if (target->uses == 0)
            countcrossed(state, event.target);
    }
}

void runpass(Reachability &state)
{
    state.lowered = false;
    for (EventId id = nextnumber(state.due, 0); id != no_number; id = nextnumber(state.due, id + 1)) {
        erase(state.due, id);
        state.current = id;
        if (state.events[id].leaf)
            visitreference(state, id);
        else
            visitvariable(state, id);
    }
}

}  // namespace

void markreachable()
{
    Reachability state;
    collectevents(state);
    do
        runpass(state);
    while (state.lowered);
}
