// The case files under tests/cases: many short modules, each with what quarl is expected to make of it.
//
//     === name of the case
//     options: -h -u
//     --- ir
//     define void @f() {
//       ret void
//     }
//     --- body
//     return;
//
// README.md lists the expectations that can follow the IR.
#pragma once

#include <string>
#include <vector>

namespace harness {

struct Expectation {
    std::string kind;      // "body", "section", "file", "errors", "stage errors", "stdout", "stderr", "status"
    std::string argument;  // the section's or function's name, or the status
    std::string text;      // the lines below, each with its newline
};

struct Case {
    std::string file;  // path of the case file
    int line = 0;      // where its === stands there
    std::string name;
    std::vector<std::string> options;
    std::string output;  // expected name of the output file; empty: -o a.c is given
    std::string ir;      // with the file's prelude in front
    int prelude = 0;     // how many lines of ir are the prelude's
    std::vector<Expectation> expectations;
};

// Reads one case file. What is wrong with it is appended to problems, one line for each.
std::vector<Case> read_cases(const std::string &path, std::vector<std::string> &problems);

}  // namespace harness
