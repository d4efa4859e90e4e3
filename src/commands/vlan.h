#pragma once

#include "shell/command.h"

inline constexpr std::array<CliCommand, 0> vlan_set_rows{};

inline constexpr std::array<CliCommand, 0> vlan_get_rows{};
