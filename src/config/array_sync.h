// The settings that an access-point array can keep in step, and noticing writes to them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

// Set to 1 when a synchronised setting was written; `set apply` clears it.
extern std::uint32_t array_cfg_dirty;

enum class SyncRuleKind : std::uint8_t {
    Equal,    // the path is the text
    Prefix,   // the path begins with the text
    Contains, // the text occurs in the path
    Multi,    // the path is below interface 1's multi-SSID slots and contains the text
};

struct SyncRule {
    SyncRuleKind kind;
    const char *text;
};

struct SyncItem {
    const char *word; // what the administrator calls it
    const char *node; // its flag: 1 = synchronised
    std::span<const SyncRule> rules;
};

inline constexpr std::size_t SYNC_ITEM_COUNT = 32;

// The items in the order in which their flags are read.
std::span<const SyncItem, SYNC_ITEM_COUNT> sync_items();

// True when a write to `path` changes a setting of the item.
bool sync_item_covers(const SyncItem &item, const char *path);

// Reads every item's flag and, where it is 1 and the item covers `path`, sets array_cfg_dirty.
// A flag that cannot be read is off.
void note_array_write(const char *path);
