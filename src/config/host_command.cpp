#include "config/host_command.h"

#include <cstdio>
#include <cstdlib>

unsigned command_lines_run = 0;

namespace {

// A pipe from the system shell.
class Pipe {
public:
    explicit Pipe(const char *command) : stream_(popen(command, "r")) {}
    Pipe(const Pipe &) = delete;
    Pipe &operator=(const Pipe &) = delete;
    ~Pipe() {
        if (stream_ != nullptr)
            pclose(stream_);
    }

    explicit operator bool() const { return stream_ != nullptr; }

    // Reads all there is and keeps the first `limit` bytes; returns how many were kept.
    std::size_t read_all(char *kept, std::size_t limit) {
        const std::size_t length = std::fread(kept, 1, limit, stream_);
        char dropped[256];
        while (std::fread(dropped, 1, sizeof dropped, stream_) > 0) {
        }
        return length;
    }

private:
    std::FILE *stream_;
};

bool may_run(const CommandLine &line) {
    flush_output();
    ++command_lines_run;
    if (!line.is_whole())
        std::fputs("Command line too long.\n", stderr);
    return line.is_whole();
}

} // namespace

int run_command_line(const CommandLine &line) {
    return may_run(line) ? std::system(line.text()) : -1;
}

int capture_command_line(ReadTarget target, const CommandLine &line) {
    target.data[0] = '\0';
    if (!may_run(line))
        return -1;
    Pipe pipe(line.text());
    if (!pipe)
        return -1;
    std::size_t length = pipe.read_all(target.data, target.limit);
    if (length > 0 && target.data[length - 1] == '\n')
        --length;
    target.data[length] = '\0';
    return 0;
}

void save_configuration() {
    run_command("/etc/scripts/misc/profile.sh put");
}
