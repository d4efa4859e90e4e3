#pragma once

#include "shell/command.h"

inline constexpr std::array<CliCommand, 0> zone_defence_set_rows{};

inline constexpr std::array<CliCommand, 0> zone_defence_get_rows{};
