#pragma once

#include <termios.h>

// The width of a terminal that reports none, in columns.
inline constexpr int USUAL_TERMINAL_WIDTH = 80;

// The width of the terminal on standard input, in columns. USUAL_TERMINAL_WIDTH when there is no
// terminal, or it reports no width or one that the prompt would fill.
int terminal_width();

// Puts the terminal on standard input into character-at-a-time mode while it lives.
class RawTerminal {
public:
    RawTerminal();
    RawTerminal(const RawTerminal &) = delete;
    RawTerminal &operator=(const RawTerminal &) = delete;
    ~RawTerminal();

private:
    termios saved_{};
    bool is_raw_ = false;
};
