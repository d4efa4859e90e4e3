// The stand-in's database daemon: the rules of its tree, its files, its requests, its server.

#include "unix_socket.h"
#include "xmldb/config_file.h"
#include "xmldb/journal_writer.h"
#include "xmldb/node_tree.h"
#include "xmldb/request_handler.h"
#include "xmldb/server.h"

#include <cstring>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sys/socket.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

using namespace std::chrono_literals;
using namespace std::string_literals;

// A directory of the test's own, removed at its end.
class ScratchDirectory {
public:
    ScratchDirectory() {
        char pattern[] = "/tmp/wap-device-XXXXXX";
        path_ = mkdtemp(pattern);
    }
    ScratchDirectory(const ScratchDirectory &) = delete;
    ScratchDirectory &operator=(const ScratchDirectory &) = delete;
    ~ScratchDirectory() { std::filesystem::remove_all(path_); }

    [[nodiscard]] std::string file(const char *name) const { return path_ + '/' + name; }

private:
    std::string path_;
};

std::string contents(const std::string &file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

NodeTree tree_of(std::initializer_list<std::pair<const char *, const char *>> nodes) {
    NodeTree tree;
    for (const auto &[path, value] : nodes)
        tree.set(path, value);
    return tree;
}

std::string request(std::uint16_t action, const std::string &text, std::uint32_t flags = 0) {
    const XmldbRequestHeader header{action, static_cast<std::uint16_t>(text.size() + 1), flags, {}};
    return std::string(reinterpret_cast<const char *>(&header), sizeof header) + text + '\0';
}

std::int32_t status_of(const std::string &reply) {
    XmldbStatusReply status{};
    EXPECT_EQ(reply.size(), sizeof status);
    std::memcpy(&status, reply.data(), std::min(reply.size(), sizeof status));
    return status.result;
}

TEST(NodeTree, SlashesAroundAndBetweenSegmentsDoNotCount) {
    NodeTree tree;
    tree.set("/qos/rule/index:1/name/", "voice");
    for (const char *path :
         {"/qos/rule/index:1/name", "qos/rule/index:1/name/", "//qos//rule/index:1/name"})
        EXPECT_EQ(tree.get(path), "voice") << path;
    EXPECT_EQ(tree.get("/qos/rule/index:01/name"), "");
    EXPECT_EQ(tree.get("/QOS/rule/index:1/name"), "");
}

TEST(NodeTree, FirstRadioHasAnOlderName) {
    NodeTree tree;
    tree.set("/wireless/wepkey:1", "key");
    EXPECT_EQ(tree.get("/wlan/inf:1/wepkey:1"), "key");
    tree.set("wlan/inf:1/ssid", "name");
    EXPECT_EQ(tree.get("//wireless//ssid"), "name");
    EXPECT_EQ(tree.get("/runtime/wireless/ssid") + tree.get("/wirelessx/ssid"), "");
    tree.remove("/wireless/wepkey:1");
    EXPECT_EQ(tree.get("/wlan/inf:1/wepkey:1"), "");
}

TEST(NodeTree, RefusesPathsWithoutASegmentOrTooDeep) {
    NodeTree tree;
    EXPECT_FALSE(tree.set("/", "x"));
    EXPECT_FALSE(tree.remove(""));
    std::string path;
    for (int depth = 0; depth < NodeTree::MAX_DEPTH; ++depth)
        path += "//a";
    EXPECT_TRUE(tree.set(path, "deepest"));
    EXPECT_FALSE(tree.set(path + "/a", "x"));
    EXPECT_EQ(tree.nodes().size(), 1U);
}

TEST(NodeTree, DeletingTakesWhatIsBelowAndLeavesAHole) {
    NodeTree tree = tree_of({{"/v/index:1/vid", "1"},
                             {"/v/index:2/vid", "2"},
                             {"/v/index:2", "x"},
                             {"/v/index:2-b/vid", "4"},
                             {"/v/index:20/vid", "20"}});
    EXPECT_TRUE(tree.remove("/v/index:2/"));
    EXPECT_EQ(tree.get("/v/index:2"), "");
    EXPECT_EQ(tree.get("/v/index:2/vid"), "");
    EXPECT_EQ(tree.get("/v/index:1/vid"), "1");
    EXPECT_EQ(tree.get("/v/index:2-b/vid"), "4");
    EXPECT_EQ(tree.get("/v/index:20/vid"), "20");
    EXPECT_TRUE(tree.remove("/v/never")) << "what is not there is deleted already";
}

TEST(NodeTree, CountsInstancesOnce) {
    NodeTree tree = tree_of({{"/v/index:1/a", "1"},
                             {"/v/index:1/b", "1"},
                             {"/v/index:1-x", "1"},
                             {"/v/index:3/sys:1/egress", "1"},
                             {"/v/indexes:9/a", "1"}});
    EXPECT_EQ(tree.get("/v/index#"), "3");
    EXPECT_EQ(tree.get("/v/index:3/sys#"), "1");
    EXPECT_EQ(tree.get("/w/index#"), "0");
    tree.remove("/v/index:1");
    EXPECT_EQ(tree.get("v/index#"), "2");
}

TEST(NodeTree, SnmpTablesCloseTheGapOfADeletedRow) {
    NodeTree tree;
    for (int row = 1; row <= 11; ++row)
        tree.set("/sys/snmpd/secuname:" + std::to_string(row), "user" + std::to_string(row));
    tree.set("/sys/snmpd/mapgroup:3", "g3");
    tree.set("/sys/snmpd/secuname:04", "odd");
    tree.remove("/sys/snmpd/secuname:2");
    EXPECT_EQ(tree.get("/sys/snmpd/secuname:1"), "user1");
    EXPECT_EQ(tree.get("/sys/snmpd/secuname:2"), "user3");
    EXPECT_EQ(tree.get("/sys/snmpd/secuname:10"), "user11");
    EXPECT_EQ(tree.get("/sys/snmpd/secuname:11"), "");
    EXPECT_EQ(tree.get("/sys/snmpd/secuname:04"), "odd");
    EXPECT_EQ(tree.get("/sys/snmpd/mapgroup:3"), "g3") << "each column moves by itself";
    tree.remove("/sys/snmpd/mapgroup:2");
    EXPECT_EQ(tree.get("/sys/snmpd/mapgroup:2"), "g3") << "also where the deleted row had none";
    tree.set("/sys/snmpd/secuname:1", "");
    EXPECT_EQ(tree.get("/sys/snmpd/secuname:2"), "user3") << "emptying a row is not deleting it";
}

TEST(NodeTree, ReplacesSettingsAndRuntimeValuesApart) {
    NodeTree tree = tree_of({{"/a", "1"}, {"/b", "2"}, {"/runtime/up", "9"}, {"/rumtime/x", "8"}});
    tree.replace_by(tree_of({{"/a", "new"}}));
    EXPECT_EQ(tree.get("/a") + tree.get("/b") + tree.get("/runtime/up") + tree.get("/rumtime/x"),
              "new98");
    tree.replace_by(tree_of({{"/runtime/down", "7"}}));
    EXPECT_EQ(tree.get("/a") + tree.get("/runtime/up") + tree.get("/runtime/down"), "new7");
}

TEST(ConfigFile, BothFormsKeepEveryTextAndSegment) {
    const NodeTree tree = tree_of({{"/wlan/inf:1/ssid", " two  blanks = <&\"'> \\ "},
                                   {"/wlan/inf:02/ssid", "line\nline\r\n\ttab"},
                                   {"/wlan/inf:", "\x01\xff\xc3\xa4"},
                                   {"/sys/24:7/!&/node:3/node", "odd"},
                                   {"/runtime/x", "y"}});
    for (const std::string &document :
         {tree_to_xml(tree, Selection::ALL), tree_to_text(tree, Selection::ALL)}) {
        const auto parsed = parse_tree(document);
        ASSERT_TRUE(parsed) << document;
        EXPECT_EQ(parsed->nodes(), tree.nodes()) << document;
    }
    const auto settings = parse_tree(tree_to_text(tree, Selection::SETTINGS));
    ASSERT_TRUE(settings);
    EXPECT_EQ(settings->nodes().count("runtime/x"), 0U);
    EXPECT_EQ(settings->nodes().size(), tree.nodes().size() - 1);
}

TEST(ConfigFile, RefusesWhatItCannotReadWhole) {
    std::string deep = "<a value='1'/>";
    for (int i = 0; i < 1000; ++i)
        deep = "<a>" + deep + "</a>"; // NOLINT(performance-inefficient-string-concatenation)
    for (const std::string &document :
         {""s, "# nothing\n"s, "/a = 1\nrubbish\n"s, "/a=1\n"s, "a = 1\n"s, "/ = 1\n"s, "\0\0"s,
          "<config><a value='1'/>"s, "<config/>"s, "<other><a value='1'/></other>"s,
          "<config>" + deep + "</config>"})
        EXPECT_FALSE(parse_tree(document)) << document.substr(0, 40);
    const ScratchDirectory scratch;
    EXPECT_FALSE(load_tree_file(scratch.file("absent")));
    EXPECT_FALSE(load_tree_file(scratch.file("")));
    EXPECT_EQ(mkfifo(scratch.file("pipe").c_str(), 0600), 0);
    EXPECT_FALSE(load_tree_file(scratch.file("pipe"))) << "must not wait for a writer";
}

TEST(ConfigFile, KeepsTheOldFileWhenTheNewOneCannotBeWritten) {
    const ScratchDirectory scratch;
    EXPECT_EQ(mkfifo(scratch.file("config.new").c_str(), 0666), 0);
    ASSERT_TRUE(replace_file(scratch.file("config"), "old"));
    EXPECT_EQ(std::filesystem::status(scratch.file("config")).permissions(),
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    std::filesystem::create_directory(scratch.file("config.new"));
    EXPECT_FALSE(replace_file(scratch.file("config"), "new"));
    EXPECT_EQ(contents(scratch.file("config")), "old");
}

TEST(JournalWriter, DoesNotWaitForAReader) {
    const ScratchDirectory scratch;
    ASSERT_EQ(mkfifo(scratch.file("journal").c_str(), 0600), 0);
    JournalWriter(scratch.file("journal").c_str()).record("ran", "x");
}

class RequestHandlerTest : public testing::Test {
protected:
    std::string answer(std::uint16_t action, const std::string &text, std::uint32_t flags = 0) {
        return handler.answer(request(action, text, flags));
    }

    const ScratchDirectory scratch;
    const std::string journal_file = scratch.file("journal");
    const JournalWriter journal{journal_file.c_str()};
    NodeTree tree;
    RequestHandler handler{tree, journal};
};

TEST_F(RequestHandlerTest, JournalsWritesAndDeletionsAsReceived) {
    EXPECT_EQ(status_of(answer(XMLDB_SET, "wireless/x/ a  b ")), 0);
    EXPECT_EQ(status_of(answer(XMLDB_SET, "/lan/y ")), 0);
    EXPECT_EQ(status_of(answer(XMLDB_SET, "/lan/z l\n\x1b")), 0);
    EXPECT_EQ(status_of(answer(XMLDB_SET, "/quiet 1", XMLDB_UNJOURNALED)), 0);
    EXPECT_EQ(status_of(answer(XMLDB_DEL, "/wireless/x")), 0);
    EXPECT_EQ(contents(journal_file),
              "wrote wireless/x/ = a  b \nwrote /lan/y = \nwrote /lan/z = l\\n\\x1b\n"
              "deleted /wireless/x\n");
    EXPECT_EQ(answer(XMLDB_GET, "quiet"), "1\0"s);
    EXPECT_EQ(answer(XMLDB_GET, "/wlan/inf:1/x"), "\0"s);
}

TEST_F(RequestHandlerTest, RefusesWhatItCannotCarryOut) {
    for (const char *text : {"", " ", " value", "/ value", "/path/cut/sho"})
        EXPECT_EQ(status_of(answer(XMLDB_SET, text)), -1) << text;
    EXPECT_EQ(status_of(answer(XMLDB_DEL, "/")), -1);
    for (const std::uint16_t action : std::initializer_list<std::uint16_t>{0, 4, 5, 8, 99, 65535})
        EXPECT_EQ(status_of(answer(action, "/x y")), -1) << action;
    for (const std::uint16_t action : std::initializer_list<std::uint16_t>{6, 7, 10})
        EXPECT_EQ(answer(action, "/x"), "\0"s) << action;
    EXPECT_EQ(status_of(answer(XMLDB_LOAD, scratch.file("absent"))), -1);
    EXPECT_EQ(status_of(answer(XMLDB_SAVE, scratch.file("no/such"))), -1);
    EXPECT_TRUE(tree.nodes().empty());
    EXPECT_EQ(contents(journal_file), "");
}

TEST_F(RequestHandlerTest, TakesTextsWithoutAnEndOrWithMoreBehindIt) {
    tree.set("/a", "1");
    std::string no_end = request(XMLDB_GET, "/");
    no_end.back() = 'a';
    EXPECT_EQ(handler.answer(no_end), "1\0"s);
    EXPECT_EQ(answer(XMLDB_GET, "/a\0/b"s), "1\0"s);
    XmldbRequestHeader empty{XMLDB_GET, 0, 0, {}};
    EXPECT_EQ(handler.answer({reinterpret_cast<const char *>(&empty), sizeof empty}), "\0"s);
    const std::string whole = request(XMLDB_GET, "/a");
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_EQ(RequestHandler::request_size(whole.substr(0, size)), 0U) << size;
    EXPECT_EQ(RequestHandler::request_size(whole + whole), whole.size());
}

TEST_F(RequestHandlerTest, CountsTheUptimeOnFromWhatIsWritten) {
    static std::chrono::seconds now;
    now = {};
    tree.set("/runtime/sys/uptime", "100");
    RequestHandler counting{tree, journal, [] { return now; }};
    const auto uptime = [&] { return counting.answer(request(XMLDB_GET, "runtime//sys/uptime")); };
    now += 5s;
    EXPECT_EQ(uptime(), "105\0"s);
    counting.answer(request(XMLDB_SET, "/runtime/sys/uptime 7"));
    EXPECT_EQ(uptime(), "7\0"s);
    now += 1s;
    EXPECT_EQ(uptime(), "8\0"s);
    for (const std::string text : {"", "7x"}) {
        counting.answer(request(XMLDB_SET, "/runtime/sys/uptime " + text));
        now += 1s;
        EXPECT_EQ(uptime(), text + '\0');
    }
}

TEST_F(RequestHandlerTest, SavesAndLoadsTheSettings) {
    answer(XMLDB_SET, "/a 1");
    answer(XMLDB_SET, "/runtime/b 2");
    answer(XMLDB_SET, "/emptied "); // is in no file, as if it had never been written
    const std::string file = scratch.file("config.xml");
    EXPECT_EQ(status_of(answer(XMLDB_SAVE, file)), 0);
    answer(XMLDB_SET, "/a changed");
    answer(XMLDB_SET, "/runtime/b 3");
    EXPECT_EQ(status_of(answer(XMLDB_LOAD, file)), 0);
    EXPECT_EQ(answer(XMLDB_DUMP, "all"), "/a = 1\n/runtime/b = 3\n\0"s);
    EXPECT_EQ(answer(XMLDB_DUMP, "settings"), "/a = 1\n\0"s);
}

// A server in a thread of its own, until the test's end.
class ServerTest : public RequestHandlerTest {
protected:
    void SetUp() override {
        ASSERT_TRUE(server.listen_on(socket_path)); // clients can connect from here on
        thread = std::thread([this] { server.run(); });
    }
    void TearDown() override {
        const UniqueFd fd = connected();
        put(fd, request(XMLDB_STOP, ""));
        thread.join();
    }

    [[nodiscard]] UniqueFd connected() const { return connect_to(socket_path, SOCK_STREAM); }
    static void put(const UniqueFd &fd, const std::string &bytes) {
        EXPECT_EQ(send(fd.get(), bytes.data(), bytes.size(), MSG_NOSIGNAL),
                  static_cast<ssize_t>(bytes.size()));
    }
    // The next `size` bytes from the daemon, fewer when it closes before.
    static std::string take(const UniqueFd &fd, std::size_t size) {
        std::string bytes(size, '\0');
        const ssize_t length = recv(fd.get(), bytes.data(), size, MSG_WAITALL);
        return bytes.substr(0, static_cast<std::size_t>(std::max<ssize_t>(length, 0)));
    }
    void expect_service() const {
        const UniqueFd fd = connected();
        put(fd, request(XMLDB_SET, "/alive yes"));
        EXPECT_EQ(status_of(take(fd, sizeof(XmldbStatusReply))), 0);
        put(fd, request(XMLDB_GET, "/alive"));
        EXPECT_EQ(take(fd, 4), "yes\0"s);
    }

    const std::string socket_path = scratch.file("sock");
    Server server{handler};
    std::thread thread;
};

TEST_F(ServerTest, ServesThroughBadClients) {
    const UniqueFd slow = connected();
    const std::string wanted = request(XMLDB_SET, "/slow "s + std::string(60000, 'x'));
    put(slow, wanted.substr(0, 5));
    (void)connected();
    put(connected(), request(XMLDB_GET, "/slow")); // asks and goes
    const UniqueFd cut = connected();              // announces more than it sends
    put(cut, request(XMLDB_SET, "/cut value").substr(0, 20));
    shutdown(cut.get(), SHUT_WR);
    EXPECT_EQ(take(cut, 1), "");
    expect_service();
    put(slow, wanted.substr(5, 1000));
    expect_service();
    put(slow, wanted.substr(1005));
    EXPECT_EQ(status_of(take(slow, sizeof(XmldbStatusReply))), 0);
    put(slow, request(XMLDB_GET, "/cut"));
    EXPECT_EQ(take(slow, 1), "\0"s);
}

TEST_F(ServerTest, AnswersManyRequestsOfOneConnectionInOrder) {
    const UniqueFd fd = connected();
    std::string bytes = request(XMLDB_SET, "/big "s + std::string(60000, 'b'));
    constexpr std::size_t GETS = 50; // more replies than a socket buffers
    for (std::size_t i = 0; i < GETS; ++i)
        bytes += request(XMLDB_GET, "/big");
    std::thread writer([&] {
        put(fd, bytes);
        shutdown(fd.get(), SHUT_WR);
    });
    EXPECT_EQ(status_of(take(fd, sizeof(XmldbStatusReply))), 0);
    expect_service();
    EXPECT_EQ(take(fd, GETS * 60001 + 1).size(), GETS * 60001);
    writer.join();
}

} // namespace
