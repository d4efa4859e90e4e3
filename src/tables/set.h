#pragma once

#include "commands/apply.h"
#include "commands/channel.h"
#include "commands/radio.h"

// Families in the order of the device's subsystems; it settles ties between prefixes and never
// changes.
inline constinit auto set_table = join_rows(apply_set_rows, radio_set_rows, channel_set_rows);
