// The state of one run of the adapter, and what its files offer each other.
//
// The text is read twice. The first look takes the lines outside of functions only: the names of globals and
// structures must all be known before the first of them is written, since a name that needs another spelling must not
// take the spelling of a name that comes later, and the order of the structures depends on all of them. The second
// look adapts line by line; a function is held as a whole, for its own names.
#pragma once

#include "adapt/text.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <initializer_list>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace adapt {

struct Layout {
    std::size_t size = 0;
    std::size_t align = 1;
};

// One `%name = type ...` line.
struct TypeDef {
    std::string name;       // as in the input, without % and quotes
    std::string text;       // the name as it is written, with both
    std::size_t line = 0;   // in the input
    Tokens body;            // behind the word type
    bool packed = false;    // <{ }>
    bool opaque = false;    // no body
    bool selfish = false;   // names itself
    bool inner = false;     // some other structure holds it by value
    std::uint8_t mark = 0;  // scratch of the walks over the structures
    Layout natural;         // as a C compiler lays it out
    Layout real;            // as the IR lays it out
};

// A function that quarl would write as an inline one.
struct Inline {
    std::vector<std::size_t> calls;  // places of other inline functions
    bool in_circle = false;          // is called by one that it calls
};

// What is said of a line.
struct Message {
    std::size_t line;
    std::string text;
};

struct Module {
    std::string_view text;  // the input
    std::string file;       // its name, for messages
    std::string out;
    std::size_t line = 0;  // the line that messages name
    std::size_t errors = 0;
    std::deque<std::string> made;  // token texts that don't stand in the input

    std::vector<Message> messages;

    std::unordered_map<std::string, std::string> globals;  // names that are written in another way
    std::unordered_set<std::string> global_forms;          // the C names of all globals

    std::vector<TypeDef> types;
    std::unordered_map<std::string, std::size_t> type_places;
    std::size_t drain = npos;  // the structure whose line is written first, see types.cpp
    bool types_begun = false;  // the first structure line has been written
    bool types_renamed = false;

    std::vector<Inline> inlines;
    std::unordered_map<std::string, std::size_t> inline_places;
    std::vector<std::pair<std::string, std::string>> inline_calls;  // caller and called, by name

    // From the data layout: natural alignments in bytes.
    std::unordered_map<std::string, std::size_t> alignments;
    std::size_t pointer_size = 8;
    bool little_endian = true;
};

// Keeps a text for as long as the run lasts.
std::string_view keep(Module &module, std::string text);

// A line that the adapter writes itself, from its pieces.
Tokens compose(Module &module, std::initializer_list<std::string_view> pieces);

// Notes what can't be adapted in the current line, and counts it: nothing is written then.
void refuse(Module &module, const std::string &message);

// Notes what is lost without harm to what the program computes.
void warn(Module &module, const std::string &message);

// ---- names.cpp: spellings ----

// What C makes of a name: . : < > are written as _ there.
std::string c_form(std::string_view name);

// The name in the characters that an unquoted name may have; \01 in front of it goes.
std::string plain_name(std::string_view name);

// Settles the names of all globals. Given in the order of the file.
void claim_globals(Module &module, const std::vector<std::string> &names);

// Gives a global its settled name.
void rename_global(Module &module, Token &token);

// ---- types.cpp: structures ----

void read_datalayout(Module &module, std::string_view text);
void read_type_line(Module &module, const Line &line);

// Settles names and order of the structures, and reports those that C lays out in another way.
void settle_types(Module &module);

// Gives a structure its settled name. False if the token names no structure.
bool rename_type(const Module &module, Token &token);

// Writes a `%name = type` line, with the lines in front of the first that the order needs.
void write_type_line(Module &module, Line &line);

// True if the packed literal type behind the `<` at `open` is laid out as without packing.
bool naturally_packed(Module &module, const Tokens &tokens, std::size_t open);

// ---- callgraph.cpp: inline functions that call each other ----

void note_inline(Module &module, const std::string &name);
// Notes what a line of the inline function `caller` calls.
void note_calls(Module &module, const std::string &caller, std::string_view line);
void find_circles(Module &module);
bool is_in_circle(const Module &module, const std::string &name);

// ---- words.cpp: words and types of any line ----

// Drops, replaces or refuses the words that the accepted vocabulary doesn't have.
Tokens filter_words(Module &module, const Tokens &tokens);

// ---- globals.cpp: lines outside of functions ----

void adapt_variable(Module &module, Line &line);
void adapt_declare(Module &module, Line &line);
void adapt_header(Module &module, Line &line);
void adapt_metadata(Module &module, std::string_view line);

// ---- functions.cpp: a function, from its header to its closing brace ----

void adapt_function(Module &module, std::vector<Line> &lines);

// ---- adapt.cpp ----

// Adapts module.text into module.out.
void adapt(Module &module);

}  // namespace adapt
