#pragma once

#include "shell/command.h"

inline constexpr std::array<CliCommand, 0> qos_set_rows{};

inline constexpr std::array<CliCommand, 0> qos_get_rows{};
