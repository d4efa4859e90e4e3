#include "session/machine_link.h"

#include "unix_socket.h"

#include <poll.h>
#include <sys/socket.h>

namespace session {

bool ask_machine(const std::string &path, MachineQuestion question) {
    constexpr int ANSWER_MS = 1000;
    const UniqueFd line = connect_to(path, SOCK_STREAM);
    if (!line || send(line.get(), &question, sizeof question, MSG_NOSIGNAL) != sizeof question)
        return false;
    pollfd wanted{line.get(), POLLIN, 0};
    char answer = 0;
    return poll(&wanted, 1, ANSWER_MS) == 1 && read(line.get(), &answer, 1) == 1 &&
           answer == MACHINE_YES;
}

} // namespace session
