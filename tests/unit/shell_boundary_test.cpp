// Words of others in command lines: no word makes the shell do anything but the one stated command.
#include "recording_shell.h"
#include "shell_boundary.h"
#include "table_walk.h"
#include "test_daemon.h"
#include "typed_line.h"

#include "shell/builtins.h"

#include <array>
#include <gtest/gtest.h>
#include <set>

namespace {

// "%" stands for the word that tries, between words that get commands past their checks.
constexpr std::array PAYLOAD_PATTERNS{
    "%", "% %", "% % % %", "% 1.2.3.4", "% 1.2.3.4 % %", "00:11:22:33:44:55 % % %", "1 %", "% 1",
};

// `path` with the words of a pattern, "%" replaced by `payload`.
std::string payload_line(const std::string &path, const std::string &pattern,
                         const std::string &payload) {
    std::string line = path + ' ';
    for (const char c : pattern)
        line += c == '%' ? payload : std::string(1, c);
    return line;
}

// Words that would make a shell do more than it is told if they reached it bare: run `command` (a
// word without blanks), open or close quotes, expand, redirect.
std::vector<std::string> payloads(const std::string &command) {
    return {";" + command + ";",
            "|" + command,
            "&" + command + "&",
            "&&" + command,
            "||" + command,
            "$(" + command + ")",
            "`" + command + "`",
            "a>" + command,
            "a<" + command,
            "';" + command + ";'",
            "\";" + command + ";\"",
            "\\';" + command + ";\\'",
            "'\"'\"';" + command,
            "\\",
            "'",
            "$IFS*?[a]{b,c}~!!#^=",
            "-",
            "--;" + command,
            "\x01\x7f\xff;" + command,
            std::string(1000, '\'') + ";" + command};
}

// A command with a pattern of words that get into the command line which it runs.
using CommandWithWords = std::pair<std::string, std::string>;

// Dispatches lines on a level (see debug_locked) and tells what they run through the shell.
class Administrator {
public:
    explicit Administrator(std::int32_t level) : level_(level) {}
    Administrator(const Administrator &) = delete;
    Administrator &operator=(const Administrator &) = delete;
    ~Administrator() { debug_locked = -1; }

    std::vector<std::string> run(const std::string &line) {
        debug_locked = level_; // each time: `orvik` is among the commands
        type_line(line);
        return shell_.take_lines();
    }

    // Checks that words which try to reach the shell arrive as they were typed.
    void try_payloads(const CommandWithWords &command) {
        std::vector<std::string> words = payloads(">/canary");
        words.emplace_back(4000, ';');
        for (const std::string &word : words) {
            for (const std::string &line : run(payload_line(command.first, command.second, word)))
                EXPECT_EQ(boundary_fault(line, {word}), "") << command.first;
        }
    }

    TestDaemon &daemon() { return daemon_; }

private:
    TestDaemon daemon_;
    RecordingShell shell_;
    std::int32_t level_;
};

bool holds_mark(const std::string &line) {
    return line.find("mark") != std::string::npos;
}

std::set<CommandWithWords> find_commands(Administrator &administrator) {
    std::set<CommandWithWords> found;
    walk_tables([&](const CliCommand &row, const std::string &path) {
        // These end the process, and touch a file of the host.
        if (row.subtable != nullptr || row.handler == exit_console || path == "isfactorydefault")
            return;
        for (const char *pattern : PAYLOAD_PATTERNS) {
            const auto lines = administrator.run(payload_line(path, pattern, "mark"));
            if (std::any_of(lines.begin(), lines.end(), holds_mark))
                found.emplace(path, pattern);
        }
    });
    return found;
}

// Tries all that take words, which must be those of `expected`.
void expect_no_escape(std::int32_t level, const std::set<std::string> &expected) {
    Administrator administrator(level);
    std::set<std::string> tried;
    for (const CommandWithWords &command : find_commands(administrator)) {
        tried.insert(command.first);
        administrator.try_payloads(command);
    }
    EXPECT_EQ(tried, expected);
}

TEST(ShellBoundary, LockedCommandsRunNothingElse) {
    expect_no_escape(-1, {"ping", "tftp getconfig", "tftp getfirmware", "tftp getxmlconfig",
                          "tftp putconfig", "tftp putxmlconfig"});
}

TEST(ShellBoundary, UnlockedCommandsRunNothingElse) {
    expect_no_escape(0, {"ftp getconfig", "ftp getfirmware", "ftp putconfig", "mfc button",
                         "mfc freset", "mfc init", "mfc led", "mfc setcountrycode", "mfc wlan_24",
                         "mfc wlan_5", "ping", "set hwrev", "set macaddress", "tftp getconfig",
                         "tftp getfirmware", "tftp getxmlconfig", "tftp putconfig",
                         "tftp putxmlconfig"});
}

TEST(ShellBoundary, WordsOfTheDatabaseRunNothingElse) {
    Administrator administrator(0);
    std::size_t ran = 0;
    for (const char *switched_on : {"/sys/snmpd/status", "/sys/snmptrap/status"})
        administrator.daemon().put(switched_on, "1");
    for (const std::string &word : payloads(">/canary")) {
        administrator.daemon().put("/sys/snmpd/hostip:1", word);
        administrator.daemon().put("/sys/snmpd/commorun:1", word);
        for (const char *version : {"1", "2"}) {
            administrator.daemon().put("/sys/snmpd/secumodel:1", version);
            for (const std::string &line : administrator.run("snmp sendtrap")) {
                EXPECT_EQ(boundary_fault(line, {word}), "");
                ++ran;
            }
        }
    }
    // The last one does not fit when it is quoted.
    EXPECT_EQ(ran, 2 * (payloads("").size() - 1));
}

} // namespace
