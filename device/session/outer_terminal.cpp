#include "session/outer_terminal.h"

#include "session/process.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <ctime>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace session {

namespace {

// How long the work may take to end once a signal has asked it to.
constexpr timespec END_LIMIT{1, 0};

constexpr int HUNG_UP = 128 + SIGHUP;

constexpr std::initializer_list<int> ENDING{SIGHUP, SIGINT, SIGQUIT, SIGTERM};

const OuterTerminal *restored_terminal = nullptr;

void restore_and_exit(int number) {
    restored_terminal->restore();
    _exit(128 + number);
}

bool write_all(int fd, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = write(fd, bytes.data(), bytes.size());
        if (count >= 0) {
            bytes.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno == EAGAIN) {
            pollfd room{fd, POLLOUT, 0};
            poll(&room, 1, -1);
        } else if (errno != EINTR) {
            return false;
        }
    }
    return true;
}

} // namespace

OuterTerminal::OuterTerminal()
    : streams_{isatty(STDIN_FILENO) == 1, isatty(STDOUT_FILENO) == 1, isatty(STDERR_FILENO) == 1} {
    const auto *const first = std::ranges::find(streams_, true);
    if (first == streams_.end())
        return;
    fd_ = static_cast<int>(first - streams_.begin());
    if (termios settings{}; tcgetattr(fd_, &settings) == 0)
        settings_ = settings;
}

winsize OuterTerminal::window() const {
    winsize window{};
    if (ioctl(fd_, TIOCGWINSZ, &window) == 0 && window.ws_col > 0)
        return window;
    return STANDARD_WINDOW;
}

int OuterTerminal::output_fd() const {
    return streams_[STDOUT_FILENO] ? STDOUT_FILENO : streams_[STDERR_FILENO] ? STDERR_FILENO : fd_;
}

void OuterTerminal::make_transparent(bool output_too) const {
    if (!exists() || !streams_[STDIN_FILENO])
        return;
    termios transparent = *settings_;
    cfmakeraw(&transparent);
    if (!output_too)
        transparent.c_oflag = settings_->c_oflag;
    tcsetattr(fd_, TCSADRAIN, &transparent);
}

void OuterTerminal::restore() const {
    if (!exists())
        return;
    sigset_t stop;
    sigset_t before;
    sigemptyset(&stop);
    sigaddset(&stop, SIGTTOU);
    sigprocmask(SIG_BLOCK, &stop, &before);
    tcsetattr(fd_, TCSANOW, &*settings_);
    sigprocmask(SIG_SETMASK, &before, nullptr);
}

void notice_resizing() {
    struct sigaction action {};
    action.sa_handler = [](int) {};
    sigaction(SIGWINCH, &action, nullptr);
}

int run_guarded(const OuterTerminal &terminal, const std::function<int()> &work) {
    std::signal(SIGCHLD, SIG_DFL);
    sigset_t ends = not_ignored(ENDING);
    sigaddset(&ends, SIGCHLD);
    sigset_t before;
    sigprocmask(SIG_BLOCK, &ends, &before);
    const pid_t child = check(fork(), "fork");
    if (child == 0) {
        prctl(PR_SET_PDEATHSIG, SIGTERM);
        restored_terminal = &terminal;
        for (const int number : ENDING) {
            if (sigismember(&ends, number) == 1)
                std::signal(number, restore_and_exit);
        }
        sigprocmask(SIG_SETMASK, &before, nullptr);
        _exit(work());
    }

    std::optional<int> ended_by;
    int status = 0;
    while (waitpid(child, &status, WNOHANG) != child) {
        const int number = sigtimedwait(&ends, nullptr, ended_by ? &END_LIMIT : nullptr);
        if (number < 0 && errno == EAGAIN) {
            kill(child, SIGKILL);
        } else if (number > 0 && number != SIGCHLD) {
            ended_by = number;
            kill(child, SIGTERM);
        }
    }
    terminal.restore();
    return ended_by ? 128 + *ended_by : exit_status(status);
}

int pass_through(const OuterTerminal &terminal, const std::vector<std::string> &command) {
    // Other programs that write to the terminal, as at the end of a pipe, rely on how it treats
    // output.
    const bool only_writer = terminal.streams() == std::array{true, true, true};
    termios inner = terminal.settings();
    if (!only_writer)
        inner.c_oflag &= ~static_cast<tcflag_t>(OPOST);
    notice_resizing();
    PtyProcess process(command, terminal.streams(), inner, terminal.window());
    terminal.make_transparent(only_writer);

    std::array<char, 4096> bytes; // NOLINT(*-member-init): read fills it
    std::string printed;
    std::string typed;
    for (;;) {
        const short wanted = typed.empty() ? POLLIN : POLLIN | POLLOUT;
        const bool listens = terminal.streams()[STDIN_FILENO] && typed.empty();
        std::array<pollfd, 3> watched{{{process.process_fd(), POLLIN, 0},
                                       {process.output_fd(), wanted, 0},
                                       {listens ? STDIN_FILENO : -1, POLLIN, 0}}};
        const int ready = poll(watched.data(), watched.size(), -1);
        if (ready < 0 && errno != EINTR)
            fail("poll");
        process.set_window(terminal.window());
        if (ready < 0)
            continue;
        process.read_output(printed);
        if (!write_all(terminal.output_fd(), std::exchange(printed, {})))
            return HUNG_UP;
        if (watched[0].revents != 0)
            return process.wait_exit(std::chrono::seconds(0));
        if (watched[2].revents != 0) {
            const ssize_t count = read(STDIN_FILENO, bytes.data(), bytes.size());
            if (count == 0 || (count < 0 && errno != EINTR && errno != EAGAIN))
                return HUNG_UP;
            typed.assign(bytes.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
        }
        typed.erase(0, process.offer_input(typed));
    }
}

} // namespace session
