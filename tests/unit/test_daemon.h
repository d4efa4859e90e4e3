// The stand-in's database daemon in a thread of a test's own, where the program looks for it. It
// remembers every request, and misbehaves on demand.
#pragma once

#include "config/xmldb_client.h"
#include "xmldb/config_file.h"
#include "xmldb/server.h"

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <unistd.h>
#include <utility>
#include <vector>

using Lines = std::vector<std::string>;

inline bool is_read(const std::string &request) {
    return request.starts_with("get ");
}

class TestDaemon final : RequestHandler {
public:
    enum class Manner {
        Proper,
        NoAnswer,   // closes the connection
        NoNul,      // a text without its NUL, a status whole
        Huge,       // 100,000 bytes of text, for any request
        Garbage,    // 48 bytes of no meaning, none of them NUL, for any request
        ShortReply, // a text's first two bytes, a status's first five
        Refusal,    // carries no write out and answers -1; texts as they are
    };

    TestDaemon()
        : RequestHandler(tree_, journal_),
          server_(std::in_place, static_cast<RequestHandler &>(*this)) {
        EXPECT_TRUE(server_->listen_on(socket_));
        thread_ = std::thread([this] { server_->run(); });
    }
    TestDaemon(const TestDaemon &) = delete;
    TestDaemon &operator=(const TestDaemon &) = delete;
    ~TestDaemon() override {
        stop();
        xmldb_default_socket = usual_socket_;
    }

    // Goes away for good, so that nobody can connect.
    void stop() {
        if (!server_)
            return;
        xmldb_status_action(xmldb_open(nullptr), XMLDB_STOP, 0, "");
        thread_.join();
        server_.reset();
    }

    void behave(Manner manner) {
        const std::lock_guard guard(mutex_);
        manner_ = manner;
    }

    // Closes one connection unread, the `number`th from now.
    void drop(std::size_t number) {
        const std::lock_guard guard(mutex_);
        dropped_ = connections_ + number;
    }

    // Connections since the start.
    [[nodiscard]] std::size_t connections() const {
        const std::lock_guard guard(mutex_);
        return connections_;
    }

    // From now on there are these nodes and no others.
    void load(const NodeTree &tree) {
        const std::lock_guard guard(mutex_);
        tree_ = tree;
    }

    [[nodiscard]] std::string node(const std::string &path) const {
        const std::lock_guard guard(mutex_);
        return tree_.get(path);
    }
    void put(const std::string &path, const std::string &text) {
        const std::lock_guard guard(mutex_);
        tree_.set(path, text);
    }

    // The requests since the last call, in order, as "get PATH", "set PATH VALUE", "del PATH" or
    // "ACTION TEXT" for a code without a name.
    Lines take_requests() {
        const std::lock_guard guard(mutex_);
        return std::exchange(requests_, {});
    }

    // The same, but only what changes nodes.
    Lines take_writes() {
        Lines requests = take_requests();
        std::erase_if(requests, is_read);
        return requests;
    }

private:
    static constexpr char UNKNOWN_REQUEST[sizeof(XmldbRequestHeader)] = {}; // answered with -1

    std::string answer(std::string_view request) override {
        XmldbRequestHeader header{};
        std::memcpy(&header, request.data(), sizeof header);
        if (header.action == XMLDB_STOP)
            return RequestHandler::answer(request);
        const std::lock_guard guard(mutex_);
        hangs_up_ = manner_ != Manner::Proper && manner_ != Manner::Refusal;
        record(header.action, request.substr(sizeof header));
        const bool is_text = header.action == XMLDB_GET;
        if (manner_ == Manner::Refusal && !is_text)
            request = {UNKNOWN_REQUEST, sizeof UNKNOWN_REQUEST};
        return spoil(RequestHandler::answer(request), is_text);
    }

    void note_connection() override {
        const std::lock_guard guard(mutex_);
        hangs_up_ = ++connections_ == dropped_;
    }

    [[nodiscard]] bool hangs_up() const override { return hangs_up_; }

    [[nodiscard]] std::string spoil(std::string reply, bool is_text) const {
        switch (manner_) {
        case Manner::NoAnswer:
            return "";
        case Manner::NoNul:
            return reply.substr(0, reply.size() - (is_text ? 1 : 0));
        case Manner::Huge:
            return reply.assign(100'000, 'x');
        case Manner::Garbage:
            return "\x01\xff%s%n\x1b[2J\x80garbage without any end, of no meaning\xfe\xfd";
        case Manner::ShortReply:
            return reply.substr(0, is_text ? 2 : 5);
        default:
            return reply;
        }
    }

    void record(std::uint16_t action, std::string_view text) {
        std::string request = action == XMLDB_GET   ? "get"
                              : action == XMLDB_SET ? "set"
                              : action == XMLDB_DEL ? "del"
                                                    : std::to_string(action);
        requests_.push_back(request.append(" ").append(text.substr(0, text.find('\0'))));
    }

    const std::string socket_ = testing::TempDir() + "daemon." + std::to_string(getpid());
    const char *usual_socket_ = std::exchange(xmldb_default_socket, socket_.c_str());
    const JournalWriter journal_{"/dev/null"};
    NodeTree tree_;
    std::optional<Server> server_;
    std::thread thread_;
    mutable std::mutex mutex_;
    Manner manner_ = Manner::Proper;
    std::size_t connections_ = 0;
    std::size_t dropped_ = 0;
    bool hangs_up_ = false;
    Lines requests_;
};
