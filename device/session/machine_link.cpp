#include "session/machine_link.h"

#include "config/unique_fd.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>

namespace session {

bool ask_machine(const std::string &path, MachineQuestion question) {
    constexpr int ANSWER_MS = 1000;
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path)
        return false;
    path.copy(address.sun_path, path.size());
    const UniqueFd line(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    if (connect(line.get(), reinterpret_cast<const sockaddr *>(&address), sizeof address) != 0 ||
        send(line.get(), &question, sizeof question, MSG_NOSIGNAL) != sizeof question)
        return false;
    pollfd wanted{line.get(), POLLIN, 0};
    char answer = 0;
    return poll(&wanted, 1, ANSWER_MS) == 1 && read(line.get(), &answer, 1) == 1 &&
           answer == MACHINE_YES;
}

} // namespace session
