// The entry point of quarl.

#include "base/base.h"
#include "driver/driver.h"
#include "driver/options.h"
#include "emit/emit.h"
#include "model/model.h"
#include "reader/reader.h"

namespace {

constexpr OptionPattern option_patterns[] = {
    {"h   no header", &no_header},
    {"i   no inline", &no_inline},
    {"ll  emulate long long", &long_long},
    {"mc  no math replacement", &no_math},
    {"o*  output filename", &output_name},
    {"u   keep unused", &keep_unused},
    {"v   verbose", &verbose},
};

}  // namespace

int main(int argc, char **argv)
{
    installinterrupthandler();
    installmemoryhandler();
    getoptions(argc, argv, "Quarl", "file", option_patterns);
    if (argc >= 2) {
        report("convert only one source file");
        return status::failed;
    }
    if (argc == 0)
        return status::clean;
    input_name = argv[0];
    if (verbose) {
        errortext(input_name);
        errortext(":\n");
    }
    if (long_long)
        uselonglong();
    if (!openinput(input_name)) {
        report("can't open %s", input_name);
        return status::failed;
    }
    return readmodule() ? status::failed : status::clean;
}
