#include "recording_shell.h"

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <dlfcn.h>
#include <sys/time.h>
#include <unistd.h>
#include <utility>

namespace {

struct State {
    bool active = false;
    bool pipes = true;
    std::string output;
    std::vector<std::string> lines;
    std::FILE *open_pipe = nullptr;
};
State state;

template <class Function>
Function *usual(Function *, const char *name) {
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

int remember_clock(std::time_t seconds) {
    state.lines.push_back("set clock " + std::to_string(seconds));
    return 0;
}

} // namespace

RecordingShell::RecordingShell() {
    state = State{};
    state.active = true;
}

RecordingShell::~RecordingShell() {
    state = State{};
}

void RecordingShell::print(const std::string &output) {
    state.output = output;
}

void RecordingShell::refuse_pipes() {
    state.pipes = false;
}

std::vector<std::string> RecordingShell::take_lines() {
    return std::exchange(state.lines, {});
}

// These take the place of the C library's.
extern "C" {

int system(const char *line) {
    if (!state.active)
        return usual(system, "system")(line);
    state.lines.emplace_back(line);
    return 0;
}

std::FILE *popen(const char *line, const char *mode) {
    if (!state.active)
        return usual(popen, "popen")(line, mode);
    if (!state.pipes)
        return nullptr;
    state.lines.emplace_back(line);
    state.open_pipe = std::tmpfile();
    std::fputs(state.output.c_str(), state.open_pipe);
    std::rewind(state.open_pipe);
    return state.open_pipe;
}

int pclose(std::FILE *pipe) {
    if (pipe != state.open_pipe)
        return usual(pclose, "pclose")(pipe);
    return std::fclose(std::exchange(state.open_pipe, nullptr));
}

unsigned sleep(unsigned seconds) {
    if (!state.active)
        return usual(sleep, "sleep")(seconds);
    state.lines.push_back("sleep " + std::to_string(seconds));
    return 0;
}

// No test may ever change the host's clock.
int settimeofday(const timeval *time, const struct timezone *) noexcept {
    return remember_clock(time->tv_sec);
}

int clock_settime(clockid_t, const timespec *time) noexcept {
    return remember_clock(time->tv_sec);
}
}
