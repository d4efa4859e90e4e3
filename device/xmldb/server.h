// Serves a RequestHandler on a Unix-domain socket to many clients at a time. None can hold up the
// others, whatever it sends or leaves unread.
#pragma once

#include "config/unique_fd.h"
#include "request_handler.h"

#include <list>
#include <string>

class Server {
public:
    // `handler` outlives the server.
    explicit Server(RequestHandler &handler) : handler_(handler) {}
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
        UniqueFd fd;
        std::string received = {};
        std::string unsent = {};
        bool ended = false; // the client sends no more

        void receive();
        void send_unsent();
    };

    void accept_client();
    void serve(Connection &connection);

    RequestHandler &handler_;
    std::string path_;
    UniqueFd listener_;
    std::list<Connection> connections_;
};
