// rgdb: the configuration database's command-line tool of the stand-in device.

#include "protocol.h"
#include "unix_socket.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr char USAGE[] =
    "usage: rgdb [-q] [-i] COMMAND\n"
    "  -g PATH        print the text of a node\n"
    "  -s PATH TEXT   write a node\n"
    "  -d PATH        delete a node and everything below it\n"
    "  -D FILE        dump the whole tree into FILE as text\n"
    "  -C FILE        dump the settings, without the run-time values, into FILE as text\n"
    "  -m FILE        write the nodes that the lines \"PATH = TEXT\" of FILE list, one by one\n"
    "  -l FILE        replace the settings, the run-time values or both by those in FILE\n"
    "  -w FILE        write the settings to FILE as XML\n"
    "  -q             leave the command out of the journal\n"
    "  -i             the node is a run-time one (not needed: all nodes are found without it)\n"
    "The FILE of -D, -C and -m may be \"-\", for standard output or input.\n"
    "The environment variable XMLDB_SOCKET names another socket.\n";

constexpr std::size_t MAX_TEXT = 0xffff; // with its NUL: the header's length has 16 bits

int complain(const char *what, const char *why) {
    std::fprintf(stderr, "rgdb: %s: %s\n", what, why);
    return 1;
}

// The daemon's reply to one request; "" when there was none (no reply of the daemon is empty).
std::string request(std::uint16_t action, std::uint32_t flags, std::string text) {
    text += '\0';
    if (text.size() > MAX_TEXT) {
        complain("request", std::strerror(EMSGSIZE));
        return {};
    }
    const char *path = std::getenv("XMLDB_SOCKET");
    const UniqueFd daemon = connect_to(path != nullptr ? path : XMLDB_SOCKET, SOCK_STREAM);
    if (!daemon) {
        complain("cannot connect to xmldb", std::strerror(errno));
        return {};
    }
    const XmldbRequestHeader header{action, static_cast<std::uint16_t>(text.size()), flags, {}};
    std::string bytes(reinterpret_cast<const char *>(&header), sizeof header);
    bytes += text;
    std::string reply;
    // A blocking socket sends all of it.
    if (send(daemon.get(), bytes.data(), bytes.size(), MSG_NOSIGNAL) > 0 &&
        shutdown(daemon.get(), SHUT_WR) == 0) {
        char buffer[4096];
        ssize_t length = 0;
        while ((length = read(daemon.get(), buffer, sizeof buffer)) > 0)
            reply.append(buffer, static_cast<std::size_t>(length));
    }
    if (reply.empty())
        complain("xmldb", "no reply");
    return reply;
}

// The exit status of a request that is answered by a status.
int change(std::uint16_t action, std::uint32_t flags, const std::string &text) {
    const std::string reply = request(action, flags, text);
    if (reply.empty())
        return 1;
    XmldbStatusReply status{};
    status.result = -1;
    std::memcpy(&status, reply.data(), std::min(reply.size(), sizeof status));
    return status.result == -1 ? complain(text.c_str(), "refused") : 0;
}

// The exit status of a request that is answered by a text, which is printed with `ending`.
int show(std::uint16_t action, const char *text, const char *ending) {
    const std::string reply = request(action, 0, text);
    if (reply.empty())
        return 1;
    const bool written = std::fputs(reply.c_str(), stdout) >= 0 &&
                         std::fputs(ending, stdout) >= 0 && std::fflush(stdout) == 0;
    return written ? 0 : complain("write", std::strerror(errno));
}

int dump(const char *selection, const char *file) {
    if (std::strcmp(file, "-") != 0 && std::freopen(file, "we", stdout) == nullptr)
        return complain(file, std::strerror(errno));
    return show(XMLDB_DUMP, selection, "");
}

int merge(std::uint32_t flags, const char *file) {
    std::FILE *in = std::strcmp(file, "-") == 0 ? stdin : std::fopen(file, "re");
    if (in == nullptr)
        return complain(file, std::strerror(errno));
    int status = 0;
    char *line = nullptr;
    std::size_t size = 0;
    ssize_t length = 0;
    while (status == 0 && (length = getline(&line, &size, in)) > 0) {
        std::string text(line, static_cast<std::size_t>(length) - (line[length - 1] == '\n'));
        const std::size_t equals = text.find(" = ");
        status = equals == std::string::npos ? complain(text.c_str(), "no line \"PATH = TEXT\"")
                                             : change(XMLDB_SET, flags, text.erase(equals, 2));
    }
    std::free(line);
    std::fclose(in);
    return status;
}

// The file's name for the daemon, which works in a directory of its own.
std::string absolute(const char *file) {
    char directory[4096];
    if (file[0] == '/' || getcwd(directory, sizeof directory) == nullptr)
        return file;
    return std::string(directory) + '/' + file;
}

} // namespace

int main(int argc, char **argv) {
    std::uint32_t flags = 0;
    int letter = 0;
    while ((letter = getopt(argc, argv, "qig:s:d:D:C:m:l:w:")) != -1) {
        switch (letter) {
        case 'q':
            flags = XMLDB_UNJOURNALED;
            break;
        case 'i':
            break;
        case 'g':
            return show(XMLDB_GET, optarg, "\n");
        case 's':
            if (optind == argc)
                break;
            return change(XMLDB_SET, flags, std::string(optarg) + ' ' + argv[optind]);
        case 'd':
            return change(XMLDB_DEL, flags, optarg);
        case 'D':
            return dump("all", optarg);
        case 'C':
            return dump("settings", optarg);
        case 'm':
            return merge(flags, optarg);
        case 'l':
            return change(XMLDB_LOAD, flags, absolute(optarg));
        case 'w':
            return change(XMLDB_SAVE, flags, absolute(optarg));
        default:
            break;
        }
    }
    std::fputs(USAGE, stderr);
    return 2;
}
