// The terminal's settings while a line is edited, and after.
#include "shell/terminal.h"

#include "config/unique_fd.h"

#include <cstring>
#include <gtest/gtest.h>
#include <pty.h>
#include <sys/ioctl.h>
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
        dup2(terminal, STDIN_FILENO);
        close(terminal);
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
    int ends[2] = {};
    ASSERT_EQ(pipe(ends), 0);
    dup2(ends[0], STDIN_FILENO);
    EXPECT_EQ(terminal_width(), 80);
    close(ends[0]);
    close(ends[1]);
}

} // namespace
