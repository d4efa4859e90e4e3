#pragma once

#include "shell/command.h"

inline constexpr std::array<CliCommand, 0> clients_get_rows{};
