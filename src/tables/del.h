#pragma once

#include "commands/keys.h"

inline constinit auto del_table = join_rows(keys_del_rows);
