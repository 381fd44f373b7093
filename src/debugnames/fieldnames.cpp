// Field names from debug metadata. The text of a metadata line is scanned for a few keys in the order in which the
// front end writes them:
//
//     !5 = !DICompositeType(tag: DW_TAG_structure_type, name: "S", scope: !3, ...)
//     !7 = !DIDerivedType(tag: DW_TAG_member, name: "a", scope: !5, ...)
//
// The composite's name, qualified by its scopes as in `ns::S`, is the tag of the aggregate. The member lines after the
// composite's line that have it as their scope name the members of the aggregate, by position alone.
//
// Every line is scanned once, and found through indexes from then on. A line with a string that doesn't end is
// scanned again each time that it is used, to report the fault there and nowhere else.

#include "debugnames/debugnames.h"

#include "reader/reader.h"

#include <algorithm>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace {

// A name with its scope.
struct ScopedName {
    Name *name;           // null without one
    std::uint32_t scope;  // number of the scope
    bool has_scope;
};

// The contents of a metadata line.
struct MetaLine {
    const Meta *meta;
    ScopedName definition;  // of a composite or a member
    ScopedName as_scope;    // of the line as the scope of others, if scope_known
    const MetaLine *seen;   // the composite whose scope chain had this line last
    std::uint8_t kind;      // kind of the aggregate that a composite defines, 0 for other lines
    bool composite : 1;     // opens with DICompositeType
    bool derived : 1;       // opens with DIDerivedType
    bool member : 1;        // names a member
    bool scope_known : 1;   // as_scope is set
    bool faulty : 1;        // a string without an end is met where the definition is read
    bool faulty_scope : 1;  // the same for as_scope
};

struct MetaIndex {
    std::vector<MetaLine> lines;                                          // in the order of the file
    std::unordered_map<std::uint32_t, std::size_t> by_id;                 // the first line of a number
    std::unordered_map<std::uint32_t, std::vector<std::size_t>> members;  // member lines by scope
    std::vector<std::size_t> unscoped_members;                            // member lines without a scope
    std::vector<std::size_t> faulty_members;                              // lines that look like members and are faulty
    // The first aggregate of each kind and tag.
    std::unordered_map<const Name *, Symbol *> structures;
    std::unordered_map<const Name *, Symbol *> unions;
};

// ---- Scanning a line --------------------------------------------------------------------------------------------

// Scans from `text` for `key` and a colon; gives the value after them, the number alone for a reference !12.
bool findkey(Token &value, const char *text, std::string_view key)
{
    setcursor(text);
    for (;;) {
        Token t;
        gettoken(t);
        if (t.code == token::end_of_line)
            return false;
        if (!isword(t, key))
            continue;
        gettoken(t);
        if (t.code != token::colon)
            continue;
        gettoken(value);
        if (value.code == token::bang)
            gettoken(value);
        return true;
    }
}

// The same, from the next token on.
bool findnextkey(Token &value, std::string_view key)
{
    Token t;
    gettoken(t);
    return findkey(value, t.text, key);
}

Name *internquoted(Token t)
{
    unquote(t);
    return intern(tokentext(t));
}

// name and scope in this order, from the value of the name on.
ScopedName scanscopedname(const Token &value)
{
    ScopedName scoped{internquoted(value), 0, false};
    Token t;
    if (findnextkey(t, "scope") && t.code == token::number) {
        scoped.scope = number(tokentext(t));
        scoped.has_scope = true;
    }
    return scoped;
}

struct AggregateTag {
    std::string_view text;
    std::uint8_t kind;
};

constexpr AggregateTag aggregate_tags[] = {
    {"DW_TAG_union_type", kind::union_},
    {"DW_TAG_class_type", kind::structure},
    {"DW_TAG_structure_type", kind::structure},
};

std::uint8_t aggregatekind(const Token &t)
{
    for (const AggregateTag &row : aggregate_tags)
        if (isword(t, row.text))
            return row.kind;
    return 0;
}

// A composite or a member has word "(" tag, name, scope, in this order; other lines get no definition.
void scandefinition(MetaLine &line)
{
    Token t;
    setcursor(line.meta->text);
    gettoken(t);
    line.composite = isword(t, "DICompositeType");
    line.derived = isword(t, "DIDerivedType");
    if ((!line.composite && !line.derived) || !findnextkey(t, "tag"))
        return;
    const std::uint8_t code = line.composite ? aggregatekind(t) : 0;
    if (line.composite ? code == 0 : !isword(t, "DW_TAG_member"))
        return;
    if (!findnextkey(t, "name") || t.code != token::string)
        return;
    line.definition = scanscopedname(t);
    line.kind = code;
    line.member = line.derived;
}

// Any line can be the scope of another: name and scope in this order.
void scanscopeline(MetaLine &line)
{
    Token t;
    if (findkey(t, line.meta->text, "name") && t.code == token::string)
        line.as_scope = scanscopedname(t);
}

MetaLine scanline(const Meta *meta)
{
    MetaLine line{};
    line.meta = meta;
    scanquietly(true);
    scandefinition(line);
    line.faulty = scanquietly(false);
    return line;
}

// Reports the faults of a definition that is used.
void reportdefinition(MetaLine line)
{
    if (line.faulty)
        scandefinition(line);
}

// The line as a scope; its faults are reported each time.
const ScopedName &scopeof(MetaLine &line)
{
    if (!line.scope_known) {
        line.scope_known = true;
        scanquietly(true);
        scanscopeline(line);
        line.faulty_scope = scanquietly(false);
    }
    if (line.faulty_scope)
        scanscopeline(line);
    return line.as_scope;
}

// ---- The index --------------------------------------------------------------------------------------------------

