// Runs a console and shows, before each prompt, what the last command did to the device.
//
// usage: wap-session [--trace] [--record FILE] --journal JOURNALFILE -- COMMAND [ARGUMENT...]
//
// --trace prints each new line of the journal, indented by two blanks. --record writes the session
// as a transcript. Without either, COMMAND takes this process's place. Standard input may be a
// pipe; the console's is one then, too. The exit status is the command's.

#include "session/relay.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fstream>
#include <iostream>
#include <termios.h>
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
        else
            return std::nullopt;
    }
    if (i + 1 >= words.size() || options.relay.journal.empty())
        return std::nullopt;
    options.relay.command.assign(words.begin() + static_cast<std::ptrdiff_t>(i) + 1, words.end());
    options.relay.record = !options.record_file.empty();
    return options;
}

// Lets every key through to the console while it exists. Output processing stays on: the console's
// terminal does none.
class TransparentTerminal {
public:
    TransparentTerminal() : active_(tcgetattr(STDIN_FILENO, &saved_) == 0) {
        termios settings = saved_;
        cfmakeraw(&settings);
        settings.c_oflag = saved_.c_oflag;
        if (active_)
            tcsetattr(STDIN_FILENO, TCSADRAIN, &settings);
    }
    TransparentTerminal(const TransparentTerminal &) = delete;
    TransparentTerminal &operator=(const TransparentTerminal &) = delete;
    ~TransparentTerminal() {
        if (active_)
            tcsetattr(STDIN_FILENO, TCSADRAIN, &saved_);
    }

private:
    termios saved_{};
    bool active_;
};

int run(const Options &options) {
    std::ofstream record;
    if (options.relay.record) {
        record.open(options.record_file);
        if (!record)
            throw std::system_error(errno, std::generic_category(), options.record_file);
    }
    std::signal(SIGPIPE, SIG_IGN); // a program that ends early closes its input
    session::Relay relay(options.relay);
    const TransparentTerminal terminal;
    const int status = relay.run();
    record << relay.transcript();
    return status;
}

} // namespace

int main(int argc, char **argv) {
    const std::optional<Options> options = read_options({argv, argv + argc});
    if (!options) {
        std::cerr << "usage: wap-session [--trace] [--record FILE] --journal JOURNALFILE -- "
                     "COMMAND [ARGUMENT...]\n";
        return USAGE_STATUS;
    }
    try {
        if (options->relay.trace || options->relay.record)
            return run(*options);
        char **command = argv + argc - options->relay.command.size();
        execvp(command[0], command);
        throw std::system_error(errno, std::generic_category(), command[0]);
    } catch (const std::exception &error) {
        std::cerr << "wap-session: " << error.what() << '\n';
        return FAILURE_STATUS;
    }
}
