// How a program outside opens a session on a running device: by messages over a socket that the
// device's session server listens on.
//
//   request   the terminal's type, then the command's words, each with a NUL behind it; with it the
//             descriptors of the session's standard input, output and error
//   TAKEN     the session begins
//   a byte    the number of a signal for the session, while it lasts
//   ENDED     with the exit status (128 + the signal, if it was killed)
//   STAYS     to a client that ends its side while the device has others
//
// A connection that ends without TAKEN met a device that was going down, one that ends without
// STAYS was the last one, and the device goes down.
#pragma once

#include "config/unique_fd.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace session {

struct SessionRequest {
    std::string terminal_type{};
    std::vector<std::string> command{}; // at least the program
};

enum class SessionEvent : std::uint32_t { TAKEN, ENDED, STAYS };

struct SessionReply {
    SessionEvent event = SessionEvent::TAKEN;
    std::int32_t status = 0;
};

using StandardStreams = std::array<UniqueFd, 3>;

// Sends a request, with this process's standard streams. False, with errno set, when that failed.
bool send_request(int connection, const SessionRequest &request);

// What arrived at the server: a request, a signal's number or the end. Anything else counts as the
// end.
struct SessionMessage {
    std::optional<SessionRequest> request{};
    StandardStreams streams{};
    int signal_number = 0;
    bool ended = false;
};
SessionMessage receive_message(int connection);

} // namespace session
