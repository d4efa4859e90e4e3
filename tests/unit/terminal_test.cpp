// The terminal's settings while a line is edited, and after; streams in non-blocking mode.
#include "typed_line.h"

#include "config/unique_fd.h"
#include "shell/console.h"
#include "shell/process.h"
#include "shell/terminal.h"

#include <array>
#include <cstring>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

// Standard input on a new terminal while it lives.
class TerminalInput {
public:
    TerminalInput() : usual_(dup(STDIN_FILENO)) {
        int keyboard = -1;
        int terminal = -1;
        EXPECT_EQ(openpty(&keyboard, &terminal, nullptr, nullptr, nullptr), 0);
        keyboard_.reset(keyboard);
        dup2(UniqueFd(terminal).get(), STDIN_FILENO);
    }
    TerminalInput(const TerminalInput &) = delete;
    TerminalInput &operator=(const TerminalInput &) = delete;
    ~TerminalInput() { dup2(usual_.get(), STDIN_FILENO); }

    void set_width(unsigned short columns) const {
        const winsize window{24, columns, 0, 0};
        EXPECT_EQ(ioctl(keyboard_.get(), TIOCSWINSZ, &window), 0);
    }

    void type(const char *keys) const {
        EXPECT_EQ(write(keyboard_.get(), keys, std::strlen(keys)),
                  static_cast<ssize_t>(std::strlen(keys)));
    }

private:
    UniqueFd usual_;
    UniqueFd keyboard_;
};

std::array<UniqueFd, 2> new_pipe(int mode) {
    int ends[2] = {};
    EXPECT_EQ(pipe2(ends, O_CLOEXEC | mode), 0);
    return {UniqueFd(ends[0]), UniqueFd(ends[1])};
}

termios settings() {
    termios now{};
    EXPECT_EQ(tcgetattr(STDIN_FILENO, &now), 0);
    return now;
}

TEST(RawTerminal, TakesSingleKeysAndRestoresWhatWas) {
    const TerminalInput input;
    termios usual = settings();
    usual.c_cc[VMIN] = 4;
    usual.c_lflag |= ECHONL;
    ASSERT_EQ(tcsetattr(STDIN_FILENO, TCSANOW, &usual), 0);
    {
        const RawTerminal raw;
        const termios now = settings();
        EXPECT_EQ(now.c_lflag,
                  usual.c_lflag & ~static_cast<tcflag_t>(ICANON | ECHO | ECHONL | ISIG));
        EXPECT_EQ(now.c_iflag, usual.c_iflag);
        EXPECT_EQ(now.c_oflag, usual.c_oflag);
        EXPECT_EQ(now.c_cc[VMIN], 1);
        EXPECT_EQ(now.c_cc[VTIME], 0);
        EXPECT_EQ(now.c_cc[VINTR], _POSIX_VDISABLE);
        input.type("\x03next\n");
        char key = 0;
        EXPECT_EQ(read(STDIN_FILENO, &key, 1), 1);
        EXPECT_EQ(key, '\x03');
    }
    const termios after = settings();
    EXPECT_EQ(after.c_lflag, usual.c_lflag);
    EXPECT_EQ(std::memcmp(after.c_cc, usual.c_cc, sizeof usual.c_cc), 0);
    // What was typed ahead waits for whoever reads next.
    char ahead[8] = "";
    EXPECT_EQ(read(STDIN_FILENO, ahead, sizeof ahead), 5);
    EXPECT_STREQ(ahead, "next\n");
}

TEST(TerminalWidth, IsTheTerminalsOwnWhereItTellsOne) {
    const TerminalInput input;
    const struct {
        unsigned short columns;
        int width;
    } cases[] = {{0, 80}, {1, 80}, {15, 80}, {16, 16}, {60, 60}, {132, 132}, {65535, 65535}};
    for (const auto &[columns, width] : cases) {
        input.set_width(columns);
        EXPECT_EQ(terminal_width(), width);
    }
    dup2(new_pipe(0)[0].get(), STDIN_FILENO);
    EXPECT_EQ(terminal_width(), 80);
}

// A console with pipes for a keyboard and a screen, one of them in non-blocking mode. The keys
// come when there is nothing to read, and what is printed finds no room.
void expect_nothing_lost(int keys_mode, int screen_mode) {
    constexpr int LINE_ROOM = 128; // no line is longer, and each goes out as a whole
    std::array<UniqueFd, 2> keys = new_pipe(keys_mode);
    std::array<UniqueFd, 2> screen = new_pipe(screen_mode);
    const int room = fcntl(screen[1].get(), F_SETPIPE_SZ, 4096);
    const pid_t console = fork();
    if (console == 0) {
        dup2(keys[0].get(), STDIN_FILENO);
        dup2(screen[1].get(), STDOUT_FILENO);
        keys[1].reset();
        prepare_process();
        _exit(run_console(stdin, root_table()) + (std::fflush(stdout) != 0 ? 1 : 0));
    }
    screen[1].reset();
    const auto wait_for_output = [&screen](int size) {
        int waiting = 0;
        for (int left = 10'000; waiting < size && left > 0; --left) {
            usleep(1000);
            ioctl(screen[0].get(), FIONREAD, &waiting);
        }
        EXPECT_GE(waiting, size);
    };
    wait_for_output(6);
    EXPECT_EQ(write(keys[1].get(), "hel", 3), 3);
    wait_for_output(9);
    EXPECT_EQ(write(keys[1].get(), "p\n", 2), 2);
    wait_for_output(room - LINE_ROOM);
    keys[1].reset();
    fcntl(screen[0].get(), F_SETFL, 0);
    std::string shown;
    char chunk[4096];
    for (ssize_t got = 0; (got = read(screen[0].get(), chunk, sizeof chunk)) > 0;)
        shown.append(chunk, static_cast<std::size_t>(got));
    int status = -1;
    waitpid(console, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(shown, "WAP-> help\n" + type_line("help").out + "WAP-> exit\n");
}

TEST(Console, WaitsForStreamsInNonBlockingMode) {
    expect_nothing_lost(O_NONBLOCK, 0);
    expect_nothing_lost(0, O_NONBLOCK);
}

} // namespace
