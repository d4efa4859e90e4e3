#pragma once

#include "shell/command.h"

inline constexpr std::array<CliCommand, 0> mcast_rate_set_rows{};

inline constexpr std::array<CliCommand, 0> mcast_rate_get_rows{};
