#pragma once

#include "shell/command.h"

inline constexpr std::array<CliCommand, 0> limited_admin_set_rows{};

inline constexpr std::array<CliCommand, 0> limited_admin_get_rows{};
