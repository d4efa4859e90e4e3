#pragma once

#include "shell/command.h"

inline constexpr std::array<CliCommand, 0> arp_spoofing_set_rows{};

inline constexpr std::array<CliCommand, 0> arp_spoofing_get_rows{};
