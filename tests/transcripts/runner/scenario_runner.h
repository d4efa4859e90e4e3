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
    bool machine = false;              // the device is a computer of its own
    std::chrono::milliseconds limit{}; // for each step
};

// Result: the scenario with what really happened; its patterns stay where they match. When the
// program ends early, the later steps have empty bodies; when it does not end well at the end of
// the scenario, an end-of-input step tells so. Throws std::exception when the device cannot be
// started or steered, and session::SessionTimeout when the program is stuck.
session::Scenario play_scenario(const session::Scenario &scenario, const RunnerOptions &options,
                                const std::string &state_directory);
