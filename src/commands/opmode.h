// The operating mode: access point, client, or a bridge of the wireless distribution system (WDS).
#pragma once

#include "commands/shared/rows.h"
#include "config/apply.h"
#include "shell/dispatch.h"

// Each switches off, with a notice, what the mode does not allow: multi-SSID or the wireless
// security. Those of WDS are refused on 5 GHz in Japan.
CliHandler set_client_mode;
CliHandler set_wds_ap_mode;
CliHandler set_wds_mode;

CliHandler get_ap_mode;

inline constinit auto ap_mode_rows = command_table({
    {"AP", "AP Mode", write_fixed<"/wlan/inf:%d/ap_mode", "0", APPLY_WLAN>},
    {"APC", "Wireless Client Mode", set_client_mode},
    {"WDSAP", "WDS with ap Mode", set_wds_ap_mode},
    {"WDS", "WDS without ap Mode", set_wds_mode},
});

inline constexpr auto opmode_set_rows = command_rows({
    family("apmode", "Set operating mode", ap_mode_rows),
});

inline constexpr auto opmode_get_rows = command_rows({
    {"apmode", "Display operating mode", get_ap_mode},
});
