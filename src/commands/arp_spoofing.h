// ARP spoofing prevention: the gateways whose IP addresses are bound to their MAC addresses.
#pragma once

#include "commands/shared/rows.h"
#include "config/apply.h"
#include "shell/dispatch.h"

// Words ADDRESS MAC, written to the first free one of eight rules. Refused when the table is full.
CliHandler add_arp_rule;

// Word RULE, 1..8. Leaves a hole, at which the list ends.
CliHandler delete_arp_rule;

CliHandler delete_arp_rules;
CliHandler get_arp_rules;

inline constinit auto arp_spoofing_rows = command_table({
    family("status", "Set ARP Spoofing Status",
           reporting_switch_rows<"/arpspoofing/enable", APPLY_ARPSPOOF, "ARP Spoofing Status",
                                 "ARP Spoofing Prevention Status">),
    {"add", "Add Gateway address", add_arp_rule},
    {"delete", "Delete Gateway address", delete_arp_rule},
    {"delall", "Delete all the Gateway address", delete_arp_rules},
});

inline constexpr auto arp_spoofing_set_rows = command_rows({
    family("arpspoofing", "Set ARP Spoofing", arp_spoofing_rows),
});

inline constexpr auto arp_spoofing_get_rows = command_rows({
    {"arpspoofing", "Display ARP Spoofing", get_arp_rules},
});
