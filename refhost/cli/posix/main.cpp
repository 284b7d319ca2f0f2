#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <string>
#include <vector>

#include "platform/posix/Signals.h"
#include "refhost/cli/Commands.h"

namespace {

/// A standard stream that the caller closed must not become the number of the next file that is
/// opened. What stands in for it fails, so that a lost output is noticed; lost messages are not.
void OccupyStandardStreams() {
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (::fcntl(stream, F_GETFD) == -1)
            // The lowest free number is this one: nothing is kept here to be closed.
            static_cast<void>(::open("/dev/null", stream == STDOUT_FILENO ? O_RDONLY : O_RDWR));
}

}  // namespace

int main(int argc, char** argv) {
    OccupyStandardStreams();
    std::signal(SIGPIPE, SIG_IGN);  // a reader that left is an error of the write
    kestrel::posix::CatchEndingSignals();
    return refhost::RunCommandLine(std::vector<std::string>(argv + 1, argv + argc));
}
