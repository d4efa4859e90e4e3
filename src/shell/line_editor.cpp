#include "shell/line_editor.h"

#include <algorithm>
#include <cctype>
#include <cstring>

namespace {

enum Key : unsigned char {
    CTRL_A = 1,
    CTRL_B = 2,
    CTRL_C = 3,
    CTRL_D = 4,
    CTRL_E = 5,
    CTRL_F = 6,
    CTRL_H = 8,
    TAB = 9,
    LINE_FEED = 10,
    CTRL_K = 11,
    CTRL_L = 12,
    CARRIAGE_RETURN = 13,
    CTRL_N = 14,
    CTRL_P = 16,
    CTRL_U = 21,
    CTRL_W = 23,
    ESCAPE = 27,
    DELETE = 127,
};

constexpr char BACKSPACE = '\b';

// Moves shorter than this are cheaper as backspaces.
constexpr int SEQUENCE_DISTANCE = 4;

// The key that a sequence's final byte stands for, or 0.
unsigned char key_of_sequence(unsigned char final_byte) {
    switch (final_byte) {
    case 'A':
        return CTRL_P;
    case 'B':
        return CTRL_N;
    case 'C':
        return CTRL_F;
    case 'D':
        return CTRL_B;
    case 'F':
        return CTRL_E;
    case 'H':
        return CTRL_A;
    case TAB:
        return TAB;
    default:
        return 0;
    }
}

// The same for a sequence that is a number and "~".
unsigned char key_of_number(unsigned char number) {
    switch (number) {
    case '1':
        return CTRL_A;
    case '3':
        return CTRL_D;
    case '4':
        return CTRL_E;
    default:
        return 0;
    }
}

bool is_space(char c) {
    return std::isspace(static_cast<unsigned char>(c)) != 0;
}

} // namespace

LineEditor::LineEditor(std::FILE *out, const char *prompt, LineCompleter *completer,
                       TerminalWidth *terminal_width, void *owner)
    : out_(out), prompt_(prompt), completer_(completer), terminal_width_(terminal_width),
      owner_(owner) {}

void LineEditor::begin(char (&line)[LINE_BUFFER_SIZE]) {
    line_ = line;
    escape_ = Escape::None;
    start_line();
    print_prompt();
}

void LineEditor::finish() {
    step_below_line();
    if (length_ > 0)
        history_.add(line_);
    else
        history_.stop_browsing();
}

LineEditor::State LineEditor::feed(unsigned char byte) {
    if (escape_ != Escape::None)
        feed_escape(byte);
    else if (byte == LINE_FEED || byte == CARRIAGE_RETURN)
        return State::LineDone;
    else if (byte == CTRL_D && length_ == 0)
        return State::EndOfInput;
    else if (byte == ESCAPE)
        escape_ = Escape::Began;
    else if (std::isprint(byte) != 0)
        insert(static_cast<char>(byte));
    else
        run_key(byte);
    return State::Editing;
}

void LineEditor::run_key(unsigned char key) {
    // A switch, since a table of functions would be relocated into private memory.
    switch (key) {
    case CTRL_A:
        return move_left(cursor_);
    case CTRL_B:
        return move_left(1);
    case CTRL_C:
        return abandon_line();
    case CTRL_D:
        return delete_at_cursor();
    case CTRL_E:
        return echo_to_end();
    case CTRL_F:
        return right();
    case CTRL_H:
    case DELETE:
        return backspace();
    case TAB:
        return complete();
    case CTRL_K:
        return cut_at_cursor();
    case CTRL_L:
        return clear_screen();
    case CTRL_N:
        return show_history(history_.next());
    case CTRL_P:
        return show_history(history_.previous(line_));
    case CTRL_U:
        return delete_to_start();
    case CTRL_W:
        return delete_word();
    default:
        return;
    }
}

// An unknown sequence is swallowed up to its final byte.
void LineEditor::feed_escape(unsigned char byte) {
    if (escape_ == Escape::Began && (byte == '[' || byte == 'O')) {
        escape_ = Escape::Parameters;
        parameter_count_ = 0;
        return;
    }
    // The function keys of a Linux console have a second "[" in place of a number.
    const bool is_parameter =
        (byte >= 0x20 && byte <= 0x3f) || (byte == '[' && parameter_count_ == 0);
    if (escape_ == Escape::Parameters && is_parameter) {
        if (parameter_count_ == 0)
            parameter_ = byte;
        parameter_count_ = std::min(parameter_count_ + 1, 2);
        return;
    }
    if (escape_ == Escape::Began || parameter_count_ == 0)
        run_key(key_of_sequence(byte));
    else if (parameter_count_ == 1 && byte == '~')
        run_key(key_of_number(parameter_));
    escape_ = Escape::None;
}

void LineEditor::start_line() {
    width_ = terminal_width_(owner_);
    length_ = 0;
    cursor_ = 0;
    line_[0] = '\0';
    row_ = 0;
    column_ = 0;
}

void LineEditor::print_prompt() {
    std::fputs(prompt_, out_);
    column_ = static_cast<int>(std::strlen(prompt_));
    row_ = 0;
}

