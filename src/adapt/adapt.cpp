// The run over the text: which line is which.
#include "adapt/function.h"
#include "adapt/intrinsics.h"

#include <algorithm>
#include <cstdio>

namespace adapt {

namespace {

constexpr std::size_t longest_shown = 160;  // of a line, in a message

// The next line of the text from `at` on, which moves behind its newline.
std::string_view next_line(std::string_view text, std::size_t &at)
{
    const std::size_t end = std::min(text.find('\n', at), text.size());
    const std::string_view line = text.substr(at, end - at);
    at = end + 1;
    return line;
}

bool is_close(std::string_view line)
{
    return line.starts_with('}');
}

std::string first_global(const Tokens &tokens)
{
    for (const Token &token : tokens) {
        if (token.kind == Kind::global) {
            return name_of(token.text);
        }
    }
    return {};
}

void look_at_line(Module &module, std::string_view text, std::vector<std::string> &names)
{
    const char first = text[0];
    if (first == '%') {
        read_type_line(module, {module.line, lex(text)});
    } else if (first == '@' || text.starts_with("define ") || text.starts_with("declare ")) {
        const std::string name = first_global(lex(text));
        const std::string library = library_name(name);
        if (library.empty()) {
            names.push_back(name);
        } else {
            module.globals.emplace(name, library);
        }
    } else if (text.starts_with("target datalayout")) {
        read_datalayout(module, text.substr(text.find('"') == npos ? 0 : text.find('"') + 1));
    }
}

// The first look: names, structures and the calls of inline functions.
void look(Module &module)
{
    std::vector<std::string> names;
    std::string function;  // the inline function that the line is in
    bool inside = false;
    std::size_t at = 0;
    module.line = 0;
    while (at < module.text.size()) {
        const std::string_view line = next_line(module.text, at);
        ++module.line;
        if (inside || line.empty()) {
            inside = inside && !is_close(line);
            if (inside && !function.empty()) {
                note_calls(module, function, line);
            }
            continue;
        }
        look_at_line(module, line, names);
        inside = line.starts_with("define ");
        function.clear();
        if (inside && line.find(" linkonce_odr ") != npos) {
            function = names.back();
            note_inline(module, function);
        }
    }
    claim_globals(module, names);
    settle_types(module);
    find_circles(module);
}

bool passes(std::string_view line)
{
    return line.empty() || line[0] == ';' || line.starts_with("source_filename") || line.starts_with("target ") ||
           line.starts_with("attributes ");
}

void adapt_line(Module &module, std::string_view text)
{
    if (passes(text)) {
        module.out += text;
        module.out += '\n';
        return;
    }
    if (text[0] == '!') {
        adapt_metadata(module, text);
        return;
    }
    Line line = {module.line, lex(text)};
    if (line.tokens.empty() || line.tokens[0].kind == Kind::comment) {
        return;
    }
    if (text[0] == '%') {
        write_type_line(module, line);
    } else if (text[0] == '@') {
        adapt_variable(module, line);
    } else if (text[0] == '$') {
        rename_global(module, line.tokens[0]);
        print(line.tokens, module.out);
    } else if (is(line.tokens[0], "declare")) {
        adapt_declare(module, line);
    } else if (is(line.tokens[0], "module")) {
        refuse(module, "assembler code outside of functions");
    } else {
        refuse(module, "line that begins with '" + std::string(line.tokens[0].text) + "'");
    }
}

// Takes the lines of a function up to its closing brace.
void adapt_definition(Module &module, std::string_view header, std::size_t &at)
{
    std::vector<Line> lines;
    lines.push_back({module.line, lex(header)});
    std::size_t number = module.line;
    bool closed = false;
    while (!closed && at < module.text.size()) {
        const std::string_view line = next_line(module.text, at);
        ++number;
        closed = is_close(line);
        if (!closed) {
            lines.push_back({number, lex(line)});
        }
    }
    adapt_function(module, lines);
    module.line = number;
    if (closed) {
        module.out += "}\n";
    } else {
        refuse(module, "function without an end");
    }
}

// Writes the messages in the order of the lines, which isn't that of the passes, each with its line: the IR is often a
// temporary file. A word that a line has twice is told once.
void show_messages(Module &module)
{
    std::stable_sort(module.messages.begin(), module.messages.end(),
                     [](const Message &a, const Message &b) { return a.line < b.line; });
    std::size_t number = 0;
    std::size_t at = 0;
    std::string_view text;
    const Message *last = nullptr;
    for (const Message &message : module.messages) {
        for (; number < message.line && at < module.text.size(); ++number) {
            text = next_line(module.text, at).substr(0, longest_shown);
        }
        if (last == nullptr || last->line != message.line || last->text != message.text) {
            std::fprintf(stderr, "quarl-adapt: %s:%zu: %s\n  | %.*s\n", module.file.c_str(), message.line,
                         message.text.c_str(), static_cast<int>(text.size()), text.data());
        }
        last = &message;
    }
}

}  // namespace

std::string_view keep(Module &module, std::string text)
{
    return module.made.emplace_back(std::move(text));
}

Tokens compose(Module &module, std::initializer_list<std::string_view> pieces)
{
    std::string text;
    for (const std::string_view piece : pieces) {
        text += piece;
    }
    return lex(keep(module, std::move(text)));
}

void refuse(Module &module, const std::string &message)
{
    ++module.errors;
    module.messages.push_back({module.line, message});
}

void warn(Module &module, const std::string &message)
{
    module.messages.push_back({module.line, "warning: " + message});
}

void adapt(Module &module)
{
    look(module);
    std::size_t at = 0;
    module.line = 0;
    while (at < module.text.size()) {
        const std::string_view line = next_line(module.text, at);
        ++module.line;
        if (line.starts_with("define ")) {
            adapt_definition(module, line, at);
        } else {
            adapt_line(module, line);
        }
    }
    show_messages(module);
}

}  // namespace adapt
