#pragma once

#include "shell/command.h"

inline constexpr std::array<CliCommand, 0> identity_set_rows{};

inline constexpr std::array<CliCommand, 0> identity_get_rows{};
