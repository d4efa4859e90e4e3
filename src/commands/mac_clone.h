#pragma once

#include "shell/command.h"

inline constexpr std::array<CliCommand, 0> mac_clone_set_rows{};

inline constexpr std::array<CliCommand, 0> mac_clone_get_rows{};
