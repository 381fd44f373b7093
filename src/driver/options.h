// The option engine: a small table-driven command-line parser.
#pragma once

#include <cstddef>
#include <span>
#include <variant>

// One value of a list option.
struct OptionWord {
    long number;       // the number, character or 1
    const char *text;  // the string of a `*`, otherwise null
};

// The target of a list option (`>`): filled from the last slot to the first.
struct OptionList {
    std::size_t free_slots;
    std::span<OptionWord> slots;
};

// A pattern with its help text, and where the value goes. The pattern runs to the first blank, tab or NUL:
//   *   a string: the rest of the argument, or the whole next argument
//   #   a number taken from the same place; ## the same
//   ?   the next character, 0 at the end of the argument
//   >   the value goes to a list; ends the pattern
//   any other character stands for itself
// A leading `<` hides the option from the usage text. A flag stores 1.
struct OptionPattern {
    const char *pattern;
    std::variant<int *, const char **, OptionList *> target;
};

// Parses the command line. `title` heads the banner, `file` describes the file arguments in the usage line (null: an
// unknown option ends the parsing and nothing is expanded). On return `argv` points at the first file argument and
// `argc` counts the file arguments. Unknown options, bad numbers, -help, -vers and an empty command line end the
// process with status 1.
void getoptions(int &argc, char **&argv, const char *title, const char *file, std::span<const OptionPattern> patterns);

// Derives prog_name from a path: the part after the last slash or backslash up to the first dot, in lower case.
void setprogname(const char *path);

// Replaces each argument with `*` or `?` by the names that it matches, in byte order, lower-cased.
void expandargs(int &argc, char **&argv);

// Reads a number with optional white space and sign. Base 1 takes the base from the text (0x, a leading 0, else 10).
// Returns the first character that is not part of it.
const char *parsenumber(const char *text, long &value, unsigned base);
