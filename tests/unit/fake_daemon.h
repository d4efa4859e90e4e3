// A configuration daemon for unit tests: a map of nodes on a Unix socket of its own, served by a
// thread. It remembers every request and misbehaves when told to.
#pragma once

#include "config/unique_fd.h"
#include "config/xmldb_client.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <map>
#include <mutex>
#include <poll.h>
#include <string>
#include <string_view>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>
#include <tuple>
#include <unistd.h>
#include <utility>
#include <vector>

class FakeDaemon {
public:
    enum class Manner {
        Proper,
        HangUp,     // accepts and closes without reading
        NoAnswer,   // reads the request and closes
        NoNul,      // a text without its NUL, a status whole
        Huge,       // 100,000 bytes of text, for any request
        Garbage,    // 48 bytes of no meaning, none of them NUL, for any request
        ShortReply, // a text's first two bytes, a status's first five
        Refusal,    // carries no write out and answers -1; texts as they are
    };

    // Serves at once, as the default of xmldb_open.
    FakeDaemon() : usual_socket_(xmldb_default_socket) {
        char directory[] = "/tmp/fake_daemon.XXXXXX";
        if (mkdtemp(directory) == nullptr || pipe2(wake_, O_CLOEXEC) != 0)
            std::abort();
        directory_ = directory;
        socket_ = directory_ + "/socket";
        xmldb_default_socket = socket_.c_str();
        UniqueFd listener(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        socket_.copy(address.sun_path, sizeof address.sun_path - 1);
        if (bind(listener.get(), reinterpret_cast<const sockaddr *>(&address), sizeof address) !=
                0 ||
            listen(listener.get(), 64) != 0)
            std::abort();
        thread_ = std::thread(&FakeDaemon::serve, this, std::move(listener));
    }
    FakeDaemon(const FakeDaemon &) = delete;
    FakeDaemon &operator=(const FakeDaemon &) = delete;
    ~FakeDaemon() {
        stop();
        close(wake_[0]);
        close(wake_[1]);
        rmdir(directory_.c_str());
        xmldb_default_socket = usual_socket_;
    }

    // Goes away for good, so that nobody can connect.
    void stop() {
        if (!thread_.joinable())
            return;
        std::ignore = write(wake_[1], "", 1);
        thread_.join();
        unlink(socket_.c_str());
    }

    void behave(Manner manner) {
        const std::lock_guard guard(mutex_);
        manner_ = manner;
    }

    // Closes one connection unread, the `number`th from now.
    void drop(int number) {
        const std::lock_guard guard(mutex_);
        dropped_ = connections_ + number;
    }

    using Nodes = std::map<std::string, std::string>;

    // From now on there are these nodes and no others.
    void load(const Nodes &nodes) {
        const std::lock_guard guard(mutex_);
        nodes_ = nodes;
    }

    // A node's text, "" when there is none.
    [[nodiscard]] std::string node(const std::string &path) const {
        const std::lock_guard guard(mutex_);
        const auto found = nodes_.find(path);
        return found == nodes_.end() ? "" : found->second;
    }
    void put(const std::string &path, const std::string &text) {
        const std::lock_guard guard(mutex_);
        nodes_[path] = text;
    }

    // The requests since the last call, in order, as "get PATH", "set PATH VALUE", "del PATH" or
    // "ACTION TEXT" for a code without a name.
    std::vector<std::string> take_requests() {
        const std::lock_guard guard(mutex_);
        return std::exchange(requests_, {});
    }

    // The same, but only what changes nodes.
    std::vector<std::string> take_writes() {
        std::vector<std::string> requests = take_requests();
        std::erase_if(requests, [](const std::string &line) { return line.starts_with("get "); });
        return requests;
    }

    // Connections accepted since the start.
    [[nodiscard]] int connections() const {
        const std::lock_guard guard(mutex_);
        return connections_;
    }

private:
    struct Client {
        UniqueFd connection;
        std::string received;
    };

    void serve(UniqueFd listener) {
        std::vector<Client> clients;
        while (true) {
            std::vector<pollfd> ready{{wake_[0], POLLIN, 0}, {listener.get(), POLLIN, 0}};
            for (const Client &client : clients)
                ready.push_back({client.connection.get(), POLLIN, 0});
            if (poll(ready.data(), ready.size(), -1) < 0)
                continue;
            if (ready[0].revents != 0) {
                char byte = 0;
                std::ignore = read(wake_[0], &byte, 1);
                return;
            }
            for (std::size_t at = clients.size(); at-- > 0;) {
                if (ready[at + 2].revents != 0 && !serve_client(clients[at]))
                    clients.erase(clients.begin() + static_cast<std::ptrdiff_t>(at));
            }
            if (ready[1].revents != 0)
                accept_client(listener, clients);
        }
    }

    void accept_client(const UniqueFd &listener, std::vector<Client> &clients) {
        UniqueFd connection(accept4(listener.get(), nullptr, nullptr, SOCK_CLOEXEC));
        const std::lock_guard guard(mutex_);
        ++connections_;
        if (connection && manner_ != Manner::HangUp && connections_ != dropped_)
            clients.push_back({std::move(connection), {}});
    }

    // False when the connection is over.
    bool serve_client(Client &client) {
        char chunk[4096];
        const ssize_t got = recv(client.connection.get(), chunk, sizeof chunk, 0);
        if (got <= 0)
            return false;
        client.received.append(chunk, static_cast<std::size_t>(got));
        XmldbRequestHeader header{};
        while (client.received.size() >= sizeof header) {
            std::memcpy(&header, client.received.data(), sizeof header);
            const std::size_t size = sizeof header + header.length;
            if (client.received.size() < size)
                break;
            std::string payload = client.received.substr(sizeof header, header.length);
            payload.resize(std::min(payload.find('\0'), payload.size()));
            client.received.erase(0, size);
            if (!answer(client.connection, header.action, payload))
                return false;
        }
        return true;
    }

    bool answer(const UniqueFd &connection, std::uint16_t action, const std::string &payload) {
        std::string reply;
        bool whole = true;
        {
            const std::lock_guard guard(mutex_);
            whole = manner_ == Manner::Proper || manner_ == Manner::Refusal;
            reply = reply_to(action, payload);
        }
        for (std::string_view left = reply; !left.empty();) {
            const ssize_t sent = send(connection.get(), left.data(), left.size(), MSG_NOSIGNAL);
            if (sent <= 0)
                return false;
            left.remove_prefix(static_cast<std::size_t>(sent));
        }
        return whole;
    }

    std::string reply_to(std::uint16_t action, const std::string &payload) {
        record(action, payload);
        const bool is_text = action == XMLDB_GET || action == 6 || action == 7 || action == 10;
        if (!is_text && manner_ != Manner::Refusal)
            change(action, payload);
        std::string reply = is_text ? nodes_[payload] + '\0' : status(0);
        switch (manner_) {
        case Manner::Proper:
            return reply;
        case Manner::HangUp:
        case Manner::NoAnswer:
            return {};
        case Manner::NoNul:
            return is_text ? nodes_[payload] : reply;
        case Manner::Huge:
            reply.assign(100'000, 'x');
            return reply;
        case Manner::Garbage:
            return "\x01\xff%s%n\x1b[2J\x80garbage without any end, of no meaning\xfe\xfd";
        case Manner::ShortReply:
            return reply.substr(0, is_text ? 2 : 5);
        case Manner::Refusal:
            return is_text ? reply : status(-1);
        }
        return reply;
    }

    static std::string status(std::int32_t result) {
        XmldbStatusReply reply{};
        reply.result = result;
        return {reinterpret_cast<const char *>(&reply), sizeof reply};
    }

    void record(std::uint16_t action, const std::string &payload) {
        const std::string name = action == XMLDB_GET   ? "get"
                                 : action == XMLDB_SET ? "set"
                                 : action == XMLDB_DEL ? "del"
                                                       : std::to_string(action);
        requests_.push_back(name + ' ' + payload);
    }

    void change(std::uint16_t action, const std::string &payload) {
        const std::size_t blank = payload.find(' ');
        if (action == XMLDB_SET && blank != std::string::npos)
            nodes_[payload.substr(0, blank)] = payload.substr(blank + 1);
        else if (action == XMLDB_DEL)
            nodes_.erase(payload);
    }

    const char *usual_socket_;
    std::string directory_;
    std::string socket_;
    int wake_[2] = {-1, -1};
    std::thread thread_;
    mutable std::mutex mutex_;
    Manner manner_ = Manner::Proper;
    Nodes nodes_;
    std::vector<std::string> requests_;
    int connections_ = 0;
    int dropped_ = 0;
};
