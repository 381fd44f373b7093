// Names and layout of structures.
//
// Every structure is written with a name: quarl prints the body of one without a name at its first mention, which may
// be inside a function that others can't see. Tags are one name space in C, for structures, classes and unions.
//
// Layout. LLVM's offsets are numbers in the code already, so C must lay out the written members as LLVM does the
// members. Most structures are written as they are. Where C would put a member elsewhere, it is written as bytes, and
// lowerlayout() makes the accesses to it count bytes:
//
//     <{ i8, i32, i16 }>              { i8, [4 x i8], [2 x i8] }
//
// What nobody can reach takes bytes as well (between the members, and after the last), and what has no size is left
// out. A structure that ends where C would go on to its alignment, as the base part of a class does, is all bytes; a
// structure that holds it takes its members over, to have the alignment of the class:
//
//     %class.b.base = type <{ i32, i8 }>                     %class_b_base = { [4 x i8], i8 }
//     %class.d = type { %class.b.base, i8, [2 x i8] }        %class_d = { i32, i8, i8, [2 x i8] }
#include "adapt/passes/passes.h"

#include <algorithm>
#include <array>
#include <unordered_set>

namespace adapt {

namespace {

constexpr std::array<std::string_view, 3> prefixes = {"struct.", "class.", "union."};
constexpr std::size_t deepest_value = 500;    // of structures that hold each other by value
constexpr std::size_t most_members = 100000;  // of one structure, with those that it takes over
constexpr std::size_t any_align = 64;

enum Mark : std::uint8_t { unseen, open, done };

// ---- Literal structures ----

void namestructure(Module &module, Type *type)
{
    StructType &made = module.structs.emplace_back();
    made.name = "struct.unnamed." + std::to_string(++module.unnamed_structs);
    made.type = type;
    made.members = type->members;
    made.packed = type->packed;
    made.opaque = false;
    type->written_as = &made;
}

// ---- Names ----

std::size_t prefixlength(std::string_view name)
{
    for (const std::string_view prefix : prefixes) {
        if (name.starts_with(prefix)) {
            return prefix.size();
        }
    }
    return 0;
}

// A tag in the characters of C. The words of C are none.
std::string plaintag(std::string_view tag)
{
    const std::string plain = plainname(tag);
    return iskeyword(plain) ? plain + "_" : plain;
}

// C lays the members of a union over each other. A union of several members is clang's way of saying a union and the
// bytes that fill it up.
bool isunion(const StructType &type)
{
    return type.name.starts_with("union.") && type.members.size() == 1 && !type.relaid;
}

void namewritten(StructType &type, std::unordered_set<std::string> &tags)
{
    const std::size_t length = prefixlength(type.name);
    std::string_view prefix = length == 0 ? prefixes[0] : std::string_view(type.name).substr(0, length);
    if (prefix == prefixes[2] && !isunion(type)) {
        prefix = prefixes[0];
    }
    const std::string stem = plaintag(std::string_view(type.name).substr(length));
    std::string tag = stem;
    for (std::size_t n = 1; !tags.insert(tag).second; ++n) {
        tag = stem + '_' + std::to_string(n);
    }
    type.written = std::string(prefix) + tag;
}

// ---- Layout ----

std::size_t roundup(std::size_t value, std::size_t align)
{
    return align == 0 ? value : (value + align - 1) / align * align;
}

struct Placing {
    Module &module;
    StructType &type;
    std::size_t limit;    // no member is aligned by more
    std::size_t end = 0;  // of the members so far
    std::size_t align = 1;
};

void pushmember(Placing &placing, Type *type, std::size_t offset, std::vector<std::uint32_t> path, bool bytes)
{
    WrittenMember &member = placing.type.written_members.emplace_back();
    member.type = type;
    member.offset = offset;
    member.bytes = bytes;
    member.path = std::move(path);
    placing.end = offset + sizeoftype(placing.module, type);
    placing.align = std::max(placing.align, calign(placing.module, type));
}

void pushbytes(Placing &placing, std::size_t offset, std::size_t size, const std::vector<std::uint32_t> &path)
{
    const bool member = !path.empty();
    placing.type.has_bytes = placing.type.has_bytes || member;
    pushmember(placing, arrayof(placing.module, inttype(placing.module, 8), size), offset, path, member);
}

// The integer of C in which one of another width is kept, or null.
Type *unitfor(const Placing &placing, const Type *member, std::size_t offset)
{
    const std::size_t size = sizeoftype(placing.module, member);
    if (member->kind != TypeKind::integer || size > 8) {
        return nullptr;
    }
    Type *unit = inttype(placing.module, static_cast<std::uint32_t>(size * 8));
    const std::size_t align = calign(placing.module, unit);
    const bool fits = align != 0 && align <= placing.limit && offset % align == 0;
    return fits && sizeoftype(placing.module, unit) == size ? unit : nullptr;
}

// Bytes up to the offset of a member of this alignment, if C wouldn't leave just these free.
void fillup(Placing &placing, std::size_t offset, std::size_t align)
{
    if (roundup(placing.end, align) != offset) {
        pushbytes(placing, placing.end, offset - placing.end, {});
    }
}

bool placemember(Placing &placing, Type *member, std::size_t offset, const std::vector<std::uint32_t> &path);

bool takemembers(Placing &placing, Type *structure, std::size_t offset, const std::vector<std::uint32_t> &path)
{
    const std::vector<Type *> &members = membersof(structure);
    std::size_t at = 0;
    const StructType *named = structof(structure);
    for (std::uint32_t i = 0; i < members.size(); ++i) {
        const std::size_t align = named->packed ? 1 : alignof_type(placing.module, members[i]);
        at = roundup(at, align);
        std::vector<std::uint32_t> inner = path;
        inner.push_back(i);
        if (!placemember(placing, members[i], offset + at, inner)) {
            return false;
        }
        at += sizeoftype(placing.module, members[i]);
    }
    return true;
}

// An array of unknown length, which C takes at the end of a structure that is held nowhere.
bool isflexible(const Placing &placing, const Type *member, const std::vector<std::uint32_t> &path)
{
    return member->kind == TypeKind::array && member->count == 0 && placing.end > 0 && path.size() == 1 &&
           path[0] + 1 == placing.type.members.size() && !placing.type.is_held;
}

bool placemember(Placing &placing, Type *member, std::size_t offset, const std::vector<std::uint32_t> &path)
{
    const std::size_t size = sizeoftype(placing.module, member);
    const std::size_t align = calign(placing.module, member);
    const bool fits = align != 0 && align <= placing.limit && offset % align == 0;
    if (placing.type.written_members.size() > most_members) {
        return false;
    }
    if (size == 0 && !(fits && isflexible(placing, member, path))) {
        return true;
    }
    const StructType *inner = structof(member);
    if (inner != nullptr && (!fits || inner->has_bytes)) {
        return takemembers(placing, member, offset, path);
    }
    Type *unit = fits ? member : unitfor(placing, member, offset);
    fillup(placing, offset, unit != nullptr ? calign(placing.module, unit) : 1);
    if (unit != nullptr) {
        pushmember(placing, unit, offset, path, !fits);
    } else {
        pushbytes(placing, offset, size, path);
    }
    return true;
}

bool isrelaid(const StructType &type)
{
    if (type.written_members.size() != type.members.size()) {
        return true;
    }
    for (std::uint32_t i = 0; i < type.members.size(); ++i) {
        const WrittenMember &member = type.written_members[i];
        if (member.bytes || member.path.size() != 1 || member.path[0] != i) {
            return true;
        }
    }
    return false;
}

// What a C compiler does with the written members.
bool islaidoutalike(const Module &module, const StructType &type, std::size_t size)
{
    std::size_t end = 0;
    std::size_t align = 1;
    for (const WrittenMember &member : type.written_members) {
        const std::size_t member_align = calign(module, member.type);
        align = std::max(align, member_align);
        end = roundup(end, member_align);
        if (end != member.offset) {
            return false;
        }
        end += sizeoftype(module, member.type);
    }
    return roundup(end, align) == std::max<std::size_t>(size, 1);
}

bool placeall(Placing &placing, std::size_t size)
{
    StructType &type = placing.type;
    if (!takemembers(placing, type.type, 0, {})) {
        return false;
    }
    if (size == 0) {
        type.written_members.clear();
        pushbytes(placing, 0, 1, {});
    } else if (roundup(placing.end, placing.align) < size) {
        pushbytes(placing, placing.end, size - placing.end, {});
    }
    return true;
}

void settlelayout(Module &module, StructType &type)
{
    const std::size_t size = sizeoftype(module, type.type);
    std::size_t limit = any_align;
    while (size % limit != 0) {
        limit /= 2;
    }
    Placing placing = {module, type, limit};
    const bool placed = placeall(placing, size);
    type.c_align = placing.align;
    type.relaid = isrelaid(type);
    if (!placed || !islaidoutalike(module, type, size)) {
        refuseline(module, type.line, "structure " + type.name + ": C can't lay it out as the front end does");
    }
}

// A member that no size is known of, or that would make the structure hold itself.
bool ismisfit(const Type *member)
{
    while (member->kind == TypeKind::array) {
        member = member->sub;
    }
    const StructType *inner = structof(member);
    const bool sized = inner != nullptr ? !inner->opaque : static_cast<bool>(member->kind < TypeKind::function);
    return !sized || member->kind == TypeKind::void_type;
}

// Goes from the inner structures to the outer ones. The depth is bounded.
bool settleinner(Module &module, StructType &type, std::size_t depth)
{
    type.mark = open;
    for (Type *member : type.members) {
        settleliterals(module, member);
        StructType *inner = structof(elementof(member));
        if (ismisfit(member) || (inner != nullptr && (inner->mark == open || depth > deepest_value))) {
            refuseline(module, type.line, "structure " + type.name + ": a member of it has no known size in C");
            type.opaque = true;
            break;
        }
        if (inner != nullptr && inner->mark == unseen && !settleinner(module, *inner, depth + 1)) {
            type.opaque = true;
            break;
        }
    }
    type.mark = done;
    type.c_align = 1;
    if (!type.opaque) {
        settlelayout(module, type);
    }
    return !type.opaque;
}

void markheld(Type *type)
{
    for (; type->kind == TypeKind::array; type = type->sub) {
        if (StructType *inner = structof(type->sub); inner != nullptr) {
            inner->is_held = true;
        }
    }
    if (StructType *inner = structof(type); inner != nullptr) {
        inner->is_held = true;
    }
}

void settleall(Module &module)
{
    for (const StructType &type : module.structs) {
        for (Type *member : type.members) {
            markheld(member);
        }
    }
    for (std::size_t i = 0; i < module.structs.size(); ++i) {  // new ones come while this runs
        StructType &type = module.structs[i];
        if (type.mark == unseen && !type.opaque) {
            settleinner(module, type, 0);
        }
        type.c_align = std::max<std::size_t>(type.c_align, 1);
    }
    std::unordered_set<std::string> tags;
    for (const StructType &type : module.structs) {
        if (!type.written.empty()) {
            tags.insert(std::string(tagof(type)));
        }
    }
    for (StructType &type : module.structs) {
        if (type.written.empty()) {
            namewritten(type, tags);
        }
    }
}

}  // namespace

StructType *structof(const Type *type)
{
    return type->named != nullptr ? type->named : type->written_as;
}

Type *elementof(Type *type)
{
    while (type->kind == TypeKind::array) {
        type = type->sub;
    }
    return type;
}

std::string_view tagof(const StructType &type)
{
    return std::string_view(type.written).substr(prefixlength(type.written));
}

std::size_t calign(const Module &module, const Type *type)
{
    switch (type->kind) {
    case TypeKind::integer: {
        constexpr std::array<std::uint32_t, 5> widths = {1, 8, 16, 32, 64};
        const bool known = std::find(widths.begin(), widths.end(), type->bits) != widths.end();
        return known ? alignof_type(module, type) : 0;
    }
    case TypeKind::array:
        return calign(module, type->sub);
    case TypeKind::structure:
        return structof(type)->c_align;
    case TypeKind::float_type:
    case TypeKind::double_type:
    case TypeKind::pointer:
        return alignof_type(module, type);
    default:
        return 0;
    }
}

std::int64_t writtenplace(const StructType &type, std::uint64_t index)
{
    if (!type.relaid) {
        return static_cast<std::int64_t>(index);
    }
    for (std::size_t place = 0; place < type.written_members.size(); ++place) {
        const WrittenMember &member = type.written_members[place];
        if (!member.bytes && member.path.size() == 1 && member.path[0] == index) {
            return static_cast<std::int64_t>(place);
        }
    }
    return -1;
}

void settleliterals(Module &module, Type *type)
{
    for (;; type = type->sub) {
        const bool fresh = type->kind == TypeKind::structure && structof(type) == nullptr;
        if (fresh) {
            namestructure(module, type);
        }
        if (fresh || type->kind == TypeKind::function) {
            for (Type *member : type->members) {
                settleliterals(module, member);
            }
        }
        if (type->sub == nullptr) {
            return;
        }
    }
}

void settleliteral(Module &module, Type *type)
{
    const std::size_t before = module.structs.size();
    settleliterals(module, type);
    if (module.structs.size() != before) {
        settleall(module);
    }
}

void settletypes(Module &module)
{
    for (Global &global : module.globals) {
        if (!global.name.starts_with("llvm.") || global.kind == GlobalKind::variable) {
            settleliterals(module, global.type);
        }
    }
    for (std::size_t i = 0; i < module.structs.size(); ++i) {
        const std::vector<Type *> &members = module.structs[i].members;
        std::for_each(members.begin(), members.end(), [&](Type *member) { settleliterals(module, member); });
    }
    settleall(module);
}

}  // namespace adapt
