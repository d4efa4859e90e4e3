// Wireless security where a console session cannot reach it: every combination of the compatibility
// rule, and the radio that no command selects.
#include "fake_daemon.h"
#include "recording_shell.h"
#include "typed_line.h"

#include "commands/security.h"
#include "tables/root.h"

#include <gtest/gtest.h>

#include <map>
#include <utility>

namespace {

using Lines = std::vector<std::string>;

class WirelessSecurity : public testing::Test {
protected:
    void SetUp() override { pending_apply = 0; }

    // What was written, and then which command lines ran, since the last call.
    Lines take_effects() {
        Lines effects = daemon_.take_writes();
        for (const std::string &line : shell_.take_lines())
            effects.push_back("ran " + line);
        return effects;
    }

    FakeDaemon daemon_;
    RecordingShell shell_;
};

bool is_refused(int mode, int authentication, int cipher) {
    const bool needs_more_than_a_client =
        authentication == 1 || authentication == 2 || authentication == 4 || authentication == 6;
    return ((mode == 1 || mode == 2) && needs_more_than_a_client) ||
           (authentication == 0 && cipher != 0 && cipher != 1) ||
           (authentication == 1 && cipher != 1) || (authentication == 9 && cipher != 1);
}

TEST_F(WirelessSecurity, ChecksEveryCombinationForEachChange) {
    for (int mode = 0; mode <= 5; ++mode) {
        for (int authentication = 0; authentication <= 10; ++authentication) {
            for (int cipher = 0; cipher <= 5; ++cipher) {
                SCOPED_TRACE(testing::Message() << mode << ' ' << authentication << ' ' << cipher);
                const int refused = is_refused(mode, authentication, cipher) ? 1 : 0;
                const auto check = [&](SecurityChange change, int value, const char *node) {
                    daemon_.put("/wlan/inf:1/ap_mode", std::to_string(mode));
                    daemon_.put("/wlan/inf:1/authentication", std::to_string(authentication));
                    daemon_.put("/wlan/inf:1/wpa/wepmode", std::to_string(cipher));
                    daemon_.put(node, "7"); // replaced by the new value
                    StreamCapture out(stdout);
                    EXPECT_EQ(security_check(change, value), refused);
                    EXPECT_EQ(out.take().empty(), refused == 0);
                };
                check(SecurityChange::Mode, mode, "/wlan/inf:1/ap_mode");
                check(SecurityChange::Authentication, authentication, "/wlan/inf:1/authentication");
                check(SecurityChange::Cipher, cipher, "/wlan/inf:1/wpa/wepmode");
            }
        }
    }
    EXPECT_EQ(daemon_.take_writes(), Lines{});
}

TEST_F(WirelessSecurity, FixesTheCipherByModeAndAuthentication) {
    // The ciphers written for the authentication types 0 to 9; "-" where there is no way.
    const std::pair<int, std::string> FIXES[] = {
        {-1, "0--2-2-2-1"}, {0, "01222222-1"}, {1, "0--2-2-2-1"},
        {2, "0--2-2-2-1"},  {3, "01---3-3--"}, {4, "0---------"},
    };
    const std::map<char, std::string> NAMES{
        {'0', "None"}, {'1', "WEP"}, {'2', "TKIP"}, {'3', "AES"}};
    TypedLine typed("");
    typed.cli().current_band = 1;
    for (const auto &[mode, ciphers] : FIXES) {
        daemon_.put("/wlan/inf:2/ap_mode", std::to_string(mode));
        for (int type = 0; type <= 9; ++type) {
            SCOPED_TRACE(testing::Message() << mode << ' ' << type);
            const char cipher = ciphers[static_cast<std::size_t>(type)];
            StreamCapture out(stdout);
            const int fixed = security_fixup(typed.cli(), SecurityChange::Authentication, type);
            const std::string notice = out.take();
            if (cipher == '-') {
                EXPECT_EQ(fixed, 0);
                EXPECT_EQ(notice, "");
                EXPECT_EQ(daemon_.take_writes(), Lines{});
                continue;
            }
            const std::string name = type == 9 ? "Dynamic WEP Keying" : NAMES.at(cipher);
            EXPECT_EQ(fixed, 1);
            EXPECT_EQ(notice, "NOTICE: Set Cipher to " + name + ". \n");
            EXPECT_EQ(daemon_.take_writes(),
                      Lines{std::string("set /wlan/inf:2/wpa/wepmode ") + cipher});
        }
    }
    EXPECT_EQ(security_fixup(typed.cli(), SecurityChange::Mode, 4), 0);
    EXPECT_EQ(security_fixup(typed.cli(), SecurityChange::Cipher, 0), 0);
    EXPECT_EQ(daemon_.take_writes(), Lines{});
}

struct Setter {
    const char *line;
    Lines effects;
    std::uint32_t bits = APPLY_WLAN;
};

// What is kept per radio goes to the second one; WEP keys are the first one's always.
TEST_F(WirelessSecurity, SetsTheSecondRadioAndMarksWhatMustRestart) {
    const Setter SETTERS[] = {
        {"set authentication wpa-psk", {"ran rgdb -s /wlan/inf:2/authentication 3"}},
        {"set cipher wep", {"ran rgdb -s /wlan/inf:2/wpa/wepmode 1"}},
        {"set cipher no",
         {"ran rgdb -s /wlan/inf:2/wpa/wepmode 0", "ran rgdb -s /wlan/inf:2/authentication 0"}},
        {"set apmode ap", {"set /wlan/inf:2/ap_mode 0"}},
        {"set apmode apc", {"set /wlan/inf:2/ap_mode 1"}},
        {"set apmode wdsap", {"set /wlan/inf:2/ap_mode 3"}},
        {"set apmode wds", {"set /wlan/inf:2/ap_mode 4"}},
        {"del key 2",
         {"set /wlan/inf:1/wepkey:2 ", "set /wlan/inf:1/wepkey:2/keyformat 2",
          "set /wlan/inf:1/wepkey:2/keylength 64"}},
        {"set keylength 128bit 2",
         {"set /wlan/inf:1/wepkey:2 ", "set /wlan/inf:1/wepkey:2/keylength 128"}},
        {"set defkeyindex 2",
         {"set /wlan/inf:1/defkey 2", "set /wlan/inf:1/keyformat 2",
          "set /wlan/inf:1/keylength 128"}},
        {"set passphrase passphrase", {"set /wlan/inf:2/wpa/wpapsk passphrase"}},
        {"set groupkeyupdate 300", {"set /wlan/inf:2/wpa/grp_rekey_interval 300"}},
        {"set username admin", {"set /sys/user:1/name admin"}, APPLY_WEB},
        {"set password secret", {"set /sys/user:1/password secret"}, APPLY_WEB},
        {"set multi-state disable", {"set /wlan/inf:2/multi/state 0"}},
        {"set multi-state enable", {"set /wlan/inf:2/multi/state 1"}},
        {"set multi-pri-state enable", {"set /wlan/inf:2/multi/pri_by_ssid 1"}},
        {"set multi-pri-state disable", {"set /wlan/inf:2/multi/pri_by_ssid 0"}},
        {"set multi-ind-state enable 1", {"set /wlan/inf:2/multi/index:1/state 1"}},
        {"set multi-ssid abc 3", {"set /wlan/inf:2/multi/index:3/ssid abc"}},
        {"set multi-auth wpa-psk 1", {"set /wlan/inf:2/multi/index:1/auth 3"}},
        {"set multi-cipher aes 1", {"set /wlan/inf:2/multi/index:1/cipher 3"}},
        {"set multi-cipher wep 1", {}},
        {"set multi-cipher no 1",
         {"set /wlan/inf:2/multi/index:1/cipher 0", "set /wlan/inf:2/multi/index:1/auth 0"}},
        {"set priority 2", {"set /wlan/inf:2/pri_bit 2"}},
        {"set d-wepkeylen 64bit", {"ran rgdb -s /wlan/inf:2/d_wepkeylen 64"}},
        {"set d-wepkeyupdate 300", {"set /wlan/inf:2/d_wep_rekey_interval 300"}},
        // A peer of the first radio is no peer of the second one.
        {"set wdsmacadd 00:11:22:33:44:55 1", {}, 0},
        {"set wdsmacadd 00:11:22:33:44:5a 1",
         {"set /wlan/inf:2/wds/list/index:1/mac 00:11:22:33:44:5a"}},
        {"set wdsmacadd 00:11:22:33:44:5a 2",
         {"set /wlan/inf:2/wds/list/index:2/mac 00:11:22:33:44:5a"}},
        {"set wdsmacadd 00:11:22:33:44:55 5", {}},
        {"set wdsmacdel 1", {"set /wlan/inf:2/wds/list/index:1/mac "}},
        {"set wdsscan", {"ran sh /etc/templates/wds_scan.sh g"}, 0},
    };
    daemon_.put("/wlan/inf:1/wds/list/index:4/mac", "00:11:22:33:44:55");
    for (const Setter &setter : SETTERS) {
        SCOPED_TRACE(setter.line);
        pending_apply = 0;
        dispatch_line(root_table(), setter.line, 1);
        EXPECT_EQ(take_effects(), setter.effects);
        EXPECT_EQ(pending_apply, setter.bits);
    }
}

} // namespace
