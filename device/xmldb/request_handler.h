// What the daemon answers to a request, bytes in and bytes out: nothing here knows of sockets.
#pragma once

#include "journal_writer.h"
#include "node_tree.h"
#include "protocol.h"

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>

// Seconds since some moment, never set back.
using SecondsClock = std::chrono::seconds();

class RequestHandler {
public:
    // Works on `tree` and enters changes into `journal`; both outlive the handler. The device's
    // uptime counts on from the number that was put into its node.
    RequestHandler(NodeTree &tree, const JournalWriter &journal,
                   SecondsClock *clock = steady_seconds)
        : tree_(tree), journal_(journal), clock_(clock), uptime_written_(clock()) {}
    virtual ~RequestHandler() = default;
    RequestHandler(const RequestHandler &) = delete;
    RequestHandler &operator=(const RequestHandler &) = delete;

    // How many bytes the first request in `bytes` takes, or 0 while it is not there whole.
    [[nodiscard]] static std::size_t request_size(std::string_view bytes);

    // Carries out one whole request and gives the bytes of its reply. The request's text ends at
    // its first NUL, or else where the request ends. Unknown actions and requests that cannot be
    // carried out change nothing; they are answered with the status -1, or an empty text where
    // the action's reply is a text.
    virtual std::string answer(std::string_view request);

    // Called when a client has connected.
    virtual void note_connection() {}

    // Whether the client that was answered last, or has just connected, is let go.
    [[nodiscard]] virtual bool hangs_up() const { return false; }

    // Whether a request asked the daemon to end.
    [[nodiscard]] bool stopping() const { return stopping_; }

private:
    static std::chrono::seconds steady_seconds();

    [[nodiscard]] std::string get(std::string_view path) const;
    bool set(std::string_view text, bool journaled);
    bool remove(std::string_view path, bool journaled);
    bool load(const std::string &file);

    NodeTree &tree_;
    const JournalWriter &journal_;
    SecondsClock *clock_;
    std::chrono::seconds uptime_written_;
    bool stopping_ = false;
};
