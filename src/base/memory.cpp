// Checked memory: single blocks, texts that stay, and the pool of records.

#include "base/base.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

namespace {

constexpr std::size_t text_chunk_size = std::size_t{1} << 18;

char *text_next;        // first free byte of the newest chunk of poolalloc()
std::size_t text_left;  // free bytes from there on
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

// The first word of a chunk holds its number; records follow.
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
