// Multi-SSID: its switches, and the settings of each slot.
#pragma once

#include "commands/keys.h"
#include "commands/radio.h"
#include "commands/security.h"
#include "commands/shared/slot.h"

inline constexpr SlotSwitch SLOT_STATE{
    .leaf = "/state",
    .refusal = {.wrong_count =
                    "Wrong input parameters. Please input individual multi-SSID state and "
                    "Multi-SSID index (1-3).\n",
                .out_of_range = SLOT_NOT_CORRECT,
                .error_line = "ERROR: Unable to set individual multi-SSID state.\n"},
};
inline constexpr SlotSwitch SLOT_SSID_HIDDEN{
    .leaf = "/ssid_hidden",
    .refusal = {.wrong_count =
                    "Wrong input parameters. Please input ssid hidden state and Multi-SSID "
                    "index (1-3).\n",
                .out_of_range = SLOT_NOT_CORRECT,
                .error_line = "ERROR: Unable to set individual multi-SSID ssid hidden state.\n"},
};
// Refused with the state's texts. Deliberate.
inline constexpr SlotSwitch SLOT_WMM{
    .leaf = "/wmm/enable",
    .refusal = SLOT_STATE.refusal,
};
inline constexpr SlotSwitch SLOT_PARTITION{
    .leaf = "/w_partition",
    .refusal = {.wrong_count = "Wrong input parameters. Please input wlan partition state and "
                               "Multi-SSID index (1-3).\n",
                .out_of_range = SLOT_NOT_CORRECT,
                .error_line = "ERROR: Unable to set individual multi-SSID wlan partition state.\n"},
};

inline constexpr SlotSetter SLOT_SSID{
    .leaf = "/ssid",
    .rule = {ValueKind::Text, 1, 64, "SSID length should less 65\n"},
    .value_name = "ESSID",
    .error_line = "ERROR: Unable to set individual multi-SSID ESSID.\n",
    .value_error = "",
};
inline constexpr SlotSetter SLOT_PASSPHRASE{
    .leaf = "/passphrase",
    .rule = PASSPHRASE_RULE,
    .value_name = "passphrase key",
    .error_line = PASSPHRASE_ERROR,
};
inline constexpr SlotSetter SLOT_GROUP_KEY_UPDATE{
    .leaf = "/interval",
    .rule = GROUP_KEY_UPDATE_RULE,
    .value_name = "Group Key Update interval",
    .error_line = GROUP_KEY_UPDATE_ERROR,
};
inline constexpr SlotSetter SLOT_DEFAULT_KEY{
    .leaf = "/wep_key_index",
    .rule = {ValueKind::Number, 1, WEP_KEY_COUNT, WEP_KEY_OUT_OF_RANGE},
    .value_name = "defalut wep key index",
    .error_line = "ERROR: Unable to set defalut wep key index.\n",
    .as_number = true,
};
inline constexpr SlotSetter SLOT_PRIORITY{
    .leaf = "/pri_bit",
    .rule = {ValueKind::Number, 1, 4094, "Please specify the correct Priority (1~4094).\n"},
    .value_name = "Priority",
    .error_line = "ERROR: Unable to set Priority.\n",
    .value_error = "",
    .out_of_range = "Please input correct multi_SSID priority index: 1-3\n",
    .slot_error = "",
};
// Of the primary SSID.
inline constexpr ValueSetter PRIORITY{
    .path = "/wlan/inf:%d/pri_bit",
    .rule = {ValueKind::Number, 0, UINT32_MAX, ""},
    .apply_bits = APPLY_WLAN,
    .error_line = SLOT_PRIORITY.error_line,
    .value_error = "",
};

// A cipher of a slot. Its word is that of the primary SSID.
struct SlotCipher {
    Cipher value;
    bool for_wpa;       // for WPA authentication only; false: for all others only
    char confirmed[17]; // its name when it is set,
    char name[11];      // and when it is displayed
};

inline constexpr SlotCipher SLOT_CIPHERS[] = {
    {CIPHER_NONE, false, "None", "None"},
    {CIPHER_WEP, false, "WEP", "WEP"},
    {CIPHER_TKIP, true, "TKIP", "TKIP"},
    {CIPHER_AES, true, "AES", "AES"},
    {CIPHER_AUTO, true, "auto (tkip, aes)", "TKIP, AES"},
};

// An authentication type of a slot. Two of the words differ from those of the primary SSID.
struct SlotAuthentication {
    Authentication value;
    char word[13];
    char confirmed[30];
};

