#pragma once

#include "shell/command.h"

inline constexpr std::array<CliCommand, 0> aparray_set_rows{};

inline constexpr std::array<CliCommand, 0> aparray_get_rows{};
