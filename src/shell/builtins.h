// Commands that serve the console itself.
#pragma once

#include "shell/command.h"

// `exit`: ends the process with status 0. Settings that were not applied stay in the database.
int exit_console(CliContext &cli, const char *word, CliCommand *subtable);

// `shell`, `ls`, `pwd`: run the tool of that kind and wait for its end. Return 0.
int open_shell(CliContext &cli, const char *word, CliCommand *subtable);
int list_directory(CliContext &cli, const char *word, CliCommand *subtable);
int print_directory(CliContext &cli, const char *word, CliCommand *subtable);

// `ping host [count]`: four echoes whatever count is typed, which is only checked. Returns 0; or -1
// after "No hostname", after "Invalid ping count.", or silently when words follow the count.
int ping_host(CliContext &cli, const char *word, CliCommand *subtable);

// `reboot`: while a firmware image is written, through the script that the update leaves. Returns
// 0; or -1 after "memory error!".
int reboot_device(CliContext &cli, const char *word, CliCommand *subtable);

// `orvik code`: the right code unlocks the debug level ("Ok"), a wrong one locks it ("Password is
// wrong!"); any other number of words prints the usage. Returns 0.
int unlock_debug(CliContext &cli, const char *word, CliCommand *subtable);

// `clear language-pack`: asks the device to drop it. Returns 0.
int clear_language_pack(CliContext &cli, const char *word, CliCommand *subtable);

inline constexpr auto language_pack_clear_rows = command_rows({
    {"language-pack", "Clear language pack", clear_language_pack},
});
