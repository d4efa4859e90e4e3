// A console driven step by step: each step sends a line or keys, waits until the program reads the
// next key, and returns what was printed. There are no fixed delays.
#pragma once

#include "session/pty_process.h"

#include <chrono>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace session {

inline constexpr std::string_view PROMPT = "WAP-> ";

// The program neither came back to its prompt nor ended within the time limit. The message says
// what was waited for and what had been printed.
class SessionTimeout : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Operations throw SessionTimeout, and std::system_error when a system call fails.
class ConsoleSession {
public:
    // Starts `command` and allows each of the operations below `limit`. `machine`: see PtyProcess.
    ConsoleSession(const std::vector<std::string> &command, ConsoleInput input, std::string machine,
                   std::chrono::milliseconds limit);

    // Waits for the first prompt, or the program's end. Result: what was printed before it.
    std::string start();

    // Types `line` (printable characters) and the line end, waits for the next prompt or the
    // program's end. `child_input` goes in right behind it, for a program that the command starts
    // (ConsoleInput::PIPE only). Result: what was printed after the echoed line and its newline,
    // without the prompt that follows.
    std::string run_line(std::string_view line, std::string_view child_input = {});

    // Types raw bytes, whole keys, and waits until all of them have had their effect; after each
    // line end ("\r" or "\n") for the prompt. Result: everything printed, echo included, without
    // the prompt that follows a line end at the end of `keys`. ConsoleInput::TERMINAL only.
    std::string press(std::string_view keys);

    // Ends the program by end of input, if it still runs, dropping a line begun. Result: what was
    // printed.
    std::string end_input();

    // Whether the program has ended; if so, with which status.
    [[nodiscard]] bool ended() const { return ended_; }
    [[nodiscard]] int exit_status() const { return exit_status_; }

private:
    template <class Condition>
    void wait_until(const char *what, Condition holds);
    void wait_prompt(bool after_newline);
    void press_within_line(std::string_view keys);
    void note_end();
    std::string take_printed(bool prompt_follows);

    PtyProcess process_;
    ConsoleInput input_;
    std::chrono::milliseconds limit_;
    std::string printed_; // not yet handed out
    bool ended_ = false;
    int exit_status_ = -1;
};

} // namespace session
