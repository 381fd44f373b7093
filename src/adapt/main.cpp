// quarl-adapt: IR text of clang in, IR text in quarl's vocabulary out.
#include "adapt/adapt.h"

#include <array>
#include <cstdio>
#include <cstring>
#include <string>

namespace {

constexpr int clean = 0;
constexpr int failed = 1;

constexpr const char *usage =
    "usage: quarl-adapt [options] [file]\n"
    "Reads LLVM IR with typed pointers, as clang 13 to 16 writes it, from the file or from\n"
    "standard input, and writes the IR that quarl accepts.\n"
    "  -o FILE             the output; standard output without it\n"
    "  --tail FILE         where C goes that has to follow quarl's\n"
    "  --check-layout      let the C compiler check, in what follows, where structures have their members\n"
    "  --debug             keep the names of members from debug metadata\n"
    "  --ll                for quarl -ll: 64-bit integers are structures in C\n"
    "  --verify            check the model after each pass\n"
    "  --print-after=PASS  show each function after the pass\n"
    "What C has no form for is reported, and nothing is written then.\n";

struct Options {
    const char *input = nullptr;
    const char *output = nullptr;
    const char *tail = nullptr;
    adapt::AdaptOptions adapt;
    bool debug = false;
    bool emulate64 = false;
    bool help = false;
    bool good = true;
};

bool takesname(const char *argument, const char *option, int &place, int argc, char **argv, const char **name)
{
    if (std::strcmp(argument, option) != 0 || place + 1 >= argc) {
        return false;
    }
    *name = argv[++place];
    return true;
}

Options readoptions(int argc, char **argv)
{
    static constexpr const char print_after[] = "--print-after=";
    Options options;
    for (int place = 1; place < argc; ++place) {
        const char *argument = argv[place];
        if (takesname(argument, "-o", place, argc, argv, &options.output) ||
            takesname(argument, "--tail", place, argc, argv, &options.tail)) {
            continue;
        }
        if (std::strcmp(argument, "-h") == 0 || std::strcmp(argument, "--help") == 0) {
            options.help = true;
        } else if (std::strcmp(argument, "--verify") == 0) {
            options.adapt.verify = true;
        } else if (std::strcmp(argument, "--check-layout") == 0) {
            options.adapt.check_layout = true;
        } else if (std::strcmp(argument, "--ll") == 0) {
            options.emulate64 = true;
        } else if (std::strcmp(argument, "--debug") == 0) {
            options.debug = true;
        } else if (std::strncmp(argument, print_after, sizeof print_after - 1) == 0) {
            options.adapt.print_after = argument + sizeof print_after - 1;
        } else if ((argument[0] == '-' && argument[1] != '\0') || options.input != nullptr) {
            options.good = false;
        } else {
            options.input = argument;
        }
    }
    if (options.input != nullptr && std::strcmp(options.input, "-") == 0) {
        options.input = nullptr;
    }
    return options;
}

bool readall(const char *name, std::string &text)
{
    std::FILE *file = name == nullptr ? stdin : std::fopen(name, "rb");
    if (file == nullptr) {
        return false;
    }
    std::array<char, 65536> buffer = {};
    std::size_t count = 0;
    while ((count = std::fread(buffer.data(), 1, buffer.size(), file)) > 0) {
        text.append(buffer.data(), count);
    }
    const bool good = std::ferror(file) == 0;
    if (file != stdin) {
        std::fclose(file);
    }
    return good;
}

bool writeall(const char *name, const std::string &text)
{
    std::FILE *file = name == nullptr ? stdout : std::fopen(name, "wb");
    if (file == nullptr) {
        return false;
    }
    bool good = std::fwrite(text.data(), 1, text.size(), file) == text.size() && std::fflush(file) == 0;
    if (file != stdout) {
        good = std::fclose(file) == 0 && good;
    }
    return good;
}

int cannotwrite(const char *name)
{
    std::fprintf(stderr, "quarl-adapt: can't write %s\n", name == nullptr ? "standard output" : name);
    return failed;
}

int run(const Options &options)
{
    std::string text;
    adapt::Module module;
    module.file = options.input == nullptr ? "<stdin>" : options.input;
    if (!readall(options.input, text)) {
        std::fprintf(stderr, "quarl-adapt: can't read %s\n", module.file.c_str());
        return failed;
    }
    module.text = text;
    module.keep_debug = options.debug;
    module.emulate64 = options.emulate64;
    std::string out;
    std::string tail;
    adapt::adaptmodule(module, options.adapt, out, tail);
    adapt::showmessages(module);
    if (module.errors > 0) {
        return failed;
    }
    if (!tail.empty() && options.tail == nullptr) {
        std::fprintf(stderr, "quarl-adapt: %s: variables with long initialisers need --tail\n", module.file.c_str());
        return failed;
    }
    if (!writeall(options.output, out)) {
        return cannotwrite(options.output);
    }
    if (options.tail != nullptr && !writeall(options.tail, tail)) {
        return cannotwrite(options.tail);
    }
    return clean;
}

}  // namespace

int main(int argc, char **argv)
{
    const Options options = readoptions(argc, argv);
    if (options.help) {
        std::fputs(usage, stdout);
        return clean;
    }
    if (!options.good) {
        std::fputs(usage, stderr);
        return failed;
    }
    return run(options);
}
