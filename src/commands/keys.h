// Keys of the primary SSID: WEP keys, passphrase, group key interval; and the administrator's
// login. Both bands use the WEP keys of interface 1. A multi-SSID slot holds a copy of the key that
// it uses.
#pragma once

#include "commands/shared/rows.h"
#include "config/apply.h"
#include "shell/dispatch.h"

inline constexpr int WEP_KEY_COUNT = 4;

// Formats of a WEP key, as the nodes hold them.
enum KeyFormat : int { FORMAT_ASCII = 1, FORMAT_HEXADECIMAL = 2 };

// Null for an unknown format.
const char *key_format_name(int format);

inline constexpr char WEP_KEY_OUT_OF_RANGE[] = "Please specify the correct key index (1--4).\n";

// Rules and refusals that the primary SSID and the multi-SSID slots share.
inline constexpr ValueRule PASSPHRASE_RULE{
    .kind = ValueKind::Text,
    .low = 8,
    .high = 63,
    .message = "The length of Passphrase should be 8~63.\n",
};
inline constexpr char PASSPHRASE_ERROR[] = "ERROR: Unable to set passphrase key.\n";
inline constexpr ValueRule GROUP_KEY_UPDATE_RULE{
    .kind = ValueKind::Number,
    .low = 300,
    .high = 99999,
    .message = "Invalid group key update interval.\n",
    .or_zero = true,
};
inline constexpr char GROUP_KEY_UPDATE_ERROR[] =
    "ERROR: Unable to set Group Key Update interval.\n";

inline constexpr ValueSetter PASSPHRASE{
    .path = "/wlan/inf:%d/wpa/wpapsk",
    .rule = PASSPHRASE_RULE,
    .apply_bits = APPLY_WLAN,
    .error_line = PASSPHRASE_ERROR,
};
inline constexpr ValueSetter GROUP_KEY_UPDATE{
    .path = "/wlan/inf:%d/wpa/grp_rekey_interval",
    .rule = GROUP_KEY_UPDATE_RULE,
    .apply_bits = APPLY_WLAN,
    .error_line = GROUP_KEY_UPDATE_ERROR,
};
inline constexpr ValueSetter LOGIN_NAME{
    .path = "/sys/user:1/name",
    .rule = {ValueKind::Text, 1, 64, "Username is too long.\n"},
    .apply_bits = APPLY_WEB,
    .error_line = "ERROR: Unable to set Login username.\n",
};
inline constexpr ValueSetter LOGIN_PASSWORD{
    .path = "/sys/user:1/password",
    .rule = {ValueKind::Text, 1, 64, "Password is too long.\n"},
    .apply_bits = APPLY_WEB,
    .error_line = "ERROR: Unable to set Login password.\n",
};

// An attribute of a WEP key. Changing it clears the key.
struct KeyAttribute {
    const char *leaf;        // of the key, and of the default key
    const char *slot_leaf;   // of a slot's copy
    const char *wrong_input; // printed before the error line
};

inline constexpr KeyAttribute KEY_LENGTH{
    .leaf = "keylength",
    .slot_leaf = "wep_keylength",
    .wrong_input = "Wrong input parameters. Please input wep key length and key index (1-4).  \n",
};
inline constexpr KeyAttribute KEY_FORMAT{
    .leaf = "keyformat",
    .slot_leaf = "wep_keyformat",
    .wrong_input = "Wrong input parameters. Please input wep key format and key index (1-4).  \n",
};

// Word KEY. Sets an attribute of the key; a change clears the key and its copies.
int change_key_attribute(CliContext &cli, const KeyAttribute &attribute, const char *value);

template <const KeyAttribute &Attribute, FixedText Value>
int change_key(CliContext &cli, const char *, CliCommand *) {
    return change_key_attribute(cli, Attribute, Value.text);
}

// In the following, KEY is a number from 1 to 4.

// Words KEY TEXT. The text must fit the key's length and format.
CliHandler set_key;

// Word KEY. Clears it and resets it to 64 bits in hexadecimal digits.
CliHandler delete_key;

// Word KEY. Makes it the default key and copies its length and format.
CliHandler set_default_key;

// Word KEY. Other words are reported and return CLI_DONE. The first two run the database's tool.
CliHandler get_key;
CliHandler get_key_length;
CliHandler get_key_format;

CliHandler get_all_keys;

inline constinit auto key_length_rows = command_table({
    {"64Bit", "Key of 64 bits", change_key<KEY_LENGTH, "64">},
    {"128Bit", "Key of 128 bits", change_key<KEY_LENGTH, "128">},
});

inline constinit auto key_format_rows = command_table({
    {"hexadecimal", "Key contains (0 - 9, a - f, A - F)", change_key<KEY_FORMAT, "2">},
    {"asciitext", "Key contains keyboard characters", change_key<KEY_FORMAT, "1">},
});

inline constexpr auto keys_set_rows = command_rows({
    {"key", "Set Encryption Key Index [1--4][value]", set_key},
    family("keylength", "Set Encryption Key Length", key_length_rows),
    family("keyentrymethod", "Set Encryption Key Entry Method", key_format_rows),
    {"defkeyindex", "Set Default Key Index [1--4]", set_default_key},
    {"passphrase", "Modify Passphrase (size:8--63)", set_value<PASSPHRASE>},
    {"groupkeyupdate", "Set Group Key Update Interval (in Secs: 0(no update) or 300-99999)",
     set_value<GROUP_KEY_UPDATE>},
    {"username", "Set login username (size:1--64)", set_value<LOGIN_NAME>},
    {"password", "Set login password (size:1--64)", set_value<LOGIN_PASSWORD>},
});

inline constexpr auto keys_get_rows = command_rows({
    {"key", "Display Encryption Key [1--4]", get_key},
    {"keylength", "Display Encryption Key Length [1--4]", get_key_length},
    {"keyentrymethod", "Display Encryption Key Entry Method [1--4]", get_key_format},
    {"defkeyindex", "Display Default Key Index", run_fixed<"rgdb -g /wlan/inf:1/defkey">},
    {"groupkeyupdate", "Display Group Key Update Interval",
     run_fixed<"rgdb -g /wlan/inf:1/wpa/grp_rekey_interval">},
    {"allkey", "Display all Encryption Keys", get_all_keys, nullptr, DEBUG_TAG},
});

inline constexpr auto keys_del_rows = command_rows({
    {"key", "Delete Encryption key (index:1--4)", delete_key},
});
