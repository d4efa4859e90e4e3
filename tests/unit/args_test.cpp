// Taking words and turning them into values; small text operations.
#include "failing_allocation.h"
#include "typed_line.h"

#include "commands/shared/address.h"
#include "config/device_utilities.h"
#include "shell/args.h"

#include <arpa/inet.h>
#include <climits>
#include <cstring>
#include <gtest/gtest.h>

namespace {

TEST(Ring, GivesWordsInTheOrderTyped) {
    TypedLine line("  one two   three\tx ");
    CliContext &cli = line.cli();
    EXPECT_EQ(arg_count(cli), 3);
    EXPECT_STREQ(arg_peek(cli, 2), "three\tx");
    EXPECT_EQ(arg_peek(cli, 3), nullptr);
    EXPECT_STREQ(arg_next(cli), "one");
    EXPECT_STREQ(arg_peek(cli, 0), "two");
    EXPECT_EQ(arg_count(cli), 2);
    EXPECT_STREQ(cli.first_word, "one");
    EXPECT_EQ(cli.consumed_count, 0);
    arg_next(cli);
    arg_next(cli);
    EXPECT_EQ(arg_next(cli), nullptr);
}

TEST(Ring, KeepsTheLastFiftyWords) {
    std::string words;
    for (int word = 1; word <= 52; ++word)
        words += std::to_string(word) + ' ';
    TypedLine line(words);
    EXPECT_EQ(arg_count(line.cli()), 50);
    EXPECT_STREQ(line.cli().first_word, "51");
    EXPECT_STREQ(arg_peek(line.cli(), 49), "52");
    EXPECT_STREQ(arg_next(line.cli()), "3");
}

TEST(Context, KeepsOnlyTheBandWhenReset) {
    TypedLine line("a b");
    line.cli().current_band = 1;
    line.cli().depth = 4;
    reset_context(line.cli());
    EXPECT_EQ(line.cli().current_band, 1);
    EXPECT_EQ(arg_count(line.cli()), 0);
    EXPECT_EQ(line.cli().ring_head, 0);
    EXPECT_EQ(line.cli().depth, 0);
}

TEST(ArgUint, ConvertsSaturatesAndWraps) {
    const struct {
        const char *word;
        int base;
        int result;
        std::uint32_t value;
    } cases[] = {
        {"12", 10, 0, 12},
        {"+7", 10, 0, 7},
        {"4294967295", 10, 0, 4294967295},
        {"4294967296", 10, 0, 4294967295},
        {"99999999999999999999999", 10, 0, 4294967295},
        {"-1", 10, 0, 4294967295},
        {"-4294967295", 10, 0, 1},
        {"-4294967296", 10, 0, 4294967295},
        {"-99999999999999999999999", 10, 0, 4294967295},
        {"0x1F", 0, 0, 31},
        {"017", 0, 0, 15},
        {"017", 10, 0, 17},
        {"ff", 16, 0, 255},
        {"12abc", 10, -1, 12},
        {"abc", 10, -1, 0},
        {"-", 10, -1, 0},
        {"1\t", 10, -1, 1},
    };
    for (const auto &one : cases) {
        SCOPED_TRACE(one.word);
        TypedLine line(one.word);
        std::uint32_t value = 77;
        int result = 1;
        const CapturedOutput output =
            capture_output([&] { result = arg_uint(line.cli(), value, one.base); });
        EXPECT_EQ(result, one.result);
        EXPECT_EQ(value, one.value);
        EXPECT_EQ(output.out, one.result == 0 ? "" : "Invalid input\n");
        EXPECT_EQ(line.cli().consumed_count, 1);
        EXPECT_EQ(arg_count(line.cli()), 0);
    }
}

TEST(Args, SayWhenAWordIsMissing) {
    std::uint32_t value = 0;
    MacText mac{};
    TypedLine line("");
    int uint_result = 1;
    int ipv4_result = 1;
    int mac_result = 1;
    EXPECT_EQ(capture_output([&] { uint_result = arg_uint(line.cli(), value, 10); }).out,
              "Error -- No value specified\n");
    EXPECT_EQ(capture_output([&] { ipv4_result = arg_ipv4(line.cli(), value); }).out,
              "No value specified\n");
    EXPECT_EQ(capture_output([&] { mac_result = arg_mac(line.cli(), mac); }).out,
              "No value specified\n");
    EXPECT_EQ(uint_result, -1);
    EXPECT_EQ(ipv4_result, 0);
    EXPECT_EQ(mac_result, 0);
    EXPECT_EQ(line.cli().consumed_count, 3);
}

TEST(ArgIpv4, LeavesTheLastWordToTheLibrary) {
    const auto taken = [](const char *word) {
        TypedLine line(word);
        std::uint32_t address = 0;
        const bool valid = arg_ipv4(line.cli(), address) == 1;
        EXPECT_EQ(arg_count(line.cli()), 0);
        return valid ? std::string(ipv4_text(address).data()) : "refused";
    };
    for (const char *word : {"192.168.0.50", "0.0.0.0", "255.255.255.254"})
        EXPECT_EQ(taken(word), word);
    EXPECT_EQ(taken("010.1.1.1"), "8.1.1.1");
    EXPECT_EQ(taken("1.2.3.0377"), "1.2.3.255");
    for (const char *word :
         {"1.2.0377.3", "255.255.255.255", "256.1.1.1", "1.2.3.256", "1.2.3", "1.2.3.4.5",
          "1.2.3.4.", "1..2.3", "1.2.3.", ".1.2.3", "1-2-3-4", "1.2.3.4\tx", "1.-2.3.4", "1.2.3.-4",
          "18446744073709551617.1.1.1", "host"})
        EXPECT_EQ(taken(word), "refused") << word;
}

TEST(ArgMac, PeeksAndTakesAnySeparator) {
    for (const char *word : {"00:11:22:33:44:55", "00-11x22.aa:BB,ff", "000:0:00:0ff:0:0f"}) {
        TypedLine line(word);
        MacText mac{};
        EXPECT_EQ(arg_mac(line.cli(), mac), 1) << word;
        EXPECT_STREQ(mac.data(), word);
        EXPECT_EQ(arg_count(line.cli()), 1);
        EXPECT_EQ(line.cli().consumed_count, 1);
    }
    for (const char *word :
         {"0:1:2:3:4:5", "00:11:22:33:44:5", "00:11:22:33:44:555",
          "00:11:22:33:4455:", "00:11:22:33:44:gg", "100:1:22:33:44:55", "00:11:22:33:4:100",
          "0011:22:33:44:055", "000::011:22:33:44", "0:1:2:3:4:5:6:7:8"}) {
        TypedLine line(word);
        MacText mac{};
        EXPECT_EQ(arg_mac(line.cli(), mac), 0) << word;
        EXPECT_STREQ(mac.data(), "");
    }
}

TEST(Args, EchoAddressesForDebugging) {
    debug_print = 1;
    const CapturedOutput output = capture_output([] {
        std::uint32_t address = 0;
        MacText mac{};
        TypedLine line("1.2.3.4 ab");
        arg_ipv4(line.cli(), address);
        arg_mac(line.cli(), mac);
    });
    debug_print = 0;
    EXPECT_EQ(output.out, "p: 1.2.3.4, len: 7\np: ab, len: 2\n");
}

TEST(MacParse, WantsSixComponentsAndNotAllZero) {
    std::array<std::uint8_t, 6> mac{};
    EXPECT_EQ(mac_parse("0:a:FF:3:04:5", mac), 1);
    EXPECT_EQ(mac, (std::array<std::uint8_t, 6>{0, 10, 255, 3, 4, 5}));
    EXPECT_EQ(mac_parse("00:00:00:00:00:01", mac), 1);
    for (const char *text : {"00:00:00:00:00:00", "", "1:2:3:4:5", "1:2:3:4:5:6:7", "1:2:3:4:5:6:",
                             "1:2:3::5:6", "1:2:3:4:5:006", "1-2-3-4-5-6", "1:2:3:4:5:g",
                             "1:2:3:4:5:+6", " 1:2:3:4:5:6", "1:2:3:4:5:6 ", "0x:1:2:3:4:5"})
        EXPECT_EQ(mac_parse(text, mac), 0) << text;
}

TEST(Ipv4ParseBlank, TakesBlanksAndEmptyComponents) {
    std::array<std::uint8_t, 4> address{};
    EXPECT_EQ(ipv4_parse_blank(" \t192.168.0.050\t ", address), 1);
    EXPECT_EQ(address, (std::array<std::uint8_t, 4>{192, 168, 0, 50}));
    EXPECT_EQ(ipv4_parse_blank("1..3.", address), 1);
    EXPECT_EQ(address, (std::array<std::uint8_t, 4>{1, 0, 3, 0}));
    for (const char *text : {"", "1.2.3", "1.2.3.4.5", "1.2.3.256", "1.2.3.4x", "1.2. 3.4",
                             "1.2.3.4 5", "-1.2.3.4", "1.2.3.4294967297"})
        EXPECT_EQ(ipv4_parse_blank(text, address), 0) << text;
}

TEST(IntParseBlank, ReadsDigitsAndSaturates) {
    const struct {
        const char *text;
        std::int32_t value;
    } good[] = {{"12", 12},
                {"\t -7 \t", -7},
                {"-", 0},
                {" - ", 0},
                {"0012", 12},
                {"2147483647", INT32_MAX},
                {"2147483648", INT32_MAX},
                {"99999999999999999999", INT32_MAX},
                {"-2147483649 ", INT32_MIN}};
    for (const auto &one : good) {
        std::int32_t value = 99;
        EXPECT_EQ(int_parse_blank(one.text, value), 1) << one.text;
        EXPECT_EQ(value, one.value) << one.text;
    }
    for (const char *text :
         {"", " \t", "x", "1x", "1 2", "+1", "--1", "- 1", "\v1", "99999999999999999999x"}) {
        std::int32_t value = 99;
        EXPECT_EQ(int_parse_blank(text, value), 0) << text;
    }
}

TEST(DecimalValue, ReadsLeadingDigitsAndSaturates) {
    EXPECT_EQ(decimal_value(" \t+12x"), 12);
    EXPECT_EQ(decimal_value("-3.5"), -3);
    EXPECT_EQ(decimal_value("0x10"), 0);
    EXPECT_EQ(decimal_value(""), 0);
    EXPECT_EQ(decimal_value("99999999999999999999"), INT_MAX);
    EXPECT_EQ(decimal_value("2147483648"), INT_MAX);
    EXPECT_EQ(decimal_value("-99999999999999999999"), INT_MIN);
    EXPECT_EQ(in_range("abc", 0, 10), 1);
    EXPECT_EQ(in_range("10x", 0, 10), 1);
    EXPECT_EQ(in_range("11", 0, 10), 0);
    EXPECT_EQ(in_range("-1", 0, 10), 0);
}

TEST(Address, HostsAndMasks) {
    const auto takes = [](const char *words, bool (*take)(CliContext &, Ipv4Text &)) {
        TypedLine line(words);
        Ipv4Text text{};
        return take(line.cli(), text) ? std::string(text.data()) : "refused";
    };
    EXPECT_EQ(takes("1.0.255.1", take_host_address), "1.0.255.1");
    EXPECT_EQ(takes("223.1.1.254", take_host_address), "223.1.1.254");
    for (const char *word : {"0.1.1.1", "127.0.0.1", "224.1.1.1", "10.0.0.0", "10.0.0.255",
                             "255.255.255.255", "10.0.0.1 x"})
        EXPECT_EQ(takes(word, take_host_address), "refused") << word;
    for (const char *word : {"0.0.0.0", "128.0.0.0", "255.255.254.0", "255.255.255.255"})
        EXPECT_EQ(takes(word, take_netmask), word);
    for (const char *word : {"255.0.255.0", "255.255.253.0", "254.255.0.0", "0.0.0.255",
                             "255.255.255.255 x", "255.255.255.0 x", "255.255.255"})
        EXPECT_EQ(takes(word, take_netmask), "refused") << word;
}

TEST(TextUtilities, CutBlanks) {
    EXPECT_STREQ(skip_leading_blanks(" \t a "), "a ");
    EXPECT_EQ(skip_leading_blanks(nullptr), nullptr);
    char text[] = "a b \t ";
    cut_trailing_blanks(text);
    EXPECT_STREQ(text, "a b");
    char blanks[] = "  ";
    cut_trailing_blanks(blanks);
    EXPECT_STREQ(blanks, "");
}

TEST(TextUtilities, WeekdaysWrapPastSaturday) {
    const struct {
        int first;
        int last;
        const char *names;
    } cases[] = {
        {0, 6, "Sun,Mon,Tue,Wed,Thu,Fri,Sat"},
        {5, 1, "Fri,Sat,Sun,Mon"},
        {1, 0, "Mon,Tue,Wed,Thu,Fri,Sat,Sun"},
        {3, 3, "Wed"},
        {7, 15, "Sun,Mon"},
        {-1, -7, "Sat,Sun"},
    };
    for (const auto &one : cases) {
        char names[WEEKDAY_RANGE_SIZE];
        weekday_range(one.first, one.last, names);
        EXPECT_STREQ(names, one.names);
    }
}

TEST(TextUtilities, ReadsLinesOfAnyLength) {
    for (const std::size_t length : {0, 78, 79, 80, 81, 1000}) {
        const std::string line(length, 'x');
        std::string file = line;
        file.append("\r\n").append(line).append("\n\n").append(line);
        std::FILE *stream = fmemopen(file.data(), file.size(), "r");
        ASSERT_NE(stream, nullptr);
        EXPECT_EQ(read_line(stream, false).get(), line + '\n');
        EXPECT_EQ(read_line(stream, true).get(), line);
        EXPECT_STREQ(read_line(stream, true).get(), "");
        const std::unique_ptr<char[]> last = read_line(stream, true);
        EXPECT_EQ(last == nullptr ? "" : last.get(), line);
        EXPECT_EQ(read_line(stream, true), nullptr);
        std::rewind(stream);
        const FailingAllocation failing(1);
        EXPECT_EQ(read_line(stream, true), nullptr);
        std::fclose(stream);
    }
}

TEST(TextUtilities, PointerArrayGrows) {
    const auto text = [](const char *words) {
        PointerArray::Entry entry(new char[8]());
        std::strncpy(entry.get(), words, 7);
        return entry;
    };
    PointerArray array(3);
    EXPECT_EQ(array.get(0), nullptr);
    EXPECT_TRUE(array.set(7, text("seven")));
    EXPECT_TRUE(array.set(2, text("two")));
    EXPECT_EQ(array.get(6), nullptr);
    EXPECT_EQ(array.get(9), nullptr);
    EXPECT_TRUE(array.set(100, text("far")));
    EXPECT_STREQ(array.get(7), "seven");
    const PointerArray::Entry kept(array.get(2));
    EXPECT_TRUE(array.set(2, text("new"), true));
    EXPECT_STREQ(kept.get(), "two");
    EXPECT_STREQ(array.get(2), "new");
    EXPECT_TRUE(array.set(7, text("other")));
    EXPECT_STREQ(array.get(7), "other");
    PointerArray::Entry more = text("more");
    const FailingAllocation failing(1);
    EXPECT_FALSE(array.set(500, std::move(more)));
    EXPECT_EQ(array.get(500), nullptr);
    EXPECT_STREQ(array.get(100), "far");
}

} // namespace
