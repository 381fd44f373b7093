// Usage analysis: which globals the output needs.
//
// Reachability is told in passes over the variables in list order, each of which looks at every reference of every
// initialiser: a live variable raises the count of a target from 0 to 1, a dead one takes its use back, and a further
// pass follows as long as one has taken something back. Most visits change nothing. So the passes are run here as
// events: one for each variable (is it live now?) and one for each of its references, numbered in the order of a
// pass. An event takes place only if something that it depends on has changed since its last visit, in the pass and at
// the place where the full pass would come to it.

#include "emit/emit.h"

#include <algorithm>
#include <functional>
#include <queue>
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

// Makes the look-up of a list by name agree with the names that its symbols have now.
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

// The function's address is stored somewhere.
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

using EventId = std::uint32_t;

// The event of a variable has no leaf; those of its references follow it.
struct Event {
    Symbol *variable;  // the one whose initialiser is walked
    EventId owner;     // the event of that variable
    Expr *leaf;        // the reference: its `counted` says that a use was counted for it
    Symbol *target;    // variable referred to, null if the name is no variable's
    bool released;     // the reference has taken its use back
};

// The references to one variable that can change its count: what belongs to live variables raises it from 0, what
// belongs to dead ones takes a use back. Only the first of them in the order of a pass has an effect when the count
// crosses 0, so that is the one to be visited.
struct References {
    std::set<EventId> raising;
    std::set<EventId> taking;
};

struct Reachability {
    std::vector<Event> events;
    std::unordered_map<const Symbol *, EventId> start;          // event of a variable
    std::unordered_map<const Symbol *, References> references;  // to a variable
    std::vector<bool> live;    // of the variable whose event has this id, as decided at its last visit
    std::vector<bool> queued;  // the event is due in this pass or the next
    std::priority_queue<EventId, std::vector<EventId>, std::greater<>> due;
    std::vector<EventId> due_next;
    EventId current = 0;
    bool lowered = false;  // this pass has taken a use back
};

bool ismarker(const Expr *node)
{
    return node->op == op::open_brace || node->op == op::close_brace || node->op == op::zero_element;
}

void addreferences(Reachability &state, Symbol *variable)
{
    for (Expr *node = variable->value; node; node = node->next) {
        Expr *reference = ismarker(node) ? nullptr : addressedleaf(node);
        if (!reference)
            continue;
        if (!reference->symbol)
            reference->symbol = find_variable(reference->value);
        const auto id = static_cast<EventId>(state.events.size());
        state.events.push_back({variable, state.start.at(variable), reference, reference->symbol, false});
        // No variable is taken for live until its first visit.
        if (reference->symbol && reference->counted)
            state.references[reference->symbol].taking.insert(id);
    }
}

void collectevents(Reachability &state)
{
    for (Symbol *variable = variables.head; variable; variable = variable->next) {
        const auto id = static_cast<EventId>(state.events.size());
        state.start[variable] = id;
        state.events.push_back({variable, id, nullptr, nullptr, false});
        addreferences(state, variable);
    }
    state.live.assign(state.events.size(), false);
    state.queued.assign(state.events.size(), true);
    for (EventId id = 0; id < state.events.size(); ++id)
        state.due.push(id);
}

// The event is visited when a pass next comes to it.
void schedule(Reachability &state, EventId id)
{
    if (state.queued[id])
        return;
    state.queued[id] = true;
    if (id > state.current)
        state.due.push(id);
    else
        state.due_next.push_back(id);
}

// Schedules the reference that has an effect on the count of a variable as it stands.
void schedulereference(Reachability &state, const Symbol *variable)
{
    const References &references = state.references[variable];
    const std::set<EventId> &waiting = variable->uses == 0 ? references.raising : references.taking;
    auto next = waiting.upper_bound(state.current);
    if (next == waiting.end())
        next = waiting.begin();
    if (next != waiting.end())
        schedule(state, *next);
}

// The count of a variable has become 0 or has left it.
void countcrossed(Reachability &state, const Symbol *variable)
{
    schedule(state, state.start.at(variable));
    schedulereference(state, variable);
}

// The variable that a reference belongs to has come to life or died.
void ownerchanged(Reachability &state, EventId id, bool live)
{
    schedule(state, id);
    const Event &event = state.events[id];
    if (!event.target)
        return;
    References &references = state.references[event.target];
    if (live) {
        references.taking.erase(id);
        references.raising.insert(id);
    } else {
        references.raising.erase(id);
        if (event.leaf->counted && !event.released)
            references.taking.insert(id);
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
    Symbol *variable = state.events[id].variable;
    const bool live = islive(variable);
    if (!live)
        variable->flags |= flag::unused;
    if (live == state.live[id])
        return;
    state.live[id] = live;
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
    const bool live = state.live[event.owner];
    Symbol *target = event.target;
    if (!target) {
        if (live)
            reachfunction(event.leaf->value);
    } else if (live && target->uses == 0) {
        target->uses = 1;
        target->flags &= ~flag::unused;
        event.leaf->counted = true;
        countcrossed(state, target);
    } else if (!live && target->uses != 0 && event.leaf->counted && !event.released) {
        --target->uses;
        event.released = true;
        state.references[target].taking.erase(id);
        state.lowered = true;
        if (target->uses == 0)
            countcrossed(state, target);
    }
}

void runpass(Reachability &state)
{
    state.lowered = false;
    while (!state.due.empty()) {
        const EventId id = state.due.top();
        state.due.pop();
        state.current = id;
        state.queued[id] = false;
        if (state.events[id].leaf)
            visitreference(state, id);
        else
            visitvariable(state, id);
    }
    for (const EventId id : state.due_next)
        state.due.push(id);
    state.due_next.clear();
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
