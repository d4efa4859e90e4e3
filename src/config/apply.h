// Restarting the services whose settings changed.
#pragma once

#include <cstdint>

enum ApplyBit : std::uint32_t {
    APPLY_WAN = 0x1,
    APPLY_WLAN = 0x2,
    APPLY_SNMP = 0x8,
    APPLY_DHCPD = 0x10,
    APPLY_LAN = 0x20,
    APPLY_APSCAN = 0x40,
    APPLY_QOS = 0x80,
    APPLY_NEAPC = 0x100,
    APPLY_ARPSPOOF = 0x800,
    APPLY_WEB = 0x4000,
};

// What apply_changes must restart.
extern std::uint32_t pending_apply;

// Adds services to what apply_changes must restart. Returns 0, so that a handler that is done ends
// with it.
int mark_for_apply(std::uint32_t bits);

// How often apply_changes ran. At the console a `set apply` with nothing to apply counts as
// refused; a script compares this number to tell.
extern unsigned applies_run;

// Saves the configuration and runs the service scripts of every pending bit in their fixed order,
// then clears the bits. Whether or not a bit was set, a changed array configuration gets its
// version raised by one. Returns true when a bit was set. Exit statuses are ignored.
bool apply_changes();
