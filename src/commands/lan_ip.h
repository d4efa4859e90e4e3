// The device's own IP address, netmask, gateway and DNS server, and whether they are static.
#pragma once

#include "commands/shared/rows.h"
#include "config/apply.h"
#include "shell/dispatch.h"

// The values in use: the configured ones in static mode, else those from the DHCP server.
CliHandler get_ip_address;
CliHandler get_ip_mask;
CliHandler get_gateway;
CliHandler get_name_server;
CliHandler get_ip_mode;

inline constinit auto ip_mode_rows = command_table({
    {"static", "Static Mode", write_fixed<"/wan/rg/inf:1/mode", "1", APPLY_WAN | APPLY_WLAN>},
    {"dynamic", "DHCP Mode", write_fixed<"/wan/rg/inf:1/mode", "2", APPLY_WAN>},
});

inline constexpr auto lan_ip_set_rows = command_rows({
    {"ipaddr", "Set IP Address",
     set_host_address<"/wan/rg/inf:1/static/ip", APPLY_WAN | APPLY_WLAN, "No IP Address!\n">},
    {"ipmask", "Set IP Subnet Mask", set_netmask<"/wan/rg/inf:1/static/netmask", APPLY_WAN>},
    {"gateway", "Set Gateway IP Address",
     set_host_address<"/wan/rg/inf:1/static/gateway", APPLY_WAN, "No gateway!\n">},
    {"nameaddr", "Set DNS Address",
     set_host_address<"/dnsrelay/server/primarydns", APPLY_WAN, "No nameaddr!\n">},
    family("ipmode", "Set IP Mode", ip_mode_rows),
});

inline constexpr auto lan_ip_get_rows = command_rows({
    {"ipaddr", "Display IP Address", get_ip_address},
    {"ipmask", "Display IP Subnet Mask", get_ip_mask},
    {"gateway", "Display Gateway IP Address", get_gateway},
    {"nameaddr", "Display DNS Address", get_name_server},
    {"ipmode", "Display IP Mode", get_ip_mode},
    {"hardware", "Display Hardware Revisions",
     run_fixed<"rgdb -i -g runtime/sys/info/hardwareversion">},
});
