// The console: start-up and the main loop.
#pragma once

#include "shell/command.h"

#include <cstdio>

// Runs the console until its input ends. Standard input, terminal or not, goes through the line
// editor; any other stream is read as plain lines of at most 4094 characters, without prompts.
// Returns the process's exit status: 0; or 255 when memory runs out at start-up, after reporting
// it on standard error. The `exit` command ends the process from inside.
int run_console(std::FILE *input, CliCommand *root);
