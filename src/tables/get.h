#pragma once

#include "commands/acl_rogue.h"
#include "commands/aparray.h"
#include "commands/arp_spoofing.h"
#include "commands/autorekey.h"
#include "commands/channel.h"
#include "commands/clients.h"
#include "commands/dhcp.h"
#include "commands/dynamic_wep.h"
#include "commands/fixed_rate.h"
#include "commands/identity.h"
#include "commands/keys.h"
#include "commands/lan_ip.h"
#include "commands/limited_admin.h"
#include "commands/mac_clone.h"
#include "commands/mcast_rate.h"
#include "commands/mfc.h"
#include "commands/multissid.h"
#include "commands/opmode.h"
#include "commands/qos.h"
#include "commands/radio.h"
#include "commands/security.h"
#include "commands/syslog.h"
#include "commands/time.h"
#include "commands/vlan.h"
#include "commands/wds.h"
#include "commands/web.h"
#include "commands/zone_defence.h"

// Families in the order of the device's subsystems; it settles ties between prefixes and never
// changes.
inline constinit auto get_table = make_table(
    lan_ip_get_rows, radio_get_rows, channel_get_rows, mcast_rate_get_rows, acl_rogue_get_rows,
    clients_get_rows, opmode_get_rows, security_get_rows, keys_get_rows, multissid_get_rows,
    wds_get_rows, dynamic_wep_get_rows, syslog_get_rows, time_get_rows, mfc_get_rows,
    identity_get_rows, web_get_rows, aparray_get_rows, dhcp_get_rows, zone_defence_get_rows,
    autorekey_get_rows, fixed_rate_get_rows, arp_spoofing_get_rows, limited_admin_get_rows,
    qos_get_rows, vlan_get_rows, mac_clone_get_rows);
