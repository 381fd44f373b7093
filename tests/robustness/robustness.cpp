// Whatever the input holds, quarl ends in time with status 0 or 1, and status 1 never comes without a message.
#include "harness/process.h"
#include "harness/text.h"
#include "robustness/inputs.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

using robustness::Input;

namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr unsigned seconds_allowed = 180;
#else
constexpr unsigned seconds_allowed = 30;
#endif

const std::vector<std::vector<std::string>> option_sets = {{}, {"-u", "-h"}, {"-ll"}, {"-i", "-mc"}};

// Keeps a failing input beside the test's own output, where it can be run by hand.
std::string keep(const std::string &text)
{
    const std::string path = harness::make_directory() + "/a.ll";
    harness::write_file(path, text);
    return path;
}

void survive(const Input &input, const std::vector<std::string> &options)
{
    const std::string directory = harness::make_directory();
    harness::write_file(directory + "/a.ll", input.text);
    std::vector<std::string> arguments = options;
    arguments.insert(arguments.end(), {"-o", "a.c", "a.ll"});
    const harness::Result result =
        harness::run(harness::quarl_binary(QUARL_BINARY), arguments, directory, seconds_allowed);
    const bool written = harness::file_exists(directory + "/a.c");
    harness::remove_directory(directory);
    const bool sound =
        result.status == 0 ? written && result.err.empty() : result.status == 1 && result.err.starts_with("#error ");
    if (!sound)
        ADD_FAILURE() << input.name << ": " << harness::describe(result) << "\nkept in " << keep(input.text);
}

void survive_all(const std::vector<Input> &inputs)
{
    for (size_t i = 0; i < inputs.size() && !testing::Test::HasFailure(); i++)
        survive(inputs[i], option_sets[i % option_sets.size()]);
}

// The modules to damage: what a real front end wrote.
std::vector<Input> modules()
{
    std::vector<Input> found;
    for (const auto &entry : std::filesystem::directory_iterator(QUARL_SOURCE_DIR "/examples"))
        if (entry.path().extension() == ".ll")
            found.push_back({entry.path().filename().string(), harness::read_file(entry.path().string())});
    std::sort(found.begin(), found.end(), [](const Input &a, const Input &b) { return a.name < b.name; });
    return found;
}

TEST(robustness, whole_modules)
{
    for (const Input &module : modules())
        for (const std::vector<std::string> &options : option_sets)
            survive(module, options);
}

TEST(robustness, truncated_modules)
{
    for (const Input &module : modules())
        survive_all(robustness::truncations(module, 60));
}

TEST(robustness, mutated_modules)
{
    uint32_t seed = 1;
    for (const Input &module : modules())
        survive_all(robustness::mutations(module, 100, seed++));
}

TEST(robustness, random_bytes)
{
    survive_all(robustness::random_bytes(24, 7));
}

TEST(robustness, long_lines)
{
    survive_all(robustness::long_lines(10000000));
}

TEST(robustness, deep_nests)
{
    survive_all(robustness::nests(1000));
    survive_all(robustness::nests(300000));
}

TEST(robustness, deep_functions)
{
    survive_all(robustness::deep_functions(20000));
}

}  // namespace
