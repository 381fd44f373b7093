// quarl-adapt: IR text of clang 13 to 16 in, IR text in quarl's vocabulary out.
#include "adapt/module.h"

#include <array>
#include <cstdio>
#include <cstring>
#include <string>

namespace {

constexpr int clean = 0;
constexpr int failed = 1;

constexpr const char *usage =
    "usage: quarl-adapt [-o output] [file]\n"
    "Reads LLVM IR with typed pointers, as clang 13 to 16 writes it, from the file or from\n"
    "standard input, and writes the IR that quarl accepts to the output or to standard output.\n"
    "What quarl or C have no words for is reported, and nothing is written then.\n";

struct Options {
    const char *input = nullptr;
    const char *output = nullptr;
    bool help = false;
    bool good = true;
};

Options read_options(int argc, char **argv)
{
    Options options;
    for (int place = 1; place < argc; ++place) {
        const char *argument = argv[place];
        if (std::strcmp(argument, "-h") == 0 || std::strcmp(argument, "--help") == 0) {
            options.help = true;
        } else if (std::strcmp(argument, "-o") == 0 && place + 1 < argc) {
            options.output = argv[++place];
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

bool read_all(const char *name, std::string &text)
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

bool write_all(const char *name, const std::string &text)
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

int run(const Options &options)
{
    std::string text;
    adapt::Module module;
    module.file = options.input == nullptr ? "<stdin>" : options.input;
    if (!read_all(options.input, text)) {
        std::fprintf(stderr, "quarl-adapt: can't read %s\n", module.file.c_str());
        return failed;
    }
    module.text = text;
    adapt::adapt(module);
    if (module.errors > 0) {
        return failed;
    }
    if (!write_all(options.output, module.out)) {
        std::fprintf(stderr, "quarl-adapt: can't write %s\n",
                     options.output == nullptr ? "standard output" : options.output);
        return failed;
    }
    return clean;
}

}  // namespace

int main(int argc, char **argv)
{
    const Options options = read_options(argc, argv);
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
