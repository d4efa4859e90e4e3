#pragma once

#include <unistd.h>
#include <utility>

// Owns a file descriptor and closes it.
class UniqueFd {
public:
    UniqueFd() = default;
    explicit UniqueFd(int fd) : fd_(fd) {}
    UniqueFd(UniqueFd &&other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
    UniqueFd &operator=(UniqueFd &&other) noexcept {
        reset(std::exchange(other.fd_, -1));
        return *this;
    }
    UniqueFd(const UniqueFd &) = delete;
    UniqueFd &operator=(const UniqueFd &) = delete;
    ~UniqueFd() { reset(); }

    explicit operator bool() const { return fd_ >= 0; }
    [[nodiscard]] int get() const { return fd_; }

    // Gives up ownership.
    [[nodiscard]] int release() { return std::exchange(fd_, -1); }

    // Closes the descriptor held and takes over `fd` (-1 for none).
    void reset(int fd = -1) {
        if (fd_ >= 0)
            close(fd_);
        fd_ = fd;
    }

private:
    int fd_ = -1;
};
