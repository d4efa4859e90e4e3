#pragma once

#include "shell/command.h"

inline constexpr std::array<CliCommand, 0> syslog_set_rows{};

inline constexpr std::array<CliCommand, 0> syslog_get_rows{};
