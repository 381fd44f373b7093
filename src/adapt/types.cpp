// Structures: their names, their order and their layout.
//
// Order. quarl keeps a structure that is named before its own line as a forward entry. The next definition moves all
// forward entries in front of itself, and when their own lines come later, they are filled in where they stand. Two
// things go wrong with the order in which clang writes the lines. A structure that names itself, and that no earlier
// line has named, makes a forward entry of its own name, which its own definition then throws away: its `next` pointer
// stays a `void *`. And a structure that is filled in where it stands can hold another one by value that stands behind
// it. So in front of the first structure line comes a declaration that names every structure, those held by value
// first:
//
//     declare { %struct.inner*, %struct.node* } @llvm.dbg.order()
//
// quarl reads its return type, sees a debug intrinsic and forgets the rest, so nothing of it reaches the C; but the
// names are now forward entries in this order. The definition that comes next moves them into the list. That one can't
// be one of the named (it would throw its own entry away), so a structure that no other holds by value and that doesn't
// name itself is left out of the declaration and written first. Where there is none, an opaque class with the tag of
// the last structure takes its place, which shows in the C as one `struct tag;` behind the structure itself.
//
// Layout. C has no packed structures. One whose members would move, or that would be longer, is refused: sizes and
// offsets are numbers in the IR already. The base parts that clang makes of classes (class.x.base) are packed and may
// be shorter than in C; that is told from the structures that hold them.
#include "adapt/module.h"

#include <algorithm>
#include <array>

