// Malformed and oversized inputs: damaged modules, random bytes, deep nesting and long lines. For each quarl must end
// in time with status 0, or with status 1 and a message.
// All are made from fixed seeds, so that a run that fails can be repeated.
#include "harness/harness.h"

#include <gtest/gtest.h>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr unsigned seconds_allowed = 180;
#else
constexpr unsigned seconds_allowed = 30;
#endif

const std::vector<std::vector<std::string>> option_sets = {{}, {"-u", "-h"}, {"-ll"}, {"-i", "-mc"}};

const std::string head = "source_filename = \"a.cpp\"\n";
const std::string function_head = head + "define i16 @f(i16 %n, i8* %p) {\nentry:\n";
const std::string function_end = "  ret i16 0\n}\n";

struct Input {
    std::string name;
    std::string text;
};

void survive(const Input &input, const std::vector<std::string> &options)
{
    const std::string directory = harness::make_directory();
    harness::write_file(directory + "/a.ll", input.text);
    std::vector<std::string> arguments = options;
    arguments.insert(arguments.end(), {"-o", "a.c", "a.ll"});
    const harness::Result result =
        harness::run(harness::quarl_binary(QUARL_BINARY), arguments, directory, seconds_allowed);
    const bool sound = result.status == 0 ? harness::file_exists(directory + "/a.c") && result.err.empty()
                                          : result.status == 1 && result.err.starts_with("#error ");
    if (sound)
        harness::remove_directory(directory);
    else
        ADD_FAILURE() << input.name << ": " << harness::describe(result) << "\nkept in " << directory << "/a.ll";
}

void survive_all(const std::vector<Input> &inputs)
{
    for (size_t i = 0; i < inputs.size() && !testing::Test::HasFailure(); i++)
        survive(inputs[i], option_sets[i % option_sets.size()]);
}

// The modules to damage: what a real front end wrote.
std::vector<Input> modules()
{
    std::vector<Input> found;
    for (const std::string &file : harness::list_files(QUARL_SOURCE_DIR "/examples", ".ll"))
        found.push_back({file, harness::read_file(file)});
    return found;
}

// A remainder: std::uniform_int_distribution differs from library to library.
size_t below(std::mt19937 &random, size_t bound)
{
    return bound == 0 ? 0 : random() % bound;
}

// Changes, removes or adds a byte, a word or a line.
void mutate(std::string &text, std::mt19937 &random)
{
    // Words and signs that have a meaning for some reader.
    static const std::vector<std::string> fragments = {
        "{",    "}",      "[",    "]",     "(",  ")",    "<",          ">",  "*",   ",",    "=",
        ":",    "@",      "%",    "!",     "#0", "\"",   "c\"",        "\\", "...", "i8",   "i16",
        "i64",  "void",   "to",   "label", "x",  "null", "phi",        "br", "ret", "type", "undef",
        "call", "switch", "load", "store", "-1", "0x",   "4294967296", "%a", "@b"};
    static const std::string bounds[] = {" \n\t,", "\n", ""};  // of words, of lines, and of nothing: a byte
    const std::string &bound = bounds[below(random, std::size(bounds))];
    const auto piece = [&text, &bound, &random] {
        const size_t place = below(random, text.size());
        if (bound.empty())
            return std::pair(place, size_t{1});
        const size_t start = text.find_last_of(bound, place) + 1;
        return std::pair(start, std::min(text.find_first_of(bound, start), text.size()) - start);
    };
    const auto [at, length] = piece();
    const auto [other, other_length] = piece();
    const std::string by[] = {"", fragments[below(random, fragments.size())], text.substr(other, other_length),
                              std::string(1, static_cast<char>(random() & 0xFFU))};
    text.replace(at, below(random, 2) * length, by[below(random, std::size(by))]);
}

// The texts around `count` times `open`, followed by as many times `close`.
struct Pattern {
    std::string name;
    std::string front;
    std::string_view open;
    std::string middle;
    std::string_view close;
    std::string back;
};

void append(std::string &text, std::string_view piece, size_t count)
{
    for (size_t i = 0; i < count; i++)
        text += piece;
}

std::vector<Input> repeated(const std::vector<Pattern> &patterns, size_t count)
{
    std::vector<Input> made;
    for (const Pattern &pattern : patterns) {
        std::string text = pattern.front;
        append(text, pattern.open, count);
        text += pattern.middle;
        append(text, pattern.close, count);
        made.push_back({pattern.name + " " + std::to_string(count), text + pattern.back});
    }
    return made;
}

// The pattern for each number from 1 to count - 1, with the number for each # and the one before it for each &.
std::string numbered(size_t count, std::string_view pattern, bool backwards = false)
{
    std::string text;
    for (size_t i = 1; i < count; i++) {
        const size_t now = backwards ? count - i : i;
        for (const char c : pattern)
            text += c == '#' ? std::to_string(now) : c == '&' ? std::to_string(now - 1) : std::string(1, c);
    }
    return text;
}

std::string in_function(const std::string &lines)
{
    return function_head + lines + function_end;
}

TEST(robustness, whole_modules)
{
    for (const Input &module : modules())
        for (const std::vector<std::string> &options : option_sets)
            survive(module, options);
}

TEST(robustness, truncated_modules)
{
    constexpr size_t count = 60;
    for (const Input &module : modules()) {
        std::vector<Input> inputs;
        for (size_t i = 0; i < count; i++)
            inputs.push_back({module.name, module.text.substr(0, module.text.size() * i / count + i % 7)});
        survive_all(inputs);
    }
}

