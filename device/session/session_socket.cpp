#include "session/session_socket.h"

#include <cerrno>
#include <cstring>
#include <sys/socket.h>
#include <unistd.h>

namespace session {

namespace {

constexpr std::size_t STREAMS = std::tuple_size_v<StandardStreams>;
constexpr std::size_t MOST_BYTES = std::size_t{1}
                                   << 20; // more than a socket passes on in one piece

// Room for the descriptors that travel with a message.
union Passengers {
    std::array<char, CMSG_SPACE(STREAMS * sizeof(int))> bytes;
    cmsghdr alignment;
};

std::optional<SessionRequest> parse_request(const std::string &text) {
    std::vector<std::string> words;
    for (std::size_t begin = 0, end = 0; (end = text.find('\0', begin)) != std::string::npos;
         begin = end + 1)
        words.push_back(text.substr(begin, end - begin));
    if (words.size() < 2)
        return std::nullopt;
    return SessionRequest{words.front(), {words.begin() + 1, words.end()}};
}

StandardStreams take_streams(msghdr &message) {
    StandardStreams streams;
    for (cmsghdr *header = CMSG_FIRSTHDR(&message); header != nullptr;
         header = CMSG_NXTHDR(&message, header)) {
        if (header->cmsg_level != SOL_SOCKET || header->cmsg_type != SCM_RIGHTS)
            continue;
        for (std::size_t i = 0; i < STREAMS && CMSG_LEN((i + 1) * sizeof(int)) <= header->cmsg_len;
             ++i) {
            int fd = -1;
            std::memcpy(&fd, CMSG_DATA(header) + i * sizeof fd, sizeof fd);
            streams.at(i).reset(fd);
        }
    }
    return streams;
}

} // namespace

bool send_request(int connection, const SessionRequest &request) {
    std::string text = request.terminal_type + '\0';
    for (const std::string &word : request.command)
        text.append(word) += '\0';

    iovec body{text.data(), text.size()};
    Passengers passengers{};
    msghdr message{};
    message.msg_iov = &body;
    message.msg_iovlen = 1;
    message.msg_control = passengers.bytes.data();
    message.msg_controllen = passengers.bytes.size();
    cmsghdr *header = CMSG_FIRSTHDR(&message);
    header->cmsg_level = SOL_SOCKET;
    header->cmsg_type = SCM_RIGHTS;
    header->cmsg_len = CMSG_LEN(STREAMS * sizeof(int));
    constexpr std::array<int, STREAMS> FDS{STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO};
    std::memcpy(CMSG_DATA(header), FDS.data(), sizeof FDS);

    // Room for a long command line.
    constexpr int BUFFER_SIZE = MOST_BYTES;
    setsockopt(connection, SOL_SOCKET, SO_SNDBUF, &BUFFER_SIZE, sizeof BUFFER_SIZE);
    return sendmsg(connection, &message, MSG_NOSIGNAL) == static_cast<ssize_t>(text.size());
}

SessionMessage receive_message(int connection) {
    std::string text(MOST_BYTES, '\0');
    iovec body{text.data(), text.size()};
    Passengers passengers{};
    msghdr message{};
    message.msg_iov = &body;
    message.msg_iovlen = 1;
    message.msg_control = passengers.bytes.data();
    message.msg_controllen = passengers.bytes.size();
    const ssize_t length = recvmsg(connection, &message, MSG_CMSG_CLOEXEC | MSG_DONTWAIT);
    if (length < 0)
        return {.ended = errno != EAGAIN && errno != EINTR};
    text.resize(static_cast<std::size_t>(length));

    SessionMessage received{.streams = take_streams(message)};
    if (length == 1)
        received.signal_number = static_cast<unsigned char>(text.front());
    else if (received.streams.back())
        received.request = parse_request(text);
    received.ended = received.signal_number == 0 && !received.request;
    return received;
}

} // namespace session
