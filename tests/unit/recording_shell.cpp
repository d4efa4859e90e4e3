#include "recording_shell.h"

#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <dlfcn.h>
#include <limits>
#include <spawn.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <tuple>
#include <unistd.h>
#include <utility>

namespace {

// Other threads (a fuzzer has one that watches the memory) go on as usual.
thread_local RecordingShell *recording = nullptr;

constexpr pid_t NO_PROCESS = std::numeric_limits<pid_t>::max();

template <class Function>
Function *usual(Function *, const char *name) {
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

// No test may ever change the host's clock.
int remember_clock(std::time_t seconds) {
    if (recording != nullptr)
        recording->remember("set clock " + std::to_string(seconds));
    return 0;
}

} // namespace

RecordingShell::RecordingShell() {
    recording = this;
}

RecordingShell::~RecordingShell() {
    recording = nullptr;
}

std::vector<std::string> RecordingShell::take_lines() {
    return std::exchange(lines_, {});
}

int RecordingShell::start_shell(const char *line) {
    if (!pipes_)
        return EAGAIN;
    remember(line);
    std::ignore = write(pipe_, output_.data(), output_.size());
    return 0;
}

// These take the place of the C library's, whose parameters have reserved names.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name)
extern "C" {

int system(const char *line) {
    if (recording == nullptr)
        return usual(system, "system")(line);
    recording->remember(line);
    return 0;
}

int posix_spawn_file_actions_adddup2(posix_spawn_file_actions_t *actions, int fd,
                                     int new_fd) noexcept {
    if (recording != nullptr)
        recording->print_into(fd);
    return usual(posix_spawn_file_actions_adddup2, "posix_spawn_file_actions_adddup2")(actions, fd,
                                                                                       new_fd);
}

int posix_spawn(pid_t *pid, const char *path, const posix_spawn_file_actions_t *actions,
                const posix_spawnattr_t *attributes, char *const *arguments,
                char *const *environment) {
    if (recording == nullptr)
        return usual(posix_spawn, "posix_spawn")(pid, path, actions, attributes, arguments,
                                                 environment);
    *pid = NO_PROCESS;
    return recording->start_shell(arguments[2]);
}

pid_t waitpid(pid_t pid, int *status, int options) {
    return pid == NO_PROCESS ? pid : usual(waitpid, "waitpid")(pid, status, options);
}

unsigned sleep(unsigned seconds) {
    if (recording == nullptr)
        return usual(sleep, "sleep")(seconds);
    recording->remember("sleep " + std::to_string(seconds));
    return 0;
}

int settimeofday(const timeval *time, const struct timezone *) noexcept {
    return remember_clock(time->tv_sec);
}

int clock_settime(clockid_t, const timespec *time) noexcept {
    return remember_clock(time->tv_sec);
}
}
// NOLINTEND(readability-inconsistent-declaration-parameter-name)
