// Runs the cases of tests/cases, each as a test of its own: the suite is the file's name, the test the case's name.
// README.md describes the files. After ";! " the IR has an error that is expected at its line.
#include "harness/harness.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

namespace {

using Lines = std::vector<std::string>;

struct Expectation {
    std::string kind;      // "body", "heads", "section" or "file"
    std::string argument;  // the section's or function's name
    Lines text;
};

struct Case {
    std::string file;  // path of the case file
    int line = 0;      // of its === there
    std::string name;
    Lines options;
    Lines ir;
    Lines errors;  // "12: message"
    std::vector<Expectation> expectations;
};

struct Reader {
    std::string path;
    Lines lines;
    size_t at = 0;
};

void drop_blank_tail(Lines &lines)
{
    while (!lines.empty() && lines.back().empty())
        lines.pop_back();
}

[[noreturn]] void reject(const Reader &reader, const std::string &what)
{
    std::cerr << reader.path << ":" << reader.at + 1 << ": " << what << "\n";
    std::exit(EXIT_FAILURE);
}

bool at_line(const Reader &reader, const std::string &start)
{
    return reader.at < reader.lines.size() && reader.lines[reader.at].starts_with(start);
}

// Takes the lines up to the next marker.
Lines take_text(Reader &reader)
{
    Lines text;
    while (reader.at < reader.lines.size() && !at_line(reader, "=== ") && !at_line(reader, "--- "))
        text.push_back(reader.lines[reader.at++]);
    return text;
}

// Splits the IR at " | " into its lines, and from the errors that follow them. The errors belong to the last of the
// lines; where there is none, to the line above.
void take_ir(Case &made, const Lines &text)
{
    const std::string bar = " | ";
    const std::string mark = ";! ";
    for (const std::string &line : text) {
        size_t at = line.find(mark);
        std::string code = line.substr(0, at);
        for (size_t end = code.find(bar); end != std::string::npos; end = code.find(bar)) {
            made.ir.push_back(code.substr(0, end));
            code.erase(0, end + bar.size());
        }
        if (at != 0)
            made.ir.push_back(code);
        while (at != std::string::npos) {
            const size_t start = at + mark.size();
            at = line.find(" " + mark, start);
            made.errors.push_back(std::to_string(made.ir.size()) + ": " + line.substr(start, at - start));
            at += at == std::string::npos ? 0 : 1;
        }
    }
}

// Empty lines before the next marker are no part of the text; of a whole file only the last one isn't.
Expectation take_expectation(Reader &reader)
{
    Expectation made;
    std::istringstream(reader.lines[reader.at].substr(4)) >> made.kind >> made.argument;
    if (made.kind != "body" && made.kind != "heads" && made.kind != "section" && made.kind != "file")
        reject(reader, "unknown marker");
    reader.at++;
    made.text = take_text(reader);
    if (made.kind != "file")
        drop_blank_tail(made.text);
    else if (reader.at < reader.lines.size() && !made.text.empty())
        made.text.pop_back();
    return made;
}

Case take_case(Reader &reader)
{
    Case made;
    made.file = reader.path;
    made.line = static_cast<int>(reader.at) + 1;
    made.name = reader.lines[reader.at++].substr(4);
    if (at_line(reader, "options: ")) {
        std::istringstream words(reader.lines[reader.at++].substr(9));
        for (std::string word; words >> word;)
            made.options.push_back(word);
    }
    if (!at_line(reader, "--- ir"))
        reject(reader, "expected --- ir");
    reader.at++;
    take_ir(made, take_text(reader));
    drop_blank_tail(made.ir);
    while (at_line(reader, "--- "))
        made.expectations.push_back(take_expectation(reader));
    if (made.expectations.empty() && made.errors.empty())
        reject(reader, "\"" + made.name + "\" expects nothing");
    return made;
}

bool is_section_head(const std::string &line)
{
    return line.starts_with("/*\t") && line.ends_with(" definitions");
}

// A section's lines after its two-line head; an absent section has none. The includes have no head: they follow the
// comment lines at the start of the file.
Lines section_of(const Lines &output, const std::string &name)
{
    auto start = output.begin();
    if (name == "includes") {
        start = std::find_if(start, output.end(), [](const std::string &line) { return !line.starts_with("//"); });
    } else {
        start = std::find(start, output.end(), "/*\t" + (name == "aliases" ? "alias" : name) + " definitions");
        start = output.end() - start < 2 ? output.end() : start + 2;
    }
    Lines lines(start, std::find_if(start, output.end(), is_section_head));
    drop_blank_tail(lines);
    return lines;
}

// A head has the function's name before the parameter list: "int *f(int a)".
bool is_head_of(const std::string &line, const std::string &name)
{
    return name.empty() || line.find(" " + name + "(") != std::string::npos ||
           line.find("*" + name + "(") != std::string::npos;
}

// The lines between the outermost braces of a function, of the last one if no name is given, one tab to the left.
// A line without a tab, a label at the outermost level, gets a "<" instead, so that each indentation is compared.
Lines body_of(const Lines &output, const std::string &name)
{
    const Lines functions = section_of(output, "functions");
    Lines body = {"no function " + name};
    for (size_t i = 1; i < functions.size(); i++) {
        if (functions[i] != "\t{" || !is_head_of(functions[i - 1], name))
            continue;
        body.clear();
        for (i++; i < functions.size() && functions[i] != "\t}"; i++) {
            const std::string &line = functions[i];
            if (line.empty())
                body.push_back(line);
            else
                body.push_back(line.front() == '\t' ? line.substr(1) : "<" + line);
        }
    }
    return body;
}

// The functions section without its bodies and empty lines.
Lines heads_of(const Lines &output, const std::string & /*argument*/)
{
    Lines heads;
    bool in_body = false;
    for (const std::string &line : section_of(output, "functions")) {
        in_body |= line == "\t{";
        if (!in_body && !line.empty())
            heads.push_back(line);
        in_body &= line != "\t}";
    }
    return heads;
}

// "#error quarl a.ll:12 text" becomes "12: text". A message that ends in a newline of its own is followed by an
// empty line, which is shown as \n at its end.
Lines abbreviate(const std::string &err)
{
    const std::string head = "#error quarl a.ll:";
    Lines lines;
    for (std::string line : harness::split_lines(err)) {
        if (line.empty() && !lines.empty()) {
            lines.back() += "\\n";
            continue;
        }
        if (line.starts_with(head))
            line = line.substr(head.size()).insert(line.find(' ', head.size()) - head.size(), ":");
        lines.push_back(line);
    }
    return lines;
}

void compare(const std::string &what, const Lines &expected, const Lines &actual)
{
    EXPECT_EQ(harness::join_lines(expected), harness::join_lines(actual)) << what;
}

void check(const Expectation &expected, const Lines &output)
{
    const bool file = expected.kind == "file";
    const auto part_of = expected.kind == "body" ? body_of : expected.kind == "heads" ? heads_of : section_of;
    compare(expected.kind + " " + expected.argument, expected.text, file ? output : part_of(output, expected.argument));
}

class CaseTest : public testing::Test {
public:
    explicit CaseTest(const Case &tested) : made(tested) {}
    void TestBody() override
    {
        SCOPED_TRACE(made.file + ":" + std::to_string(made.line));
        const std::string directory = harness::make_directory();
        harness::write_file(directory + "/a.ll", harness::join_lines(made.ir));
        Lines arguments = made.options;
        arguments.insert(arguments.end(), {"-o", "a.c", "a.ll"});
        const harness::Result result = harness::run(harness::quarl_binary(QUARL_BINARY), arguments, directory);
        const bool written = harness::file_exists(directory + "/a.c");
        const Lines output = harness::split_lines(harness::read_file(directory + "/a.c"));
        harness::remove_directory(directory);
        EXPECT_EQ(result.status, made.errors.empty() ? 0 : 1) << harness::describe(result);
        compare("standard error", made.errors, abbreviate(result.err));
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(written, !made.expectations.empty()) << "is there an output file?";
        for (const Expectation &expected : made.expectations)
            check(expected, output);
    }

private:
    const Case &made;
};

std::string plain_name(std::string text)
{
    std::replace_if(
        text.begin(), text.end(), [](char c) { return std::isalnum(static_cast<unsigned char>(c)) == 0; }, '_');
    return text;
}

// The text before the first case describes the file.
std::vector<Case> read_all()
{
    std::vector<Case> all;
    for (const std::string &file : harness::list_files(QUARL_SOURCE_DIR "/tests/cases", ".txt")) {
        Reader reader = {file, harness::split_lines(harness::read_file(file))};
        for (take_text(reader); reader.at < reader.lines.size();)
            all.push_back(take_case(reader));
    }
    return all;
}

}  // namespace

int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    const std::vector<Case> cases = read_all();
    for (const Case &made : cases) {
        const std::string suite = plain_name(std::filesystem::path(made.file).stem().string());
        testing::RegisterTest(suite.c_str(), plain_name(made.name).c_str(), nullptr, nullptr, made.file.c_str(),
                              made.line, [&made]() -> testing::Test * { return new CaseTest(made); });
    }
    return RUN_ALL_TESTS();
}
