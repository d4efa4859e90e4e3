// LAN services and policies, as far as console sessions do not show them: results of refusals, the
// 5 GHz radio's nodes, and the refusals that print long texts.
#include "fake_daemon.h"
#include "typed_line.h"

#include "commands/autorekey.h"
#include "commands/dhcp.h"
#include "commands/limited_admin.h"
#include "commands/qos.h"

#include <gtest/gtest.h>

namespace {

constexpr int BAND_5G = 1;

using Writes = std::vector<std::string>;

class LanServices : public testing::Test {
protected:
    void SetUp() override { pending_apply = 0; }

    // All of `lines` end with `result` after `text`, and change nothing.
    void expect_refusals(CliHandler *handler, int result, const std::string &text,
                         std::initializer_list<const char *> lines) {
        for (const char *line : lines) {
            const CommandRun run = call_handler(handler, line);
            EXPECT_EQ(run.result, result) << line;
            EXPECT_EQ(run.out, text) << line;
            EXPECT_EQ(daemon_.take_writes(), Writes{}) << line;
        }
        EXPECT_EQ(pending_apply, 0U);
    }

    // The text of a refusal that a console session shows.
    static std::string text_of(CliHandler *handler) { return call_handler(handler, "").out; }

    FakeDaemon daemon_;
};

TEST_F(LanServices, QosOptionsOutOfRange) {
    expect_refusals(add_qos_rule, CLI_REFUSED, text_of(add_qos_rule),
                    {"0 name x",
                     "65 name x",
                     "1 nam x",
                     "1 Name x",
                     "1 name",
                     "1 name x y",
                     "1 name x y z",
                     "1 host1ip 10.0.0.1",
                     "1 priority 4",
                     "1 priority -1",
                     "1 protocol 257",
                     "1 protocol -1",
                     "1 protocol 6 1",
                     "1 host1ip 192.168.0.250 6",
                     "1 host1ip 192.168.0.1 0",
                     "1 host1ip 192.168.0.1 255",
                     "1 host1ip 192.168.0.1 -1",
                     "1 host2ip 192.168.0.256 1",
                     "1 host2ip 192..0.1 1",
                     "1 host2ip 4294967295 1",
                     "1 host1port 65535 2",
                     "1 host1port 65536 0",
                     "1 host1port 1 2147483647",
                     "1 host2port 0 0",
                     "1 host2port -1 2",
                     "1 host2port 10 -5"});
    expect_refusals(suspend_qos_rule, CLI_REFUSED, text_of(add_qos_rule), {"0", "65"});
    expect_refusals(apply_qos_rule, CLI_REFUSED, "set qos rule apply <index>(1~64)\n", {"", "1 2"});
    expect_refusals(suspend_qos_rule, CLI_REFUSED, "set qos rule suspend <index>(1~64)\n", {""});
    expect_refusals(delete_qos_rule, CLI_DONE, "set qos rule delete <index>(1~64)\n",
                    {"", "0", "65", "1 2"});
}

TEST_F(LanServices, QosProtocolsHaveClasses) {
    for (const auto &[protocol, type] :
         {std::pair("6", "1"), {"17", "2"}, {"1", "4"}, {"256", "0"}, {"0", "5"}, {"255", "5"}}) {
        EXPECT_EQ(call_handler(add_qos_rule, std::string("1 protocol ") + protocol).result, 0);
        EXPECT_EQ(daemon_.node("/qos/rule/index:1/protocoltype/"), type);
    }
}

TEST_F(LanServices, RekeyUsageIsNoRefusal) {
    expect_refusals(set_rekey_time, CLI_DONE, text_of(set_rekey_time),
                    {"0 Sun 12:00", "169 Sun 12:00", "x Sun 12:00", "3 Sun", "3 Sun 12:00 x"});
    expect_refusals(set_rekey_ssid, CLI_DONE, text_of(set_rekey_ssid),
                    {"8 1", "-1 1", "1 2", "1 -1", "1", "1 1 1"});
    expect_refusals(
        set_rekey_mail, CLI_DONE, text_of(set_rekey_mail),
        {"0 1 0 s f t u p 25", "4 1 0 s f t u p 25", "1 1 0 s f t u p", "1 1 0 s f t u p 25 x"});
    EXPECT_EQ(call_handler(set_rekey_mail, "2 5 0 s f t u p 25").result, CLI_DONE);
    EXPECT_EQ(daemon_.take_writes(), Writes{"set /sys/log/smtpindex 2"});
    EXPECT_EQ(pending_apply, 0U);
}

TEST_F(LanServices, RekeyingOnThe5GhzRadioMixesTheInterfaces) {
    EXPECT_EQ(call_handler(set_rekey_time, "3 Mon 1:00", nullptr, BAND_5G).result, CLI_DONE);
    EXPECT_EQ(call_handler(set_rekey_ssid, "0 1", nullptr, BAND_5G).result, CLI_DONE);
    EXPECT_EQ(daemon_.take_writes(),
              (Writes{"set /wlan/inf:2/autorekey/time 3", "set /wlan/inf:2/autorekey/startweek Mon",
                      "set /wlan/inf:2/autorekey/starttime 1:00",
                      "set /wlan/inf:1/autorekey/ssid/enable 1"}));
    daemon_.put("/wlan/inf:1/autorekey/startweek", "Fri");
    daemon_.put("/wlan/inf:1/autorekey/starttime", "2:00");
    daemon_.put("/wlan/inf:2/multi/index:1/autorekey/enable", "1");
    daemon_.put("/runtime/wlan/inf:2/multi/index:1/passphrase", "key%n");
    EXPECT_EQ(call_handler(get_rekey, "", nullptr, BAND_5G).out,
              "autorekey change start week: Fri\nautorekey change start time: 2:00\n"
              "auto rekey change time: 0 day, 0 hour\nchange key of ssid1 is key%n\n");
}

TEST_F(LanServices, LimitedAdministrationRefusesWithoutFailing) {
    expect_refusals(set_admin_limit_type, CLI_DONE, text_of(set_admin_limit_type),
                    {"4", "-1", "1 1"});
    expect_refusals(set_admin_limit_type, CLI_DONE, "Please add Limit Admin IP rule!\n",
                    {"2", "3"});
    expect_refusals(add_admin_pool, CLI_DONE, "", {"0 a b", "5 a b", "x a b"});
    expect_refusals(get_admin_pool, CLI_DONE, "Please specify pool index (1-4).\n", {"0", "1 1"});
}

// One of the disabling texts says "enable".
TEST_F(LanServices, StaticLeasesAreNamedAndNumbered) {
    int number = 0;
    for (const CliCommand *row = static_lease_disable_rows.data(); row->handler != nullptr; ++row) {
        const std::string digits = std::to_string(++number);
        EXPECT_EQ(row->name, "pool_" + digits);
        EXPECT_EQ(row->help,
                  (number == 22 ? "enable" : "disable") + (" dhcp staticip pool " + digits));
        pending_apply = 0;
        EXPECT_EQ(dispatch_line(static_lease_disable_rows.data(), row->name).result, CLI_DONE);
        EXPECT_EQ(daemon_.take_writes(),
                  Writes{"set /lan/dhcp/server/pool:1/staticdhcp/entry:" + digits + "/enable 0"});
        EXPECT_EQ(pending_apply, APPLY_DHCPD);
    }
    EXPECT_EQ(number, 25);
}

} // namespace
