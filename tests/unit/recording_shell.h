// Stands in for the system shell, and for time, in tests of what commands run.
#pragma once

#include <string>
#include <vector>

// While it lives, command lines of its thread are remembered instead of run, sleeping takes no
// time and the system's clock cannot be set. One at a time.
class RecordingShell {
public:
    RecordingShell();
    RecordingShell(const RecordingShell &) = delete;
    RecordingShell &operator=(const RecordingShell &) = delete;
    ~RecordingShell();

    // What every captured command line prints from now on: at most what a pipe holds.
    void print(const std::string &output) { output_ = output; }

    // From now on no shell can be started for its output.
    void refuse_pipes() { pipes_ = false; }

    // What happened since the last call, in order: command lines as they are, "sleep SECONDS",
    // "set clock SECONDS".
    std::vector<std::string> take_lines();

    // What the C library's functions do in the meantime.
    void remember(std::string line) { lines_.push_back(std::move(line)); }
    void print_into(int pipe) { pipe_ = pipe; }
    int start_shell(const char *line);

private:
    std::string output_;
    std::vector<std::string> lines_;
    bool pipes_ = true;
    int pipe_ = -1;
};
