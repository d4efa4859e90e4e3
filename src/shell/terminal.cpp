#include "shell/terminal.h"

#include "shell/prompt.h"

#include <sys/ioctl.h>
#include <unistd.h>

int terminal_width() {
    winsize window{};
    const bool is_known =
        ioctl(STDIN_FILENO, TIOCGWINSZ, &window) == 0 && window.ws_col >= PROMPT_SIZE;
    return is_known ? window.ws_col : USUAL_TERMINAL_WIDTH;
}

// TCSANOW keeps what was typed ahead.
RawTerminal::RawTerminal() {
    if (tcgetattr(STDIN_FILENO, &saved_) != 0)
        return;
    termios raw = saved_;
    raw.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO | ECHONL | ISIG);
    raw.c_cc[VMIN] = 1;
    raw.c_cc[VTIME] = 0;
    raw.c_cc[VINTR] = _POSIX_VDISABLE;
    is_raw_ = tcsetattr(STDIN_FILENO, TCSANOW, &raw) == 0;
}

RawTerminal::~RawTerminal() {
    if (is_raw_)
        tcsetattr(STDIN_FILENO, TCSANOW, &saved_);
}
