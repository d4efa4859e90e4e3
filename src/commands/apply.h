// `set apply`.
#pragma once

#include "shell/command.h"

// Restarts what changed. Silently refused when no service is to be restarted.
CliHandler set_apply;

inline constexpr auto apply_set_rows = command_rows({
    {"apply", "Save and apply all settings", set_apply},
});
