// Matching, dispatching, listing and completing words, on small tables of our own.
#include "failing_allocation.h"
#include "typed_line.h"

#include "shell/args.h"
#include "shell/completion.h"
#include "shell/console.h"
#include "shell/listing.h"

#include <gtest/gtest.h>
#include <utility>

namespace {

std::string called; // "NAME WORD LEFT" of each leaf that ran
int leaf_result = CLI_DONE;

int leaf(CliContext &cli, const char *word, CliCommand *) {
    called += std::string(current_command->name) + ' ' + word + ' ' +
              std::to_string(arg_count(cli)) + ';';
    return leaf_result;
}

// Band masks: bits of the first radio, of the second, of both, of neither.
constinit auto acl_rows = command_table({
    {"add", "Add one", leaf},
    {"del", "Delete one", leaf},
    {"del2", "Delete two", leaf},
    {"delMore", "Delete more", leaf},
});
constinit auto set_rows = command_table({
    {"ssid", "Set SSID", leaf},
    {"ssidhidden", nullptr, leaf},
    {"autoChannel", "Set channel selection", leaf},
    {"autorekey", "Set rekeying", leaf},
    family("acl", "Set ACL", acl_rows),
    {"hidden", "Hidden row", leaf, nullptr, HIDDEN_TAG},
    {"debug", "Debug row", leaf, nullptr, DEBUG_TAG},
    {"first", "On the first radio", leaf, nullptr, nullptr, 0x4},
    {"second", "On the second radio", leaf, nullptr, nullptr, 0x200},
    {"third", "On neither radio", leaf, nullptr, nullptr, 0x20},
    {"broken", "Without its subtable", dispatch_subtable},
});
constinit auto root = command_table({
    {"?", "Display list", show_help, nullptr, HIDDEN_TAG},
    {"exit", "Logout", leaf, nullptr, HIDDEN_TAG},
    {"shell", "open shell", leaf, nullptr, DEBUG_TAG},
    family("set", nullptr, set_rows),
    family("snmp", "SNMP Commands", acl_rows),
    {"help", "Display list", show_help},
    {"ping", "Ping a host", leaf},
    {"Master", "Capital", leaf},
});

std::string listed(const std::string &path, const std::string &help) {
    return path + std::string(path.size() < 35 ? 35 - path.size() : 0, ' ') + " -- " + help + '\n';
}

const std::string HINT = "Type \"help\" for a list of valid commands.\n";
const std::string PARAMETERS = "List of valid parameter(s):\n";

// The rows of acl_rows behind the path of a table.
std::string listed_acl(const std::string &path) {
    return listed(path + " add", "Add one") + listed(path + " del", "Delete one") +
           listed(path + " del2", "Delete two") + listed(path + " delMore", "Delete more");
}

struct DispatchCase {
    const char *line;
    int result;
    const char *called;
    std::string out;
};

void expect_dispatch(const DispatchCase &one, int band = 0) {
    SCOPED_TRACE(one.line);
    called.clear();
    const CommandRun run = dispatch_line(root.data(), one.line, band);
    EXPECT_EQ(run.result, one.result);
    EXPECT_EQ(called, one.called);
    EXPECT_EQ(run.out, one.out);
}

TEST(Dispatch, FindsRowsExactlyOrByTheLongestBeginning) {
    const DispatchCase cases[] = {
        {"", 0, "", ""},
        {"   ", 0, "", ""},
        {"ping", 0, "ping ping 0;", ""},
        {"PING HOST b", 0, "ping ping 2;", ""},
        {"p x", 0, "ping p 1;", ""},
        {"exit now", 0, "exit exit 1;", ""},
        {"MASTER", 0, "Master master 0;", ""},
        // Ties go to the first row.
        {"s ss x", 0, "ssid ss 1;", ""},
        {"SET SSID x", 0, "ssid ssid 1;", ""},
        {"set ssidh", 0, "ssidhidden ssidh 0;", ""},
        {"set autoch", 0, "autoChannel autoch 0;", ""},
        {"set autoCHANNEL", 0, "autoChannel autochannel 0;", ""},
        {"set autor", 0, "autorekey autor 0;", ""},
        {"set acl del", 0, "del del 0;", ""},
        {"sn de x y", 0, "del de 2;", ""},
        {"set broken x", 1, "", ""},
        {"set fi", 0, "first fi 0;", ""},
    };
    for (const DispatchCase &one : cases)
        expect_dispatch(one);
    expect_dispatch({"set sec", 0, "second sec 0;", ""}, 1);
}

TEST(Dispatch, ReportsUnknownWords) {
    const DispatchCase cases[] = {
        {"FOO Bar %s", 5, "", "Unknown command: foo Bar %s\n" + HINT},
        {"exi", 5, "", "Unknown command: exi\n" + HINT},
        {"shell", 5, "", "Unknown command: shell\n" + HINT},
        {"mast", 5, "", "Unknown command: mast\n" + HINT},
        {"pingx", 5, "", "Unknown command: pingx\n" + HINT},
        {"set ssidx", -1, "", "Invalid parameter: ssidx\n" + HINT},
        {"set FOO Bar", -1, "", "Invalid parameter: foo Bar\n" + HINT},
        {"set debug", -1, "", "Invalid parameter: debug\n" + HINT},
        {"set hid", -1, "", "Invalid parameter: hid\n" + HINT},
        {"set second", -1, "", "Invalid parameter: second\n" + HINT},
        {"set third", -1, "", "Invalid parameter: third\n" + HINT},
        // The first of the longest matches is taken or none.
        {"set acl delm", -1, "", "Invalid parameter: delm\n" + PARAMETERS + listed_acl("")},
        {"set acl x y", -1, "", "Invalid parameter: x y\n" + PARAMETERS + listed_acl("")},
        // Of several rows that share a beginning none lists anything; the one above does.
        {"s foo", 5, "", "Invalid parameter: foo\n" + HINT},
        {"set ac x", -1, "", "Invalid parameter: x\n" + PARAMETERS + listed_acl("")},
        {"s ac x", 7, "", "Invalid parameter: x\n" + PARAMETERS},
    };
    for (const DispatchCase &one : cases)
        expect_dispatch(one);
    expect_dispatch({"set first", -1, "", "Invalid parameter: first\n" + HINT}, 1);
    expect_dispatch({"set second", -1, "", "Invalid parameter: second\n" + HINT}, 2);
    const std::string word(4000, 'w');
    EXPECT_EQ(dispatch_line(root.data(), word).out, "Unknown command: " + word + '\n' + HINT);
}

TEST(Dispatch, ShowsDebugRowsOnceUnlocked) {
    const DebugUnlocked unlocked;
    const DispatchCase cases[] = {
        {"s x", 0, "shell s 1;", ""},
        {"set deb", 0, "debug deb 0;", ""},
        // A hidden row is not found from its beginning, but it is among the rows listed then.
        {"set hid", -1, "", "Invalid parameter: hid\n" + HINT + listed("set hidden", "Hidden row")},
    };
    for (const DispatchCase &one : cases)
        expect_dispatch(one);
}

TEST(Dispatch, ListsAFamilyForItsLonelyName) {
    const std::string set_listing =
        listed("set ssid", "Set SSID") + listed("set autoChannel", "Set channel selection") +
        listed("set autorekey", "Set rekeying") + listed_acl("set acl") +
        listed("set first", "On the first radio") + listed("set broken", "Without its subtable");
    expect_dispatch({"set", 3, "", set_listing});
    expect_dispatch({"s", 3, "", set_listing});
    expect_dispatch({"set acl", 3, "", listed_acl("acl")});
    expect_dispatch({"s ac", 3, "", listed_acl("acl")});
}

TEST(Dispatch, ReadsResultsOfASingleMatchOnly) {
    const std::string root_listing = [] {
        const CommandRun help = dispatch_line(root.data(), "help");
        return help.out.substr(help.out.find('\n') + 1);
    }();
    leaf_result = CLI_UNKNOWN;
    expect_dispatch({"ping", -1, "ping ping 0;", listed("ping ping", "Ping a host")});
    expect_dispatch({"s ssi", 5, "ssid ssi 0;", ""});
    leaf_result = CLI_BAD_PARAMETER;
    expect_dispatch({"ping", -1, "ping ping 0;", root_listing});
    expect_dispatch({"s ssi", 7, "ssid ssi 0;", ""});
    leaf_result = 4;
    expect_dispatch({"set ssid", 4, "ssid ssid 0;", ""});
    leaf_result = CLI_DONE;
}

TEST(Listing, GoesAsDeepAsItsLevel) {
    TypedLine line("");
    const auto list = [&line](const char *filter, int level) {
        return capture_output([&] { cli_list(line.cli(), root.data(), "", filter, level); }).out;
    };
    EXPECT_EQ(list("s", LIST_ROWS), listed(" snmp", "SNMP Commands"));
    EXPECT_EQ(list("sn", LIST_FAMILY), listed_acl(" snmp"));
    EXPECT_EQ(list(nullptr, 5), listed(" help", "Display list") + listed(" ping", "Ping a host") +
                                    listed(" Master", "Capital"));
    EXPECT_EQ(list("del2", LIST_TREE),
              listed(" set acl del2", "Delete two") + listed(" snmp del2", "Delete two"));
    EXPECT_EQ(list("m", LIST_FAMILY), "") << "filters compare with case";
    list_first_row_only = true;
    EXPECT_EQ(list(nullptr, LIST_FAMILY), "") << "the first row is hidden";
    EXPECT_NE(list(nullptr, LIST_FAMILY), "") << "the flag serves once";
}

TEST(Listing, HelpShowsOneLevelOrTheTree) {
    const CommandRun help = dispatch_line(root.data(), "help");
    const CommandRun tree = dispatch_line(root.data(), "? x y");
    EXPECT_EQ(help.result, 0);
    const std::string heading = "List of Access Point CLI commands:\n";
    EXPECT_TRUE(help.out.starts_with(heading + listed(" set ssid", "Set SSID")));
    EXPECT_NE(help.out.find(listed(" set acl", "Set ACL")), std::string::npos);
    EXPECT_EQ(help.out.find("set acl add"), std::string::npos);
    EXPECT_TRUE(tree.out.starts_with(heading + listed(" set ssid", "Set SSID")));
    EXPECT_NE(tree.out.find(listed(" set acl add", "Add one")), std::string::npos);
    EXPECT_EQ(tree.out.find(" ?"), std::string::npos);
    const DebugUnlocked unlocked;
    const CommandRun unlocked_help = dispatch_line(root.data(), "help");
    EXPECT_TRUE(unlocked_help.out.starts_with(heading + listed(" ?", "Display list") +
                                              listed(" exit", "Logout") +
                                              listed(" shell", "open shell")));
    EXPECT_NE(unlocked_help.out.find(listed(" set hidden", "Hidden row")), std::string::npos);
}

struct Completion {
    bool fits;
    std::string line;
    std::string printed;
};

Completion complete(std::string_view before_cursor, int band = 0) {
    TypedLine typed("");
    typed.cli().current_band = band;
    char completed[LINE_BUFFER_SIZE] = "";
    Completion completion{};
    completion.printed = capture_output([&] {
                             completion.fits =
                                 complete_line(typed.cli(), root.data(), before_cursor, completed);
                         }).out;
    completion.line = completed;
    EXPECT_EQ(arg_count(typed.cli()), 0);
    EXPECT_EQ(typed.cli().ring_head, 0);
    return completion;
}

TEST(Completion, CompletesWordsAndListsCandidates) {
    const struct {
        const char *before;
        const char *line;
        std::string printed;
    } cases[] = {
        {"pi", "ping ", ""},
        {"ping", "ping ", ""},
        {"SET SSIDH", "set ssidhidden ", ""},
        {"  se   acl  a", "set acl add ", ""},
        {"set ssid", "set ssid ", ""},
        {"set autoc", "set autoChannel ", ""},
        {"s", "s", " set\n" + listed(" snmp", "SNMP Commands")},
        {"set ss", "set ssid", listed("set ssid", "Set SSID") + "set ssidhidden\n"},
        {"set au", "set auto",
         listed("set autoChannel", "Set channel selection") +
             listed("set autorekey", "Set rekeying")},
        {"set acl ", "set acl ", listed_acl("set acl")},
    };
    for (const auto &one : cases) {
        SCOPED_TRACE(one.before);
        const Completion completion = complete(one.before);
        EXPECT_TRUE(completion.fits);
        EXPECT_EQ(completion.line, one.line);
        EXPECT_EQ(completion.printed, one.printed);
    }
    EXPECT_EQ(complete("set sec", 1).line, "set second ");
    const CommandRun help = dispatch_line(root.data(), "help");
    EXPECT_EQ("List of Access Point CLI commands:\n" + complete("").printed, help.out);
}

TEST(Completion, LeavesTheRestAlone) {
    std::string words;
    for (int word = 0; word < 51; ++word)
        words += "set ";
    for (const char *before :
         {"foo", "foo ", "foo pi", "exi", "exit", "shel", "shell", "m", "ping ", "ping h",
          "set hid", "set hidden", "set deb", "set sec", "set third", words.c_str()}) {
        const Completion completion = complete(before);
        EXPECT_FALSE(completion.fits) << before;
        EXPECT_EQ(completion.printed, "") << before;
    }
    const DebugUnlocked unlocked;
    EXPECT_EQ(complete("she").line, "shell ");
    EXPECT_EQ(complete("exit").line, "exit ");
    EXPECT_FALSE(complete("exi").fits);
}

// Runs the console on a file with these lines.
CommandRun run_lines(const std::string &lines) {
    called.clear();
    std::FILE *input = std::tmpfile();
    std::fputs(lines.c_str(), input);
    std::rewind(input);
    CommandRun run{};
    const CapturedOutput output =
        capture_output([&] { run.result = run_console(input, root.data()); });
    std::fclose(input);
    run.out = output.out;
    run.err = output.err;
    return run;
}

TEST(Console, ReadsPlainLinesFromOtherStreams) {
    const std::string longest(4094 - 5, 'x');
    const CommandRun run = run_lines("ping a b\n\nping " + longest + "ping c\nexi\nset " +
                                     std::string(120, ' ') + "ssid\n" + [] {
                                         std::string words = "exit ping";
                                         for (int word = 3; word <= 51; ++word)
                                             words += " w";
                                         return words;
                                     }());
    EXPECT_EQ(run.result, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.out, "Unknown command: exi\n" + HINT);
    EXPECT_EQ(called, "ping ping 2;ping ping 1;ping ping 1;ssid ssid 0;ping ping 49;");
}

TEST(Console, ReportsMemoryThatRunsOutAtStartUp) {
    const char *messages[] = {"cwd alloc error!", "PS1 alloc error!", "command alloc error!",
                              "pCli alloc error!"};
    int nth = 1;
    for (const std::string message : messages) {
        const FailingAllocation failing(nth++);
        errno = ENOMEM;
        const CommandRun run = run_lines("ping\n");
        EXPECT_EQ(run.result, 255);
        EXPECT_EQ(run.err, message + ": Cannot allocate memory\n");
        EXPECT_EQ(called, "");
    }
    // Later on the line buffer is not renewed, and all goes on with the old one.
    leaf_result = -1;
    const FailingAllocation failing(5, true);
    EXPECT_EQ(run_lines("ping\nping\n").result, 0);
    EXPECT_EQ(called, "ping ping 0;ping ping 0;");
    EXPECT_TRUE(failing.has_failed());
    leaf_result = CLI_DONE;
}

} // namespace
