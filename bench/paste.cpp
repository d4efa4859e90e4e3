// Pastes lines into a program on a pseudo-terminal and measures what that costs.
//
// usage: paste LINES LENGTH COMMAND...
// prints: keys pasted, bytes written per key, CPU microseconds per key
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <string>
#include <string_view>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int SETTLING_MS = 300; // without output; then the program waits
constexpr char END_OF_INPUT = 4;

// Reads what is there of the program's output; returns how many bytes.
std::size_t take_output(int terminal) {
    char screen[4096];
    const ssize_t got = read(terminal, screen, sizeof screen);
    return got > 0 ? static_cast<std::size_t>(got) : 0;
}

// Takes what the program writes, until nothing comes for a while; returns how many bytes.
std::size_t drain(int terminal) {
    std::size_t bytes = 0;
    pollfd readable{terminal, POLLIN, 0};
    while (poll(&readable, 1, SETTLING_MS) > 0) {
        const std::size_t got = take_output(terminal);
        if (got == 0)
            break;
        bytes += got;
    }
    return bytes;
}

// Types a line as fast as the program takes it, and takes what it writes meanwhile, since it may
// wait for that. Returns how many bytes it wrote.
std::size_t paste(int terminal, std::string_view line) {
    std::size_t bytes = 0;
    pollfd ready{terminal, POLLIN | POLLOUT, 0};
    while (!line.empty() && poll(&ready, 1, -1) > 0) {
        if ((ready.revents & POLLIN) != 0)
            bytes += take_output(terminal);
        if ((ready.revents & POLLOUT) != 0) {
            const ssize_t sent = write(terminal, line.data(), line.size());
            line.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(sent, 0)));
        }
        if ((ready.revents & (POLLERR | POLLHUP)) != 0)
            break;
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
    fcntl(terminal, F_SETFL, O_NONBLOCK);
    drain(terminal);
    const std::size_t keys = static_cast<std::size_t>(lines) * line.size();
    std::size_t bytes = 0;
    for (int left = lines; left > 0; --left)
        bytes += paste(terminal, line);
    bytes += drain(terminal);
    if (write(terminal, &END_OF_INPUT, 1) < 0)
        return 1;
    drain(terminal);
    close(terminal);
    rusage usage{};
    wait4(child, nullptr, 0, &usage);
    const double cpu = microseconds(usage.ru_utime) + microseconds(usage.ru_stime);
    std::printf("%zu keys, %.3f bytes/key, %.3f us/key\n", keys,
                static_cast<double>(bytes) / static_cast<double>(keys),
                cpu / static_cast<double>(keys));
    return 0;
}
