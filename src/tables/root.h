#pragma once

#include "shell/command.h"

// The table that every line begins in.
CliCommand *root_table();
