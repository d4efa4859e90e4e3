// Wireless security where a console session cannot reach it: every combination of the compatibility
// rule, the ciphers that it falls back to on the radio that no command selects, and the names under
// which nodes are read.
#include "test_daemon.h"
#include "typed_line.h"

#include "commands/security.h"

#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <utility>

namespace {

bool is_refused(int mode, int authentication, int cipher) {
    const bool needs_more_than_a_client =
        authentication == 1 || authentication == 2 || authentication == 4 || authentication == 6;
    return ((mode == 1 || mode == 2) && needs_more_than_a_client) ||
           (authentication == 0 && cipher != 0 && cipher != 1) ||
           (authentication == 1 && cipher != 1) || (authentication == 9 && cipher != 1);
}

TEST(WirelessSecurity, ChecksEveryCombinationForEachChange) {
    TestDaemon daemon;
    for (int mode = 0; mode <= 5; ++mode) {
        for (int authentication = 0; authentication <= 10; ++authentication) {
            for (int cipher = 0; cipher <= 5; ++cipher) {
                SCOPED_TRACE(testing::Message() << mode << ' ' << authentication << ' ' << cipher);
                const int refused = is_refused(mode, authentication, cipher) ? 1 : 0;
                const auto check = [&](SecurityChange change, int value, const char *node) {
                    daemon.put("/wlan/inf:1/ap_mode", std::to_string(mode));
                    daemon.put("/wlan/inf:1/authentication", std::to_string(authentication));
                    daemon.put("/wlan/inf:1/wpa/wepmode", std::to_string(cipher));
                    daemon.put(node, "7"); // replaced by the new value
                    int result = -1;
                    const std::string notice =
                        capture_output([&] { result = security_check(change, value); }).out;
                    EXPECT_EQ(result, refused);
                    EXPECT_EQ(notice.empty(), refused == 0);
                };
                check(SecurityChange::Mode, mode, "/wlan/inf:1/ap_mode");
                check(SecurityChange::Authentication, authentication, "/wlan/inf:1/authentication");
                check(SecurityChange::Cipher, cipher, "/wlan/inf:1/wpa/wepmode");
            }
        }
    }
    EXPECT_EQ(daemon.take_writes(), Lines{});
}

TEST(WirelessSecurity, FixesTheCipherByModeAndAuthentication) {
    TestDaemon daemon;
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
        daemon.put("/wlan/inf:2/ap_mode", std::to_string(mode));
        for (int type = 0; type <= 9; ++type) {
            SCOPED_TRACE(testing::Message() << mode << ' ' << type);
            const char cipher = ciphers[static_cast<std::size_t>(type)];
            int fixed = -1;
            const auto fix = [&] {
                fixed = security_fixup(typed.cli(), SecurityChange::Authentication, type);
            };
            const std::string notice = capture_output(fix).out;
            if (cipher == '-') {
                EXPECT_EQ(fixed, 0);
                EXPECT_EQ(notice, "");
                EXPECT_EQ(daemon.take_writes(), Lines{});
                continue;
            }
            const std::string name = type == 9 ? "Dynamic WEP Keying" : NAMES.at(cipher);
            EXPECT_EQ(fixed, 1);
            EXPECT_EQ(notice, "NOTICE: Set Cipher to " + name + ". \n");
            EXPECT_EQ(daemon.take_writes(),
                      Lines{std::string("set /wlan/inf:2/wpa/wepmode ") + cipher});
        }
    }
    EXPECT_EQ(security_fixup(typed.cli(), SecurityChange::Mode, 4), 0);
    EXPECT_EQ(security_fixup(typed.cli(), SecurityChange::Cipher, 0), 0);
    EXPECT_EQ(daemon.take_writes(), Lines{});
}

TEST(WirelessSecurity, ShowsTheNodesThatTheLinesName) {
    const DebugUnlocked unlocked;
    TestDaemon daemon;
    std::istringstream lines(type_line("get allkey").out);
    Lines named;
    for (std::string line; std::getline(lines, line);)
        named.push_back("get " + line.substr(0, line.find_first_of(" =")));
    EXPECT_EQ(named, daemon.take_requests());
    EXPECT_EQ(named.size(), 3U + 4 * 3 + 3 * 4);
}

} // namespace
