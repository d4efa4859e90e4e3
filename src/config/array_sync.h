// Tracks writes to the settings that an access-point array keeps in step.
#pragma once

#include "config/sync_items.h"

#include <cstdint>

// Set to 1 when a synchronised setting was written; `set apply` clears it.
extern std::uint32_t array_cfg_dirty;

// True when a write to `path` changes a setting of the item, one of SYNC_ITEMS.
bool sync_item_covers(const SyncItem &item, const char *path);

// Reads every item's flag and, where it is 1 and the item covers `path`, sets array_cfg_dirty.
// A flag that cannot be read is off.
void note_array_write(const char *path);
