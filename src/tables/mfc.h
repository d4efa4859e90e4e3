#pragma once

#include "commands/mfc.h"

inline constinit auto mfc_table = join_rows(mfc_rows);
