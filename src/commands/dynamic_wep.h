// 802.1X dynamic WEP: length and rekey interval of the keys that the access point generates, for
// the primary SSID and the multi-SSID slots.
#pragma once

#include "commands/shared/slot.h"
#include "config/apply.h"
#include "shell/dispatch.h"

inline constexpr ValueRule DYNAMIC_WEP_INTERVAL_RULE{
    .kind = ValueKind::Number,
    .low = 0,
    .high = 99999,
    .message = "Invalid Dynamic WEP Rekey Interval.\n",
};
inline constexpr ValueSetter DYNAMIC_WEP_INTERVAL{
    .path = "/wlan/inf:%d/d_wep_rekey_interval",
    .rule = DYNAMIC_WEP_INTERVAL_RULE,
    .apply_bits = APPLY_WLAN,
    .error_line = "ERROR: Unable to set Dynamic WEP Rekey Interval.\n",
};
inline constexpr SlotSetter SLOT_DYNAMIC_WEP_INTERVAL{
    .leaf = "/d_wep_rekey_interval",
    .rule = DYNAMIC_WEP_INTERVAL_RULE,
    .value_name = "Dynamic WEP Rekey Interval",
    .error_line = DYNAMIC_WEP_INTERVAL.error_line,
};
inline constexpr SlotSwitch SLOT_DYNAMIC_WEP_LENGTH{
    .leaf = "/d_wepkeylen",
    .refusal = {.wrong_count = SLOT_NOT_SPECIFIED,
                .out_of_range = SLOT_NOT_SPECIFIED,
                .error_line = "ERROR: Unable to set individual multi-SSID wep key length.\n",
                .not_a_number = SLOT_NOT_SPECIFIED},
};

inline constexpr SlotDisplay SHOWN_DYNAMIC_WEP_LENGTH{
    "/d_wepkeylen", "Dynamic WEP Key Length of Multi-SSID", SlotValue::Number};
inline constexpr SlotDisplay SHOWN_DYNAMIC_WEP_INTERVAL{
    "/d_wep_rekey_interval", "Dynamic WEP Rekey Interval of Multi-SSID", SlotValue::Number};

// Like run_fixed, and restarts the radio at the next apply.
template <FixedText Command>
int run_wlan_setting(CliContext &cli, const char *word, CliCommand *subtable) {
    run_fixed<Command>(cli, word, subtable);
    return mark_for_apply(APPLY_WLAN);
}

inline constinit auto dynamic_wep_length_rows = command_table({
    {"64Bit", "Dynamic WEP Key of 64 bits",
     run_wlan_setting<"rgdb -s /wlan/inf:%d/d_wepkeylen 64">},
    {"128Bit", "Dynamic WEP Key of 128 bits",
     run_wlan_setting<"rgdb -s /wlan/inf:%d/d_wepkeylen 128">},
});

inline constinit auto multi_dynamic_wep_length_rows = command_table({
    {"64Bit", "Dynamic WEP Key of 64 bits [index]", switch_slot<SLOT_DYNAMIC_WEP_LENGTH, "64">},
    {"128Bit", "Dynamic WEP Key of 128 bits [index]", switch_slot<SLOT_DYNAMIC_WEP_LENGTH, "128">},
});

inline constexpr auto dynamic_wep_set_rows = command_rows({
    family("d-wepkeylen", "Set Dynamic WEP Key Length", dynamic_wep_length_rows),
    {"d-wepkeyupdate", "Set Dynamic WEP Rekey Interval (in Secs: 0-99999)",
     set_value<DYNAMIC_WEP_INTERVAL>},
    family("multi-d-wepkeylen", "Set Dynamic WEP Key Length of Multi-SSID",
           multi_dynamic_wep_length_rows),
    {"multi-d-wepkeyupdate", "Set Dynamic WEP Rekey Interval of Multi-SSID [value][index]",
     set_slot<SLOT_DYNAMIC_WEP_INTERVAL>},
});

inline constexpr auto dynamic_wep_get_rows = command_rows({
    {"d-wepkeylen", "Display Dynamic WEP Key Length",
     run_fixed<"rgdb -g /wlan/inf:%d/d_wepkeylen">},
    {"d-wepkeyupdate", "Display Dynamic WEP Rekey Interval",
     run_fixed<"rgdb -g /wlan/inf:%d/d_wep_rekey_interval">},
    {"multi-d-wepkeylen", "Display Dynamic WEP Key Length of Multi-SSID [index]",
     show_slot<SHOWN_DYNAMIC_WEP_LENGTH>},
    {"multi-d-wepkeyupdate", "Display Dynamic WEP Rekey Interval of Multi-SSID [index]",
     show_slot<SHOWN_DYNAMIC_WEP_INTERVAL>},
});
