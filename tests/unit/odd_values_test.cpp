// Values that no command writes, as displays show them, and words that only some refusals mind.
#include "examples.h"
#include "recording_shell.h"
#include "test_daemon.h"
#include "typed_line.h"

#include <gtest/gtest.h>
#include <utility>

namespace {

TEST(OddValues, HaveAnswersOfTheirOwn) {
    const std::string too_long(33, 'x');
    const std::string add_user = "snmp adduser u readers ";
    const struct {
        std::string node; // "PATH VALUE", "" for the settings of a first start
        std::string line;
        std::string out; // a part of it; "" for nothing printed
    } CASES[] = {
        {"/wlan/inf:1/rogue_ap/client:1/type -1", "get rogue_ap",
         "client1 mac-->00:1a:2b:10:20:01\nrogue ap client2"},
        {"/wlan/inf:1/arrayrole 4", "get arrayrole", "unknown"},
        {"/sys/log/smtpindex 2", "get autorekey_smtp", "SMTP Index: Gmail\n"},
        {"/sys/log/smtp/index:1/authtype 1", "get autorekey_smtp", "the Auth state:on\n"},
        {"/wlan/inf:1/macclone/type -1", "get macclonetype", "MAC address clone is disabled.\n"},
        {"/wlan/inf:1/ap_mode 4", "get apmode", "wds without ap mode"},
        {"/wlan/inf:1/ap_mode 4", "set multi-state enable", ""},
        {"/wlan/inf:1/ap_mode 3", "set multi-state enable", ""},
        {"/sys/adminlimit/status -1", "get ladtype", "unknown Linited"},
        {"/sys/adminlimit/status 4", "get ladtype", "unknown Linited"},
        {"/time/daylightsaving 1", "get daylightsaving", "Daylight Saving Time is Enabled.\n"},
        {"/sys/vlan_mode 1", "get vlanmode", "dynamic"},
        {"/sys/snmptrap/status 2", "snmp showtrap", ""},
        {"/sys/snmpd/secumodel:1 4", "snmp showtrapVersion", ""},
        {"/sys/snmpd/cmtype:1 3", "snmp showcomm", "\n---error for getting value"},
        {"/sys/snmpd/cmtype:1 2", "snmp showcomm", "read_write"},
        {"/wlan/ch_mode ", "set channel 0", "Can't get Band information!\nerror channel number!\n"},
        {"/wlan/ch_mode ", "set channel 35",
         "Can't get Band information!\nerror channel number!\n"},
        {"/wlan/ch_mode ", "set channel 166",
         "Can't get Band information!\nerror channel number!\n"},
        {"/wlan/ch_mode ", "set channel 36", "Can't get Band information!\n"},
        {"/wlan/inf:1/wepkey:1/keyformat 2", "set key 1 gggggggggg",
         "Please type the correct key string(0 - 9, a - f, A - F).\n"},
        {"", "set syslog system /", "\nInvalid Status!!\n"},
        {"", "snmp editpubliccomm " + too_long, "32"},
        {"", "snmp addcomm c " + too_long + " 1", "\nView Name exceeds 32 characters!\n"},
        {"", "snmp delcomm " + too_long, "32"},
        {"", "snmp addgroup g 1 all all " + too_long, "\nNotifyView name can't exceed 32"},
        {"", "snmp addhost 10.0.0.1 0 0 public", "\nSnmpType is a number between 1-3!\n"},
        {"", "snmp addhost 10.0.0.1 1 0 " + too_long, "\nAuthString exceeds 32 characters!!\n"},
        {"", "snmp addhost 10.0.0.1 1 0 monitor", "\nAdd host successfully\n"},
        {"", "snmp adduser u " + too_long + " 1 x 1 x", "\n UserGroup is over than 31"},
        {"", add_user + "0 x 1 x", "\n Auth Type must be a number within 1-3\n"},
        {"", add_user + "1 x 3 x", "\n Priv Type must be a number within 1-2\n"},
        {"", add_user + "1 x 2 abcdefgh", "\n No Auth selected and Priv must be none!\n"},
        {"/sys/snmpd/seculevel:2 2", add_user + "1 ab 1 ab",
         "\nAdd rejected, group is auth required and no priv needed!\n"},
        {"/sys/snmpd/seculevel:2 2", add_user + "2 abcdefgh 1 ab", "\n Add user successfully!\n"},
        {"/sys/snmpd/seculevel:2 3", add_user + "1 ab 1 ab",
         "\nAdd rejected, group is both auth and priv required!\n"},
        {"/sys/snmpd/seculevel:2 3", add_user + "2 abcdefgh 1 ab",
         "\nAdd rejected, group is both auth and priv required!\n"},
    };
    TestDaemon daemon;
    const RecordingShell shell;
    const DebugUnlocked unlocked;
    for (const auto &one : CASES) {
        daemon.load(first_start());
        const std::size_t blank = one.node.find(' ');
        if (!one.node.empty())
            daemon.put(one.node.substr(0, blank), one.node.substr(blank + 1));
        const std::string out = type_line(one.line).out;
        EXPECT_TRUE(out.find(one.out) != std::string::npos && out.empty() == one.out.empty())
            << one.node << ": " << one.line << ": " << out;
    }
}

} // namespace
