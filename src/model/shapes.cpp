// The shapes of types, and the literal aggregates that have a tag by their shape.
//
// Two types have the same shape if they are the same but for tags, names of members and signatures of functions. The
// aggregates of one shape form a class. Named ones can be recursive, so their classes are found together, by partition
// refinement: all start in one class, and a class is split where its aggregates differ.
//
//     %struct.a = type { i16, %struct.b* }         c has one member more, by which d differs from a and b, too;
//     %struct.b = type { i16, %struct.a* }         a and b are the same
//     %struct.c = type { i16, %struct.a*, i8 }
//     %struct.d = type { i16, %struct.c* }
//
// A literal aggregate elsewhere is no part of a named one: its class follows from its members.

#include "model/model.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <unordered_map>
#include <utility>
#include <vector>

bool samescalar(const Type *a, const Type *b)
{
    return a && b && a->kind == b->kind && a->kind <= kind::last_scalar;
}

namespace {

using NodeId = std::uint32_t;
using ClassId = std::uint32_t;

// The shape of an aggregate: its kind, and for each member the pointers and arrays down to a scalar, a function, or
// the class of an aggregate.
using Signature = std::vector<std::uint32_t>;

struct Shapes {
    std::vector<const Type *> nodes;  // the aggregates, each after one that holds it
    std::vector<ClassId> classes;     // of the nodes
    std::unordered_map<const Type *, NodeId> ids;
    std::map<Signature, ClassId> known;
    std::vector<const Type *> tagged;  // the newest aggregate of each class that has a tag, null for none
};

// Never destroyed, which would free its entries one by one at the end of the run. Null until a shape is asked for, and
// again when a type has changed.
Shapes *shapes;
constinit std::vector<const Type *> anon_types;  // all literal aggregates that have a tag, the newest last

// The first type on the way down through pointers and arrays that is neither.
const Type *base(const Type *type)
{
    while (iskind(type, kind::pointer) || iskind(type, kind::array))
        type = type->sub;
    return type;
}

void addnode(const Type *type)
{
    if (!shapes->ids.try_emplace(type, static_cast<NodeId>(shapes->nodes.size())).second)
        return;
    shapes->nodes.push_back(type);
    shapes->classes.push_back(0);
}

// Adds the aggregates that the nodes from `first` on hold.
void addparts(NodeId first)
{
    for (NodeId id = first; id < shapes->nodes.size(); ++id)
        for (const Symbol *member = shapes->nodes[id]->members; member; member = member->next)
            if (isaggregate(base(member->type)))
                addnode(base(member->type));
}

Signature signature(NodeId id)
{
    constexpr std::uint32_t first_class = 0x100;  // the kinds are below it
    Signature result{shapes->nodes[id]->kind};
    for (const Symbol *member = shapes->nodes[id]->members; member; member = member->next) {
        Type *type = member->type;
        for (; iskind(type, kind::pointer) || iskind(type, kind::array); type = type->sub) {
            result.push_back(type->kind);
            if (type->kind == kind::array)
                result.push_back(type->count);
        }
        if (type)
            type->compared = true;
        const std::uint32_t code = type ? type->kind : 0;
        result.push_back(isaggregate(type) ? first_class + shapes->classes[shapes->ids[type]] : code);
    }
    return result;
}

// ---- Named aggregates -------------------------------------------------------------------------------------------
// What is split off a class gets a new one, and the nodes that hold it are examined again. The larger part keeps the
// class, so a node changes its class no more often than the logarithm of their number.

struct Partition {
    std::vector<std::vector<NodeId>> members;  // of each class
    std::vector<std::size_t> places;           // of the nodes, in the members of their class
    std::vector<std::vector<NodeId>> holders;  // of each node, the nodes that have it in a member
    std::vector<NodeId> changed;               // nodes whose signature may have changed
};

void findholders(Partition &partition)
{
    partition.holders.resize(shapes->nodes.size());
    for (NodeId id = 0; id < shapes->nodes.size(); ++id)
        for (const Symbol *member = shapes->nodes[id]->members; member; member = member->next)
            if (isaggregate(base(member->type)))
                partition.holders[shapes->ids[base(member->type)]].push_back(id);
}

void removemember(Partition &partition, NodeId id)
{
    std::vector<NodeId> &members = partition.members[shapes->classes[id]];
    members[partition.places[id]] = members.back();
    partition.places[members.back()] = partition.places[id];
    members.pop_back();
}

void setmembers(Partition &partition, ClassId shape, std::vector<NodeId> members)
{
    for (std::size_t place = 0; place < members.size(); ++place) {
        partition.places[members[place]] = place;
        shapes->classes[members[place]] = shape;
    }
    partition.members[shape] = std::move(members);
}

// Splits a class into `part` and what is left.
void splitclass(Partition &partition, std::vector<NodeId> part)
{
    const ClassId shape = shapes->classes[part.front()];
    for (const NodeId id : part)
        removemember(partition, id);
    if (partition.members[shape].size() < part.size()) {
        std::swap(partition.members[shape], part);
        setmembers(partition, shape, std::move(partition.members[shape]));
    }
    if (part.empty())
        return;
    for (const NodeId id : part)
        partition.changed.insert(partition.changed.end(), partition.holders[id].begin(), partition.holders[id].end());
    partition.members.emplace_back();
    setmembers(partition, static_cast<ClassId>(partition.members.size() - 1), std::move(part));
}

// The changed nodes by class and signature.
std::map<Signature, std::vector<NodeId>> changedparts(Partition &partition)
{
    std::map<Signature, std::vector<NodeId>> parts;
    std::sort(partition.changed.begin(), partition.changed.end());
    partition.changed.erase(std::unique(partition.changed.begin(), partition.changed.end()), partition.changed.end());
    for (const NodeId id : partition.changed) {
        Signature key = signature(id);
        key.push_back(shapes->classes[id]);
        parts[std::move(key)].push_back(id);
    }
    partition.changed.clear();
    return parts;
}

void findclasses()
{
    Partition partition;
    findholders(partition);
    partition.changed.resize(shapes->nodes.size());
    std::iota(partition.changed.begin(), partition.changed.end(), 0);
    partition.places.resize(shapes->nodes.size());
    partition.members.emplace_back();
    setmembers(partition, 0, partition.changed);
    while (!partition.changed.empty())
        for (auto &[key, part] : changedparts(partition))
            splitclass(partition, std::move(part));
    for (const std::vector<NodeId> &members : partition.members)
        if (!members.empty())
            shapes->known.emplace(signature(members.front()), shapes->classes[members.front()]);
    shapes->tagged.resize(partition.members.size());
}

// ---- Literal aggregates -----------------------------------------------------------------------------------------

// The place of the newest tagged aggregate of the shape of `type`.
const Type *&taggedplace(const Type *type)
{
    const auto first = static_cast<NodeId>(shapes->nodes.size());
    addnode(type);
    addparts(first);
    // The parts first: they have been added after what holds them.
    for (NodeId id = static_cast<NodeId>(shapes->nodes.size()); id-- > first;) {
        const auto next = static_cast<ClassId>(shapes->tagged.size());
        const auto [entry, is_new] = shapes->known.try_emplace(signature(id), next);
        shapes->classes[id] = entry->second;
        if (is_new)
            shapes->tagged.push_back(nullptr);
    }
    return shapes->tagged[shapes->classes[shapes->ids[type]]];
}

void findshapes()
{
    if (shapes)
        return;
    shapes = new Shapes;
    for (const Symbol *entry = aggregates.head; entry; entry = entry->next)
        if (isaggregate(entry->type))
            addnode(entry->type);
    addparts(0);
    findclasses();
    for (const Type *type : anon_types)
        taggedplace(type) = type;
}

}  // namespace

void addanon(const Type *type)
{
    findshapes();
    anon_types.push_back(type);
    taggedplace(type) = type;
}

const Type *findanon(const Type *type)
{
    findshapes();
    return taggedplace(type);
}

void retyped(const Type *type)
{
    if (!type->compared)
        return;
    delete shapes;
    shapes = nullptr;
}
