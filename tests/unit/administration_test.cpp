// System administration, where a console session does not get: writes that fail, the clock, and
// tools that say too much.
#include "recording_shell.h"
#include "test_daemon.h"
#include "typed_line.h"

#include "commands/time.h"
#include "config/apply.h"

#include <gtest/gtest.h>

namespace {

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
    const std::string shown = type_line("get time").out;
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
    EXPECT_EQ(type_line("set time 2024 2 29 13 5 9 and more").out, "");
    EXPECT_EQ(shell.take_lines(), Lines{"set clock 1709211909"});
    const CommandRun refused = type_line("set time 1969 12 31 23 59 59");
    EXPECT_EQ(refused.result, CLI_DONE);
    EXPECT_EQ(refused.out, "");
    EXPECT_EQ(refused.err, "set time: Invalid argument\n");
    EXPECT_EQ(shell.take_lines(), Lines{});
}

// Most say so; few count as refused.
TEST(Administration, GoesOnAfterFailedWrites) {
    const struct {
        const char *line;
        const char *out;
        std::uint32_t apply_bits;
        int result = CLI_DONE;
        Lines commands = {};
    } CASES[] = {
        {"set syslog system 0", "\nUnable to set Log system state to disable!\n", APPLY_WLAN},
        {"set syslog ssl 1", "\nUnable to set SMTP SSL state to enable!\n", APPLY_WLAN},
        // Worded like a switch, with the first profile as off.
        {"set syslog smtpindex 1", "\nUnable to set SMTP index state to disable!\n", APPLY_WLAN},
        {"set syslog smtpindex 3", "\nUnable to set SMTP index state to enable!\n", APPLY_WLAN},
        {"set syslog smtptime 2", "\nUnable to set SMTP mail time!\n", APPLY_WLAN},
        {"set syslog remoteip 10.0.0.1", "\nUnable to set Log Server IP!\n", APPLY_WLAN},
        {"set tzone 5", "\nUnable to set time zone!\n", 0},
        {"set daylightsaving 1", "\nUnable to Daylight Saving Time!\n", APPLY_WAN},
        {"set sntpserver enable", "Set SNTP Server to Enable!\n", APPLY_WAN},
        {"set sntpserver 10.0.0.1",
         "\nSet SNTP Server IP successfully!\n",
         APPLY_WAN,
         CLI_DONE,
         {"/etc/scripts/misc/profile.sh put", "sh /etc/templates/timezones.sh",
          "sh /etc/templates/ntp.sh start"}},
        {"set location hall", "", APPLY_WAN},
        {"set assoclimit number 0", "", APPLY_WLAN},
        {"set testlog count 0", "\nUnable to set syslog count!\n", APPLY_WAN},
        {"set web enable", "\nUnable to set enable!\n", 0},
        {"set web disable",
         "\nUnable to set disable!\n",
         0,
         CLI_DONE,
         {"/etc/templates/webs.sh stop"}},
        {"snmp editpubliccomm c", "\nUnable to Edit!\n", 0, CLI_REFUSED},
        {"snmp authtrap disable", "\nUnable to set disable!\n", 0, CLI_REFUSED},
        {"set apply", "", 0, CLI_REFUSED}, // with nothing to apply
    };
    const DebugUnlocked unlocked;
    TestDaemon daemon;
    daemon.put("/sys/log/smtpindex", "2");
    daemon.behave(TestDaemon::Manner::Refusal);
    RecordingShell shell;
    for (const auto &one : CASES) {
        SCOPED_TRACE(one.line);
        pending_apply = 0;
        const CommandRun run = type_line(one.line);
        EXPECT_EQ(run.result, one.result);
        EXPECT_EQ(run.out, one.out);
        EXPECT_EQ(pending_apply, one.apply_bits);
        EXPECT_EQ(shell.take_lines(), one.commands);
    }
}

TEST(Administration, ListsThePeriodsOfTheMail) {
    TestDaemon daemon;
    for (const char *line : {"set syslog smtptime 0", "set syslog smtptime 49"}) {
        const std::string list = type_line(line).out;
        EXPECT_TRUE(list.starts_with("1: 0.5 hours\n2: 1 hours\n")) << list;
        EXPECT_TRUE(list.ends_with("\n48: 24 hours\nex: 3 hours\n    set syslog smtptime 6\n"));
        EXPECT_EQ(daemon.take_writes(), Lines{"set /rumtime/wlan/inf:1/autorekey/first 0"});
    }
}

TEST(Administration, CutsWhatToolsSay) {
    const DebugUnlocked unlocked;
    RecordingShell shell;
    const std::string answer = "%s%n" + std::string(2000, 'x') + "\n";
    shell.print(answer);
    EXPECT_EQ(type_line("mem").out, answer.substr(0, 255) + "\n");
    EXPECT_EQ(type_line("set hwrev C3").out, answer.substr(0, 255) + "\n");
    EXPECT_EQ(type_line("mfc led power").out, answer.substr(0, 1023) + "\n");
    shell.print("two\nlines\n\n");
    EXPECT_EQ(type_line("set macaddress any").out, "two\nlines\ntwo\nlines\n\n");
    shell.refuse_pipes();
    EXPECT_EQ(type_line("mfc led power").out, "\n");
}

} // namespace
