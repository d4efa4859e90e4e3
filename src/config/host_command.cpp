#include "config/host_command.h"

#include "config/pipe.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/wait.h>

unsigned command_lines_run = 0;
unsigned command_lines_interrupted = 0;

namespace {

bool may_run(const CommandLine &line) {
    flush_output();
    ++command_lines_run;
    if (!line.is_whole())
        std::fputs("Command line too long.\n", stderr);
    return line.is_whole();
}

// The shell either dies of the signal or reports it in its status.
bool is_interrupted(int status) {
    return WIFSIGNALED(status) ? WTERMSIG(status) == SIGINT
                               : WIFEXITED(status) && WEXITSTATUS(status) == 128 + SIGINT;
}

} // namespace

void make_output_blocking() {
    for (const int stream : {STDOUT_FILENO, STDERR_FILENO}) {
        const int flags = fcntl(stream, F_GETFL);
        if (flags >= 0 && (flags & O_NONBLOCK) != 0)
            fcntl(stream, F_SETFL, flags & ~O_NONBLOCK);
    }
}

int run_command_line(const CommandLine &line) {
    if (!may_run(line))
        return -1;
    const int status = std::system(line.text());
    if (is_interrupted(status))
        ++command_lines_interrupted;
    make_output_blocking();
    return status;
}

int capture_command_line(ReadTarget target, const CommandLine &line) {
    target.data[0] = '\0';
    if (!may_run(line))
        return -1;
    std::size_t length = 0;
    {
        Pipe pipe(line.text());
        if (!pipe)
            return -1;
        length = pipe.read_all(target.data, target.limit);
    }
    make_output_blocking();
    if (length > 0 && target.data[length - 1] == '\n')
        --length;
    target.data[length] = '\0';
    return 0;
}

void save_configuration() {
    run_command("/etc/scripts/misc/profile.sh put");
}
