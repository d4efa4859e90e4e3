// Runs a program in a directory as its root, as another user and without any capability, and ends
// once it and all that it started have ended: what isolates a device without namespaces.
//
// usage: cell DIRECTORY USER PROGRAM [ARGUMENT...]
//   USER   a number, for user and group; one that owns nothing else
//
// Needs root, with the capabilities to change root, user and group. The exit status is the
// program's (128 + the signal, if it was killed).

#include "process_tree.h"
#include "session/process.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <grp.h>
#include <linux/capability.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

using session::check;

namespace {

constexpr int USAGE_STATUS = 2;
constexpr int FAILURE_STATUS = 126;

[[noreturn]] void enter(const char *directory, unsigned user,
                        const std::vector<std::string> &program) {
    check(chroot(directory), directory);
    check(chdir("/"), directory);
    // A bounding set that cannot be changed does no harm: no program gains anything from here on.
    check(prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0), "no new privileges");
    for (int capability = 0; prctl(PR_CAPBSET_READ, capability) >= 0; ++capability)
        prctl(PR_CAPBSET_DROP, capability);
    check(setgroups(0, nullptr), "setgroups");
    check(setresgid(user, user, user), "setresgid");
    check(setresuid(user, user, user), "setresuid");
    prctl(PR_CAP_AMBIENT, PR_CAP_AMBIENT_CLEAR_ALL, 0, 0, 0);
    __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
    std::array<__user_cap_data_struct, _LINUX_CAPABILITY_U32S_3> none{};
    check(static_cast<int>(syscall(SYS_capset, &header, none.data())), "capset");
    session::become(program);
}

int run(const char *directory, unsigned user, const std::vector<std::string> &program) {
    adopt_orphans();
    const pid_t child = check(fork(), "fork");
    if (child == 0)
        enter(directory, user, program);
    int status = 0;
    while (check(waitpid(-1, &status, 0), "waitpid") != child)
        ;
    kill_descendants();
    return session::exit_status(status);
}

} // namespace

int main(int argc, char **argv) {
    const unsigned long user = argc < 4 ? 0 : std::strtoul(argv[2], nullptr, 10);
    if (user == 0) {
        std::fputs("usage: cell DIRECTORY USER PROGRAM [ARGUMENT...]\n", stderr);
        return USAGE_STATUS;
    }
    try {
        return run(argv[1], static_cast<unsigned>(user), {argv + 3, argv + argc});
    } catch (const std::exception &error) {
        std::fprintf(stderr, "cell: %s\n", error.what());
        return FAILURE_STATUS;
    }
}
