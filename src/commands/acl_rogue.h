#pragma once

#include "shell/command.h"

inline constexpr std::array<CliCommand, 0> acl_rogue_set_rows{};

inline constexpr std::array<CliCommand, 0> acl_rogue_get_rows{};
