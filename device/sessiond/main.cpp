// The stand-in device's first process: brings the device up, opens sessions on it for programs
// outside, and ends, and the device with it, once none of them is connected any more.
//
// usage: sessiond LISTENER READY ERRORS
//   descriptors: the socket to serve (see session/session_socket.h), a pipe that gets a byte when
//   the device is up, and where the device's own messages go
// The exit status is 0, or the boot's when that failed.

#include "process_tree.h"
#include "session_server.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int USAGE_STATUS = 2;
constexpr int MOST_INHERITED = 256;

// The device's programs inherit nothing from outside but their streams.
void keep_to_itself() {
    for (int fd = STDERR_FILENO + 1; fd < MOST_INHERITED; ++fd)
        fcntl(fd, F_SETFD, FD_CLOEXEC);
    umask(S_IWGRP | S_IWOTH);
}

} // namespace

int main(int argc, char **argv) {
    if (argc != 4) {
        std::fputs("usage: sessiond LISTENER READY ERRORS\n", stderr);
        return USAGE_STATUS;
    }
    const int errors = std::atoi(argv[3]);
    dup2(errors, STDOUT_FILENO);
    dup2(errors, STDERR_FILENO);
    keep_to_itself();
    adopt_orphans();
    const pid_t parent = getppid();
    SessionServer server(UniqueFd(std::atoi(argv[1])));
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    server.boot("/sbin/boot", UniqueFd(std::atoi(argv[2])));
    const int status = server.run();
    if (getppid() != parent) // gone, so it cleans up nothing
        kill_descendants();
    return status;
}
