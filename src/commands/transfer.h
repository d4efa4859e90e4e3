#pragma once

#include "shell/command.h"

inline constexpr std::array<CliCommand, 0> transfer_tftp_rows{};

inline constexpr std::array<CliCommand, 0> transfer_ftp_rows{};
