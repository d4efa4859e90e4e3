#include "database_control.h"

#include "protocol.h"
#include "unix_socket.h"

#include <limits>
#include <poll.h>
#include <stdexcept>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr int LOOK_INTERVAL_MS = 1;
constexpr int MOST_LOOKS = 60'000;

} // namespace

void DatabaseControl::set(std::string_view path, std::string_view value) const {
    request(XMLDB_SET, std::string(path).append(" ").append(value));
}

void DatabaseControl::stop() const {
    request(XMLDB_STOP, "");
    // It answers first and then removes its socket.
    for (int looks = 0; access(socket_path_.c_str(), F_OK) == 0; ++looks) {
        if (looks == MOST_LOOKS)
            throw std::runtime_error("the database does not end");
        poll(nullptr, 0, LOOK_INTERVAL_MS);
    }
}

void DatabaseControl::request(std::uint16_t action, const std::string &text) const {
    if (text.size() >= std::numeric_limits<std::uint16_t>::max())
        throw std::runtime_error("the request is too long: " + text);
    const auto length = static_cast<std::uint16_t>(text.size() + 1);
    const XmldbRequestHeader header{
        .action = swapped_ ? __builtin_bswap16(action) : action,
        .length = swapped_ ? __builtin_bswap16(length) : length,
        .flags = swapped_ ? __builtin_bswap32(XMLDB_UNJOURNALED) : XMLDB_UNJOURNALED,
        .reserved = {},
    };
    std::string bytes(reinterpret_cast<const char *>(&header), sizeof header);
    bytes.append(text) += '\0';

    const UniqueFd daemon = connect_to(socket_path_, SOCK_STREAM);
    XmldbStatusReply reply{};
    if (send(daemon.get(), bytes.data(), bytes.size(), MSG_NOSIGNAL) !=
            static_cast<ssize_t>(bytes.size()) ||
        recv(daemon.get(), &reply, sizeof reply, MSG_WAITALL) != sizeof reply || reply.result == -1)
        throw std::runtime_error("the database does not accept: " + text);
}
