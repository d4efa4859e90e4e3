#pragma once

#include <termios.h>

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
