// What the programs of this tree must agree on: the names that the front end gives to blocks, values and aggregates,
// and what becomes of names and strings in C.
#pragma once

#include <string_view>

// ---- Names and strings in C (spelling.cpp) ----------------------------------------------------------------------

// The C form of an IR name: `.`, `:`, `<` and `>` become `_`. Either `name` itself or a copy that is valid until the
// next call.
std::string_view cname(std::string_view name);

// Translates the escapes of an IR string into those of C. Of a text that stands in its quotes, a translated zero byte
// before the closing one is taken out. The result is valid until the next call.
std::string_view cstring(std::string_view text, bool quoted);
