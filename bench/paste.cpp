// Pastes lines into a program on a pseudo-terminal and measures what that costs.
//
// usage: paste LINES LENGTH COMMAND...
// prints: keys pasted, bytes written per key, CPU microseconds per key
#include <cstdio>
#include <cstdlib>
#include <poll.h>
#include <pty.h>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int SETTLING_MS = 300; // so long without output, and the program waits
constexpr char END_OF_INPUT = 4;

// Takes what the program has written, until nothing comes for `wait_ms`; returns how many bytes.
std::size_t drain(int terminal, int wait_ms) {
    char screen[4096];
    std::size_t bytes = 0;
    pollfd readable{terminal, POLLIN, 0};
    while (poll(&readable, 1, wait_ms) > 0) {
        const ssize_t got = read(terminal, screen, sizeof screen);
        if (got <= 0)
            break;
        bytes += static_cast<std::size_t>(got);
    }
    return bytes;
}

double microseconds(const timeval &time) {
    return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_usec);
}

} // namespace

int main(int argc, char **argv) {
    if (argc < 4)
        return 2;
    const int lines = std::atoi(argv[1]);
    const std::string line = std::string(static_cast<std::size_t>(std::atoi(argv[2])), ' ') + '\r';
    int terminal = -1;
    const pid_t child = forkpty(&terminal, nullptr, nullptr, nullptr);
    if (child == 0) {
        execvp(argv[3], argv + 3);
        _exit(127);
    }
    drain(terminal, SETTLING_MS);
    std::size_t keys = 0;
    std::size_t bytes = 0;
    for (int at = 0; at < lines && write(terminal, line.data(), line.size()) >= 0; ++at) {
        keys += line.size();
        bytes += drain(terminal, 0);
    }
    bytes += drain(terminal, SETTLING_MS);
    if (write(terminal, &END_OF_INPUT, 1) < 0)
        return 1;
    drain(terminal, SETTLING_MS);
    close(terminal);
    rusage usage{};
    wait4(child, nullptr, 0, &usage);
    const double cpu = microseconds(usage.ru_utime) + microseconds(usage.ru_stime);
    std::printf("%zu keys, %.3f bytes/key, %.3f us/key\n", keys,
                static_cast<double>(bytes) / static_cast<double>(keys),
                cpu / static_cast<double>(keys));
    return 0;
}
