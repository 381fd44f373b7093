// The shapes of types: whether two types are the same but for names, and the literal aggregates that have a tag.

#include "model/model.h"

#include <unordered_map>
#include <utility>
#include <vector>

bool samescalar(const Type *a, const Type *b)
{
    return a && b && a->kind == b->kind && a->kind <= kind::last_scalar;
}

// ---- Shapes -----------------------------------------------------------------------------------------------------

namespace {

using TypePair = std::pair<const Type *, const Type *>;

// Aggregates that are known to be equal form classes, kept as trees. A comparison joins the classes of a pair before
// it compares the members, so that it ends on recursive types, and splits them again if it finds a difference. So each
// pair of aggregates is compared once in a run, or once in a comparison that fails.
struct ShapeClasses {
    std::unordered_map<const Type *, const Type *> parent;  // an aggregate without an entry is a root
    std::unordered_map<const Type *, std::uint32_t> rank;   // height of a root's tree
};

// Like the index below never destroyed, which would free its entries one by one at the end of the run.
ShapeClasses &shapeclasses()
{
    static auto &classes = *new ShapeClasses;
    return classes;
}

const Type *classof(const Type *type)
{
    const auto &parent = shapeclasses().parent;
    for (auto entry = parent.find(type); entry != parent.end(); entry = parent.find(type))
        type = entry->second;
    return type;
}

// Joins two classes by their roots, the lower tree under the higher one. Returns the root that is one no longer.
const Type *joinclasses(const Type *a, const Type *b)
{
    ShapeClasses &classes = shapeclasses();
    if (classes.rank[a] < classes.rank[b])
        std::swap(a, b);
    if (classes.rank[a] == classes.rank[b])
        ++classes.rank[a];
    classes.parent[b] = a;
    return b;
}

// A comparison: the pairs of types still to be compared, and the classes that were joined for it.
struct ShapeComparison {
    std::vector<TypePair> pending;
    std::vector<const Type *> joined;
};

// Descends both types through pointers and arrays to the first other kind. Returns false if the types differ.
bool descend(const Type *&a, const Type *&b)
{
    while (a && b && a != b) {
        if (a->kind != b->kind || (a->kind == kind::array && a->count != b->count))
            return false;
        if (a->kind != kind::pointer && a->kind != kind::array)
            return true;
        a = a->sub;
        b = b->sub;
    }
    return a == b;
}

// Both are aggregates of one kind: their members become pending. Returns false if the member lists differ in length.
bool comparemembers(ShapeComparison &comparison, const Type *a, const Type *b)
{
    const Type *root_a = classof(a);
    const Type *root_b = classof(b);
    if (root_a == root_b)
        return true;
    comparison.joined.push_back(joinclasses(root_a, root_b));
    const Symbol *x = a->members;
    const Symbol *y = b->members;
    for (; x && y; x = x->next, y = y->next)
        comparison.pending.emplace_back(x->type, y->type);
    return x == y;
}

bool runcomparison(ShapeComparison &comparison)
{
    while (!comparison.pending.empty()) {
        auto [a, b] = comparison.pending.back();
        comparison.pending.pop_back();
        if (!descend(a, b))
            return false;
        if (a != b && isaggregate(a) && !comparemembers(comparison, a, b))
            return false;
    }
    return true;
}

}  // namespace

bool equaltype(const Type *a, const Type *b)
{
    ShapeComparison comparison;
    comparison.pending.emplace_back(a, b);
    if (runcomparison(comparison))
        return true;
    for (const Type *type : comparison.joined)
        shapeclasses().parent.erase(type);
    return false;
}

// ---- Literal aggregates that have a tag -------------------------------------------------------------------------

namespace {

// Entries of the same hash, the newest last. A few are searched by comparing; a bucket that grows beyond that is split
// by a second hash that reaches as deep as any line can nest.
struct AnonBucket {
    std::vector<const Type *> entries;
    bool split = false;
};

using AnonIndex = std::unordered_map<std::size_t, AnonBucket>;

AnonIndex &anonindex()
{
    static auto &index = *new AnonIndex;
    return index;
}

constinit std::vector<const Type *> anon_types;  // all entries, the newest last
bool anon_stale;                                 // a type has changed since the index was built

constexpr std::size_t bucket_size = 8;
constexpr int shallow_nodes = 48;
constexpr int deep_nodes = 8192;

std::size_t mixed(std::size_t hash, std::size_t value)
{
    constexpr std::size_t multiplier = 0x9E3779B97F4A7C15U;
    hash = (hash ^ value) * multiplier;
    return hash ^ hash >> 29U;
}

// The hash of the first `nodes` nodes of a type, aggregates expanded into their members in order. Equal types expand
// alike, recursive ones too.
std::size_t shapehash(const Type *type, int nodes)
{
    static std::vector<const Symbol *> rest;  // members to come, the next one last
    rest.clear();
    std::size_t hash = static_cast<std::size_t>(nodes);
    while (nodes-- > 0) {
        const std::uint8_t code = type ? type->kind : 0;
        hash = mixed(hash, code);
        if (code == kind::array)
            hash = mixed(hash, type->count);
        if (code == kind::pointer || code == kind::array) {
            type = type->sub;
            continue;
        }
        if (code == kind::structure || code == kind::union_)
            rest.push_back(type->members);
        while (!rest.empty() && !rest.back()) {
            hash = mixed(hash, 0);  // the end of an aggregate
            rest.pop_back();
        }
        if (rest.empty())
            break;
        type = rest.back()->type;
        rest.back() = rest.back()->next;
    }
    return hash;
}

AnonBucket &anonbucket(const Type *type)
{
    AnonBucket &shallow = anonindex()[shapehash(type, shallow_nodes)];
    return shallow.split ? anonindex()[shapehash(type, deep_nodes)] : shallow;
}

void enteranon(const Type *type)
{
    AnonBucket &bucket = anonbucket(type);
    bucket.entries.push_back(type);
    if (bucket.entries.size() <= bucket_size || bucket.split)
        return;
    AnonBucket &shallow = anonindex()[shapehash(type, shallow_nodes)];
    if (&shallow != &bucket)
        return;  // a deep one: there is no third hash
    shallow.split = true;
    const std::vector<const Type *> entries = std::move(shallow.entries);
    for (const Type *entry : entries)
        anonindex()[shapehash(entry, deep_nodes)].entries.push_back(entry);
}

void refreshindex()
{
    if (!anon_stale)
        return;
    anon_stale = false;
    shapeclasses() = {};
    anonindex().clear();
    for (const Type *type : anon_types)
        enteranon(type);
}

}  // namespace

void addanon(const Type *type)
{
    refreshindex();
    anon_types.push_back(type);
    enteranon(type);
}

const Type *findanon(const Type *type)
{
    refreshindex();
    const std::vector<const Type *> &entries = anonbucket(type).entries;
    for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry)
        if (equaltype(type, *entry))
            return *entry;
    return nullptr;
}

void retyped(const Type *type)
{
    anon_stale |= type->in_aggregate;
}
