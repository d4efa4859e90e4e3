#include "session_server.h"

#include "session/process.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/signalfd.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>
#include <vector>

using session::SessionEvent;
using session::SessionMessage;
using session::SessionReply;
using session::SessionRequest;
using session::StandardStreams;

namespace {

// How long a program may take to end once its terminal or its caller has gone.
constexpr std::chrono::seconds HANG_UP_LIMIT{2};
constexpr int LOOK_INTERVAL_MS = 100;

constexpr int NOT_FOUND_STATUS = 127;

UniqueFd watched_signals() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGCHLD);
    sigaddset(&signals, SIGTERM);
    sigprocmask(SIG_SETMASK, &signals, nullptr);
    return UniqueFd(signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK));
}

void reply(const UniqueFd &connection, SessionEvent event, int status) {
    const SessionReply message{event, status};
    send(connection.get(), &message, sizeof message, MSG_NOSIGNAL | MSG_DONTWAIT);
}

// A child that leads a session of its own; the terminal, if there is one among its streams, is its
// controlling one.
[[noreturn]] void become_session(const SessionRequest &request, const StandardStreams &streams) {
    setsid();
    for (int fd = STDIN_FILENO; fd <= STDERR_FILENO; ++fd)
        dup2(streams.at(static_cast<std::size_t>(fd)).get(), fd);
    for (int fd = STDIN_FILENO; fd <= STDERR_FILENO; ++fd) {
        if (isatty(fd) && ioctl(fd, TIOCSCTTY, 0) == 0)
            break;
    }
    setenv("TERM", request.terminal_type.c_str(), 1);
    session::become(request.command);
}

} // namespace

SessionServer::SessionServer(UniqueFd listener)
    : listener_(std::move(listener)), signals_(watched_signals()) {}

void SessionServer::boot(const char *program, UniqueFd ready) {
    ready_ = std::move(ready);
    booting_ = fork();
    if (booting_ == 0)
        session::become({program});
    if (booting_ < 0) {
        std::perror("fork");
        boot_failure_ = 1;
    }
}

int SessionServer::run() {
    std::vector<pollfd> watched;
    for (;;) {
        accept_clients();
        if (boot_failure_ || !someone_is_connected())
            return boot_failure_.value_or(0);
        watched = {{signals_.get(), POLLIN, 0}, {listener_.get(), POLLIN, 0}};
        // Requests wait until the device is up; clients that leave are noticed before.
        const short wanted = booting_ > 0 ? 0 : POLLIN;
        for (const Session &each : sessions_)
            watched.push_back({each.connection.get(), wanted, 0});
        if (poll(watched.data(), watched.size(), wait_limit()) < 0)
            continue;
        auto event = watched.cbegin() + 2;
        for (Session &each : sessions_) {
            if ((event++)->revents != 0)
                serve(each);
        }
        signalfd_siginfo signal;
        while (read(signals_.get(), &signal, sizeof signal) > 0) {
            if (signal.ssi_signo == SIGTERM)
                return 0;
        }
        reap_children();
        kill_overdue();
        std::erase_if(sessions_,
                      [](const Session &each) { return !each.connection && each.leader < 0; });
    }
}

void SessionServer::accept_clients() {
    while (UniqueFd client{accept4(listener_.get(), nullptr, nullptr, SOCK_CLOEXEC)})
        sessions_.push_back({.connection = std::move(client)});
}

bool SessionServer::someone_is_connected() const {
    return std::ranges::any_of(sessions_,
                               [](const Session &each) { return bool(each.connection); });
}

void SessionServer::serve(Session &each) {
    if (booting_ > 0) {
        each.connection.reset();
        return;
    }
    const SessionMessage message = session::receive_message(each.connection.get());
    if (message.ended)
        hang_up(each);
    else if (message.request && each.leader < 0)
        open_session(each, message);
    else if (message.signal_number != 0 && each.leader > 0)
        kill(-each.leader, message.signal_number);
}

void SessionServer::open_session(Session &each, const SessionMessage &message) {
    each.leader = fork();
    if (each.leader == 0)
        become_session(*message.request, message.streams);
    if (each.leader > 0) {
        reply(each.connection, SessionEvent::TAKEN, 0);
        return;
    }
    dprintf(message.streams.back().get(), "fork: %s\n", std::strerror(errno));
    reply(each.connection, SessionEvent::ENDED, NOT_FOUND_STATUS);
}

void SessionServer::hang_up(Session &each) {
    const UniqueFd connection = std::exchange(each.connection, UniqueFd());
    if (someone_is_connected())
        reply(connection, SessionEvent::STAYS, 0);
    if (each.leader < 0)
        return;
    kill(-each.leader, SIGHUP);
    kill(-each.leader, SIGCONT);
    each.killed_at = Clock::now() + HANG_UP_LIMIT;
}

void SessionServer::reap_children() {
    int status = 0;
    pid_t pid = 0;
    while ((pid = waitpid(-1, &status, WNOHANG)) > 0) {
        if (pid == booting_)
            note_boot(session::exit_status(status));
        const auto ended = std::ranges::find(sessions_, pid, &Session::leader);
        if (ended == sessions_.end())
            continue;
        ended->leader = -1;
        reply(ended->connection, SessionEvent::ENDED, session::exit_status(status));
    }
}

void SessionServer::note_boot(int status) {
    booting_ = -1;
    if (status != 0)
        boot_failure_ = status;
    else if (write(ready_.get(), "", 1) < 0)
        std::perror("sessiond: the device is ready");
    ready_.reset();
}

void SessionServer::kill_overdue() {
    for (const Session &each : sessions_) {
        if (each.leader > 0 && each.killed_at && Clock::now() >= *each.killed_at)
            kill(-each.leader, SIGKILL);
    }
}

int SessionServer::wait_limit() const {
    const bool someone_is_dying = std::ranges::any_of(
        sessions_, [](const Session &each) { return each.killed_at.has_value(); });
    return someone_is_dying ? LOOK_INTERVAL_MS : -1;
}
