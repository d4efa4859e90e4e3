// The stand-in device from outside: its walls, its terminals, its sessions; each by what keeps it
// in here, and as root in a directory, too.
//
// usage: stand_in_test --device DIRECTORY --root DIRECTORY --program PATH [GoogleTest's options]
//   --device   where the scripts are that start it

#include "scratch_directory.h"
#include "session/journal_reader.h"
#include "session/pty_process.h"

#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <set>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <termios.h>
#include <unistd.h>

namespace fs = std::filesystem;
using session::PtyProcess;

namespace {

std::string device_scripts;
std::string device_root;
std::string console_program;

constexpr std::chrono::seconds LIMIT{20};
constexpr winsize WINDOW{30, 100, 0, 0};

// A program on a terminal of the test's, as a developer's.
class OnTerminal {
public:
    explicit OnTerminal(const std::vector<std::string> &command)
        : process_(command, session::ConsoleInput::TERMINAL, WINDOW) {}

    // Types a line and waits until `answer` has been printed behind what there was.
    void type(const std::string &line, const std::string &answer) {
        press(line + '\r');
        expect(answer);
    }
    void press(const std::string &keys) { process_.write_input(keys, printed_); }
    void expect(const std::string &answer) {
        const auto deadline = std::chrono::steady_clock::now() + LIMIT;
        bool open = process_.read_output(printed_);
        while (printed_.find(answer, seen_) == std::string::npos) {
            ASSERT_TRUE(open && std::chrono::steady_clock::now() < deadline) << printed_;
            usleep(1000);
            open = process_.read_output(printed_);
        }
        seen_ = printed_.find(answer, seen_) + answer.size();
    }
    int status() { return process_.wait_exit(LIMIT); }
    void resize(const winsize &window) { process_.set_window(window); }
    void send_signal(int number) {
        syscall(SYS_pidfd_send_signal, process_.process_fd(), number, nullptr, 0);
    }
    // Whether it is as a shell leaves it to a program.
    [[nodiscard]] bool is_as_found() const {
        constexpr tcflag_t COOKED = ICANON | ECHO | ISIG;
        termios settings{};
        tcgetattr(process_.output_fd(), &settings);
        return (settings.c_lflag & COOKED) == COOKED && (settings.c_iflag & ICRNL) != 0;
    }
    // The names of the programs that have the terminal open.
    [[nodiscard]] std::set<std::string> holders() const {
        std::set<std::string> names;
        std::array<char, 64> terminal{};
        ptsname_r(process_.output_fd(), terminal.data(), terminal.size());
        std::error_code ignored;
        for (const auto &process : fs::directory_iterator("/proc")) {
            for (const auto &fd : fs::directory_iterator(process.path() / "fd", ignored)) {
                std::string name;
                if (fs::read_symlink(fd, ignored) == terminal.data() &&
                    std::getline(std::ifstream(process.path() / "comm"), name))
                    names.insert(name);
            }
        }
        return names;
    }

private:
    PtyProcess process_;
    std::string printed_;
    std::size_t seen_ = 0;
};

// Whether a process has `word` in its command line.
bool runs(const std::string &word) {
    bool found = false;
    for (const auto &process : fs::directory_iterator("/proc")) {
        std::string line;
        std::getline(std::ifstream(process.path() / "cmdline"), line);
        found = found || line.find(word) != std::string::npos;
    }
    return found;
}

class StandIn : public testing::TestWithParam<const char *> {
protected:
    void SetUp() override {
        if (GetParam() != std::string("directory"))
            return;
        if (geteuid() != 0)
            GTEST_SKIP() << "takes root";
        fs::create_directory(scratch.file("bin"));
        std::ofstream(scratch.file("bin/bwrap")) << "#!/bin/sh\necho no namespaces >&2\nexit 1\n";
        fs::permissions(scratch.file("bin/bwrap"), fs::perms::owner_all);
        setenv("PATH", (scratch.file("bin") + ':' + path_before).c_str(), 1);
    }
    void TearDown() override {
        setenv("PATH", path_before.c_str(), 1);
        wait_until_down();
    }

    // The lock lives as long as the device.
    void wait_until_down() const {
        const UniqueFd lock(open((state + "/lock").c_str(), O_RDWR | O_CLOEXEC));
        flock(lock.get(), LOCK_EX);
    }

