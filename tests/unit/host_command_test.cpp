// The boundary to the system shell.
#include "captured_output.h"
#include "recording_shell.h"

#include "config/host_command.h"

#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

const std::string LONG(2000, 'x');

std::string line_with(const std::string &word) {
    return CommandLine("tool %s", {ShellWord(word.c_str())}).text();
}

TEST(CommandLine, QuotesWhatIsNotHarmless) {
    EXPECT_EQ(line_with("aZ09_@%+=:,./-"), "tool aZ09_@%+=:,./-");
    EXPECT_EQ(line_with("a;sh"), "tool 'a;sh'");
    EXPECT_EQ(line_with("it's"), "tool 'it'\\''s'");
    EXPECT_EQ(line_with(""), "tool ''");
    EXPECT_EQ(line_with("\xc3\xa4"), "tool '\xc3\xa4'");
    EXPECT_STREQ(CommandLine("%d %s %s%d", {-7, ProgramText("(null)"), ShellWord("~"), 8}).text(),
                 "-7 (null) '~'8");
}

TEST(CommandLine, RunsACutLineOnlyWhenNothingQuotedIsCut) {
    const CommandLine harmless("tool %s", {ShellWord(LONG.c_str())});
    EXPECT_TRUE(harmless.is_whole());
    EXPECT_EQ(harmless.text(), "tool " + LONG.substr(0, 1018));
    // Two quotes fill the line up to its last character.
    const std::string fits = '&' + std::string(1015, 'x');
    EXPECT_TRUE(CommandLine("tool %s", {ShellWord(fits.c_str())}).is_whole());
    EXPECT_FALSE(CommandLine("tool %s", {ShellWord((fits + 'x').c_str())}).is_whole());
    const std::string quotes(400, '\'');
    EXPECT_FALSE(CommandLine("tool %s", {ShellWord(quotes.c_str())}).is_whole());

    RecordingShell shell;
    ShortValue<7> captured;
    int status = 0;
    const CapturedOutput output = capture_output([&] {
        status = run_command("tool %s", ShellWord((fits + 'x').c_str()));
        EXPECT_EQ(cmd_capture(captured, "tool %s", ShellWord(quotes.c_str())), -1);
    });
    EXPECT_EQ(status, -1);
    EXPECT_EQ(output.err, "Command line too long.\nCommand line too long.\n");
    EXPECT_TRUE(shell.take_lines().empty());
}

TEST(CommandLine, PassesEveryWordThroughTheRealShellAsItIs) {
    std::string all_bytes;
    for (int byte = 1; byte < 256; ++byte)
        all_bytes += static_cast<char>(byte);
    const std::vector<std::string> words{
        "$(id)", "`id`",   "a;b", "a|b&c", "> /tmp/x", "'",     "''",    "\\",   "\"",
        "*",     "~",      "!x",  "#",     "-n",       "$HOME", "{a,b}", "a\tb", "it's 'quoted'",
        "%s%n",  all_bytes};
    for (const std::string &word : words) {
        ValueBuffer echoed;
        ASSERT_EQ(cmd_capture(echoed, "printf %s %s", ProgramText("%s"), ShellWord(word.c_str())),
                  0);
        EXPECT_EQ(echoed.text(), word);
    }
}

TEST(CommandCapture, KeepsAllLinesCutsOneNewlineAndDropsTheRest) {
    RecordingShell shell;
    const auto capture = [&shell](const std::string &output) {
        shell.print(output);
        ShortValue<5> value;
        EXPECT_EQ(cmd_capture(value, "tool"), 0);
        return std::string(value.text());
    };
    EXPECT_EQ(capture("a\nb\n"), "a\nb");
    EXPECT_EQ(capture("a\n\n"), "a\n");
    EXPECT_EQ(capture(""), "");
    EXPECT_EQ(capture("\n"), "");
    EXPECT_EQ(capture("12345\n"), "12345");
    EXPECT_EQ(capture(std::string(60'000, 'x')), "xxxxx");

    ShortValue<5> value;
    value.data()[0] = 'x';
    shell.refuse_pipes();
    EXPECT_EQ(cmd_capture(value, "tool"), -1);
    EXPECT_TRUE(value.empty());
}

TEST(CommandCapture, DoesNotLetABigToolBlock) {
    ShortValue<5> value;
    EXPECT_EQ(cmd_capture(value, "head -c 300000 /dev/zero | tr '\\0' x"), 0);
    EXPECT_STREQ(value.text(), "xxxxx");
    EXPECT_EQ(cmd_capture(value, "echo $0"), 0);
    EXPECT_STREQ(value.text(), "sh");
}

TEST(CommandCapture, LeavesTheKeyboardsSignalsToTheTool) {
    for (const int number : {SIGINT, SIGQUIT}) {
        for (const auto usual : {SIG_DFL, SIG_IGN}) {
            std::signal(number, usual);
            ShortValue<5> value;
            EXPECT_EQ(cmd_capture(value, "ulimit -c 0; kill -%d $PPID; kill -%d $$; echo alive",
                                  number, number),
                      0);
            EXPECT_STREQ(value.text(), "");
            EXPECT_EQ(std::signal(number, SIG_DFL), usual);
        }
    }
}

TEST(CommandLine, LeavesTheOutputBlocking) {
    int flags = 0;
    capture_output([&flags] {
        const auto after = [](auto run) {
            for (const int stream : {STDOUT_FILENO, STDERR_FILENO})
                fcntl(stream, F_SETFL, O_NONBLOCK);
            run();
            return fcntl(STDOUT_FILENO, F_GETFL) | fcntl(STDERR_FILENO, F_GETFL);
        };
        ShortValue<5> value;
        flags = after([] { run_command(":"); }) | after([&value] { cmd_capture(value, ":"); });
    });
    EXPECT_EQ(flags & O_NONBLOCK, 0);
}

} // namespace
