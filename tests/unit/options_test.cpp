// The command line as a user meets it: the program is run, and what it writes and how it ends is compared.
#include "base/base.h"
#include "driver/options.h"
#include "harness/harness.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

using Words = std::vector<std::string>;

const std::string banner = "Norrith Toolkit Quarl V4.1.6";
const std::string usage = banner + "\nusage: quarl [options] file\n"
                                   "    -h   no header\n"
                                   "    -i   no inline\n"
                                   "    -ll  emulate long long\n"
                                   "    -mc  no math replacement\n"
                                   "    -o*  output filename\n"
                                   "    -u   keep unused\n"
                                   "    -v   verbose\n";
const std::string version = banner + " - 05 Sep 2018 - Win32-F\n";

// Two variables, of which only -u prints the second.
const std::string module_text = "source_filename = \"from.cpp\"\n"
                                "@kept = global i16 1\n"
                                "@spare = internal global i16 2\n";

class Options : public testing::Test {
protected:
    void SetUp() override
    {
        directory = harness::make_directory();
        harness::write_file(directory + "/one.ll", module_text);
    }
    void TearDown() override { harness::remove_directory(directory); }

    harness::Result run(const Words &arguments, const std::string &program = harness::quarl_binary(QUARL_BINARY))
    {
        return harness::run(program, arguments, directory);
    }
    // Runs quarl and compares its standard error and its status; standard output must be empty.
    void expect(const Words &arguments, int status, const std::string &err)
    {
        const harness::Result result = run(arguments);
        const std::string shown = arguments.empty() ? "no arguments" : arguments.front();
        EXPECT_EQ(result.status, status) << shown;
        EXPECT_EQ(result.err, err) << shown;
        EXPECT_EQ(result.out, "") << shown;
    }
    bool exists(const std::string &name) const { return harness::file_exists(directory + "/" + name); }
    bool holds(const std::string &name, const std::string &text) const
    {
        return harness::read_file(directory + "/" + name).find(text) != std::string::npos;
    }

    std::string directory;
};

TEST_F(Options, usage_and_version_end_with_status_1)
{
    expect({}, 1, usage);
    expect({"-help"}, 1, usage);
    expect({"-v", "-helpless", "one.ll"}, 1, usage);
    expect({"-version"}, 1, version);
}

TEST_F(Options, an_unknown_option_is_shown_from_where_it_no_longer_matches)
{
    expect({"-vq", "one.ll"}, 1, "quarl: unknown option -q\n");
    expect({"-uhl", "one.ll"}, 1, "quarl: unknown option -l\n");
    expect({"+help"}, 1, "quarl: unknown option +help\n");
}

TEST_F(Options, options_without_a_file_end_silently)
{
    expect({"-vll"}, 0, "");
    expect({"-o"}, 0, "");
    expect({"-o", "one.ll"}, 0, "");
}

TEST_F(Options, several_options_share_an_argument)
{
    const harness::Result result = run({"-vu", "-hillmc", "one.ll"});
    EXPECT_EQ(result.status, 0) << harness::describe(result);
    EXPECT_EQ(result.err, "one.ll:\n");
    EXPECT_EQ(result.out, "output includes\noutput aggregates\noutput aliases\noutput externs\noutput variables\n"
                          "output functions\n");
    EXPECT_TRUE(holds("from.c", "int spare = 2;"));
    EXPECT_TRUE(holds("from.c", "#include <lldefs.h>\n"));
}

TEST_F(Options, the_output_name_follows_o_or_is_the_next_argument)
{
    expect({"-o", "a.c", "one.ll"}, 0, "");
    expect({"-ob.c", "one.ll"}, 0, "");
    expect({"-uo", "c.c", "one.ll"}, 0, "");
    expect({"-uod.c", "one.ll"}, 0, "");
    EXPECT_TRUE(exists("a.c") && exists("b.c") && exists("c.c") && exists("d.c"));
    EXPECT_TRUE(holds("d.c", "spare") && !holds("b.c", "spare"));
    EXPECT_FALSE(exists("from.c"));
}

TEST_F(Options, dashes_end_the_options)
{
    harness::write_file(directory + "/-u", module_text);
    expect({"--", "-u"}, 0, "");
    EXPECT_TRUE(exists("from.c"));
    expect({"-"}, 1, "#error quarl -:0 can't open -\n");
    expect({"one.ll", "-v"}, 1, "#error quarl (null):0 convert only one source file\n");
}

TEST_F(Options, wildcards_give_the_names_that_match)
{
    const std::string two = "#error quarl (null):0 convert only one source file\n";
    expect({"?n*.ll"}, 0, "");
    EXPECT_TRUE(exists("from.c"));
    expect({"*.xy"}, 1, usage);
    expect({"-u", "*.xy"}, 0, "");
    std::filesystem::create_directory(directory + "/Sub");
    harness::write_file(directory + "/Sub/TWO.LX", module_text);
    expect({"Sub/*.lx"}, 1, usage);
    expect({"Sub/T??.LX"}, 1, "#error quarl Sub/two.lx:0 can't open Sub/two.lx\n");
    harness::write_file(directory + "/.ll", module_text);
    expect({"*.ll"}, 1, two);
}

