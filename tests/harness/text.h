// Texts as lists of lines, and the difference of two of them for a person to read.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace harness {

// Splits behind each newline; the newlines themselves go. A last line needs no newline.
std::vector<std::string> split_lines(std::string_view text);

// Gives the lines with a newline behind each.
std::string join_lines(const std::vector<std::string> &lines);

// Takes the empty lines off the end.
void drop_blank_tail(std::vector<std::string> &lines);

// Lists both texts line by line: "-" is only in expected, "+" only in actual.
std::string difference(const std::string &expected, const std::string &actual);

}  // namespace harness
