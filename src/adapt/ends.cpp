// Ifs and switches without an end. quarl closes an else where the arms come together again, in the block if.end, and a
// switch in the block sw.epilog. If all arms leave for elsewhere, the front end writes no such block, and the brace
// stays open:
//
//     if (a) {
//         if (b) return 1;        if.then1:  ...  br label %return
//         else return 2;          if.else:   ...  br label %return
//     }
//     f();                        if.end:    ...
//
// As the first arm of the if leaves, what stands in the second needs no else: the label if.else becomes an if.end,
// which gives `if (b) { return 1; } return 2;`. A switch gets a block sw.epilog that nothing leads to. Which statement
// a block ends follows from the order of the blocks, as with brackets, and from the branches that lead there.
#include "adapt/ends.h"

#include <algorithm>
#include <array>

namespace adapt {

namespace {

enum class Statement : std::uint8_t { if_, for_, while_, do_, switch_ };

// A statement whose blocks have begun.
struct Scope {
    Statement kind;
    std::size_t start = npos;  // its first block; for an if or switch the one that branches
    std::size_t arm = npos;    // the block of an if's else; the latest arm of a switch
};

// A label within or behind a statement.
struct Part {
    std::string_view prefix;
    Statement kind;
    bool ends;
};

constexpr std::array parts = {
    Part{"if.end", Statement::if_, true},        Part{"for.inc", Statement::for_, false},
    Part{"for.end", Statement::for_, true},      Part{"while.end", Statement::while_, true},
    Part{"do.cond", Statement::do_, false},      Part{"do.end", Statement::do_, true},
    Part{"sw.bb", Statement::switch_, false},    Part{"sw.default", Statement::switch_, false},
    Part{"sw.epilog", Statement::switch_, true},
};

// Where the branches to a block come from.
struct Sources {
    std::size_t first = npos;   // the first block that leads there
    std::size_t before = npos;  // the last one that stands in front
    std::size_t choice = npos;  // the last one that leads elsewhere, too
};

struct Walk {
    Module &module;
    const Blocks &blocks;
    std::vector<Sources> sources;
    std::vector<Scope> open;
    std::vector<std::size_t> elses;    // arms whose if has no end
    std::vector<std::size_t> epilogs;  // the blocks in front of which a switch ends unsaid
};

std::vector<Sources> find_sources(const Blocks &blocks)
{
    std::vector<Sources> sources(blocks.list.size());
    for (std::size_t place = 0; place < blocks.list.size(); ++place) {
        const std::vector<const Token *> targets = targets_of(blocks.list[place]);
        for (const Token *target : targets) {
            const auto found = blocks.places.find(target->text);
            if (found == blocks.places.end()) {
                continue;
            }
            Sources &own = sources[found->second];
            own.first = std::min(own.first, place);
            own.before = place < found->second ? place : own.before;
            own.choice = targets.size() > 1 ? place : own.choice;
        }
    }
    return sources;
}

// How many scopes are open up to the innermost one of which `matches` is true; 0 for none.
template <class Matches>
std::size_t depth_of(const Walk &walk, Matches matches)
{
    return static_cast<std::size_t>(walk.open.rend() - std::find_if(walk.open.rbegin(), walk.open.rend(), matches));
}

// Leaves the scopes beyond `depth` in front of the block, which ends none of them.
void leave(Walk &walk, std::size_t depth, std::size_t place)
{
    for (; walk.open.size() > depth; walk.open.pop_back()) {
        const Scope &scope = walk.open.back();
        if (scope.kind == Statement::switch_) {
            walk.epilogs.push_back(place);
        } else if (scope.arm != npos) {
            walk.elses.push_back(scope.arm);
        }
    }
}

// A block is part of the statement whose branch leads there as to one of several, or else of the innermost one of its
// kind that has another way there; an if has one only out of its arms, and so only if it has two.
void pass_part(Walk &walk, std::size_t place, const Part &part)
{
    const Sources &own = walk.sources[place];
    const bool chosen = part.kind == Statement::if_ || part.kind == Statement::switch_;
    std::size_t depth = depth_of(
        walk, [&](const Scope &scope) { return chosen && scope.kind == part.kind && scope.start == own.choice; });
    if (depth == 0) {
        depth = depth_of(walk, [&](const Scope &scope) {
            return scope.kind == part.kind && (part.kind != Statement::if_ || scope.arm != npos) &&
                   (own.before == npos || own.before >= scope.start);
        });
    }
    if (depth == 0) {
        return;
    }
    leave(walk, depth, place);
    if (part.ends) {
        walk.open.pop_back();
    } else if (part.kind == Statement::switch_) {
        walk.open.back().arm = place;
    }
}

// A destructor ends a switch if arms in front of the latest one lead to it: else it is one of that arm.
void pass_cleanup(Walk &walk, std::size_t place)
{
    const std::size_t first = walk.sources[place].first;
    const auto outermost = std::find_if(walk.open.begin(), walk.open.end(), [=](const Scope &scope) {
        return scope.kind == Statement::switch_ && scope.arm != npos && first < scope.arm;
    });
    leave(walk, static_cast<std::size_t>(outermost - walk.open.begin()), place);
}

void pass_label(Walk &walk, std::size_t place, std::string_view label)
{
    const auto *const part =
        std::find_if(parts.begin(), parts.end(), [=](const Part &one) { return begins(label, one.prefix); });
    if (part != parts.end()) {
        pass_part(walk, place, *part);
    } else if (begins(label, "if.else")) {
        const std::size_t depth =
            depth_of(walk, [=](const Scope &scope) { return scope.kind == Statement::if_ && scope.arm == place; });
        leave(walk, depth, place);
    } else if (begins(label, "cleanup")) {
        pass_cleanup(walk, place);
    } else if (label == "%return") {
        leave(walk, 0, place);
    }
}

void open_loop(Walk &walk, std::size_t place, std::string_view label)
{
    if (begins(label, "for.cond") && !begins(label, "for.cond.cleanup")) {
        walk.open.push_back({Statement::for_, place});
    } else if (begins(label, "while.cond") || (begins(label, "while.body") && walk.sources[place].choice == npos)) {
        walk.open.push_back({Statement::while_, place});
    } else if (begins(label, "do.body")) {
        walk.open.push_back({Statement::do_, place});
    }
}

// The branch of an if to the next block, or of a switch; the front end has switches of its own behind destructors.
void open_choice(Walk &walk, std::size_t place)
{
    const Blocks &blocks = walk.blocks;
    const std::vector<const Token *> targets = targets_of(blocks.list[place]);
    const std::size_t terminator = terminator_of(blocks.list[place]);
    if (targets.empty() || place + 1 == blocks.list.size()) {
        return;
    }
    if (is(blocks.list[place].lines[terminator].tokens[0], "switch") && begins(targets[0]->text, "sw.")) {
        walk.open.push_back({Statement::switch_, place});
    }
    const std::string_view next = label_of(walk.module, blocks.list[place + 1]);
    if (!is_conditional(blocks.list[place]) || !begins(next, "if.then")) {
        return;
    }
    const std::string_view other = targets[targets[0]->text == next ? 1 : 0]->text;
    const auto found = blocks.places.find(other);
    const bool has_else = begins(other, "if.else") && found != blocks.places.end();
    walk.open.push_back({Statement::if_, place, has_else ? found->second : npos});
}

void insert_epilogs(Module &module, Function &function, Blocks &blocks, const std::vector<std::size_t> &places)
{
    std::vector<Block> list;
    auto next = places.begin();
    for (std::size_t place = 0; place <= blocks.list.size(); ++place) {
        for (; next != places.end() && *next == place; ++next) {
            const std::size_t number = list.back().number;
            const std::string_view label = fresh_name(module, function, "sw.epilog");
            list.push_back(make_block(number, label, lex("  unreachable")));
        }
        if (place < blocks.list.size()) {
            list.push_back(std::move(blocks.list[place]));
        }
    }
    blocks.list = std::move(list);
    index_blocks(module, blocks);
}

}  // namespace

void settle_ends(Module &module, Function &function, Blocks &blocks)
{
    Walk walk{module, blocks, find_sources(blocks), {}, {}, {}};
    for (std::size_t place = 0; place < blocks.list.size(); ++place) {
        const std::string_view label = label_of(module, blocks.list[place]);
        pass_label(walk, place, label);
        open_loop(walk, place, label);
        open_choice(walk, place);
    }
    leave(walk, 0, blocks.list.size());
    Renames labels;
    for (const std::size_t arm : walk.elses) {
        labels.emplace(label_of(module, blocks.list[arm]), fresh_name(module, function, "if.end"));
    }
    rename_labels(module, blocks, labels);
    if (!walk.epilogs.empty()) {
        insert_epilogs(module, function, blocks, walk.epilogs);
    }
}

}  // namespace adapt
