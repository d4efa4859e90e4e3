#include "shell/terminal.h"

#include <unistd.h>

// Applied and restored at once, without dropping what was typed ahead.
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
