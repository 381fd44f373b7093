// Names of members from debug metadata.
//
// quarl pairs the members of a structure with the member lines after its composite line by their order alone. Bases,
// bit fields, members of unions and bytes that fill put that out of step, so the input's lines aren't passed on: a
// member is found by its offset and size here, and lines that say just that are written in their place.
#include "adapt/passes/passes.h"
#include "adapt/printer.h"

#include <algorithm>
#include <unordered_set>

namespace adapt {

namespace {

constexpr std::size_t none = static_cast<std::size_t>(-1);
constexpr unsigned deepest_scope = 50;

// ---- Fields of a metadata line ----

// The text after `key: ` outside of strings, or an empty one.
std::string_view fieldtext(std::string_view text, std::string_view key)
{
    bool quoted = false;
    for (std::size_t at = 0; at + key.size() + 2 < text.size(); ++at) {
        if (text[at] == '"') {
            quoted = !quoted;
        }
        const bool starts = at > 0 && (text[at - 1] == '(' || text[at - 1] == ' ');
        if (!quoted && starts && text.substr(at, key.size()) == key && text[at + key.size()] == ':') {
            return text.substr(at + key.size() + 2);
        }
    }
    return {};
}

std::string_view wordof(std::string_view text, std::string_view key)
{
    const std::string_view field = fieldtext(text, key);
    return field.substr(0, field.find_first_of(",)"));
}

std::string_view stringof(std::string_view text, std::string_view key)
{
    const std::string_view field = fieldtext(text, key);
    return field.starts_with('"') ? field.substr(1, field.find('"', 1) - 1) : std::string_view();
}

std::size_t numberof(std::string_view word)
{
    std::size_t number = word.empty() ? none : 0;
    for (const char c : word) {
        if (c < '0' || c > '9' || number > none / 20) {
            return none;
        }
        number = number * 10 + static_cast<std::size_t>(c - '0');
    }
    return number;
}

// The number of the line that a field refers to.
std::size_t referenceof(std::string_view text, std::string_view key)
{
    const std::string_view word = wordof(text, key);
    return word.starts_with('!') ? numberof(word.substr(1)) : none;
}

bool isnode(std::string_view text, std::string_view node)
{
    const std::size_t at = text.find('!');
    return at < 12 && text.substr(at + 1).starts_with(node);
}

// ---- Structures of the source ----

struct Field {
    std::string_view name;
    std::size_t offset;  // both in bits
    std::size_t size;
};

using FieldMap = std::unordered_map<std::size_t, std::vector<Field>>;

std::string_view lineof(const Module &module, std::size_t number)
{
    return number < module.metadata.size() ? module.metadata[number] : std::string_view();
}

FieldMap collectfields(const Module &module)
{
    FieldMap fields;
    for (const std::string_view line : module.metadata) {
        if (!isnode(line, "DIDerivedType(") || wordof(line, "tag") != "DW_TAG_member" ||
            fieldtext(line, "flags").find("DIFlagStaticMember") != std::string_view::npos) {
            continue;
        }
        const std::size_t scope = referenceof(line, "scope");
        const std::size_t offset = numberof(wordof(line, "offset"));
        const std::size_t size = numberof(wordof(line, "size"));
        if (scope != none && size != none) {
            fields[scope].push_back({stringof(line, "name"), offset == none ? 0 : offset, size});
        }
    }
    return fields;
}

std::string withoutarguments(std::string_view name)
{
    return std::string(name.substr(0, name.find('<')));
}

// The name with its name spaces and classes, as the front end builds the names of types.
std::string qualified(const Module &module, std::string_view name, std::size_t scope)
{
    std::string full = withoutarguments(name);
    for (unsigned depth = 0; depth < deepest_scope; ++depth) {
        const std::string_view line = lineof(module, scope);
        const bool space = isnode(line, "DINamespace(");
        if (!space && !isnode(line, "DICompositeType(")) {
            break;
        }
        const std::string_view outer = stringof(line, "name");
        full = (outer.empty() && space ? "(anonymous namespace)" : withoutarguments(outer)) + "::" + full;
        scope = referenceof(line, "scope");
    }
    return full;
}

// A type's name without its prefix, and without the number that tells types of one name apart.
std::string sourcename(const std::string &name)
{
    const std::size_t prefix = name.find('.');
    std::string rest = prefix == std::string::npos ? name : name.substr(prefix + 1);
    const std::size_t last = rest.find_last_not_of("0123456789");
    if (last != std::string::npos && last + 1 < rest.size() && rest[last] == '.') {
        rest.resize(last);
    }
    return rest;
}

using Candidates = std::unordered_map<std::string, std::vector<StructType *>>;

// A name that C takes and no other member has. Those without one are called f and their place.
void givename(WrittenMember &member, std::string_view name, std::unordered_set<std::string> &taken)
{
    std::string plain = plainname(name);
    if (iskeyword(plain)) {
        plain += '_';
    }
    while (!taken.insert(plain).second) {
        plain += '_';
    }
    member.name = plain;
}

const Field *fieldat(const std::vector<Field> &fields, std::size_t offset, std::size_t size)
{
    const auto found = std::find_if(fields.begin(), fields.end(), [=](const Field &field) {
        return field.offset == offset && field.size == size && !field.name.empty();
    });
    return found == fields.end() ? nullptr : &*found;
}

void nameall(const Module &module, StructType &type, const std::vector<Field> &fields)
{
    std::unordered_set<std::string> taken;
    for (std::size_t i = 0; i < type.written_members.size(); ++i) {
        taken.insert("f" + std::to_string(i));
    }
    for (std::size_t i = 0; i < type.written_members.size(); ++i) {
        WrittenMember &member = type.written_members[i];
        const std::size_t size = sizeoftype(module, member.type) * 8;
        const Field *field = member.path.empty() ? nullptr : fieldat(fields, member.offset * 8, size);
        taken.erase("f" + std::to_string(i));
        if (field != nullptr) {
            givename(member, field->name, taken);
        } else {
            taken.insert("f" + std::to_string(i));
        }
    }
}

bool isnamed(const StructType &type)
{
    return std::any_of(type.written_members.begin(), type.written_members.end(),
                       [](const WrittenMember &member) { return !member.name.empty(); });
}

std::string membername(const StructType &type, std::size_t place)
{
    const std::string &name = type.written_members[place].name;
    return name.empty() ? "f" + std::to_string(place) : name;
}

void namecomposite(Module &module, Candidates &candidates, const FieldMap &fields, std::size_t number,
                   const std::string &name)
{
    const auto found = candidates.find(name);
    const auto members = fields.find(number);
    const std::size_t size = numberof(wordof(lineof(module, number), "size"));
    if (found == candidates.end() || members == fields.end() || size == none) {
        return;
    }
    for (StructType *type : found->second) {
        if (!type->opaque && sizeoftype(module, type->type) * 8 == size && !isnamed(*type)) {
            nameall(module, *type, members->second);
            return;
        }
    }
}

bool iscomposite(std::string_view line)
{
    const std::string_view tag = wordof(line, "tag");
    return isnode(line, "DICompositeType(") &&
           (tag == "DW_TAG_structure_type" || tag == "DW_TAG_class_type" || tag == "DW_TAG_union_type");
}

}  // namespace

void namefields(Module &module)
{
    Candidates candidates;
    for (StructType &type : module.structs) {
        candidates[sourcename(type.name)].push_back(&type);
    }
    const FieldMap fields = collectfields(module);
    for (std::size_t number = 0; number < module.metadata.size(); ++number) {
        const std::string_view line = module.metadata[number];
        std::size_t composite = none;
        if (iscomposite(line)) {
            composite = number;
        } else if (isnode(line, "DIDerivedType(") && wordof(line, "tag") == "DW_TAG_typedef") {
            composite = referenceof(line, "baseType");
            if (!iscomposite(lineof(module, composite)) || !stringof(lineof(module, composite), "name").empty()) {
                continue;
            }
        }
        if (const std::string_view name = stringof(line, "name"); composite != none && !name.empty()) {
            namecomposite(module, candidates, fields, composite, qualified(module, name, referenceof(line, "scope")));
        }
    }
}

void printmetadata(Module &module, std::string &out)
{
    if (!module.keep_debug) {
        return;
    }
    namefields(module);
    std::size_t number = 0;
    for (const StructType &type : module.structs) {
        if (!isnamed(type)) {
            continue;
        }
        const std::string scope = std::to_string(number);
        const bool is_union = type.written.starts_with("union.");
        out += "!" + scope + " = !DICompositeType(tag: DW_TAG_" + (is_union ? "union" : "structure") +
               "_type, name: \"" + std::string(tagof(type)) + "\")\n";
        for (std::size_t i = 0; i < type.written_members.size(); ++i) {
            out += "!" + std::to_string(number + 1 + i) + " = !DIDerivedType(tag: DW_TAG_member, name: \"" +
                   membername(type, i) + "\", scope: !" + scope + ")\n";
        }
        number += 1 + type.written_members.size();
    }
}

void printlayoutchecks(const Module &module, std::string &out)
{
    std::size_t number = 0;
    const auto check = [&](const std::string &what, std::size_t value) {
        out += "typedef char layout_" + std::to_string(number++) + "_[" + what + " == " + std::to_string(value) +
               " ? 1 : -1];\n";
    };
    for (const StructType &type : module.structs) {
        if (type.opaque) {
            continue;
        }
        const bool is_union = type.written.starts_with("union.");
        const std::string name = (is_union ? "union " : "struct ") + std::string(tagof(type));
        check("sizeof(" + name + ")", std::max<std::size_t>(sizeoftype(module, type.type), 1));
        for (std::size_t i = 0; i < type.written_members.size(); ++i) {
            check("__builtin_offsetof(" + name + ", " + membername(type, i) + ")", type.written_members[i].offset);
        }
    }
}

}  // namespace adapt
