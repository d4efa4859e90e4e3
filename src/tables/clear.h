#pragma once

#include "shell/builtins.h"

inline constinit auto clear_table = join_rows(language_pack_clear_rows);
