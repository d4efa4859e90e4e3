#include "commands/opmode.h"

#include "commands/channel.h"
#include "commands/security.h"
#include "commands/shared/wireless_numbers.h"
#include "config/node_access.h"
#include "shell/output.h"

namespace {

// False after a message, or when a node could not be read.
bool is_wds_offered() {
    const std::optional<int> band = cfg_read_number("/wlan/ch_mode");
    if (!band)
        return false;
    if (*band != 1)
        return true;
    const std::optional<int> country = read_country_code();
    if (!country)
        return false;
    return *country != COUNTRY_JAPAN || complain("5G can't to support WDS mode \n");
}

// False when the state could not be read. Without memory it stays, after the message.
bool switch_off_multi_ssid(const CliContext &cli) {
    ValueBuffer state;
    if (!state) {
        cli_printf(CANT_ALLOC_MEMORY);
        return true;
    }
    if (cfg_get(state, "/wlan/inf:%d/multi/state", interface_number(cli)) != 0)
        return false;
    if (state.number() != 1)
        return true;
    cli_printf(" Multi-SSID is diable \n");
    cfg_set("0", "/wlan/inf:%d/multi/state", interface_number(cli));
    return true;
}

int keep_security_supported(const CliContext &cli, int mode) {
    const int check = security_check(SecurityChange::Mode, mode);
    if (check == SECURITY_UNKNOWN)
        return CLI_REFUSED;
    if (check != SECURITY_SUPPORTED)
        security_fixup(cli, SecurityChange::Mode, mode);
    return CLI_DONE;
}

const char *client_mode_name() {
    return cfg_number("/bridge") != 0 ? "Wireless Client mode" : "WISP mode";
}

} // namespace

int set_client_mode(CliContext &cli, const char *, CliCommand *) {
    cfg_set_number(MODE_CLIENT, "/wlan/inf:%d/ap_mode", interface_number(cli));
    mark_for_apply(APPLY_WLAN);
    if (!switch_off_multi_ssid(cli))
        return CLI_REFUSED;
    return keep_security_supported(cli, MODE_CLIENT);
}

int set_wds_ap_mode(CliContext &cli, const char *, CliCommand *) {
    if (!is_wds_offered())
        return CLI_REFUSED;
    cfg_set_number(MODE_WDS_AP, "/wlan/inf:%d/ap_mode", interface_number(cli));
    mark_for_apply(APPLY_WLAN);
    return keep_security_supported(cli, MODE_WDS_AP);
}

int set_wds_mode(CliContext &cli, const char *, CliCommand *) {
    if (!is_wds_offered())
        return CLI_REFUSED;
    if (!switch_off_multi_ssid(cli))
        return CLI_REFUSED;
    cfg_set_number(MODE_WDS, "/wlan/inf:%d/ap_mode", interface_number(cli));
    mark_for_apply(APPLY_WLAN);
    // Checked as the mode with access point. Deliberate.
    return keep_security_supported(cli, MODE_WDS_AP);
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
