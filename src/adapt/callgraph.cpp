// Inline functions that call each other in a circle. quarl writes linkonce_odr functions as inline ones, each behind
// those that it calls, and gives up where there is no such order: a parser class with its functions in the class body
// is enough for that. Such functions are written as weak, which says the same about their linkage.
#include "adapt/module.h"

#include <algorithm>

namespace adapt {

namespace {

// The algorithm of Tarjan with a stack of its own: a function and the place in its list of calls.
struct Frame {
    std::size_t node;
    std::size_t call;
};

struct Search {
    std::vector<std::size_t> order;  // when a function was met, from 1; 0: not yet
    std::vector<std::size_t> low;
    std::vector<bool> waiting;  // on the stack of the circles
    std::vector<std::size_t> stack;
    std::vector<Frame> frames;
    std::size_t met = 0;
};

void enter(Search &search, std::size_t node)
{
    search.order[node] = search.low[node] = ++search.met;
    search.waiting[node] = true;
    search.stack.push_back(node);
    search.frames.push_back({node, 0});
}

void close_circle(Module &module, Search &search, std::size_t node)
{
    const bool circle = search.stack.back() != node;
    std::size_t member = npos;
    while (member != node) {
        member = search.stack.back();
        search.stack.pop_back();
        search.waiting[member] = false;
        module.inlines[member].in_circle = circle;
    }
}

void step(Module &module, Search &search)
{
    const std::size_t node = search.frames.back().node;
    const std::vector<std::size_t> &calls = module.inlines[node].calls;
    if (search.frames.back().call < calls.size()) {
        const std::size_t called = calls[search.frames.back().call++];
        if (search.order[called] == 0) {
            enter(search, called);
        } else if (search.waiting[called]) {
            search.low[node] = std::min(search.low[node], search.order[called]);
        }
        return;
    }
    search.frames.pop_back();
    if (!search.frames.empty()) {
        const std::size_t caller = search.frames.back().node;
        search.low[caller] = std::min(search.low[caller], search.low[node]);
    }
    if (search.low[node] == search.order[node]) {
        close_circle(module, search, node);
    }
}

}  // namespace

void note_inline(Module &module, const std::string &name)
{
    if (module.inline_places.emplace(name, module.inlines.size()).second) {
        module.inlines.emplace_back();
    }
}

void note_calls(Module &module, const std::string &caller, std::string_view line)
{
    if (line.find("call ") == npos && line.find("invoke ") == npos) {
        return;
    }
    const Tokens tokens = lex(line);
    for (std::size_t at = 0; at + 1 < tokens.size(); ++at) {
        if (tokens[at].kind == Kind::global && is(tokens[at + 1], "(")) {
            module.inline_calls.emplace_back(caller, name_of(tokens[at].text));
            return;
        }
    }
}

void find_circles(Module &module)
{
    for (const auto &[caller, called] : module.inline_calls) {
        const auto to = module.inline_places.find(called);
        if (to != module.inline_places.end()) {
            module.inlines[module.inline_places.at(caller)].calls.push_back(to->second);
        }
    }
    Search search;
    const std::size_t count = module.inlines.size();
    search.order.resize(count);
    search.low.resize(count);
    search.waiting.resize(count);
    for (std::size_t node = 0; node < count; ++node) {
        if (search.order[node] == 0) {
            enter(search, node);
        }
        while (!search.frames.empty()) {
            step(module, search);
        }
    }
}

bool is_in_circle(const Module &module, const std::string &name)
{
    const auto found = module.inline_places.find(name);
    return found != module.inline_places.end() && module.inlines[found->second].in_circle;
}

}  // namespace adapt
