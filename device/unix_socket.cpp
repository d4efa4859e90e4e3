#include "unix_socket.h"

#include <cerrno>
#include <sys/socket.h>
#include <sys/un.h>

namespace {

UniqueFd open_at(const std::string &path, int type,
                 int (*give_address)(int, const sockaddr *, socklen_t)) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path) {
        errno = ENAMETOOLONG;
        return {};
    }
    path.copy(address.sun_path, path.size());
    UniqueFd made(socket(AF_UNIX, type | SOCK_CLOEXEC, 0));
    if (give_address(made.get(), reinterpret_cast<const sockaddr *>(&address), sizeof address) != 0)
        return {};
    return made;
}

} // namespace

UniqueFd connect_to(const std::string &path, int type) {
    return open_at(path, type, connect);
}

UniqueFd listen_at(const std::string &path, int type) {
    unlink(path.c_str());
    UniqueFd listener = open_at(path, type, bind);
    return listener && listen(listener.get(), SOMAXCONN) == 0 ? std::move(listener) : UniqueFd();
}
