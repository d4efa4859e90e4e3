// The machine's answers to the host that emulates it, on a serial line of their own:
//
//   a question of session/machine_link.h: answered
//   a request of the database's protocol (which begins with a zero byte): passed on, and its reply
//   back; once the database has ended, the socket that the host takes for the database's is removed
//
// usage: host_link LINE TERMINAL SOCKET
//   LINE      the serial line to the host
//   TERMINAL  the console's
//   SOCKET    the database's on the host, by its name here

#include "config/unique_fd.h"
#include "protocol.h"
#include "session/machine_link.h"

#include <array>
#include <cstdio>
#include <fcntl.h>
#include <poll.h>
#include <string>
#include <string_view>
#include <sys/socket.h>
#include <sys/un.h>
#include <termios.h>
#include <unistd.h>

namespace {

constexpr int LOOK_INTERVAL_MS = 5;
constexpr int MOST_LOOKS = 2000;

bool read_all(int fd, void *bytes, std::size_t size) {
    auto *next = static_cast<char *>(bytes);
    while (size > 0) {
        const ssize_t count = read(fd, next, size);
        if (count <= 0)
            return false;
        next += count;
        size -= static_cast<std::size_t>(count);
    }
    return true;
}

void write_all(int fd, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = write(fd, bytes.data(), bytes.size());
        if (count <= 0)
            return;
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

void answer(int line, bool yes) {
    const char byte = yes ? session::MACHINE_YES : 'n';
    write_all(line, {&byte, 1});
}

bool reads_single_characters(int terminal) {
    termios settings{};
    return tcgetattr(terminal, &settings) == 0 && (settings.c_lflag & ICANON) == 0;
}

// Polling makes the kernel deliver what is still on its way to the reader.
bool is_idle(int terminal) {
    pollfd wanted{terminal, POLLIN, 0};
    return poll(&wanted, 1, 0) == 0 && tcdrain(terminal) == 0;
}

// The database's reply; that of a failed write when there is none.
std::string reply_to(const std::string &request) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::string_view(XMLDB_SOCKET).copy(address.sun_path, sizeof address.sun_path - 1);
    const UniqueFd daemon(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    std::string reply;
    if (connect(daemon.get(), reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0 &&
        send(daemon.get(), request.data(), request.size(), MSG_NOSIGNAL) ==
            static_cast<ssize_t>(request.size())) {
        shutdown(daemon.get(), SHUT_WR);
        std::array<char, 4096> bytes; // NOLINT(*-member-init): read fills it
        ssize_t count = 0;
        while ((count = read(daemon.get(), bytes.data(), bytes.size())) > 0)
            reply.append(bytes.data(), static_cast<std::size_t>(count));
    }
    if (reply.empty()) {
        XmldbStatusReply failure{};
        failure.result = -1;
        reply.assign(reinterpret_cast<const char *>(&failure), sizeof failure);
    }
    return reply;
}

void wait_for_the_end_of_the_database() {
    for (int looks = 0; access(XMLDB_SOCKET, F_OK) == 0 && looks < MOST_LOOKS; ++looks)
        poll(nullptr, 0, LOOK_INTERVAL_MS);
}

bool pass_on_request(int line, char first, const char *host_socket) {
    XmldbRequestHeader header{};
    auto *bytes = reinterpret_cast<char *>(&header);
    bytes[0] = first;
    if (!read_all(line, bytes + 1, sizeof header - 1))
        return false;
    std::string request(bytes, sizeof header);
    request.resize(sizeof header + header.length);
    if (!read_all(line, &request[sizeof header], header.length))
        return false;
    write_all(line, reply_to(request));
    if (header.action == XMLDB_STOP) {
        wait_for_the_end_of_the_database();
        unlink(host_socket);
    }
    return true;
}

bool serve(int line, int terminal, const char *host_socket) {
    char first = 0;
    if (!read_all(line, &first, 1))
        return false;
    switch (session::MachineQuestion{first}) {
    case session::MachineQuestion::READS_SINGLE_CHARACTERS:
        answer(line, reads_single_characters(terminal));
        return true;
    case session::MachineQuestion::IS_IDLE:
        answer(line, is_idle(terminal));
        return true;
    }
    return pass_on_request(line, first, host_socket);
}

} // namespace

int main(int argc, char **argv) {
    if (argc != 4) {
        std::fputs("usage: host_link LINE TERMINAL SOCKET\n", stderr);
        return 2;
    }
    const UniqueFd line(open(argv[1], O_RDWR | O_NOCTTY | O_CLOEXEC));
    const UniqueFd terminal(open(argv[2], O_RDWR | O_NOCTTY | O_CLOEXEC));
    termios raw{};
    if (!terminal || tcgetattr(line.get(), &raw) != 0) {
        std::perror("host_link");
        return 1;
    }
    cfmakeraw(&raw);
    tcsetattr(line.get(), TCSANOW, &raw);
    while (serve(line.get(), terminal.get(), argv[3]))
        continue;
    return 1;
}
