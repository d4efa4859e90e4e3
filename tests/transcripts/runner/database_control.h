// The runner's own way to the stand-in's database, past the console and its journal.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

class DatabaseControl {
public:
    // `swapped`: the daemon's byte order is not this machine's.
    DatabaseControl(std::string socket_path, bool swapped)
        : socket_path_(std::move(socket_path)), swapped_(swapped) {}

    // Sets a node without a line in the journal. Throws std::runtime_error when the daemon cannot
    // be reached or refuses.
    void set(std::string_view path, std::string_view value) const;

    // Ends the daemon; on return its socket is gone. Throws as set does.
    void stop() const;

private:
    void request(std::uint16_t action, const std::string &text) const;

    std::string socket_path_;
    bool swapped_;
};
