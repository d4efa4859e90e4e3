// The sessions of a running device: the programs that are started in it from outside.
#pragma once

#include "session/session_socket.h"

#include <chrono>
#include <list>
#include <optional>
#include <sys/types.h>

class SessionServer {
public:
    // `listener`: a listening, non-blocking socket of whole messages. Blocks SIGCHLD and SIGTERM.
    explicit SessionServer(UniqueFd listener);

    // Starts the program that brings the device up. Sessions begin once it has ended well; then
    // `ready` is closed, with a byte written to it before.
    void boot(const char *program, UniqueFd ready);

    // Serves, and reaps every child, until nobody is connected or SIGTERM comes. Result: the status
    // to end with, 0 unless the boot failed.
    int run();

private:
    using Clock = std::chrono::steady_clock;

    struct Session {
        UniqueFd connection;
        pid_t leader = -1;
        std::optional<Clock::time_point> killed_at{}; // set when the connection has gone
    };

    void accept_clients();
    void serve(Session &each);
    static void open_session(Session &each, const session::SessionMessage &message);
    void hang_up(Session &each);
    void reap_children();
    void note_boot(int status);
    void kill_overdue();
    [[nodiscard]] bool someone_is_connected() const;
    [[nodiscard]] int wait_limit() const;

    UniqueFd listener_;
    UniqueFd signals_;
    UniqueFd ready_; // while the device comes up
    pid_t booting_ = -1;
    std::optional<int> boot_failure_{};
    std::list<Session> sessions_;
};
