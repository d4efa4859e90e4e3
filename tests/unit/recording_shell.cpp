#include "recording_shell.h"

#include <cstdlib>
#include <ctime>
#include <dlfcn.h>
#include <sys/time.h>
#include <unistd.h>
#include <utility>

namespace {

// Other threads (a fuzzer has one that watches the memory) go on as usual.
thread_local RecordingShell *active = nullptr;

template <class Function>
Function *usual(Function *, const char *name) {
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

// No test may ever change the host's clock.
int remember_clock(std::time_t seconds) {
    if (active != nullptr)
        active->remember("set clock " + std::to_string(seconds));
    return 0;
}

} // namespace

RecordingShell::RecordingShell() {
    active = this;
}

RecordingShell::~RecordingShell() {
    active = nullptr;
}

std::vector<std::string> RecordingShell::take_lines() {
    return std::exchange(lines_, {});
}

std::FILE *RecordingShell::open_pipe(const char *line) {
    if (!pipes_)
        return nullptr;
    remember(line);
    pipe_ = std::tmpfile();
    std::fputs(output_.c_str(), pipe_);
    std::rewind(pipe_);
    return pipe_;
}

bool RecordingShell::close_pipe(std::FILE *pipe) {
    if (pipe != pipe_)
        return false;
    std::fclose(std::exchange(pipe_, nullptr));
    return true;
}

// These take the place of the C library's, whose parameters have reserved names.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name)
extern "C" {

int system(const char *line) {
    if (active == nullptr)
        return usual(system, "system")(line);
    active->remember(line);
    return 0;
}

std::FILE *popen(const char *line, const char *mode) {
    return active != nullptr ? active->open_pipe(line) : usual(popen, "popen")(line, mode);
}

int pclose(std::FILE *pipe) {
    const bool ours = active != nullptr && active->close_pipe(pipe);
    return ours ? 0 : usual(pclose, "pclose")(pipe);
}

unsigned sleep(unsigned seconds) {
    if (active == nullptr)
        return usual(sleep, "sleep")(seconds);
    active->remember("sleep " + std::to_string(seconds));
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
