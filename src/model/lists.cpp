// The global lists, and tests on expressions.

#include "model/model.h"

#include "frontend/frontend.h"

#include <algorithm>
#include <cstring>

List<Symbol> variables;
List<Symbol> functions;
List<Symbol> prototypes;
List<Symbol> aliases;
List<Symbol> aggregates;
Symbol *forward_aggregates;
List<Meta> metas;
List<Symbol> current_calls;
constinit std::vector<Name *> unresolved;
constinit std::vector<Name *> initrefs;
constinit std::vector<const char *> includes;

bool unknown_global_ref;
std::uint32_t need_flags;

namespace {

// The number of the function being read; 0 is no function.
std::uint32_t call_epoch = 1;

}  // namespace

void add_variable(Symbol *symbol)
{
    append(variables, symbol);
    if (!symbol->name->variable)
        symbol->name->variable = symbol;
}

Symbol *find_variable(const Name *name)
{
    return name->variable;
}

void add_prototype(Symbol *symbol)
{
    append(prototypes, symbol);
    if (!symbol->name->prototype)
        symbol->name->prototype = symbol;
}

void add_function(Symbol *symbol)
{
    symbol->prev = functions.tail;
    append(functions, symbol);
    Name *name = symbol->name;
    if (!name->function)
        name->function = symbol;
    if (name->prototype)
        return;
    Symbol *prototype = newsym(name, symbol->type);
    prototype->storage = symbol->storage;
    add_prototype(prototype);
}

void add_alias(Symbol *symbol)
{
    append(aliases, symbol);
}

void add_meta(Meta *meta)
{
    append(metas, meta);
}

void note_unresolved(Name *name)
{
    if (name->prototype) {
        ++name->prototype->uses;
    } else if (!name->unresolved) {
        name->unresolved = true;
        unresolved.push_back(name);
    }
}

void note_call(Name *name)
{
    if (memoryheader(name))
        name = memoryname(name);
    if (name->call_epoch == call_epoch)
        return;
    name->call_epoch = call_epoch;
    append(current_calls, newsym(name, nullptr));
}

Symbol *takecalls()
{
    Symbol *calls = current_calls.head;
    current_calls = {};
    ++call_epoch;
    return calls;
}

void add_include(const char *header)
{
    const auto same = [header](const char *include) { return std::strcmp(include, header) == 0; };
    if (std::none_of(includes.begin(), includes.end(), same))
        includes.push_back(header);
}

Expr *addressedleaf(Expr *expr)
{
    while (isop(expr, op::address) || isop(expr, op::cast) || isop(expr, op::add) || isop(expr, op::index))
        expr = expr->left;
    return isleaf(expr, leaf::name) ? expr : nullptr;
}

void note_initref(const Expr *expr)
{
    const Expr *target = addressedleaf(const_cast<Expr *>(expr));
    if (!target || target->value->initref)
        return;
    target->value->initref = true;
    initrefs.push_back(target->value);
}

void insertsymbol(List<Symbol> &list, Symbol *symbol, Symbol *before)
{
    symbol->next = before;
    symbol->prev = before->prev;
    if (before->prev)
        before->prev->next = symbol;
    else
        list.head = symbol;
    before->prev = symbol;
}

void removesymbol(List<Symbol> &list, Symbol *symbol)
{
    if (symbol->prev)
        symbol->prev->next = symbol->next;
    else
        list.head = symbol->next;
    if (symbol->next)
        symbol->next->prev = symbol->prev;
    else
        list.tail = symbol->prev;
}

// ---- Expression tests -------------------------------------------------------------------------------------------

bool sameoperand(const Expr *a, const Expr *b)
{
    while (a && b && a->op == b->op && (a->op == op::dereference || a->op == op::address)) {
        a = a->left;
        b = b->left;
    }
    if (!a || !b || a->op != op::leaf || b->op != op::leaf)
        return false;
    const bool plain = a->leaf == b->leaf && (a->leaf == leaf::number || a->leaf == leaf::name);
    if (plain && a->value == b->value)
        return true;
    return a->leaf == leaf::name && namebegins(a->value, slot_suffix);
}
