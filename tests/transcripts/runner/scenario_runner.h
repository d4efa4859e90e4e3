// Plays a scenario on a fresh stand-in device.
#pragma once

#include "session/transcript.h"

#include <chrono>
#include <string>

struct RunnerOptions {
    std::string enter{};               // the stand-in's entry program
    std::string root{};                // its root file system
    std::string program{};             // the console
    bool swapped = false;              // the device's byte order is not this machine's
    std::chrono::milliseconds limit{}; // for each step
};

// A directory under /tmp that holds a device's state (a short path: it names a socket). Removed
// with the object, unless kept.
class StateDirectory {
public:
    StateDirectory();
    StateDirectory(const StateDirectory &) = delete;
    StateDirectory &operator=(const StateDirectory &) = delete;
    ~StateDirectory();

    [[nodiscard]] const std::string &path() const { return path_; }
    void keep() { kept_ = true; }

private:
    std::string path_;
    bool kept_ = false;
};

// Result: the scenario with what really happened; its patterns stay where they match. When the
// program ends early, the later steps have empty bodies; when it does not end well at the end of
// the scenario, an end-of-input step tells so. Throws std::exception when the device cannot be
// started or steered, and session::SessionTimeout when the program is stuck.
session::Scenario play_scenario(const session::Scenario &scenario, const RunnerOptions &options,
                                const std::string &state_directory);
