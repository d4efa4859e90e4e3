// A directory of a test's own.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

// Its path is short, so that sockets in it can be named. Removed with the object, unless kept.
class ScratchDirectory {
public:
    ScratchDirectory() {
        if (!mkdtemp(path_.data()))
            std::abort();
    }
    ScratchDirectory(const ScratchDirectory &) = delete;
    ScratchDirectory &operator=(const ScratchDirectory &) = delete;
    ~ScratchDirectory() {
        std::error_code ignored;
        if (!kept_)
            std::filesystem::remove_all(path_, ignored);
    }

    [[nodiscard]] const std::string &path() const { return path_; }
    [[nodiscard]] std::string file(const std::string &name) const { return path_ + '/' + name; }
    void keep() { kept_ = true; }

private:
    std::string path_ = "/tmp/wap.XXXXXX";
    bool kept_ = false;
};
