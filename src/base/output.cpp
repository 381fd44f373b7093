// The output stream. It has one large buffer of its own, so that short texts cost no call of the C library.

#include "base/base.h"

#include <array>
#include <charconv>
#include <cstring>

namespace {

constexpr std::size_t buffer_size = std::size_t{1} << 16;

FILE *out;                             // null until createoutput()
std::array<char, buffer_size> buffer;  // what is not yet written
std::size_t filled;                    // bytes in it
bool write_failed;                     // something was lost

// After a failure nothing more is written: what follows would leave a gap.
void writeout(const char *text, std::size_t length)
{
    if (out && !write_failed && std::fwrite(text, 1, length, out) != length)
        write_failed = true;
}

void flushbuffer()
{
    writeout(buffer.data(), filled);
    filled = 0;
}

}  // namespace

int verbose;

bool createoutput(const char *name)
{
    out = std::fopen(name, "w");
    if (!out) {
        leaveifinterrupted();
        return false;
    }
    std::setvbuf(out, nullptr, _IONBF, 0);
    return true;
}

bool closeoutput()
{
    flushbuffer();
    if (out && std::fclose(out) != 0)
        write_failed = true;
    out = nullptr;
    return !write_failed;
}

void outtext(std::string_view text)
{
    if (text.empty())
        return;
    if (text.size() > buffer_size - filled) {
        flushbuffer();
        if (text.size() > buffer_size) {
            writeout(text.data(), text.size());
            return;
        }
    }
    std::memcpy(buffer.data() + filled, text.data(), text.size());
    filled += text.size();
}

void outchar(char c)
{
    if (filled == buffer_size)
        flushbuffer();
    buffer[filled++] = c;
}

void outnumber(std::int64_t number)
{
    std::array<char, 24> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    outtext({digits.data(), static_cast<std::size_t>(end - digits.data())});
}

void outprogress(const char *message)
{
    if (verbose)
        std::fputs(message, stdout);
}
