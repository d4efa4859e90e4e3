// Runs a program on a device, which is started first unless it runs already, with this process's
// standard streams, and passes on its exit status (128 + the signal, if it was killed).
//
// usage: attach --state DIRECTORY [--alone] -- LAUNCH [ARGUMENT...] -- COMMAND [ARGUMENT...]
//
//   --alone   refuse to join a device that runs
//   LAUNCH    what starts the device. Its descriptors: 3 the socket to serve, see session_socket.h;
//             4 a pipe that gets a byte when the device is up; 5 the lock, which lives as long as a
//             process of the device has it open. Its standard output is the program's terminal, if
//             there is one, its standard error a pipe to this process.
//
// In DIRECTORY, "lock" is locked while the device runs, and "sessions" is its socket. The device
// ends with the last of its sessions, and the attach that had that one waits for its end.

#include "session/process.h"
#include "session/session_socket.h"
#include "unix_socket.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <optional>
#include <poll.h>
#include <stdexcept>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/signalfd.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using session::check;
using session::fail;
using session::SessionEvent;
using session::SessionReply;
using session::SessionRequest;

namespace {

constexpr int USAGE_STATUS = 2;
constexpr int FAILURE_STATUS = 126;

constexpr char LOCK_FILE[] = "lock";
constexpr char SOCKET_FILE[] = "sessions";

constexpr std::chrono::seconds DOWN_LIMIT{10}; // for a device to go down
constexpr int LOOK_INTERVAL_MS = 1;

struct Options {
    std::string state{};
    bool alone = false;
    std::vector<std::string> launch{};
    std::vector<std::string> command{};
};

std::optional<Options> read_options(const std::vector<std::string> &words) {
    Options options;
    auto word = words.begin() + 1;
    for (; word != words.end() && *word != "--"; ++word) {
        if (*word == "--alone")
            options.alone = true;
        else if (*word == "--state" && word + 1 != words.end())
            options.state = *++word;
        else
            return std::nullopt;
    }
    if (word == words.end() || options.state.empty())
        return std::nullopt;
    const auto separator = std::find(word + 1, words.end(), "--");
    options.launch.assign(word + 1, separator);
    if (separator != words.end())
        options.command.assign(separator + 1, words.end());
    if (options.launch.empty() || options.command.empty())
        return std::nullopt;
    return options;
}

// The standard streams exist, and are all that is inherited.
void tidy_descriptors() {
    int fd = 0;
    do {
        fd = check(open("/dev/null", O_RDWR), "/dev/null");
    } while (fd <= STDERR_FILENO);
    closefrom(STDERR_FILENO + 1);
}

// ---- the state directory, which is the working directory

// None when no device listens.
UniqueFd connect_to_device() {
    UniqueFd connection = connect_to(SOCKET_FILE, SOCK_SEQPACKET);
    if (!connection && errno != ENOENT && errno != ECONNREFUSED)
        fail(SOCKET_FILE);
    return connection;
}

UniqueFd listen_for_sessions() {
    const mode_t before = umask(S_IRWXG | S_IRWXO);
    UniqueFd listener = listen_at(SOCKET_FILE, SOCK_SEQPACKET | SOCK_NONBLOCK);
    umask(before);
    if (!listener)
        fail(SOCKET_FILE);
    return listener;
}

// None when a device has it.
UniqueFd take_lock() {
    UniqueFd lock(
        check(open(LOCK_FILE, O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, 0600), LOCK_FILE));
    if (flock(lock.get(), LOCK_EX | LOCK_NB) == 0)
        return lock;
    if (errno != EWOULDBLOCK)
        fail(LOCK_FILE);
    return {};
}

// ---- a device

struct Device {
    UniqueFd connection;
    UniqueFd complaints{}; // of a device that was started here: its standard error
    pid_t launcher = -1;
};

int own_terminal() {
    for (const int fd : {STDOUT_FILENO, STDIN_FILENO, STDERR_FILENO}) {
        if (isatty(fd))
            return fd;
    }
    return -1;
}

std::array<UniqueFd, 2> new_pipe() {
    std::array<int, 2> ends{};
    check(pipe2(ends.data(), O_CLOEXEC), "pipe2");
    return {UniqueFd(ends[0]), UniqueFd(ends[1])};
}

// In the launcher. The descriptors move out of the way first, so that none replaces another.
[[noreturn]] void launch(const Options &options, const UniqueFd &directory, int listener, int ready,
                         int lock, int complaints) {
    constexpr int ABOVE = 16;
    const std::array<int, 6> wanted{check(open("/dev/null", O_RDWR), "/dev/null"),
                                    own_terminal(),
                                    complaints,
                                    listener,
                                    ready,
                                    lock};
    std::array<int, wanted.size()> moved{};
    for (std::size_t place = 0; place < wanted.size(); ++place)
        moved.at(place) =
            fcntl(wanted.at(place) < 0 ? wanted[0] : wanted.at(place), F_DUPFD, ABOVE);
    setsid();
    check(fchdir(directory.get()), "fchdir");
    for (std::size_t place = 0; place < wanted.size(); ++place)
        check(dup2(moved.at(place), static_cast<int>(place)), "dup2");
    closefrom(static_cast<int>(wanted.size()));
    session::become(options.launch);
}

void pass_on_complaints(Device &device) {
    std::array<char, 4096> bytes; // NOLINT(*-member-init): read fills it
    const ssize_t count = read(device.complaints.get(), bytes.data(), bytes.size());
    if (count > 0) // nobody may be reading them
        [[maybe_unused]]
        const ssize_t written = write(STDERR_FILENO, bytes.data(), static_cast<std::size_t>(count));
    else if (count == 0 || errno != EINTR)
        device.complaints.reset();
}

// Starts the device, and waits until it is up. `directory` is where the launcher works.
Device start_device(const Options &options, const UniqueFd &lock, const UniqueFd &directory) {
    const UniqueFd listener = listen_for_sessions();
    Device device{.connection = connect_to_device()};
    std::array<UniqueFd, 2> ready = new_pipe();
    std::array<UniqueFd, 2> complaints = new_pipe();
    device.launcher = check(fork(), "fork");
    if (device.launcher == 0)
        launch(options, directory, listener.get(), ready[1].get(), lock.get(), complaints[1].get());
    ready[1].reset();
    complaints[1].reset();
    device.complaints = std::move(complaints[0]);

    for (;;) {
        std::array<pollfd, 2> watched{
            {{ready[0].get(), POLLIN, 0}, {device.complaints.get(), POLLIN, 0}}};
        poll(watched.data(), watched.size(), -1);
        if (watched[1].revents != 0)
            pass_on_complaints(device);
        else if (watched[0].revents != 0)
            break;
    }
    char byte = 0;
    if (read(ready[0].get(), &byte, 1) != 1)
        device.connection.reset();
    return device;
}

// ---- the session

// Gives up the controlling terminal, so that the program's session can have it, if this process
// leads a session.
void release_terminal() {
    if (getsid(0) != getpid())
        return;
    const auto before = std::signal(SIGHUP, SIG_IGN); // giving it up sends one
    const UniqueFd terminal(open("/dev/tty", O_RDWR | O_NOCTTY | O_CLOEXEC));
    if (terminal)
        ioctl(terminal.get(), TIOCNOTTY);
    std::signal(SIGHUP, before);
}

// The signals by which users and supervisors end a program.
UniqueFd watch_signals() {
    const sigset_t signals = session::not_ignored({SIGINT, SIGQUIT, SIGHUP, SIGTERM});
    sigprocmask(SIG_BLOCK, &signals, nullptr);
    return UniqueFd(signalfd(-1, &signals, SFD_CLOEXEC));
}

// Passes a signal on. Result: the status to end with, unless what follows is up to the program.
std::optional<int> take_signal(const UniqueFd &signals, const UniqueFd &connection) {
    signalfd_siginfo info{};
    if (read(signals.get(), &info, sizeof info) != sizeof info)
        return std::nullopt;
    const auto number = static_cast<unsigned char>(info.ssi_signo);
    send(connection.get(), &number, sizeof number, MSG_NOSIGNAL);
    if (number == SIGINT || number == SIGQUIT)
        return std::nullopt;
    return 128 + number;
}

// Runs the program. Result: its status, none when the device went down before it began.
std::optional<int> run_session(Device &device, const SessionRequest &request) {
    release_terminal();
    const UniqueFd signals = watch_signals();
    if (!session::send_request(device.connection.get(), request)) {
        if (errno == EPIPE || errno == ECONNRESET)
            return std::nullopt;
        fail("the command line");
    }
    const int terminal = own_terminal();
    bool taken = false;
    for (;;) {
        std::array<pollfd, 4> watched{{{device.connection.get(), POLLIN, 0},
                                       {signals.get(), POLLIN, 0},
                                       {device.complaints.get(), POLLIN, 0},
                                       {terminal, 0, 0}}};
        if (poll(watched.data(), watched.size(), -1) < 0)
            continue;
        if (watched[2].revents != 0)
            pass_on_complaints(device);
        if (watched[1].revents != 0) {
            if (const std::optional<int> status = take_signal(signals, device.connection))
                return status;
        }
        if (watched[0].revents != 0) {
            SessionReply reply;
            if (recv(device.connection.get(), &reply, sizeof reply, 0) != sizeof reply) {
                if (!taken)
                    return std::nullopt;
                std::fputs("The device went down.\n", stderr);
                return 1;
            }
            taken = true;
            if (reply.event == SessionEvent::ENDED)
                return reply.status;
        } else if ((watched[3].revents & (POLLHUP | POLLERR)) != 0) {
            return 128 + SIGHUP;
        }
    }
}

// Reports that this user leaves. Result: whether the device has others.
bool stays_without(const UniqueFd &connection) {
    shutdown(connection.get(), SHUT_WR);
    SessionReply reply;
    while (recv(connection.get(), &reply, sizeof reply, 0) == sizeof reply) {
        if (reply.event == SessionEvent::STAYS)
            return true;
    }
    return false;
}

// Leaves the device. Its last user waits until nothing of it is left.
void leave(Device &device) {
    const auto deadline = std::chrono::steady_clock::now() + DOWN_LIMIT;
    if (!stays_without(device.connection)) {
        while (!take_lock() && std::chrono::steady_clock::now() < deadline)
            poll(nullptr, 0, LOOK_INTERVAL_MS);
    }
    pollfd watched{device.complaints.get(), POLLIN, 0};
    while (device.complaints && poll(&watched, 1, 0) > 0)
        pass_on_complaints(device);
}

int run(const Options &options) {
    const UniqueFd directory(check(open(".", O_PATH | O_DIRECTORY | O_CLOEXEC), "."));
    if (chdir(options.state.c_str()) != 0)
        fail(options.state);
    const char *terminal_type = std::getenv("TERM");
    const SessionRequest request{terminal_type ? terminal_type : "vt100", options.command};

    const auto deadline = std::chrono::steady_clock::now() + DOWN_LIMIT;
    for (;;) {
        Device device{.connection = connect_to_device()};
        if (!device.connection) {
            if (const UniqueFd lock = take_lock()) {
                device = start_device(options, lock, directory);
                int failure = 0;
                if (!device.connection && waitpid(device.launcher, &failure, 0) > 0)
                    return session::exit_status(failure);
            }
        } else if (options.alone) {
            throw std::runtime_error("a device runs in " + options.state + " already");
        }
        if (device.connection) {
            if (const std::optional<int> status = run_session(device, request)) {
                leave(device);
                return *status;
            }
        }
        if (std::chrono::steady_clock::now() >= deadline)
            throw std::runtime_error("the device in " + options.state + " takes no sessions");
        poll(nullptr, 0, LOOK_INTERVAL_MS);
    }
}

} // namespace

int main(int argc, char **argv) {
    const std::optional<Options> options = read_options({argv, argv + argc});
    if (!options) {
        std::fputs("usage: attach --state DIRECTORY [--alone] -- LAUNCH [ARGUMENT...] -- COMMAND "
                   "[ARGUMENT...]\n",
                   stderr);
        return USAGE_STATUS;
    }
    try {
        std::signal(SIGPIPE, SIG_IGN);
        tidy_descriptors();
        return run(*options);
    } catch (const std::exception &error) {
        std::fprintf(stderr, "enter: %s\n", error.what());
        return FAILURE_STATUS;
    }
}
