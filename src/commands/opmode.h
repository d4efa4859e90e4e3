#pragma once

#include "shell/command.h"

inline constexpr std::array<CliCommand, 0> opmode_set_rows{};

inline constexpr std::array<CliCommand, 0> opmode_get_rows{};
