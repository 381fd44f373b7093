// Reads types.
#include "adapt/reader.h"

namespace adapt {

namespace {

constexpr unsigned deepest_type = 200;
constexpr std::uint32_t widest_integer = 512;  // beyond 64 bits: runs of bit fields
constexpr std::uint32_t widest_integer_of_ir = 1U << 23U;

// A type that C has nothing for: refused where something is done with it.
Type *foreigntype(Reader &reader, const std::string &reason)
{
    if (!reader.lenient) {
        fail(reader, reason);
    } else if (reader.foreign.empty()) {
        reader.foreign = reason;
    }
    return othertype(*reader.module, TypeKind::other);
}

Type *readwordtype(Reader &reader)
{
    Module &module = *reader.module;
    const std::string_view word = reader.lexer.token.text;
    if (word.size() > 1 && word[0] == 'i' && isdigits(word.substr(1))) {
        const std::uint64_t bits = decimalnumber(word.substr(1));
        if (bits == 0 || bits > widest_integer_of_ir) {
            fail(reader, "integer of a width that IR doesn't have ('" + std::string(word.substr(0, 20)) + "')");
        } else if (bits > widest_integer) {
            return foreigntype(reader, "integer of more than 512 bits ('" + std::string(word) + "')");
        }
        return inttype(module, static_cast<std::uint32_t>(bits));
    }
    if (word == "void") {
        return voidtype(module);
    }
    if (word == "float") {
        return floattype(module);
    }
    if (word == "double") {
        return doubletype(module);
    }
    if (word == "label") {
        return othertype(module, TypeKind::label);
    }
    if (word == "metadata") {
        return othertype(module, TypeKind::metadata);
    }
    if (word == "ptr") {
        fail(reader, "opaque pointer ('ptr'): clang 15 and 16 need -Xclang -no-opaque-pointers");
        return pointerto(module, nullptr);
    }
    if (const WordRow *row = findword(foreign_types, word)) {
        return foreigntype(reader, std::string(row->reason) + " ('" + std::string(word) + "')");
    }
    failunexpected(reader, "a type");
    return voidtype(module);
}

// Whether a value of this type can be a member or an element.
bool checkmember(Reader &reader, const Type *type)
{
    const TypeKind kind = type->kind;
    if (kind == TypeKind::void_type || kind == TypeKind::function || kind == TypeKind::label ||
        kind == TypeKind::metadata) {
        fail(reader, "a member or element of type " + typetext(type));
    }
    return !reader.failed;
}

// The cursor stands after the opening bracket.
Type *readarray(Reader &reader, bool vector)
{
    const std::uint64_t count = readnumber(reader);
    expectword(reader, "x");
    Type *element = readtype(reader);
    expectpunct(reader, vector ? '>' : ']');
    if (vector) {
        return foreigntype(reader, "vector");
    }
    checkmember(reader, element);
    if (count > std::uint64_t{1} << 48U) {
        fail(reader, "array of more than 2^48 elements");
    }
    return reader.failed ? voidtype(*reader.module) : arrayof(*reader.module, element, count);
}

// The cursor stands after the opening brace. Takes the closing one.
std::vector<Type *> readmembers(Reader &reader)
{
    std::vector<Type *> members;
    if (takepunct(reader, '}')) {
        return members;
    }
    do {
        members.push_back(readtype(reader));
        checkmember(reader, members.back());
    } while (takepunct(reader, ','));
    expectpunct(reader, '}');
    return members;
}

// After a <: a packed structure or a vector.
Type *readangle(Reader &reader)
{
    if (takepunct(reader, '{')) {
        const std::vector<Type *> members = readmembers(reader);
        expectpunct(reader, '>');
        return literalstruct(*reader.module, members, true);
    }
    if (takeword(reader, "vscale")) {
        expectword(reader, "x");
    }
    return readarray(reader, true);
}

Type *readbase(Reader &reader)
{
    const Token token = reader.lexer.token;
    if (token.kind == TokenKind::word) {
        Type *type = readwordtype(reader);
        next(reader);
        return type;
    }
    if (token.kind == TokenKind::local) {
        const StructType *named = structnamed(*reader.module, token.text);
        if (!named->foreign.empty() && !reader.lenient) {
            fail(reader, named->foreign + " in %" + named->name);
        }
        next(reader);
        return named->type;
    }
    if (takepunct(reader, '[')) {
        return readarray(reader, false);
    }
    if (takepunct(reader, '{')) {
        return literalstruct(*reader.module, readmembers(reader), false);
    }
    if (takepunct(reader, '<')) {
        return readangle(reader);
    }
    failunexpected(reader, "a type");
    return voidtype(*reader.module);
}

// The cursor stands after the opening bracket.
Type *readfunctiontype(Reader &reader, Type *result)
{
    std::vector<Type *> params;
    bool variadic = false;
    if (!ispunct(reader, ')')) {
        do {
            if (reader.lexer.token.kind == TokenKind::ellipsis) {
                variadic = true;
                next(reader);
                break;
            }
            params.push_back(readtype(reader));
            if (params.back()->kind == TypeKind::void_type || params.back()->kind == TypeKind::function) {
                fail(reader, "a parameter of type " + typetext(params.back()));
            }
        } while (takepunct(reader, ','));
    }
    expectpunct(reader, ')');
    if (result->kind == TypeKind::function || result->kind == TypeKind::label) {
        fail(reader, "a result of type " + typetext(result));
    }
    return functiontype(*reader.module, result, params, variadic);
}

Type *readpointer(Reader &reader, Type *type)
{
    if (type->kind == TypeKind::void_type || type->kind == TypeKind::label || type->kind == TypeKind::metadata) {
        fail(reader, "a pointer to " + typetext(type));
    }
    return pointerto(*reader.module, type);
}

// ---- Structures in structures ----

constexpr unsigned deepest_structure = 500;
enum class Visit : std::uint8_t { open, done };
using Visits = std::unordered_map<const StructType *, Visit>;

void refusestructure(Reader &reader, StructType *structure, const std::string &reason)
{
    refuseline(*reader.module, structure->line, "%" + structure->name + " " + reason);
    structure->members.clear();
    structure->opaque = true;
}

// Visits what a type holds by value. Returns why C can't have it; empty if it can.
std::string visittype(Reader &reader, Visits &visits, Type *type, unsigned depth)
{
    if (type->kind == TypeKind::array) {
        return visittype(reader, visits, type->sub, depth + 1);
    }
    if (type->kind != TypeKind::structure) {
        return "";
    }
    StructType *named = type->named;
    if (named != nullptr) {
        const auto [found, is_new] = visits.emplace(named, Visit::open);
        if (!is_new && found->second == Visit::open) {
            refusestructure(reader, named, "holds itself");
        }
        if (!is_new) {
            return named->foreign;
        }
        if (depth > deepest_structure) {
            refusestructure(reader, named, "is nested too deeply");
        }
    }
    std::string foreign;
    const std::vector<Type *> members = membersof(type);
    for (Type *member : members) {
        const std::string found = visittype(reader, visits, member, depth + 1);
        foreign = foreign.empty() ? found : foreign;
    }
    if (named != nullptr) {
        named->foreign = named->foreign.empty() ? foreign : named->foreign;
        visits[named] = Visit::done;
        return named->foreign;
    }
    return foreign;
}

}  // namespace

void checkstructures(Reader &reader)
{
    Visits visits;
    for (StructType &structure : reader.module->structs) {
        visittype(reader, visits, structure.type, 0);
    }
}

// TYPE = void | iN | float | double | %name | [N x TYPE] | {TYPE, ...} | <{TYPE, ...}> | TYPE* | TYPE (TYPE, ..., ...)
Type *readtype(Reader &reader)
{
    if (++reader.depth > deepest_type) {
        fail(reader, "type nested too deeply");
    }
    Type *type = readbase(reader);
    while (!reader.failed && type->height <= deepest_type) {
        if (takepunct(reader, '*')) {
            type = readpointer(reader, type);
        } else if (takepunct(reader, '(')) {
            type = readfunctiontype(reader, type);
        } else if (isword(reader, "addrspace")) {
            fail(reader, "address space");
        } else {
            --reader.depth;
            return type;
        }
    }
    fail(reader, "type nested too deeply");
    return type;
}

}  // namespace adapt
