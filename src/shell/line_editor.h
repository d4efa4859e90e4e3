// Editing one line on a terminal, byte by byte.
#pragma once

#include "shell/history.h"

#include <cstddef>
#include <cstdio>
#include <string_view>

// Size of a line's buffer: its text, a NUL and a byte to spare.
inline constexpr std::size_t LINE_BUFFER_SIZE = 4096;

// The most characters in a line.
inline constexpr int LINE_LIMIT = 4094;

// Completes the part of a line before the cursor: prints candidates and puts the new text (at most
// LINE_LIMIT characters) into `completed`. False when the line stays as it is.
using LineCompleter = bool(void *owner, std::string_view before_cursor,
                           char (&completed)[LINE_BUFFER_SIZE]);

// Returns the terminal's width in columns, more than the prompt takes.
using TerminalWidth = int(void *owner);

class LineEditor {
public:
    enum class State { Editing, LineDone, EndOfInput };

    // Writes to `out`. `prompt` must outlive the editor. `completer` may be null. The width is read
    // at the start of each line.
    LineEditor(std::FILE *out, const char *prompt, LineCompleter *completer,
               TerminalWidth *terminal_width, void *owner);

    // Prints the prompt and begins an empty line in `line`, which the editor uses until the line is
    // done.
    void begin(char (&line)[LINE_BUFFER_SIZE]);

    // Takes one byte as typed. LineDone after carriage return or line feed; EndOfInput after
    // Ctrl-D on an empty line.
    State feed(unsigned char byte);

    // Ends a finished line: adds it to the history unless it is empty, and prints a newline.
    void finish();

    [[nodiscard]] int length() const { return length_; }
    [[nodiscard]] int cursor() const { return cursor_; }
    [[nodiscard]] int row() const { return row_; }
    [[nodiscard]] int column() const { return column_; }

private:
    enum class Escape { None, Began, Parameters };

    void feed_escape(unsigned char byte);
    void run_key(unsigned char key);

    // The character on the screen at an index: a blank after the line's end.
    [[nodiscard]] char char_at(int index) const { return index < length_ ? line_[index] : ' '; }
    void print_prompt();
    void echo();
    void echo_to_end();
    void move_left(int distance);
    void right();
    void redraw(int cursor_from_end);
    void step_below_line();

    void insert(char c);
    void delete_at_cursor();
    void backspace();
    void delete_word();
    void delete_to_start();
    void cut_at_cursor();
    void abandon_line();
    void clear_screen();
    void complete();
    void show_history(const char *entry);
    void replace_line(std::string_view text);
    void start_line();

    std::FILE *out_;
    const char *prompt_;
    LineCompleter *completer_;
    TerminalWidth *terminal_width_;
    void *owner_;
    int width_ = 0; // of the terminal, during this line
    char *line_ = nullptr;
    int length_ = 0;
    int cursor_ = 0;
    int column_ = 0; // of the terminal, so the prompt counts
    int row_ = 0;    // below the prompt's
    Escape escape_ = Escape::None;
    int parameter_count_ = 0;     // bytes between the introducer and the final byte
    unsigned char parameter_ = 0; // the first of them
    History history_;
};
