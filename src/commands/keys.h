#pragma once

#include "shell/command.h"

inline constexpr std::array<CliCommand, 0> keys_set_rows{};

inline constexpr std::array<CliCommand, 0> keys_get_rows{};

inline constexpr std::array<CliCommand, 0> keys_del_rows{};
