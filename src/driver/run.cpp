// The run: the reading loop, the opening of the output file and the fixed order of the output stages.

#include "driver/driver.h"

#include "base/base.h"
#include "debugnames/debugnames.h"
#include "emit/emit.h"
#include "frontend/frontend.h"
#include "model/model.h"
#include "reader/reader.h"
#include "structure/structure.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

const char *output_name;

namespace {

const char *source_name;  // text of the source_filename line; null without one

// source_filename = "name"
int readsource()
{
    if (!expect(token::assign, "missing = in source definition"))
        return 1;
    Token t;
    gettoken(t);
    if (t.code != token::string) {
        report("missing string in source definition");
        return 1;
    }
    std::string_view quoted = tokentext(t);
    const bool closed = quoted.size() > 1 && quoted.back() == quoted.front();
    source_name = keeptext(cstring(quoted.substr(1, quoted.size() - (closed ? 2 : 1)), false));
    return 0;
}

int dropline()
{
    return 0;
}

struct KeywordLine {
    std::string_view word;
    int (*read)();
};

constexpr KeywordLine keyword_lines[] = {
    {"source_filename", readsource}, {"attributes", dropline}, {"declare", readdeclare},
    {"define", readdefine},          {"target", dropline},
};

// Lines that begin with a word of this length, such as "module", are ignored without a message.
constexpr std::size_t ignored_word_length = 6;

// A line that begins with the identifier `word`.
int readkeywordline(const Token &word)
{
    if (const KeywordLine *line = findword<keyword_lines>(word))
        return line->read();
    if (word.len == ignored_word_length)
        return 0;
    report("unknow identifier %.*s\n", tokentext(word));
    return 1;
}

// One line of the module, from its first token on.
int readline()
{
    Token first;
    gettoken(first);
    switch (first.code) {
    case token::at:
        return readgloballine();
    case token::identifier:
        return readkeywordline(first);
    case token::bang:
        return readmetaline();
    case token::percent:
        return readaggregateline();
    case token::end_of_line:
    case token::dollar:
        return 0;
    default:
        report("unknown line type %x", first.code);
        return 0;
    }
}

// a.cpp gives a.c in the same directory.
bool deriveoutputname()
{
    if (!source_name) {
        report("missing source file name");
        return false;
    }
    constexpr std::string_view extension = ".cpp";
    const std::string_view source = source_name;
    if (source.size() <= extension.size() || !source.ends_with(extension)) {
        report("unexpected extension");
        return false;
    }
    output_name = keeptext(source.substr(0, source.size() - 2));
    return true;
}

// The input must survive the run: an output name that leads to the same regular file is refused.
bool overwritesinput()
{
    std::error_code error;
    return std::filesystem::is_regular_file(output_name, error) &&
           std::filesystem::equivalent(output_name, input_name, error);
}

// Returns true when the output is open and its header written.
bool openoutput()
{
    if (!output_name && !deriveoutputname())
        return false;
    if (overwritesinput() || !createoutput(output_name)) {
        report("can't create %s", output_name);
        return false;
    }
    outtext("// quarl ");
    outtext(version_text);
    outchar('\n');
    if (source_name) {
        outtext("// source file: ");
        outtext(source_name);
        outchar('\n');
    }
    return true;
}

// The stages, each run exactly once. The first five change only the model: all renaming and counting is over before
// anything is printed. The others write the file section by section.
constexpr void (*stages[])() = {
    countprototypes,  // aliases renamed first: later stages look functions up by their final names
    markreachable,    // every count= and every unused mark is final from here on
    namefields,       // before the structures, which print the field names
    markinitrefs,     // before any head: decides @inline
    needstdlib,       // before the includes, to which it may add
    outincludes,
    outaggregates,  // bodies of anonymous aggregates print at their first mention, so this order is fixed
    outaliases,      outexterns, outvariables,
    orderinline,  // reorders the list that the last stage walks
    outfunctions,
};

void runstages()
{
    for (const auto stage : stages) {
        stage();
        leaveifinterrupted();
    }
}

}  // namespace

int readmodule()
{
    int failed = 0;
    line_no = 0;
    while (nextline())
        failed |= readline();
    if (failed || error_count)
        return 1;
    if (!openoutput())
        return 1;
    runstages();
    if (!closeoutput())
        report("can't write %s", output_name);
    return error_count;
}
