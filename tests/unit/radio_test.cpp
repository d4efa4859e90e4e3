// What of the radio family no session at the console shows: selecting the other radio, long channel
// tables, repeated restarts.
#include "recording_shell.h"
#include "test_daemon.h"
#include "typed_line.h"

#include "commands/radio.h"
#include "shell/prompt.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <iterator>

namespace {

TEST(Displays, ShowNoControlCharacterOfOthers) {
    TestDaemon daemon;
    const RecordingShell shell;
    const std::string client = "/runtime/stats/wlan/inf:1/client:1/";
    const std::string survey = "/runtime/wlan/inf:1/wdslistinfo/wdsscan:1/";
    const struct {
        const char *command;
        std::string list; // a node that keeps the list from being empty
        std::string node;
    } cases[] = {
        {"get intrusion", "/runtime/wlan/inf:1/rogue_ap/client:1/mac",
         "/runtime/wlan/inf:1/rogue_ap/client:1/ssid"},
        {"get rogue_ap", "", "/wlan/inf:1/rogue_ap/client:1/mac"},
        {"get wdsscaninfo", survey + "chan", survey + "ssid"},
        {"get clientinfo", client + "time", client + "mode"},
        {"get dhcp_sta_hostname", "", "runtime/dhcpserver/lease:1/hostname"},
    };
    for (const auto &one : cases) {
        daemon.put(one.list, "1");
        daemon.put(one.node, "\x1b]0;\x01\r\n \x1f\x7f~\x80\xff\xc3\xa9");
        const std::string out = type_line(one.command).out;
        EXPECT_NE(out.find("?]0;??? ??~\x80\xff\xc3\xa9"), std::string::npos) << out;
    }
    daemon.put("/wlan/inf:1/ssid", "\x1b[1mours");
    EXPECT_EQ(type_line("get ssid").out, "SSID:\x1b[1mours\n");
}

TEST(Band, IsSelectedByOneWordOfZeroOrOne) {
    char prompt[PROMPT_SIZE] = "other";
    cli_prompt = prompt;
    const auto select = [](const std::string &words) {
        TypedLine typed(words);
        typed.cli().current_band = 7;
        int result = 0;
        const std::string out =
            capture_output([&] { result = select_band(typed.cli(), "", nullptr); }).out;
        return out + "band " + std::to_string(typed.cli().current_band) + ", result " +
               std::to_string(result);
    };
    const std::string refused = "ERROR: Unable to set Band.\nband 7, result -1";
    for (const char *words : {"", "2", "-1", "1 1"})
        EXPECT_EQ(select(words), refused) << words;
    EXPECT_EQ(select("x"), "Invalid input\n" + refused);
    EXPECT_STREQ(prompt, "other");
    EXPECT_EQ(select("1"), "current band is: 1 (0:2.4G, 1:5G)\nband 1, result 0");
    EXPECT_EQ(operating_band, 1);
    EXPECT_STREQ(prompt, "WAP-> ");
    EXPECT_EQ(select("0"), "current band is: 0 (0:2.4G, 1:5G)\nband 0, result 0");
    EXPECT_EQ(operating_band, 0);
    cli_prompt = nullptr;
}

// The lines of `get availablechannel` with so many channels in each of the tables.
Lines channel_lines(int channels) {
    TestDaemon daemon;
    RecordingShell shell;
    for (const char *table : {"inf:1/channeltable/channel:", "inf:2/channeltable/channel:",
                              "inf:2/channeltable/wdschannel:"}) {
        for (int entry = 1; entry <= channels; ++entry)
            daemon.put("/runtime/stats/wlan/" + (table + std::to_string(entry)) + "/channel",
                       std::to_string(entry));
    }
    const std::string out = type_line("get availablechannel").out;
    EXPECT_EQ(shell.take_lines(), Lines{"genchanneltable 2> /dev/null"});
    Lines lines;
    for (std::size_t at = 0, end = 0; end != std::string::npos; at = end + 1) {
        end = out.find('\n', at);
        lines.push_back(out.substr(at, end - at));
    }
    return lines;
}

TEST(AvailableChannels, ContinueBelowTheFirstChannel) {
    const std::string blanks(40, ' ');
    EXPECT_EQ(channel_lines(12).size(), 6U);
    const Lines fourteen = channel_lines(14);
    ASSERT_EQ(fourteen.size(), 8U);
    EXPECT_EQ(fourteen[2], "2.4 GHz available channel = 1 2 3 4 5 6 7 8 9 10 11 12 13 14");
    EXPECT_EQ(fourteen[3], "5 GHz available channel = 1 2 3 4 5 6 7 8 9 10 11 12");
    EXPECT_EQ(fourteen[4], blanks.substr(0, 25) + " 13 14");
    EXPECT_EQ(fourteen[5], "5 GHz available WDS channel = 1 2 3 4 5 6 7 8 9 10 11 12");
    EXPECT_EQ(fourteen[6], blanks.substr(0, 29) + " 13 14");
    EXPECT_EQ(channel_lines(15)[3], blanks.substr(0, 27) + " 15");
    // A full table has no empty entry to end its last line, and nothing beyond it is read.
    const Lines full = channel_lines(51);
    ASSERT_EQ(full.size(), 12U);
    EXPECT_EQ(full[5], blanks.substr(0, 27) + " 45 46 47 48 49 505 GHz available channel = " +
                           "1 2 3 4 5 6 7 8 9 10 11 12");
    EXPECT_EQ(full.back(), blanks.substr(0, 29) + " 39 40 41 42 43 44 45 46 47 48 49 50");
}

TEST(SetChannel, LooksUpToTheFirstEmptyEntry) {
    TestDaemon daemon;
    RecordingShell shell;
    const std::string table = "/runtime/stats/wlan/inf:1/channeltable/channel:";
    daemon.put("/wlan/ch_mode", "0");
    daemon.put(table + "1/channel", "06");
    daemon.put(table + "3/channel", "11");
    type_line("set channel 6x");
    EXPECT_EQ(daemon.take_writes(), Lines{"set /wlan/inf:1/channel 6x"});
    EXPECT_TRUE(type_line("set channel 11")
                    .out.starts_with("error channel number!\nCountry:unknow country!\n"));
    EXPECT_EQ(daemon.take_writes(), Lines{});
}

TEST(WlanTest, RestartsAndWaitsForTheRadioToSettle) {
    const DebugUnlocked unlocked;
    TestDaemon daemon;
    RecordingShell shell;
    for (const char *line : {"set wlantest", "set wlantest 1 2"}) {
        const CommandRun run = type_line(line);
        EXPECT_EQ(run.out, "error wlantest number!\n");
        EXPECT_EQ(run.result, -1);
    }
    EXPECT_EQ(type_line("set wlantest 0").result, 0);
    EXPECT_EQ(type_line("set wlantest -3").result, 0);
    EXPECT_EQ(shell.take_lines(), Lines{});

    const std::string restart = "sh /etc/templates/wlan.sh restart 2> /dev/null";
    const Lines once{restart, "sleep 10", "sleep 12", "free > /dev/console"};
    daemon.put("/runtime/wireless/setting/status", "1");
    EXPECT_EQ(type_line("set wlantest 2").result, 0);
    Lines twice = once;
    twice.insert(twice.end(), once.begin(), once.end());
    EXPECT_EQ(shell.take_lines(), twice);

    daemon.put("/runtime/wireless/setting/status", "0");
    daemon.take_requests();
    type_line("set wlantest 1");
    EXPECT_EQ(daemon.take_requests().size(), 101U);
    EXPECT_EQ(shell.take_lines().size(), 4U + 101U);
}

class SecondRadio : public testing::Test {
protected:
    static std::string printed_by(const std::string &line) { return type_line(line, 1).out; }

