// The transcript format: what is read is written back, and nothing printed can be mistaken.
#include "session/transcript.h"
#include "session/transcript_text.h"

#include <gtest/gtest.h>

using session::LineKind;
using session::output_lines;
using session::parse_transcript;
using session::render_transcript;
using session::StepKind;

namespace {

constexpr std::string_view EVERY_KIND_OF_LINE = R"(# A note to the reader
# of two lines

# A session on a terminal
# with a comment
boot rgdb -s /a 1
boot echo hello
hello
given /a = 7x\x20
# typed in full
WAP-> set dtim 7x
  wrote /wlan/inf:1/dtim = 7x
  ran sh -c 'a\\b'
WAP->
given /b =
WAP-> get dtim

~ .*[0-9]+ s
\&WAP-> not a prompt\c
stop xmldb
keys set ss\tid\x03\r
\&

# A session through a pipe
piped
WAP-> shell
< exit
end of input
exit
exited 0
)";

} // namespace

TEST(TranscriptFormat, WritesBackWhatItReads) {
    const auto transcript = parse_transcript(EVERY_KIND_OF_LINE);
    ASSERT_EQ(transcript.error, "");
    EXPECT_EQ(render_transcript(transcript.scenarios), EVERY_KIND_OF_LINE);

    ASSERT_EQ(transcript.scenarios.size(), 3U);
    EXPECT_TRUE(transcript.scenarios[0].steps.empty());
    const auto &steps = transcript.scenarios[1].steps;
    ASSERT_EQ(steps.size(), 8U);
    EXPECT_EQ(steps[0].kind, StepKind::START);
    EXPECT_EQ(steps[0].body, std::vector<std::string>{"hello"});
    EXPECT_EQ(steps[2].body.size(), 2U);
    EXPECT_EQ(steps[7].body, std::vector<std::string>{""});
}

TEST(TranscriptFormat, ProtectsOutputThatLooksLikeSomethingElse) {
    for (const std::string line : {"# t",
                                   "WAP-> x",
                                   "WAP->",
                                   "given /a = b",
                                   "boot x",
                                   "stop xmldb",
                                   "keys x",
                                   "piped",
                                   "end of input",
                                   "< x",
                                   "~ x",
                                   "exited 0",
                                   "  wrote /a = b",
                                   "  ran x",
                                   "  deleted /a",
                                   "\\&x",
                                   "x\\c",
                                   "\\",
                                   "\x01\x7f\xe9",
                                   "\r",
                                   "tab\tand blank "}) {
        const auto lines = output_lines(line + "\n");
        ASSERT_EQ(lines.size(), 1U) << line;
        EXPECT_EQ(session::line_kind(lines[0]), LineKind::OUTPUT) << line;
        EXPECT_EQ(session::normal_line(lines[0]), lines[0]) << line;
        EXPECT_NE(output_lines(line), lines) << "the missing newline of " << line;
    }
    // Blank lines of output survive wherever they stand.
    const auto transcript = parse_transcript("# t\nWAP-> x\n\n\n# comment\nWAP-> y\n");
    EXPECT_EQ(transcript.scenarios.size(), 2U);
    const std::string protected_gap = "# t\nWAP-> x\n\n\\&\n# comment\nWAP-> y\n";
    EXPECT_EQ(render_transcript(parse_transcript(protected_gap).scenarios), protected_gap);
}

TEST(TranscriptFormat, NamesTheLineThatCannotStand) {
    const struct {
        const char *text;
        const char *error;
    } refused[] = {
        {"WAP-> x\n", "line 1: "},
        {"# t\nWAP-> x\nboot y\n", "line 3: boot and piped"},
        {"# t\ngiven /a\n", "line 2: given takes"},
        {"# t\ngiven /a = b\nprinted\n", "line 3: given and stop"},
        {"# t\nWAP-> a\tb\n", "line 2: a typed line"},
        {"# t\nWAP-> x\na\\qb\n", "line 3: unknown escape"},
        {"# t\nkeys \\x3\n", "line 2: unknown escape"},
        {"# t\npiped\nkeys x\n", "line 3: keys need"},
        {"# t\nWAP-> x\n< y\n", "line 3: input for"},
        {"# t\nWAP-> x\n# c\n\n# u\n", "line 5: a comment"},
        {"# t\nWAP-> x\n# c\n", "line 3: a comment"},
    };
    for (const auto &[text, error] : refused)
        EXPECT_EQ(parse_transcript(text).error.substr(0, std::string_view(error).size()), error)
            << text;
}