    [[nodiscard]] std::vector<std::string> shell(const std::string &script = "") const {
        // A shell that leaves the terminal alone while it reads.
        std::vector<std::string> command{
            device_scripts + "/enter", "--root", device_root, "--state", state, "--", "/bin/dash"};
        if (!script.empty())
            command.insert(command.end(), {"-c", script});
        return command;
    }
    // What a script prints that the device runs on pipes. It holds no single quote.
    [[nodiscard]] std::string run(const std::string &script, const std::string &option = "") const {
        return outside(device_scripts + "/enter " + option + " --root " + device_root +
                       " --state " + state + " -- /bin/busybox sh -c '" + script + "'");
    }
    // What a shell command on the host prints.
    [[nodiscard]] static std::string outside(const std::string &command) {
        std::string printed;
        FILE *pipe = popen(("{ " + command + "; } 2>&1 </dev/null").c_str(), // NOLINT(cert-env33-c)
                           "r");
        for (int c = 0; (c = std::fgetc(pipe)) != EOF;)
            printed += static_cast<char>(c);
        pclose(pipe);
        return printed;
    }
    // An SSH client's command line as far as the host.
    [[nodiscard]] std::string ssh() const {
        return "ssh -F none -o StrictHostKeyChecking=accept-new -o LogLevel=ERROR"
               " -o UserKnownHostsFile=" +
               scratch.file("known_hosts") + " -o 'ProxyCommand=" + device_scripts +
               "/ssh --root " + device_root + " --program " + console_program + " --state " +
               state + "' admin@ap";
    }
    // What a script on the host prints, to which "client" is that command.
    [[nodiscard]] std::string over_ssh(const std::string &script) const {
        return outside("client() { command " + ssh() + " \"$@\"; }; " + script);
    }

