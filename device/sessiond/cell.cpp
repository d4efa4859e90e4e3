// Runs a program in a directory as its root, as another user and without any capability, and ends
// once it and all that it started have ended: the device's walls where there are no namespaces.
//
// usage: cell DIRECTORY USER PROGRAM [ARGUMENT...]
//   USER   a number, for user and group; one that owns nothing outside
//
// Needs root, with the capabilities to change root, user and group. The exit status is the
// program's (128 + the signal, if it was killed).

#include "process_tree.h"
#include "session/process.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <grp.h>
#include <linux/capability.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int USAGE_STATUS = 2;
constexpr int FAILURE_STATUS = 126;

// Ends the process unless `result` is that of a success.
void require(int result, const char *what) {
    if (result >= 0)
        return;
    std::fprintf(stderr, "cell: %s: %s\n", what, std::strerror(errno));
    _exit(FAILURE_STATUS);
}

// The bounding set is what a program could gain, the others what this process has. A set that may
// not be changed is out of reach all the same: no program gains anything from here on.
void drop_capabilities() {
    require(prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0), "no new privileges");
    for (int capability = 0; prctl(PR_CAPBSET_READ, capability) >= 0; ++capability)
        prctl(PR_CAPBSET_DROP, capability);
}

void drop_own_capabilities() {
    prctl(PR_CAP_AMBIENT, PR_CAP_AMBIENT_CLEAR_ALL, 0, 0, 0);
    __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
    std::array<__user_cap_data_struct, _LINUX_CAPABILITY_U32S_3> none{};
    require(static_cast<int>(syscall(SYS_capset, &header, none.data())), "capset");
}

[[noreturn]] void enter(const char *directory, unsigned user, char **program) {
    require(chroot(directory), directory);
    require(chdir("/"), directory);
    drop_capabilities();
    require(setgroups(0, nullptr), "setgroups");
    require(setresgid(user, user, user), "setresgid");
    require(setresuid(user, user, user), "setresuid");
    drop_own_capabilities();
    execv(program[0], program);
    require(-1, program[0]);
    std::abort();
}

} // namespace

int main(int argc, char **argv) {
    const unsigned long user = argc < 4 ? 0 : std::strtoul(argv[2], nullptr, 10);
    if (user == 0) {
        std::fputs("usage: cell DIRECTORY USER PROGRAM [ARGUMENT...]\n", stderr);
        return USAGE_STATUS;
    }
    adopt_orphans();
    const pid_t child = fork();
    require(child, "fork");
    if (child == 0)
        enter(argv[1], static_cast<unsigned>(user), argv + 3);
    int status = 0;
    for (pid_t ended = 0; ended != child;) {
        ended = waitpid(-1, &status, 0);
        require(ended < 0 && errno != EINTR ? -1 : 0, "waitpid");
    }
    kill_descendants();
    return session::exit_status(status);
}
