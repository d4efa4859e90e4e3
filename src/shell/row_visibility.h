// Which rows the debug level and the current band make available.
#pragma once

#include "shell/command.h"

// True when listings and completion show the row.
bool is_listed(const CliContext &cli, const CliCommand &row);

// True when the row is debug-only and the debug level is locked.
bool is_locked(const CliCommand &row);

// True when the row has the hidden tag, whatever the debug level.
bool is_hidden(const CliCommand &row);

// True when the row's band mask (0 = any) admits the current band.
bool is_on_band(const CliContext &cli, const CliCommand &row);
