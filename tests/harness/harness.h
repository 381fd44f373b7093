// What the tests share: files in a directory of their own, texts as lines, and programs that are run there with a time
// limit and their output captured.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace harness {

struct Result {
    int status = -1;  // exit status; 124 when the time was up, -1 when a signal ended the process
    std::string out;  // standard output
    std::string err;  // standard error
};

// Makes an empty directory and gives its path, with no slash at its end.
std::string make_directory();

// Removes a directory made by make_directory and all that it holds.
void remove_directory(const std::string &path);

// Writes the bytes as they are. Fails the run of the tests if it can't.
void write_file(const std::string &path, const std::string &bytes);

// Gives the bytes of a file; an absent file reads as empty.
std::string read_file(const std::string &path);

bool file_exists(const std::string &path);

// The paths of the files in a directory whose names end in `extension`, in order.
std::vector<std::string> list_files(const std::string &directory, std::string_view extension);

// Splits after each newline, and drops the newlines. A last line needs none.
std::vector<std::string> split_lines(std::string_view text);

// Gives the lines with a newline after each.
std::string join_lines(const std::vector<std::string> &lines);

// Runs program with the arguments in directory, with no standard input, and ends it after `seconds`.
Result run(const std::string &program, const std::vector<std::string> &arguments, const std::string &directory,
           unsigned seconds = 60);

// The quarl to test: the environment's QUARL_BINARY, or else the one that was built.
std::string quarl_binary(const char *built);

// Says how the process ended, and what it wrote to standard error.
std::string describe(const Result &result);

}  // namespace harness