// Prints the character at the cursor and moves past it. At the edge of the screen it also prints
// the next one and moves back, which makes the terminal wrap.
void LineEditor::echo() {
    putc_unlocked(char_at(cursor_), out_);
    ++cursor_;
    if (++column_ == width_) {
        column_ = 0;
        ++row_;
        putc_unlocked(char_at(cursor_), out_);
        putc_unlocked(BACKSPACE, out_);
    }
}

void LineEditor::echo_to_end() {
    while (cursor_ < length_)
        echo();
}

void LineEditor::move_left(int distance) {
    distance = std::min(distance, cursor_);
    if (distance == 0)
        return;
    cursor_ -= distance;
    if (column_ >= distance) {
        column_ -= distance;
        if (distance < SEQUENCE_DISTANCE) {
            while (distance-- > 0)
                putc_unlocked(BACKSPACE, out_);
        } else {
            std::fprintf(out_, "\x1b[%dD", distance);
        }
        return;
    }
    if (column_ != 0)
        putc_unlocked('\r', out_);
    // A distance of whole rows ends in the first column, not a row further up.
    const int remaining = distance - column_;
    const int rows = (remaining + width_ - 1) / width_;
    row_ -= rows;
    column_ = width_ * rows - remaining;
    std::fprintf(out_, "\x1b[%dA", rows);
    if (column_ > 0)
        std::fprintf(out_, "\x1b[%dC", column_);
}

void LineEditor::right() {
    if (cursor_ < length_)
        echo();
}

// Redraws prompt and line from the prompt's row, and leaves the cursor that many characters before
// the end.
void LineEditor::redraw(int cursor_from_end) {
    if (row_ > 0)
        std::fprintf(out_, "\x1b[%dA", row_);
    putc_unlocked('\r', out_);
    print_prompt();
    cursor_ = 0;
    echo_to_end();
    std::fputs("\x1b[J", out_);
    move_left(cursor_from_end);
}

void LineEditor::insert(char c) {
    if (length_ == LINE_LIMIT)
        return;
    const int tail = length_ - cursor_;
    if (tail > 0)
        std::memmove(line_ + cursor_ + 1, line_ + cursor_, static_cast<std::size_t>(tail));
    line_[cursor_] = c;
    line_[++length_] = '\0';
    echo_to_end();
    move_left(tail);
}

void LineEditor::delete_at_cursor() {
    if (cursor_ == length_)
        return;
    char *at = line_ + cursor_;
    const int tail = length_ - cursor_ - 1;
    std::memmove(at, at + 1, static_cast<std::size_t>(tail) + 1);
    --length_;
    echo_to_end();
    echo(); // a blank over the old last character
    move_left(tail + 1);
}

void LineEditor::backspace() {
    if (cursor_ == 0)
        return;
    move_left(1);
    delete_at_cursor();
}

void LineEditor::delete_word() {
    while (cursor_ > 0 && is_space(line_[cursor_ - 1]))
        backspace();
    while (cursor_ > 0 && !is_space(line_[cursor_ - 1]))
        backspace();
}

void LineEditor::delete_to_start() {
    if (cursor_ == 0)
        return;
    length_ -= cursor_;
    std::memmove(line_, line_ + cursor_, static_cast<std::size_t>(length_) + 1);
    redraw(length_);
}

void LineEditor::cut_at_cursor() {
    length_ = cursor_;
    line_[length_] = '\0';
    std::fputs("\x1b[J", out_);
}

// Output must not overwrite a line that wraps below the cursor.
void LineEditor::step_below_line() {
    if (row_ < (static_cast<int>(std::strlen(prompt_)) + length_) / width_)
        echo_to_end();
    putc_unlocked('\n', out_);
}

void LineEditor::abandon_line() {
    step_below_line();
    start_line();
    history_.stop_browsing();
    print_prompt();
}

void LineEditor::clear_screen() {
    std::fputs("\x1b[H", out_);
    redraw(length_ - cursor_);
}

void LineEditor::show_history(const char *entry) {
    if (entry == nullptr)
        return;
    replace_line(entry);
    redraw(0);
}

void LineEditor::replace_line(std::string_view text) {
    length_ = static_cast<int>(std::min<std::size_t>(text.size(), LINE_LIMIT));
    std::memcpy(line_, text.data(), static_cast<std::size_t>(length_));
    line_[length_] = '\0';
}

// Completes the part before the cursor and keeps the rest. Prompt and line are redrawn below what
// was listed.
void LineEditor::complete() {
    if (completer_ == nullptr)
        return;
    char completed[LINE_BUFFER_SIZE];
    const auto before = static_cast<std::size_t>(cursor_);
    const std::string_view tail(line_ + cursor_, static_cast<std::size_t>(length_ - cursor_));
    echo_to_end();
    std::fputs(" \n", out_);
    if (completer_(owner_, {line_, before}, completed)) {
        const std::size_t head = std::strlen(completed);
        if (head + tail.size() <= LINE_LIMIT) {
            std::memcpy(completed + head, tail.data(), tail.size());
            replace_line({completed, head + tail.size()});
        }
    }
    row_ = 0;
    redraw(0);
}
