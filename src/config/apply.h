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

// The services that apply_changes restarts.
extern std::uint32_t pending_apply;

// Adds services to those. Returns 0 (CLI_DONE), for a handler to return in turn.
int mark_for_apply(std::uint32_t bits);

// How many times apply_changes ran. `set apply` is refused when there is nothing to apply; a script
// tells that from other refusals by this number.
extern unsigned applies_run;

// Saves the configuration and runs the service scripts of every pending bit in their fixed order,
// then clears the bits. A changed array configuration gets its version raised by one even if no bit
// is set. Returns true when a bit was set. Exit statuses are ignored.
bool apply_changes();
