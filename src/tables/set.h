#pragma once

#include "commands/acl_rogue.h"
#include "commands/aparray.h"
#include "commands/apply.h"
#include "commands/arp_spoofing.h"
#include "commands/autorekey.h"
#include "commands/channel.h"
#include "commands/dhcp.h"
#include "commands/dynamic_wep.h"
#include "commands/factory.h"
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
inline constinit auto set_table = make_table(
    apply_set_rows, lan_ip_set_rows, radio_set_rows, channel_set_rows, mcast_rate_set_rows,
    acl_rogue_set_rows, opmode_set_rows, security_set_rows, keys_set_rows, multissid_set_rows,
    wds_set_rows, dynamic_wep_set_rows, syslog_set_rows, time_set_rows, factory_set_rows,
    mfc_set_rows, identity_set_rows, web_set_rows, aparray_set_rows, dhcp_set_rows,
    zone_defence_set_rows, autorekey_set_rows, fixed_rate_set_rows, arp_spoofing_set_rows,
    limited_admin_set_rows, qos_set_rows, vlan_set_rows, mac_clone_set_rows);
