#pragma once

#include "shell/command.h"

inline constexpr std::array<CliCommand, 0> factory_set_rows{};

inline constexpr std::array<CliCommand, 0> factory_ssl_rows{};
