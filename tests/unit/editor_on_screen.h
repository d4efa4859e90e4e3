// The line editor in front of the terminal model, and whether they agree.
#pragma once

#include "terminal_model.h"

#include "shell/line_editor.h"

#include <cstdio>
#include <cstdlib>
#include <string>

class EditorOnScreen {
public:
    // Begins the first line.
    explicit EditorOnScreen(LineCompleter *completer, int width = 80)
        : width_(width), out_(open_memstream(&written_, &size_)),
          editor_(out_, PROMPT, completer, terminal_width, this), screen_(width) {
        editor_.begin(line_);
        show(nullptr);
    }
    EditorOnScreen(const EditorOnScreen &) = delete;
    EditorOnScreen &operator=(const EditorOnScreen &) = delete;
    ~EditorOnScreen() {
        std::fclose(out_);
        std::free(written_);
    }

    // Types one byte; adds what the editor wrote to `bytes`, unless that is null.
    LineEditor::State feed(char key, std::string *bytes) {
        const LineEditor::State state = editor_.feed(static_cast<unsigned char>(key));
        show(bytes);
        return state;
    }

    // What the editor learns with its next line; the screen keeps its width.
    void tell_width(int width) { width_ = width; }

    // Leaves a finished line and begins the next. False when the cursor had not got below the line.
    bool finish() {
        const int below_line = line_row() + screen_row_of(editor_.length()) + 1;
        editor_.finish();
        show(nullptr);
        const bool is_below = screen_.row() == below_line;
        editor_.begin(line_);
        show(nullptr);
        return is_below;
    }

    // What the screen and the editor disagree about while a line is edited; "" when all is well.
    [[nodiscard]] std::string fault() const {
        const std::string line = line_;
        if (line.size() != static_cast<std::size_t>(editor_.length()) || line.size() > LINE_LIMIT)
            return "length of the line";
        if (editor_.cursor() < 0 || editor_.cursor() > editor_.length())
            return "cursor outside the line";
        if (!screen_.errors().empty())
            return screen_.errors();
        std::string shown = PROMPT + line;
        shown.erase(shown.find_last_not_of(' ') + 1);
        if (const std::string text = screen_.text_from(line_row()); text != shown)
            return "screen shows \"" + text + "\" for \"" + shown + '"';
        const int place = PROMPT_WIDTH + editor_.cursor();
        if (screen_.column() != place % width_ || editor_.column() != screen_.column())
            return "column of the cursor";
        return editor_.row() == screen_row_of(editor_.cursor()) ? "" : "row of the cursor";
    }

    [[nodiscard]] std::string line() const { return line_; }
    [[nodiscard]] const LineEditor &editor() const { return editor_; }

private:
    static constexpr char PROMPT[] = "WAP-> ";
    static constexpr int PROMPT_WIDTH = 6;

    void show(std::string *bytes) {
        std::fflush(out_);
        const std::string written(written_ + taken_, size_ - taken_);
        taken_ = size_;
        screen_.write(written);
        if (bytes != nullptr)
            *bytes += written;
    }

    static int terminal_width(void *owner) {
        return static_cast<const EditorOnScreen *>(owner)->width_;
    }

    [[nodiscard]] int screen_row_of(int index) const { return (PROMPT_WIDTH + index) / width_; }
    [[nodiscard]] int line_row() const { return screen_.row() - screen_row_of(editor_.cursor()); }

    int width_;
    char *written_ = nullptr;
    std::size_t size_ = 0;
    std::size_t taken_ = 0;
    std::FILE *out_;
    LineEditor editor_;
    char line_[LINE_BUFFER_SIZE] = {};
    TerminalModel screen_;
};
