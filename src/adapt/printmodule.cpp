// The lines outside of functions.
//
// Order of structures. quarl keeps a structure that is named before its own line as a forward entry. The next
// definition moves all forward entries before itself, and when their own lines come later, they are filled in where
// they stand. Two things go wrong with the order in which the front end writes the lines. A structure that names
// itself, and that no earlier line has named, makes a forward entry of its own name, which its own definition then
// throws away: its `next` pointer stays a `void *`. And a structure that is filled in where it stands can hold another
// one by value that comes after it. So before the first structure line come declarations that name every structure,
// those held by value first:
//
//     declare { %struct.inner*, %struct.node* } @llvm.dbg.order()
//
// quarl reads the return type, sees a debug intrinsic and forgets the rest, so nothing of it reaches the C; but the
// names are now forward entries in this order. The definition that comes next moves them into the list. That one can't
// be one of the named (it would throw its own entry away), so a structure that no other holds by value and that doesn't
// name itself is left out of the declarations and written first. Where there is none, an opaque class with the tag of
// the last structure takes its place, which shows in the C as one `struct tag;` after the structure itself.
//
// Order of variables. A variable comes after those that its initialiser names, where there is such an order: quarl
// declares a variable that others name too early without its const and static.
#include "adapt/passes/passes.h"
#include "adapt/printer.h"

#include <algorithm>
#include <unordered_set>

