#pragma once

#include "shell/command.h"

inline constexpr std::array<CliCommand, 0> dhcp_set_rows{};

inline constexpr std::array<CliCommand, 0> dhcp_get_rows{};
