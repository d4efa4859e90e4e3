// Zone defence: the device communicates only with a list of addresses.
#pragma once

#include "commands/shared/rows.h"
#include "config/apply.h"
#include "shell/dispatch.h"

inline constexpr char ZONE_ADDRESSES[] = "/wlan/inf:%d/zonedefence_ip/ipaddr:%d";

// Also makes the radio reject the clients in its access control list.
CliHandler enable_zone_defence;

// Word ADDRESS, a host address.
CliHandler add_zone_address;
CliHandler delete_zone_address;

// The same for IPv6 addresses, whose list both radios share. No row leads here.
CliHandler add_zone_ipv6_address;
CliHandler delete_zone_ipv6_address;

inline constinit auto zone_defence_rows = command_table({
    {"enable", "enable zonedefence", enable_zone_defence},
    {"disable", "disable zonedefence", write_fixed<"/wlan/inf:%d/zonedefence", "0", APPLY_WLAN>},
});

inline constexpr auto zone_defence_set_rows = command_rows({
    family("zonedefence", "Set Zone Defence status", zone_defence_rows),
    {"zone-defence-addip", "Add Zone Defence IP Address", add_zone_address},
    {"zone-defence-delip", "Del Zone Defence IP Address", delete_zone_address},
});

inline constexpr auto zone_defence_get_rows = command_rows({
    {"zonedefence", "Display Zonedefence",
     show_switch<"/wlan/inf:%d/zonedefence", "zonedefence:%s\n">},
    {"zonedefence-ip", "Display Zonedefence IP table list",
     show_list<ZONE_ADDRESSES, " Item %d IP Address %s \n">},
});
