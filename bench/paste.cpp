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

int main(int argc, char **argv) {
    if (argc < 4)
        return 2;
    const int lines = std::atoi(argv[1]);
    const std::string line(static_cast<std::size_t>(std::atoi(argv[2])), ' ');
    const std::string key_line = line + "\r";
    int terminal = -1;
    const pid_t child = forkpty(&terminal, nullptr, nullptr, nullptr);
    if (child == 0) {
        execvp(argv[3], argv + 3);
        _exit(127);
    }
    std::size_t keys = 0;
    std::size_t bytes = 0;
    char screen[4096];
    const auto drain = [&](int wait_ms) {
        pollfd readable{terminal, POLLIN, 0};
        while (poll(&readable, 1, wait_ms) > 0) {
            const ssize_t got = read(terminal, screen, sizeof screen);
            if (got <= 0)
                return false;
            bytes += static_cast<std::size_t>(got);
        }
        return true;
    };
    drain(300);
    bytes = 0;
    for (int at = 0; at < lines; ++at) {
        if (write(terminal, key_line.data(), key_line.size()) < 0)
            break;
        keys += key_line.size();
        drain(0);
    }
    drain(300);
    const std::size_t pasted_bytes = bytes;
    const char end_of_input = 4;
    if (write(terminal, &end_of_input, 1) < 0)
        return 1;
    drain(300);
    close(terminal);
    rusage usage{};
    wait4(child, nullptr, 0, &usage);
    const double cpu = static_cast<double>(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) * 1e6 +
                       static_cast<double>(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec);
    std::printf("%zu keys, %.3f bytes/key, %.3f us/key\n", keys,
                static_cast<double>(pasted_bytes) / static_cast<double>(keys),
                cpu / static_cast<double>(keys));
    return 0;
}
