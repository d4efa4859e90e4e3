// Reading what a tool prints.
#pragma once

#include "config/unique_fd.h"

#include <csignal>
#include <cstddef>
#include <sys/types.h>

// A command line that the system shell runs with a pipe as its standard output. While it lives, the
// keyboard's interrupt and quit end the tool and not this process, as with std::system.
class Pipe {
public:
    // Starts `sh -c COMMAND`, which may fail: test the pipe before use.
    explicit Pipe(const char *command);
    Pipe(const Pipe &) = delete;
    Pipe &operator=(const Pipe &) = delete;
    // Waits for the shell's end.
    ~Pipe();

    // False when the pipe or the process could not be made.
    explicit operator bool() const { return shell_ > 0; }

    // Reads all output, so that the tool never blocks, and keeps the first `limit` bytes; returns
    // how many were kept.
    std::size_t read_all(char *kept, std::size_t limit);

private:
    struct sigaction interrupt_ {};
    struct sigaction quit_ {};
    UniqueFd output_;
    pid_t shell_ = -1;
};
