#include "harness/casefile.h"

#include "harness/process.h"
#include "harness/text.h"

#include <algorithm>
#include <array>
#include <sstream>
#include <string_view>

namespace harness {

namespace {

constexpr std::array<std::string_view, 8> kinds = {"body",         "section", "file",   "errors",
                                                   "stage errors", "stdout",  "stderr", "status"};

struct Reader {
    std::string path;
    std::vector<std::string> lines;
    size_t at = 0;
    std::vector<std::string> prelude;
    std::vector<std::string> *problems = nullptr;
};

void complain(Reader &reader, size_t line, const std::string &what)
{
    reader.problems->push_back(reader.path + ":" + std::to_string(line + 1) + ": " + what);
}

bool is_marker(const std::string &line)
{
    return line.starts_with("=== ") || line.starts_with("--- ");
}

// Takes the lines up to the next marker. Empty lines in front of it only set it off, unless `exact`.
std::vector<std::string> take_text(Reader &reader, bool exact)
{
    std::vector<std::string> text;
    while (reader.at < reader.lines.size() && !is_marker(reader.lines[reader.at]))
        text.push_back(reader.lines[reader.at++]);
    if (!exact)
        drop_blank_tail(text);
    return text;
}

// Takes a whole file's text, which ends at a line of its own so that its last empty lines count.
std::vector<std::string> take_file(Reader &reader)
{
    const size_t start = reader.at;
    std::vector<std::string> text = take_text(reader, true);
    if (reader.at == reader.lines.size() || reader.lines[reader.at] != "--- end")
        complain(reader, start, "a file's text ends at \"--- end\"");
    else
        reader.at++;
    if (!take_text(reader, false).empty())
        complain(reader, reader.at - 1, "only a marker follows \"--- end\"");
    return text;
}

// Splits "section functions" into the kind and its argument; an unknown kind stays empty.
Expectation parse_kind(const std::string &marker)
{
    Expectation found;
    for (const std::string_view kind : kinds) {
        if (!marker.starts_with(kind))
            continue;
        const std::string rest = marker.substr(kind.size());
        if (rest.empty() || rest.front() == ' ') {
            found.kind = kind;
            found.argument = rest.empty() ? "" : rest.substr(1);
        }
    }
    return found;
}

void read_keys(Reader &reader, Case &made)
{
    for (; reader.at < reader.lines.size() && !is_marker(reader.lines[reader.at]); reader.at++) {
        std::istringstream words(reader.lines[reader.at]);
        std::string key;
        words >> key;
        std::string word;
        if (key == "options:") {
            while (words >> word)
                made.options.push_back(word);
        } else if (key == "output:") {
            words >> made.output;
        } else if (!key.empty()) {
            complain(reader, reader.at, "expected options: or output: in front of the IR");
        }
    }
}

void read_expectations(Reader &reader, Case &made)
{
    while (reader.at < reader.lines.size() && reader.lines[reader.at].starts_with("--- ")) {
        Expectation next = parse_kind(reader.lines[reader.at].substr(4));
        if (next.kind.empty())
            complain(reader, reader.at, "unknown marker " + reader.lines[reader.at]);
        reader.at++;
        next.text = join_lines(next.kind == "file" ? take_file(reader) : take_text(reader, false));
        made.expectations.push_back(next);
    }
    if (made.expectations.empty())
        complain(reader, reader.at - 1, "the case \"" + made.name + "\" expects nothing");
}

Case read_case(Reader &reader)
{
    Case made;
    made.file = reader.path;
    made.line = static_cast<int>(reader.at) + 1;
    made.name = reader.lines[reader.at++].substr(4);
    read_keys(reader, made);
    if (reader.at == reader.lines.size() || reader.lines[reader.at] != "--- ir") {
        complain(reader, reader.at - 1, "the case \"" + made.name + "\" has no --- ir");
        take_text(reader, false);
    } else {
        reader.at++;
        made.prelude = static_cast<int>(reader.prelude.size());
        made.ir = join_lines(reader.prelude) + join_lines(take_text(reader, false));
    }
    read_expectations(reader, made);
    return made;
}

}  // namespace

std::vector<Case> read_cases(const std::string &path, std::vector<std::string> &problems)
{
    Reader reader;
    reader.path = path;
    reader.lines = split_lines(read_file(path));
    reader.problems = &problems;
    take_text(reader, false);  // what stands in front of the first marker tells a reader what the file is about
    std::vector<Case> cases;
    while (reader.at < reader.lines.size()) {
        if (reader.lines[reader.at].starts_with("=== ")) {
            cases.push_back(read_case(reader));
        } else if (reader.lines[reader.at] == "--- prelude" && cases.empty()) {
            reader.at++;
            reader.prelude = take_text(reader, false);
        } else {
            complain(reader, reader.at++, "expected === and the name of a case");
        }
    }
    return cases;
}

}  // namespace harness
