// The terminal that this process was started on, connected to another one with a program on it.
#pragma once

#include "session/pty_process.h"

#include <array>
#include <functional>
#include <optional>
#include <termios.h>

namespace session {

class OuterTerminal {
public:
    // The first of the standard streams that leads to a terminal; else none.
    OuterTerminal();

    [[nodiscard]] bool exists() const { return settings_.has_value(); }

    // Which of the standard streams lead to a terminal.
    [[nodiscard]] const std::array<bool, 3> &streams() const { return streams_; }

    // As it was found. It has to exist.
    [[nodiscard]] const termios &settings() const { return *settings_; }

    // Its size at this moment; the standard size where it has none.
    [[nodiscard]] winsize window() const;

    // The descriptor to write to.
    [[nodiscard]] int output_fd() const;

    // Switches to raw input, if standard input is this terminal; with `output_too` to raw output as
    // well.
    void make_transparent(bool output_too) const;

    // Restores its settings, also when this process runs in the background.
    void restore() const;

private:
    std::array<bool, 3> streams_;
    int fd_ = -1;
    std::optional<termios> settings_{};
};

// From here on, a change of the terminal's size interrupts system calls that wait (EINTR).
void notice_resizing();

// Runs `work` in a child process, and restores the terminal however that ends. A signal that would
// end this process (SIGHUP, SIGINT, SIGQUIT, SIGTERM) ends the work. Result: the status of the work
// (128 + the signal, if it was ended by one).
int run_guarded(const OuterTerminal &terminal, const std::function<int()> &work);

// Runs `command` on a terminal of its own, connected to the outer one: the standard streams that
// lead to the outer one lead to its own there. Result: its exit status. Throws
// std::system_error.
int pass_through(const OuterTerminal &terminal, const std::vector<std::string> &command);

} // namespace session
