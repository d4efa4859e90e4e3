#include "session/console_session.h"

#include <poll.h>
#include <utility>

namespace session {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::string_view LINE_ENDS = "\r\n";
constexpr char ABANDON_LINE = '\x03';
constexpr char END_OF_INPUT = '\x04';
constexpr char IGNORED_KEY = '\0'; // a control character without a meaning to the line editor

// How often conditions are checked that no output announces.
constexpr int LOOK_INTERVAL_MS = 1;

} // namespace

ConsoleSession::ConsoleSession(const std::vector<std::string> &command, ConsoleInput input,
                               std::string machine, std::chrono::milliseconds limit)
    : process_(command, input, STANDARD_WINDOW, std::move(machine)), input_(input), limit_(limit) {}

std::string ConsoleSession::start() {
    wait_prompt(false);
    return take_printed(true);
}

std::string ConsoleSession::run_line(std::string_view line, std::string_view child_input) {
    std::string bytes(line);
    bytes += input_ == ConsoleInput::TERMINAL ? '\r' : '\n';
    bytes += child_input;
    process_.write_input(bytes, printed_);
    wait_prompt(true);
    printed_.erase(0, printed_.find('\n') + 1); // the echo
    return take_printed(true);
}

// A line end switches the terminal back for the command, and input that comes then is not the
// editor's. So each line end is sent alone, once the keys before it have been handled.
std::string ConsoleSession::press(std::string_view keys) {
    std::string printed;
    while (!keys.empty() && !ended_) {
        const bool at_line_end = LINE_ENDS.find(keys.front()) != std::string_view::npos;
        const std::string_view piece =
            keys.substr(0, at_line_end ? 1 : keys.find_first_of(LINE_ENDS));
        keys.remove_prefix(piece.size());
        if (at_line_end) {
            process_.write_input(piece, printed_);
            wait_prompt(true);
        } else {
            press_within_line(piece);
        }
        printed += take_printed(at_line_end && keys.empty());
    }
    return printed;
}

std::string ConsoleSession::end_input() {
    if (!ended_) {
        if (input_ == ConsoleInput::PIPE)
            process_.close_input();
        else
            process_.write_input(std::string{ABANDON_LINE, END_OF_INPUT}, printed_);
        wait_until("the end of the program", [] { return false; });
    }
    return take_printed(false);
}

// Collects output until the condition holds or the program has ended.
template <class Condition>
void ConsoleSession::wait_until(const char *what, Condition holds) {
    const auto deadline = Clock::now() + limit_;
    while (process_.read_output(printed_)) {
        if (holds())
            return;
        if (Clock::now() >= deadline)
            throw SessionTimeout("waited " + std::to_string(limit_.count()) + " ms for " + what +
                                 "; printed so far:\n" + printed_);
        pollfd output{process_.output_fd(), POLLIN, 0};
        poll(&output, 1, LOOK_INTERVAL_MS);
    }
    note_end();
}

// A prompt is only the program's own when it reads single characters: a command may print the
// same text.
void ConsoleSession::wait_prompt(bool after_newline) {
    wait_until("the prompt", [this, after_newline] {
        std::string_view text = printed_;
        if (after_newline) {
            const std::size_t newline = text.find('\n');
            if (newline == std::string_view::npos)
                return false;
            text.remove_prefix(newline + 1);
        }
        return text.ends_with(PROMPT) &&
               (input_ == ConsoleInput::PIPE || process_.reads_single_characters());
    });
}

// The program flushes its output before it reads the next byte. So once it has read one key more
// than these, one that does nothing, all that they print is there. That one goes out with them: if
// they end the program, the terminal it leaves would echo what comes later.
void ConsoleSession::press_within_line(std::string_view keys) {
    process_.write_input(std::string(keys) + IGNORED_KEY, printed_);
    wait_until("the keys to be read", [this] { return process_.input_is_drained(); });
    if (!ended_)
        process_.read_output(printed_);
}

void ConsoleSession::note_end() {
    exit_status_ = process_.wait_exit(limit_);
    if (exit_status_ < 0)
        throw SessionTimeout("the program closed its terminal but did not end; printed so far:\n" +
                             printed_);
    ended_ = true;
}

std::string ConsoleSession::take_printed(bool prompt_follows) {
    std::string printed = std::exchange(printed_, {});
    if (prompt_follows && !ended_ && printed.ends_with(PROMPT))
        printed.resize(printed.size() - PROMPT.size());
    return printed;
}

} // namespace session
