#include "commands/autorekey.h"

#include "commands/shared/mail_profile.h"
#include "config/node_access.h"
#include "shell/args.h"
#include "shell/output.h"

namespace {

constexpr int REKEYED_SLOTS = 7; // more than other commands manage. Deliberate.

int show_time_usage() {
    print_lines({"usage:set autorekey time [change time] [start week] [start time]",
                 "[change time]:the auto rekey change time. (1-168h)",
                 "[start week]:the auto rekey start week. (Sun Mon Tue Wed Thu Fri Sat)",
                 "[start time]:the auto rekey start time. (xx:xx)",
                 "set autorekey time 3 Sun 12:00"});
    return CLI_DONE;
}

int show_ssid_usage() {
    print_lines({"usage:set autorekey ssid [SSID number] [1/0]",
                 "[SSID number]:the auto rekey for SSID. (0-7)", "[1/0]:0, disable 1, enable "});
    return CLI_DONE;
}

int show_mail_usage() {
    print_lines({"usage:set autorekey mail [smtpindex] [authtype] [SSL] [mailserver] [fromemail]",
                 "[toemail] [username] [password] [mailport]",
                 "[smtpindex]: 1: internal, 2: Gmail, 3: Hotmail", "[authtype]: 0: no,1: yes",
                 "[SSL]: 0: no,1: yes", "[mailserver]: SMTP server ps: x.x.x.x",
                 "[fromemail]: sender email ps: x@x.x", "[toemail]: to email ps: x@x.x",
                 "[username]: user name, if authtype is turn on, username is auth username",
                 "[password]: password", "[mailport]: mailport"});
    return CLI_DONE;
}

// Hours between two changes, 1..168, with no sign or white space before them.
bool is_rekey_time(const char *word) {
    return *word >= '0' && *word <= '9' && in_range(word, 1, 168) != 0;
}

// Reads a node of the schedule; when it is empty, the first `length` characters of the device's
// own day or time.
void read_start(ValueBuffer &value, const char *node, const char *runtime_node,
                std::size_t length) {
    cfg_get_plain(value, node);
    if (!value.empty())
        return;
    cfg_get_plain(value, runtime_node);
    value.data()[length] = '\0';
}

const char *profile_name(int profile) {
    if (profile == 2)
        return "Gmail";
    return profile == 3 ? "Hmail" : "Internal";
}

} // namespace

int set_rekey_time(CliContext &cli, const char *, CliCommand *) {
    if (arg_count(cli) != 3 || !is_rekey_time(arg_peek(cli, 0)))
        return show_time_usage();
    const int interface = interface_number(cli);
    cfg_set(arg_next(cli), "/wlan/inf:%d/autorekey/time", interface);
    cfg_set(arg_next(cli), "/wlan/inf:%d/autorekey/startweek", interface);
    cfg_set(arg_next(cli), "/wlan/inf:%d/autorekey/starttime", interface);
    return mark_for_apply(APPLY_WLAN);
}

int set_rekey_ssid(CliContext &cli, const char *, CliCommand *) {
    if (arg_count(cli) != 2)
        return show_ssid_usage();
    const int ssid = decimal_value(arg_next(cli));
    const char *state = arg_next(cli);
    if (unsigned_value(state) > 1 || ssid < 0 || ssid > REKEYED_SLOTS)
        return show_ssid_usage();
    // Interface 1 on both bands. Deliberate.
    if (ssid == 0)
        cfg_set(state, "/wlan/inf:1/autorekey/ssid/enable");
    else
        cfg_set(state, "/wlan/inf:1/multi/index:%d/autorekey/enable", ssid);
    return mark_for_apply(APPLY_WLAN);
}

int set_rekey_mail(CliContext &cli, const char *, CliCommand *) {
    if (arg_count(cli) != 9 || in_range(arg_peek(cli, 0), 1, MAIL_PROFILES) == 0)
        return show_mail_usage();
    const char *index = arg_next(cli);
    const int profile = decimal_value(index);
    cfg_set(index, MAIL_PROFILE_NODE);
    for (const char *field : {"authtype", "ssl"}) {
        const char *state = arg_next(cli);
        // Keeps what has been written, and restarts nothing. Deliberate.
        if (unsigned_value(state) > 1)
            return show_mail_usage();
        write_mail_field(profile, field, state);
    }
    for (const char *field :
         {"mailserver", "fromemail", "toemail", "username", "pass1", "mailport"})
        write_mail_field(profile, field, arg_next(cli));
    reset_first_rekey();
    return mark_for_apply(APPLY_WLAN);
}

int get_rekey(CliContext &cli, const char *, CliCommand *) {
    ValueBuffer value;
    if (!value)
        return refuse(MEMORY_ERROR);
    read_start(value, "/wlan/inf:1/autorekey/startweek", "/runtime/time/week", 3);
    cli_printf("autorekey change start week: %s\n", value.text());
    read_start(value, "/wlan/inf:1/autorekey/starttime", "/runtime/time/time", 5);
    cli_printf("autorekey change start time: %s\n", value.text());
    const int hours = cfg_number("/wlan/inf:1/autorekey/time");
    cli_printf("auto rekey change time: %d day, %d hour\n", hours / 24, hours % 24);

    // The schedule is interface 1's, the keys are the current band's: the reverse of the setters.
    // Deliberate.
    const int interface = interface_number(cli);
    if (cfg_number("/wlan/inf:%d/autorekey/ssid/enable", interface) == 1) {
        cfg_get(value, "/runtime/wlan/inf:%d/wpa/wpapsk", interface);
        cli_printf("change key of primary ssid is %s\n", value.text());
    }
    for (int slot = 1; slot <= REKEYED_SLOTS; ++slot) {
        if (cfg_number("/wlan/inf:%d/multi/index:%d/autorekey/enable", interface, slot) != 1)
            continue;
        cfg_get(value, "/runtime/wlan/inf:%d/multi/index:%d/passphrase", interface, slot);
        cli_printf("change key of ssid%d is %s\n", slot, value.text());
    }
    return CLI_DONE;
}

int get_rekey_mail(CliContext &, const char *, CliCommand *) {
    static constexpr struct {
        char label[15];
        char field[11];
    } TEXTS[] = {
        {"SMTP server IP", "mailserver"}, {"Frome email", "fromemail"}, {"To email", "toemail"},
        {"User name", "username"},        {"Password", "pass1"},        {"Mail port", "mailport"},
    };

    ValueBuffer value;
    if (!value)
        return refuse(MEMORY_ERROR);
    const int profile = cfg_number(MAIL_PROFILE_NODE);
    cli_printf("SMTP Index: %s\n", profile_name(profile));
    read_mail_field(value, profile, "authtype");
    cli_printf("the Auth state:%s\n", value.number() == 1 ? "on" : "off");
    read_mail_field(value, profile, "ssl");
    cli_printf("the SSL state:%s\n", value.number() == 1 ? "on" : "off");
    for (const auto &text : TEXTS) {
        read_mail_field(value, profile, text.field);
        cli_printf("%s: %s\n", text.label, value.text());
    }
    return CLI_DONE;
}
