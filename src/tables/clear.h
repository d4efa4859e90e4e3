#pragma once

#include "shell/builtins.h"

inline constinit auto clear_table = make_table(language_pack_clear_rows);
