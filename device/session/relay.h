// A live session: passes bytes between this process's standard streams and a console, and knows
// when the console has come back to its prompt.
#pragma once

#include "session/journal_reader.h"
#include "session/outer_terminal.h"
#include "session/pty_process.h"
#include "session/recorder.h"

#include <optional>
#include <string>
#include <vector>

namespace session {

struct RelayOptions {
    std::vector<std::string> command{};
    std::string journal{}; // the device's journal file
    std::string machine{}; // the socket to a device that is a machine (see ask_machine)
    bool trace = false;    // print each new journal line, indented, before the prompt
    bool record = false;
};

class Relay {
public:
    // Starts the command, whose terminal has the size of `terminal`, which outlives the relay.
    // Throws std::system_error.
    Relay(const RelayOptions &options, const OuterTerminal &terminal);

    // Relays until the program ends. Result: its exit status.
    int run();

    // The session as a transcript; empty when it was not to be recorded.
    [[nodiscard]] std::string transcript() const { return recorder_ ? recorder_->text() : ""; }

private:
    void take_output();
    void take_end();
    void take_input();
    void take_silence();
    void send_line();
    void send_to_command(std::size_t length);
    std::string take_held(std::size_t length);
    void send(const std::string &bytes);
    [[nodiscard]] bool at_prompt() const;
    void come_to_rest(std::size_t prompt_length);
    void show_up_to(std::size_t end);

    const OuterTerminal &outer_;
    ConsoleInput input_;
    PtyProcess process_;
    JournalReader journal_;
    bool trace_;
    int silence_ms_; // how long a command may print nothing before it is given input
    std::optional<Recorder> recorder_;

    std::string printed_;   // since the last rest
    std::size_t shown_ = 0; // how much of it has been passed on
    std::string held_;      // input that waits for the prompt
    bool started_ = false;  // the first prompt has come
    bool busy_ = true;      // a prompt is still to come for what was sent
    bool input_ended_ = false;
    bool input_closed_ = false; // and so is the program's
    std::optional<int> exit_status_;
};

} // namespace session
