#pragma once

#include "shell/command.h"

inline constexpr std::array<CliCommand, 0> security_set_rows{};

inline constexpr std::array<CliCommand, 0> security_get_rows{};
