// Authentication and cipher of the primary SSID, and the rule that ties them to each other and to
// the operating mode.
#pragma once

#include "commands/shared/rows.h"
#include "commands/shared/wireless_numbers.h"
#include "config/apply.h"
#include "shell/dispatch.h"

#include <span>

// The one setting that is to change.
enum class SecurityChange { Mode = 1, Authentication = 2, Cipher = 3 };

// Results of both operations.
inline constexpr int SECURITY_UNKNOWN = -1;  // a setting could not be read: refuse the change
inline constexpr int SECURITY_NO_MEMORY = 2; // after "memory error!"

// Checks the new value of one setting against the other two, which are read from interface 1.
// Returns one of these, or one of the results above.
int security_check(SecurityChange change, int value);
inline constexpr int SECURITY_SUPPORTED = 0;
inline constexpr int SECURITY_UNSUPPORTED = 1; // after the notice of the change

// After an unsupported change of mode or authentication: changes the other settings of the current
// band's interface to match. Returns one of these, or one of the results above.
int security_fixup(const CliContext &cli, SecurityChange change, int value);
inline constexpr int SECURITY_NO_FIX = 0;
inline constexpr int SECURITY_FIXED = 1; // after a notice of what was written

// The name of an authentication type and a newline; "" for an unknown one.
const char *authentication_line(int type);

// The same for a cipher.
const char *cipher_line(int cipher);

// Store the value of the row that was typed. One that does not go with the other settings is not
// stored, and the result is CLI_DONE; for an authentication type the cipher is fixed first if
// possible.
CliHandler set_authentication;
CliHandler set_cipher;

// Switches cipher and authentication off, unchecked.
CliHandler set_cipher_none;

// A value that a word sets.
struct SecurityType {
    char word[14];
    char help[57];
    int value;
    char line[31]; // how it is displayed
};

inline constexpr SecurityType AUTHENTICATION_TYPES[] = {
    {"open-system", "Set Authentication Type to Open-System", AUTH_OPEN_SYSTEM, "Open-System\n"},
    {"shared-key", "Set Authentication Type to Shared-Key", AUTH_SHARED_KEY, "Shared-Key\n"},
    {"wpa-eap", "Set Authentication Type to WPA-EAP", AUTH_WPA_EAP, "WPA-EAP\n"},
    {"wpa-psk", "Set Authentication Type to WPA-PSK", AUTH_WPA_PSK, "WPA-PSK\n"},
    {"wpa2-eap", "Set Authentication Type to WPA2-EAP", AUTH_WPA2_EAP, "WPA2-EAP\n"},
    {"wpa2-psk", "Set Authentication Type to WPA2-PSK", AUTH_WPA2_PSK, "WPA2-PSK\n"},
    {"wpa2-auto-eap", "Set Authentication Type to WPA/WPA2-EAP", AUTH_WPA_AUTO_EAP,
     "WPA/WPA2-EAP\n"},
    {"wpa2-auto-psk", "Set Authentication Type to WPA/WPA2-PSK", AUTH_WPA_AUTO_PSK,
     "WPA/WPA2-PSK\n"},
    {"8021x-only", "Set Authentication Type to 802.1X for Dynamic WEP Keying", AUTH_DYNAMIC_WEP,
     "802.1X for Dynamic WEP Keying\n"},
};

inline constexpr SecurityType CIPHERS[] = {
    {"no", "Disable Wireless Security", CIPHER_NONE, "NO\n"},
    {"wep", "Set Cipher of WEP", CIPHER_WEP, "WEP\n"},
    {"tkip", "Set Cipher of TKIP", CIPHER_TKIP, "TKIP\n"},
    {"aes", "Set Cipher of AES", CIPHER_AES, "AES\n"},
    {"auto", "Set Cipher of auto(AES/TKIP)", CIPHER_AUTO, "auto(AES/TKIP)\n"},
};

// The type with this value, or null.
constexpr const SecurityType *find_type(std::span<const SecurityType> types, int value) {
    for (const SecurityType &type : types) {
        if (type.value == value)
            return &type;
    }
    return nullptr;
}

inline constinit auto authentication_rows =
    command_table_of(AUTHENTICATION_TYPES, [](const SecurityType &type) {
        return CliCommand{type.word, type.help, set_authentication};
    });

inline constinit auto cipher_rows = command_table_of(CIPHERS, [](const SecurityType &cipher) {
    return CliCommand{cipher.word, cipher.help,
                      cipher.value == CIPHER_NONE ? set_cipher_none : set_cipher};
});

inline constexpr auto security_set_rows = command_rows({
    family("authentication", "Set Authentication Type", authentication_rows),
    family("cipher", "Set Cipher", cipher_rows),
});

inline constexpr auto security_get_rows = command_rows({
    {"authentication", "Display Authentication Type",
     show_name<"/wlan/inf:%d/authentication", "%s", authentication_line>},
    {"cipher", "Display Cipher", show_name<"/wlan/inf:%d/wpa/wepmode", "%s", cipher_line>},
});
