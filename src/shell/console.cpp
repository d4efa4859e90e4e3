#include "shell/console.h"

#include "config/host_command.h"
#include "shell/completion.h"
#include "shell/input.h"
#include "shell/line_editor.h"
#include "shell/line_runner.h"
#include "shell/prompt.h"
#include "shell/terminal.h"

#include <cstring>
#include <memory>
#include <new>
#include <optional>
#include <sys/ioctl.h>
#include <unistd.h>

namespace {

constexpr std::size_t DIRECTORY_SIZE = 4096;

int report_start_up_failure(const char *message) {
    std::perror(message);
    return START_UP_FAILURE;
}

// The bytes of standard input.
class KeyReader {
public:
    // The next byte, or -1 at the end of input. Flushes the output before it waits, but not while
    // keys that were typed or pasted ahead are left.
    int next() {
        if (ahead_ == 0 && (ioctl(STDIN_FILENO, FIONREAD, &ahead_) != 0 || ahead_ <= 0)) {
            ahead_ = 0;
            std::fflush(stdout);
        }
        unsigned char byte = 0;
        const int got = read_byte(STDIN_FILENO, byte);
        if (ahead_ > 0)
            --ahead_;
        return got == 1 ? byte : -1;
    }

    // Forgets the keys typed ahead, which a child may have read.
    void forget() { ahead_ = 0; }

private:
    int ahead_ = 0; // bytes known to be available
};

class Console {
public:
    Console(std::FILE *input, LineRunner &lines, CliCommand *root)
        : input_(input), lines_(lines), root_(root),
          editor_(stdout, cli_prompt, complete, width, this),
          on_terminal_(isatty(STDIN_FILENO) == 1) {}

    void run() {
        while (input_ == stdin ? edit_line() : read_plain_line()) {
            const unsigned commands_before = command_lines_run;
            lines_.split();
            lines_.dispatch();
            if (on_terminal_ || command_lines_run != commands_before)
                keys_.forget();
        }
    }

private:
    // Restores the terminal before it returns. False at the end of input.
    bool edit_line() {
        std::optional<RawTerminal> raw;
        if (on_terminal_)
            raw.emplace();
        editor_.begin(lines_.line());
        LineEditor::State state = LineEditor::State::Editing;
        while (state == LineEditor::State::Editing) {
            const int byte = keys_.next();
            state = byte < 0 ? LineEditor::State::EndOfInput
                             : editor_.feed(static_cast<unsigned char>(byte));
        }
        if (state == LineEditor::State::LineDone)
            editor_.finish();
        else
            std::fputs("exit\n", stdout);
        // On a terminal the line ends before the command runs, however long that takes. For a pipe
        // the newline may wait for what the command prints.
        if (on_terminal_)
            std::fflush(stdout);
        return state == LineEditor::State::LineDone;
    }

    bool read_plain_line() {
        char *line = lines_.line();
        if (std::fgets(line, LINE_LIMIT + 1, input_) == nullptr)
            return false;
        line[std::strcspn(line, "\n")] = '\0';
        return true;
    }

    static bool complete(void *owner, std::string_view before_cursor,
                         char (&completed)[LINE_BUFFER_SIZE]) {
        const auto *console = static_cast<const Console *>(owner);
        return complete_line(console->lines_.context(), console->root_, before_cursor, completed);
    }

    static int width(void *owner) {
        return static_cast<const Console *>(owner)->on_terminal_ ? terminal_width()
                                                                 : USUAL_TERMINAL_WIDTH;
    }

    std::FILE *input_;
    LineRunner &lines_;
    CliCommand *root_;
    LineEditor editor_;
    KeyReader keys_;
    bool on_terminal_;
};

} // namespace

int run_console(std::FILE *input, CliCommand *root) {
    const std::unique_ptr<char[]> directory(new (std::nothrow) char[DIRECTORY_SIZE]);
    if (directory == nullptr)
        return report_start_up_failure("cwd alloc error!");
    if (getcwd(directory.get(), DIRECTORY_SIZE) == nullptr)
        std::snprintf(directory.get(), DIRECTORY_SIZE, "(unknown)");

    const std::unique_ptr<char[]> prompt(new (std::nothrow) char[PROMPT_SIZE]());
    if (prompt == nullptr)
        return report_start_up_failure("PS1 alloc error!");
    cli_prompt = prompt.get();
    reset_prompt();

    LineRunner lines(root);
    if (!lines.start())
        return START_UP_FAILURE;

    Console(input, lines, root).run();
    return 0;
}
