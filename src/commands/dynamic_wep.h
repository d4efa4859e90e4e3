#pragma once

#include "shell/command.h"

inline constexpr std::array<CliCommand, 0> dynamic_wep_set_rows{};

inline constexpr std::array<CliCommand, 0> dynamic_wep_get_rows{};
