// The interrupt signal. A handler may do next to nothing, so this one sets a flag, which the run tests at a few places.
// A system call that waits, such as opening a pipe, fails when it is interrupted.

#include "base/base.h"

#include <csignal>
#include <cstdlib>

namespace {

volatile std::sig_atomic_t interrupted;

extern "C" void oninterrupt(int /*signal*/)
{
    if (interrupted)
        std::_Exit(status::interrupted);
    interrupted = 1;
}

}  // namespace

void installinterrupthandler()
{
    struct sigaction action = {};
    action.sa_handler = oninterrupt;  // without SA_RESTART: a call that waits is not taken up again
    sigaction(SIGINT, &action, nullptr);
}

void leaveifinterrupted()
{
    if (!interrupted)
        return;
    closeoutput();
    std::exit(status::interrupted);
}
