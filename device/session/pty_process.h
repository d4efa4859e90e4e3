// A program running on a pseudo-terminal of its own.
#pragma once

#include "config/unique_fd.h"

#include <array>
#include <chrono>
#include <string>
#include <string_view>
#include <sys/ioctl.h>
#include <sys/types.h>
#include <termios.h>
#include <vector>

namespace session {

enum class ConsoleInput {
    TERMINAL, // standard input is the pseudo-terminal
    PIPE,     // standard input is a pipe; output and errors still go to the pseudo-terminal
};

inline constexpr winsize STANDARD_WINDOW{24, 80, 0, 0};

// The terminal leaves output as the program writes it ("\n" stays "\n"). Failing system calls
// throw std::system_error.
class PtyProcess {
public:
    // Starts `command` (a program, looked up in PATH, and its arguments) as leader of a session
    // whose controlling terminal is the new pseudo-terminal. `machine`: the socket to the
    // computer that the command emulates, if it does (see ask_machine): its console's terminal is
    // the one that is asked about.
    PtyProcess(const std::vector<std::string> &command, ConsoleInput input,
               const winsize &window = STANDARD_WINDOW, std::string machine = {});
    // The same on a terminal with these settings. The standard streams that `on_terminal` names
    // lead to it; the program has the others from this process.
    PtyProcess(const std::vector<std::string> &command, const std::array<bool, 3> &on_terminal,
               const termios &settings, const winsize &window);
    PtyProcess(const PtyProcess &) = delete;
    PtyProcess &operator=(const PtyProcess &) = delete;
    // Kills the program if it still runs, and waits for its end.
    ~PtyProcess();

    // Where output can be polled for (POLLIN), and room for input (POLLOUT); readable or hung up
    // until read_output has seen the end. Non-blocking.
    [[nodiscard]] int output_fd() const { return terminal_.get(); }

    // Appends what the program has printed since the last call to `output`, without waiting. False
    // once the program's side of the terminal is closed and all has been read.
    bool read_output(std::string &output);

    // Feeds `bytes` to the program's standard input, and appends what it prints meanwhile to
    // `output`. Input that the program no longer takes, because it has ended, is dropped.
    void write_input(std::string_view bytes, std::string &output);

    // Feeds as many of the bytes to the program's standard input as there is room for. Result: how
    // many.
    std::size_t offer_input(std::string_view bytes);

    // Sets the size of the program's terminal, if it has changed.
    void set_window(const winsize &window);

    // Readable once the program has ended.
    [[nodiscard]] int process_fd() const { return process_.get(); }

    // Ends standard input: closes the pipe, or hangs the terminal up.
    void close_input();

    // Whether the terminal is switched to single characters, as the line editor has it while it
    // reads, never while a command runs.
    [[nodiscard]] bool reads_single_characters() const;

    // Whether the program has read every byte that was fed to it. Terminal input only.
    [[nodiscard]] bool input_is_drained() const;

    // Waits up to `limit` for the program's end. Result: its exit status (128 + the signal that
    // killed it), or -1 when it still runs.
    int wait_exit(std::chrono::milliseconds limit);

private:
    [[nodiscard]] int input_fd() const;
    void spawn(const std::vector<std::string> &command, const std::array<bool, 3> &on_terminal,
               int stdin_fd);

    std::string machine_;
    UniqueFd terminal_; // the controlling side
    UniqueFd input_pipe_;
    winsize window_;
    pid_t pid_ = -1;
    UniqueFd process_;
    int exit_status_ = -1;
};

} // namespace session
