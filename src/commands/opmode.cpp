#include "commands/opmode.h"

#include "commands/channel.h"
#include "commands/security.h"
#include "config/node_access.h"
#include "shell/output.h"

namespace {

// True, after saying so, where WDS is not offered.
bool is_wds_barred() {
    if (cfg_number("/wlan/ch_mode") != 1 || read_country_code() != COUNTRY_JAPAN)
        return false;
    cli_printf("5G can't to support WDS mode \n");
    return true;
}

void switch_off_multi_ssid(const CliContext &cli) {
    ValueBuffer state;
    if (!state) {
        cli_printf(CANT_ALLOC_MEMORY);
        return;
    }
    cfg_get(state, "/wlan/inf:%d/multi/state", interface_number(cli));
    if (state.number() != 1)
        return;
    cli_printf(" Multi-SSID is diable \n");
    cfg_set("0", "/wlan/inf:%d/multi/state", interface_number(cli));
}

void keep_security_supported(const CliContext &cli, int mode) {
    if (security_check(SecurityChange::Mode, mode) != 0)
        security_fixup(cli, SecurityChange::Mode, mode);
    pending_apply |= APPLY_WLAN;
}

const char *client_mode_name() {
    return cfg_number("/bridge") != 0 ? "Wireless Client mode" : "WISP mode";
}

} // namespace

int set_client_mode(CliContext &cli, const char *, CliCommand *) {
    cfg_set_number(MODE_CLIENT, "/wlan/inf:%d/ap_mode", interface_number(cli));
    switch_off_multi_ssid(cli);
    keep_security_supported(cli, MODE_CLIENT);
    return CLI_DONE;
}

int set_wds_ap_mode(CliContext &cli, const char *, CliCommand *) {
    if (is_wds_barred())
        return CLI_REFUSED;
    cfg_set_number(MODE_WDS_AP, "/wlan/inf:%d/ap_mode", interface_number(cli));
    keep_security_supported(cli, MODE_WDS_AP);
    return CLI_DONE;
}

int set_wds_mode(CliContext &cli, const char *, CliCommand *) {
    if (is_wds_barred())
        return CLI_REFUSED;
    switch_off_multi_ssid(cli);
    cfg_set_number(MODE_WDS, "/wlan/inf:%d/ap_mode", interface_number(cli));
    keep_security_supported(cli, MODE_WDS_AP); // as for the mode with access point. Meant so.
    return CLI_DONE;
}

int get_ap_mode(CliContext &cli, const char *, CliCommand *) {
    ValueBuffer mode;
    if (!mode)
        return refuse(MEMORY_ERROR);
    cfg_get(mode, "/wlan/inf:%d/ap_mode", interface_number(cli));
    const char *name = mode.text();
    switch (mode.number()) {
    case MODE_AP:
        name = "ap mode";
        break;
    case MODE_CLIENT:
        name = client_mode_name();
        break;
    case MODE_REPEATER:
        name = "ap repeater mode";
        break;
    case MODE_WDS_AP:
        name = "wds with ap mode";
        break;
    case MODE_WDS:
        name = "wds without ap mode";
        break;
    default:
        break;
    }
    cli_printf("ap mode:%s\n", name);
    return CLI_DONE;
}
