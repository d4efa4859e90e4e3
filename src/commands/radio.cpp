#include "commands/radio.h"

#include "commands/channel.h"
#include "config/host_command.h"
#include "config/node_access.h"
#include "shell/args.h"
#include "shell/output.h"
#include "shell/prompt.h"

#include <cstring>
#include <unistd.h>

std::int32_t operating_band = 0;

namespace {

constexpr std::size_t SSID_LIMIT = 32;

bool is_wds_mode(int ap_mode) {
    return ap_mode == MODE_WDS_AP || ap_mode == MODE_WDS;
}

void print_band() {
    cli_printf("current band is: %d (0:2.4G, 1:5G)\n", static_cast<int>(operating_band));
}

// Waits until the radio has settled after a restart, for about 100 seconds at most.
void wait_for_wlan() {
    for (int tries = 0; tries < 101; ++tries) {
        ShortValue<30> status;
        cfg_get(status, "/runtime/wireless/setting/status");
        if (status.number() != 0)
            return;
        sleep(1);
    }
}

} // namespace

const char *partition_name(int number) {
    if (number == 1)
        return "disable";
    return number == 2 ? "guest mode" : "enable";
}

const char *channel_width_name(int number) {
    return number != 0 ? "20MHZ/40MHZ" : "20MHz";
}

const char *tx_power_name(int number) {
    static constexpr char NAMES[][6] = {"100%", "50%", "25%"};
    return number >= 1 && number <= 3 ? NAMES[number - 1] : "12.5%";
}

const char *wireless_mode_name(int number) {
    for (const WirelessMode &mode : WIRELESS_MODES) {
        if (mode.value == number)
            return mode.name;
    }
    // No word sets these two.
    return number == WLMODE_B ? "80211b" : "80211g";
}

int set_ssid(CliContext &cli, const char *, CliCommand *) {
    const char *ssid = arg_next(cli);
    if (ssid == nullptr)
        return refuse("No SSID!\n");
    cli_printf("SSID:%s\n", ssid); // even if it is refused
    if (std::strlen(ssid) > SSID_LIMIT)
        return refuse("No SSID!\n");
    cfg_set(ssid, "/wlan/inf:%d/ssid", interface_number(cli));
    return mark_for_apply(APPLY_WLAN);
}

int set_cwm_auto(CliContext &cli, const char *, CliCommand *) {
    read_country_code(); // read, but not used
    return write_fixed_value(cli, "/wlan/inf:%d/cwmmode", "1", APPLY_WLAN, "");
}

int set_wireless_mode(CliContext &, const char *, CliCommand *) {
    const WirelessMode &mode = item_of_current_row(WIRELESS_MODES, wireless_mode_rows);
    cfg_set_number(mode.value, "/wlan/inf:1/wlmode");
    return mark_for_apply(APPLY_WLAN);
}

int set_band_5g(CliContext &, const char *, CliCommand *) {
    const std::optional<int> country = read_country_code();
    if (!country)
        return CLI_REFUSED;
    if (*country == COUNTRY_JAPAN) {
        const std::optional<int> mode = cfg_read_number("/wlan/inf:1/ap_mode");
        if (!mode)
            return CLI_REFUSED;
        if (is_wds_mode(*mode)) {
            cfg_set_number(MODE_AP, "/wlan/inf:1/ap_mode");
            cli_printf("apmode change to only AP  ,beacuse 5G not support WDS\n");
        }
    }
    if (*country == COUNTRY_ISRAEL)
        return refuse("can not work in 5G when country as IL\n");
    cfg_set("1", "/wlan/ch_mode");
    return mark_for_apply(APPLY_WLAN);
}

int get_band(CliContext &, const char *, CliCommand *) {
    ValueBuffer band;
    if (!band)
        return refuse(MEMORY_ERROR);
    cfg_get(band, "/wlan/ch_mode");
    operating_band = band.number();
    print_band();
    return CLI_DONE;
}

int select_band(CliContext &cli, const char *, CliCommand *) {
    std::uint32_t band = 0;
    if (arg_count(cli) != 1 || arg_uint(cli, band, 10) != 0 || band > 1)
        return refuse("ERROR: Unable to set Band.\n");
    operating_band = static_cast<std::int32_t>(band);
    cli.current_band = operating_band;
    reset_prompt();
    print_band();
    return CLI_DONE;
}

int get_acktimeout(CliContext &cli, const char *, CliCommand *) {
    return show_node_text(
        cli, cli.current_band == 0 ? "/wlan/inf:1/acktimeout_g" : "/wlan/inf:2/acktimeout_a",
        "acktimeout:%s micro sec\n", ValueBuffer::USUAL_LIMIT, MEMORY_ERROR);
}

int report_no_radar_bang(CliContext &, const char *, CliCommand *) {
    cli_printf("Current H/W can't support this command!\n");
    return CLI_DONE;
}

int test_wlan_restart(CliContext &cli, const char *, CliCommand *) {
    if (arg_count(cli) != 1)
        return refuse("error wlantest number!\n");
    for (int times = decimal_value(arg_next(cli)); times >= 1; --times) {
        run_command("sh /etc/templates/wlan.sh restart 2> /dev/null");
        sleep(10);
        wait_for_wlan();
        sleep(12);
        run_command("free > /dev/console");
    }
    return CLI_DONE;
}