TEST_F(Options, the_programs_name_is_its_files_name_in_lower_case)
{
    const std::string program = directory + "/A-Name-of-many-LETTERS.x.exe";
    std::filesystem::create_symlink(harness::quarl_binary(QUARL_BINARY), program);
    EXPECT_EQ(run({"-x"}, program).err, "a-name-of-many-letters: unknown option -x\n");
    EXPECT_EQ(run({"none.ll"}, program).err, "#error a-name-of-many-letters none.ll:0 can't open none.ll\n");
}

TEST_F(Options, files_that_cannot_be_used)
{
    expect({"none.ll"}, 1, "#error quarl none.ll:0 can't open none.ll\n");
    expect({"."}, 1, "#error quarl .:0 can't open .\n");
    expect({"-o", "none/a.c", "one.ll"}, 1, "#error quarl one.ll:3 can't create none/a.c\n");
    expect({"-o", "/dev/full", "one.ll"}, 1, "#error quarl one.ll:3 can't write /dev/full\n");
    expect({"-o", "./one.ll", "one.ll"}, 1, "#error quarl one.ll:3 can't create ./one.ll\n");
    EXPECT_EQ(harness::read_file(directory + "/one.ll"), module_text);
}

TEST_F(Options, a_source_names_the_output)
{
    harness::write_file(directory + "/c.ll", "source_filename = \"some.c\"\n");
    expect({"c.ll"}, 1, "#error quarl c.ll:1 unexpected extension\n");
    harness::write_file(directory + "/c.ll", "source_filename = \".cpp\"\n");
    expect({"c.ll"}, 1, "#error quarl c.ll:1 unexpected extension\n");
    harness::write_file(directory + "/none.ll", "; nothing\n\n");
    expect({"none.ll"}, 1, "#error quarl none.ll:2 missing source file name\n");
    expect({"-o", "none.c", "none.ll"}, 0, "");
    EXPECT_EQ(harness::read_file(directory + "/none.c"), "// quarl V4.1.6\n\n\n\n\n");
}

// What the table of quarl's own options has no use for.
TEST(option_engine, numbers_characters_lists_and_hidden_options)
{
    int number = 0;
    int character = 0;
    int plus = 0;
    OptionWord words[2] = {};
    OptionList list = {2, words};
    const OptionPattern patterns[] = {{"n##", &number}, {"c?", &character}, {"+w", &plus}, {"<d#> hidden", &list}};
    const auto parse = [&patterns](std::vector<const char *> arguments) {
        int count = static_cast<int>(arguments.size());
        char **values = const_cast<char **>(arguments.data());
        getoptions(count, values, "Title", "file", patterns);
        return std::string(count == 1 ? *values : "");
    };
    EXPECT_EQ(parse({"x", "-n", "-0x1F", "-c\xE9", "-d7", "-d010", "+w", "last"}), "last");
    EXPECT_EQ(number, -31);
    EXPECT_EQ(character, static_cast<signed char>('\xE9'));
    EXPECT_EQ(plus, 1);
    EXPECT_EQ(list.free_slots, 0U);
    EXPECT_EQ(words[1].number, 7);
    EXPECT_EQ(words[0].number, 8);
    EXPECT_EXIT(parse({"x", "-d1", "y"}), testing::ExitedWithCode(1), "^argument list overflow\n$");
    EXPECT_EXIT(parse({"x", "-n12z"}), testing::ExitedWithCode(1), "^invalid number: 12z\n$");
    EXPECT_EXIT(parse({"x", "-help"}), testing::ExitedWithCode(1), "file\n    -n##\n    -c\\?\n    \\+w\n$");
    setprogname("C:\\tools/BIN\\Quarl.new.exe");
    EXPECT_STREQ(prog_name, "quarl");
}

// The pipe opens only when quarl reads from it, and by then it listens to the signal.
TEST_F(Options, an_interrupt_ends_with_status_2)
{
    const std::string script = "mkfifo pipe; \"$0\" -o a.c pipe & exec 3>pipe; kill -INT $!; wait $!";
    const harness::Result result = run({"-c", script, harness::quarl_binary(QUARL_BINARY)}, "/bin/sh");
    EXPECT_EQ(result.status, 2) << harness::describe(result);
    EXPECT_EQ(result.err, "");
    EXPECT_FALSE(exists("a.c"));
}

// The pipe holds 64 KB, so quarl is within its functions when the first bytes have come out.
TEST_F(Options, an_interrupt_keeps_the_log_and_the_output_so_far)
{
    std::string text;
    for (int i = 0; i < 20000; i++)
        text += "define void @f" + std::to_string(i) + "() {\n  ret void\n}\n";
    harness::write_file(directory + "/long.ll", text);
    const std::string script = "mkfifo pipe; \"$0\" -ivo pipe long.ll & exec 3<pipe; head -c 1000 <&3 >part; "
                               "kill -INT $!; cat <&3 >>part; wait $!";
    const harness::Result result = run({"-c", script, harness::quarl_binary(QUARL_BINARY)}, "/bin/sh");
    EXPECT_EQ(result.status, 2) << harness::describe(result);
    EXPECT_EQ(result.out, "output includes\noutput aggregates\noutput aliases\noutput externs\noutput variables\n"
                          "output functions\n");
    EXPECT_TRUE(holds("part", "f2(void)") && !holds("part", "f19999(void)"));
}

}  // namespace
