// Diagnostics.

#include "base/base.h"

#include <array>
#include <charconv>
#include <cstring>
#include <string>

const char *input_name;
const char *prog_name;
long line_no;
int error_count;

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

// Writes head and message. `argument` replaces the conversion in `format`, which runs from the % to its letter.
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
