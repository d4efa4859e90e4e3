// Zone defence of the IPv6 addresses, which no word of the console reaches.
#include "failing_allocation.h"
#include "test_daemon.h"
#include "typed_line.h"

#include "commands/zone_defence.h"

#include <gtest/gtest.h>
#include <utility>

namespace {

std::string entry(int index) {
    return "/wlan/inf:1/zonedefence_ip/ipv6addr:" + std::to_string(index);
}

constinit auto rows = command_table({
    {"add", nullptr, add_zone_ipv6_address},
    {"remove", nullptr, delete_zone_ipv6_address},
});

class ZoneIpv6 : public testing::Test {
protected:
    void SetUp() override { pending_apply = 0; }

    // On the 5 GHz radio, since the list is the first radio's whatever the current one.
    static CommandRun add(const std::string &words) {
        return dispatch_line(rows.data(), "add " + words, 1);
    }
    static CommandRun remove(const std::string &words) {
        return dispatch_line(rows.data(), "remove " + words, 1);
    }

    void expect_refused(const CommandRun &run, const std::string &message) {
        EXPECT_EQ(run.result, CLI_REFUSED);
        EXPECT_EQ(run.out, message);
        EXPECT_EQ(daemon_.take_writes(), Lines{});
        EXPECT_EQ(pending_apply, 0U);
    }

    TestDaemon daemon_;
};

TEST_F(ZoneIpv6, RefusesDuplicatesAndTheSixtyFifthAddress) {
    for (int index = 1; index <= 64; ++index)
        daemon_.put(entry(index), "fe80::" + std::to_string(index));
    expect_refused(add("FE80:0::64"), "error! the ip address already exist!\n");
    expect_refused(add("::1"), " Error! Zonedefence IP entry number only allow maximum 64\n");
}

TEST_F(ZoneIpv6, EndsItsListAtTheFirstHole) {
    for (const int index : {1, 2, 4})
        daemon_.put(entry(index), "fe80::" + std::to_string(index));
    expect_refused(remove("fe80::4"), "error macaddrdel!\n");
    EXPECT_EQ(remove("FE80::0:2").result, CLI_DONE);
    EXPECT_EQ(std::exchange(pending_apply, 0), APPLY_WLAN);
    const CommandRun added = add("2001:DB8:0:0:0:0:0:1");
    EXPECT_EQ(added.result, CLI_DONE);
    EXPECT_EQ(added.out, "");
    EXPECT_EQ(daemon_.take_writes(),
              (Lines{"del " + entry(2), "set " + entry(2) + " 2001:db8::1"}));
    EXPECT_EQ(pending_apply, APPLY_WLAN);
}

TEST_F(ZoneIpv6, RefusesWhatIsNoAddress) {
    expect_refused(add(""), "Command line is not complete.\n");
    expect_refused(remove(""), "Command line is not complete.\n");
    expect_refused(add("fe80::1%eth0"), "Illegal format.\n");
    expect_refused(remove("10.0.0.1"), "Illegal format.\n");
    expect_refused(add("fe80::1 fe80::2"), "No IP Address!\n");
}

TEST_F(ZoneIpv6, RefusesWithoutMemory) {
    const FailingAllocation failing(1, true);
    expect_refused(add("fe80::1"), "Too few memory.\n");
}

} // namespace
