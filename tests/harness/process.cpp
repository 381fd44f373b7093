#include "harness/process.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

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

constexpr rlim_t largest_file = 1U << 30;  // a runaway output must not fill the disk

[[noreturn]] void give_up(const std::string &what)
{
    std::perror(what.c_str());
    std::abort();
}

void redirect(const char *path, int flags, int descriptor)
{
    const int opened = open(path, flags, 0600);
    if (opened < 0 || dup2(opened, descriptor) < 0)
        _exit(126);
    close(opened);
}

// In the child: a sanitizer's report ends in a signal, so that no report passes for quarl's own status 1.
[[noreturn]] void become(char *const *argv, const std::string &directory, const std::string &capture, unsigned seconds)
{
    setenv("ASAN_OPTIONS", "detect_leaks=0:abort_on_error=1:allocator_may_return_null=1", 1);
    setenv("UBSAN_OPTIONS", "abort_on_error=1:print_stacktrace=1", 1);
    const rlimit files = {largest_file, largest_file};
    setrlimit(RLIMIT_FSIZE, &files);
    const rlimit cores = {0, 0};
    setrlimit(RLIMIT_CORE, &cores);
    redirect("/dev/null", O_RDONLY, STDIN_FILENO);
    redirect((capture + "/out").c_str(), O_WRONLY | O_CREAT | O_TRUNC, STDOUT_FILENO);
    redirect((capture + "/err").c_str(), O_WRONLY | O_CREAT | O_TRUNC, STDERR_FILENO);
    if (chdir(directory.c_str()) != 0)
        _exit(126);
    alarm(seconds);
    execv(argv[0], argv);
    _exit(127);
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

Result run(const std::string &program, const std::vector<std::string> &arguments, const std::string &directory,
           unsigned seconds)
{
    std::vector<std::string> words = {program};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char *> argv;
    for (std::string &word : words)
        argv.push_back(word.data());
    argv.push_back(nullptr);

    const std::string capture = make_directory();
    const pid_t child = fork();
    if (child < 0)
        give_up("fork");
    if (child == 0)
        become(argv.data(), directory, capture, seconds);
    int state = 0;
    while (waitpid(child, &state, 0) < 0) {
        if (errno != EINTR)
            give_up("waitpid");
    }
    Result result;
    if (WIFSIGNALED(state))
        result.signal = WTERMSIG(state);
    else
        result.status = WEXITSTATUS(state);
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
    std::string text = result.signal != 0 ? "ended by signal " + std::to_string(result.signal)
                                          : "exit status " + std::to_string(result.status);
    if (!result.err.empty())
        text += "; standard error:\n" + result.err.substr(0, most_shown);
    return text;
}

}  // namespace harness
