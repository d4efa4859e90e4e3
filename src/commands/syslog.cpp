#include "commands/syslog.h"

#include "commands/shared/address.h"
#include "commands/shared/mail_profile.h"
#include "commands/shared/rows.h"
#include "config/apply.h"
#include "config/host_command.h"
#include "config/node_access.h"
#include "shell/args.h"
#include "shell/output.h"

#include <cstdio>
#include <cstring>
#include <syslog.h>

namespace {

// What a keyword takes.
enum class LogValue : unsigned char {
    Text,    // anything
    Address, // an IPv4 address
    Switch,  // 0 or 1
    Profile, // the number of a mail profile
    Period,  // a number of half hours
    Nothing, // ignored
};

// Holds its texts: pointers to them would be relocated into private memory.
struct LogKeyword {
    char word[10];
    LogValue kind;
    char node[29];    // the node's path, or the name of a field of the mail profile in use
    char subject[21]; // what the messages call it

    [[nodiscard]] bool is_mail_field() const { return kind != LogValue::Nothing && *node != '/'; }
};

constexpr LogKeyword KEYWORDS[] = {
    {"remoteip", LogValue::Address, "/sys/log/logserver", "Log Server IP"},
    {"system", LogValue::Switch, "/security/log/apsystemInfo", "Log system"},
    {"wireless", LogValue::Switch, "/security/log/WirelessInfo", "Log wireless"},
    {"notice", LogValue::Switch, "/security/log/apnoticeInfo", "Log notice"},
    {"smtp", LogValue::Switch, "/security/log/smtpInfo", "SMTP"},
    {"smtpindex", LogValue::Profile, "/sys/log/smtpindex", "SMTP index"},
    {"smtpsvrip", LogValue::Address, "mailserver", "SMTP mail Server IP"},
    {"smtptime", LogValue::Period, "/sys/log/timemail", "SMTP mail time"},
    {"fromemail", LogValue::Text, "fromemail", "SMTP email address"},
    {"toemail", LogValue::Text, "toemail", "SMTP email address"},
    {"username", LogValue::Text, "username", "SMTP account name"},
    {"password", LogValue::Text, "pass1", "SMTP email password"},
    {"mailport", LogValue::Text, "mailport", "SMTP email port"},
    {"ssl", LogValue::Switch, "ssl", "SMTP SSL"},
    {"remote", LogValue::Switch, "/security/log/remoteInfo", "Remote Log"},
    {"clear", LogValue::Nothing, "", ""},
    {"login", LogValue::Switch, "authtype", "SMTP auth"},
};

constexpr int MAX_PERIOD = 48; // a day
constexpr int PERIOD_MINUTES = 30;

// Facility 30, which has no name.
constexpr int TEST_PRIORITY = 30 << 3 | LOG_NOTICE;

const LogKeyword *find_keyword(const char *word) {
    for (const LogKeyword &keyword : KEYWORDS) {
        if (std::strcmp(keyword.word, word) == 0)
            return &keyword;
    }
    return nullptr;
}

bool is_profile(int number) {
    return number >= 1 && number <= MAIL_PROFILES;
}

// True for a single digit in first..last.
bool is_digit_in(const char *text, char first, char last) {
    return *text >= first && *text <= last && text[1] == '\0';
}

void print_periods() {
    for (int period = 1; period <= MAX_PERIOD; ++period)
        cli_printf("%d: %d%s hours\n", period, period / 2, period % 2 != 0 ? ".5" : "");
    print_lines({"ex: 3 hours", "    set syslog smtptime 6"});
}

// The end of the messages about a keyword with states.
const char *state_phrase(const LogKeyword &keyword, const char *value) {
    const bool is_one = *value == '1';
    switch (keyword.kind) {
    case LogValue::Switch:
        return is_one ? " state to enable" : " state to disable";
    case LogValue::Profile: // worded like a switch, with the first profile as off. Deliberate.
        return is_one ? " state to disable" : " state to enable";
    default:
        return "";
    }
}

void write_value(const LogKeyword &keyword, int profile, const char *value) {
    const int result = keyword.is_mail_field() ? write_mail_field(profile, keyword.node, value)
                                               : cfg_set_plain(value, keyword.node);
    const char *state = state_phrase(keyword, value);
    if (result != 0) {
        cli_printf("\nUnable to set %s%s!\n", keyword.subject, state);
        return;
    }
    save_configuration();
    if (keyword.kind != LogValue::Profile)
        cli_printf("\nSet %s%s successfully!\n", keyword.subject, state);
}

void write_period(const LogKeyword &keyword, const char *value) {
    if (in_range(value, 1, MAX_PERIOD) == 0) {
        print_periods();
        return;
    }
    char minutes[8];
    std::snprintf(minutes, sizeof minutes, "%d", decimal_value(value) * PERIOD_MINUTES);
    write_value(keyword, 0, minutes);
}

void clear_log() {
    run_command("rm /var/log/messages");
    run_command("rm /var/log/smtpmsg");
}

void handle_keyword(const LogKeyword &keyword, int profile, const char *value) {
    if (keyword.kind == LogValue::Nothing)
        clear_log();
    else if (keyword.kind == LogValue::Period)
        write_period(keyword, value);
    else if ((keyword.kind == LogValue::Switch && !is_digit_in(value, '0', '1')) ||
             (keyword.kind == LogValue::Profile && !is_digit_in(value, '1', '3')))
        cli_printf("\nInvalid Status!!\n");
    else
        write_value(keyword, profile, value);
}

void print_text(const char *label, const char *text, const char *when_empty = "none") {
    cli_printf("%s: %s\n", label, *text != '\0' ? text : when_empty);
}

// The error names SSL for either switch. Deliberate.
void print_mail_switch(const char *label, int value) {
    if (value == 0 || value == 1)
        cli_printf("%s state: %s\n", label, value == 1 ? "on" : "off");
    else
        cli_printf("error SMTP SSL state\n");
}

void print_profile(int profile) {
    static constexpr char NAMES[MAIL_PROFILES][9] = {"Internal", "Gmail", "Hotmail"};
    if (is_profile(profile))
        cli_printf("SMTP server type: %s\n", NAMES[profile - 1]);
    else
        cli_printf("error SMTP server Type\n");
}

struct LogSettings {
    ValueBuffer server;
    ValueBuffer mail_minutes;
    int remote = 0;
    int system = 0;
    int wireless = 0;
    int notice = 0;
    int mail = 0;
    int profile = 0;
};

struct MailSettings {
    ShortValue<3> ssl;
    ShortValue<3> login;
    ShortValue<19> server;
    ShortValue<127> from;
    ShortValue<127> to;
    ShortValue<127> user;
    ShortValue<127> password;
    ShortValue<19> port;
};

void read_settings(LogSettings &log) {
    cfg_get(log.server, "/sys/log/logserver");
    log.remote = cfg_number("/security/log/remoteInfo");
    log.system = cfg_number("/security/log/apsystemInfo");
    log.wireless = cfg_number("/security/log/WirelessInfo");
    log.notice = cfg_number("/security/log/apnoticeInfo");
    cfg_number("/security/log/loglevel"); // not shown
    log.mail = cfg_number("/security/log/smtpInfo");
    cfg_get(log.mail_minutes, "/sys/log/timemail");
    log.profile = cfg_number(MAIL_PROFILE_NODE);
}

void read_settings(MailSettings &mail, int profile) {
    read_mail_field(mail.ssl, profile, "ssl");
    read_mail_field(mail.login, profile, "authtype");
    read_mail_field(mail.server, profile, "mailserver");
    read_mail_field(mail.from, profile, "fromemail");
    read_mail_field(mail.to, profile, "toemail");
    read_mail_field(mail.user, profile, "username");
    read_mail_field(mail.password, profile, "pass1");
    read_mail_field(mail.port, profile, "mailport");
}

} // namespace

