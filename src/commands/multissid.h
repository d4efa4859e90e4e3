#pragma once

#include "shell/command.h"

inline constexpr std::array<CliCommand, 0> multissid_set_rows{};

inline constexpr std::array<CliCommand, 0> multissid_get_rows{};
