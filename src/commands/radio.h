// Radio settings: SSID, band, beacon, power, modes and switches.
#pragma once

#include "commands/shared/rows.h"
#include "commands/shared/wireless_numbers.h"
#include "config/apply.h"
#include "shell/dispatch.h"

// The operating band, 0 = 2.4 GHz, 1 = 5 GHz, as get_band or select_band saw it last.
extern std::int32_t operating_band;

// Word SSID, of at most 32 characters. Prints it, even if it is refused.
CliHandler set_ssid;

CliHandler set_cwm_auto;
CliHandler set_wireless_mode;

// Refused in Israel. In Japan a WDS operating mode becomes the access point mode first.
CliHandler set_band_5g;

// Reads the operating band and prints it.
CliHandler get_band;

// Word BAND, 0 or 1: makes it the operating and the current band. No row leads here.
CliHandler select_band;

// Prints the current band's time in microseconds.
CliHandler get_acktimeout;

// Reports that the hardware does not support it.
CliHandler report_no_radar_bang;

// Word TIMES: restarts the radio that many times, waiting for it to settle.
CliHandler test_wlan_restart;

// Name the numbers that nodes hold, unknown ones included.
const char *partition_name(int number);
const char *channel_width_name(int number);
const char *tx_power_name(int number);
const char *wireless_mode_name(int number);

// A wireless mode that a word sets.
struct WirelessMode {
    char word[12];
    char help[31];
    int value;
    char name[21];
};

inline constexpr WirelessMode WIRELESS_MODES[] = {
    {"ngb", "wlmode mixed n/b/g", WLMODE_BGN, "80211n 80211g 80211b"},
    {"only-n2.4G", "wlmode 80211n with 2.4G", WLMODE_N_2G, "80211n"},
    {"gb", "wlmode mixed 80211b and 80211g", WLMODE_BG, "80211b 80211g"},
    {"only-a", "wlmode 80211a", WLMODE_A, "80211a"},
    {"an", "wlmode 80211a and 802.11n", WLMODE_AN, "80211a 80211n"},
    {"only-n5G", "wlmode 80211n with 5G", WLMODE_N_5G, "80211n (5GHz)"},
};

// Stored inverted: 0 keeps the clients apart. Deliberate.
inline constinit auto w_partition_rows = command_table({
    {"enable", "enable w_partition", write_fixed<"/wlan/inf:%d/w_partition", "0", APPLY_WLAN>},
    {"disable", "disable w_partition", write_fixed<"/wlan/inf:%d/w_partition", "1", APPLY_WLAN>},
});

inline constinit auto cwm_rows = command_table({
    {"auto", "20/40MHz automatically", set_cwm_auto},
    {"20MHz", "20MHz only", write_fixed<"/wlan/inf:%d/cwmmode", "0", APPLY_WLAN>},
});

inline constinit auto tx_power_rows = command_table({
    {"100%", "txpower 100%", write_fixed<"/wlan/inf:%d/txpower", "1", APPLY_WLAN>},
    {"50%", "txpower 50%", write_fixed<"/wlan/inf:%d/txpower", "2", APPLY_WLAN>},
    {"25%", "txpower 25%", write_fixed<"/wlan/inf:%d/txpower", "3", APPLY_WLAN>},
    {"12.5%", "txpower 12.5%", write_fixed<"/wlan/inf:%d/txpower", "4", APPLY_WLAN>},
});

inline constinit auto band_rows = command_table({
    {"2.4G", "2.4 GHz band", write_fixed<"/wlan/ch_mode", "0", APPLY_WLAN>},
    {"5G", "5 GHz band", set_band_5g},
});

inline constinit auto wireless_mode_rows =
    command_table_of(WIRELESS_MODES, [](const WirelessMode &mode) {
        return CliCommand{mode.word, mode.help, set_wireless_mode};
    });

