#include "process_tree.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <vector>

namespace {

constexpr pid_t HIGHEST_PID = 4194304; // the kernel's own limit

bool has_children() {
    siginfo_t ignored;
    return waitid(P_ALL, 0, &ignored, WEXITED | WNOHANG | WNOWAIT) == 0;
}

bool is_child(pid_t pid) {
    siginfo_t ignored;
    return waitid(P_PID, static_cast<id_t>(pid), &ignored, WEXITED | WNOHANG | WNOWAIT) == 0;
}

std::vector<pid_t> children() {
    std::vector<pid_t> found;
    if (std::FILE *list = std::fopen("/proc/thread-self/children", "re")) {
        for (pid_t pid = 0; std::fscanf(list, "%d", &pid) == 1;)
            found.push_back(pid);
        std::fclose(list);
    }
    // Without /proc, each number has to be tried.
    for (pid_t pid = 1; found.empty() && pid <= HIGHEST_PID; ++pid) {
        if (is_child(pid))
            found.push_back(pid);
    }
    return found;
}

} // namespace

void adopt_orphans() {
    prctl(PR_SET_CHILD_SUBREAPER, 1);
}

// What a child started meanwhile is found in the next round.
void kill_descendants() {
    while (has_children()) {
        const std::vector<pid_t> found = children();
        for (const pid_t pid : found)
            kill(pid, SIGKILL);
        for (const pid_t pid : found)
            waitpid(pid, nullptr, 0);
    }
}
