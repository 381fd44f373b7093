// Runs tools/quarl-c++ over the cases of shapes.txt: short C or C++, and the body in C of its last function. A case is
//
//     === its name
//     --- c           the source, or c++, or ll: what other front ends or an optimiser may write
//     --- body        the lines between the outermost braces, one tab to the left, or
//     --- errors      what is said where nothing is written
//
// Expectations are what the source means in the style of quarl.
#include "harness/harness.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

struct ShapeCase {
    std::string name, extension, source, body, errors;
};

std::vector<ShapeCase> read_cases()
{
    std::vector<ShapeCase> cases;
    std::string *part = nullptr;
    for (const std::string &line : harness::split_lines(harness::read_file(SHAPE_CASES))) {
        if (line.starts_with("=== ")) {
            cases.push_back({line.substr(4), {}, {}, {}, {}});
            part = nullptr;
        } else if (line == "--- c" || line == "--- c++" || line == "--- ll") {
            cases.back().extension = line == "--- c++" ? ".cpp" : "." + line.substr(4);
            part = &cases.back().source;
        } else if (line == "--- body") {
            part = &cases.back().body;
        } else if (line == "--- errors") {
            part = &cases.back().errors;
        } else if (part != nullptr && !line.empty()) {
            *part += line + "\n";
        }
    }
    return cases;
}

// The lines of the last function's body, without the empty ones and one tab to the left; a label has none to give.
std::string last_body(const std::string &text)
{
    std::string body;
    bool inside = false;
    for (const std::string &line : harness::split_lines(text)) {
        if (line == "\t{") {
            inside = true;
            body.clear();
        } else if (line == "\t}") {
            inside = false;
        } else if (inside && !line.empty()) {
            body += (line[0] == '\t' ? line.substr(1) : line) + "\n";
        }
    }
    return body;
}

harness::Result translate(const std::string &source, const std::string &directory)
{
    if (!source.ends_with(".ll"))
        return harness::run(BRIDGE, {"-o", "out.c", "--", "--target=msp430", "-w", "-g", source}, directory);
    const std::string programs = QUARL_BUILD_DIRECTORY;
    const harness::Result result = harness::run(programs + "/quarl-adapt", {"-o", "adapted.ll", source}, directory);
    return result.status != 0 ? result : harness::run(programs + "/quarl", {"-o", "out.c", "adapted.ll"}, directory);
}

void check(const ShapeCase &made)
{
    const std::string directory = harness::make_directory();
    harness::write_file(directory + "/a" + made.extension, made.source);
    const harness::Result result = translate("a" + made.extension, directory);
    const std::string body = last_body(harness::read_file(directory + "/out.c"));
    harness::remove_directory(directory);
    EXPECT_EQ(result.status, made.errors.empty() ? 0 : 1) << harness::describe(result);
    EXPECT_EQ(made.errors, made.errors.empty() ? std::string() : result.err);
    EXPECT_EQ(made.body, body);
}

class ShapeTest : public testing::Test {
public:
    explicit ShapeTest(ShapeCase own) : made(std::move(own)) {}
    void TestBody() override { check(made); }

private:
    ShapeCase made;
};

}  // namespace

int main(int argc, char **argv)
{
    setenv("QUARL_BUILD", QUARL_BUILD_DIRECTORY, 1);
    for (const ShapeCase &made : read_cases()) {
        testing::RegisterTest("shape", made.name.c_str(), nullptr, nullptr, SHAPE_CASES, 1,
                              [made]() -> testing::Test * { return new ShapeTest(made); });
    }
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
