// Stands in for the system shell, and for time, in tests of what commands run.
#pragma once

#include <string>
#include <vector>

// While it lives, command lines are remembered instead of run, sleeping takes no time and the
// system's clock cannot be set. One at a time.
class RecordingShell {
public:
    RecordingShell();
    RecordingShell(const RecordingShell &) = delete;
    RecordingShell &operator=(const RecordingShell &) = delete;
    ~RecordingShell();

    // What every captured command line prints from now on.
    void print(const std::string &output);

    // From now on no pipe to the shell can be opened.
    void refuse_pipes();

    // What happened since the last call, in order: command lines as they are, "sleep SECONDS",
    // "set clock SECONDS".
    std::vector<std::string> take_lines();
};
