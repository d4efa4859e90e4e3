#include "session/session_socket.h"

#include <cerrno>
#include <cstring>
#include <sys/socket.h>
#include <unistd.h>

namespace session {

namespace {

constexpr std::size_t STREAMS = std::tuple_size_v<StandardStreams>;
constexpr int MOST_BYTES = 1 << 20; // more than a socket takes in one piece

// A message of this text, with room for the descriptors that travel with it.
struct Message {
    explicit Message(std::string &text) : body{text.data(), text.size()} {
        header.msg_iov = &body;
        header.msg_iovlen = 1;
        header.msg_control = passengers.data();
        header.msg_controllen = passengers.size();
    }
    Message(const Message &) = delete;
    Message &operator=(const Message &) = delete;

    iovec body;
    alignas(cmsghdr) std::array<char, CMSG_SPACE(STREAMS * sizeof(int))> passengers{};
    msghdr header{};
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

StandardStreams take_streams(Message &message) {
    StandardStreams streams;
    const cmsghdr *header = CMSG_FIRSTHDR(&message.header);
    if (header == nullptr || header->cmsg_type != SCM_RIGHTS)
        return streams;
    for (std::size_t i = 0; i < STREAMS && CMSG_LEN((i + 1) * sizeof(int)) <= header->cmsg_len;
         ++i) {
        int fd = -1;
        std::memcpy(&fd, CMSG_DATA(header) + i * sizeof fd, sizeof fd);
        streams.at(i).reset(fd);
    }
    return streams;
}

} // namespace

bool send_request(int connection, const SessionRequest &request) {
    std::string text = request.terminal_type + '\0';
    for (const std::string &word : request.command)
        text.append(word) += '\0';

    Message message(text);
    cmsghdr *header = CMSG_FIRSTHDR(&message.header);
    header->cmsg_level = SOL_SOCKET;
    header->cmsg_type = SCM_RIGHTS;
    header->cmsg_len = CMSG_LEN(STREAMS * sizeof(int));
    constexpr std::array<int, STREAMS> FDS{STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO};
    std::memcpy(CMSG_DATA(header), FDS.data(), sizeof FDS);

    // Room for a long command line.
    setsockopt(connection, SOL_SOCKET, SO_SNDBUF, &MOST_BYTES, sizeof MOST_BYTES);
    return sendmsg(connection, &message.header, MSG_NOSIGNAL) == static_cast<ssize_t>(text.size());
}

SessionMessage receive_message(int connection) {
    std::string text(MOST_BYTES, '\0');
    Message message(text);
    const ssize_t length = recvmsg(connection, &message.header, MSG_CMSG_CLOEXEC | MSG_DONTWAIT);
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
