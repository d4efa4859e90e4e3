// The line editor in front of a terminal.
#include "editor_on_screen.h"

#include <cstdio>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <string_view>

namespace {

using namespace std::string_literals;

const std::string LEFT = "\x1b[D";
const std::string RIGHT = "\x1b[C";
const std::string UP = "\x1b[A";
const std::string DOWN = "\x1b[B";
const std::string CTRL_A = "\x01";
const std::string CTRL_C = "\x03";
const std::string CTRL_D = "\x04";
const std::string CTRL_E = "\x05";
const std::string CTRL_K = "\x0b";
const std::string CTRL_L = "\x0c";
const std::string CTRL_U = "\x15";
const std::string CTRL_W = "\x17";

// Somebody at a terminal. After every key the screen must show the line with the cursor in its
// place.
class Session {
public:
    explicit Session(LineCompleter *completer = nullptr, int width = 80)
        : editing_(completer, width) {
        check_screen();
    }

    // Types keys; returns what they made the editor write.
    std::string type(const std::string &keys) {
        std::string bytes;
        for (const char key : keys) {
            state_ = editing_.feed(key, &bytes);
            if (state_ == LineEditor::State::Editing)
                check_screen();
        }
        return bytes;
    }

    // Types a line and Enter, and begins the next line.
    std::string enter(const std::string &keys) {
        type(keys + '\r');
        if (state_ != LineEditor::State::LineDone)
            type("\r"); // an escape sequence swallowed the first
        EXPECT_EQ(state_, LineEditor::State::LineDone);
        std::string entered = line();
        EXPECT_TRUE(editing_.finish()) << "Enter must leave the whole line";
        check_screen();
        return entered;
    }

    [[nodiscard]] std::string line() const { return editing_.line(); }
    [[nodiscard]] int cursor() const { return editing_.editor().cursor(); }
    [[nodiscard]] LineEditor::State state() const { return state_; }

private:
    void check_screen() const { ASSERT_EQ(editing_.fault(), ""); }