inline constexpr SlotAuthentication SLOT_AUTHENTICATIONS[] = {
    {AUTH_OPEN_SYSTEM, "open-system", "open-system"},
    {AUTH_SHARED_KEY, "shared-key", "shared-key"},
    {AUTH_WPA_EAP, "wpa-eap", "wpa-eap"},
    {AUTH_WPA_PSK, "wpa-psk", "wpa-psk"},
    {AUTH_WPA2_EAP, "wpa2-eap", "wpa2-eap"},
    {AUTH_WPA2_PSK, "wpa2-psk", "wpa2-psk"},
    {AUTH_WPA_AUTO_EAP, "wpa-auto-eap", "wpa/wpa2-eap"},
    {AUTH_WPA_AUTO_PSK, "wpa-auto-psk", "wpa/wpa2-psk"},
    {AUTH_DYNAMIC_WEP, "8021x-only", "802.1x for dynamic WEP keying"},
};

const char *slot_cipher_name(int cipher);

inline constexpr SlotDisplay SHOWN_STATE{"/state", "Multi-SSID", SlotValue::Name, switch_name};
// Displayed with the state's text. Deliberate.
inline constexpr SlotDisplay SHOWN_SSID_HIDDEN{"/ssid_hidden", "Multi-SSID", SlotValue::Name,
                                               switch_name};
inline constexpr SlotDisplay SHOWN_PARTITION{"/w_partition", "Multi-SSID", SlotValue::Name,
                                             partition_name};
inline constexpr SlotDisplay SHOWN_WMM{"/wmm/enable", "WMM state of Multi-SSID", SlotValue::Name,
                                       switch_name};
inline constexpr SlotDisplay SHOWN_SSID{"/ssid", "SSID of Multi-SSID", SlotValue::Text};
inline constexpr SlotDisplay SHOWN_AUTHENTICATION{
    .leaf = "/auth",
    .subject = "Authentication Type of Multi-SSID",
    .kind = SlotValue::Name,
    .name = authentication_line,
    .tail = "",
};
inline constexpr SlotDisplay SHOWN_CIPHER{"/cipher", "Cipher of Multi-SSID", SlotValue::Name,
                                          slot_cipher_name};
inline constexpr SlotDisplay SHOWN_GROUP_KEY_UPDATE{
    .leaf = "/interval",
    .subject = "Group Key Update Interval of Multi-SSID",
    .kind = SlotValue::Number,
    .tail = " seconds\n",
};
inline constexpr SlotDisplay SHOWN_DEFAULT_KEY{
    "/wep_key_index", "Default WEP Key Index of Multi-SSID", SlotValue::Number};
inline constexpr SlotDisplay SHOWN_PRIORITY{
    .leaf = "/pri_bit",
    .subject = "Priority of Multi-SSID",
    .kind = SlotValue::Number,
    .refusal = {.wrong_count =
                    "Wrong input parameters. Please specify the correct Multi-SSID priority "
                    "index (1-3).\n",
                .out_of_range = "Please specify the correct Multi-SSID priority index (1-3).\n"},
};

// Changes an operating mode that excludes multi-SSID to the access point mode, and reports it.
CliHandler enable_multi_ssid;

// Word SLOT. Other words, and a cipher that does not fit the slot's authentication type, are
// reported and return CLI_DONE.
CliHandler set_slot_authentication;
CliHandler set_slot_cipher;

// Word SLOT: sets no cipher and open-system authentication.
CliHandler set_slot_cipher_none;

// The priority of the primary SSID.
CliHandler get_priority;

// Word SLOT: the key of the primary SSID that the slot uses. Other words are reported and return
// CLI_DONE.
CliHandler get_slot_wep_key;

inline constinit auto multi_state_rows = command_table({
    {"enable", "enable multi-SSID", enable_multi_ssid},
    {"disable", "disable multi-SSID", write_fixed<"/wlan/inf:%d/multi/state", "0", APPLY_WLAN>},
});

inline constinit auto multi_ind_state_rows = command_table({
    {"enable", "enable individual multi-SSID [index]", switch_slot<SLOT_STATE, "1">},
    {"disable", "disable individual multi-SSID [index]", switch_slot<SLOT_STATE, "0">},
});

inline constinit auto multi_ssid_hidden_rows = command_table({
    {"enable", "enable ssidhidden of Multi-SSID [index]", switch_slot<SLOT_SSID_HIDDEN, "1">},
    {"disable", "disable ssidhidden of Multi-SSID [index]", switch_slot<SLOT_SSID_HIDDEN, "0">},
});

inline constinit auto multi_wmm_rows = command_table({
    {"enable", "enable wmm of Multi-SSID [index]", switch_slot<SLOT_WMM, "1">},
    {"disable", "disable wmm of Multi-SSID [index]", switch_slot<SLOT_WMM, "0">},
});

