#pragma once

#include "shell/command.h"

inline constexpr std::array<CliCommand, 0> mfc_rows{};

inline constexpr std::array<CliCommand, 0> mfc_set_rows{};

inline constexpr std::array<CliCommand, 0> mfc_get_rows{};