    EditorOnScreen editing_;
    LineEditor::State state_ = LineEditor::State::Editing;
};

std::string repeat(std::string_view keys, int times) {
    std::string all;
    while (times-- > 0)
        all += keys;
    return all;
}

TEST(LineEditor, WritesTheStatedBytes) {
    const std::string two_rows(80, 'x'); // ends in column 6 of the second row
    const struct {
        std::string before; // typed first
        std::string keys;
        std::string bytes;
        std::string line;
    } cases[] = {
        {"", "a", "a", "a"},
        {"abc", CTRL_A, "\b\b\b", "abc"},
        {"abcd", CTRL_A, "\x1b[4D", "abcd"},
        {"abcd", "\x02", "\b", "abcd"},
        {"", "\x01\x02\x05\x06\x15\x17\x08\x7f", "", ""},
        {"abc\x01", CTRL_E, "abc", "abc"},
        {"abc\x01", "\x06", "a", "abc"},
        {"abc\x01", CTRL_D, "bc \b\b\b", "bc"},
        {"abcde\x01", CTRL_D, "bcde \x1b[5D", "bcde"},
        {"abc", CTRL_D, "", "abc"},
        {"abc", "\x08", "\b \b", "ab"},
        {"abc\x02", "\x7f", "\bc \b\b", "ac"},
        {"ac\x02", "b", "bc\b", "abc"},
        {"abc\x02", CTRL_K, "\x1b[J", "ab"},
        {"abc\x02", CTRL_U, "\rWAP-> c\x1b[J\b", "c"},
        {"abc\x02", CTRL_L, "\x1b[H\rWAP-> abc\x1b[J\b", "abc"},
        {"abc", CTRL_C, "\nWAP-> ", ""},
        {"a b  ", CTRL_W, "\b \b\b \b\b \b", "a "},
        // The edge of the screen: the terminal is made to wrap, and moves cross it.
        {two_rows.substr(0, 73), "x", "x \b", two_rows.substr(0, 74)},
        {two_rows.substr(0, 73) + '\x02', "y", "yx \b\x1b[1A\x1b[79C",
         two_rows.substr(0, 72) + "yx"},
        {two_rows, CTRL_A, "\r\x1b[1A\x1b[6C", two_rows},
        {two_rows.substr(0, 74), CTRL_A, "\x1b[1A\x1b[6C", two_rows.substr(0, 74)},
        {two_rows.substr(0, 74), "\x02", "\x1b[1A\x1b[79C", two_rows.substr(0, 74)},
        {two_rows + '\x01', "\x0c",
         "\x1b[H\rWAP-> " + std::string(74, 'x') + "x\bxxxxxx\x1b[J" + "\r\x1b[1A\x1b[6C",
         two_rows},
        // A whole row back to the left edge is one row up and no column.
        {std::string(160, 'x') + repeat("\x02", 86), CTRL_D,
         std::string(80, 'x') + "x\bxxxxx \r\x1b[1A", std::string(159, 'x')},
    };
    for (const auto &one : cases) {
        Session session;
        session.type(one.before);
        EXPECT_EQ(session.type(one.keys), one.bytes) << one.before << " / " << one.keys;
        EXPECT_EQ(session.line(), one.line);
    }
}

TEST(LineEditor, EditsInsideAWrappedLine) {
    Session session;
    const std::string long_line(300, 'x');
    session.type(long_line);
    session.type(repeat(LEFT, 150) + "yz");
    EXPECT_EQ(session.line(), std::string(150, 'x') + "yz" + std::string(150, 'x'));
    session.type(repeat("\x7f", 3));
    EXPECT_EQ(session.line(), std::string(299, 'x'));
    session.type(CTRL_A + "a " + CTRL_E + " b" + CTRL_W + CTRL_W);
    EXPECT_EQ(session.line(), "a ");
    session.type("\x1b[H\x1b[3~\x1b[4~\x1b[1~\x1b[F\x1bOH" + RIGHT + "c");
    EXPECT_EQ(session.line(), " c");
}

TEST(LineEditor, ShowsTheLineWhateverIsTyped) {
    const std::string keys[] = {"a",  "b",    " ",    LEFT,   RIGHT,      "\x7f", CTRL_D, CTRL_A,
                                UP,   DOWN,   CTRL_L, CTRL_K, "\x1b[3~",  CTRL_W, CTRL_E, CTRL_U,
                                "\r", CTRL_C, "\t",   "\x1b", "\x1b[15~", "[",    "\xff"};
    std::mt19937 random(20);
    const auto pick = [&random](std::size_t count) { return random() % count; };
    for (int width = 20; width <= 200; ++width) {
        SCOPED_TRACE(width);
        const auto columns = static_cast<std::size_t>(width);
        Session session(nullptr, width);
        // Lines that end at the edge of the screen, and on each side of it.
        for (std::size_t length = 2 * columns - 8; length <= 2 * columns - 5; ++length)
            session.enter(std::string(length, 'e') + "\x01i\x05\x7f\x7f\x02");
        for (int step = 0; step < 100 && !testing::Test::HasFatalFailure(); ++step) {
            const std::string &key = keys[pick(std::size(keys))];
            if (key == "\r")
                session.enter("");
            else if (pick(20) == 0)
                session.type(std::string(pick(2 * columns), 'm'));
            else if (key != CTRL_D || !session.line().empty())
                session.type(key);
        }
    }
}

TEST(LineEditor, TakesANewWidthWithTheNextLine) {
    EditorOnScreen editing(nullptr, 60);
    const auto type = [&editing](const std::string &keys) {
        std::string bytes;
        for (const char key : keys)
            editing.feed(key, &bytes);
        return bytes;
    };
    const std::string row(54, 'x');
    editing.tell_width(40);
    EXPECT_EQ(type(row), row + " \b");
    EXPECT_EQ(type("\x03" + row), "\nWAP-> " + row.substr(20) + " \b" + row.substr(34));
    editing.tell_width(60);
    editing.finish();
    EXPECT_EQ(type(row), row + " \b");
}

TEST(LineEditor, TakesNoMoreThanALine) {
    Session session;
    session.type(std::string(4093, 'x') + "yzz");
    EXPECT_EQ(session.line(), std::string(4093, 'x') + 'y');
    session.type(CTRL_A);
    EXPECT_EQ(session.type("z"), "");
    session.type("\x1b[3~z");
    EXPECT_EQ(session.line(), 'z' + std::string(4092, 'x') + 'y');
}

TEST(LineEditor, WritesFewBytes) {
    for (const int tail : {1, 3, 4, 20, 72}) {
        Session session;
        session.type(std::string(static_cast<std::size_t>(tail), 'x') + CTRL_A);
        EXPECT_LE(session.type("i").size(), static_cast<std::size_t>(tail) + 6) << tail;
    }
    Session session;
    EXPECT_LE(session.type(std::string(4000, 'x')).size(), 4000U * 103 / 100);
}

TEST(LineEditor, SwallowsUnknownKeys) {
    for (const std::string keys :
         {"\x1b[5~",   "\x1b[6~", "\x1b[2~", "\x1b[15~", "\x1b[24~",  "\x1b[1;5C",
          "\x1b[3;5~", "\x1bOP",  "\x1b[Z",  "\x1b[[E",  "\x1b[200~", "\x1b[~",
          "\x1b[?25h", "\x1bx",   "\x1b\r",  "\x0e",     "\x10",      "\x07",
          "\x0f",      "\x12",    "\x1a",    "\x1c",     "\xc3\xa4",  "\x80"}) {
        Session session;
        session.type("ab" + LEFT);
        EXPECT_EQ(session.type(keys), "") << keys.substr(1);
        session.type("c");
        EXPECT_EQ(session.line(), "acb") << keys.substr(1);
    }
    Session session;
    session.type("\0x"s);
    EXPECT_EQ(session.line(), "x");
}

TEST(LineEditor, EndsOnlyOnAnEmptyLine) {
    Session session;
    session.type("a\x04\x01\x04");
    EXPECT_EQ(session.line(), "");
    EXPECT_EQ(session.state(), LineEditor::State::Editing);
    session.type(CTRL_D);
    EXPECT_EQ(session.state(), LineEditor::State::EndOfInput);
}

TEST(LineEditor, EntersWrappedLinesWhole) {
    Session session;
    const std::string long_line(200, 'x');
    EXPECT_EQ(session.enter(long_line + CTRL_A), long_line);
    EXPECT_EQ(session.enter(std::string(74, 'x')), std::string(74, 'x'));
}

TEST(History, RecallsTheLastFive) {
    Session session;
    EXPECT_EQ(session.type("\x10\x0e" + UP + DOWN), "");
    for (const char *line : {"one", "two", "", "three", "four", "five", "six"})
        session.enter(line);
    session.type("fresh");
    for (const char *line : {"six", "five", "four", "three", "two", "two"}) {
        session.type(UP);
        EXPECT_EQ(session.line(), line);
        EXPECT_EQ(session.cursor(), static_cast<int>(session.line().size()));
    }
    EXPECT_EQ(session.type(UP), "");
    for (const char *line : {"three", "four", "five", "six", "fresh", "fresh"}) {
        session.type("\x0e");
        EXPECT_EQ(session.line(), line);
    }
    EXPECT_EQ(session.type(DOWN), "");
    EXPECT_EQ(session.type("\x10"), "\rWAP-> six\x1b[J");
}

TEST(History, DropsEditsOfRecalledLines) {
    Session session;
    session.enter("one");
    session.enter("two");
    session.type("fre" + UP + "x" + UP + DOWN);
    EXPECT_EQ(session.line(), "two");
    session.type(DOWN + "sh");
    EXPECT_EQ(session.line(), "fresh");
    // Ctrl-C and an empty line begin at the newest entry again.
    session.type(UP + UP + CTRL_C + UP);
    EXPECT_EQ(session.line(), "two");
    session.type(UP + CTRL_U);
    session.enter("");
    session.type(UP);
    EXPECT_EQ(session.line(), "two");
    session.enter("");
    session.type(UP + UP);
    EXPECT_EQ(session.line(), "two") << "an entry is added even if it repeats the last";
}

TEST(History, RedrawsShorterAndLongerLines) {
    Session session;
    session.enter(std::string(300, 'x'));
    session.enter("short");
    session.enter(std::string(74, 'e'));
    session.type(std::string(100, 'f') + CTRL_A + UP + UP + UP + DOWN + CTRL_A + DOWN + DOWN);
    EXPECT_EQ(session.line(), std::string(100, 'f'));
}

bool complete_to_ssid(void *, std::string_view before, char (&completed)[LINE_BUFFER_SIZE]) {
    if (!before.ends_with("ss"))
        return false;
    std::snprintf(completed, sizeof completed, "%.*sid ", static_cast<int>(before.size()),
                  before.data());
    return true;
}

TEST(LineEditor, CompletesBeforeTheCursor) {
    Session session(complete_to_ssid);
    EXPECT_EQ(session.type("set ss\t").substr(6), " \n\rWAP-> set ssid \x1b[J");
    session.type("\x15get ss name" + repeat(LEFT, 5) + '\t');
    EXPECT_EQ(session.line(), "get ssid  name");
    session.type("\x15x\x1b\t");
    EXPECT_EQ(session.line(), "x");
    // The prompt goes below a wrapped line, not back up over what was listed.
    const std::string wrapped(100, 'x');
    session.type(CTRL_U + wrapped);
    const std::string bytes = session.type("ss\t");
    EXPECT_TRUE(bytes.starts_with("ss \n\rWAP-> ")) << bytes;
    // What does not fit into a line stays as it was.
    session.type(CTRL_U + std::string(4092, 'x') + "ss\t");
    EXPECT_EQ(session.line().size(), 4094U);
}

} // namespace
