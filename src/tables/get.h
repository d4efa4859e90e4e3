#pragma once

#include "commands/channel.h"
#include "commands/radio.h"

inline constinit auto get_table = join_rows(radio_get_rows, channel_get_rows);
