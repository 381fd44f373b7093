// The run over a module: the list of the passes, with what holds after each.
#include "adapt/adapt.h"
#include "adapt/check.h"
#include "adapt/passes/passes.h"
#include "adapt/tree.h"

#include <algorithm>
#include <cstdio>

namespace adapt {

namespace {

struct Pass {
    std::string_view name;
    void (*run)(Function &function);
};

// From what the front end writes to what the structuring takes.
constexpr Pass passes[] = {
    {"lowerinvoke", lowerinvoke},          // no exceptions: no invoke, landingpad, resume
    {"lowershared", lowershared},          // statics of inline functions are reached by a call
    {"lowervarargs", lowervarargs},        // no va_start, va_arg, va_end, va_copy
    {"lowervla", lowervla},                // all variables have a fixed size
    {"lowerintrinsics", lowerintrinsics},  // of llvm.*, calls of memcpy, memmove and memset alone
    {"loweratomics", loweratomics},        // no atomic access, no fence
    {"loweraggregates", loweraggregates},  // structures as values only from load to store
    {"lowerwide", lowerwide},              // no integer of more than 64 bits
    {"hoistconstants", hoistconstants},    // computed constants are addresses
    {"lowerodd", lowerodd},                // integers of 1, 8, 16, 32 and 64 bits only
    {"lowerfloats", lowerfloats},          // no unsigned 64-bit integer from a floating-point number
    {"lowerlayout", lowerlayout},          // members by place only where they are written in that place
    {"lowerunaligned", lowerunaligned},    // no load or store is aligned by less than its type
    {"lowernan", lowernan},                // no operand is a constant that isn't a number
    {"lowermemory", lowermemory},          // string.h isn't needed where the module declares what it has
    {"threadcleanups", threadcleanups},    // ways out of a scope don't meet in a switch, up to a size
    {"foldreturns", foldreturns},          // a return stands where it is jumped from
    {"dropdead", dropdead},                // every value without an effect has a use
    {"hoistallocas", hoistallocas},        // all variables at the start of the entry block
};

// A definition whose body has been printed.
struct Printed {
    std::string body;
    std::vector<std::string> params;
};

void showfunction(const Function &function, std::string_view pass)
{
    std::string text;
    printfunction(function, text);
    std::fprintf(stderr, "; after %.*s\n%s\n", static_cast<int>(pass.size()), pass.data(), text.c_str());
}

void notecalls(const Value *value, std::vector<Global *> &calls, int depth)
{
    constexpr int deepest = 32;
    if (value->kind == ValueKind::global) {
        if (value->global->kind != GlobalKind::variable) {
            calls.push_back(value->global);
        }
        return;
    }
    if (value->kind == ValueKind::expression && depth < deepest) {
        for (std::size_t place = 0; place < value->operand_count; ++place) {
            notecalls(operand(value, place), calls, depth + 1);
        }
    }
}

// The functions that the body names, each once.
std::vector<Global *> calledfunctions(const Function &function)
{
    std::vector<Global *> calls;
    for (const Block *block : function.blocks) {
        for (const Value *inst = block->first; inst != nullptr; inst = inst->next) {
            for (std::size_t place = 0; place < inst->operand_count; ++place) {
                notecalls(operand(inst, place), calls, 0);
            }
        }
    }
    std::vector<Global *> once;
    std::unordered_set<const Global *> known;
    for (Global *call : calls) {
        if (known.insert(call).second) {
            once.push_back(call);
        }
    }
    return once;
}

bool lower(Function &function, const AdaptOptions &options)
{
    const std::size_t errors = function.module->errors;
    for (const Pass &pass : passes) {
        pass.run(function);
        if (function.module->errors > errors) {
            return false;
        }
        if (options.verify) {
            verify(function, pass.name.data());
        }
        if (options.print_after == pass.name) {
            showfunction(function, pass.name);
        }
    }
    removeunreachable(function);
    return true;
}

void printbody(Function &function, std::string &out)
{
    Tree tree;
    tree.function = &function;
    makenodes(tree);
    foldconditions(tree);   // no branch is a part of a condition or of a choice
    buildstatements(tree);  // every instruction is in a statement, no phi is left
    structure(tree);        // every node is in the tree of statements
    settlelocals(tree);
    printfunctionbody(tree, out);
    if (std::string why; !checkbody(tree, out, why)) {
        refuse(function, nullptr, "internal error: " + why);
    }
}

void adaptfunction(Module &module, Global &global, const AdaptOptions &options, Printed &printed)
{
    Function function;
    function.global = &global;
    function.module = &module;
    if (!parsebody(function)) {
        return;
    }
    removeunreachable(function);
    if (options.verify) {
        verify(function, "parse");
    }
    if (!lower(function, options)) {
        return;
    }
    global.calls = calledfunctions(function);
    printbody(function, printed.body);
    for (const Value *param : function.params) {
        printed.params.emplace_back(param->name);
    }
}

void printdefinition(Module &module, const Global &global, const Printed &printed, std::string &out)
{
    Function head;
    head.global = const_cast<Global *>(&global);
    head.module = &module;
    for (std::size_t place = 0; place < printed.params.size(); ++place) {
        Value &param = head.arena.values.emplace_back();
        param.kind = ValueKind::parameter;
        param.type = global.type->members[place];
        param.name = printed.params[place];
        param.number = place;
        head.params.push_back(&param);
    }
    printheader(module, global, head, out);
    out += printed.body;
    out += "}\n\n";
}

bool isdefinition(const Global &global)
{
    return global.kind == GlobalKind::function && !global.declared_only && !global.dropped;
}

}  // namespace

void adaptmodule(Module &module, const AdaptOptions &options, std::string &out, std::string &tail)
{
    parsemodule(module);
    if (module.errors > 0) {
        return;
    }
    lowerglobals(module);
    settletypes(module);
    settlenames(module);
    std::unordered_map<const Global *, Printed> bodies;
    for (std::size_t place = 0; place < module.globals.size(); ++place) {  // passes add declarations
        Global &global = module.globals[place];
        if (isdefinition(global)) {
            adaptfunction(module, global, options, bodies[&global]);
        }
    }
    if (module.errors > 0) {
        return;
    }
    findcircles(module);
    printmodulehead(module, out);
    for (const Global &global : module.globals) {
        if (global.kind == GlobalKind::function && global.declared_only && !global.dropped) {
            printdeclaration(module, global, out);
        }
    }
    for (const Global *global : printorder(module)) {
        printdefinition(module, *global, bodies.at(global), out);
    }
    printmetadata(module, out);
    printtail(module, tail);
    if (options.check_layout) {
        printlayoutchecks(module, tail);
    }
}

}  // namespace adapt
