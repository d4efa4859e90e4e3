#include "shell/process.h"

#include "config/host_command.h"

#include <cstdlib>
#include <fcntl.h>
#include <sys/prctl.h>
#include <unistd.h>

void prepare_process() {
    constexpr int FAILURE = 255;
    for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream) {
        // The lowest free descriptor is this one: those below it are open.
        if (fcntl(stream, F_GETFD) < 0 && open("/dev/null", O_RDWR) != stream)
            std::_Exit(FAILURE);
    }
    make_output_blocking();
    prctl(PR_SET_DUMPABLE, 0);
}
