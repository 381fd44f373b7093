// Record pools and interned names.

#include "model/model.h"

#include "base/base.h"

#include <cstring>
#include <new>
#include <type_traits>

namespace {

// Records are plain data, all of it cleared at first.
template <class Record>
Record *newrecord()
{
    static_assert(std::is_trivially_destructible_v<Record> && sizeof(Record) % pool::unit == 0);
    return new (recordalloc(sizeof(Record), alignof(Record))) Record{};
}

// Open addressing with linear probing; the capacity is a power of two and at most half of it is in use. The hash is
// kept beside the link, so that a probe rarely compares with a different text.
struct NameSlot {
    std::uint32_t hash;
    Ref<Name> name;
};
constinit std::vector<NameSlot> name_table;
std::size_t name_count;
constexpr std::size_t first_capacity = std::size_t{1} << 12;

// The bytes at `at` as a number.
template <class Word>
std::uint64_t wordat(const char *at)
{
    Word word = 0;
    std::memcpy(&word, at, sizeof word);
    return word;
}

// Up to seven bytes as a number that no other text of the same length has.
std::uint64_t tailword(const char *at, std::size_t length)
{
    constexpr std::size_t half = sizeof(std::uint32_t);
    if (length >= half)
        return wordat<std::uint32_t>(at) << 32U | wordat<std::uint32_t>(at + length - half);
    if (length == 0)
        return 0;
    const auto byte = [at](std::size_t place) { return static_cast<unsigned>(static_cast<unsigned char>(at[place])); };
    return byte(0) << 16U | byte(length / 2) << 8U | byte(length - 1);
}

// Eight bytes a step: names are short, and this runs for every identifier of the input.
std::uint32_t hashtext(std::string_view text)
{
    constexpr std::uint64_t multiplier = 0x9E3779B97F4A7C15U;
    std::uint64_t hash = text.size() * multiplier;
    const char *at = text.data();
    std::size_t left = text.size();
    for (; left >= sizeof hash; left -= sizeof hash, at += sizeof hash) {
        hash = (hash ^ wordat<std::uint64_t>(at)) * multiplier;
        hash ^= hash >> 29U;
    }
    hash = (hash ^ tailword(at, left)) * multiplier;
    hash ^= hash >> 32U;
    return static_cast<std::uint32_t>(hash);
}

void growtable()
{
    std::vector<NameSlot> old(name_table.empty() ? first_capacity : name_table.size() * 2);
    old.swap(name_table);
    const std::size_t mask = name_table.size() - 1;
    for (const NameSlot &slot : old) {
        if (!slot.name.place)
            continue;
        std::size_t place = slot.hash & mask;
        while (name_table[place].name.place)
            place = (place + 1) & mask;
        name_table[place] = slot;
    }
}

// A text of usual length is placed directly after its record: a comparison has just read the record.
Name *newname(std::string_view text)
{
    constexpr std::size_t usual_length = 63;
    const bool usual = text.size() <= usual_length;
    const std::size_t room_for_text = usual ? (text.size() / alignof(Name) + 1) * alignof(Name) : 0;
    char *room = static_cast<char *>(recordalloc(sizeof(Name) + room_for_text, alignof(Name)));
    Name *name = new (room) Name{};
    char *copy = room + sizeof(Name);
    if (usual)
        *std::copy(text.begin(), text.end(), copy) = '\0';
    name->text = usual ? copy : keeptext(text);
    name->length = static_cast<std::uint32_t>(text.size());
    return name;
}

}  // namespace

Type *newtype(std::uint8_t kind, Type *sub)
{
    Type *type = newrecord<Type>();
    type->kind = kind;
    type->sub = sub;
    return type;
}

Symbol *newsym(Name *name, Type *type)
{
    Symbol *symbol = newrecord<Symbol>();
    symbol->name = name;
    symbol->type = type;
    return symbol;
}

Expr *newexpr(std::uint8_t op, Type *type)
{
    Expr *expr = newrecord<Expr>();
    expr->op = op;
    expr->type = type;
    return expr;
}

void dropexpr(const Expr *expr)
{
    recordundo(expr, sizeof *expr);
}

void droptype(const Type *type)
{
    recordundo(type, sizeof *type);
}

Block *newblock()
{
    return newrecord<Block>();
}

Inst *newinst()
{
    return newrecord<Inst>();
}

Meta *newmeta()
{
    return newrecord<Meta>();
}

Expr *newnumber(std::string_view text)
{
    Expr *expr = newexpr(op::leaf, newtype(kind::int16, nullptr));
    expr->leaf = leaf::number;
    expr->value = intern(text);
    return expr;
}

Name *intern(std::string_view text)
{
    if ((name_count + 1) * 2 > name_table.size())
        growtable();
    const std::uint32_t hash = hashtext(text);
    const std::size_t mask = name_table.size() - 1;
    std::size_t place = hash & mask;
    for (; name_table[place].name.place; place = (place + 1) & mask) {
        const NameSlot &slot = name_table[place];
        if (slot.hash == hash && nametext(slot.name) == text)
            return slot.name;
    }
    ++name_count;
    Name *name = newname(text);
    name_table[place].hash = hash;
    name_table[place].name = name;
    return name;
}

Name *privatename(std::string_view text)
{
    return newname(text);
}