int set_syslog(CliContext &cli, const char *, CliCommand *) {
    if (arg_count(cli) != 2) {
        print_lines({"sysLog set commands:", "set syslog remote 0/1", "set syslog remoteip x.x.x.x",
                     "set syslog system 0/1", "set syslog wireless 0/1", "set syslog notice 0/1",
                     "set syslog smtp 0/1", "set syslog smtpindex 1/2/3",
                     "1:Internal, 2:Gamil, 3:Hotmail", "set syslog smtpsvrip x.x.x.x",
                     "set syslog smtptime x", "set syslog fromemail x@x.x",
                     "set syslog toemail x@x.x", "set syslog clear all", "set syslog username x",
                     "set syslog password x", "set syslog mailport x", "set syslog login 0/1",
                     "set syslog ssl 0/1"});
        return CLI_REFUSED;
    }
    const LogKeyword *keyword = find_keyword(arg_next(cli));
    const char *value = arg_next(cli);
    if (keyword == nullptr)
        return refuse("\nInvalid Status!!\n");
    // Unused by the keywords that write to no profile.
    const int profile = keyword->is_mail_field() ? cfg_number(MAIL_PROFILE_NODE) : 1;
    if (!is_profile(profile))
        return CLI_REFUSED; // silently. Deliberate.
    if (keyword->kind == LogValue::Address && !is_address(value))
        return refuse("\nPlease input correct IP address!\n");
    handle_keyword(*keyword, profile, value);
    reset_first_rekey();
    return mark_for_apply(APPLY_WLAN);
}

