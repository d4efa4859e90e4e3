// `set apply`.
#pragma once

#include "shell/command.h"

// Restarts the services whose settings changed. Silently refused when there are none.
CliHandler set_apply;

inline constexpr auto apply_set_rows = command_rows({
    {"apply", "Save and apply all settings", set_apply},
});
