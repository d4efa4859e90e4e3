// Which rows of the command tables the debug level and the current band let through.
#pragma once

#include "shell/command.h"

// True when the debug level or the band keeps a row out of listings and completion.
bool is_listed(const CliContext &cli, const CliCommand &row);

// True when the row is debug-only and the debug level is locked.
bool is_locked(const CliCommand &row);

// True when the row has the hidden tag, whatever the debug level.
bool is_hidden(const CliCommand &row);

// True when the row's band mask (0 = any) admits the current band.
bool is_on_band(const CliContext &cli, const CliCommand &row);
