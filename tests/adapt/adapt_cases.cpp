// Runs quarl-adapt over the cases of the .txt files beside this one. A case is
//
//     === its name
//     --- module      a whole one, or
//     --- code        the lines of a function: void @f(i16 %a, i16 %b, float %x, i16* %p)
//     --- errors      LINE: MESSAGE for each message; nothing is written then
//     --- tail        the C that has to follow quarl's
//
// Of a module or code, lines that begin with "- " go in, those with "+ " have to come out, and those with two blanks do
// both. Empty lines count for nothing, and neither do blanks behind these two columns in what comes out.
#include "harness/harness.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

constexpr int lines_in_front_of_code = 2;
const std::string code_head = "define void @f(i16 %a, i16 %b, float %x, i16* %p) {\nentry:\n";
const std::string code_tail = "  ret void\n}\n";

struct AdaptCase {
    std::string name;
    bool code = false;
    std::string in, out, errors, tail;
};

// The lines that aren't empty, with a newline behind each and no blanks in front.
std::string meaningful(const std::string &text)
{
    std::string kept;
    for (const std::string &line : harness::split_lines(text)) {
        const std::size_t start = line.find_first_not_of(' ');
        if (start != std::string::npos)
            kept += line.substr(start) + "\n";
    }
    return kept;
}

std::vector<AdaptCase> read_cases(const std::string &path)
{
    std::vector<AdaptCase> cases;
    std::string part;
    for (const std::string &line : harness::split_lines(harness::read_file(path))) {
        if (line.starts_with("=== ")) {
            cases.push_back({line.substr(4), false, {}, {}, {}, {}});
        } else if (line.size() < 3 || cases.empty()) {
            continue;
        } else if (line.starts_with("--- ")) {
            part = line.substr(4);
            cases.back().code = cases.back().code || line == "--- code";
        } else if (part == "errors" || part == "tail") {
            (part == "errors" ? cases.back().errors : cases.back().tail) += line + "\n";
        } else {
            if (line[0] != '+')
                cases.back().in += line.substr(2) + "\n";
            if (line[0] != '-')
                cases.back().out += line.substr(2) + "\n";
        }
    }
    return cases;
}

// "a.ll:12: error: text" becomes "12: text", with the lines counted from the case's own first one.
std::string messages(const std::string &err, bool code)
{
    const std::string head = "a.ll:", word = ": error: ";
    std::string lines;
    for (const std::string &line : harness::split_lines(err)) {
        const std::size_t text = line.find(word);
        if (line.starts_with(head) && text != std::string::npos) {
            const int number = std::stoi(line.substr(head.size()));
            lines += std::to_string(code ? number - lines_in_front_of_code : number) + ": " +
                     line.substr(text + word.size()) + "\n";
        }
    }
    return lines;
}

void check(const AdaptCase &made)
{
    const std::string head = made.code ? code_head : "", tail = made.code ? code_tail : "";
    const std::string directory = harness::make_directory();
    harness::write_file(directory + "/a.ll", head + made.in + tail);
    const harness::Result result =
        harness::run(ADAPT_BINARY, {"--verify", "--tail", "tail.c", "-o", "out.ll", "a.ll"}, directory);
    const bool written = harness::file_exists(directory + "/out.ll");
    const std::string out = meaningful(harness::read_file(directory + "/out.ll"));
    const std::string c_tail = harness::read_file(directory + "/tail.c");
    harness::remove_directory(directory);
    const bool refused = !made.errors.empty();
    const std::string expected = refused ? made.errors : meaningful(head + made.out + tail);
    EXPECT_EQ(result.status, refused ? 1 : 0) << harness::describe(result);
    EXPECT_EQ(written, !refused) << "is there an output?";
    EXPECT_EQ(made.tail, c_tail);
    EXPECT_EQ(expected, refused ? messages(result.err, made.code) : out);
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
