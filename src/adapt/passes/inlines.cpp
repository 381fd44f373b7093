// The order of definitions. quarl prints linkonce_odr functions as inline ones, each after those that it calls, and
// gives up where there is no such order: a parser class with its functions in the class body is enough for that. A
// function in such a circle is printed as weak, which says the same of its linkage.
#include "adapt/passes/passes.h"

#include <algorithm>

namespace adapt {

namespace {

enum Mark : std::uint32_t { unseen, first_met };

bool isinline(const Global &global)
{
    return global.kind == GlobalKind::function && global.linkage == Linkage::linkonce_odr && !global.declared_only &&
           !global.dropped;
}

// The algorithm of Tarjan with a stack of its own: a function, the place in its list of calls, and the earliest
// function of the stack that it reaches.
struct Frame {
    Global *global;
    std::size_t call;
    std::uint32_t low;
};

struct Search {
    std::uint32_t met = first_met;
    std::vector<Frame> frames;
    std::vector<Global *> stack;  // of functions whose circle isn't closed
    std::vector<Global *> done;   // those that are called before those that call them
};

constexpr std::uint32_t closed = 0xFFFFFFFF;

void enter(Search &search, Global *global)
{
    global->mark = search.met++;
    search.frames.push_back({global, 0, global->mark});
    search.stack.push_back(global);
}

void closecircle(Search &search, const Global *first)
{
    const bool circle = search.stack.back() != first;
    for (const Global *global = nullptr; global != first;) {
        Global *member = search.stack.back();
        search.stack.pop_back();
        member->in_circle = circle;
        member->mark = closed;
        search.done.push_back(member);
        global = member;
    }
}

void step(Search &search)
{
    Frame &frame = search.frames.back();
    if (frame.call < frame.global->calls.size()) {
        Global *called = frame.global->calls[frame.call++];
        if (!isinline(*called)) {
            return;
        }
        if (called->mark == unseen) {
            enter(search, called);
        } else if (called->mark != closed) {
            frame.low = std::min(frame.low, called->mark);
        }
        return;
    }
    const Frame last = frame;
    search.frames.pop_back();
    if (!search.frames.empty()) {
        search.frames.back().low = std::min(search.frames.back().low, last.low);
    }
    if (last.low == last.global->mark) {
        closecircle(search, last.global);
    }
}

void resetmarks(Module &module)
{
    for (Global &global : module.globals) {
        global.mark = unseen;
    }
}

void visit(Search &search, Global *global)
{
    if (global->mark == unseen && isinline(*global)) {
        enter(search, global);
        while (!search.frames.empty()) {
            step(search);
        }
    }
}

}  // namespace

void findcircles(Module &module)
{
    resetmarks(module);
    Search search;
    for (Global &global : module.globals) {
        visit(search, &global);
    }
    resetmarks(module);
}

bool printsinline(const Global &global)
{
    return isinline(global) && !global.in_circle;
}

std::vector<Global *> printorder(Module &module)
{
    resetmarks(module);
    Search search;
    for (Global &global : module.globals) {
        if (global.kind != GlobalKind::function || global.declared_only || global.dropped) {
            continue;
        }
        if (isinline(global)) {
            visit(search, &global);
        } else {
            search.done.push_back(&global);
        }
    }
    resetmarks(module);
    return search.done;
}

}  // namespace adapt
