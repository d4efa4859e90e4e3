// Starts the console on a terminal again and again, types a get and a set, and prints the medians:
// nanoseconds from exec to the prompt, of the get, of the set.
//
// usage: prompt_times CONSOLE STARTS

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <pty.h>
#include <string>
#include <string_view>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr std::string_view PROMPT = "WAP-> ";
constexpr std::array<const char *, 2> LINES{"get ssid\r", "set ssid Measured\r"};

std::int64_t now() {
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return time.tv_sec * 1'000'000'000LL + time.tv_nsec;
}

// Reads up to the prompt that follows `newlines` lines.
void wait_prompt(int terminal, long newlines) {
    std::string printed;
    std::array<char, 4096> bytes; // NOLINT(*-member-init): read fills it
    while (!printed.ends_with(PROMPT) ||
           std::count(printed.begin(), printed.end(), '\n') < newlines) {
        const ssize_t count = read(terminal, bytes.data(), bytes.size());
        if (count <= 0) {
            std::fputs("prompt_times: the console has ended\n", stderr);
            std::exit(1);
        }
        printed.append(bytes.data(), static_cast<std::size_t>(count));
    }
}

std::int64_t median(std::vector<std::int64_t> &times) {
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

} // namespace

int main(int argc, char **argv) {
    if (argc != 3) {
        std::fputs("usage: prompt_times CONSOLE STARTS\n", stderr);
        return 2;
    }
    std::array<std::vector<std::int64_t>, 1 + LINES.size()> times;
    for (int start = 0; start < std::atoi(argv[2]); ++start) {
        int terminal = -1;
        std::array<int, 2> go{};
        if (pipe(go.data()) != 0)
            return 1;
        const pid_t pid = forkpty(&terminal, nullptr, nullptr, nullptr);
        if (pid == 0) {
            char byte = 0;
            if (read(go[0], &byte, 1) == 1)
                execl(argv[1], argv[1], static_cast<char *>(nullptr));
            _exit(127);
        }
        // The child is there already: what is measured is the console, not the fork.
        std::int64_t begin = now();
        if (write(go[1], "x", 1) != 1)
            return 1;
        wait_prompt(terminal, 0);
        times[0].push_back(now() - begin);
        for (std::size_t line = 0; line < LINES.size(); ++line) {
            begin = now();
            if (write(terminal, LINES[line], std::strlen(LINES[line])) < 0)
                return 1;
            wait_prompt(terminal, 2);
            times[line + 1].push_back(now() - begin);
        }
        close(go[0]);
        close(go[1]);
        close(terminal);
        waitpid(pid, nullptr, 0);
    }
    for (auto &each : times)
        std::printf("%lld\n", static_cast<long long>(median(each)));
}
