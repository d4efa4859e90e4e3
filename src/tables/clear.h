#pragma once

#include "commands/shared/rows.h"

inline constinit auto clear_table = command_table({
    {"language-pack", "Clear language pack", run_fixed<"/usr/sbin/submit CLEAR_LANG_PACK">},
});
