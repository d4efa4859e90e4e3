// Numbers of wireless settings that several families use, as the nodes hold them.
#pragma once

// Operating modes; WDS is the wireless distribution system.
enum ApMode : int { MODE_AP, MODE_CLIENT, MODE_REPEATER, MODE_WDS_AP, MODE_WDS };

// Wireless modes, by the 802.11 standards that each mixes.
enum WlMode : int {
    WLMODE_BG = 2,
    WLMODE_B,
    WLMODE_N_2G,
    WLMODE_BGN,
    WLMODE_A = 7,
    WLMODE_AN,
    WLMODE_N_5G,
};

// Authentication types, of the primary SSID and of the multi-SSID slots.
enum Authentication : int {
    AUTH_OPEN_SYSTEM,
    AUTH_SHARED_KEY,
    AUTH_WPA_EAP,
    AUTH_WPA_PSK,
    AUTH_WPA2_EAP,
    AUTH_WPA2_PSK,
    AUTH_WPA_AUTO_EAP,
    AUTH_WPA_AUTO_PSK,
    AUTH_DYNAMIC_WEP = 9,
};

// Ciphers, of the primary SSID and of the multi-SSID slots.
enum Cipher : int { CIPHER_NONE, CIPHER_WEP, CIPHER_TKIP, CIPHER_AES, CIPHER_AUTO };

// Countries with rules of their own; the codes are ISO 3166 numeric.
enum CountryCode : int { COUNTRY_ISRAEL = 376, COUNTRY_JAPAN = 392 };
