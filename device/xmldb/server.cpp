#include "server.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr std::size_t READ_SIZE = 4096;

bool is_temporary(int error) {
    return error == EAGAIN || error == EWOULDBLOCK || error == EINTR;
}

} // namespace

Server::Server(RequestHandler &handler) : handler_(handler) {}

Server::~Server() {
    for (const Connection &connection : connections_)
        close(connection.fd);
    if (listener_ >= 0) {
        close(listener_);
        unlink(path_.c_str());
    }
}

bool Server::listen_on(const std::string &path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path) {
        errno = ENAMETOOLONG;
        return false;
    }
    std::ranges::copy(path, address.sun_path);
    const int fd = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (fd < 0)
        return false;
    unlink(path.c_str());
    if (bind(fd, reinterpret_cast<const sockaddr *>(&address), sizeof address) != 0 ||
        listen(fd, SOMAXCONN) != 0) {
        const int error = errno;
        close(fd);
        errno = error;
        return false;
    }
    listener_ = fd;
    path_ = path;
    return true;
}

bool Server::run() {
    std::vector<pollfd> watched;
    while (!handler_.stopping()) {
        ++turn_;
        watched.assign(1, {listener_, POLLIN, 0});
        for (const Connection &each : connections_) {
            // A client that leaves its replies unread is not listened to either.
            const auto events = static_cast<short>(each.unsent.empty() ? POLLIN : POLLOUT);
            watched.push_back({each.fd, events, 0});
        }
        if (poll(watched.data(), watched.size(), -1) < 0) {
            if (errno == EINTR)
                continue;
            return false;
        }
        auto event = watched.cbegin() + 1;
        for (Connection &each : connections_) {
            if ((event++)->revents != 0)
                serve(each);
        }
        close_ended();
        if (watched.front().revents != 0)
            accept_client();
    }
    return true;
}

// One client a turn: asked for one more than there is, accept4 may name the lack of a descriptor
// first.
void Server::accept_client() {
    const int fd = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
    if (fd >= 0) {
        handler_.count_connection();
        connections_.push_back({fd, turn_});
    } else if (errno == EMFILE || errno == ENFILE) {
        make_room();
    }
}

// Out of descriptors: the client that has been silent longest gives way to the one that waits.
void Server::make_room() {
    const auto idle = std::ranges::min_element(connections_, {}, &Connection::last_active);
    if (idle == connections_.end())
        return;
    close(idle->fd);
    connections_.erase(idle);
}

void Server::serve(Connection &connection) {
    connection.last_active = turn_;
    if (connection.unsent.empty())
        connection.receive();
    else
        connection.send_unsent();
    // One request at a time: its reply goes out before the next one is looked at.
    while (connection.unsent.empty()) {
        const std::size_t size = RequestHandler::request_size(connection.received);
        if (size == 0)
            return;
        connection.unsent = handler_.answer(std::string_view(connection.received).substr(0, size));
        connection.received.erase(0, size);
        connection.send_unsent();
    }
}

void Server::Connection::receive() {
    std::array<char, READ_SIZE> buffer;
    const ssize_t length = read(fd, buffer.data(), buffer.size());
    if (length > 0)
        received.append(buffer.data(), static_cast<std::size_t>(length));
    else if (length == 0 || !is_temporary(errno))
        ended = true;
}

void Server::Connection::send_unsent() {
    const ssize_t sent = send(fd, unsent.data(), unsent.size(), MSG_NOSIGNAL);
    if (sent >= 0) {
        unsent.erase(0, static_cast<std::size_t>(sent));
    } else if (!is_temporary(errno)) {
        unsent.clear();
        received.clear();
        ended = true;
    }
}

void Server::close_ended() {
    std::erase_if(connections_, [](const Connection &each) {
        const bool over = each.ended && each.unsent.empty();
        if (over)
            close(each.fd);
        return over;
    });
}
