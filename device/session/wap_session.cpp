// Runs a program on a terminal of its own, connected to the one that this process was started on,
// which is left as it was however the program or this process ends.
//
// usage: wap-session [--trace] [--record FILE] [--journal JOURNALFILE] [--machine SOCKET]
//                    -- COMMAND [ARGUMENT...]
//
// --trace, for a console, prints each new line of the journal before the next prompt, indented by
// two blanks. --record writes the session as a transcript. Both need the journal and, if COMMAND
// emulates the device as a computer, the socket to it (see ask_machine). Standard streams that are
// not terminals are passed on as they are; where none is one, and without these options, COMMAND
// replaces this process. The exit status is the command's.

#include "session/outer_terminal.h"
#include "session/relay.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <unistd.h>

namespace {

constexpr int USAGE_STATUS = 2;
constexpr int FAILURE_STATUS = 126;

struct Options {
    session::RelayOptions relay{};
    std::string record_file{};
};

std::optional<Options> read_options(const std::vector<std::string> &words) {
    Options options;
    std::size_t i = 1;
    for (; i < words.size() && words[i] != "--"; ++i) {
        if (words[i] == "--trace")
            options.relay.trace = true;
        else if (words[i] == "--record" && i + 1 < words.size())
            options.record_file = words[++i];
        else if (words[i] == "--journal" && i + 1 < words.size())
            options.relay.journal = words[++i];
        else if (words[i] == "--machine" && i + 1 < words.size())
            options.relay.machine = words[++i];
        else
            return std::nullopt;
    }
    options.relay.record = !options.record_file.empty();
    const bool traced = options.relay.trace || options.relay.record;
    if (i + 1 >= words.size() || (traced && options.relay.journal.empty()))
        return std::nullopt;
    options.relay.command.assign(words.begin() + static_cast<std::ptrdiff_t>(i) + 1, words.end());
    return options;
}

int trace(const Options &options, const session::OuterTerminal &terminal) {
    std::ofstream record;
    if (options.relay.record) {
        record.open(options.record_file);
        if (!record)
            throw std::system_error(errno, std::generic_category(), options.record_file);
    }
    std::signal(SIGPIPE, SIG_IGN); // a program that ends early closes its input
    session::notice_resizing();
    session::Relay relay(options.relay, terminal);
    terminal.make_transparent(false); // the console's own terminal processes none
    const int status = relay.run();
    record << relay.transcript();
    return status;
}

} // namespace

int main(int argc, char **argv) {
    const std::optional<Options> options = read_options({argv, argv + argc});
    if (!options) {
        std::cerr << "usage: wap-session [--trace] [--record FILE] [--journal JOURNALFILE] "
                     "[--machine SOCKET] -- COMMAND [ARGUMENT...]\n";
        return USAGE_STATUS;
    }
    const session::OuterTerminal terminal;
    const bool traced = options->relay.trace || options->relay.record;
    const auto work = [&] {
        try {
            return traced ? trace(*options, terminal)
                          : session::pass_through(terminal, options->relay.command);
        } catch (const std::exception &error) {
            terminal.restore();
            std::cerr << "wap-session: " << error.what() << '\n';
            return FAILURE_STATUS;
        }
    };
    if (terminal.exists())
        return session::run_guarded(terminal, work);
    if (traced)
        return work();
    char **command = argv + argc - options->relay.command.size();
    execvp(command[0], command);
    std::perror(command[0]);
    return FAILURE_STATUS;
}
