#include "config/apply.h"

#include "config/array_sync.h"
#include "config/host_command.h"
#include "config/node_access.h"

std::uint32_t pending_apply = 0;
unsigned applies_run = 0;

namespace {

// The WAN and the wireless restart both end with these, so with both bits they run twice.
// Deliberate.
void restart_access_policies() {
    run_command("sh /etc/templates/limitedadmin.sh");
    run_command("sh /etc/templates/pingctl.sh");
    run_command("sh /etc/templates/trafficmgr.sh restart");
}

void restart_wan() {
    ShortValue<127> stunnel;
    cfg_get(stunnel, "/sys/stunnel/enable");
    const bool secure_console = stunnel.number() == 1;
    if (secure_console)
        run_command("xmldbc -t  AAA:5:\"submit STUNNEL\"");
    run_command("sh /etc/templates/wan.sh restart 2> /dev/null");
    restart_access_policies();
    if (secure_console)
        run_command("xmldbc -t  AAA:5:\"submit CONSOLE\"");
    else
        run_command("submit CONSOLE");
}

void restart_wlan() {
    run_command("sh /etc/scripts/eth_vlan.sh start");
    run_command("sh /etc/templates/wlan.sh restart 2> /dev/null");
    restart_access_policies();
}

void restart_lan() {
    run_command("sh /etc/templates/onlanchange.sh");
    run_command("sh /etc/templates/lan.sh delay_restart 2> /dev/null");
    run_command("sh /etc/templates/dhcpd.sh 2> /dev/null");
}

// Spacing and redirections of all command lines are as the device's scripts expect them.
void restart_services(std::uint32_t bits) {
    if (bits & APPLY_WAN)
        restart_wan();
    if (bits & APPLY_WLAN)
        restart_wlan();
    if (bits & APPLY_NEAPC)
        run_command("sh /etc/templates/neapc.sh restart> /dev/null");
    if (bits & APPLY_SNMP)
        run_command("sh /etc/templates/snmp.sh start 2> /dev/null");
    if (bits & APPLY_DHCPD)
        run_command("sh /etc/templates/dhcpd.sh 2> /dev/null");
    if (bits & APPLY_LAN)
        restart_lan();
    if (bits & APPLY_APSCAN) {
        run_command("sh /etc/templates/ap_scan.sh");
        run_command("sh /etc/templates/ap_comp.sh");
    }
    // The wireless restart covers QoS already.
    if ((bits & APPLY_QOS) && !(bits & APPLY_WLAN))
        run_command("sh /etc/templates/qos.sh restart");
    if (bits & APPLY_ARPSPOOF) {
        run_command("sh /etc/templates/arpspoofing.sh restart> /dev/null");
        run_command("sh /etc/templates/netfilter.sh> /dev/null");
    }
    if (bits & APPLY_WEB) {
        run_command("/etc/templates/webs.sh password");
        run_command("/etc/templates/console.sh");
    }
}

void raise_array_version() {
    ShortValue<127> version;
    cfg_get(version, "/wlan/inf:1/aparray_cfg_version");
    // Counted unsigned, so that the largest number wraps.
    const auto next = static_cast<std::int32_t>(static_cast<std::uint32_t>(version.number()) + 1);
    cfg_set_number(next, "/wlan/inf:1/aparray_cfg_version");
    array_cfg_dirty = 0;
}

} // namespace

int mark_for_apply(std::uint32_t bits) {
    pending_apply |= bits;
    return 0;
}

bool apply_changes() {
    ++applies_run;
    const std::uint32_t bits = pending_apply;
    if (bits != 0) {
        save_configuration();
        restart_services(bits);
    }
    pending_apply = 0;
    if (array_cfg_dirty == 1)
        raise_array_version();
    return bits != 0;
}
