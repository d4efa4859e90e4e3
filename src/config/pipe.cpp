#include "config/pipe.h"

#include <cerrno>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>

Pipe::Pipe(const char *command) {
    struct sigaction ignore {};
    ignore.sa_handler = SIG_IGN;
    sigaction(SIGINT, &ignore, &interrupt_);
    sigaction(SIGQUIT, &ignore, &quit_);

    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        return;
    output_.reset(ends[0]);
    const UniqueFd input(ends[1]);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    sigset_t defaults;
    sigemptyset(&defaults);
    sigaddset(&defaults, SIGINT);
    sigaddset(&defaults, SIGQUIT);
    posix_spawnattr_setsigdefault(&attributes, &defaults);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);

    char name[] = "sh";
    char option[] = "-c";
    char *const arguments[] = {name, option, const_cast<char *>(command), nullptr};
    if (posix_spawn_file_actions_adddup2(&actions, input.get(), STDOUT_FILENO) != 0 ||
        posix_spawn(&shell_, "/bin/sh", &actions, &attributes, arguments, environ) != 0)
        shell_ = -1;
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
}

Pipe::~Pipe() {
    output_.reset();
    while (shell_ > 0 && waitpid(shell_, nullptr, 0) < 0 && errno == EINTR) {
    }
    sigaction(SIGINT, &interrupt_, nullptr);
    sigaction(SIGQUIT, &quit_, nullptr);
}

std::size_t Pipe::read_all(char *kept, std::size_t limit) {
    std::size_t length = 0;
    char dropped[256];
    while (true) {
        const bool full = length == limit;
        const ssize_t got = full ? read(output_.get(), dropped, sizeof dropped)
                                 : read(output_.get(), kept + length, limit - length);
        if (got == 0 || (got < 0 && errno != EINTR))
            return length;
        if (got > 0 && !full)
            length += static_cast<std::size_t>(got);
    }
}