    const std::string path_before = std::getenv("PATH");
    const ScratchDirectory scratch;
    const std::string state = scratch.file("state");
};

TEST_P(StandIn, KeepsTheHostOutOfReach) {
    EXPECT_EQ(run("exec 3>&1 >/dev/null 2>&1; date -s 2001-01-01; [ $(date +%Y) = 2001 ] && echo "
                  "clock >&3;"
                  "for file in $(find /proc/sys /proc/sysrq-trigger -type f); do"
                  "    (echo >>$file) && echo $file >&3; done;"
                  "busybox reboot -f && echo reboot >&3; mknod /tmp/m b 8 0 && echo mknod >&3;"
                  "for place in / /bin /sbin /etc /usr/sbin /lib; do"
                  "    touch $place/x && echo $place >&3; done;"
                  "unshare -U true && echo namespace >&3; echo tried >&3"),
              "tried\n");
    EXPECT_EQ(run("/bin/sh -c -- \"echo ran\"; cat /var/journal"), "ran\nran echo ran\n");
}

TEST_P(StandIn, HasATerminalOfItsOwn) {
    OnTerminal console(shell());
    console.type("PS1=pro''mpt; stty size", "30 100\nprompt");
    console.resize({20, 50, 0, 0});
    console.type("stty size", "20 50\nprompt");
    for (const char *key : {"\x03", "\x1a"}) {
        console.type("cat", "cat");
        console.type("mark", "mark\nmark"); // it is there, and reads
        console.press(key);
        console.expect("prompt");
        console.type("echo status $?", "status 1");
        console.expect("prompt");
    }
    if (fs::exists("/proc/self")) { // which shows them
        EXPECT_EQ(console.holders(), std::set<std::string>{"wap-session"});
    }
    EXPECT_FALSE(console.is_as_found());
    console.type("exec /bin/sh -c \"exit 7\"", "");
    EXPECT_EQ(console.status(), 7);
    EXPECT_TRUE(console.is_as_found());
    EXPECT_EQ(run("[ -t 0 ] || [ -t 1 ] || [ -t 2 ] || echo pipes"), "pipes\n");
}

TEST_P(StandIn, RecordsASessionUpToItsReboot) {
    OnTerminal console({device_root + "/../session/wap-session", "--record", scratch.file("record"),
                        "--journal", state + "/var/journal", "--", device_scripts + "/enter",
                        "--own-terminal", "--root", device_root, "--program", console_program,
                        "--state", state});
    console.expect("WAP-> ");
    console.type("orvik kqv80417", "WAP-> ");
    console.type("shell", "built-in shell");
    console.resize({20, 50, 0, 0});
    console.type("stty size; exit", "20 50");
    console.expect("WAP-> ");
    console.type("reboot", "going down");
    EXPECT_EQ(console.status(), 128 + SIGTERM);
    EXPECT_TRUE(console.is_as_found());
    EXPECT_EQ(outside("grep reboot " + state + "/var/journal"), "ran reboot\ndid reboot\n");
    EXPECT_EQ(outside("grep -c reboot " + scratch.file("record")), "3\n");
}

TEST_P(StandIn, LeavesTheTerminalAsItWas) {
    for (const int number : {SIGTERM, SIGHUP, SIGINT, SIGKILL}) {
        OnTerminal console(shell());
        console.type("echo u''p", "up\n");
        console.send_signal(number);
        EXPECT_EQ(console.status(), 128 + number);
        for (int looks = 0; looks < 5000 && !console.is_as_found(); ++looks)
            usleep(1000);
        EXPECT_TRUE(console.is_as_found()) << number;
    }
    OnTerminal console(shell());
    console.type("kill -9 $$", "");
    EXPECT_EQ(console.status(), 128 + SIGKILL);
    EXPECT_TRUE(console.is_as_found());
}

TEST_P(StandIn, IsSharedAndLivesUntilItsLastUserLeaves) {
    OnTerminal first(shell());
    first.type("rgdb -s /x 1; setsid sleep 86399 & touch /tmp/here; echo st''arted", "started");
    OnTerminal second(shell("rgdb -g /x; read x; ls /tmp; rgdb -g /x"));
    second.expect("1");
    EXPECT_EQ(run("tty || ls /tmp"), "not a tty\nhere\n");
    EXPECT_NE(run("echo joined", "--factory").find("runs"), std::string::npos);
    first.type("exit", "");
    EXPECT_EQ(first.status(), 0);
    second.type("", "here");
    second.expect("1");
    EXPECT_EQ(second.status(), 0);
    // Nothing of it is left: not its files, and no process.
    EXPECT_EQ(run("ls /tmp; rgdb -g /x"), "\n");
    EXPECT_FALSE(runs("86399"));
}

TEST_P(StandIn, StartsAfresh) {
    OnTerminal killed(shell());
    killed.type("touch /var/here; setsid sleep 86398 & echo st''arted", "started");
    killed.send_signal(SIGKILL);
    wait_until_down();
    EXPECT_FALSE(runs("86398"));
    EXPECT_EQ(run("ls /var/here 2>/dev/null || mkdir -p /var/a/b /tmp/c &&"
                  "chmod 0 /var/a /tmp/c /flash /server && echo chmod"),
              "chmod\n");
    EXPECT_EQ(run("ls /var/a /tmp/c 2>/dev/null; touch /flash/x /server/x && echo fine"), "fine\n");
}

TEST_P(StandIn, TakesSshClients) {
    EXPECT_EQ(over_ssh("client 'get ssid'; echo $?"), "SSID:WAP\n0\n");
    EXPECT_EQ(over_ssh("client 'set dtim 99'; echo $?"),
              "No dtim!\nwap-sh: line 1: set dtim 99\n1\n");
    EXPECT_EQ(over_ssh("printf 'a\\nb\\nc\\n' >" + scratch.file("hosts") +
                       "; while read -r host; do echo $host; client -n 'get ssid'; done <" +
                       scratch.file("hosts")),
              "a\nSSID:WAP\nb\nSSID:WAP\nc\nSSID:WAP\n");

    OnTerminal console({"/bin/sh", "-c", "exec " + ssh()});
    console.expect("WAP-> ");
    EXPECT_EQ(over_ssh("ssids=$(seq -f 'set ssid net%g' 100); dtims=$(seq -f 'set dtim %g' 15);"
                       "client \"$ssids\" >/dev/null & client \"$dtims\" >/dev/null & wait"),
              "");
    console.type("get ssid", "SSID:net100");
    console.type("get dtim", "15");
    EXPECT_EQ(
        outside("grep -c ssid " + state + "/var/journal; grep -c dtim " + state + "/var/journal"),
        "100\n15\n");
    console.type("orvik kqv80417", "Ok");
    console.type("shell", "built-in shell");
    console.resize({20, 50, 0, 0});
    console.type("stty size; exit", "20 50");
    console.type("exit", "exit");
    EXPECT_EQ(console.status(), 0);
}

INSTANTIATE_TEST_SUITE_P(, StandIn, testing::Values("here", "directory"),
                         [](const auto &each) { return std::string(each.param); });

TEST(JournalReader, IsARegularFileOrHasNoLines) {
    const ScratchDirectory scratch;
    const std::string file = scratch.file("journal");
    const auto write = [&](const char *text) { std::ofstream(file, std::ios::app) << text; };
    write("before\n");
    session::JournalReader journal(file);
    write("one\ntw");
    EXPECT_EQ(journal.new_lines(), std::vector<std::string>{"one"});
    write("o\n");
    EXPECT_EQ(journal.new_lines(), std::vector<std::string>{"two"});
    fs::remove(file);
    fs::create_symlink("/etc/passwd", file);
    EXPECT_TRUE(journal.new_lines().empty());
    fs::remove(file);
    mkfifo(file.c_str(), 0600);
    EXPECT_TRUE(journal.new_lines().empty()) << "must not wait for a writer";
    fs::remove(file);
    write("new\n");
    EXPECT_EQ(journal.new_lines(), std::vector<std::string>{"new"});
}

} // namespace

int main(int argc, char **argv) {
    testing::InitGoogleTest(&argc, argv);
    for (int i = 1; i + 1 < argc; i += 2) {
        const std::string option = argv[i];
        (option == "--device" ? device_scripts
         : option == "--root" ? device_root
                              : console_program) = argv[i + 1];
    }
    return device_scripts.empty() || device_root.empty() || console_program.empty()
               ? 2
               : RUN_ALL_TESTS();
}
