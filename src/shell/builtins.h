// Commands that serve the console itself.
#pragma once

#include "shell/command.h"

// `exit`: ends the process with status 0. Settings that were not applied stay in the database.
CliHandler exit_console;

// `ping host [count]`: sends four echo requests; the count is only checked. Refuses a missing host,
// a bad count and, silently, further words.
CliHandler ping_host;

// `reboot`: while a firmware image is being written, by the script that the update provides.
CliHandler reboot_device;

// `orvik code`: the right code unlocks the debug level ("Ok"), a wrong one locks it ("Password is
// wrong!"); any other number of words prints the usage and returns CLI_DONE.
CliHandler unlock_debug;
