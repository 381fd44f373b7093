// The interrupt signal. Its handler may touch next to nothing, so it leaves word for the places of the run that look
// for it. A call of the system that waits, for the writer of a pipe for one, ends with an error when it is interrupted.

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