namespace adapt {

namespace {

constexpr std::array<std::string_view, 3> prefixes = {"struct.", "class.", "union."};
constexpr std::size_t deepest_type = 200;
constexpr std::size_t longest_order_line = 4000;

enum Mark : std::uint8_t { unseen, open, done };

std::size_t prefix_length(std::string_view name)
{
    for (const std::string_view prefix : prefixes) {
        if (name.starts_with(prefix)) {
            return prefix.size();
        }
    }
    return 0;
}

// The places of the structures that a body holds by value: a pointer or a function behind the name makes it a mere
// mention, and so does a parameter list around it.
std::vector<std::size_t> held_by_value(const Module &module, const TypeDef &type)
{
    std::vector<std::size_t> held;
    std::size_t parentheses = 0;
    for (std::size_t at = 0; at < type.body.size(); ++at) {
        const Token &token = type.body[at];
        if (is(token, "(")) {
            ++parentheses;
        } else if (is(token, ")") && parentheses > 0) {
            --parentheses;
        }
        const bool mention =
            is_at(type.body, at + 1, "*") || is_at(type.body, at + 1, "(") || is_at(type.body, at + 1, "addrspace");
        if (token.kind != Kind::local || parentheses > 0 || mention) {
            continue;
        }
        if (const auto found = module.type_places.find(name_of(token.text)); found != module.type_places.end()) {
            held.push_back(found->second);
        }
    }
    return held;
}

// ---- Names ----

// A union of several members is clang's way of saying a union and the bytes that fill it up. C would lay the members
// over each other.
bool is_padded_union(const TypeDef &type)
{
    return type.name.starts_with("union.") && !type.body.empty() && is(type.body[0], "{") &&
           list_elements(type.body, 0).size() > 1;
}

std::string plain_tag(std::string_view tag)
{
    std::string plain(tag);
    for (char &c : plain) {
        const bool kept = c == ':' || c == '<' || c == '>' || plain_name(std::string_view(&c, 1)).back() == c;
        c = kept ? c : '_';
    }
    return plain;
}

std::string spelled(const std::string &name)
{
    const bool plain = name.find_first_of(":<>") == std::string::npos;
    return plain ? "%" + name : "%\"" + name + "\"";
}

// Settles the spelling of one structure. Tags are one name space in C, for structs, classes and unions together.
void claim_type(Module &module, TypeDef &type, std::unordered_set<std::string> &tags)
{
    const std::size_t length = prefix_length(type.name);
    std::string_view prefix = length == 0 ? prefixes[0] : std::string_view(type.name).substr(0, length);
    if (is_padded_union(type)) {
        prefix = prefixes[0];
    }
    const std::string wanted = plain_tag(std::string_view(type.name).substr(length));
    std::string tag = wanted.empty() || (wanted[0] >= '0' && wanted[0] <= '9') ? "type" + wanted : wanted;
    const std::string stem = tag;
    for (std::size_t n = 1; !tags.insert(c_form(tag)).second; ++n) {
        tag = stem + '.' + std::to_string(n);
    }
    type.text = spelled(std::string(prefix) + tag);
    module.types_renamed = module.types_renamed || name_of(type.text) != type.name;
}

// ---- Layout ----

std::size_t round_up(std::size_t value, std::size_t align)
{
    return align == 0 ? value : (value + align - 1) / align * align;
}

struct Both {
    Layout natural;
    Layout real;
    bool same = true;  // the members stand at the same places
};

Both layout_of(Module &module, const Tokens &tokens, std::size_t at, std::size_t depth);

Both scalar_layout(const Module &module, std::string_view word)
{
    std::size_t size = 1;
    if (word == "float") {
        size = 4;
    } else if (word == "double") {
        size = 8;
    } else if (word[0] == 'i') {
        std::size_t bits = 0;
        for (const char c : word.substr(1, 6)) {
            bits = bits * 10 + (c >= '0' && c <= '9' ? static_cast<std::size_t>(c - '0') : 0);
        }
        while (size * 8 < bits) {
            size *= 2;
        }
    }
    const auto found = module.alignments.find(std::string(word));
    const Layout layout = {size, found == module.alignments.end() ? size : found->second};
    return {layout, layout};
}

Both members_layout(Module &module, const Tokens &tokens, std::size_t brace, bool packed, std::size_t depth)
{
    Both sum;
    for (const Range member : list_elements(tokens, brace)) {
        const Both layout = layout_of(module, tokens, member.begin, depth + 1);
        sum.natural.size = round_up(sum.natural.size, layout.natural.align);
        sum.real.size = packed ? sum.real.size : round_up(sum.real.size, layout.real.align);
        sum.same = sum.same && layout.same && sum.natural.size == sum.real.size;
        sum.natural.size += layout.natural.size;
        sum.real.size += layout.real.size;
        sum.natural.align = std::max(sum.natural.align, layout.natural.align);
        sum.real.align = packed ? 1 : std::max(sum.real.align, layout.real.align);
    }
    sum.natural.size = round_up(sum.natural.size, sum.natural.align);
    sum.real.size = round_up(sum.real.size, sum.real.align);
    return sum;
}

Both array_layout(Module &module, const Tokens &tokens, std::size_t bracket, std::size_t depth)
{
    std::size_t count = 0;
    if (bracket + 1 < tokens.size()) {
        for (const char c : tokens[bracket + 1].text.substr(0, 9)) {
            count = count * 10 + (c >= '0' && c <= '9' ? static_cast<std::size_t>(c - '0') : 0);
        }
    }
    Both layout = layout_of(module, tokens, bracket + 3, depth + 1);
    layout.same = layout.same && (count < 2 || layout.natural.size == layout.real.size);
    layout.natural.size *= count;
    layout.real.size *= count;
    return layout;
}

// The layout of the type that starts at `at`. Structures by name have theirs already: settle_types goes from the
// inner to the outer ones.
Both layout_of(Module &module, const Tokens &tokens, std::size_t at, std::size_t depth)
{
    const std::size_t end = behind_type(tokens, at);
    if (end == npos || depth > deepest_type) {
        return {};
    }
    if (is(tokens[end - 1], "*") || is(tokens[end - 1], ")")) {
        const auto found = module.alignments.find("*");
        const std::size_t align = found == module.alignments.end() ? module.pointer_size : found->second;
        return {{module.pointer_size, align}, {module.pointer_size, align}};
    }
    const Token &head = tokens[at];
    if (head.kind == Kind::local) {
        const auto found = module.type_places.find(name_of(head.text));
        return found == module.type_places.end()
                   ? Both{}
                   : Both{module.types[found->second].natural, module.types[found->second].real};
    }
    if (is(head, "[")) {
        return array_layout(module, tokens, at, depth);
    }
    if (is(head, "{") || is(head, "<")) {
        const bool packed = is(head, "<");
        return members_layout(module, tokens, packed ? at + 1 : at, packed, depth);
    }
    return scalar_layout(module, head.text);
}

bool is_base_part(std::string_view name)
{
    return name.ends_with(".base") || name.find(".base.") != npos;
}

void settle_layout(Module &module, TypeDef &type)
{
    if (type.opaque) {
        return;
    }
    const Both layout = members_layout(module, type.body, type.packed ? 1 : 0, type.packed, 0);
    type.natural = layout.natural;
    type.real = layout.real;
    const bool longer = layout.natural.size != layout.real.size && !is_base_part(type.name);
    if (!layout.same || longer) {
        module.line = type.line;
        refuse(module, "structure " + type.name + " is laid out in another way by C");
    }
}

// ---- Order ----

// Walks the structures so that those held by value come before their holder, with a stack of its own.
std::vector<std::size_t> inner_first(Module &module)
{
    std::vector<std::size_t> order;
    std::vector<std::size_t> stack;
    for (std::size_t first = module.types.size(); first-- > 0;) {
        stack.push_back(first);
    }
    while (!stack.empty()) {
        const std::size_t place = stack.back();
        TypeDef &type = module.types[place];
        if (type.mark != unseen) {
            stack.pop_back();
            if (type.mark == open) {
                type.mark = done;
                order.push_back(place);
            }
            continue;
        }
        type.mark = open;
        const std::vector<std::size_t> held = held_by_value(module, type);
        for (auto inner = held.rbegin(); inner != held.rend(); ++inner) {
            module.types[*inner].inner = true;
            if (module.types[*inner].mark == unseen) {
                stack.push_back(*inner);
            }
        }
    }
    return order;
}

void rename_types(const Module &module, Tokens &tokens)
{
    for (Token &token : tokens) {
        if (token.kind == Kind::local) {
            rename_type(module, token);
        }
    }
}

void write_definition(Module &module, const TypeDef &type)
{
    module.line = type.line;
    Tokens tokens;
    if (type.packed) {  // the < > around the members mean nothing to quarl, but it takes them here
        Tokens members(type.body.begin() + 1, type.body.end());
        tokens = filter_words(module, members);
        tokens.insert(tokens.begin(), type.body[0]);
    } else {
        tokens = filter_words(module, type.body);
    }
    rename_types(module, tokens);
    module.out += type.text + " = type";
    print(tokens, module.out);
}

// The lines in front of the first structure.
void write_order(Module &module, const std::vector<std::size_t> &order)
{
    std::string line;
    for (const std::size_t place : order) {
        if (place != module.drain) {
            line += (line.empty() ? "declare { " : ", ") + module.types[place].text + "*";
        }
        if (line.size() > longest_order_line || (!line.empty() && place == order.back())) {
            module.out += line + " } @llvm.dbg.order()\n";
            line.clear();
        }
    }
    if (!line.empty()) {
        module.out += line + " } @llvm.dbg.order()\n";
    }
}

// An opaque structure with a tag that the C has already.
void write_stand_in(Module &module)
{
    for (auto type = module.types.rbegin(); type != module.types.rend(); ++type) {
        const std::string name = name_of(type->text);
        const std::size_t length = prefix_length(name);
        if (!name.starts_with("union.")) {
            const std::string_view other = name.starts_with("class.") ? prefixes[0] : prefixes[1];
            module.out += spelled(std::string(other) + name.substr(length)) + " = type opaque\n";
            return;
        }
    }
    module.out += "%struct.order = type opaque\n";
}

bool needs_order(const Module &module)
{
    return std::any_of(module.types.begin(), module.types.end(),
                       [](const TypeDef &type) { return type.selfish || type.inner; });
}

}  // namespace

void read_datalayout(Module &module, std::string_view text)
{
    module.little_endian = text.find('E') == std::string_view::npos;
    static constexpr std::array<std::string_view, 5> integers = {"i1", "i8", "i16", "i32", "i64"};
    while (!text.empty()) {
        const std::size_t dash = text.find('-');
        const std::string_view item = text.substr(0, dash);
        text.remove_prefix(dash == std::string_view::npos ? text.size() : dash + 1);
        std::array<std::size_t, 2> numbers = {};
        std::size_t field = 0;
        for (const char c : item.substr(std::min<std::size_t>(item.size(), item.starts_with("p:") ? 2 : 0))) {
            if (c == ':') {
                ++field;
            } else if (c >= '0' && c <= '9' && field < 2 && numbers.at(field) < 100000) {
                numbers.at(field) = numbers.at(field) * 10 + static_cast<std::size_t>(c - '0');
            }
        }
        const std::size_t bytes = numbers[1] / 8;
        if (item.starts_with("p:")) {
            module.pointer_size = numbers[0] / 8;
            module.alignments["*"] = bytes;
        } else if (item.starts_with("f32:")) {
            module.alignments["float"] = bytes;
        } else if (item.starts_with("f64:")) {
            module.alignments["double"] = bytes;
        } else if (std::find(integers.begin(), integers.end(), item.substr(0, item.find(':'))) != integers.end()) {
            module.alignments[std::string(item.substr(0, item.find(':')))] = bytes;
        }
    }
    if (module.alignments.contains("i32")) {
        module.alignments["i24"] = module.alignments["i32"];
    }
}

void read_type_line(Module &module, const Line &line)
{
    const Tokens &tokens = line.tokens;
    if (tokens.size() < 4 || tokens[0].kind != Kind::local || !is(tokens[1], "=") || !is(tokens[2], "type")) {
        return;
    }
    TypeDef type;
    type.name = name_of(tokens[0].text);
    type.line = line.number;
    type.body.assign(tokens.begin() + 3, tokens.end());
    type.packed = is(tokens[3], "<");
    type.opaque = is(tokens[3], "opaque");
    type.selfish = std::any_of(type.body.begin(), type.body.end(), [&](const Token &token) {
        return token.kind == Kind::local && name_of(token.text) == type.name;
    });
    if (module.type_places.emplace(type.name, module.types.size()).second) {
        module.types.push_back(std::move(type));
    }
}

void settle_types(Module &module)
{
    std::unordered_set<std::string> tags;
    for (TypeDef &type : module.types) {
        claim_type(module, type, tags);
    }
}

bool rename_type(const Module &module, Token &token)
{
    const auto found = module.type_places.find(name_of(token.text));
    if (found == module.type_places.end()) {
        return false;
    }
    token.text = module.types[found->second].text;
    return true;
}

void write_type_line(Module &module, Line &line)
{
    const auto found =
        line.tokens.empty() ? module.type_places.end() : module.type_places.find(name_of(line.tokens[0].text));
    if (found == module.type_places.end()) {
        refuse(module, "line that is no structure");
        return;
    }
    if (!module.types_begun) {
        module.types_begun = true;
        const std::vector<std::size_t> order = inner_first(module);
        for (const std::size_t place : order) {
            settle_layout(module, module.types[place]);
        }
        if (needs_order(module)) {
            const auto drain = std::find_if(module.types.begin(), module.types.end(),
                                            [](const TypeDef &type) { return !type.selfish && !type.inner; });
            module.drain = drain == module.types.end() ? npos : static_cast<std::size_t>(drain - module.types.begin());
            write_order(module, order);
            if (module.drain == npos) {
                write_stand_in(module);
            } else {
                write_definition(module, *drain);
            }
        }
    }
    if (found->second != module.drain) {
        write_definition(module, module.types[found->second]);
    }
}

bool naturally_packed(Module &module, const Tokens &tokens, std::size_t open)
{
    // Values look like types at first sight, but their members are a type and a value.
    for (const Range member : list_elements(tokens, open + 1)) {
        if (behind_type(tokens, member.begin) != member.end) {
            return true;
        }
    }
    const Both layout = members_layout(module, tokens, open + 1, true, 0);
    return layout.same && layout.natural.size == layout.real.size;
}

}  // namespace adapt
