// Going back to the factory settings, and telling whether the device runs them.
#pragma once

#include "commands/shared/rows.h"

// Loads the factory settings, saves them and asks for a reboot.
CliHandler set_factory_default;

// `isfactorydefault`: loads the factory settings to compare a save of them with one of the running
// settings, then restores those, saves them and prints the result. Only the first 10240 bytes of a
// save are read and restored.
CliHandler compare_with_factory;

inline constexpr auto factory_set_rows = command_rows({
    {"factorydefault", "Set device to factory default setting", set_factory_default},
});

inline constexpr auto factory_ssl_rows = command_rows({
    {"freset", "Reset SSL certificate to factory default",
     run_fixed<"/usr/sbin/submit CLEAN_MISC_SECTOR">},
});
