// Restoring the factory settings, and comparing the running settings with them.
#pragma once

#include "commands/shared/rows.h"

// Loads the factory settings, saves them and asks the administrator to reboot.
CliHandler set_factory_default;

// `isfactorydefault`: compares saved files of the running and of the factory settings. Loads the
// factory settings for that, then restores and saves the running ones and prints the result. Only
// the first 10240 bytes of a file are read and restored.
CliHandler compare_with_factory;

inline constexpr auto factory_set_rows = command_rows({
    {"factorydefault", "Set device to factory default setting", set_factory_default},
});

inline constexpr auto factory_ssl_rows = command_rows({
    {"freset", "Reset SSL certificate to factory default",
     run_fixed<"/usr/sbin/submit CLEAN_MISC_SECTOR">},
});
