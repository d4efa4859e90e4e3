#include "shell/input.h"

#include "config/host_command.h"

#include <cerrno>
#include <poll.h>
#include <unistd.h>

namespace {

// Called after a failed read. A tool may have left the terminal in non-blocking mode.
bool may_read_again(int fd) {
    if (errno != EAGAIN)
        return errno == EINTR;
    make_output_blocking();
    pollfd input{fd, POLLIN, 0};
    poll(&input, 1, -1);
    return true;
}

} // namespace

int read_byte(int fd, unsigned char &byte) {
    ssize_t got = 0;
    do {
        got = read(fd, &byte, 1);
    } while (got < 0 && may_read_again(fd));
    return static_cast<int>(got);
}
