// Runs the cases of tests/cases, each as a test of its own: the suite is the file's name, the test the case's name.
#include "harness/casefile.h"
#include "harness/process.h"
#include "harness/text.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <gtest/gtest.h>
#include <optional>
#include <set>
#include <string>
#include <vector>

using harness::Case;
using harness::Expectation;
using harness::Result;

namespace {

using Lines = std::vector<std::string>;

constexpr unsigned seconds_for_a_case = 60;

struct SectionHead {
    const char *name;
    const char *head;  // first of the two lines that open the section
};

constexpr std::array<SectionHead, 5> section_heads = {{
    {"structures", "/*\tstructures definitions"},
    {"aliases", "/*\talias definitions"},
    {"externs", "/*\texterns definitions"},
    {"variables", "/*\tvariables definitions"},
    {"functions", "/*\tfunctions definitions"},
}};

bool is_section_head(const std::string &line)
{
    return std::any_of(section_heads.begin(), section_heads.end(),
                       [&](const SectionHead &row) { return line == row.head; });
}

// The includes have no head: they stand behind the comment lines that open the file.
Lines::const_iterator section_start(const Lines &output, const std::string &name)
{
    if (name == "includes")
        return std::find_if(output.begin(), output.end(), [](const std::string &l) { return !l.starts_with("//"); });
    for (const SectionHead &row : section_heads) {
        if (name != row.name)
            continue;
        const auto head = std::find(output.begin(), output.end(), row.head);
        return output.end() - head < 2 ? output.end() : head + 2;
    }
    ADD_FAILURE() << "no section is called " << name;
    return output.end();
}

// A section's lines behind its head; an absent section has none.
Lines section_of(const Lines &output, const std::string &name)
{
    const auto start = section_start(output, name);
    Lines lines(start, std::find_if(start, output.end(), is_section_head));
    harness::drop_blank_tail(lines);
    return lines;
}

// A head names its function in front of the parameter list: "int *@inline f(int a)".
bool is_head_of(const std::string &line, const std::string &name)
{
    const size_t at = line.find(name + "(");
    if (name.empty() || at == std::string::npos)
        return name.empty();
    return at == 0 || (std::isalnum(static_cast<unsigned char>(line[at - 1])) == 0 && line[at - 1] != '_');
}

// The lines between the outermost braces of a function, of the last one if no name is given, one tab to the left.
// A line that has no tab to give, a label at the outermost level, gets a "<" instead, so that no shift goes unseen.
std::optional<Lines> body_of(const Lines &output, const std::string &name)
{
    const Lines functions = section_of(output, "functions");
    std::optional<Lines> body;
    for (size_t i = 1; i < functions.size(); i++) {
        if (functions[i] != "\t{" || !is_head_of(functions[i - 1], name))
            continue;
        body = Lines();
        for (i++; i < functions.size() && functions[i] != "\t}"; i++) {
            const std::string &line = functions[i];
            if (line.empty())
                body->push_back(line);
            else
                body->push_back(line.front() == '\t' ? line.substr(1) : "<" + line);
        }
    }
    return body;
}

// "#error quarl a.ll:12 text" becomes "12: text". A message that ends in a newline of its own leaves an empty line
// behind it, which is shown as \n at its end.
Lines abbreviate(const std::string &err, int prelude)
{
    const std::string head = "#error quarl a.ll:";
    Lines lines;
    for (const std::string &line : harness::split_lines(err)) {
        const size_t blank = line.find(' ', head.size());
        if (line.empty() && !lines.empty())
            lines.back() += "\\n";
        else if (line.starts_with(head) && blank != std::string::npos)
            lines.push_back(std::to_string(std::stol(line.substr(head.size())) - prelude) + ": " +
                            line.substr(blank + 1));
        else
            lines.push_back(line);
    }
    return lines;
}

void compare(const std::string &what, const std::string &expected, const std::string &actual)
{
    if (expected != actual)
        ADD_FAILURE() << what << " differs (- expected, + actual):\n" << harness::difference(expected, actual);
}

// How one run of quarl is judged: what it left, and what the case says about it.
struct Outcome {
    Result result;
    bool written = false;  // there is an output file
    std::string output;
};

void check_body(const Case &made, const Expectation &expected, const Lines &output)
{
    const std::optional<Lines> body = body_of(output, expected.argument);
    if (!body)
        ADD_FAILURE() << "the output of " << made.name << " has no function " << expected.argument;
    else
        compare("body", expected.text, harness::join_lines(*body));
}

void check_errors(const Case &made, const Expectation &expected, const Outcome &outcome)
{
    compare("standard error", expected.text, harness::join_lines(abbreviate(outcome.result.err, made.prelude)));
    EXPECT_EQ(outcome.written, expected.kind == "stage errors") << "is there an output file?";
}

void check(const Case &made, const Expectation &expected, const Outcome &outcome)
{
    if (expected.kind == "body")
        check_body(made, expected, harness::split_lines(outcome.output));
    else if (expected.kind == "section")
        compare("section " + expected.argument, expected.text,
                harness::join_lines(section_of(harness::split_lines(outcome.output), expected.argument)));
    else if (expected.kind == "file")
        compare("output file", expected.text, outcome.output);
    else if (expected.kind == "errors" || expected.kind == "stage errors")
        check_errors(made, expected, outcome);
    else if (expected.kind == "stdout")
        compare("standard output", expected.text, outcome.result.out);
    else if (expected.kind == "stderr")
        compare("standard error", expected.text, outcome.result.err);
}

bool expects(const Case &made, const std::string &kind)
{
    return std::any_of(made.expectations.begin(), made.expectations.end(),
                       [&](const Expectation &expected) { return expected.kind == kind; });
}

int expected_status(const Case &made)
{
    for (const Expectation &expected : made.expectations)
        if (expected.kind == "status")
            return std::stoi(expected.argument);
    return expects(made, "errors") || expects(made, "stage errors") ? 1 : 0;
}

Outcome run_case(const Case &made)
{
    const std::string directory = harness::make_directory();
    harness::write_file(directory + "/a.ll", made.ir);
    Lines arguments = made.options;
    if (made.output.empty())
        arguments.insert(arguments.end(), {"-o", "a.c"});
    arguments.emplace_back("a.ll");
    Outcome outcome;
    outcome.result = harness::run(harness::quarl_binary(QUARL_BINARY), arguments, directory, seconds_for_a_case);
    const std::string path = directory + "/" + (made.output.empty() ? "a.c" : made.output);
    outcome.written = harness::file_exists(path);
    outcome.output = harness::read_file(path);
    harness::remove_directory(directory);
    return outcome;
}

class CaseTest : public testing::Test {
public:
    explicit CaseTest(const Case &tested) : made(tested) {}
    void TestBody() override
    {
        SCOPED_TRACE(made.file + ":" + std::to_string(made.line));
        const Outcome outcome = run_case(made);
        EXPECT_EQ(outcome.result.status, expected_status(made)) << harness::describe(outcome.result);
        for (const Expectation &expected : made.expectations)
            check(made, expected, outcome);
        if (!expects(made, "stdout"))
            compare("standard output", "", outcome.result.out);
        if (!expects(made, "stderr") && !expects(made, "errors") && !expects(made, "stage errors"))
            compare("standard error", "", outcome.result.err);
    }

private:
    const Case &made;
};

class CaseFilesTest : public testing::Test {
public:
    explicit CaseFilesTest(const Lines &found) : problems(found) {}
    void TestBody() override { EXPECT_TRUE(problems.empty()) << harness::join_lines(problems); }

private:
    const Lines &problems;
};

std::string plain_name(std::string text)
{
    std::replace_if(
        text.begin(), text.end(), [](char c) { return std::isalnum(static_cast<unsigned char>(c)) == 0; }, '_');
    return text;
}

std::vector<Case> read_all(Lines &problems)
{
    std::set<std::filesystem::path> files;
    for (const auto &entry : std::filesystem::directory_iterator(QUARL_SOURCE_DIR "/tests/cases"))
        if (entry.path().extension() == ".txt")
            files.insert(entry.path());
    std::vector<Case> all;
    for (const std::filesystem::path &file : files) {
        std::set<std::string> names;
        for (Case &made : harness::read_cases(file.string(), problems)) {
            if (!names.insert(plain_name(made.name)).second)
                problems.push_back(made.file + ": two cases are called " + made.name);
            else
                all.push_back(std::move(made));
        }
    }
    return all;
}

void register_case(const Case &made)
{
    const std::string suite = plain_name(std::filesystem::path(made.file).stem().string());
    testing::RegisterTest(suite.c_str(), plain_name(made.name).c_str(), nullptr, nullptr, made.file.c_str(), made.line,
                          [&made]() -> testing::Test * { return new CaseTest(made); });
}

}  // namespace

int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    Lines problems;
    const std::vector<Case> cases = read_all(problems);
    for (const Case &made : cases)
        register_case(made);
    testing::RegisterTest("case_files", "are_well_formed", nullptr, nullptr, __FILE__, __LINE__,
                          [&problems]() -> testing::Test * { return new CaseFilesTest(problems); });
    return RUN_ALL_TESTS();
}
