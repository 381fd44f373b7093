// Types as C text. A declarator encloses the declared name: outprefix() descends to the base type, then comes the name,
// and outsuffix() descends again and closes what the prefix opened.
//
//     pointer to function returning long:   "long (*"  name  ")(int )"

#include "emit/emit.h"

#include "base/base.h"
#include "frontend/frontend.h"

#include <string>

bool drop_param_names;

namespace {

int anon_counter;  // tags of literal aggregates, structs and unions together

struct BaseName {
    std::uint8_t kind;
    std::string_view text;
};

constexpr BaseName base_names[] = {
    {kind::int16, "int"},           {kind::int32, "long"},
    {kind::plain_char, "char"},     {kind::void_, "void"},
    {kind::boolean, "char"},        {kind::signed_char, "signed char"},
    {kind::short_int, "short"},     {kind::unsigned_short, "unsigned short"},
    {kind::uint16, "unsigned int"}, {kind::uint32, "unsigned long"},
    {kind::float32, "float"},       {kind::float64, "double"},
    {kind::int24, "unsigned long"},
};

void outbasename(const Type *type)
{
    const std::uint8_t code = type ? type->kind : 0;
    if (code == kind::int64 || code == kind::uint64) {
        outtext(longlongname(code == kind::uint64));
        outchar(' ');
        return;
    }
    for (const BaseName &row : base_names) {
        if (row.kind == code) {
            outtext(row.text);
            outchar(' ');
            return;
        }
    }
    report("unknown base type\n");
    outtext("? ");
}

std::string_view aggregateword(const Type *type)
{
    return type->kind == kind::structure ? "struct" : "union";
}

// The first mention of a literal aggregate carries its body; the tag is known before the members are written.
void outanonbody(Type *type)
{
    const std::string tag =
        std::string("_u").append(type->kind == kind::structure ? "s" : "u").append(std::to_string(anon_counter++)) +
        "_";
    type->tag = intern(tag);
    outtext(tag);
    outtext(" { ");
    addanon(type);
    for (const Symbol *member = type->members; member; member = member->next) {
        outdecl(member->name, member->type);
        outtext("; ");
    }
    outtext("} ");
}

void outaggregateprefix(Type *type)
{
    outtext(aggregateword(type));
    outchar(' ');
    if (type->tag) {
        outtext(cname(nametext(type->tag)));
        outchar(' ');
    } else if (const Type *known = findanon(type)) {
        outtext(nametext(known->tag));
        outchar(' ');
    } else {
        outanonbody(type);
    }
}

// Whether a pointer to the type needs parentheses.
bool binds(const Type *type)
{
    return iskind(type, kind::array) || iskind(type, kind::function);
}

void outprefix(const Type *type)
{
    if (iskind(type, kind::pointer)) {
        outprefix(type->sub);
        if (type->qual == qual::volatile_)
            outtext("volatile ");
        outtext(binds(type->sub) ? "(*" : "*");
    } else if (binds(type)) {
        outprefix(type->sub);
    } else if (isaggregate(type)) {
        outaggregateprefix(const_cast<Type *>(type));
    } else {
        outbasename(type);
    }
}

void outparameters(const Symbol *params)
{
    if (!params) {
        outtext("(void)");
        return;
    }
    outchar('(');
    const bool ellipsis_alone = !params->next && params->type->kind == kind::ellipsis;
    for (const Symbol *param = ellipsis_alone ? nullptr : params; param; param = param->next) {
        outdecl(drop_param_names ? nullptr : param->name.get(), param->type);
        if (param->next)
            outtext(", ");
    }
    outchar(')');
}

void outsuffix(const Type *type)
{
    for (; type; type = type->sub) {
        if (type->kind == kind::pointer) {
            if (binds(type->sub))
                outchar(')');
        } else if (type->kind == kind::array) {
            outchar('[');
            if (type->count)
                outnumber(static_cast<std::int32_t>(type->count));
            outchar(']');
        } else if (type->kind == kind::function) {
            outparameters(type->params);
        } else {
            return;
        }
    }
}

}  // namespace

void outdecl(const Name *name, const Type *type)
{
    if (iskind(type, kind::ellipsis)) {
        outtext("...");
        return;
    }
    outprefix(type);
    if (name)
        outtext(cname(nametext(name)));
    outsuffix(type);
}

void outmarkeddecl(std::string_view word, const Name *name, const Type *type)
{
    outprefix(type);
    outtext(word);
    outtext(cname(nametext(name)));
    outsuffix(type);
}

void outaggregate(const Type *type, const Name *name)
{
    const bool longform = name != nullptr;
    if (type->kind == kind::void_) {
        report("unresolved aggregate %s", nametext(name));
        return;
    }
    outtext(aggregateword(type));
    outchar(' ');
    outtext(cname(nametext(type->tag)));
    if (!type->members) {
        outtext(longform ? ";\n\n" : ";\n");
        return;
    }
    outtext(longform ? " {\n" : " {");
    for (const Symbol *member = type->members; member; member = member->next) {
        if (longform)
            outchar('\t');
        outdecl(member->name, member->type);
        outtext(longform ? ";\n" : "; ");
    }
    outtext(longform ? "\t};\n\n" : "};\n");
}

void outaggregates()
{
    outprogress("output aggregates\n");
    if (aggregates.head)
        outtext("/*\tstructures definitions\n */\n");
    for (const Symbol *entry = aggregates.head; entry; entry = entry->next)
        outaggregate(entry->type, entry->name);
}
