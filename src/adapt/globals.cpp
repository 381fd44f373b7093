// Lines outside of functions, and the headers of functions.
#include "adapt/constants.h"
#include "adapt/intrinsics.h"
#include "adapt/module.h"

#include <algorithm>

namespace adapt {

namespace {

void rename_names(Module &module, Tokens &tokens)
{
    for (Token &token : tokens) {
        if (token.kind == Kind::global || token.kind == Kind::comdat) {
            rename_global(module, token);
        } else if (token.kind == Kind::local) {
            rename_type(module, token);
        }
    }
}

std::size_t find_word_at(const Tokens &tokens, std::string_view word)
{
    const auto found = std::find_if(tokens.begin(), tokens.end(),
                                    [=](const Token &token) { return token.kind == Kind::word && token.text == word; });
    return found == tokens.end() ? npos : static_cast<std::size_t>(found - tokens.begin());
}

std::size_t find_kind(const Tokens &tokens, Kind kind)
{
    const auto found =
        std::find_if(tokens.begin(), tokens.end(), [=](const Token &token) { return token.kind == kind; });
    return found == tokens.end() ? npos : static_cast<std::size_t>(found - tokens.begin());
}

void drop_word(Tokens &tokens, std::string_view word)
{
    if (const std::size_t at = find_word_at(tokens, word); at != npos) {
        tokens.erase(tokens.begin() + static_cast<std::ptrdiff_t>(at));
    }
}

void replace_word(Tokens &tokens, std::string_view word, std::string_view other)
{
    if (const std::size_t at = find_word_at(tokens, word); at != npos) {
        tokens[at].text = other;
    }
}

void warn_of_section(Module &module, const Tokens &tokens, std::string_view what)
{
    const std::size_t at = find_word_at(tokens, "section");
    if (at != npos && at + 1 < tokens.size() && tokens[at + 1].kind == Kind::string) {
        warn(module, std::string(what) + " loses its section " + std::string(tokens[at + 1].text));
    }
}

// A variable in an address space of its own is reached by other instructions than the rest, which plain C can't say.
bool is_elsewhere(const Tokens &tokens)
{
    const std::size_t space = find_word_at(tokens, "addrspace");
    const std::size_t kind = std::min(find_word_at(tokens, "global"), find_word_at(tokens, "constant"));
    return space != npos && kind != npos && space < kind;
}

// True if the words from `at` on do no more than give an address another type.
bool keeps_address(const Tokens &tokens, std::size_t at)
{
    for (; at < tokens.size(); ++at) {
        const Token &token = tokens[at];
        if (token.kind == Kind::word && behind_type(tokens, at) == npos && token.text != "bitcast" &&
            token.text != "to" && token.text != "getelementptr" && token.text != "inbounds" &&
            token.text != "inrange" && token.text != "x") {
            return false;
        }
        // Array lengths aside, a number is an index.
        if (token.kind == Kind::number && token.text != "0" && !is_at(tokens, at + 1, "x")) {
            return false;
        }
    }
    return true;
}

// `alias T, bitcast (U* @g to T*)` is an alias of @g: quarl wants the plain name.
void straighten_alias(Module &module, Tokens &tokens, std::size_t alias)
{
    const std::size_t comma = behind_type(tokens, alias + 1);
    if (comma == npos || !is_at(tokens, comma, ",")) {
        refuse(module, "alias without a type");
        return;
    }
    const std::size_t plain = behind_type(tokens, comma + 1);
    if (plain != npos && plain < tokens.size() && tokens[plain].kind == Kind::global) {
        return;
    }
    Tokens target = slice(tokens, {comma + 1, tokens.size()});
    const std::size_t name = find_kind(target, Kind::global);
    if (name == npos || !keeps_address(target, 0)) {
        refuse(module, "alias of something inside another variable");
        return;
    }
    const Token global = {Kind::global, " ", target[name].text};
    const Tokens type = slice(tokens, {alias + 1, comma});
    tokens.resize(comma + 1);
    tokens.insert(tokens.end(), type.begin(), type.end());
    tokens.push_back({Kind::punct, "", "*"});
    tokens.push_back(global);
}

void refuse_operators(Module &module, const Tokens &tokens)
{
    for (std::size_t at = 0; at < tokens.size(); ++at) {
        if (is_constant_operator(tokens, at)) {
            refuse(module, "computed constant in an initialiser ('" + std::string(tokens[at].text) + "')");
        }
    }
}

}  // namespace

void adapt_variable(Module &module, Line &line)
{
    if (is_elsewhere(line.tokens)) {
        refuse(module, "variable in an address space of its own");
    }
    line.tokens = filter_words(module, line.tokens);
    rename_names(module, line.tokens);
    if (const std::size_t alias = find_word_at(line.tokens, "alias"); alias != npos) {
        straighten_alias(module, line.tokens, alias);
    } else if (const std::size_t weak = find_word_at(line.tokens, "extern_weak"); weak != npos) {
        line.tokens[weak].text = "external";  // quarl would define it
    }
    refuse_operators(module, line.tokens);
    warn_of_section(module, line.tokens, line.tokens[0].text);
    print(line.tokens, module.out);
}

void adapt_declare(Module &module, Line &line)
{
    const std::size_t at = find_kind(line.tokens, Kind::global);
    const std::string name = at == npos ? std::string() : name_of(line.tokens[at].text);
    if (find_intrinsic(name) != nullptr) {
        return;
    }
    const std::string library = library_name(name);
    if (!library.empty() && !module.globals.emplace(library, library).second) {
        return;  // declared by that name as well
    }
    line.tokens = filter_words(module, line.tokens);
    rename_names(module, line.tokens);
    print(line.tokens, module.out);
}

void adapt_header(Module &module, Line &line)
{
    line.tokens = filter_words(module, line.tokens);
    Tokens &tokens = line.tokens;
    const std::size_t at = find_kind(tokens, Kind::global);
    if (at == npos) {
        refuse(module, "function without a name");
        return;
    }
    const std::string name = name_of(tokens[at].text);
    // quarl leaves hidden functions out of its output, which is meant for this one alone.
    if (name != "__clang_call_terminate") {
        drop_word(tokens, "hidden");
    }
    if (is_in_circle(module, name)) {
        replace_word(tokens, "linkonce_odr", "weak");
    }
    // Code that runs before main has a section of its own on some targets; quarl has its own table for it.
    if (!name.starts_with("__cxx_global_var_init") && !name.starts_with("_GLOBAL__")) {
        warn_of_section(module, tokens, tokens[at].text);
    }
    rename_names(module, tokens);
}

void adapt_metadata(Module &module, std::string_view line)
{
    // quarl finds a structure's members by its name. A name that was respelled has to change here too, and the
    // nameless name space gets the name that it has within type names.
    if (!module.types_renamed) {
        module.out += line;
        module.out += '\n';
        return;
    }
    static constexpr std::string_view key = "name: \"";
    static constexpr std::string_view space = "!DINamespace(";
    std::string text(line);
    const std::size_t start = text.find(key);
    const std::size_t place = text.find(space);
    if (place != std::string::npos && start == std::string::npos) {
        text.insert(place + space.size(), "name: \"_anonymous_namespace_\", ");
    } else if (text.find("!DICompositeType(") != std::string::npos && start != std::string::npos) {
        for (std::size_t at = start + key.size(); at < text.size() && text[at] != '"'; ++at) {
            const char c = text[at];
            if (c != ':' && c != '<' && c != '>' && plain_name(std::string_view(&c, 1)).back() != c) {
                text[at] = '_';
            }
        }
    }
    module.out += text;
    module.out += '\n';
}

}  // namespace adapt
