// The way to the configuration database: client, node access, array bookkeeping.
#include "test_daemon.h"
#include "typed_line.h"

#include "../scratch_directory.h"
#include "config/array_sync.h"
#include "config/device_utilities.h"
#include "config/node_access.h"
#include "unix_socket.h"

#include <cerrno>
#include <gtest/gtest.h>
#include <limits>
#include <poll.h>
#include <sys/socket.h>
#include <thread>

namespace {

// What a system call sends at most, and how many calls there were.
thread_local std::size_t send_limit = std::numeric_limits<std::size_t>::max();
thread_local int sends = 0;

} // namespace

// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name): it replaces the C library's
extern "C" ssize_t sendmsg(int socket, const msghdr *message, int flags) {
    std::string bytes;
    for (std::size_t part = 0; part < message->msg_iovlen; ++part)
        bytes.append(static_cast<const char *>(message->msg_iov[part].iov_base),
                     message->msg_iov[part].iov_len);
    ++sends;
    if (send_limit == 0) {
        errno = EPIPE;
        return -1;
    }
    return send(socket, bytes.data(), std::min(bytes.size(), send_limit), flags);
}

namespace {

using Manner = TestDaemon::Manner;

// What xmldb_get and its like copy to a stream.
std::string copied_text(std::uint16_t action, const char *path, int &result) {
    char *text = nullptr;
    std::size_t size = 0;
    std::FILE *stream = open_memstream(&text, &size);
    const UniqueFd connection = xmldb_open(nullptr);
    result = xmldb_text_action(connection, action, 0, path, stream);
    std::fclose(stream);
    std::string copied(text, size);
    std::free(text);
    return copied;
}

TEST(XmldbClient, CopiesTextsOfAnyLength) {
    TestDaemon daemon;
    // Up to the size of a read, and beyond: the NUL decides where a text ends.
    for (const std::size_t length : {0, 1, 1022, 1023, 1024, 1025, 2047, 5000}) {
        daemon.put("/node", std::string(length, 'v'));
        int result = -1;
        EXPECT_EQ(copied_text(XMLDB_GET, "/node", result), daemon.node("/node"));
        EXPECT_EQ(result, 0);
    }
    int result = -1;
    copied_text(XMLDB_TEXT_7, "/a%sb", result);
    EXPECT_EQ(daemon.take_requests().back(), "7 /a%sb");
}

TEST(XmldbClient, CutsWhatTheProtocolHasNoRoomFor) {
    TestDaemon daemon;
    const std::string text(2000, 'x');
    EXPECT_EQ(xmldb_set(xmldb_open(nullptr), 0, "/p", text.c_str()), 0);
    EXPECT_EQ(xmldb_pair_action(xmldb_open(nullptr), 0, "one", text.c_str()), -1);
    EXPECT_EQ(xmldb_status_action(xmldb_open(nullptr), XMLDB_STATUS_5, 0, text.c_str()), -1);
    char buffer[8] = "-------";
    EXPECT_EQ(xmldb_get_format(xmldb_open(nullptr), buffer, 3, "/%s", text.c_str()), 1);
    EXPECT_EQ(buffer[0], '\0');
    EXPECT_EQ(buffer[1], '-');
    EXPECT_EQ(daemon.take_requests(),
              (Lines{"set /p " + text.substr(0, 1020), "8 one " + text.substr(0, 251), "5 " + text,
                     "get /" + text.substr(0, 510)}));
}

TEST(XmldbClient, SendsARequestInOneCallUnlessItFallsShort) {
    TestDaemon daemon;
    // In the header, at its end, in the text.
    for (const std::size_t limit : {1, 11, 12, 13, 20, 1000}) {
        send_limit = limit;
        sends = 0;
        EXPECT_EQ(xmldb_set(xmldb_open(nullptr), 0, "/path", "a value"), 0);
        EXPECT_EQ(sends, (26 + static_cast<int>(limit) - 1) / static_cast<int>(limit));
        EXPECT_EQ(daemon.take_requests(), Lines{"set /path a value"});
    }
    send_limit = std::numeric_limits<std::size_t>::max();
}

TEST(XmldbClient, FailsWhenNothingCanBeSentOrNothingComes) {
    TestDaemon daemon;
    char buffer[8];
    int result = 0;
    send_limit = 0;
    EXPECT_EQ(xmldb_get_format(xmldb_open(nullptr), buffer, sizeof buffer, "/p"), -1);
    EXPECT_EQ(copied_text(XMLDB_GET, "/p", result), "");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(xmldb_set(xmldb_open(nullptr), 0, "/p", "v"), -1);
    send_limit = std::numeric_limits<std::size_t>::max();
    EXPECT_EQ(daemon.take_requests(), Lines{});
    daemon.behave(Manner::NoAnswer);
    EXPECT_EQ(copied_text(XMLDB_GET, "/p", result), "");
    EXPECT_EQ(xmldb_get_format(xmldb_open(nullptr), buffer, sizeof buffer, "/p"), 0);
}

TEST(XmldbClient, SaysWhichSocketWasAskedFor) {
    const CapturedOutput output = capture_output([] { xmldb_open("/nowhere/socket"); });
    EXPECT_EQ(output.err, "Cound not connect to unix socket: /nowhere/socket.\n");
    EXPECT_EQ(output.out, "");
}

TEST(NodeAccess, WritesReadsAndDeletes) {
    TestDaemon daemon;
    EXPECT_EQ(cfg_set("a b  %s", "/wlan/inf:%d/ssid", 2), 0);
    EXPECT_EQ(cfg_set_number(-5, "/n"), 0);
    ValueBuffer value;
    EXPECT_EQ(cfg_get(value, "/wlan/inf:%d/ssid", 2), 0);
    EXPECT_STREQ(value.text(), "a b  %s");
    EXPECT_EQ(cfg_number("/n"), -5);
    EXPECT_EQ(cfg_del("/wlan/inf:2/ssid"), 0);
    // What was read before is gone, not left to be taken for the node's text.
    EXPECT_EQ(cfg_get(value, "/wlan/inf:%d/ssid", 2), 0);
    EXPECT_TRUE(value.empty());
    EXPECT_EQ(daemon.take_writes(),
              (Lines{"set /wlan/inf:2/ssid a b  %s", "set /n -5", "del /wlan/inf:2/ssid"}));
}

TEST(NodeAccess, EndsEveryTextAtItsLimit) {
    TestDaemon daemon;
    daemon.put("/runtime/layout/countrycode", "840 and more");
    ShortValue<3> code;
    cfg_get(code, "/runtime/layout/countrycode");
    EXPECT_STREQ(code.text(), "840");
    daemon.put("/n", std::string(4095, '0') + "51");
    EXPECT_EQ(cfg_number("/n"), 5);
    const std::string path = '/' + std::string(5000, 'p');
    cfg_get(code, "%s", path.c_str());
    EXPECT_EQ(daemon.take_requests().back(), "get " + path.substr(0, 4095));
}

TEST(NodeAccess, WritesOnceAndReadsAllFlagsBefore) {
    TestDaemon daemon;
    cfg_set("1", "/node");
    const Lines requests = daemon.take_requests();
    ASSERT_EQ(requests.size(), 33U);
    EXPECT_EQ(requests.front(), "get /aparray/sync/ssid");
    EXPECT_EQ(requests[16], "get /aparray/sync/multi/ssid");
    EXPECT_EQ(requests[31], "get /aparray/sync/login");
    EXPECT_EQ(requests.back(), "set /node 1");
}

TEST(NodeAccess, ReportsADeadDaemon) {
    TestDaemon daemon;
    daemon.put("/a", "old");
    ShortValue<7> value;
    cfg_get(value, "/a");
    daemon.stop();
    const std::string once = "Cound not connect to unix socket: (null).\n"
                             "Cannot open database.: No such file or directory\n";
    int got = 0;
    int set = 0;
    int deleted = 0;
    EXPECT_EQ(capture_output([&] { got = cfg_get(value, "/a"); }).err, once);
    std::string for_each_flag_and_once;
    for (std::size_t times = 0; times <= SYNC_ITEM_COUNT; ++times)
        for_each_flag_and_once += once;
    EXPECT_EQ(capture_output([&] { set = cfg_set("1", "/a"); }).err, for_each_flag_and_once);
    EXPECT_EQ(capture_output([&] { deleted = cfg_del("/a"); }).err, once);
    EXPECT_EQ(got, -1);
    EXPECT_TRUE(value.empty());
    EXPECT_EQ(set, -1);
    EXPECT_EQ(deleted, -1);
}

TEST(NodeAccess, ReportsAFailedRead) {
    const ScratchDirectory directory;
    const std::string socket = directory.file("socket");
    const UniqueFd listener = listen_at(socket, SOCK_STREAM);
    const char *usual_socket = std::exchange(xmldb_default_socket, socket.c_str());
    // A peer that leaves a request unread resets the connection.
    std::thread peer([&listener] {
        const UniqueFd client(accept(listener.get(), nullptr, nullptr));
        pollfd request{client.get(), POLLIN, 0};
        poll(&request, 1, -1);
    });
    ShortValue<7> value;
    int got = 0;
    EXPECT_EQ(capture_output([&] { got = cfg_get(value, "/node"); }).err,
              "Read database failed.: Connection reset by peer\n");
    EXPECT_EQ(got, -1);
    peer.join();
    xmldb_default_socket = usual_socket;
}

TEST(NodeAccess, SurvivesAMisbehavingDaemon) {
    TestDaemon daemon;
    daemon.put("/node", "text");
    const struct {
        const char *text; // what a read of 7 bytes gives
        Manner manner;
        int set;
    } cases[] = {
        {"", Manner::NoAnswer, -1},     {"text", Manner::NoNul, 0},
        {"xxxxxxx", Manner::Huge, 0},   {"\x01\xff%s%n\x1b", Manner::Garbage, 0},
        {"te", Manner::ShortReply, -1}, {"text", Manner::Refusal, -1},
    };
    for (const auto &one : cases) {
        SCOPED_TRACE(static_cast<int>(one.manner));
        daemon.behave(one.manner);
        ShortValue<7> value;
        const CapturedOutput output = capture_output([&] {
            cfg_get(value, "/node");
            EXPECT_EQ(cfg_set("new", "/other"), one.set);
            EXPECT_EQ(cfg_del("/other"), one.set);
        });
        EXPECT_STREQ(value.text(), one.text);
        EXPECT_EQ(output.out, "");
        EXPECT_EQ(output.err.find("Set ERROR!: ") != std::string::npos, one.set == -1);
        EXPECT_EQ(output.err.find("Del ERROR!: ") != std::string::npos, one.set == -1);
    }
}

// Writes to a path with one item's flag on, and tells whether it marked the configuration.
bool marks(TestDaemon &daemon, const std::string &item, const std::string &path,
           const char *flag = "1") {
    daemon.put("/aparray/sync/" + item, flag);
    array_cfg_dirty = 0;
    cfg_set("x", "%s", path.c_str());
    daemon.put("/aparray/sync/" + item, "");
    return std::exchange(array_cfg_dirty, 0) == 1;
}

// What the commands write is in the reference, with the items that it changes. Here are the limits
// of each kind of rule, and nodes that no command writes.
TEST(ArraySync, KnowsWhatAnItemCovers) {
    TestDaemon daemon;
    const std::string slot = "/wlan/inf:1/multi/index:2/";
    const struct {
        const char *item;
        Lines hits;
        Lines misses;
    } CASES[] = {
        {"dtim",
         {},
         {"/wlan/inf:2/dtim", "/wlan/inf:1/dti", "/wlan/inf:1/dtim/x", "x/wlan/inf:1/dtim"}},
        {"dhcp", {"/lan/dhcp/x"}, {"/lan/dhcp", "/lan/dhcps/x", "/runtime/lan/dhcp/x"}},
        {"security",
         {"/wlan/inf:1/authentication", "/wlan/inf:1/wpa", "/any/wlan/inf:1/wpafoo",
          "/any/wlan/inf:1/wepkey"},
         {"/wlan/inf:1/defkey2", "/wlan/inf:2/wpa/wepkey"}},
        {"multi/ssid",
         {slot + "ssid_hidden"},
         {"/wlan/inf:2/multi/index:2/ssid", "/wlan/inf:1/ssid"}},
        {"multi/security",
         {slot + "radius_server", slot + "radius_port", slot + "radius_secret", slot + "acctstate",
          slot + "acctserver", slot + "acctport", slot + "acctsecret"},
         {slot + "radius_", slot + "wep_key"}},
        {"wmm", {}, {"/wlan/inf:1/wmm/enable"}},
        {"acl",
         {"/wlan/inf:1/multi/index:7/w_partition"},
         {"/wlan/inf:1/multi/index:8/w_partition"}},
        {"qos",
         {"/lan/ethernet/updownlink", "/wlan/inf:1/updownlink", "/trafficctrl/x"},
         {"/qos", "/wlan/inf:1/wds/list"}},
        {"schedule", {"/schedule/x"}, {}},
        {"log", {"/security/log/x"}, {"/sys/login"}},
        {"system", {"/sys/systemName", "/sys/systemLocation"}, {"/sys/systemlocation"}},
        {"consoleprotocol", {"/sys/consoleprotocol/protocol", "/sys/consoleprotocol/timeout"}, {}},
    };
    for (const auto &one : CASES) {
        for (const std::string &path : one.hits)
            EXPECT_TRUE(marks(daemon, one.item, path)) << one.item << ' ' << path;
        for (const std::string &path : one.misses)
            EXPECT_FALSE(marks(daemon, one.item, path)) << one.item << ' ' << path;
    }
}

TEST(ArraySync, ReadsFlagsAsNumbers) {
    TestDaemon daemon;
    EXPECT_TRUE(marks(daemon, "dtim", "/wlan/inf:1/dtim", "01"));
    // 128 characters of them.
    const std::string cut = std::string(127, '0') + "11";
    EXPECT_TRUE(marks(daemon, "dtim", "/wlan/inf:1/dtim", cut.c_str()));
    for (const char *flag : {"0", "", "on", "2", "-1", "11"})
        EXPECT_FALSE(marks(daemon, "dtim", "/wlan/inf:1/dtim", flag)) << flag;
    // Once set it stays, whatever is written next; a failed write marks as well.
    daemon.put("/aparray/sync/dtim", "1");
    daemon.behave(Manner::Refusal);
    capture_output([] { cfg_set("1", "/wlan/inf:1/dtim"); });
    capture_output([] { cfg_set("1", "/other"); });
    EXPECT_EQ(std::exchange(array_cfg_dirty, 0), 1U);
}

} // namespace
