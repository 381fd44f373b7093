// The option engine. Everything it writes goes straight to the standard error stream, and every failure ends the
// process with status 1.

#include "driver/options.h"

#include "base/base.h"
#include "driver/driver.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace {

constexpr const char *toolkit_text = "Norrith Toolkit";
constexpr const char *platform_text = "Win32";

[[noreturn]] void fail(std::string_view first, std::string_view second, std::string_view third = {})
{
    errortext(first);
    errortext(second);
    errortext(third);
    std::exit(status::failed);
}

char lowered(char c)
{
    return static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
}

void banner(const char *title)
{
    errortext(toolkit_text);
    if (title) {
        if (*title != ' ')
            errortext(" ");
        errortext(title);
    }
    errortext(" ");
    errortext(version_text);
}

[[noreturn]] void usage(const char *title, const char *file, std::span<const OptionPattern> patterns)
{
    if (file) {
        banner(title);
        errortext("\nusage: ");
        errortext(prog_name);
        errortext(" [options] ");
        errortext(file);
        errortext("\n");
    }
    for (const OptionPattern &option : patterns) {
        if (*option.pattern == '<')
            continue;
        errortext("    ");
        if (*option.pattern != '+')
            errortext("-");
        errortext(option.pattern);
        errortext("\n");
    }
    std::exit(status::failed);
}

[[noreturn]] void versionline(const char *title)
{
    banner(title);
    errortext(" - ");
    errortext(date_text);
    errortext(" - ");
    errortext(platform_text);
    fail("-F\n", {});
}

// ---- Matching one argument --------------------------------------------------------------------------------------

// What a pattern has read so far. The number is not reset from pattern to pattern within one argument.
struct OptionValue {
    long number = 1;
    const char *text = nullptr;
};

void storelist(OptionList &list, const OptionValue &value)
{
    if (list.free_slots == 0)
        fail("argument list overflow\n", {});
    --list.free_slots;
    list.slots[list.free_slots] = {value.number, value.text};
}

void store(const OptionPattern &option, const OptionValue &value)
{
    if (auto *const *list = std::get_if<OptionList *>(&option.target))
        storelist(**list, value);
    else if (auto *const *text = std::get_if<const char **>(&option.target))
        **text = value.text;
    else
        *std::get<int *>(option.target) = static_cast<int>(value.number);
}

// A character as a signed number of 8 bits, whatever the sign of a char is here.
long signedvalue(char c)
{
    constexpr long bits8 = 256;
    const auto code = static_cast<unsigned char>(c);
    return code < bits8 / 2 ? code : code - bits8;
}

// The text that a `*` or `#` at position `at` reads: the rest of the argument, else the next argument, else nothing.
const char *valuetext(const char *at, int &argc, char **&argv)
{
    if (*at != '\0')
        return at;
    if (--argc > 0)
        return *++argv;
    argc = 0;
    return at;
}

const char *readnumbervalue(const char *text, long &number)
{
    const char *end = parsenumber(text, number, 1);
    if (*end != '\0')
        fail("invalid number: ", std::string_view(text, static_cast<std::size_t>(end - text) + 1), "\n");
    return end;
}

// Matches `argument` against one pattern. On success the target is stored and the unmatched rest of the argument is
// returned; null if the pattern doesn't fit.
const char *matchpattern(const OptionPattern &option, const char *argument, OptionValue &value, int &argc, char **&argv)
{
    const char *at = argument;
    const char *pattern = option.pattern;
    if (*pattern == '<')
        ++pattern;
    value.text = nullptr;
    for (; *pattern != '\0' && *pattern != '\t' && *pattern != ' ' && *pattern != '>'; ++pattern) {
        if (*pattern == '*') {
            value.text = valuetext(at, argc, argv);
            at = "";
        } else if (*pattern == '#') {
            at = readnumbervalue(valuetext(at, argc, argv), value.number);
            if (pattern[1] == '#')
                ++pattern;
        } else if (*pattern == '?') {
            value.number = signedvalue(*at);
            if (*at != '\0')
                ++at;
        } else if (*at != *pattern) {
            return nullptr;
        } else {
            ++at;
        }
    }
    store(option, value);
    return at;
}

// Matches as much of `argument` as the patterns cover. Returns the unmatched rest.
const char *matchargument(const char *argument, std::span<const OptionPattern> patterns, int &argc, char **&argv)
{
    while (*argument != '\0') {
        OptionValue value;
        const char *rest = nullptr;
        for (const OptionPattern &option : patterns) {
            rest = matchpattern(option, argument, value, argc, argv);
            if (rest)
                break;
        }
        if (!rest)
            break;
        argument = rest;
    }
    return argument;
}

// ---- Wildcards --------------------------------------------------------------------------------------------------

// `*` matches any run of characters and `?` any one; nothing else is special. Linear backtracking to the last `*`.
bool wildcardmatch(std::string_view pattern, std::string_view name)
{
    std::size_t p = 0;
    std::size_t n = 0;
    std::size_t star = std::string_view::npos;
    std::size_t resume = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            star = p++;
            resume = n;
        } else if (p < pattern.size() && (pattern[p] == '?' || pattern[p] == name[n])) {
            ++p;
            ++n;
        } else if (star != std::string_view::npos) {
            p = star + 1;
            n = ++resume;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', p) == std::string_view::npos;
}

