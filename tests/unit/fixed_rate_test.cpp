// The 5 GHz radio's rate codes, which no console session reaches.
#include "fake_daemon.h"
#include "typed_line.h"

#include "commands/fixed_rate.h"
#include "config/apply.h"

#include <gtest/gtest.h>

namespace {

constexpr int BAND_5G = 1;
constexpr char NODE[] = "/wlan/inf:2/fixedrate";

TEST(FixedRate, CountsTheRatesWithoutCckOnThe5GhzRadio) {
    FakeDaemon daemon;
    for (const auto &[word, code] : {std::pair("54M", "7"), {"6M", "0"}, {"auto", "31"}}) {
        EXPECT_EQ(dispatch_line(fixed_rate_rows.data(), word, BAND_5G).result, CLI_DONE);
        EXPECT_EQ(daemon.node(NODE), code);
        EXPECT_EQ(call_handler(get_fixed_rate, "", nullptr, BAND_5G).out,
                  std::string("fixedrate:") + word + '\n');
    }
}

TEST(FixedRate, LeavesTheCodeAloneForCckRatesOnThe5GhzRadio) {
    FakeDaemon daemon;
    daemon.put(NODE, "7");
    for (const char *word : {"11M", "5.5M", "2M", "1M"}) {
        pending_apply = 0;
        const CommandRun run = dispatch_line(fixed_rate_rows.data(), word, BAND_5G);
        EXPECT_EQ(run.result, CLI_DONE);
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(daemon.take_writes(), std::vector<std::string>{});
        EXPECT_EQ(pending_apply, APPLY_WLAN);
    }
}

TEST(FixedRate, ShowsCodesWithoutARateAsTheRadiosLowestRate) {
    FakeDaemon daemon;
    for (const char *code : {"8", "-1", "30"}) {
        daemon.put(NODE, code);
        EXPECT_EQ(call_handler(get_fixed_rate, "", nullptr, BAND_5G).out, "fixedrate:6M\n");
    }
}

} // namespace
