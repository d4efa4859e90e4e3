#pragma once

#include "commands/mfc.h"

inline constinit auto mfc_table = make_table(mfc_rows);