int set_testlog(CliContext &cli, const char *, CliCommand *) {
    if (arg_count(cli) != 2) {
        print_lines({"testLog set commands:", "set testlog count x"});
        return CLI_REFUSED;
    }
    if (std::strcmp(arg_next(cli), "count") != 0)
        return refuse("\nInvalid Status!!\n");
    const int count = decimal_value(arg_next(cli));
    for (int left = count; left >= 1; --left)
        syslog(TEST_PRIORITY, "[System]test %d", left);
    cli_printf(count >= 1 ? "Test syslog successfully\n" : "\nUnable to set syslog count!\n");
    return mark_for_apply(APPLY_WAN);
}

int get_syslog(CliContext &, const char *, CliCommand *) {
    LogSettings log;
    MailSettings mail;
    if (!log.server || !log.mail_minutes)
        return refuse(MEMORY_ERROR);
    read_settings(log);
    read_settings(mail, log.profile);
    cli_printf("Remote SysLog \tStatus: %s\n", capital_enable_word(log.remote != 0));
    print_text("Remote SysLog Svr Addr", log.server.text());
    cli_printf("SysLog\tSMTP\tStatus: %s\n", capital_enable_word(log.mail != 0));
    print_profile(log.profile);
    print_text("SysLog  SMTP  mail Svr", mail.server.text());
    print_text("SysLog  SMTP  email time", log.mail_minutes.text(), "0");
    print_text("SysLog SMTP fromemail addr", mail.from.text());
    print_text("SysLog SMTP toemail addr", mail.to.text());
    print_text("SysLog SMTP email password", mail.password.text());
    print_text("SysLog SMTP email username", mail.user.text());
    print_text("SysLog SMTP email Port", mail.port.text(), "25");
    print_mail_switch("SMTP login", mail.login.number());
    print_mail_switch("SMTP SSL", mail.ssl.number());
    cli_printf("SysLog System   Status: %s\n", capital_enable_word(log.system != 0));
    cli_printf("SysLog Wireless Status: %s\n", capital_enable_word(log.wireless != 0));
    cli_printf("SysLog Notice   Status: %s\n", capital_enable_word(log.notice != 0));
    cli_printf("Local System Log:\n");
    run_command("cat /var/log/messages");
    return CLI_DONE;
}