    // What a line writes, and then what it runs.
    Lines effects_of(const std::string &line) {
        printed_by(line);
        Lines effects = daemon_.take_writes();
        std::ranges::copy(shell_.take_lines(), std::back_inserter(effects));
        return effects;
    }

    TestDaemon daemon_;
    RecordingShell shell_;
};

TEST_F(SecondRadio, HasNodesThatAreNotThoseOfTheFirstWithItsNumber) {
    const std::string group = "set /sys/group_vlan/index:1/";
    const struct {
        const char *line;
        Lines effects;
    } SETTERS[] = {
        {"set authentication wpa-psk", {"rgdb -s /wlan/inf:2/authentication 3"}},
        {"set cipher wep", {"rgdb -s /wlan/inf:2/wpa/wepmode 1"}},
        {"set cipher no",
         {"rgdb -s /wlan/inf:2/wpa/wepmode 0", "rgdb -s /wlan/inf:2/authentication 0"}},
        {"set apmode apc", {"set /wlan/inf:2/ap_mode 1"}},
        // A peer of the first radio is no peer of the second one.
        {"set wdsmacadd 00:11:22:33:44:55 1", {}},
        {"set wdsmacadd 00:11:22:33:44:5a 2",
         {"set /wlan/inf:2/wds/list/index:2/mac 00:11:22:33:44:5a"}},
        // The rates are counted without those of CCK, which leave the code alone.
        {"set fixedrate 54M", {"set /wlan/inf:2/fixedrate 7"}},
        {"set fixedrate 6M", {"set /wlan/inf:2/fixedrate 0"}},
        {"set fixedrate auto", {"set /wlan/inf:2/fixedrate 31"}},
        {"set fixedrate 11M", {}},
        {"set fixedrate 1M", {}},
        {"set autorekey ssid 0 1", {"set /wlan/inf:1/autorekey/ssid/enable 1"}},
        // The first WDS link is the primary SSID's port.
        {"set groupvid_primary Tag 7", {group + "group_vid 7", group + "ath:17/egress 1"}},
        {"set multi-groupvid Tag 7 3", {group + "group_vid 7", group + "ath:20/egress 1"}},
        {"set wds-groupvid Tag 7 1", {group + "group_vid 7", group + "ath:17/egress 1"}},
        {"set wds-groupvid Tag 7 4", {group + "group_vid 7", group + "ath:20/egress 1"}},
    };
    daemon_.put("/wlan/inf:1/wds/list/index:4/mac", "00:11:22:33:44:55");
    for (const auto &setter : SETTERS)
        EXPECT_EQ(effects_of(setter.line), setter.effects) << setter.line;
}

TEST_F(SecondRadio, IsShownFromItsOwnNodes) {
    const std::string entry = "/sys/group_vlan/index:18/";
    const std::string members = "index:18, group vid:4094, group name:%s, egress: ";
    for (const auto &[node, text] : {
             std::pair(std::string("/wlan/inf:2/acktimeout_a"), "25"),
             {entry + "group_vid", "4094"},
             {entry + "group_name", "%s"},
             {entry + "ath:18/egress", "2"},
             // The schedule is the first radio's, the keys are the second one's.
             {"/wlan/inf:1/autorekey/startweek", "Fri"},
             {"/wlan/inf:1/autorekey/starttime", "2:00"},
             {"/wlan/inf:2/multi/index:1/autorekey/enable", "1"},
             {"/runtime/wlan/inf:2/multi/index:1/passphrase", "key%n"},
         })
        daemon_.put(node, text);
    EXPECT_EQ(printed_by("get acktimeout"), "acktimeout:25 micro sec\n");
    EXPECT_EQ(printed_by("get multi-groupvid 1"), members + "untag port\n");
    EXPECT_EQ(printed_by("get wds-groupvid 2"), members + "untag port\n");
    EXPECT_EQ(printed_by("get groupvid_primary"), members + "none\n");
    EXPECT_EQ(printed_by("get autorekey"),
              "autorekey change start week: Fri\nautorekey change start time: 2:00\n"
              "auto rekey change time: 0 day, 0 hour\nchange key of ssid1 is key%n\n");
    // Codes without a rate are shown as the lowest one.
    for (const auto &[code, word] : {std::pair("7", "54M"),
                                     {"0", "6M"},
                                     {"31", "auto"},
                                     {"8", "6M"},
                                     {"-1", "6M"},
                                     {"30", "6M"}}) {
        daemon_.put("/wlan/inf:2/fixedrate", code);
        EXPECT_EQ(printed_by("get fixedrate"), std::string("fixedrate:") + word + '\n');
    }
}

} // namespace
