#pragma once

#include "shell/command.h"

inline constexpr std::array<CliCommand, 0> wds_set_rows{};

inline constexpr std::array<CliCommand, 0> wds_get_rows{};