void indexmembers(MetaIndex &index, std::size_t place)
{
    const MetaLine &line = index.lines[place];
    if (line.faulty && line.derived)
        index.faulty_members.push_back(place);
    if (!line.member)
        return;
    if (line.definition.has_scope)
        index.members[line.definition.scope].push_back(place);
    else
        index.unscoped_members.push_back(place);
}

void indexaggregates(MetaIndex &index)
{
    for (Symbol *entry = aggregates.head; entry; entry = entry->next) {
        if (isaggregate(entry->type))
            (entry->type->kind == kind::union_ ? index.unions : index.structures).emplace(entry->type->tag, entry);
    }
}

void buildindex(MetaIndex &index)
{
    for (const Meta *meta = metas.head; meta; meta = meta->next) {
        const std::size_t place = index.lines.size();
        index.lines.push_back(scanline(meta));
        index.by_id.emplace(meta->id, place);
        indexmembers(index, place);
    }
    indexaggregates(index);
}

// ---- Names ------------------------------------------------------------------------------------------------------

// An aggregate's name is no longer than the line that defines it.
constexpr std::size_t longest_name = 8192;

// The names of a composite and its scopes, outermost last. A chain that comes back to one of its lines ends there.
struct ScopeChain {
    std::vector<const Name *> names;  // the composite's first
    std::size_t length;               // of the qualified name
};

// The scope line of `at`, if it has a name and is not yet part of the chain of `composite`.
MetaLine *enclosingscope(MetaIndex &index, const ScopedName &at, const MetaLine &composite)
{
    if (!at.has_scope || at.scope == composite.meta->id)
        return nullptr;
    const auto entry = index.by_id.find(at.scope);
    if (entry == index.by_id.end())
        return nullptr;
    MetaLine &scope = index.lines[entry->second];
    if (scope.seen == &composite || !scopeof(scope).name)
        return nullptr;
    scope.seen = &composite;
    return &scope;
}

ScopeChain scopechain(MetaIndex &index, const MetaLine &composite)
{
    constexpr std::size_t separator = 2;
    const Name *name = composite.definition.name;
    ScopeChain chain{{name}, name->length};
    for (const MetaLine *at = enclosingscope(index, composite.definition, composite);
         at && chain.length <= longest_name; at = enclosingscope(index, at->as_scope, composite)) {
        chain.names.push_back(at->as_scope.name);
        chain.length += at->as_scope.name->length + separator;
    }
    return chain;
}

// The name of a composite qualified by its scopes, outermost first; null if it is too long for any aggregate.
const Name *qualifyname(MetaIndex &index, const MetaLine &composite)
{
    const ScopeChain chain = scopechain(index, composite);
    if (chain.length > longest_name)
        return nullptr;
    std::string name;
    for (auto part = chain.names.rbegin(); part != chain.names.rend(); ++part) {
        if (part != chain.names.rbegin())
            name.append("::");
        name.append(nametext(*part));
    }
    return intern(name);
}

// The first aggregate of the composite's kind and qualified name, or null.
Symbol *findaggregate(MetaIndex &index, const MetaLine &composite)
{
    const Name *tag = qualifyname(index, composite);
    const auto &candidates = composite.kind == kind::union_ ? index.unions : index.structures;
    const auto entry = candidates.find(tag);
    return entry == candidates.end() ? nullptr : entry->second;
}

// ---- Members ----------------------------------------------------------------------------------------------------

// Line numbers in the order of the file, from after a composite on.
struct LineRange {
    std::vector<std::size_t>::const_iterator next, end;
};

LineRange linesafter(const std::vector<std::size_t> &lines, std::size_t place)
{
    return {std::upper_bound(lines.begin(), lines.end(), place), lines.end()};
}

// The member lines for one composite: those with it as their scope and those without a scope. Faulty lines before the
// last one used are reported.
struct MemberLines {
    LineRange own;
    LineRange unscoped;
    LineRange faulty;
};

MemberLines memberlines(const MetaIndex &index, std::size_t place)
{
    static const std::vector<std::size_t> none;
    const auto own = index.members.find(index.lines[place].meta->id);
    return {linesafter(own == index.members.end() ? none : own->second, place),
            linesafter(index.unscoped_members, place), linesafter(index.faulty_members, place)};
}

// The next line of the composite, or null at the end of the file.
const MetaLine *nextmember(const MetaIndex &index, MemberLines &lines)
{
    std::size_t place = index.lines.size();
    LineRange *source = nullptr;
    for (LineRange *range : {&lines.own, &lines.unscoped}) {
        if (range->next != range->end && *range->next < place) {
            place = *range->next;
            source = range;
        }
    }
    for (; lines.faulty.next != lines.faulty.end && *lines.faulty.next <= place; ++lines.faulty.next)
        reportdefinition(index.lines[*lines.faulty.next]);
    if (!source)
        return nullptr;
    ++source->next;
    return &index.lines[place];
}

void namemembers(const MetaIndex &index, std::size_t place, const Symbol *aggregate)
{
    MemberLines lines = memberlines(index, place);
    for (Symbol *member = aggregate->type->members; member; member = member->next) {
        const MetaLine *line = nextmember(index, lines);
        if (!line)
            return;
        member->name = line->definition.name;
    }
}

}  // namespace

void namefields()
{
    if (!metas.head)
        return;
    MetaIndex index;
    buildindex(index);
    for (std::size_t place = 0; place < index.lines.size(); ++place) {
        const MetaLine &composite = index.lines[place];
        if (composite.composite)
            reportdefinition(composite);
        if (composite.kind == 0)
            continue;
        if (const Symbol *aggregate = findaggregate(index, composite))
            namemembers(index, place, aggregate);
    }
}
