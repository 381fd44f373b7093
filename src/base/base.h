// The bottom layer: diagnostics, checked memory, the output stream and text helpers. It knows nothing of IR or C.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string_view>

// ---- Diagnostics (diagnostics.cpp) ------------------------------------------------------------------------------

extern const char *input_name;  // the file that diagnostics name; null until known
extern const char *prog_name;   // the program's name for messages; null until known
extern long line_no;            // input lines read so far
extern int error_count;         // diagnostics so far; only report() raises it

// Exit statuses of the program.
namespace status {
inline constexpr int clean = 0;
inline constexpr int failed = 1;
inline constexpr int interrupted = 2;
}  // namespace status

// Writes one counted diagnostic, "#error <program> <input>:<line> <message>", to the standard error stream. Each form
// takes a format with the one conversion that fits its argument: none, %s (a null text prints as "(null)"),
// %x or %c, and %.*s.
void report(const char *format);
void report(const char *format, const char *text);
void report(const char *format, unsigned number);
void report(const char *format, std::string_view text);

// Writes `text` to the standard error stream at once, without head and uncounted.
void errortext(std::string_view text);

// ---- Memory (memory.cpp) ----------------------------------------------------------------------------------------

// Every failing allocation, of alloc() and of the standard containers, writes "no memory\n" and ends the process with
// status 1. Call once, before anything allocates.
void installmemoryhandler();

// Returns a cleared block of at least `size` bytes (and at least one pointer) whose first word holds `link`. The caller
// owns the block and need not test the result.
void *alloc(std::size_t size, void *link);

// Frees a block of alloc() and returns `value`, so that a caller can unlink and free in one expression.
void *release(void *block, void *value);

// Returns a cleared block of `size` bytes that lives until the process ends. Blocks are cut from large chunks.
void *poolalloc(std::size_t size);

// The pool of records that can be referred to by their place, a number of 32 bits: how many units they lie after the
// start of the pool. The pool is one range of addresses, which takes memory as it is filled.
namespace pool {
inline constexpr std::size_t unit = 4;  // records start at multiples of it
extern char *start;                     // null until the first record
extern char *next;                      // first free byte
extern char *end;                       // one past the last one
void open();                            // reserves the addresses; if that was done, the pool is full: ends the process
}  // namespace pool

// Room, not cleared, for a record. `size` is a multiple of the unit, `alignment` a power of two that is one too.
// Inline: both are constants wherever records are made.
inline void *recordalloc(std::size_t size, std::size_t alignment)
{
    const std::size_t skipped =
        alignment > pool::unit ? -reinterpret_cast<std::uintptr_t>(pool::next) & (alignment - 1) : 0;
    if (size + skipped > static_cast<std::size_t>(pool::end - pool::next)) {
        pool::open();
        return recordalloc(size, alignment);
    }
    char *record = pool::next + skipped;
    pool::next = record + size;
    return record;
}

// Frees the room of a record if it is the newest one.
inline void recordundo(const void *record, std::size_t size)
{
    if (static_cast<const char *>(record) + size == pool::next)
        pool::next -= size;
}

// A copy of `text` with a terminating NUL that lives until the process ends.
const char *keeptext(std::string_view text);

// ---- Interrupts (interrupt.cpp) ---------------------------------------------------------------------------------

// From here on an interrupt ends the run where it next looks for one, and a second interrupt ends it at once.
void installinterrupthandler();

// If there was an interrupt: closes the output and ends the process through its normal exit, which flushes the
// buffers. The status is status::interrupted.
void leaveifinterrupted();

// ---- Output (output.cpp) ----------------------------------------------------------------------------------------

// Creates the file `name` and makes it the output. Returns false if that fails; nothing is reported.
bool createoutput(const char *name);

// Flushes and closes the output. Returns false if anything written since createoutput() was lost.
bool closeoutput();

// Text, one character, and a decimal number to the output.
void outtext(std::string_view text);
void outchar(char c);
void outnumber(std::int64_t number);

// A progress message to the standard output stream, if `verbose` is set.
void outprogress(const char *message);
extern int verbose;  // 0 unless the command line sets it

// ---- Text (text.cpp) --------------------------------------------------------------------------------------------

inline bool isdigit(char c)
{
    return c >= '0' && c <= '9';
}
inline bool ishex(char c)
{
    return isdigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}
// The value of a hexadecimal digit.
unsigned hexvalue(char c);

// The decimal value of `text`, in 32-bit arithmetic that wraps. No sign and no radix: meaningful for digits only.
std::uint32_t number(std::string_view text);