TEST(robustness, mutated_modules)
{
    std::mt19937 random(1);
    for (const Input &module : modules()) {
        std::vector<Input> inputs(100, module);
        for (Input &input : inputs)
            for (size_t changes = 1 + below(random, 6); changes > 0 && !input.text.empty(); changes--)
                mutate(input.text, random);
        survive_all(inputs);
    }
}

TEST(robustness, bytes_of_no_meaning)
{
    constexpr std::string_view signs = "@%!${}[]()<>*,=:;\"'\\ \n\t.-+0129abcxi";
    std::mt19937 random(7);
    std::vector<Input> inputs = {{"NUL bytes", std::string(100000, '\0')},
                                 {"NUL in a line", head + std::string("@a = global i16 1\0, align 2\n", 28)},
                                 {"no newline", "@a = global i16 1"},
                                 {"nothing", ""}};
    for (size_t i = 0; i < 24; i++) {
        inputs.push_back({"random bytes " + std::to_string(i), ""});
        for (size_t length = below(random, 40000); length > 0; length--)
            inputs.back().text += i % 2 == 0 ? static_cast<char>(random() & 0xFFU) : signs[below(random, signs.size())];
    }
    survive_all(inputs);
}

TEST(robustness, long_lines)
{
    const std::vector<Pattern> patterns = {
        {"name", head + "@", "a", " = global i16 1\n", "", ""},
        {"number", head + "@a = global i16 ", "9", "\n", "", ""},
        {"open string", head + "@a = global [9 x i8] c\"", "aaaa", "\n", "", ""},
        {"string", head + "@a = global [9 x i8] c\"", "\\0A", "\"\n", "", ""},
        {"list", head + "@a = global [9 x i8] [", "i8 1, ", "i8 1]\n", "", ""},
        {"parameter list", head + "declare void @a(", "i8, ", "i8)\n", "", ""},
        {"structure", head + "%struct.a = type { ", "i8, ", "i8 }\n", "", ""},
        {"call", function_head + "  call void @g(", "i8 1, ", "i8 1)\n", "", function_end},
        {"words", head + "@a = ", "internal ", "\n", "", ""},
        {"blanks", head, "     ", "x\n", "", ""},
        {"metadata", head + "!1 = !{", "!2, ", "!2}\n", "", ""},
        {"comment", head + ";", "xxxx", "\n", "", ""},
    };
    survive_all(repeated(patterns, 1500000));
}

TEST(robustness, deep_nests)
{
    const std::string global = head + "@a = external global ";
    const std::string constant = head + "@a = global i8* ";
    const std::vector<Pattern> patterns = {
        {"open structures", global, "{", "\n", "", ""},
        {"structures", global, "{", "i8", "}", "\n"},
        {"arrays", global, "[1 x ", "i8", "]", "\n"},
        {"pointers", global + "i8", "*", "\n", "", ""},
        {"functions", global + "i8", " ()*", "\n", "", ""},
        {"parameters", global, "i8 (", "", ")*", "\n"},
        {"casts", constant, "bitcast (i8* ", "null", " to i8*)", "\n"},
        {"elements", constant, "getelementptr (i8, i8* ", "null", ", i16 1)", "\n"},
        {"braces with types", head + "@a = global [1 x i8] ", "[[1 x i8] ", "", "]", "\n"},
        {"brackets of blocks", function_head + "  switch i16 1, label %a [", "[", "\n", "", function_end},
        {"operands", function_head + "  %v = add i16 ", "add (i16 ", "1\n", "", function_end},
    };
    survive_all(repeated(patterns, 1000));
    survive_all(repeated(patterns, 300000));
}

// Well-formed functions whose trees and blocks grow from line to line.
TEST(robustness, deep_functions)
{
    constexpr size_t depth = 20000;
    const std::string last = std::to_string(depth - 1);
    survive_all({
        {"sum", in_function("  %v = load i16, i16* @g\n  %v0 = add i16 %v, 1\n" +
                            numbered(depth, "  %v# = add nsw i16 %v&, #\n") + "  store i16 %v" + last + ", i16* @g\n")},
        {"loads", in_function("  %v0 = bitcast i8* %p to i8**\n" + numbered(depth, "  %v# = load i8**, i8*** %v&\n") +
                              "  store i8** %v" + last + ", i8*** @g\n")},
        {"calls", in_function(numbered(depth, "  %v# = call i16 @h(i16 #)\n"))},
        {"nested ifs",
         in_function("  br label %if.end0\n\nif.end0:\n" +
                     numbered(depth / 5, "  %c# = icmp eq i16 %n, #\n  br i1 %c#, label %if.then#, label %if.end#\n\n"
                                         "if.then#:\n") +
                     numbered(depth / 5, "  br label %if.end#\n\nif.end#:\n", true))},
        {"condition", in_function(numbered(depth / 2, "  %c# = icmp eq i16 %n, #\n  br i1 %c#, label %land.lhs.true#, "
                                                      "label %if.end\n\nland.lhs.true#:\n") +
                                  "  %c = icmp eq i16 %n, 0\n  br i1 %c, label %if.then, label %if.end\n\n"
                                  "if.then:\n  br label %if.end\n\nif.end:\n")},
        {"cases",
         in_function("  switch i16 %n, label %sw.epilog [\n" + numbered(depth, "    i16 #, label %sw.bb#\n") +
                     "  ]\n\n" + numbered(depth, "sw.bb#:\n  store i16 #, i16* @g\n  br label %sw.epilog\n\n") +
                     "sw.epilog:\n")},
    });
}

}  // namespace
