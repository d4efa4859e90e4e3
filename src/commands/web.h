#pragma once

#include "shell/command.h"

inline constexpr std::array<CliCommand, 0> web_set_rows{};

inline constexpr std::array<CliCommand, 0> web_get_rows{};
