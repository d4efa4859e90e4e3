// What a scenario says beside what happened.
#pragma once

#include <string>
#include <vector>

// `happened`, where each line that `expected` describes by a pattern ("~ REGEX") is replaced by
// that pattern, and what of the journal `expected` leaves open ("  ...") by that line. The two are
// aligned as a diff would align them.
std::vector<std::string> keep_patterns(const std::vector<std::string> &expected,
                                       std::vector<std::string> happened);

// The unified diff of two texts; empty when they are equal. `directory` takes its scratch files.
std::string unified_diff(const std::string &expected, const std::string &happened,
                         const std::string &directory);
