// Run state, diagnostics and checked memory.

#include "driver/driver.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string>

int no_header;
int no_inline;
int long_long;
int no_math;
int keep_unused;
int verbose;

const char *output_name;
const char *input_name;
const char *source_name;
const char *prog_name;

long line_no;
int error_count;

// ---- Diagnostics ------------------------------------------------------------------------------------------------

namespace {

void putnumber(std::string &line, long number, int base)
{
    std::array<char, 24> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number, base).ptr;
    line.append(digits.data(), end);
}

std::string_view shown(const char *text)
{
    return text ? text : "(null)";
}

// The head of a diagnostic line for the file `name`.
std::string errorhead(const char *name)
{
    std::string line = "#error ";
    line.append(shown(prog_name)).append(" ").append(shown(name)).append(":");
    putnumber(line, line_no, 10);
    line += ' ';
    return line;
}

// Writes head and message. The conversion in `format` runs from the % to its letter and gives way to `argument`.
void reportwith(std::string_view format, std::string_view argument)
{
    std::string line = errorhead(input_name);
    const std::size_t percent = format.find('%');
    line.append(format.substr(0, percent));
    if (percent != std::string_view::npos) {
        line.append(argument);
        const std::size_t letter = format.find_first_of("sxc", percent);
        line.append(format.substr(letter + 1));
    }
    line += '\n';
    errortext(line);
    ++error_count;
}

}  // namespace

void report(const char *format)
{
    reportwith(format, {});
}

void report(const char *format, const char *text)
{
    reportwith(format, shown(text));
}

void report(const char *format, unsigned number)
{
    std::string argument;
    if (std::strstr(format, "%c"))
        argument += static_cast<char>(number);
    else
        putnumber(argument, static_cast<long>(number), 16);
    reportwith(format, argument);
}

void report(const char *format, std::string_view text)
{
    reportwith(format, text);
}

void errortext(std::string_view text)
{
    if (!text.empty())
        std::fwrite(text.data(), 1, text.size(), stderr);
}

// ---- Memory -----------------------------------------------------------------------------------------------------

namespace {

constexpr std::size_t text_chunk_size = std::size_t{1} << 18;

char *text_next;        // first free byte of the newest chunk of poolalloc()
std::size_t text_left;  // free bytes behind it
void *text_chunks;      // its chunks, newest first, chained by their first word

std::size_t chunk_count;     // entries of pool::chunks in use
std::size_t chunk_capacity;  // entries of pool::chunks

[[noreturn]] void outofmemory()
{
    errortext("no memory\n");
    std::_Exit(status::failed);
}

std::size_t aligned(std::size_t size, std::size_t alignment)
{
    return (size + alignment - 1) & ~(alignment - 1);
}

void growchunktable()
{
    if (chunk_count < chunk_capacity)
        return;
    chunk_capacity = chunk_capacity ? chunk_capacity * 2 : 64;
    pool::chunks = static_cast<char **>(std::realloc(pool::chunks, chunk_capacity * sizeof(char *)));
    if (!pool::chunks)
        outofmemory();
}

}  // namespace

char **pool::chunks;
char *pool::next;
char *pool::end;

// Starts a new chunk of records behind the word that holds its number.
void pool::startchunk()
{
    growchunktable();
    void *chunk = std::aligned_alloc(chunk_size, chunk_size);
    if (!chunk || chunk_count >= (std::size_t{1} << (32 - chunk_bits)))
        outofmemory();
    std::memcpy(chunk, &chunk_count, sizeof chunk_count);
    chunks[chunk_count++] = static_cast<char *>(chunk);
    next = static_cast<char *>(chunk) + sizeof chunk_count;
    end = static_cast<char *>(chunk) + chunk_size;
}

void installmemoryhandler()
{
    std::set_new_handler(outofmemory);
}

void *alloc(std::size_t size, void *link)
{
    void *block = std::calloc(1, std::max(size, sizeof link));
    if (!block)
        outofmemory();
    std::memcpy(block, &link, sizeof link);
    return block;
}

void *release(void *block, void *value)
{
    std::free(block);
    return value;
}

void *poolalloc(std::size_t size)
{
    size = aligned(size, alignof(void *));
    if (size > text_left) {
        const std::size_t capacity = std::max(text_chunk_size, size + sizeof(void *));
        text_chunks = alloc(capacity, text_chunks);
        text_next = static_cast<char *>(text_chunks) + sizeof(void *);
        text_left = capacity - sizeof(void *);
    }
    char *block = text_next;
    text_next += size;
    text_left -= size;
    return block;
}

const char *keeptext(std::string_view text)
{
    char *copy = static_cast<char *>(poolalloc(text.size() + 1));
    std::copy(text.begin(), text.end(), copy);
    return copy;
}
