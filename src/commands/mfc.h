// Commands for the production line, which pass their words to the manufacturing tool and show its
// answer.
#pragma once

#include "commands/shared/rows.h"

// These print the tool's answer, up to 1023 characters, as a line. A wrong number of words is
// refused with the usage, except where stated.

// `mfc init LANMAC` and three more words. Refuses a malformed MAC address.
CliHandler mfc_init;

// A radio's test: words SSID CHANNEL.
CliHandler mfc_test_5g;
CliHandler mfc_test_24g;
CliHandler mfc_set_country_code;

// Passes one word on; any other number of words is ignored.
CliHandler mfc_reset;

// One word. Any other number returns CLI_DONE: the button's with its usage, the LED's silently.
CliHandler mfc_button;
CliHandler mfc_led;

// Sets the MAC address of WAN and LAN, which is not checked. This and the revision's print up to
// 255 characters of each answer. A missing word is refused with the usage, several words silently.
CliHandler set_mac_address;
CliHandler set_hardware_revision;

inline constexpr auto mfc_rows = command_rows({
    {"init", "Set LAN MAC address, hardware revision, country code and PIN", mfc_init},
    {"wlan_5", "Set 5 GHz radio for a test", mfc_test_5g},
    {"wlan_24", "Set 2.4 GHz radio for a test", mfc_test_24g},
    {"setcountrycode", "Set country code", mfc_set_country_code},
    {"getlanmac", "Display LAN MAC address", show_output<"mfc getlanmac ", "lanmac = %s\n", 1023>},
    {"getpin", "Display WPS PIN", show_output<"mfc getpin ", "pin = %s\n", 1023>},
    {"gethwver", "Display hardware revision", show_output<"mfc gethwrev", "hwver = %s\n", 1023>},
    {"getcountrycode", "Display country code",
     show_output<"mfc getcountrycode", "countrycode = %s\n", 1023>},
    {"freset", "Reset to factory default setting", mfc_reset},
    {"save", "Save settings", show_output<"mfc save", "%s\n", 1023>},
    {"ver", "Display version", show_output<"mfc ver", "ver = %s\n", 1023>},
    {"button", "Test button", mfc_button},
    {"led", "Test LED", mfc_led},
});

inline constexpr auto mfc_set_rows = command_rows({
    {"macaddress", "Set MAC address", set_mac_address, nullptr, DEBUG_TAG},
    {"hwrev", "Set hardware revision", set_hardware_revision, nullptr, DEBUG_TAG},
});

inline constexpr auto mfc_get_rows = command_rows({
    {"macaddress", "Display MAC address", show_output<"mfc getlanmac", "%s\n", 255>},
    {"hwrev", "Display hardware revision", show_output<"mfc gethwrev", "%s\n", 255>, nullptr,
     HIDDEN_TAG},
});
