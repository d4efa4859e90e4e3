// System administration, where a console session does not get: writes that fail, the clock, and
// tools that say too much.
#include "fake_daemon.h"
#include "recording_shell.h"
#include "typed_line.h"

#include "commands/identity.h"
#include "commands/mfc.h"
#include "commands/syslog.h"
#include "commands/time.h"
#include "commands/web.h"

#include <gtest/gtest.h>

namespace {

using Lines = std::vector<std::string>;

// Runs the test in a time zone, which changes after another one has been in use.
class LocalTime {
public:
    explicit LocalTime(const char *zone) {
        tzset();
        setenv("TZ", zone, 1);
    }
    LocalTime(const LocalTime &) = delete;
    LocalTime &operator=(const LocalTime &) = delete;
    ~LocalTime() {
        unsetenv("TZ");
        tzset();
    }
};

std::time_t seconds_of(const CalendarWords &words) {
    std::time_t seconds = 0;
    EXPECT_TRUE(calendar_seconds(words, seconds));
    return seconds;
}

TEST(Clock, ConvertsLocalTime) {
    const CalendarWords leap_day{"2024", "2", "29", "13", "5", "9"};
    {
        const LocalTime zone("UTC0");
        EXPECT_EQ(seconds_of(leap_day), 1709211909);
        // Fields without a word are 0: here the month is January, the day the one before its first.
        EXPECT_EQ(seconds_of({"2024"}), 1703980800);
        EXPECT_EQ(seconds_of({"2023", "14", "29x", "13", "05", "9"}), 1709211909);
        EXPECT_EQ(seconds_of({"1970", "1", "1"}), 0);
    }
    const LocalTime zone("XXX-2");
    EXPECT_EQ(seconds_of(leap_day), 1709211909 - 2 * 3600);
}

// Saturating, a field never leads to the wrong side of the date that it belongs to.
TEST(Clock, TakesTheLargestNumbers) {
    const LocalTime zone("UTC0");
    const std::time_t new_year = seconds_of({"2024", "1", "1", "0", "0", "0"});
    for (std::size_t field = 0; field < 6; ++field) {
        for (const bool is_negative : {true, false}) {
            CalendarWords words{"2024", "1", "1", "0", "0", "0"};
            words[field] = is_negative ? "-99999999999" : "99999999999";
            std::time_t seconds = 0;
            if (calendar_seconds(words, seconds)) {
                EXPECT_EQ(seconds < new_year, is_negative) << field;
            }
        }
    }
}

TEST(Clock, IsShown) {
    const LocalTime zone("XXX-2");
    bool is_shown = false;
    std::time_t seconds = std::time(nullptr);
    const std::string shown = call_handler(get_time, "").out;
    for (; seconds <= std::time(nullptr); ++seconds) {
        char text[64];
        std::strftime(text, sizeof text, "%a %-H:%-M:%-S %-m/%-d/%Y\n", std::localtime(&seconds));
        is_shown = is_shown || shown == text;
    }
    EXPECT_TRUE(is_shown) << shown;
}

TEST(Clock, IsSetWhenTheDateCanBeConverted) {
    const LocalTime zone("UTC0");
    RecordingShell shell;
    EXPECT_EQ(call_handler(set_time, "2024 2 29 13 5 9 and more").out, "");
    EXPECT_EQ(shell.take_lines(), Lines{"set clock 1709211909"});
    const CommandRun refused = call_handler(set_time, "1969 12 31 23 59 59");
    EXPECT_EQ(refused.result, CLI_DONE);
    EXPECT_EQ(refused.out, "");
    EXPECT_EQ(refused.err, "set time: Invalid argument\n");
    EXPECT_EQ(shell.take_lines(), Lines{});
}

TEST(Administration, GoesOnAfterFailedWrites) {
    const struct {
        CliHandler *handler;
        const char *line;
        const char *message;
        std::uint32_t apply_bits;
        const char *commands = ""; // that run, one a line
    } CASES[] = {
        {set_syslog, "system 0", "\nUnable to set Log system state to disable!\n", APPLY_WLAN},
        {set_syslog, "ssl 1", "\nUnable to set SMTP SSL state to enable!\n", APPLY_WLAN},
        // Worded like a switch, with the first profile as off.
        {set_syslog, "smtpindex 1", "\nUnable to set SMTP index state to disable!\n", APPLY_WLAN},
        {set_syslog, "smtpindex 3", "\nUnable to set SMTP index state to enable!\n", APPLY_WLAN},
        {set_syslog, "smtptime 2", "\nUnable to set SMTP mail time!\n", APPLY_WLAN},
        {set_syslog, "remoteip 10.0.0.1", "\nUnable to set Log Server IP!\n", APPLY_WLAN},
        {set_time_zone, "5", "\nUnable to set time zone!\n", 0},
        {set_daylight_saving, "1", "\nUnable to Daylight Saving Time!\n", APPLY_WAN},
        // Nothing is said of a failure from here on.
        {set_time_server, "enable", "Set SNTP Server to Enable!\n", APPLY_WAN},
        {set_time_server, "10.0.0.1", "\nSet SNTP Server IP successfully!\n", APPLY_WAN,
         "/etc/scripts/misc/profile.sh put\nsh /etc/templates/timezones.sh\n"
         "sh /etc/templates/ntp.sh start\n"},
        {set_value<LOCATION>, "hall", "", APPLY_WAN},
        {assoc_limit_rows[2].handler, "0", "", APPLY_WLAN},
        {set_testlog, "count 0", "\nUnable to set syslog count!\n", APPLY_WAN},
        {set_web, "enable", "\nUnable to set enable!\n", 0},
        {set_web, "disable", "\nUnable to set disable!\n", 0, "/etc/templates/webs.sh stop\n"},
    };
    FakeDaemon daemon;
    daemon.put("/sys/log/smtpindex", "2");
    daemon.behave(FakeDaemon::Manner::Refusal);
    RecordingShell shell;
    for (const auto &test : CASES) {
        pending_apply = 0;
        const CommandRun run = call_handler(test.handler, test.line);
        EXPECT_EQ(run.result, CLI_DONE) << test.line;
        EXPECT_EQ(run.out, test.message);
        EXPECT_EQ(pending_apply, test.apply_bits) << test.line;
        std::string commands;
        for (const std::string &line : shell.take_lines())
            commands += line + '\n';
        EXPECT_EQ(commands, test.commands) << test.line;
    }
    pending_apply = 0;
}

TEST(Administration, ShowsTheLogsSettingsAsTheyWereSet) {
    FakeDaemon daemon;
    RecordingShell shell;
    for (const char *line :
         {"smtpindex 3", "remoteip 10.0.0.1", "system 1", "wireless 0", "notice 1", "smtp 0",
          "remote 1", "smtpsvrip 10.0.0.2", "smtptime 3", "fromemail from", "toemail to",
          "username user", "password secret", "mailport 26", "ssl 0", "login 1"})
        EXPECT_EQ(call_handler(set_syslog, line).result, CLI_DONE) << line;
    shell.take_lines();
    EXPECT_EQ(call_handler(get_syslog, "").out, "Remote SysLog \tStatus: Enable\n"
                                                "Remote SysLog Svr Addr: 10.0.0.1\n"
                                                "SysLog\tSMTP\tStatus: Disable\n"
                                                "SMTP server type: Hotmail\n"
                                                "SysLog  SMTP  mail Svr: 10.0.0.2\n"
                                                "SysLog  SMTP  email time: 90\n"
                                                "SysLog SMTP fromemail addr: from\n"
                                                "SysLog SMTP toemail addr: to\n"
                                                "SysLog SMTP email password: secret\n"
                                                "SysLog SMTP email username: user\n"
                                                "SysLog SMTP email Port: 26\n"
                                                "SMTP login state: on\n"
                                                "SMTP SSL state: off\n"
                                                "SysLog System   Status: Enable\n"
                                                "SysLog Wireless Status: Disable\n"
                                                "SysLog Notice   Status: Enable\n"
                                                "Local System Log:\n");
    EXPECT_EQ(shell.take_lines(), Lines{"cat /var/log/messages"});
    pending_apply = 0;
}

TEST(Administration, ListsThePeriodsOfTheMail) {
    FakeDaemon daemon;
    for (const char *line : {"smtptime 0", "smtptime 49"}) {
        const std::string list = call_handler(set_syslog, line).out;
        EXPECT_TRUE(list.starts_with("1: 0.5 hours\n2: 1 hours\n3: 1.5 hours\n4: 2 hours\n"))
            << list;
        EXPECT_TRUE(list.ends_with(
            "\n47: 23.5 hours\n48: 24 hours\nex: 3 hours\n    set syslog smtptime 6\n"))
            << list;
        EXPECT_EQ(daemon.take_writes(), Lines{"set /rumtime/wlan/inf:1/autorekey/first 0"});
    }
    EXPECT_EQ(pending_apply, APPLY_WLAN);
    pending_apply = 0;
}

TEST(Administration, CutsWhatToolsSay) {
    RecordingShell shell;
    const std::string answer = "%s%n" + std::string(2000, 'x') + "\n";
    shell.print(answer);
    EXPECT_EQ(call_handler(show_memory, "").out, answer.substr(0, 255) + "\n");
    EXPECT_EQ(call_handler(set_hardware_revision, "C3").out, answer.substr(0, 255) + "\n");
    EXPECT_EQ(call_handler(mfc_led, "power").out, answer.substr(0, 1023) + "\n");
    shell.take_lines();
    shell.print("two\nlines\n\n");
    call_handler(mfc_test_5g, "test 36");
    call_handler(mfc_reset, "all");
    call_handler(mfc_button, "reset");
    EXPECT_EQ(call_handler(set_mac_address, "any").out, "two\nlines\ntwo\nlines\n\n");
    shell.refuse_pipes();
    EXPECT_EQ(call_handler(mfc_led, "power").out, "\n");
    EXPECT_EQ(shell.take_lines(), (Lines{"mfc wlan_5 test 36", "mfc freset all", "mfc button reset",
                                         "mfc setwanmac any", "mfc setlanmac any"}));
}

} // namespace
