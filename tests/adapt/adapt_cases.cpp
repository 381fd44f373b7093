// Runs quarl-adapt over the cases of the .txt files beside this one. A case is
//
//     === its name
//     --- in          a module, or
//     --- code        the lines of a function: void @f(i16 %a, i16 %b, float %x, i16* %p)
//     --- out         the whole module, or the function's lines, as they have to come out, or
//     --- errors      LINE: MESSAGE for each message; nothing is written then
//
// Empty lines count for nothing, and neither do the blanks in front of a line.
#include "harness/process.h"
#include "harness/text.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

constexpr unsigned seconds_for_a_case = 60;
constexpr int lines_in_front_of_code = 2;
const std::string code_head = "define void @f(i16 %a, i16 %b, float %x, i16* %p) {\nentry:\n";
const std::string code_tail = "  ret void\n}\n";

struct AdaptCase {
    std::string name;
    bool code = false;
    std::string in;
    bool errors = false;
    std::vector<std::string> expected;
};

using Lines = std::vector<std::string>;

std::string trimmed(const std::string &line)
{
    const std::size_t start = line.find_first_not_of(' ');
    return start == std::string::npos ? std::string() : line.substr(start);
}

Lines meaningful(const Lines &lines)
{
    Lines kept;
    for (const std::string &line : lines) {
        if (!trimmed(line).empty())
            kept.push_back(trimmed(line));
    }
    return kept;
}

std::vector<AdaptCase> read_cases(const std::string &path)
{
    std::vector<AdaptCase> cases;
    bool input = false;
    for (const std::string &line : harness::split_lines(harness::read_file(path))) {
        if (line.starts_with("=== ")) {
            cases.push_back({line.substr(4), false, {}, false, {}});
            input = false;
        } else if (line.starts_with("--- ") && !cases.empty()) {
            input = line == "--- in" || line == "--- code";
            cases.back().code = cases.back().code || line == "--- code";
            cases.back().errors = line == "--- errors";
        } else if (!cases.empty() && input) {
            cases.back().in += line + "\n";
        } else if (!cases.empty() && !trimmed(line).empty()) {
            cases.back().expected.push_back(trimmed(line));
        }
    }
    return cases;
}

// "quarl-adapt: a.ll:12: text" becomes "12: text", with the lines counted from the case's own first one.
Lines messages(const std::string &err, bool code)
{
    const std::string head = "quarl-adapt: a.ll:";
    Lines lines;
    for (const std::string &line : harness::split_lines(err)) {
        const std::size_t colon = line.find(':', head.size());
        if (line.starts_with(head) && colon != std::string::npos) {
            const int number = std::stoi(line.substr(head.size()));
            lines.push_back(std::to_string(code ? number - lines_in_front_of_code : number) + line.substr(colon));
        }
    }
    return lines;
}

// The lines of the function's body, without its frame.
Lines code_of(const std::string &out)
{
    Lines lines = meaningful(harness::split_lines(out));
    const auto frame = [](const std::string &line) {
        return line.starts_with("define ") || line == "entry:" || line == "ret void" || line == "}";
    };
    lines.erase(std::remove_if(lines.begin(), lines.end(), frame), lines.end());
    return lines;
}

void check(const AdaptCase &made)
{
    const std::string directory = harness::make_directory();
    harness::write_file(directory + "/a.ll", made.code ? code_head + made.in + code_tail : made.in);
    const harness::Result result = harness::run(ADAPT_BINARY, {"-o", "out.ll", "a.ll"}, directory, seconds_for_a_case);
    const std::string out = harness::read_file(directory + "/out.ll");
    const bool written = harness::file_exists(directory + "/out.ll");
    harness::remove_directory(directory);
    const Lines actual = made.errors ? messages(result.err, made.code)
                         : made.code ? code_of(out)
                                     : meaningful(harness::split_lines(out));
    EXPECT_EQ(result.status, made.errors ? 1 : 0) << harness::describe(result);
    EXPECT_EQ(written, !made.errors) << "is there an output?";
    if (actual != made.expected) {
        ADD_FAILURE() << "- expected, + actual:\n"
                      << harness::difference(harness::join_lines(made.expected), harness::join_lines(actual));
    }
}

class AdaptTest : public testing::Test {
public:
    explicit AdaptTest(AdaptCase own) : made(std::move(own)) {}
    void TestBody() override { check(made); }

private:
    AdaptCase made;
};

void register_file(const std::filesystem::path &path)
{
    for (const AdaptCase &made : read_cases(path.string())) {
        testing::RegisterTest(("adapt_" + path.stem().string()).c_str(), made.name.c_str(), nullptr, nullptr,
                              path.c_str(), 1, [made]() -> testing::Test * { return new AdaptTest(made); });
    }
}

}  // namespace

int main(int argc, char **argv)
{
    for (const auto &entry : std::filesystem::directory_iterator(ADAPT_CASES)) {
        if (entry.path().extension() == ".txt")
            register_file(entry.path());
    }
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
