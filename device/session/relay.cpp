#include "session/relay.h"

#include "session/console_session.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <iostream>
#include <poll.h>
#include <system_error>
#include <unistd.h>

namespace session {

namespace {

// A command that prints nothing for so long is assumed to wait for input. On an emulated computer,
// other commands may take more than a second, too.
constexpr int SILENCE_MS = 1000;
constexpr int MACHINE_SILENCE_MS = 10'000;

// A program that has closed its terminal ends at once, or never.
constexpr std::chrono::seconds END_LIMIT{10};

// How many bytes at the end of `text` may be the beginning of a prompt.
std::size_t begun_prompt(std::string_view text) {
    std::size_t length = std::min(text.size(), PROMPT.size());
    while (!text.ends_with(PROMPT.substr(0, length)))
        --length;
    return length;
}

} // namespace

Relay::Relay(const RelayOptions &options, const OuterTerminal &terminal)
    : outer_(terminal), input_(isatty(STDIN_FILENO) ? ConsoleInput::TERMINAL : ConsoleInput::PIPE),
      process_(options.command, input_, outer_.window(), options.machine),
      journal_(options.journal), trace_(options.trace),
      silence_ms_(options.machine.empty() ? SILENCE_MS : MACHINE_SILENCE_MS) {
    if (options.record)
        recorder_.emplace(input_ == ConsoleInput::PIPE);
}

int Relay::run() {
    while (!exit_status_) {
        // A pipe is read a piece at a time; the next one once this is used up.
        const bool wants_input =
            !input_ended_ && (input_ == ConsoleInput::TERMINAL || held_.empty());
        std::array<pollfd, 3> wanted{{{process_.output_fd(), POLLIN, 0},
                                      {wants_input ? STDIN_FILENO : -1, POLLIN, 0},
                                      {process_.process_fd(), POLLIN, 0}}};
        const bool something_waits =
            !held_.empty() || shown_ < printed_.size() || (input_ended_ && !input_closed_);
        const int ready = poll(wanted.data(), wanted.size(), something_waits ? silence_ms_ : -1);
        if (ready < 0 && errno != EINTR)
            throw std::system_error(errno, std::generic_category(), "poll");
        if (ready == 0)
            take_silence();
        process_.set_window(outer_.window());
        if (ready > 0 && wanted[0].revents != 0)
            take_output();
        else if (ready > 0 && wanted[2].revents != 0)
            take_end();
        if (ready > 0 && wanted[1].revents != 0)
            take_input();
    }
    return *exit_status_;
}

void Relay::take_output() {
    if (!process_.read_output(printed_)) {
        take_end();
    } else if (at_prompt()) {
        come_to_rest(PROMPT.size());
    } else {
        show_up_to(printed_.size() - (busy_ ? begun_prompt(printed_) : 0));
    }
}

void Relay::take_end() {
    exit_status_ = process_.wait_exit(END_LIMIT);
    process_.read_output(printed_);
    come_to_rest(0);
}

bool Relay::at_prompt() const {
    const std::string_view text = printed_;
    return busy_ && text.ends_with(PROMPT) &&
           (!started_ || text.find('\n') != std::string_view::npos) &&
           (input_ == ConsoleInput::PIPE || process_.reads_single_characters());
}

// The last `prompt_length` bytes printed are the prompt; the journal's lines go before it.
void Relay::come_to_rest(std::size_t prompt_length) {
    const std::size_t end = printed_.size() - prompt_length;
    show_up_to(end);
    const std::vector<std::string> journal = journal_.new_lines();
    if (trace_) {
        if (!journal.empty() && end > 0 && printed_[end - 1] != '\n')
            std::cout << '\n';
        for (const std::string &line : journal)
            std::cout << "  " << line << '\n';
    }
    show_up_to(printed_.size());
    if (recorder_)
        recorder_->at_rest(std::string_view(printed_).substr(0, end), journal, exit_status_);
    printed_.clear();
    shown_ = 0;
    started_ = true;
    busy_ = false;
    send_line();
}

void Relay::show_up_to(std::size_t end) {
    if (end > shown_)
        std::cout.write(&printed_[shown_], static_cast<std::streamsize>(end - shown_));
    std::cout.flush();
    shown_ = std::max(shown_, end);
}

// Input reaches a running command at once, unless it was pasted together with the command line or
// comes from a pipe: then it may be the next command line.
void Relay::take_input() {
    std::array<char, 4096> bytes; // NOLINT(*-member-init): read fills it
    const ssize_t count = read(STDIN_FILENO, bytes.data(), bytes.size());
    const bool was_holding = !held_.empty();
    if (count > 0)
        held_.append(bytes.data(), static_cast<std::size_t>(count));
    else if (count == 0 || errno != EINTR)
        input_ended_ = true;
    if (!busy_)
        send_line();
    else if (input_ == ConsoleInput::TERMINAL && started_ && !was_holding)
        send_to_command(held_.size());
}

void Relay::take_silence() {
    show_up_to(printed_.size());
    if (!busy_ || !started_)
        return;
    const std::size_t line_end = held_.find('\n');
    send_to_command(line_end == std::string::npos ? held_.size() : line_end + 1);
}

// Sends what is held up to the line end, if there is one.
void Relay::send_line() {
    const std::size_t line_end = held_.find_first_of("\r\n");
    busy_ = line_end != std::string::npos;
    const std::string line = take_held(busy_ ? line_end + 1 : held_.size());
    if (recorder_)
        recorder_->typed(line);
    send(line);
}

// Sends the first `length` bytes held to the running command.
void Relay::send_to_command(std::size_t length) {
    const std::string bytes = take_held(length);
    if (recorder_)
        recorder_->typed_to_command(bytes);
    send(bytes);
}

std::string Relay::take_held(std::size_t length) {
    std::string bytes = held_.substr(0, length);
    held_.erase(0, length);
    return bytes;
}

// The end of input is passed on once the last command is done, or waits for input.
void Relay::send(const std::string &bytes) {
    process_.write_input(bytes, printed_);
    const bool all_sent = input_ended_ && held_.empty();
    if (all_sent && !input_closed_ && (!busy_ || bytes.empty())) {
        process_.close_input();
        input_closed_ = true;
    }
}

} // namespace session
