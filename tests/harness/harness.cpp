#include "harness/harness.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sys/wait.h>

#if defined(__SANITIZE_ADDRESS__)
// quarl's records live until the process ends, so a leak report would only list them.
extern "C" const char *__asan_default_options();
extern "C" const char *__asan_default_options()
{
    return "detect_leaks=0";
}
#endif

namespace harness {

namespace {

// A sanitizer's report ends in a signal, which differs from quarl's own status 1. The output is limited to 1 GB, in
// units of 512 bytes.
constexpr const char *surroundings = "ulimit -c 0; ulimit -f 2097152; "
                                     "export ASAN_OPTIONS=detect_leaks=0:abort_on_error=1:allocator_may_return_null=1 "
                                     "UBSAN_OPTIONS=abort_on_error=1:print_stacktrace=1; ";

[[noreturn]] void give_up(const std::string &what)
{
    std::perror(what.c_str());
    std::abort();
}

// A word for the shell; it must have no single quote.
std::string quoted(const std::string &word)
{
    if (word.find('\'') != std::string::npos)
        give_up("quote in " + word);
    return " '" + word + "'";
}

}  // namespace

std::string make_directory()
{
    std::string path = std::filesystem::temp_directory_path().string() + "/quarl-test-XXXXXX";
    if (mkdtemp(path.data()) == nullptr)
        give_up("mkdtemp");
    return path;
}

void remove_directory(const std::string &path)
{
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
}

void write_file(const std::string &path, const std::string &bytes)
{
    std::ofstream file(path, std::ios::binary);
    file << bytes;
    file.close();
    if (!file)
        give_up(path);
}

std::string read_file(const std::string &path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

bool file_exists(const std::string &path)
{
    return std::filesystem::exists(path);
}

std::vector<std::string> list_files(const std::string &directory, std::string_view extension)
{
    std::vector<std::string> paths;
    for (const auto &entry : std::filesystem::directory_iterator(directory))
        if (entry.path().extension() == extension)
            paths.push_back(entry.path().string());
    std::sort(paths.begin(), paths.end());
    return paths;
}

std::vector<std::string> split_lines(std::string_view text)
{
    std::vector<std::string> lines;
    while (!text.empty()) {
        const size_t end = text.find('\n');
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return lines;
}

std::string join_lines(const std::vector<std::string> &lines)
{
    std::string text;
    for (const std::string &line : lines)
        text += line + "\n";
    return text;
}

Result run(const std::string &program, const std::vector<std::string> &arguments, const std::string &directory,
           unsigned seconds)
{
    const std::string capture = make_directory();
    std::string command =
        surroundings + ("cd" + quoted(directory)) + " && exec timeout " + std::to_string(seconds) + quoted(program);
    for (const std::string &argument : arguments)
        command += quoted(argument);
    command += " </dev/null >" + capture + "/out 2>" + capture + "/err";
    const int state = std::system(command.c_str());
    Result result;
    result.status = WIFEXITED(state) ? WEXITSTATUS(state) : -1;
    result.out = read_file(capture + "/out");
    result.err = read_file(capture + "/err");
    remove_directory(capture);
    return result;
}

std::string quarl_binary(const char *built)
{
    const char *chosen = std::getenv("QUARL_BINARY");
    return chosen != nullptr ? chosen : built;
}

std::string describe(const Result &result)
{
    constexpr size_t most_shown = 4000;
    return "exit status " + std::to_string(result.status) + "; standard error:\n" + result.err.substr(0, most_shown);
}

}  // namespace harness
