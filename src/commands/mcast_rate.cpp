#include "commands/mcast_rate.h"

#include "commands/shared/wireless_numbers.h"
#include "config/apply.h"
#include "config/node_access.h"
#include "shell/args.h"
#include "shell/output.h"

#include <array>

namespace {

// All rates in kbit/s: CCK, OFDM, 802.11n.
constexpr int RATES[] = {1000,  2000,  5500,  11000, 6000,  9000,   12000,  18000,
                         24000, 36000, 48000, 54000, 6500,  13000,  19500,  26000,
                         39000, 52000, 58500, 65000, 78000, 104000, 117000, 130000};

// The indices in some of a band's wireless modes: they are below `limit`; 0 disables the multicast
// rate.
struct RateClass {
    unsigned limit;
    const char *help;
};

// A band's indices: they count from 1 in its part of RATES, 802.11n rates after the legacy ones. In
// the mode with 802.11n alone, its rates count from 1.
struct Band {
    const char *node;
    const char *usage;
    char letter;
    const int *rates;
    int fallback; // shown for an index beyond the table
    std::array<int, 2> legacy_modes;
    int n_only_mode;
    RateClass legacy;
    RateClass n_only;
    RateClass mixed;
};

constexpr Band G_BAND = {
    .node = "mcastrate_g",
    .usage = "set mcastrate gband <value of mcast rate>",
    .letter = 'G',
    .rates = RATES,
    .fallback = 11000,
    .legacy_modes = {WLMODE_BG, WLMODE_B},
    .n_only_mode = WLMODE_N_2G,
    .legacy =
        {13, "<value of mcast rate 11b/g>: 0:disable 1:1Mbps 2:2Mbps 3:5.5Mbps 4:11Mbps 5:6Mbps \n"
             "6:9Mbps 7:12Mbps 8:18Mbps 9:24Mbps 10:36Mbps 11:48Mbps 12:54Mbps\n"},
    .n_only = {13, "<value of mcast rate 11n>: 0:disable 1:6.5Mbps\n"
                   "2:13Mbps 3:19.5Mbps 4:26Mbps 5:39Mbps 6:52Mbps 7:58.5Mbps 8:65Mbps\n"
                   "9:78Mbps 10:104Mbps 11:117Mbps 12:130Mbps\n"},
    .mixed = {25,
              "<value of mcast rate 11b/g/n mixed>: 0:disable 1:1Mbps 2:2Mbps 3:5.5Mbps 4:11Mbps "
              "5:6Mbps \n"
              "6:9Mbps 7:12Mbps 8:18Mbps 9:24Mbps 10:36Mbps 11:48Mbps 12:54Mbps 13:6.5Mbps\n"
              "14:13Mbps 15:19.5Mbps 16:26Mbps 17:39Mbps 18:52Mbps 19:58.5Mbps 20:65Mbps\n"
              "21:78Mbps 22:104Mbps 23:117Mbps 24:130Mbps\n"},
};

constexpr Band A_BAND = {
    .node = "mcastrate_a",
    .usage = "set mcastrate aband <value of mcast rate>",
    .letter = 'A',
    .rates = RATES + 4, // no CCK
    .fallback = 6000,
    .legacy_modes = {WLMODE_A, WLMODE_A},
    .n_only_mode = WLMODE_N_5G,
    .legacy = {9,
               "<value of mcast rate 11a>: 0:disable 1:6Mbps 2:9Mbps 3:12Mbps 4:18Mbps 5:24Mbps\n"
               "6:36Mbps 7:48Mbps 8:54Mbps\n"},
    .n_only =
        {13,
         "<value of mcast rate 11n>: 0:disable 1:6.5Mbps 2:13Mbps 3:19.5Mbps 4:26Mbps 5:39Mbps\n"
         "6:52Mbps 7:58.5Mbps 8:65Mbps 9:78Mbps 10:104Mbps 11:117Mbps 12:130Mbps\n"},
    .mixed = {21,
              "<value of mcast rate 11n/a>: 0:disable 1:6Mbps 2:9Mbps 3:12Mbps 4:18Mbps 5:24Mbps\n"
              "6:36Mbps 7:48Mbps 8:54Mbps 9:6.5Mbps 10:13Mbps 11:19.5Mbps 12:26Mbps 13:39Mbps\n"
              "14:52Mbps 15:58.5Mbps 16:65Mbps 17:78Mbps 18:104Mbps 19:117Mbps 20:130Mbps\n"},
};

const RateClass &rate_class(const Band &band, int wireless_mode) {
    if (wireless_mode == band.legacy_modes[0] || wireless_mode == band.legacy_modes[1])
        return band.legacy;
    return wireless_mode == band.n_only_mode ? band.n_only : band.mixed;
}

int set_mcast_rate(CliContext &cli, const Band &band) {
    const std::optional<int> mode = cfg_read_number("/wlan/inf:1/wlmode");
    if (!mode)
        return CLI_REFUSED;
    const RateClass &rates = rate_class(band, *mode);
    const bool is_alone = arg_count(cli) == 1;
    const char *index = arg_next(cli);
    if (!is_alone || unsigned_value(index) >= rates.limit) {
        cli_printf("%s\n%s", band.usage, rates.help);
        return CLI_DONE;
    }
    cfg_set(index, "/wlan/inf:1/%s", band.node);
    return mark_for_apply(APPLY_WLAN);
}

} // namespace

int set_mcast_rate_2g(CliContext &cli, const char *, CliCommand *) {
    return set_mcast_rate(cli, G_BAND);
}

int set_mcast_rate_5g(CliContext &cli, const char *, CliCommand *) {
    return set_mcast_rate(cli, A_BAND);
}

int get_mcast_rate(CliContext &cli, const char *, CliCommand *) {
    const Band &band = cfg_number("/wlan/ch_mode") == 1 ? A_BAND : G_BAND;
    const int interface = interface_number(cli);
    const int stored = cfg_number("/wlan/inf:%d/%s", interface, band.node);
    const int mode = cfg_number("/wlan/inf:%d/wlmode", interface);
    auto index = static_cast<unsigned>(stored);
    // The mode may be the other band's. Deliberate.
    if (index != 0 && (mode == G_BAND.n_only_mode || mode == A_BAND.n_only_mode))
        index += band.legacy.limit - 1;
    if (index == 0)
        cli_printf("%c band mcast rate is disabled\n", band.letter);
    else
        cli_printf("%c band mcast rate is %dKbps\n", band.letter,
                   index < band.mixed.limit ? band.rates[index - 1] : band.fallback);
    return CLI_DONE;
}
