// Checked memory: single blocks, texts that stay, and the pool of records.

#include "base/base.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>
#include <sys/mman.h>

namespace {

constexpr std::size_t text_chunk_size = std::size_t{1} << 18;

char *text_next;        // first free byte of the newest chunk of poolalloc()
std::size_t text_left;  // free bytes from there on
void *text_chunks;      // its chunks, newest first, chained by their first word

constexpr std::size_t largest_pool = pool::unit << 32U;  // as much as places can address

[[noreturn]] void outofmemory()
{
    errortext("no memory\n");
    std::_Exit(status::failed);
}

std::size_t aligned(std::size_t size, std::size_t alignment)
{
    return (size + alignment - 1) & ~(alignment - 1);
}

// Reserves addresses for the pool, fewer where the process may not have so many. Returns how many.
std::size_t reserve()
{
    for (std::size_t size = largest_pool; size >= text_chunk_size; size /= 2) {
        void *room = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
        if (room == MAP_FAILED)
            continue;
        pool::start = static_cast<char *>(room);
        return size;
    }
    outofmemory();
}

}  // namespace

char *pool::start;
char *pool::next;
char *pool::end;

void pool::open()
{
    if (start)
        outofmemory();
    const std::size_t size = reserve();
    next = start + unit;  // no record has the place 0
    end = start + size;
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
