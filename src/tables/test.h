#pragma once

#include "shell/command.h"

// The diagnostics have no commands yet.
inline constinit auto test_table = make_table();