// Stored inverted: 0 keeps the clients apart. Deliberate.
inline constinit auto multi_partition_rows = command_table({
    {"enable", "enable w_partition of Multi-SSID [index]", switch_slot<SLOT_PARTITION, "0">},
    {"disable", "disable w_partition of Multi-SSID [index]", switch_slot<SLOT_PARTITION, "1">},
    {"guest", "guest mode of Multi-SSID [index]", switch_slot<SLOT_PARTITION, "2">},
});

inline constinit auto multi_authentication_rows =
    command_table_of(SLOT_AUTHENTICATIONS, [](const SlotAuthentication &type) {
        return CliCommand{type.word, find_type(AUTHENTICATION_TYPES, type.value)->help,
                          set_slot_authentication};
    });

inline constinit auto multi_cipher_rows =
    command_table_of(SLOT_CIPHERS, [](const SlotCipher &cipher) {
        const SecurityType &primary = *find_type(CIPHERS, cipher.value);
        return CliCommand{primary.word, primary.help,
                          cipher.value == CIPHER_NONE ? set_slot_cipher_none : set_slot_cipher};
    });

inline constexpr auto multissid_set_rows = command_rows({
    family("multi-state", "Set Multi-SSID state", multi_state_rows),
    family("multi-pri-state", "Set priority by SSID",
           switch_rows<"/wlan/inf:%d/multi/pri_by_ssid", APPLY_WLAN, "priority by SSID">),
    family("multi-ind-state", "Set state of individual Multi-SSID", multi_ind_state_rows),
    family("multi-ssidhidden", "Set SSID hidden of Multi-SSID", multi_ssid_hidden_rows),
    family("multi-wmm", "Set WMM of Multi-SSID", multi_wmm_rows),
    family("multi-w-partition", "Set wireless partition of Multi-SSID", multi_partition_rows),
    {"multi-ssid", "Set SSID of Multi-SSID [value][index]", set_slot<SLOT_SSID>},
    {"multi-passphrase", "Set Passphrase of Multi-SSID [value][index] (size:8--63)",
     set_slot<SLOT_PASSPHRASE>},
    {"multi-groupkeyupdate", "Set Group Key Update Interval of Multi-SSID [value][index]",
     set_slot<SLOT_GROUP_KEY_UPDATE>},
    {"multi-defkeyindex", "Set Default Key Index of Multi-SSID [1--4][index]",
     set_slot<SLOT_DEFAULT_KEY>},
    {"multi-priority", "Set Priority of Multi-SSID [value][index] (range:1--4094)",
     set_slot<SLOT_PRIORITY>},
    {"priority", "Set Priority of primary SSID", set_value<PRIORITY>},
    family("multi-auth", "Set Authentication Type of Multi-SSID", multi_authentication_rows),
    family("multi-cipher", "Set Cipher of Multi-SSID", multi_cipher_rows),
});

inline constexpr auto multissid_get_rows = command_rows({
    {"multi-state", "Display Multi-SSID state",
     show_switch<"/wlan/inf:%d/multi/state", "Multi-SSID is %s\n", CANT_ALLOC_MEMORY>},
    {"multi-pri-state", "Display priority by SSID",
     show_switch<"/wlan/inf:%d/multi/pri_by_ssid", "Multi-SSID priority is %s\n",
                 CANT_ALLOC_MEMORY>},
    {"priority", "Display Priority of primary SSID", get_priority},
    {"multi-ind-state", "Display state of individual Multi-SSID [index]", show_slot<SHOWN_STATE>},
    {"multi-ssidhidden", "Display SSID hidden of Multi-SSID [index]", show_slot<SHOWN_SSID_HIDDEN>},
    {"multi-w-partition", "Display wireless partition of Multi-SSID [index]",
     show_slot<SHOWN_PARTITION>},
    {"multi-wmm", "Display WMM of Multi-SSID [index]", show_slot<SHOWN_WMM>},
    {"multi-ssid", "Display SSID of Multi-SSID [index]", show_slot<SHOWN_SSID>},
    {"multi-auth", "Display Authentication Type of Multi-SSID [index]",
     show_slot<SHOWN_AUTHENTICATION>},
    {"multi-cipher", "Display Cipher of Multi-SSID [index]", show_slot<SHOWN_CIPHER>},
    {"multi-groupkeyupdate", "Display Group Key Update Interval of Multi-SSID [index]",
     show_slot<SHOWN_GROUP_KEY_UPDATE>},
    {"multi-defkeyindex", "Display Default Key Index of Multi-SSID [index]",
     show_slot<SHOWN_DEFAULT_KEY>},
    {"multi-priority", "Display Priority of Multi-SSID [index]", show_slot<SHOWN_PRIORITY>},
    {"multi-wepkey", "Display WEP Key of Multi-SSID [index]", get_slot_wep_key},
});
