// Commands that serve the console itself.
#pragma once

#include "shell/command.h"

int exit_console(CliContext &cli, const char *word, CliCommand *subtable);
int open_shell(CliContext &cli, const char *word, CliCommand *subtable);
int list_directory(CliContext &cli, const char *word, CliCommand *subtable);
int print_directory(CliContext &cli, const char *word, CliCommand *subtable);

// `ping host [count]`: four echoes whatever count is typed, which is only checked.
int ping_host(CliContext &cli, const char *word, CliCommand *subtable);

// Reboots; while a firmware image is written, through the script that the update leaves.
int reboot_device(CliContext &cli, const char *word, CliCommand *subtable);

// `orvik code`: the right code unlocks the debug level, a wrong one locks it.
int unlock_debug(CliContext &cli, const char *word, CliCommand *subtable);

int clear_language_pack(CliContext &cli, const char *word, CliCommand *subtable);

inline constexpr auto language_pack_clear_rows = command_rows({
    {"language-pack", "Clear language pack", clear_language_pack},
});
