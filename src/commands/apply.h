// `set apply`.
#pragma once

#include "shell/command.h"

// Restarts what changed. Returns 0, or -1 when no service was waiting to be restarted.
CliHandler set_apply;

inline constexpr auto apply_set_rows = command_rows({
    {"apply", "Save and apply all settings", set_apply},
});