// The names in `directory` that `pattern` matches, in byte order. A directory that can't be read has none.
std::vector<std::string> matchingnames(const std::string &directory, std::string_view pattern)
{
    std::vector<std::string> names;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(directory.empty() ? "." : directory, error), end;
         !error && entry != end; entry.increment(error)) {
        std::string name = entry->path().filename().string();
        if (wildcardmatch(pattern, name))
            names.push_back(std::move(name));
    }
    std::sort(names.begin(), names.end());
    return names;
}

char *copyargument(const std::string &text)
{
    char *copy = static_cast<char *>(alloc(text.size() + 1, nullptr));
    std::memcpy(copy, text.c_str(), text.size() + 1);
    return copy;
}

void expandargument(const char *argument, std::vector<char *> &expanded)
{
    const std::string_view text = argument;
    const std::size_t slash = text.find_last_of("/\\");
    const std::size_t split = slash == std::string_view::npos ? 0 : slash + 1;
    const std::string directory(text.substr(0, split));
    for (std::string &name : matchingnames(directory, text.substr(split))) {
        std::transform(name.begin(), name.end(), name.begin(), lowered);
        expanded.push_back(copyargument(directory + name));
    }
}

// What getoptions() does with one argument that may hold options.
enum class Step { next, files };

// Handles the argument at *argv. Returns `files` when the options end there.
Step takeargument(int &argc, char **&argv, const char *title, const char *file, std::span<const OptionPattern> patterns,
                  bool &seen, bool &stop)
{
    const char *argument = *argv;
    const bool dashed = *argument == '-';
    if (dashed)
        ++argument;
    if (*argument == '\0' || (!dashed && *argument != '+'))
        return Step::files;
    if (dashed && std::strcmp(argument, "-") == 0) {
        --argc;
        ++argv;
        return Step::files;
    }
    if (std::strncmp(argument, "help", 4) == 0)
        usage(title, file, patterns);
    if (std::strncmp(argument, "vers", 4) == 0)
        versionline(title);
    seen = true;
    const char *rest = matchargument(argument, patterns, argc, argv);
    if (*rest == '\0')
        return Step::next;
    if (!file) {
        stop = true;
        return Step::files;
    }
    errortext(prog_name);
    errortext(": unknown option ");
    fail(*rest == '+' ? "" : "-", rest, "\n");
}

}  // namespace

void setprogname(const char *path)
{
    const std::string_view text = path ? path : "";
    const std::size_t slash = text.find_last_of("/\\");
    std::string name(slash == std::string_view::npos ? text : text.substr(slash + 1));
    name.resize(std::min(name.find('.'), name.size()));
    std::transform(name.begin(), name.end(), name.begin(), lowered);
    prog_name = keeptext(name);
}

const char *parsenumber(const char *text, long &value, unsigned base)
{
    while (std::isspace(static_cast<unsigned char>(*text)))
        ++text;
    const bool negative = *text == '-';
    if (*text == '-' || *text == '+')
        ++text;
    const bool hexadecimal = text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
    if (base == 1)
        base = hexadecimal ? 16 : *text == '0' ? 8 : 10;
    if (base == 16 && hexadecimal)
        text += 2;
    std::uint32_t number = 0;
    for (;; ++text) {
        const auto c = static_cast<unsigned char>(*text);
        std::uint32_t digit = 0;
        if (std::isdigit(c))
            digit = c - static_cast<unsigned>('0');
        else if (std::isalpha(c))
            digit = static_cast<std::uint32_t>(std::toupper(c)) - 'A' + 10;
        else
            break;
        if (std::isalpha(c) && digit >= base)
            break;
        number = number * base + digit;
    }
    value = static_cast<std::int32_t>(negative ? 0 - number : number);
    return text;
}

void expandargs(int &argc, char **&argv)
{
    std::vector<char *> arguments;
    bool expanded = false;
    for (int i = 0; i < argc; ++i) {
        if (!std::strpbrk(argv[i], "*?")) {
            arguments.push_back(argv[i]);
            continue;
        }
        expanded = true;
        expandargument(argv[i], arguments);
    }
    if (!expanded)
        return;
    argc = static_cast<int>(arguments.size());
    argv = static_cast<char **>(poolalloc((arguments.size() + 1) * sizeof(char *)));
    std::copy(arguments.begin(), arguments.end(), argv);
}

void getoptions(int &argc, char **&argv, const char *title, const char *file, std::span<const OptionPattern> patterns)
{
    if (!prog_name)
        setprogname(argc > 0 ? *argv : nullptr);
    bool seen = false;
    bool stop = false;
    for (;;) {
        if (argc > 0) {
            ++argv;
            --argc;
        }
        if (argc == 0 || takeargument(argc, argv, title, file, patterns, seen, stop) == Step::files)
            break;
    }
    if (stop || !file)
        return;
    expandargs(argc, argv);
    if (!seen && argc == 0)
        usage(title, file, patterns);
}
