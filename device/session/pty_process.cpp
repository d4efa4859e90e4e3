#include "session/pty_process.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <system_error>
#include <termios.h>
#include <unistd.h>

namespace session {

namespace {

[[noreturn]] void fail(const char *what) {
    throw std::system_error(errno, std::generic_category(), what);
}

void check(int result, const char *what) {
    if (result < 0)
        fail(what);
}

UniqueFd open_terminal() {
    UniqueFd terminal(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC));
    check(terminal.get(), "posix_openpt");
    check(grantpt(terminal.get()), "grantpt");
    check(unlockpt(terminal.get()), "unlockpt");
    check(fcntl(terminal.get(), F_SETFL, O_NONBLOCK), "fcntl");
    return terminal;
}

std::string name_of(const UniqueFd &terminal) {
    std::array<char, 64> name{};
    if (ptsname_r(terminal.get(), name.data(), name.size()) != 0)
        fail("ptsname_r");
    return name.data();
}

bool poll_for(int fd, short events, int milliseconds) {
    pollfd wanted{fd, events, 0};
    return poll(&wanted, 1, milliseconds) > 0;
}

} // namespace

PtyProcess::PtyProcess(const std::vector<std::string> &command, ConsoleInput input,
                       const winsize &window)
    : terminal_(open_terminal()), terminal_name_(name_of(terminal_)), window_(window) {
    termios settings{};
    check(tcgetattr(terminal_.get(), &settings), "tcgetattr");
    settings.c_oflag &= ~static_cast<tcflag_t>(OPOST);
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
    : terminal_(open_terminal()), terminal_name_(name_of(terminal_)), window_(window) {
    check(tcsetattr(terminal_.get(), TCSANOW, &settings), "tcsetattr");
    check(ioctl(terminal_.get(), TIOCSWINSZ, &window_), "TIOCSWINSZ");
    spawn(command, on_terminal, STDIN_FILENO);
}

// `stdin_fd` is for a standard input that is not the terminal. The first terminal that a session
// leader opens becomes its controlling one.
void PtyProcess::spawn(const std::vector<std::string> &command,
                       const std::array<bool, 3> &on_terminal, int stdin_fd) {
    std::vector<char *> words;
    words.reserve(command.size() + 1);
    for (const std::string &word : command)
        words.push_back(const_cast<char *>(word.c_str()));
    words.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    if (!on_terminal[STDIN_FILENO])
        posix_spawn_file_actions_adddup2(&actions, stdin_fd, STDIN_FILENO);
    int opened = -1;
    for (int fd = STDIN_FILENO; fd <= STDERR_FILENO; ++fd) {
        if (!on_terminal.at(static_cast<std::size_t>(fd)))
            continue;
        if (opened < 0)
            posix_spawn_file_actions_addopen(&actions, fd, terminal_name_.c_str(), O_RDWR, 0);
        else
            posix_spawn_file_actions_adddup2(&actions, opened, fd);
        opened = fd;
    }

    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    sigset_t none;
    sigemptyset(&none);
    sigset_t defaults;
    sigfillset(&defaults);
    posix_spawnattr_setsigmask(&attributes, &none);
    posix_spawnattr_setsigdefault(&attributes, &defaults);
    posix_spawnattr_setflags(&attributes,
                             POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);

    const int error = posix_spawnp(&pid_, words[0], &actions, &attributes, words.data(), environ);
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0)
        throw std::system_error(error, std::generic_category(), command[0]);
    process_.reset(static_cast<int>(syscall(SYS_pidfd_open, pid_, 0)));
    check(process_.get(), "pidfd_open");
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
    termios settings{};
    return tcgetattr(terminal_.get(), &settings) == 0 && (settings.c_lflag & ICANON) == 0;
}

// Polling the program's side makes the kernel deliver what is still on its way to it, so that "not
// readable" means "read".
bool PtyProcess::input_is_drained() const {
    const UniqueFd program_side(open(terminal_name_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC));
    return !program_side || !poll_for(program_side.get(), POLLIN, 0);
}

int PtyProcess::wait_exit(std::chrono::milliseconds limit) {
    if (exit_status_ >= 0)
        return exit_status_;
    if (!poll_for(process_.get(), POLLIN, static_cast<int>(limit.count())))
        return -1;
    int status = 0;
    check(waitpid(pid_, &status, 0), "waitpid");
    exit_status_ = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    return exit_status_;
}

} // namespace session
