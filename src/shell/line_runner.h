// Running lines against the command tables, one after another.
#pragma once

#include "shell/command.h"
#include "shell/line_editor.h"

#include <memory>

// The exit status when a program cannot start.
inline constexpr int START_UP_FAILURE = 255;

class LineRunner {
public:
    // Lines begin in the table `root`.
    explicit LineRunner(CliCommand *root) : root_(root) {}

    // Allocates what every line needs. False when there is no memory, after reporting it on
    // standard error; nothing else may be called then.
    bool start();

    // The line's buffer. It may change with each line that is run.
    [[nodiscard]] char (&line())[LINE_BUFFER_SIZE] { return line_->text; }

    [[nodiscard]] CliContext &context() { return *cli_; }

    // Splits the line in place into the context's words.
    void split() { split_line(*cli_, line_->text); }

    // True when the first word names the row of this handler in the root table.
    [[nodiscard]] bool names(CliHandler *handler);

    // Dispatches the words, and makes line and context ready for the next line. Returns the
    // dispatcher's result.
    int dispatch();

private:
    struct LineBuffer {
        char text[LINE_BUFFER_SIZE];
    };

    static std::unique_ptr<LineBuffer> allocate_line();

    CliCommand *root_;
    std::unique_ptr<LineBuffer> line_;
    std::unique_ptr<CliContext> cli_;
};
