#pragma once

#include "shell/command.h"

inline constexpr std::array<CliCommand, 0> autorekey_set_rows{};

inline constexpr std::array<CliCommand, 0> autorekey_get_rows{};
