// Errors and warnings, with places in the C++ source where debug metadata names them:
//
//     FILE:LINE:COLUMN: error: TEXT [in function NAME]
#include "adapt/ir.h"
#include "adapt/lexer.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cxxabi.h>
#include <tuple>

namespace adapt {

namespace {

constexpr unsigned longest_scope_chain = 1000;

// ---- Metadata ----

// The metadata line that a reference such as !5 names; empty if there is none.
std::string_view nodeat(const Module &module, std::string_view reference)
{
    if (!reference.starts_with("!") || !isdigits(reference.substr(1))) {
        return {};
    }
    const std::uint64_t number = decimalnumber(reference.substr(1));
    return number < module.metadata.size() ? module.metadata[number] : std::string_view();
}

std::size_t afterquotes(std::string_view text, std::size_t quote)
{
    const std::size_t close = text.find('"', quote + 1);
    return close == std::string_view::npos ? text.size() : close + 1;
}

// The value of `key: VALUE` in a metadata line, as it stands; quotes are taken away. Empty if there is none.
std::string_view fieldof(std::string_view node, std::string_view key)
{
    std::size_t at = node.find('(');
    while (at < node.size()) {
        if (node[at] == '"') {
            at = afterquotes(node, at);
            continue;
        }
        const bool starts = node[at] == '(' || node[at] == ' ';
        const std::string_view rest = node.substr(++at);
        if (!starts || !rest.starts_with(key) || !rest.substr(key.size()).starts_with(": ")) {
            continue;
        }
        const std::string_view value = rest.substr(key.size() + 2);
        if (value.starts_with('"')) {
            const std::size_t end = afterquotes(value, 0);
            return value.substr(1, std::max<std::size_t>(end, 2) - 2);
        }
        return value.substr(0, value.find_first_of(",)"));
    }
    return {};
}

std::size_t numberof(std::string_view digits)
{
    return isdigits(digits) ? static_cast<std::size_t>(decimalnumber(digits)) : 0;
}

// The name of the file that a scope, or the nearest one around it, stands in.
std::string_view fileof(const Module &module, std::string_view node)
{
    for (unsigned step = 0; step < longest_scope_chain && !node.empty(); ++step) {
        if (const std::string_view file = fieldof(node, "file"); !file.empty()) {
            return fieldof(nodeat(module, file), "filename");
        }
        node = nodeat(module, fieldof(node, "scope"));
    }
    return {};
}

// Sets the place that a location, subprogram or variable has. False if metadata doesn't say it.
bool setplace(const Module &module, std::uint32_t location, Message &message)
{
    std::string_view node = nodeat(module, "!" + std::to_string(std::uint64_t{location} - 1));
    if (const std::string_view variable = fieldof(node, "var"); !variable.empty()) {
        node = nodeat(module, variable);
    }
    const std::string_view file = fileof(module, node);
    const std::size_t line = numberof(fieldof(node, "line"));
    if (location == 0 || file.empty() || line == 0) {
        return false;
    }
    message.file = file;
    message.line = line;
    message.column = numberof(fieldof(node, "column"));
    return true;
}

// ---- Messages ----

// Only names of C++: a short one of C may be the code of a type.
std::string demangled(const std::string &name)
{
    if (!name.starts_with("_Z")) {
        return name;
    }
    if (!name.starts_with("_Z")) {
        return name;  // it could be the code of a type: f is float
    }
    int status = 0;
    char *text = abi::__cxa_demangle(name.c_str(), nullptr, nullptr, &status);
    std::string out = status == 0 && text != nullptr ? text : name;
    std::free(text);
    return out;
}

void addmessage(Module &module, Message message)
{
    module.errors += message.warning ? 0U : 1U;
    module.messages.push_back(std::move(message));
}

void noteat(Function &function, const Value *inst, const std::string &text, bool warning)
{
    Module &module = *function.module;
    Message message;
    message.text = text;
    message.warning = warning;
    message.function = demangled(function.global->name);
    const std::uint32_t location = inst == nullptr ? 0 : inst->location;
    if (!setplace(module, location, message) && !setplace(module, function.global->location, message)) {
        message.file = module.file;
        message.line = inst == nullptr || inst->line == 0 ? function.global->line : inst->line;
    }
    addmessage(module, std::move(message));
}

void noteglobal(Module &module, const Global *global, const std::string &text, bool warning)
{
    Message message;
    message.text = text;
    message.warning = warning;
    if (global != nullptr && global->kind == GlobalKind::function) {
        message.function = demangled(global->name);
    } else if (global != nullptr) {
        message.text = demangled(global->name) + ": " + text;
    }
    if (global == nullptr) {
        message.file = module.source_filename.empty() ? module.file : module.source_filename;
    } else if (!setplace(module, global->location, message)) {
        message.file = module.file;
        message.line = global->line;
    }
    addmessage(module, std::move(message));
}

bool comesfirst(const Message &a, const Message &b)
{
    return std::tie(a.file, a.line, a.column, a.text, a.function) <
           std::tie(b.file, b.line, b.column, b.text, b.function);
}

bool samemessage(const Message &a, const Message &b)
{
    return a.file == b.file && a.line == b.line && a.column == b.column && a.text == b.text;
}

void showmessage(const Message &message)
{
    std::string out = message.file + ":";
    if (message.line != 0) {
        out += std::to_string(message.line) + ":";
    }
    if (message.column != 0) {
        out += std::to_string(message.column) + ":";
    }
    out += message.warning ? " warning: " : " error: ";
    out += message.text;
    if (!message.function.empty()) {
        out += " [in function " + message.function + "]";
    }
    out += "\n";
    std::fputs(out.c_str(), stderr);
}

}  // namespace

void refuse(Function &function, const Value *inst, const std::string &text)
{
    noteat(function, inst, text, false);
}

void warn(Function &function, const Value *inst, const std::string &text)
{
    noteat(function, inst, text, true);
}

void refuse(Module &module, const Global *global, const std::string &text)
{
    noteglobal(module, global, text, false);
}

void warn(Module &module, const Global *global, const std::string &text)
{
    noteglobal(module, global, text, true);
}

void refuseline(Module &module, std::size_t line, const std::string &text)
{
    Message message;
    message.text = text;
    message.file = module.file;
    message.line = line;
    addmessage(module, std::move(message));
}

void showmessages(Module &module)
{
    std::vector<Message> &messages = module.messages;
    std::stable_sort(messages.begin(), messages.end(), comesfirst);
    messages.erase(std::unique(messages.begin(), messages.end(), samemessage), messages.end());
    for (const Message &message : messages) {
        showmessage(message);
    }
}

}  // namespace adapt
