// Else arms whose if has no if.end. quarl closes an else where the arms come together again, in the block if.end. If
// both arms leave for elsewhere, the front end writes no such block, and the brace stays open:
//
//     if (a) {
//         if (b) return 1;        if.then1:  ...  br label %return
//         else return 2;          if.else:   ...  br label %return
//     }
//     f();                        if.end:    ...
//
// As the first arm leaves, what stands behind the else needs none: the label if.else becomes an if.end, which gives
// `if (b) { return 1; } return 2;`. Which if.end belongs to which if follows from the order of the blocks, as that of
// brackets does, and from the branches that lead there.
#include "adapt/elses.h"

#include <algorithm>
#include <array>

namespace adapt {

namespace {

enum class Statement : std::uint8_t { if_, for_, while_, do_, switch_ };

// A statement whose blocks have begun.
struct Scope {
    Statement kind;
    std::size_t head = npos;  // if: the block that branches
    std::size_t arm = npos;   // if: the block of its else
};

// A label within or behind a statement.
struct Part {
    std::string_view prefix;
    Statement kind;
    bool ends;
};

constexpr std::array parts = {
    Part{"for.inc", Statement::for_, false},       Part{"for.end", Statement::for_, true},
    Part{"while.end", Statement::while_, true},    Part{"do.cond", Statement::do_, false},
    Part{"do.end", Statement::do_, true},          Part{"sw.bb", Statement::switch_, false},
    Part{"sw.default", Statement::switch_, false}, Part{"sw.epilog", Statement::switch_, true},
};

// Where the branches to a block come from.
struct Sources {
    std::size_t condition = npos;  // the last block that leads there under a condition
    std::size_t before = npos;     // the last one that stands in front
};

struct Walk {
    Module &module;
    const Blocks &blocks;
    std::vector<Sources> sources;
    std::vector<Scope> open;
    std::vector<std::size_t> unclosed;  // else arms
};

std::vector<Sources> find_sources(const Blocks &blocks)
{
    std::vector<Sources> sources(blocks.list.size());
    for (std::size_t place = 0; place < blocks.list.size(); ++place) {
        const bool condition = is_conditional(blocks.list[place]);
        for (const Token *target : targets_of(blocks.list[place])) {
            const auto found = blocks.places.find(target->text);
            if (found == blocks.places.end()) {
                continue;
            }
            Sources &own = sources[found->second];
            own.condition = condition ? place : own.condition;
            own.before = place < found->second ? place : own.before;
        }
    }
    return sources;
}

// The place in the stack of the innermost scope of which `matches` is true; npos for none.
template <class Matches>
std::size_t find_scope(const Walk &walk, Matches matches)
{
    const auto found = std::find_if(walk.open.rbegin(), walk.open.rend(), matches);
    return found == walk.open.rend() ? npos : static_cast<std::size_t>(walk.open.rend() - found) - 1;
}

// Leaves the scopes from `depth` on. An else among them has no end.
void leave(Walk &walk, std::size_t depth)
{
    for (; walk.open.size() > depth; walk.open.pop_back()) {
        if (walk.open.back().arm != npos) {
            walk.unclosed.push_back(walk.open.back().arm);
        }
    }
}

// The block if.end: of the if whose condition leads there, or of one that has an arm with a branch there.
void end_if(Walk &walk, std::size_t place)
{
    const Sources &own = walk.sources[place];
    const std::size_t depth = find_scope(walk, [&](const Scope &scope) {
        return own.condition != npos ? scope.head == own.condition
                                     : scope.arm != npos && own.before != npos && own.before > scope.head;
    });
    if (depth != npos) {
        leave(walk, depth + 1);
        walk.open.pop_back();
    }
}

void pass_label(Walk &walk, std::size_t place, std::string_view label)
{
    if (begins(label, "if.end")) {
        end_if(walk, place);
    } else if (begins(label, "if.else")) {
        const std::size_t depth = find_scope(walk, [=](const Scope &scope) { return scope.arm == place; });
        leave(walk, depth == npos ? walk.open.size() : depth + 1);
    }
    const auto *const part =
        std::find_if(parts.begin(), parts.end(), [=](const Part &one) { return begins(label, one.prefix); });
    if (part != parts.end()) {
        const std::size_t depth = find_scope(walk, [=](const Scope &scope) { return scope.kind == part->kind; });
        leave(walk, depth == npos ? walk.open.size() : depth + (part->ends ? 0 : 1));
    }
}

bool is_switch(const Block &block)
{
    const std::size_t place = terminator_of(block);
    return place < block.lines.size() && is(block.lines[place].tokens[0], "switch") && !targets_of(block).empty() &&
           begins(targets_of(block)[0]->text, "sw.");  // and not the front end's own, behind destructors
}

void open_others(Walk &walk, std::size_t place, std::string_view label)
{
    if (begins(label, "for.cond") && !begins(label, "for.cond.cleanup")) {
        walk.open.push_back({Statement::for_});
    } else if (begins(label, "while.cond") || (begins(label, "while.body") && walk.sources[place].condition == npos)) {
        walk.open.push_back({Statement::while_});
    } else if (begins(label, "do.body")) {
        walk.open.push_back({Statement::do_});
    }
    if (is_switch(walk.blocks.list[place])) {
        walk.open.push_back({Statement::switch_});
    }
}

void open_if(Walk &walk, std::size_t place)
{
    const Blocks &blocks = walk.blocks;
    const std::vector<const Token *> targets = targets_of(blocks.list[place]);
    const std::string_view next =
        place + 1 < blocks.list.size() ? label_of(walk.module, blocks.list[place + 1]) : std::string_view();
    if (!is_conditional(blocks.list[place])) {
        return;
    }
    const std::string_view other = targets[targets[0]->text == next ? 1 : 0]->text;
    const auto found = blocks.places.find(other);
    if (begins(next, "if.then") && found != blocks.places.end()) {
        walk.open.push_back({Statement::if_, place, begins(other, "if.else") ? found->second : npos});
    }
}

}  // namespace

void open_elses(Module &module, Function &function, Blocks &blocks)
{
    Walk walk{module, blocks, find_sources(blocks), {}, {}};
    for (std::size_t place = 0; place < blocks.list.size(); ++place) {
        const std::string_view label = label_of(module, blocks.list[place]);
        pass_label(walk, place, label);
        open_others(walk, place, label);
        open_if(walk, place);
    }
    leave(walk, 0);
    Renames labels;
    for (const std::size_t arm : walk.unclosed) {
        labels.emplace(label_of(module, blocks.list[arm]), fresh_name(module, function, "if.end"));
    }
    rename_labels(module, blocks, labels);
}

}  // namespace adapt
