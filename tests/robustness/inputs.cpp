#include "robustness/inputs.h"

#include <array>
#include <random>
#include <string_view>

namespace robustness {

namespace {

// Words and signs that a reader may take for the start of something.
constexpr std::array<std::string_view, 44> fragments = {
    "{",   "}",      "[",     "]",     "(",    ")",     "<",          ">",  "*",    ",",   "=",
    ":",   "@",      "%",     "!",     "#0",   "\"",    "c\"",        "\\", "...",  "i8",  "i16",
    "i64", "float",  "void",  "label", "null", "undef", "to",         "x",  "type", "phi", "br",
    "ret", "switch", "store", "load",  "call", "-1",    "4294967296", "0x", "%a",   "@b",  "zeroinitializer",
};

constexpr std::string_view head = "source_filename = \"a.cpp\"\n";

std::string repeat(std::string_view piece, size_t count)
{
    std::string text;
    text.reserve(piece.size() * count);
    for (size_t i = 0; i < count; i++)
        text += piece;
    return text;
}

// std::uniform_int_distribution gives other numbers with another library, so the remainder has to do.
size_t below(std::mt19937 &random, size_t bound)
{
    return bound == 0 ? 0 : random() % bound;
}

std::string in_function(const std::string &lines)
{
    return std::string(head) + "define i16 @f(i16 %n, i8* %p) {\nentry:\n" + lines + "  ret i16 0\n}\n";
}

// The pattern with `now` for each # and the number before it for each &.
std::string with_number(std::string_view pattern, size_t now)
{
    std::string text;
    for (const char c : pattern) {
        if (c == '#' || c == '&')
            text += std::to_string(c == '#' ? now : now - 1);
        else
            text += c;
    }
    return text;
}

// The pattern for each number from 1 to count - 1.
std::string numbered(size_t count, std::string_view pattern)
{
    std::string text;
    for (size_t i = 1; i < count; i++)
        text += with_number(pattern, i);
    return text;
}

std::string reversed(size_t count, std::string_view pattern)
{
    std::string text;
    for (size_t i = count; i-- > 1;)
        text += with_number(pattern, i);
    return text;
}

std::string_view token_at(const std::string &text, size_t at)
{
    constexpr std::string_view blanks = " \n\t,";
    const size_t start = text.find_first_not_of(blanks, at);
    if (start == std::string::npos)
        return {};
    const size_t end = text.find_first_of(blanks, start);
    return std::string_view(text).substr(start, end == std::string::npos ? end : end - start);
}

std::string_view line_at(const std::string &text, size_t at)
{
    const size_t before = text.rfind('\n', at);
    const size_t start = before == std::string::npos ? 0 : before + 1;
    const size_t end = text.find('\n', start);
    return std::string_view(text).substr(start, end == std::string::npos ? end : end - start + 1);
}

void replace(std::string &text, std::string_view piece, const std::string &by)
{
    if (!piece.empty())
        text.replace(static_cast<size_t>(piece.data() - text.data()), piece.size(), by);
}

void mutate(std::string &text, std::mt19937 &random)
{
    const size_t at = below(random, text.size());
    const std::string fragment(fragments[below(random, fragments.size())]);
    const std::string token(token_at(text, below(random, text.size())));
    const std::string line(line_at(text, below(random, text.size())));
    switch (random() % 8) {
    case 0:
        replace(text, token_at(text, at), fragment);
        break;
    case 1:
        replace(text, token_at(text, at), token);
        break;
    case 2:
        replace(text, token_at(text, at), "");
        break;
    case 3:
        replace(text, line_at(text, at), "");
        break;
    case 4:
        replace(text, line_at(text, at), line);
        break;
    case 5:
        text.insert(at, line);
        break;
    case 6:
        text.insert(at, " " + fragment + " ");
        break;
    default:
        text[at] = static_cast<char>(random() & 0xFFU);
        break;
    }
}

}  // namespace

std::vector<Input> truncations(const Input &module, size_t count)
{
    std::vector<Input> made;
    for (size_t i = 0; i < count; i++) {
        const size_t length = module.text.size() * i / count + i % 7;
        made.push_back({module.name + " up to " + std::to_string(length), module.text.substr(0, length)});
    }
    return made;
}

std::vector<Input> mutations(const Input &module, size_t count, uint32_t seed)
{
    std::mt19937 random(seed);
    std::vector<Input> made;
    for (size_t i = 0; i < count; i++) {
        std::string text = module.text;
        for (size_t changes = 1 + below(random, 6); changes > 0 && !text.empty(); changes--)
            mutate(text, random);
        made.push_back({module.name + " mutation " + std::to_string(i), text});
    }
    return made;
}

std::vector<Input> random_bytes(size_t count, uint32_t seed)
{
    constexpr std::string_view signs = "@%!${}[]()<>*,=:;\"'\\ \n\t.-+0129abcxi";
    std::mt19937 random(seed);
    std::vector<Input> made;
    for (size_t i = 0; i < count; i++) {
        std::string text;
        for (size_t length = below(random, 40000); length > 0; length--)
            text += i % 2 == 0 ? static_cast<char>(random() & 0xFFU) : signs[below(random, signs.size())];
        made.push_back({"random bytes " + std::to_string(i), text});
    }
    made.push_back({"NUL bytes", std::string(100000, '\0')});
    made.push_back({"NUL in a line", std::string(head) + std::string("@a = global i16 1\0, align 2\n", 28)});
    made.push_back({"no newline", "@a = global i16 1"});
    made.push_back({"nothing", ""});
    return made;
}

std::vector<Input> long_lines(size_t length)
{
    const std::string start(head);
    return {
        {"long name", start + "@" + repeat("a", length) + " = global i16 1\n"},
        {"long number", start + "@a = global i16 " + repeat("9", length) + "\n"},
        {"long array bound", start + "@a = global [" + repeat("9", length) + " x i8] zeroinitializer\n"},
        {"open string", start + "@a = global [9 x i8] c\"" + repeat("a", length) + "\n"},
        {"long string", start + "@a = global [9 x i8] c\"" + repeat("\\0A", length / 3) + "\"\n"},
        {"long source name", "source_filename = \"" + repeat("\\22", length / 3) + ".cpp\"\n"},
        {"long list", start + "@a = global [9 x i8] [" + repeat("i8 1, ", length / 6) + "i8 1]\n"},
        {"long parameter list", start + "declare void @a(" + repeat("i8, ", length / 4) + "i8)\n"},
        {"long structure", start + "%struct.a = type { " + repeat("i8, ", length / 4) + "i8 }\n"},
        {"long function type", start + "@a = external global void (" + repeat("i8, ", length / 4) + "i8)*\n"},
        {"long call", in_function("  call void @g(" + repeat("i8 1, ", length / 6) + "i8 1)\n")},
        {"words", start + "@a = " + repeat("internal ", length / 9) + "\n"},
        {"blanks", start + repeat(" ", length) + "x\n"},
        {"metadata", start + "!1 = !{" + repeat("!2, ", length / 4) + "!2}\n"},
        {"signs", repeat("%@!{}", length / 5)},
        {"comment", start + ";" + repeat("x", length) + "\n"},
    };
}

std::vector<Input> nests(size_t depth)
{
    const std::string start(head);
    const std::string global = start + "@a = external global ";
    const std::string constant = start + "@a = global i8* ";
    return {
        {"open structures", global + repeat("{", depth) + "\n"},
        {"structures", global + repeat("{", depth) + "i8" + repeat("}", depth) + "\n"},
        {"structures in a type line", start + "%struct.a = type {" + repeat("{", depth) + "\n"},
        {"open arrays", global + repeat("[1 x ", depth) + "\n"},
        {"arrays", global + repeat("[1 x ", depth) + "i8" + repeat("]", depth) + "\n"},
        {"pointers", global + "i8" + repeat("*", depth) + "\n"},
        {"functions", global + "i8" + repeat(" ()*", depth) + "\n"},
        {"parameters", global + repeat("i8 (", depth) + repeat(")*", depth) + "\n"},
        {"casts", constant + repeat("bitcast (i8* ", depth) + "null" + repeat(" to i8*)", depth) + "\n"},
        {"open casts", constant + repeat("bitcast (", depth) + "\n"},
        {"elements", constant + repeat("getelementptr (i8, i8* ", depth) + "null" + repeat(", i16 1)", depth) + "\n"},
        {"braces", start + "@a = global [1 x i8] " + repeat("[", depth) + "\n"},
        {"braces with types",
         start + "@a = global [1 x i8] " + repeat("[[1 x i8] ", depth) + repeat("]", depth) + "\n"},
        {"brackets of blocks", in_function("  switch i16 1, label %a [" + repeat("[", depth) + "\n")},
        {"operands", in_function("  %v = add i16 " + repeat("add (i16 ", depth) + "1\n")},
        {"words on lines", repeat("{\n", depth)},
    };
}

std::vector<Input> deep_functions(size_t depth)
{
    const std::string last = std::to_string(depth - 1);
    return {
        {"long sum",
         in_function("  %v = load i16, i16* @g\n  %v0 = add i16 %v, 1\n" +
                     numbered(depth, "  %v# = add nsw i16 %v&, #\n") + "  store i16 %v" + last + ", i16* @g\n")},
        {"long chain of elements",
         in_function("  %v0 = load i8*, i8** @g\n" + numbered(depth, "  %v# = getelementptr i8, i8* %v&, i16 1\n") +
                     "  store i8* %v" + last + ", i8** @g\n")},
        {"long chain of loads",
         in_function("  %v0 = bitcast i8* %p to i8**\n" + numbered(depth, "  %v# = load i8**, i8*** %v&\n") +
                     "  store i8** %v" + last + ", i8*** @g\n")},
        {"many calls", in_function(numbered(depth, "  %v# = call i16 @h(i16 #)\n"))},
        {"nested ifs", in_function("  br label %if.end0\n\nif.end0:\n" +
                                   numbered(depth / 5, "  %c# = icmp eq i16 %n, #\n  br i1 %c#, label %if.then#, "
                                                       "label %if.end#\n\nif.then#:\n") +
                                   reversed(depth / 5, "  br label %if.end#\n\nif.end#:\n"))},
        {"long condition", in_function(numbered(depth / 2, "  %c# = icmp eq i16 %n, #\n  br i1 %c#, label "
                                                           "%land.lhs.true#, label %if.end\n\nland.lhs.true#:\n") +
                                       "  %c = icmp eq i16 %n, 0\n  br i1 %c, label %if.then, label %if.end\n\n"
                                       "if.then:\n  br label %if.end\n\nif.end:\n")},
        {"many cases",
         in_function("  switch i16 %n, label %sw.epilog [\n" + numbered(depth, "    i16 #, label %sw.bb#\n") +
                     "  ]\n\n" + numbered(depth, "sw.bb#:\n  store i16 #, i16* @g\n  br label %sw.epilog\n\n") +
                     "sw.epilog:\n")},
    };
}

}  // namespace robustness
