// Commands that serve the console itself.
#pragma once

#include "shell/command.h"

// `exit`: ends the process with status 0. Settings that were not applied stay in the database.
CliHandler exit_console;

// `shell`, `ls`, `pwd`: run the tool of that kind and wait for its end. Return 0.
CliHandler open_shell;
CliHandler list_directory;
CliHandler print_directory;

// `ping host [count]`: four echoes whatever count is typed, which is only checked. Returns 0; or -1
// after "No hostname", after "Invalid ping count.", or silently when words follow the count.
CliHandler ping_host;

// `reboot`: while a firmware image is written, through the script that the update leaves. Returns
// 0; or -1 after "memory error!".
CliHandler reboot_device;

// `orvik code`: the right code unlocks the debug level ("Ok"), a wrong one locks it ("Password is
// wrong!"); any other number of words prints the usage. Returns 0.
CliHandler unlock_debug;

// `clear language-pack`: asks the device to drop it. Returns 0.
CliHandler clear_language_pack;

inline constexpr auto language_pack_clear_rows = command_rows({
    {"language-pack", "Clear language pack", clear_language_pack},
});
