// xmldb: the configuration database daemon of the stand-in device.

#include "config_file.h"
#include "journal_writer.h"
#include "request_handler.h"
#include "server.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <getopt.h>
#include <unistd.h>

namespace {

constexpr char USAGE[] =
    "usage: xmldb [--socket PATH] [--journal FILE] [--foreground] [FILE...]\n"
    "Serves the settings and run-time values of the FILEs, later ones in place of earlier ones.\n"
    "Goes to the background once clients can connect.\n";

struct Options {
    std::string socket = XMLDB_SOCKET;
    std::string journal = JOURNAL_FILE;
    bool foreground = false;
};

bool parse_options(int argc, char **argv, Options &options) {
    static constexpr option LONG_OPTIONS[] = {
        {"socket", required_argument, nullptr, 's'},
        {"journal", required_argument, nullptr, 'j'},
        {"foreground", no_argument, nullptr, 'f'},
        {nullptr, 0, nullptr, 0},
    };
    int letter = 0;
    while ((letter = getopt_long(argc, argv, "", LONG_OPTIONS, nullptr)) != -1) {
        switch (letter) {
        case 's':
            options.socket = optarg;
            break;
        case 'j':
            options.journal = optarg;
            break;
        case 'f':
            options.foreground = true;
            break;
        default:
            std::fputs(USAGE, stderr);
            return false;
        }
    }
    return true;
}

bool load_files(char **files, NodeTree &tree) {
    for (; *files != nullptr; ++files) {
        auto loaded = load_tree_file(*files);
        if (!loaded) {
            std::fprintf(stderr, "xmldb: %s: no readable configuration\n", *files);
            return false;
        }
        tree.replace_by(std::move(*loaded));
    }
    return true;
}

// Ends the parent process, whose end shows that the daemon is ready. The daemon keeps standard
// error for its messages.
bool go_to_background() {
    const pid_t pid = fork();
    if (pid > 0)
        _exit(0);
    const UniqueFd null(open("/dev/null", O_RDWR | O_CLOEXEC));
    return pid == 0 && dup2(null.get(), STDIN_FILENO) >= 0 && dup2(null.get(), STDOUT_FILENO) >= 0;
}

int complain(const char *what) {
    std::fprintf(stderr, "xmldb: %s: %s\n", what, std::strerror(errno));
    return 1;
}

} // namespace

int main(int argc, char **argv) {
    Options options;
    if (!parse_options(argc, argv, options))
        return 2;
    NodeTree tree;
    if (!load_files(argv + optind, tree))
        return 1;
    std::signal(SIGPIPE, SIG_IGN); // standard error may be closed
    const JournalWriter journal(options.journal.c_str());
    RequestHandler handler(tree, journal);
    Server server(handler);
    if (!server.listen_on(options.socket))
        return complain(options.socket.c_str());
    if (!options.foreground && !go_to_background())
        return complain("cannot go to the background");
    return server.run() ? 0 : complain("poll");
}
