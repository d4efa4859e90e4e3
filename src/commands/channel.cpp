#include "commands/channel.h"

#include "config/apply.h"
#include "config/host_command.h"
#include "config/node_access.h"
#include "shell/args.h"
#include "shell/output.h"

namespace {

constexpr char CHANNELS_2G[] = "/runtime/stats/wlan/inf:1/channeltable/channel:";
constexpr char CHANNELS_5G[] = "/runtime/stats/wlan/inf:2/channeltable/channel:";
constexpr char WDS_CHANNELS_5G[] = "/runtime/stats/wlan/inf:2/channeltable/wdschannel:";
constexpr char OUTDOOR_CHANNELS_5G[] = "/runtime/stats/wlan/inf:2/channeltable/od_channel:";
constexpr char OUTDOOR_WDS_CHANNELS_5G[] = "/runtime/stats/wlan/inf:2/channeltable/od_wdschannel:";

constexpr int TABLE_ENTRIES = 50;

// Reads entry `index` of the channel table below `prefix`; empty at the table's end.
UsualValue read_channel(const char *prefix, int index) {
    UsualValue channel;
    cfg_get(channel, "%s%d/channel", prefix, index);
    return channel;
}

// Null for an unknown code.
const char *country_name(int code) {
    for (const Country &country : SETTABLE_COUNTRIES) {
        if (country.code == code)
            return country.name;
    }
    return code == 276 ? "DE" : nullptr; // shown, but no word sets it
}

// The layout of a list of channels: every `row`th begins a new line, indented by `indent` blanks to
// line up with the first.
struct ListLayout {
    const char *heading;
    int row;
    int indent;
};

void print_channels(const ListLayout &layout, const char *prefix) {
    cli_printf("%s", layout.heading);
    for (int index = 1; index <= TABLE_ENTRIES; ++index) {
        const UsualValue channel = read_channel(prefix, index);
        if (channel.empty()) {
            cli_printf("\n");
            return;
        }
        if (index % layout.row == 0)
            cli_printf("\n%*s", layout.indent, "");
        cli_printf(" %s", channel.text());
    }
}

void print_available_channels() {
    const int country = read_country_code().value_or(0);
    const char *name = country_name(country);
    cli_printf("Country:%s\n", name != nullptr ? name : "unknow country!");
    run_command("genchanneltable 2> /dev/null");
    print_channels({"\n2.4 GHz available channel =", 15, 27}, CHANNELS_2G);
    cfg_number("/wlan/application"); // read, but not used
    const bool outdoor = country == COUNTRY_JAPAN;
    print_channels({"5 GHz available channel =", 13, 25},
                   outdoor ? OUTDOOR_CHANNELS_5G : CHANNELS_5G);
    print_channels({"5 GHz available WDS channel =", 13, 29},
                   outdoor ? OUTDOOR_WDS_CHANNELS_5G : WDS_CHANNELS_5G);
}

bool is_2g_channel(int channel) {
    return channel >= 1 && channel <= 13;
}

bool is_5g_channel(int channel) {
    return channel >= 36 && channel <= 165;
}

bool table_holds(const char *prefix, int channel) {
    for (int index = 1; index <= TABLE_ENTRIES; ++index) {
        const UsualValue entry = read_channel(prefix, index);
        if (entry.empty())
            return false;
        if (entry.number() == channel)
            return true;
    }
    return false;
}

int report_bad_channel() {
    cli_printf("error channel number!\n");
    print_available_channels();
    return CLI_DONE;
}

int report_other_band(int band) {
    cli_printf(band == 1 ? "AP is operating in 5 GHz\n" : "AP is operating in 2.4 GHz\n");
    cli_printf("Please check the available channel value below!\n");
    print_available_channels();
    return CLI_DONE;
}

} // namespace

std::optional<int> read_country_code() {
    ShortValue<3> code;
    if (cfg_get(code, "/runtime/layout/countrycode") != 0)
        return std::nullopt;
    return code.number();
}

int set_channel(CliContext &cli, const char *, CliCommand *) {
    const char *word = arg_peek(cli, 0);
    if (word == nullptr)
        return report_bad_channel();
    const int channel = decimal_value(word);
    UsualValue band_text;
    cfg_get(band_text, "/wlan/ch_mode");
    if (band_text.empty()) {
        cli_printf("Can't get Band information!\n");
        if (!is_2g_channel(channel) && !is_5g_channel(channel))
            return report_bad_channel();
    }
    const int band = band_text.number();
    const bool in_band =
        (band == 0 && is_2g_channel(channel)) || (band == 1 && is_5g_channel(channel));
    if (!in_band)
        return report_other_band(band);
    if (!table_holds(band == 0 ? CHANNELS_2G : CHANNELS_5G, channel))
        return report_bad_channel();
    cfg_set(word, "/wlan/inf:1/channel"); // interface 1 for both bands. Deliberate.
    return mark_for_apply(APPLY_WLAN);
}

int get_available_channels(CliContext &, const char *, CliCommand *) {
    print_available_channels();
    return CLI_DONE;
}

int set_country(CliContext &, const char *, CliCommand *) {
    const Country &country = item_of_current_row(SETTABLE_COUNTRIES, country_rows);
    run_command("mfc setcountrycode %d", country.code);
    cfg_set_number(country.code, "/runtime/layout/countrycode");
    return mark_for_apply(APPLY_WLAN);
}

int get_country(CliContext &, const char *, CliCommand *) {
    const char *name = country_name(read_country_code().value_or(0));
    cli_printf("Country:%s\n", name != nullptr ? name : "unknow country!!");
    return CLI_DONE;
}
