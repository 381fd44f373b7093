// Names and strings of IR as C has them.

#include "frontend/frontend.h"

#include "base/base.h"

#include <string>

namespace {

// The escapes of C that have a letter; all other bytes are written in octal.
constexpr struct {
    unsigned byte;
    std::string_view text;
} letter_escapes[] = {
    {0x5C, "\\\\"}, {0x22, "\\\""}, {0x0A, "\\n"}, {0x0D, "\\r"}, {0x09, "\\t"}, {0x08, "\\b"}, {0x0B, "\\v"},
};

void appendescape(std::string &result, unsigned byte)
{
    for (const auto &escape : letter_escapes) {
        if (escape.byte == byte) {
            result += escape.text;
            return;
        }
    }
    const auto octal = [](unsigned digit) { return static_cast<char>('0' + (digit & 7U)); };
    result += {'\\', octal(byte >> 6U), octal(byte >> 3U), octal(byte)};
}

}  // namespace

std::string_view cname(std::string_view name)
{
    static std::string buffer;
    if (name.find_first_of(".:<>") == std::string_view::npos)
        return name;
    buffer = name;
    for (char &c : buffer)
        if (c == '.' || c == ':' || c == '<' || c == '>')
            c = '_';
    return buffer;
}

std::string_view cstring(std::string_view text, bool quoted)
{
    static std::string result;
    result.clear();
    std::size_t zero_end = 0;  // end of the last translated zero byte in the result
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            result += text[i];
        } else if (i + 2 < text.size() && ishex(text[i + 1]) && ishex(text[i + 2])) {
            const unsigned byte = hexvalue(text[i + 1]) * 16 + hexvalue(text[i + 2]);
            appendescape(result, byte);
            if (byte == 0)
                zero_end = result.size();
            i += 2;
        } else {
            result += text[i];
            if (++i < text.size())
                result += text[i];
        }
    }
    constexpr std::size_t zero_length = 4;
    const bool closed = quoted && text.size() > 1 && text.back() == text.front();
    if (closed && zero_end != 0 && zero_end + 1 == result.size())
        result.erase(zero_end - zero_length, zero_length);
    return result;
}
