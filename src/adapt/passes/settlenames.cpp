// Names of globals. quarl reads no quoted names, and C has fewer characters for names than IR. Names that C can keep
// are settled first, those that other files may know before the rest; any other gets a form that is still free.
#include "adapt/passes/passes.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>

namespace adapt {

namespace {

constexpr std::string_view keywords[] = {
    "_Bool",    "_Complex", "_Imaginary", "asm",     "auto",      "break",  "case",     "char",     "const",
    "continue", "default",  "do",         "double",  "else",      "enum",   "extern",   "float",    "for",
    "goto",     "if",       "inline",     "int",     "interrupt", "long",   "register", "restrict", "return",
    "short",    "signed",   "sizeof",     "static",  "struct",    "switch", "typedef",  "typeof",   "union",
    "unsigned", "void",     "volatile",   "wchar_t", "while",     "far",
};

// Of stdlib.h and string.h, which quarl includes, and of its helpers.
constexpr std::string_view taken[] = {
    "NULL",     "RAND_MAX", "_lglg_",  "abort",   "abs",     "atexit",   "atof",      "atoi",     "atol",
    "atoll",    "bsearch",  "calloc",  "div",     "div_t",   "exit",     "free",      "getenv",   "labs",
    "ldiv",     "ldiv_t",   "llabs",   "lldiv",   "lldiv_t", "malloc",   "mblen",     "mbstowcs", "mbtowc",
    "memchr",   "memcmp",   "memcpy",  "memmove", "memset",  "offsetof", "ptrdiff_t", "qsort",    "rand",
    "realloc",  "size_t",   "srand",   "strcat",  "strchr",  "strcmp",   "strcoll",   "strcpy",   "strcspn",
    "strerror", "strlen",   "strncat", "strncmp", "strncpy", "strpbrk",  "strrchr",   "strspn",   "strstr",
    "strtod",   "strtof",   "strtok",  "strtol",  "strtoll", "strtoul",  "strtoull",  "strxfrm",
};

bool isnamechar(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

bool isvisible(const Global &global)
{
    return global.linkage != Linkage::internal && global.linkage != Linkage::private_;
}

// LLVM's own globals are known by their names.
bool isllvm(const Global &global)
{
    return global.name.starts_with("llvm.");
}

// The name without the \01 that keeps a target from decorating it.
std::string_view barename(const Global &global)
{
    const std::string_view name = global.name;
    return name.starts_with('\1') ? name.substr(1) : name;
}

using Names = std::unordered_set<std::string>;

void keepname(Module &module, Global &global, Names &names)
{
    const std::string_view name = barename(global);
    if (isllvm(global)) {
        global.written = global.name;
        return;
    }
    if (name != plainname(name) || !isvisible(global) || !names.insert(std::string(name)).second) {
        return;
    }
    global.written = name;
    if (iskeyword(name)) {
        refuse(module, &global, "the name is a word of C");
    }
}

void choosename(Module &module, Global &global, Names &names)
{
    const std::string stem = plainname(barename(global));
    std::string name = stem;
    for (std::size_t n = 1; isreservedname(name) || !names.insert(name).second; ++n) {
        name = stem + '_' + std::to_string(n);
    }
    global.written = name;
    if (isvisible(global) && !global.dropped) {
        warn(module, &global, "the name " + global.name + " becomes " + name + " in C");
    }
}

static_assert(std::is_sorted(std::begin(taken), std::end(taken)));

}  // namespace

std::string plainname(std::string_view name)
{
    std::string plain(name);
    for (char &c : plain) {
        c = isnamechar(c) ? c : '_';
    }
    if (plain.empty() || (plain[0] >= '0' && plain[0] <= '9')) {
        plain.insert(plain.begin(), '_');
    }
    return plain;
}

const std::string &writtenname(const Global &global)
{
    return global.written.empty() ? global.name : global.written;
}

bool iskeyword(std::string_view name)
{
    return std::find(std::begin(keywords), std::end(keywords), name) != std::end(keywords);
}

bool isreservedname(std::string_view name)
{
    return iskeyword(name) || std::binary_search(std::begin(taken), std::end(taken), name);
}

void settlenames(Module &module)
{
    Names names;
    for (Global &global : module.globals) {
        keepname(module, global, names);
    }
    for (Global &global : module.globals) {
        if (global.written.empty()) {
            choosename(module, global, names);
        }
    }
}

}  // namespace adapt
