#pragma once

#include "commands/keys.h"

inline constinit auto del_table = make_table(keys_del_rows);