namespace adapt {

namespace {

constexpr std::size_t longest_order_line = 4000;
constexpr std::size_t greatest_align = 16;  // that the front end gives to large arrays by itself

// ---- Structures ----

StructType *heldby(Type *member)
{
    return structof(elementof(member));
}

enum Mark : std::uint8_t { unseen, open, done };

// Those held by value before their holder, with a stack of its own.
std::vector<StructType *> innerfirst(Module &module)
{
    std::vector<StructType *> order;
    std::vector<StructType *> stack;
    for (auto type = module.structs.rbegin(); type != module.structs.rend(); ++type) {
        type->mark = unseen;
        stack.push_back(&*type);
    }
    while (!stack.empty()) {
        StructType *type = stack.back();
        if (type->mark != unseen) {
            stack.pop_back();
            if (type->mark == open) {
                type->mark = done;
                order.push_back(type);
            }
            continue;
        }
        type->mark = open;
        for (auto member = type->written_members.rbegin(); member != type->written_members.rend(); ++member) {
            StructType *inner = heldby(member->type);
            if (inner != nullptr && inner->mark == unseen) {
                stack.push_back(inner);
            }
        }
    }
    return order;
}

// Follows a type up to the structures with names.
bool names(const Type *type, const StructType *structure)
{
    for (; type != nullptr; type = type->sub) {
        if (type->kind == TypeKind::structure) {
            return structof(type) == structure;
        }
        for (const Type *param : type->members) {
            if (names(param, structure)) {
                return true;
            }
        }
    }
    return false;
}

bool isselfish(const StructType &type)
{
    return std::any_of(type.written_members.begin(), type.written_members.end(),
                       [&](const WrittenMember &member) { return names(member.type, &type); });
}

void printstructure(Module &module, const StructType &type, std::string &out)
{
    const std::size_t start = out.size();
    out += "%" + type.written + " = type ";
    if (type.opaque) {
        out += "opaque\n";
        return;
    }
    for (const WrittenMember &member : type.written_members) {
        out += (&member == type.written_members.data() ? "{ " : ", ") + typetext(member.type);
    }
    out += " }\n";
    if (out.size() - start > longest_line) {
        refuseline(module, type.line, "structure " + type.name + ": more members than a line holds");
    }
}

void printorder(const std::vector<StructType *> &order, const StructType *first, std::string &out)
{
    std::string line;
    for (const StructType *type : order) {
        if (type != first) {
            line += (line.empty() ? "declare { %" : ", %") + type->written + "*";
        }
        if (line.size() > longest_order_line || (!line.empty() && type == order.back())) {
            out += line + " } @llvm.dbg.order()\n";
            line.clear();
        }
    }
}

// An opaque structure with a tag that the C has already.
void printstandin(const Module &module, std::string &out)
{
    for (auto type = module.structs.rbegin(); type != module.structs.rend(); ++type) {
        if (!type->written.starts_with("union.")) {
            const char *prefix = type->written.starts_with("class.") ? "struct." : "class.";
            out += "%" + std::string(prefix) + std::string(tagof(*type)) + " = type opaque\n";
            return;
        }
    }
    out += "%struct.order = type opaque\n";
}

// Those that the written members of others hold by value.
std::unordered_set<const StructType *> heldstructures(const Module &module)
{
    std::unordered_set<const StructType *> held;
    for (const StructType &type : module.structs) {
        for (const WrittenMember &member : type.written_members) {
            held.insert(heldby(member.type));
        }
    }
    return held;
}

void printstructures(Module &module, std::string &out)
{
    const std::unordered_set<const StructType *> held = heldstructures(module);
    const StructType *first = nullptr;
    bool needs_order = false;
    for (const StructType &type : module.structs) {
        const bool inner = held.contains(&type) || isselfish(type);
        needs_order = needs_order || inner;
        first = first == nullptr && !inner ? &type : first;
    }
    if (needs_order) {
        printorder(innerfirst(module), first, out);
        if (first == nullptr) {
            printstandin(module, out);
        } else {
            printstructure(module, *first, out);
        }
    }
    for (const StructType &type : module.structs) {
        if (!needs_order || &type != first) {
            printstructure(module, type, out);
        }
    }
}

// ---- Variables ----

bool isprinted(const Global &global)
{
    return global.mark == done;
}

std::string_view variablewords(const Global &global)
{
    if (global.declared_only) {
        return "external ";
    }
    switch (global.linkage) {
    case Linkage::internal:
        return "internal ";
    case Linkage::private_:
        return "private ";
    case Linkage::appending:
        return "appending ";
    case Linkage::linkonce:
    case Linkage::linkonce_odr:
        return global.is_constant ? "linkonce_odr " : "";
    default:
        return "";
    }
}

// A variable without a size in C would have no end.
Type *printedtype(Module &module, const Global &global)
{
    Type *type = global.type;
    const bool empty = type->kind == TypeKind::array && type->count == 0 && !global.declared_only;
    return empty ? arrayof(module, type->sub, 1) : type;
}

// A variable's line, as it comes in the output.
struct VariableLine {
    Global *global;
    std::string head;
    std::string value;
};

void makeline(Module &module, Global &global, std::vector<VariableLine> &lines)
{
    std::string head = "@" + writtenname(global) + " = ";
    head += variablewords(global);
    head += (global.is_constant ? "constant " : "global ") + typetext(printedtype(module, global));
    std::string value;
    if (!global.declared_only) {
        value = initialisertext(module, global, flatteninitialiser(module, global), isprinted);
    }
    if (!global.declared_only && global.align > std::max(calign(module, global.type), greatest_align)) {
        warn(module, &global, "loses its alignment of " + std::to_string(global.align) + " bytes");
    }
    global.in_tail = head.size() + value.size() + 1 > longest_line && !global.declared_only;
    lines.push_back({&global, std::move(head), std::move(value)});
}

std::vector<Global *> variablesin(const Value *constant)
{
    std::vector<Global *> named;
    if (constant != nullptr) {
        collectglobals(constant, named);
    }
    std::erase_if(named, [](const Global *global) { return global->kind != GlobalKind::variable; });
    return named;
}

struct Visit {
    Global *global;
    std::vector<Global *> named;
    std::size_t next = 0;
};

// What the initialiser names comes before the variable. Has a stack of its own.
void linewithnamed(Module &module, Global &first, std::vector<VariableLine> &lines)
{
    std::vector<Visit> stack;
    const auto enter = [&](Global &global) {
        if (global.mark == unseen && !global.dropped) {
            global.mark = open;
            stack.push_back({&global, variablesin(global.initialiser), 0});
        }
    };
    enter(first);
    while (!stack.empty()) {
        Visit &visit = stack.back();
        if (visit.next < visit.named.size()) {
            enter(*visit.named[visit.next++]);
            continue;
        }
        Global *global = visit.global;
        stack.pop_back();
        makeline(module, *global, lines);
        global->mark = done;
    }
}

bool islocal(const Global &global)
{
    return !global.declared_only && !variablewords(global).empty();
}

// quarl drops a variable of this file that only the tail names, so the tail has it as well.
void spreadtail(const std::vector<VariableLine> &lines)
{
    std::vector<Global *> work;
    for (const VariableLine &line : lines) {
        if (line.global->in_tail) {
            work.push_back(line.global);
        }
    }
    while (!work.empty()) {
        const Global *global = work.back();
        work.pop_back();
        for (Global *named : variablesin(global->initialiser)) {
            if (islocal(*named) && !named->in_tail) {
                named->in_tail = true;
                work.push_back(named);
            }
        }
    }
}

void printvariables(Module &module, std::string &out)
{
    std::vector<VariableLine> lines;
    for (Global &global : module.globals) {
        global.mark = unseen;
    }
    for (Global &global : module.globals) {
        if (global.kind == GlobalKind::variable) {
            linewithnamed(module, global, lines);
        }
    }
    spreadtail(lines);
    for (const VariableLine &line : lines) {
        out += line.head + (line.global->in_tail ? " zeroinitializer" : line.value) + "\n";
        line.global->mark = unseen;
    }
}

// quarl gives a function the name on the left. The other name is the one that isn't defined elsewhere in the C, so the
// alias stands on the right.
void printaliases(Module &module, std::string &out)
{
    for (const Global &global : module.globals) {
        Address address;
        if (global.kind != GlobalKind::alias || global.dropped || !findaddress(module, global.initialiser, address) ||
            address.global == nullptr) {
            continue;
        }
        const Global &target = *address.global;
        const std::string type = typetext(target.type);
        out += "@" + writtenname(target) + " = alias " + type + ", " + type + "* @" + writtenname(global) + "\n";
    }
}

// ---- Functions ----

std::string_view functionwords(const Global &global)
{
    switch (global.linkage) {
    case Linkage::internal:
    case Linkage::private_:
        return "internal ";
    case Linkage::linkonce_odr:
        return printsinline(global) ? "linkonce_odr " : "weak ";
    case Linkage::linkonce:
    case Linkage::weak:
    case Linkage::weak_odr:
        return "weak ";
    default:
        return "";
    }
}

std::string_view extensionof(const Global &global, std::size_t place)
{
    if (place >= global.attributes.size()) {
        return "";
    }
    const Attributes &attributes = global.attributes[place];
    return attributes.zeroext ? "zeroext " : attributes.signext ? "signext " : "";
}

void printparams(const Global &global, const Function *function, std::string &out)
{
    const std::vector<Type *> &params = global.type->members;
    for (std::size_t i = 0; i < params.size(); ++i) {
        std::string param = (i == 0 ? "" : ", ") + typetext(params[i]) + " ";
        param += extensionof(global, i + 1);
        if (function != nullptr) {
            param += "%" + std::string(function->params[i]->name);
        } else {
            param.pop_back();
        }
        out += param;
    }
    if (global.type->variadic) {
        out += params.empty() ? "..." : ", ...";
    }
}

void printfunctionline(Module &module, const Global &global, const Function *function, std::string &out)
{
    std::string line = function != nullptr ? "define " : "declare ";
    line += function != nullptr ? functionwords(global) : "";
    line += extensionof(global, 0);
    line += typetext(global.type->sub) + " @" + writtenname(global) + "(";
    printparams(global, function, line);
    line += function != nullptr ? ") {\n" : ")\n";
    if (line.size() > longest_line) {
        refuse(module, &global, "more parameters than a line holds");
    }
    out += line;
}

}  // namespace

void printmodulehead(Module &module, std::string &out)
{
    dropcopies(module);
    if (!module.source_filename.empty()) {
        out += "source_filename = \"" + module.source_filename + "\"\n";
    }
    printstructures(module, out);
    printvariables(module, out);
    printaliases(module, out);
}

void printheader(Module &module, const Global &global, const Function &function, std::string &out)
{
    printfunctionline(module, global, &function, out);
}

void printdeclaration(Module &module, const Global &global, std::string &out)
{
    printfunctionline(module, global, nullptr, out);
}

}  // namespace adapt
