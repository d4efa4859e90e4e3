// Serves a RequestHandler on a Unix-domain socket: many clients at a time, none of which can hold
// up the others, whatever it sends or leaves unread.
#pragma once

#include "request_handler.h"

#include <cstdint>
#include <list>
#include <string>

class Server {
public:
    // `handler` outlives the server.
    explicit Server(RequestHandler &handler);
    ~Server(); // closes every connection and removes the socket's file
    Server(const Server &) = delete;
    Server &operator=(const Server &) = delete;

    // Binds the socket, replacing a stale one, and listens; from here on clients can connect.
    // False, with errno set, when that failed.
    bool listen_on(const std::string &path);

    // Serves until a request asks the daemon to end, or until poll fails (false, with errno set).
    bool run();

private:
    struct Connection {
        int fd;
        std::uint64_t last_active;
        std::string received = {};
        std::string unsent = {};
        bool ended = false; // the client sends no more

        void receive();
        void send_unsent();
    };

    void accept_client();
    void make_room();
    void serve(Connection &connection);
    void close_ended();

    RequestHandler &handler_;
    std::string path_;
    int listener_ = -1;
    std::uint64_t turn_ = 0;
    std::list<Connection> connections_;
};
