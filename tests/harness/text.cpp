#include "harness/text.h"

#include "harness/process.h"

namespace harness {

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

void drop_blank_tail(std::vector<std::string> &lines)
{
    while (!lines.empty() && lines.back().empty())
        lines.pop_back();
}

std::string difference(const std::string &expected, const std::string &actual)
{
    const std::string directory = make_directory();
    write_file(directory + "/expected", expected);
    write_file(directory + "/actual", actual);
    const Result diff = run("/usr/bin/diff", {"-U1000", "expected", "actual"}, directory, 60);
    remove_directory(directory);
    return diff.out;
}

}  // namespace harness
