#pragma once

#include "shell/command.h"

inline constexpr std::array<CliCommand, 0> lan_ip_set_rows{};

inline constexpr std::array<CliCommand, 0> lan_ip_get_rows{};
