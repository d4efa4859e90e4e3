#pragma once

#include "shell/command.h"

inline constexpr std::array<CliCommand, 0> time_set_rows{};

inline constexpr std::array<CliCommand, 0> time_get_rows{};
