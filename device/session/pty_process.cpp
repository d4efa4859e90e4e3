#include "session/pty_process.h"

#include "session/machine_link.h"
#include "session/process.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

namespace session {

namespace {

UniqueFd open_terminal() {
    UniqueFd terminal(check(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC), "posix_openpt"));
    check(unlockpt(terminal.get()), "unlockpt");
    check(fcntl(terminal.get(), F_SETFL, O_NONBLOCK), "fcntl");
    return terminal;
}

// The side that a program has of a terminal.
UniqueFd program_side(const UniqueFd &terminal) {
    return UniqueFd(ioctl(terminal.get(), TIOCGPTPEER, O_RDWR | O_NOCTTY | O_CLOEXEC));
}

bool poll_for(int fd, short events, int milliseconds) {
    pollfd wanted{fd, events, 0};
    return poll(&wanted, 1, milliseconds) > 0;
}

} // namespace

PtyProcess::PtyProcess(const std::vector<std::string> &command, ConsoleInput input,
                       const winsize &window, std::string machine)
    : machine_(std::move(machine)), terminal_(open_terminal()), window_(window) {
    termios settings{};
    check(tcgetattr(terminal_.get(), &settings), "tcgetattr");
    // An emulator switches OPOST back on.
    settings.c_oflag &= ~static_cast<tcflag_t>(OPOST | ONLCR);
    check(tcsetattr(terminal_.get(), TCSANOW, &settings), "tcsetattr");
    check(ioctl(terminal_.get(), TIOCSWINSZ, &window_), "TIOCSWINSZ");

    UniqueFd pipe_end;
    if (input == ConsoleInput::PIPE) {
        std::array<int, 2> ends{};
        check(pipe2(ends.data(), O_CLOEXEC), "pipe2");
        pipe_end.reset(ends[0]);
        input_pipe_.reset(ends[1]);
        check(fcntl(input_pipe_.get(), F_SETFL, O_NONBLOCK), "fcntl");
    }
    spawn(command, {input == ConsoleInput::TERMINAL, true, true}, pipe_end.get());
}

PtyProcess::PtyProcess(const std::vector<std::string> &command,
                       const std::array<bool, 3> &on_terminal, const termios &settings,
                       const winsize &window)
    : terminal_(open_terminal()), window_(window) {
    check(tcsetattr(terminal_.get(), TCSANOW, &settings), "tcsetattr");
    check(ioctl(terminal_.get(), TIOCSWINSZ, &window_), "TIOCSWINSZ");
    spawn(command, on_terminal, STDIN_FILENO);
}

// `stdin_fd` is for a standard input that is not the terminal.
void PtyProcess::spawn(const std::vector<std::string> &command,
                       const std::array<bool, 3> &on_terminal, int stdin_fd) {
    const UniqueFd side(check(program_side(terminal_).release(), "TIOCGPTPEER"));
    pid_ = check(fork(), "fork");
    if (pid_ == 0) {
        setsid();
        ioctl(side.get(), TIOCSCTTY, 0);
        dup2(on_terminal[STDIN_FILENO] ? side.get() : stdin_fd, STDIN_FILENO);
        for (const int fd : {STDOUT_FILENO, STDERR_FILENO}) {
            if (on_terminal.at(static_cast<std::size_t>(fd)))
                dup2(side.get(), fd);
        }
        become(command);
    }
    process_.reset(check(static_cast<int>(syscall(SYS_pidfd_open, pid_, 0)), "pidfd_open"));
}

PtyProcess::~PtyProcess() {
    if (exit_status_ >= 0)
        return;
    kill(pid_, SIGKILL);
    waitpid(pid_, nullptr, 0);
}

int PtyProcess::input_fd() const {
    return input_pipe_ ? input_pipe_.get() : terminal_.get();
}

bool PtyProcess::read_output(std::string &output) {
    std::array<char, 4096> bytes; // NOLINT(*-member-init): read fills it
    for (;;) {
        const ssize_t count = read(terminal_.get(), bytes.data(), bytes.size());
        if (count > 0)
            output.append(bytes.data(), static_cast<std::size_t>(count));
        else if (count < 0 && errno == EAGAIN)
            return true;
        else if (count == 0 || errno != EINTR)
            return false; // EIO: no process has the terminal open any more
    }
}

void PtyProcess::write_input(std::string_view bytes, std::string &output) {
    while (!bytes.empty()) {
        const ssize_t count = write(input_fd(), bytes.data(), bytes.size());
        if (count >= 0) {
            bytes.remove_prefix(static_cast<std::size_t>(count));
            continue;
        }
        if (errno != EAGAIN && errno != EINTR)
            return;
        // Full: the program may itself be waiting for room for its output.
        std::array<pollfd, 2> wanted{{{terminal_.get(), POLLIN, 0}, {input_fd(), POLLOUT, 0}}};
        poll(wanted.data(), wanted.size(), -1);
        if (!read_output(output))
            return;
    }
}

std::size_t PtyProcess::offer_input(std::string_view bytes) {
    const ssize_t count = bytes.empty() ? 0 : write(input_fd(), bytes.data(), bytes.size());
    return static_cast<std::size_t>(std::max<ssize_t>(count, 0));
}

void PtyProcess::set_window(const winsize &window) {
    if (window.ws_col == window_.ws_col && window.ws_row == window_.ws_row)
        return;
    window_ = window;
    ioctl(terminal_.get(), TIOCSWINSZ, &window_);
}

void PtyProcess::close_input() {
    if (input_pipe_)
        input_pipe_.reset();
    else
        terminal_.reset();
}

bool PtyProcess::reads_single_characters() const {
    if (!machine_.empty())
        return ask_machine(machine_, MachineQuestion::READS_SINGLE_CHARACTERS);
    termios settings{};
    return tcgetattr(terminal_.get(), &settings) == 0 && (settings.c_lflag & ICANON) == 0;
}

// Polling the program's side makes the kernel deliver what is still on its way to it, so that "not
// readable" means "read".
bool PtyProcess::input_is_drained() const {
    const UniqueFd side = program_side(terminal_);
    return !side || (!poll_for(side.get(), POLLIN, 0) &&
                     (machine_.empty() || ask_machine(machine_, MachineQuestion::IS_IDLE)));
}

int PtyProcess::wait_exit(std::chrono::milliseconds limit) {
    if (exit_status_ >= 0)
        return exit_status_;
    if (!poll_for(process_.get(), POLLIN, static_cast<int>(limit.count())))
        return -1;
    int status = 0;
    check(waitpid(pid_, &status, 0), "waitpid");
    exit_status_ = session::exit_status(status);
    return exit_status_;
}

} // namespace session
