#pragma once

#include "shell/command.h"

inline constexpr std::array<CliCommand, 0> snmp_trap_snmp_rows{};
