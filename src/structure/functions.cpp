// The functions section: the order of inline functions, heads and trailers, and the removal of exception blocks.

#include "structure/structure.h"

#include "base/base.h"
#include "emit/emit.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

bool isinline(const Symbol *function)
{
    return (function->flags & flag::linkonce_odr) && !(function->flags & flag::addressed);
}

// ---- Inline ordering --------------------------------------------------------------------------------------------

namespace {

// The order is defined by walks through the list, each up to the first inline function F with an inline callee after
// it: the callee is moved before F, and the next walk starts at the head. A function before F has no callee after it,
// and no move changes that: the next walk comes to the moved function first and to F after it. So one walk is enough
// that goes on at the place of each move. A function is settled when the walk has passed it; its calls are visited
// once, since settled functions are never moved.
struct InlineOrder {
    std::unordered_map<const Symbol *, const Symbol *> next_call;  // the call of a function to be visited next
    std::unordered_set<const Symbol *> settled;
    // Functions by name, the first of the list last; settled ones are removed from the end.
    std::unordered_map<const Name *, std::vector<Symbol *>> named;
};

// The first function of the name after `function`, or null. All functions that are not settled are after it.
Symbol *laterfunction(InlineOrder &order, const Symbol *function, const Name *name)
{
    const auto entry = order.named.find(name);
    if (entry == order.named.end())
        return nullptr;
    std::vector<Symbol *> &candidates = entry->second;
    while (!candidates.empty() && order.settled.contains(candidates.back()))
        candidates.pop_back();
    for (auto candidate = candidates.rbegin(); candidate != candidates.rend(); ++candidate)
        if (*candidate != function && !order.settled.contains(*candidate))
            return *candidate;
    return nullptr;
}

// The function is the first now of those that are not settled.
void movetofront(InlineOrder &order, Symbol *function)
{
    std::vector<Symbol *> &candidates = order.named[function->name];
    if (candidates.back() == function)
        return;
    candidates.erase(std::next(std::find(candidates.rbegin(), candidates.rend(), function)).base());
    candidates.push_back(function);
}

// The first inline callee that comes after an inline function, or null.
Symbol *misplacedcallee(InlineOrder &order, const Symbol *function)
{
    if (!isinline(function))
        return nullptr;
    const Symbol *&call = order.next_call.try_emplace(function, function->calls).first->second;
    for (; call; call = call->next) {
        Symbol *callee = laterfunction(order, function, call->name);
        if (callee && isinline(callee))
            return callee;
    }
    return nullptr;
}

}  // namespace

void orderinline()
{
    if (no_inline)
        return;
    InlineOrder order;
    std::size_t count = 0;
    for (Symbol *function = functions.tail; function; function = function->prev, ++count)
        order.named[function->name].push_back(function);
    std::size_t moves = 0;
    for (Symbol *function = functions.head; function;) {
        Symbol *callee = misplacedcallee(order, function);
        if (!callee) {
            order.settled.insert(function);
            function = function->next;
            continue;
        }
        removesymbol(functions, callee);
        insertsymbol(functions, callee, function);
        movetofront(order, callee);
        if (++moves > count) {
            report("fail to reorder inline functions");
            return;
        }
        function = callee;
    }
}

// ---- Output -----------------------------------------------------------------------------------------------------

namespace {

void outhead(const Symbol *function)
{
    if (!no_inline && isinline(function))
        outmarkeddecl("@inline ", function->name, function->type);
    else if (function->flags & flag::weak)
        outmarkeddecl("@weak ", function->name, function->type);
    else
        outdecl(function->name, function->type);
}

void outcalls(const Symbol *function)
{
    if (!function->calls)
        return;
    outtext("// calls: ");
    for (const Symbol *call = function->calls; call; call = call->next) {
        outtext(nametext(call->name));
        outtext(", ");
    }
    outchar('\n');
}

void outfunction(const Symbol *function)
{
    if (function->storage == storage::hidden)
        return;
    if (function->storage == storage::static_)
        outtext("static ");
    outhead(function);
    outtext("\n\t{\n");
    indent_depth = 1;
    outbody(function->type->blocks);
    outtext("\t}\n");
    outcalls(function);
    outchar('\n');
}

}  // namespace

void outfunctions()
{
    outprogress("output functions\n");
    if (functions.head)
        outtext("/*\tfunctions definitions\n */\n");
    for (const bool inline_pass : {true, false}) {
        for (const Symbol *function = functions.head; function; function = function->next) {
            if (isinline(function) != inline_pass)
                continue;
            outfunction(function);
            leaveifinterrupted();
        }
    }
}

// ---- Exception blocks -------------------------------------------------------------------------------------------

namespace {

void marktarget(Block *block, const Name *label)
{
    findblock(block, label)->mark = mark::exception;
}

// Unlinks the exception block that `link` points to. Its targets belong to exception handling too.
void markexception(Ref<Block> &link)
{
    Block *block = link;
    const Inst *last = block->last;
    const std::uint8_t code = last ? last->op : inst::nothing;
    if (code == inst::jump) {
        marktarget(block, last->name);
    } else if (code == inst::other_branch) {
        marktarget(block, last->targets->true_label);
        marktarget(block, last->targets->false_label);
    } else if (code != inst::nothing) {
        report("unexpected last instruction in exception block");
    }
    block->removed = true;
    link = block->next;
}

}  // namespace

void stripexceptions(Block *first)
{
    Ref<Block> *link = &first->next;
    while (*link) {
        if ((*link)->mark == mark::exception)
            markexception(*link);
        else
            link = &(*link)->next;
    }
}
