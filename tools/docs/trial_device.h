// A simulated device to try commands on: the database in memory, with the factory settings; command
// lines, the clock and the system log only recorded.
//
// It replaces config/xmldb_client, config/host_command and a few functions of the C library, so a
// program has only one.
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <vector>

// All that a command does.
struct Answer {
    std::string output;
    std::vector<std::string> journal;  // "wrote PATH = VALUE", "deleted PATH", "ran LINE", ...
    std::uint32_t pending = 0;         // bits of `set apply` that are set afterwards
    std::set<std::string> array_items; // settings of an array that it changed
    int result = 0;                    // the dispatcher's

    bool operator==(const Answer &) const = default;
};

// What every tool answers, where the console reads it.
inline constexpr char TOOL_ANSWER[] = "...";

// Sets the directory `etc` that devices start with, as in the device's root. False when its
// settings cannot be read.
bool use_trial_settings(const std::string &etc);

// Back to the first start.
void restart_trial_device();

// Sets a node without recording it.
void set_trial_node(const std::string &path, const std::string &value);

// Types a line at the prompt, with the debug level unlocked, and returns what it did. The bits
// set before count only if `sees_pending`.
Answer type_line(const std::string &line, bool sees_pending = true);

// The command lines that `set apply` runs for one of its bits, without saving the settings.
std::vector<std::string> apply_commands(std::uint32_t bit);
