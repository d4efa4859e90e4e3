#include "config/xmldb_client.h"

#include "config/text_utilities.h"

#include <cerrno>
#include <cstdarg>
#include <cstring>
#include <sys/select.h>
#include <sys/socket.h>
#include <sys/uio.h>
#include <sys/un.h>

const char *xmldb_default_socket = XMLDB_SOCKET;

namespace {

constexpr std::size_t SET_SIZE = 1024;
constexpr std::size_t FORMATTED_PATH_SIZE = 512;
constexpr std::size_t TEXT_CHUNK = 1024;

// Sends all parts, usually in one system call. Raises no SIGPIPE when the daemon is gone.
template <std::size_t N>
bool send_all(const UniqueFd &connection, iovec (&parts)[N]) {
    msghdr message{};
    message.msg_iov = parts;
    message.msg_iovlen = N;
    while (message.msg_iovlen > 0) {
        const ssize_t sent = sendmsg(connection.get(), &message, MSG_NOSIGNAL);
        if (sent <= 0)
            return false;
        auto done = static_cast<std::size_t>(sent);
        for (; message.msg_iovlen > 0 && done >= message.msg_iov->iov_len; --message.msg_iovlen)
            done -= message.msg_iov++->iov_len;
        if (done > 0) {
            message.msg_iov->iov_base = static_cast<char *>(message.msg_iov->iov_base) + done;
            message.msg_iov->iov_len -= done;
        }
    }
    return true;
}

int send_text(const UniqueFd &connection, std::uint16_t action, std::uint32_t flags,
              const char *text) {
    return xmldb_request(connection, action, flags, text, std::strlen(text) + 1);
}

// A truncated status counts as failure.
int read_status(const UniqueFd &connection) {
    XmldbStatusReply reply{};
    std::size_t have = 0;
    while (have < sizeof reply) {
        const ssize_t got =
            recv(connection.get(), reinterpret_cast<char *>(&reply) + have, sizeof reply - have, 0);
        if (got <= 0)
            return -1;
        have += static_cast<std::size_t>(got);
    }
    return reply.result;
}

void wait_readable(int fd) {
    fd_set readable;
    FD_ZERO(&readable);
    FD_SET(fd, &readable);
    select(fd + 1, &readable, nullptr, nullptr, nullptr);
}

} // namespace

UniqueFd xmldb_open(const char *socket_path) {
    UniqueFd connection(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    if (!connection) {
        flush_output();
        std::fprintf(stderr, "Cound not create unix domain socket: %s.\n", std::strerror(errno));
        return connection;
    }
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const char *path = socket_path != nullptr ? socket_path : xmldb_default_socket;
    std::memcpy(address.sun_path, path, strnlen(path, sizeof address.sun_path));
    if (connect(connection.get(), reinterpret_cast<const sockaddr *>(&address), sizeof address) !=
        0) {
        // Shows the argument, not the default. Deliberate.
        flush_output();
        std::fprintf(stderr, "Cound not connect to unix socket: %s.\n",
                     socket_path != nullptr ? socket_path : "(null)");
        connection.reset();
    }
    return connection;
}

void xmldb_close(UniqueFd &connection) {
    connection.reset();
}

int xmldb_request(const UniqueFd &connection, std::uint16_t action, std::uint32_t flags,
                  const char *payload, std::size_t length) {
    XmldbRequestHeader header{};
    header.action = action;
    header.length = static_cast<std::uint16_t>(length);
    header.flags = flags;
    iovec parts[] = {{&header, sizeof header}, {const_cast<char *>(payload), length}};
    return send_all(connection, parts) ? 0 : -1;
}

int xmldb_read_text(const UniqueFd &connection, std::FILE *stream) {
    char chunk[TEXT_CHUNK];
    while (true) {
        wait_readable(connection.get());
        const ssize_t got = read(connection.get(), chunk, sizeof chunk);
        if (got < 1)
            return static_cast<int>(got);
        const auto size = static_cast<std::size_t>(got);
        if (chunk[size - 1] == '\0') {
            std::fputs(chunk, stream);
            return static_cast<int>(got);
        }
        std::fwrite(chunk, 1, size, stream);
    }
}

int xmldb_get(const UniqueFd &connection, std::uint32_t flags, const char *path,
              std::FILE *stream) {
    return xmldb_text_action(connection, XMLDB_GET, flags, path, stream);
}

int xmldb_get_format(const UniqueFd &connection, char *buffer, std::size_t size, const char *path,
                     ...) {
    char expanded[FORMATTED_PATH_SIZE];
    std::va_list values;
    va_start(values, path);
    std::vsnprintf(expanded, sizeof expanded, path, values);
    va_end(values);
    if (send_text(connection, XMLDB_GET, 0, expanded) != 0)
        return -1;
    return static_cast<int>(read(connection.get(), buffer, size));
}

int xmldb_set(const UniqueFd &connection, std::uint32_t flags, const char *path,
              const char *value) {
    char text[SET_SIZE];
    std::snprintf(text, sizeof text, "%s %s", path, value);
    return xmldb_status_action(connection, XMLDB_SET, flags, text);
}

int xmldb_del(const UniqueFd &connection, std::uint32_t flags, const char *path) {
    return xmldb_status_action(connection, XMLDB_DEL, flags, path);
}

int xmldb_text_action(const UniqueFd &connection, std::uint16_t action, std::uint32_t flags,
                      const char *path, std::FILE *stream) {
    if (send_text(connection, action, flags, path) != 0)
        return -1;
    if (stream != nullptr && xmldb_read_text(connection, stream) < 0)
        return -1;
    return 0;
}

int xmldb_status_action(const UniqueFd &connection, std::uint16_t action, std::uint32_t flags,
                        const char *path) {
    return send_text(connection, action, flags, path) == 0 ? read_status(connection) : -1;
}
