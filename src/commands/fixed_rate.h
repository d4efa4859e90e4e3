#pragma once

#include "shell/command.h"

inline constexpr std::array<CliCommand, 0> fixed_rate_set_rows{};

inline constexpr std::array<CliCommand, 0> fixed_rate_get_rows{};
