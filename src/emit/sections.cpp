// The sections of the output before the functions: includes, aliases, externs and variables.

#include "emit/emit.h"

#include "base/base.h"

#include <string>

namespace {

int ustr_counter;  // tags of literal aggregates that are declared ahead

std::string_view storageword(std::uint8_t code)
{
    switch (code) {
    case storage::static_:
        return "static ";
    case storage::extern_:
        return "extern ";
    default:
        return {};
    }
}

}  // namespace

void outincludes()
{
    outprogress("output includes\n");
    for (const char *header : includes) {
        outtext("#include <");
        outtext(header);
        outtext(">\n");
    }
    if (long_long)
        outtext("#include <lldefs.h>\n");
    outchar('\n');
}

void outaliases()
{
    outprogress("output aliases\n");
    if (aliases.head)
        outtext("/*\talias definitions\n */\n");
    for (const Symbol *alias = aliases.head; alias; alias = alias->next) {
        outtext("#pragma alias ");
        outtext(nametext(alias->aliasee));
        outchar(' ');
        outtext(nametext(alias->name));
        outchar('\n');
    }
    outchar('\n');
}

// ---- Externs ----------------------------------------------------------------------------------------------------

namespace {

void outextern(const Symbol *prototype)
{
    if (!keep_unused && prototype->uses == 0)
        return;
    outtext(storageword(prototype->storage));
    outdecl(prototype->name, prototype->type);
    outtext(";\t//count=");
    outnumber(prototype->uses);
    outchar('\n');
}

}  // namespace

void outexterns()
{
    outprogress("output externs\n");
    if (prototypes.head)
        outtext("/*\texterns definitions\n */\n");
    drop_param_names = true;
    for (const Symbol *prototype = prototypes.head; prototype; prototype = prototype->next) {
        outextern(prototype);
        if (nametext(prototype->name) == "malloc")
            need_flags &= ~need::declarations;
    }
    if (need_flags & need::declarations)
        outtext("extern void *malloc(int);\nextern void free(void *);\n");
    outchar('\n');
    drop_param_names = false;
}

// ---- Variables --------------------------------------------------------------------------------------------------

namespace {

struct SectionTable {
    std::string_view variable;
    std::string_view section;
};

constexpr SectionTable section_tables[] = {
    {"llvm.global_ctors", "_construct_"},
    {"llvm.global_dtors", "_destruct_"},
    {"llvm.used", "_used_"},
};

std::string_view sectionname(const Symbol *table)
{
    for (const SectionTable &row : section_tables)
        if (row.variable == nametext(table->name))
            return row.section;
    return "_unknown_";
}

bool isreadonlyinline(const Symbol *variable)
{
    return variable->qual == qual::const_ && (variable->flags & flag::linkonce_odr);
}

// Declares a variable that is defined after all the others.
void outforward(const Symbol *variable)
{
    if (variable->flags & flag::appending)
        return;
    Type *type = variable->type;
    if (isaggregate(type) && !type->tag) {
        type->tag = intern("_ustr" + std::to_string(ustr_counter++) + "_");
        outaggregate(type, nullptr);
    }
    if (isreadonlyinline(variable))
        outtext("static ");
    outdecl(variable->name, type);
    outtext(";\n");
}

// The first node from `node` on that is no zero element.
Expr *afterzeros(Expr *node)
{
    while (node && node->op == op::zero_element)
        node = node->next;
    return node;
}

bool closeslevel(const Expr *node)
{
    return !node || node->op == op::close_brace;
}

// Prints the elements up to `end`, which are zero, and only if another element follows on their level.
void outzeros(const Expr *node, const Expr *end)
{
    if (closeslevel(end))
        return;
    for (; node != end; node = node->next)
        outtext("{0}, ");
}

// An element or a brace, with a comma if more is printed on its level.
void outelement(Expr *node)
{
    if (node->op == op::open_brace) {
        outchar('{');
        return;
    }
    if (node->op == op::close_brace)
        outchar('}');
    else
        outexpr(node, false);
    if (!closeslevel(afterzeros(node->next)))
        outtext(", ");
}

void outinitialiser(const Symbol *variable)
{
    const bool braced = isaggregate(variable->type) || iskind(variable->type, kind::array);
    in_initialiser = true;
    outtext(braced ? " = {" : " = ");
    for (Expr *node = variable->value; node;) {
        if (Expr *end = afterzeros(node); end != node) {
            outzeros(node, end);
            node = end;
        } else {
            outelement(node);
            node = node->next;
        }
    }
    if (braced)
        outchar('}');
    in_initialiser = false;
}

void outvariable(Symbol *variable)
{
    if (!keep_unused && (variable->flags & flag::unused))
        return;
    const bool in_section = (variable->flags & flag::appending) && variable->value;
    if (in_section) {
        variable->storage = storage::static_;
        variable->qual = qual::const_;
        outtext("#pragma section const {");
        outtext(sectionname(variable));
        outtext("}\n");
    }
    if (isreadonlyinline(variable))
        variable->storage = storage::static_;
    outtext(storageword(variable->storage));
    if (variable->qual == qual::const_)
        outtext("const ");
    outdecl(variable->name, variable->type);
    if (variable->value)
        outinitialiser(variable);
    outtext(";\t// count=");
    outnumber(variable->uses);
    outchar('\n');
    if (in_section)
        outtext("#pragma section const {}\n");
}

}  // namespace

void outvariables()
{
    outprogress("output variables\n");
    if (variables.head)
        outtext("/*\tvariables definitions\n */\n");
    for (Symbol *variable = variables.head; variable; variable = variable->next) {
        if (variable->flags & flag::forward_ref)
            outforward(variable);
        else
            outvariable(variable);
    }
    for (Symbol *variable = variables.head; variable; variable = variable->next)
        if (variable->flags & flag::forward_ref)
            outvariable(variable);
    outchar('\n');
}