inline constexpr auto radio_set_rows = command_rows({
    {"ssid", "Set SSID", set_ssid},
    family("autoChannel", "Set auto channel selection",
           switch_rows<"/wlan/inf:%d/autochannel", APPLY_WLAN, "autochannel">),
    family("ssidhidden", "Set SSID hidden",
           switch_rows<"/wlan/inf:%d/ssidhidden", APPLY_WLAN, "ssidhidden">),
    family("wmm", "Set WMM", switch_rows<"/wlan/inf:%d/wmm/enable", APPLY_WLAN, "wmm">),
    family("w_partition", "Set wireless partition", w_partition_rows),
    family("e_partition", "Set ethernet to wireless partition",
           switch_rows<"/wlan/inf:%d/e_partition", APPLY_WLAN, "e_partition">),
    family("ethlink", "Set ethernet integration",
           switch_rows<"/wlan/inf:%d/ethlink", APPLY_WLAN, "ethlink">),
    family("shortgi", "Set short guard interval",
           switch_rows<"/wlan/inf:%d/shortgi", APPLY_WLAN, "shortgi">),
    family("wireless", "Set wireless", switch_rows<"/wlan/inf:%d/enable", APPLY_WLAN, "wireless">),
    family("cwm", "Set channel width", cwm_rows),
    family("txpower", "Set transmit power", tx_power_rows),
    family("wlmode", "Set wireless mode", wireless_mode_rows),
    family("band", "Set band", band_rows),
    {"dtim", "Set DTIM (1--15)",
     write_in_range<"/wlan/inf:%d/dtim", 1, 15, APPLY_WLAN, "No dtim!\n">},
    {"beaconinterval", "Set Beaconinterval (range:25--500)",
     write_in_range<"/wlan/inf:%d/beaconinterval", 25, 500, APPLY_WLAN, "No beaconinterval!\n">},
    {"acktimeout_a", "Set acktimeput in A band (range:25--200)",
     write_in_range<"/wlan/inf:%d/acktimeout_a", 25, 200, APPLY_WLAN, "No acktimeout!\n">},
    {"acktimeout_g", "Set acktimeput in G band (range:48--200)",
     write_in_range<"/wlan/inf:%d/acktimeout_g", 48, 200, APPLY_WLAN, "No acktimeout!\n">},
    {"fixpower", "Set a fix power in SW side",
     write_in_range<"/wlan/inf:%d/fixpower", 0, 40, APPLY_WLAN, "No fixpower!\n">, nullptr,
     DEBUG_TAG},
    {"dfstest", "Set DFS test mode (0-1)",
     write_in_range<"/wlan/inf:1/dfstest", 0, 1, APPLY_WLAN,
                    "wrong number! 0:Disable DFS test mode 1:Enable DFS test mode\n", CLI_DONE>,
     nullptr, HIDDEN_TAG},
    {"dfsbangradar", "Set DFS bang radar", report_no_radar_bang, nullptr, HIDDEN_TAG},
    {"wlantest", "Set WLAN restart test", test_wlan_restart, nullptr, DEBUG_TAG},
});

inline constexpr auto radio_get_rows = command_rows({
    {"ssid", "Display SSID", show_text<"/wlan/inf:%d/ssid", "SSID:%s\n", 64>},
    {"autochannel", "Display auto channel selection",
     show_switch<"/wlan/inf:%d/autochannel", "autochannel:%s\n">},
    {"ssidhidden", "Display SSID hidden",
     show_switch<"/wlan/inf:%d/ssidhidden", "ssidhidden:%s\n">},
    {"wmm", "Display WMM", show_switch<"/wlan/inf:%d/wmm/enable", "wmm:%s\n">},
    {"w_partition", "Display wireless partition",
     show_name<"/wlan/inf:%d/w_partition", "w_partition:%s\n", partition_name>},
    {"e_partition", "Display ethernet to wireless partition",
     show_switch<"/wlan/inf:%d/e_partition", "e_partition:%s\n">},
    {"ethlink", "Display ethernet integration",
     show_switch<"/wlan/inf:%d/ethlink", "ethernet integration:%s\n">},
    {"shortgi", "Display short guard interval",
     show_switch<"/wlan/inf:%d/shortgi", "shortgi:%s\n">},
    {"wireless", "Display wireless", show_switch<"/wlan/inf:%d/enable", "wireless:%s\n">},
    {"cwm", "Display channel width",
     show_name<"/wlan/inf:%d/cwmmode", "cwmmode:%s\n", channel_width_name>},
    {"txpower", "Display transmit power",
     show_name<"/wlan/inf:%d/txpower", "txpower:%s\n", tx_power_name>},
    {"wlmode", "Display wireless mode",
     show_name<"/wlan/inf:1/wlmode", "wlmode:%s\n", wireless_mode_name>},
    {"dtim", "Display DTIM", show_text<"/wlan/inf:%d/dtim", "dtim:%s\n">},
    {"beaconinterval", "Display beacon interval",
     show_text<"/wlan/inf:%d/beaconinterval", "beaconinterval:%s\n">},
    {"fixpower", "Display fix power", show_text<"/wlan/inf:%d/fixpower", "fixpower:%s\n">, nullptr,
     DEBUG_TAG},
    {"channel", "Display channel", show_text<"/runtime/stats/wlan/inf:%d/channel", "channel:%s\n">},
    {"dfstest", "Display DFS test mode", show_text<"/wlan/inf:1/dfstest", "DFS Test Mode:%s\n">},
    {"acktimeout", "Display ACK timeout", get_acktimeout},
    {"band", "Display band", get_band},
});
