// Types: the interned records, their layout in memory and their text.
#include "adapt/ir.h"

#include <algorithm>
#include <bit>
#include <limits>

namespace adapt {

namespace {

constexpr std::size_t widest = std::numeric_limits<std::size_t>::max() / 4;

std::size_t mixhash(std::size_t hash, std::size_t more)
{
    return hash ^ (more + 0x9e3779b97f4a7c15U + (hash << 6) + (hash >> 2));
}

std::size_t hashtype(const Type &type)
{
    std::size_t hash = static_cast<std::size_t>(type.kind);
    hash = mixhash(hash, (type.packed ? 1U : 0U) + (type.variadic ? 2U : 0U));
    hash = mixhash(hash, type.bits);
    hash = mixhash(hash, type.count);
    hash = mixhash(hash, std::hash<const void *>()(type.sub));
    for (const Type *member : type.members) {
        hash = mixhash(hash, std::hash<const void *>()(member));
    }
    return hash;
}

bool sametype(const Type &a, const Type &b)
{
    return a.kind == b.kind && a.packed == b.packed && a.variadic == b.variadic && a.bits == b.bits &&
           a.count == b.count && a.sub == b.sub && a.named == b.named && a.members == b.members;
}

// The greatest height among the parts of a type.
std::uint32_t heightof(const Type &type)
{
    std::uint32_t height = type.sub == nullptr ? 0 : type.sub->height;
    for (const Type *member : type.members) {
        height = std::max(height, member->height);
    }
    return height;
}

// The record that equals `type`, a new one if there is none.
Type *intern(Module &module, const Type &type)
{
    const std::size_t hash = hashtype(type);
    const auto [first, last] = module.type_by_hash.equal_range(hash);
    for (auto found = first; found != last; ++found) {
        if (sametype(*found->second, type)) {
            return found->second;
        }
    }
    Type &made = module.types.emplace_back(type);
    made.height = 1 + heightof(type);
    module.type_by_hash.emplace(hash, &made);
    return &made;
}

Type *plaintype(Module &module, TypeKind kind)
{
    Type *&known = module.plain_types[static_cast<std::size_t>(kind)];
    if (known == nullptr) {
        Type type;
        type.kind = kind;
        known = intern(module, type);
    }
    return known;
}

std::size_t roundup(std::size_t size, std::size_t align)
{
    return (size + align - 1) / align * align;
}

std::size_t saturated(std::size_t a, std::size_t b)
{
    return b != 0 && a > widest / b ? widest : a * b;
}

std::size_t integeralign(const DataLayout &layout, std::uint32_t bits)
{
    constexpr std::uint32_t widths[] = {1, 8, 16, 32, 64};
    std::size_t place = 0;
    while (place < 4 && widths[place] < bits) {
        ++place;
    }
    return layout.integer_align[place];
}

// The end of the members before `count`, unrounded; the offset of member `count` if there is one.
std::size_t layout_members(const Module &module, const Type *type, std::size_t count, std::size_t &align)
{
    const std::vector<Type *> &members = membersof(type);
    const bool packed = type->named != nullptr ? type->named->packed : type->packed;
    std::size_t offset = 0;
    align = 1;
    for (std::size_t i = 0; i < members.size() && i <= count; ++i) {
        const std::size_t member_align = packed ? 1 : alignof_type(module, members[i]);
        align = std::max(align, member_align);
        offset = roundup(offset, member_align);
        if (i == count) {
            break;
        }
        offset = std::min(widest, offset + sizeoftype(module, members[i]));
    }
    return offset;
}

void settlelayout(const Module &module, const Type *type)
{
    if (type->align != 0) {
        return;
    }
    const DataLayout &layout = module.layout;
    switch (type->kind) {
    case TypeKind::integer:
        type->align = integeralign(layout, type->bits);
        type->size = roundup((type->bits + 7) / 8, type->align);
        return;
    case TypeKind::float_type:
        type->align = layout.float_align;
        type->size = 4;
        return;
    case TypeKind::double_type:
        type->align = layout.double_align;
        type->size = 8;
        return;
    case TypeKind::pointer:
        type->align = layout.pointer_align;
        type->size = layout.pointer_size;
        return;
    case TypeKind::array:
        type->align = alignof_type(module, type->sub);
        type->size = saturated(sizeoftype(module, type->sub), type->count);
        return;
    case TypeKind::structure: {
        std::size_t align = 1;
        const std::size_t end = layout_members(module, type, membersof(type).size(), align);
        type->size = roundup(end, align);
        type->align = align;
        return;
    }
    default:
        type->align = 1;
        return;
    }
}

bool isplainname(std::string_view name)
{
    return !name.empty() && std::all_of(name.begin(), name.end(), [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '.' || c == '_' ||
               c == '$' || c == '-';
    });
}

void appendlist(const std::vector<Type *> &types, std::string &out)
{
    for (std::size_t i = 0; i < types.size(); ++i) {
        out += i == 0 ? "" : ", ";
        out += typetext(types[i]);
    }
}

std::string structuretext(const Type *type)
{
    if (const StructType *named = type->named != nullptr ? type->named : type->written_as; named != nullptr) {
        const std::string &name = named->written.empty() ? named->name : named->written;
        return isplainname(name) ? "%" + name : "%\"" + name + "\"";
    }
    std::string out = type->packed ? "<{" : "{";
    if (!type->members.empty()) {
        out += ' ';
        appendlist(type->members, out);
        out += ' ';
    }
    out += type->packed ? "}>" : "}";
    return out;
}

// An integer of a width that no value has in what is written, or an array of such. Only its address is.
bool isunwritten(const Type *type)
{
    while (type->kind == TypeKind::array) {
        type = type->sub;
    }
    const std::uint32_t bits = type->kind == TypeKind::integer ? type->bits : 8;
    return bits != 1 && bits != 8 && bits != 16 && bits != 32 && bits != 64;
}

}  // namespace

Type *voidtype(Module &module)
{
    return plaintype(module, TypeKind::void_type);
}

Type *inttype(Module &module, std::uint32_t bits)
{
    if (bits < std::size(module.integer_types) && module.integer_types[bits] != nullptr) {
        return module.integer_types[bits];
    }
    Type type;
    type.kind = TypeKind::integer;
    type.bits = bits;
    Type *made = intern(module, type);
    if (bits < std::size(module.integer_types)) {
        module.integer_types[bits] = made;
    }
    return made;
}

Type *floattype(Module &module)
{
    return plaintype(module, TypeKind::float_type);
}

Type *doubletype(Module &module)
{
    return plaintype(module, TypeKind::double_type);
}

Type *othertype(Module &module, TypeKind kind)
{
    return plaintype(module, kind);
}

Type *pointerto(Module &module, Type *type)
{
    if (type != nullptr && type->pointer_to != nullptr) {
        return type->pointer_to;
    }
    Type pointer;
    pointer.kind = TypeKind::pointer;
    pointer.sub = type;
    Type *made = intern(module, pointer);
    if (type != nullptr) {
        type->pointer_to = made;
    }
    return made;
}

Type *arrayof(Module &module, Type *element, std::uint64_t count)
{
    Type type;
    type.kind = TypeKind::array;
    type.sub = element;
    type.count = count;
    return intern(module, type);
}

Type *functiontype(Module &module, Type *result, const std::vector<Type *> &params, bool variadic)
{
    Type type;
    type.kind = TypeKind::function;
    type.sub = result;
    type.members = params;
    type.variadic = variadic;
    return intern(module, type);
}

Type *literalstruct(Module &module, const std::vector<Type *> &members, bool packed)
{
    Type type;
    type.kind = TypeKind::structure;
    type.members = members;
    type.packed = packed;
    return intern(module, type);
}

StructType *structnamed(Module &module, std::string_view name)
{
    if (const auto found = module.struct_by_name.find(name); found != module.struct_by_name.end()) {
        return found->second;
    }
    StructType &made = module.structs.emplace_back();
    made.name = name;
    Type &type = module.types.emplace_back();
    type.kind = TypeKind::structure;
    type.named = &made;
    made.type = &type;
    module.struct_by_name.emplace(made.name, &made);
    return &made;
}

const std::vector<Type *> &membersof(const Type *type)
{
    return type->named != nullptr ? type->named->members : type->members;
}

bool isinteger(const Type *type, std::uint32_t bits)
{
    return type->kind == TypeKind::integer && type->bits == bits;
}

bool isfloating(const Type *type)
{
    return type->kind == TypeKind::float_type || type->kind == TypeKind::double_type;
}

bool isaggregate(const Type *type)
{
    return type->kind == TypeKind::array || type->kind == TypeKind::structure;
}

std::string typetext(const Type *type)
{
    switch (type->kind) {
    case TypeKind::void_type:
        return "void";
    case TypeKind::integer:
        return "i" + std::to_string(type->bits);
    case TypeKind::float_type:
        return "float";
    case TypeKind::double_type:
        return "double";
    case TypeKind::pointer:
        return type->sub == nullptr ? "ptr" : (isunwritten(type->sub) ? "i8" : typetext(type->sub)) + "*";
    case TypeKind::array:
        return "[" + std::to_string(type->count) + " x " + typetext(type->sub) + "]";
    case TypeKind::structure:
        return structuretext(type);
    case TypeKind::function: {
        std::string out = typetext(type->sub) + " (";
        appendlist(type->members, out);
        out += type->variadic ? (type->members.empty() ? "..." : ", ...") : "";
        return out + ")";
    }
    case TypeKind::label:
        return "label";
    case TypeKind::metadata:
        return "metadata";
    case TypeKind::other:
        break;
    }
    return "type without a form";
}

std::size_t sizeoftype(const Module &module, const Type *type)
{
    settlelayout(module, type);
    return type->size;
}

std::size_t alignof_type(const Module &module, const Type *type)
{
    settlelayout(module, type);
    return type->align;
}

std::size_t offsetof_member(const Module &module, const Type *type, std::size_t member)
{
    std::size_t align = 1;
    return layout_members(module, type, member, align);
}

}  // namespace adapt
