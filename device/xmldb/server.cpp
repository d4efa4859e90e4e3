#include "server.h"

#include "unix_socket.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr std::size_t READ_SIZE = 4096;

// Further clients wait until one leaves.
constexpr std::size_t MOST_CLIENTS = 1000;

bool is_temporary(int error) {
    return error == EAGAIN || error == EWOULDBLOCK || error == EINTR;
}

} // namespace

Server::~Server() {
    if (listener_)
        unlink(path_.c_str());
}

bool Server::listen_on(const std::string &path) {
    listener_ = listen_at(path, SOCK_STREAM | SOCK_NONBLOCK);
    path_ = path;
    return bool(listener_);
}

bool Server::run() {
    std::vector<pollfd> watched;
    while (!handler_.stopping()) {
        const bool has_room = connections_.size() < MOST_CLIENTS;
        watched.assign(1, {has_room ? listener_.get() : -1, POLLIN, 0});
        for (const Connection &each : connections_) {
            // Nothing is read from a client that does not read its replies.
            const auto events = static_cast<short>(each.unsent.empty() ? POLLIN : POLLOUT);
            watched.push_back({each.fd.get(), events, 0});
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
        std::erase_if(connections_,
                      [](const Connection &each) { return each.ended && each.unsent.empty(); });
        if (watched.front().revents != 0)
            accept_client();
    }
    return true;
}

void Server::accept_client() {
    UniqueFd client(accept4(listener_.get(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
    if (!client)
        return;
    handler_.note_connection();
    if (!handler_.hangs_up())
        connections_.push_back({std::move(client)});
}

void Server::serve(Connection &connection) {
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
        connection.ended = connection.ended || handler_.hangs_up();
        connection.send_unsent();
    }
}

void Server::Connection::receive() {
    std::array<char, READ_SIZE> buffer;
    const ssize_t length = read(fd.get(), buffer.data(), buffer.size());
    if (length > 0)
        received.append(buffer.data(), static_cast<std::size_t>(length));
    else if (length == 0 || !is_temporary(errno))
        ended = true;
}

void Server::Connection::send_unsent() {
    const ssize_t sent = send(fd.get(), unsent.data(), unsent.size(), MSG_NOSIGNAL);
    if (sent >= 0) {
        unsent.erase(0, static_cast<std::size_t>(sent));
    } else if (!is_temporary(errno)) {
        unsent.clear();
        received.clear();
        ended = true;
    }
}
