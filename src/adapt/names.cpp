// Spellings. The accepted vocabulary has no quoted names but those of structures, and C has fewer characters for names
// than IR: both are settled here for globals, so that a name is the same in every line. Two names that differ in IR but
// not in C (f.x and f_x) are told apart as well.
#include "adapt/module.h"

#include <algorithm>

namespace adapt {

namespace {

bool is_plain(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '.';
}

bool is_settled_by_c(std::string_view name)
{
    return name == plain_name(name) && name == c_form(name);
}

// Takes a C name for `name`, with a number behind it if another global has that name.
void claim_global(Module &module, const std::string &name)
{
    if (module.globals.contains(name)) {
        return;
    }
    const std::string plain = plain_name(name);
    std::string chosen = plain;
    for (std::size_t n = 1; !module.global_forms.insert(c_form(chosen)).second; ++n) {
        chosen = plain + '_' + std::to_string(n);
    }
    module.globals.emplace(name, chosen);
}

}  // namespace

std::string c_form(std::string_view name)
{
    std::string form(name);
    for (char &c : form) {
        if (c == '.' || c == ':' || c == '<' || c == '>') {
            c = '_';
        }
    }
    return form;
}

std::string plain_name(std::string_view name)
{
    if (!name.empty() && name[0] == '\1') {
        name.remove_prefix(1);
    }
    std::string plain(name);
    for (char &c : plain) {
        c = is_plain(c) ? c : '_';
    }
    if (plain.empty() || (plain[0] >= '0' && plain[0] <= '9')) {
        plain.insert(plain.begin(), '_');
    }
    return plain;
}

void claim_globals(Module &module, const std::vector<std::string> &names)
{
    // Names that C can keep come first: other files may know them, and no other name may take them.
    for (const std::string &name : names) {
        if (is_settled_by_c(name)) {
            claim_global(module, name);
        }
    }
    for (const std::string &name : names) {
        claim_global(module, name);
    }
}

void rename_global(Module &module, Token &token)
{
    const std::string name = name_of(token.text);
    const auto found = module.globals.find(name);
    const std::string spelling = found == module.globals.end() ? plain_name(name) : found->second;
    if (token.text.substr(1) != spelling) {
        token.text = keep(module, token.text.substr(0, 1) == "$" ? "$" + spelling : "@" + spelling);
    }
}

}  // namespace adapt
