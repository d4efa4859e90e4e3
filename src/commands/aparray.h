// Membership of an access-point array, and the settings that the array keeps in step.
#pragma once

#include "commands/shared/rows.h"
#include "config/apply.h"
#include "config/sync_items.h"
#include "shell/dispatch.h"

// Word NAME, of at most 32 characters. Echoes it, even if it is refused.
CliHandler set_array_name;

// Shows the configured role and the one in use.
CliHandler get_array_role;

// Set and show the flag of the item that the row names.
CliHandler enable_array_sync;
CliHandler disable_array_sync;
CliHandler get_array_sync;

inline constexpr ValueSetter ARRAY_PASSWORD{
    .path = "/wlan/inf:1/aparray_password",
    .rule = {ValueKind::Text, 0, 64, "arraypassword too long.\n"},
    .apply_bits = APPLY_NEAPC,
    .error_line = "ERROR: Unable to set arraypassword.\n",
};

inline constinit auto aparray_state_rows = command_table({
    {"enable", "enable arraystate",
     write_fixed<"/wlan/inf:1/aparray_enable", "1", APPLY_NEAPC, "Ap Array State: Enable\n">},
    {"disable", "disable arraystate",
     write_fixed<"/wlan/inf:1/aparray_enable", "0", APPLY_NEAPC, "Ap Array State: Disable\n">},
});

inline constinit auto array_role_rows = command_table({
    {"Master", "arrayrole is Master",
     write_fixed<"/wlan/inf:1/arrayrole_original", "1", APPLY_NEAPC, "Ap Array role: Master\n">},
    {"BackupMaster", "arrayrole is Backup Master",
     write_fixed<"/wlan/inf:1/arrayrole_original", "2", APPLY_NEAPC,
                 "Ap Array role:Backup Master\n">},
    {"Slaver", "arrayrole is Slaver",
     write_fixed<"/wlan/inf:1/arrayrole_original", "3", APPLY_NEAPC, "Ap Array role: Slaver\n">},
});

// The words of the items in the order of the command tables: that of the flags, but acl last.
consteval auto sync_words() {
    std::array<std::string_view, SYNC_ITEM_COUNT> words{};
    std::size_t next = 0;
    for (const SyncItem &item : SYNC_ITEMS) {
        const bool last = std::string_view(item.word) == "acl";
        words[last ? SYNC_ITEM_COUNT - 1 : next++] = item.word;
    }
    return words;
}

// What precedes an item's word in the get rows.
inline constexpr char SYNC_ROW_PREFIX[] = "array-sync-";

inline constexpr auto SYNC_WORDS = sync_words();
inline constexpr auto SYNC_ENABLE_HELP = texts_around<16>("enable sync ", SYNC_WORDS, " state");
inline constexpr auto SYNC_DISABLE_HELP = texts_around<16>("disable sync ", SYNC_WORDS, " state");
inline constexpr auto SYNC_GET_NAMES = texts_around<16>(SYNC_ROW_PREFIX, SYNC_WORDS, "");
inline constexpr auto SYNC_GET_HELP =
    texts_around<16>("Display AP Array sync ", SYNC_WORDS, " state");

inline constinit auto array_sync_enable_rows =
    make_table(rows_for_each(SYNC_WORDS, SYNC_ENABLE_HELP, enable_array_sync));

inline constinit auto array_sync_disable_rows =
    make_table(rows_for_each(SYNC_WORDS, SYNC_DISABLE_HELP, disable_array_sync));

inline constexpr auto aparray_set_rows = command_rows({
    family("aparray-state", "Set  AP Array state", aparray_state_rows),
    {"arrayname", "Set AP Array arrayname", set_array_name},
    {"arraypassword", "Set  AP Array password", set_value<ARRAY_PASSWORD>},
    family("arrayrole", "Set AP Array role[master:1, backup master:2, slaver:3]", array_role_rows),
    family("array_syncnode_enable", "set array_syncnode enable", array_sync_enable_rows),
    family("array_syncnode_disable", "set array_syncnode disable", array_sync_disable_rows),
});

// The limit for the name is lower than for the others.
inline constexpr std::size_t ARRAY_NAME_READ_LIMIT = 64;

inline constexpr CliHandler *show_array_password =
    show_text<"/wlan/inf:1/aparray_password", "AP array password: %s\n">;

inline constexpr auto array_get_rows = command_rows({
    {"aparray-state", "Display AP Array state",
     show_switch<"/wlan/inf:1/aparray_enable", "AP array status is %s\n", CANT_ALLOC_MEMORY>},
    {"arrayname", "Display AP Array arrayname",
     show_text<"/wlan/inf:1/arrayname", "AP array arrayname:%s\n", ARRAY_NAME_READ_LIMIT>},
    {"arrayrole", "Display AP Array role[master:1, backup master:2, slaver:3]", get_array_role},
    {"arraypassword", "Display AP Array password", show_array_password},
    {"arraycfg", "Display AP Array config version",
     show_text<"/wlan/inf:1/aparray_cfg_version", "AP array cfg verion: %s\n">, nullptr,
     HIDDEN_TAG},
    // Shows the password and no table. Deliberate.
    {"arraytable", "Display AP Array table info.", show_array_password, nullptr, HIDDEN_TAG},
});

// The band's flag is only shown; no item belongs to it.
inline constexpr auto array_sync_band_get_rows = command_rows({
    {"array-sync-band", "Display AP Array sync band state",
     show_switch<"/aparray/sync/band", "AP Array sync band status is %s\n", CANT_ALLOC_MEMORY>},
});

inline constexpr auto aparray_get_rows =
    join_rows(array_get_rows, rows_for_each(SYNC_GET_NAMES, SYNC_GET_HELP, get_array_sync),
              array_sync_band_get_rows);
