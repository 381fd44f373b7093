// The run: what the entry point, the option engine and the run sequence share.
#pragma once

inline constexpr const char *version_text = "V4.1.6";
inline constexpr const char *date_text = "05 Sep 2018";

extern const char *output_name;  // -o, or derived from the source's name; null until known

// Reads the whole input and, if nothing was reported, writes the output file. Returns 0 when the run was clean and
// non-zero otherwise; every failure has been reported by then.
int readmodule();
