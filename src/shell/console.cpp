#include "shell/console.h"

#include "config/host_command.h"
#include "shell/completion.h"
#include "shell/dispatch.h"
#include "shell/line_editor.h"
#include "shell/prompt.h"
#include "shell/terminal.h"

#include <cerrno>
#include <cstring>
#include <memory>
#include <new>
#include <optional>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace {

constexpr int START_UP_FAILURE = 255;
constexpr std::size_t DIRECTORY_SIZE = 4096;

struct LineBuffer {
    char text[LINE_BUFFER_SIZE];
};

// Only as much of these is cleared as is read: what is never written takes no memory.
std::unique_ptr<LineBuffer> allocate_line() {
    std::unique_ptr<LineBuffer> line(new (std::nothrow) LineBuffer);
    if (line != nullptr)
        line->text[0] = '\0';
    return line;
}

std::unique_ptr<CliContext> allocate_context() {
    std::unique_ptr<CliContext> cli(new (std::nothrow) CliContext);
    if (cli != nullptr) {
        cli->current_band = 0;
        reset_context(*cli);
    }
    return cli;
}

int report_start_up_failure(const char *message) {
    std::perror(message);
    return START_UP_FAILURE;
}

// Reads standard input byte by byte, so that a child that shares it finds the rest there.
class KeyReader {
public:
    // The next byte, or -1 at the end of input. What was printed is on the screen before this
    // waits; while keys that were typed or pasted ahead are there, it may be on its way.
    int next() {
        if (ahead_ == 0 && (ioctl(STDIN_FILENO, FIONREAD, &ahead_) != 0 || ahead_ <= 0)) {
            ahead_ = 0;
            std::fflush(stdout);
        }
        unsigned char byte = 0;
        ssize_t got = 0;
        do {
            got = read(STDIN_FILENO, &byte, 1);
        } while (got < 0 && may_read_again());
        if (ahead_ > 0)
            --ahead_;
        return got == 1 ? byte : -1;
    }

    // Forgets what is there, which others may have read since.
    void forget() { ahead_ = 0; }

private:
    // After a read that failed. A tool may have left the terminal, which is where output goes as
    // well, in non-blocking mode.
    static bool may_read_again() {
        if (errno != EAGAIN)
            return errno == EINTR;
        make_output_blocking();
        pollfd input{STDIN_FILENO, POLLIN, 0};
        poll(&input, 1, -1);
        return true;
    }

    int ahead_ = 0; // bytes that are known to be there
};

class Console {
public:
    Console(std::FILE *input, CliContext &cli, CliCommand *root, std::unique_ptr<LineBuffer> line)
        : input_(input), cli_(cli), root_(root), line_(std::move(line)),
          editor_(stdout, cli_prompt, complete, width, this),
          on_terminal_(isatty(STDIN_FILENO) == 1) {}

    void run() {
        while (input_ == stdin ? edit_line() : read_plain_line()) {
            split_line(cli_, line_->text);
            const unsigned commands_before = command_lines_run;
            if (cli_dispatch(cli_, root_) != CLI_DONE)
                renew_line();
            if (on_terminal_ || command_lines_run != commands_before)
                keys_.forget();
            reset_context(cli_);
        }
    }

private:
    // Handlers run after this, with the terminal as it was. False at the end of input.
    bool edit_line() {
        std::optional<RawTerminal> raw;
        if (on_terminal_)
            raw.emplace();
        editor_.begin(line_->text);
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
        // Who types sees the line end, however long the command takes. For a pipe it goes out with
        // what the command prints.
        if (on_terminal_)
            std::fflush(stdout);
        return state == LineEditor::State::LineDone;
    }

    bool read_plain_line() {
        if (std::fgets(line_->text, LINE_LIMIT + 1, input_) == nullptr)
            return false;
        line_->text[std::strcspn(line_->text, "\n")] = '\0';
        return true;
    }

    // Without memory for a new buffer the old one serves on.
    void renew_line() {
        if (std::unique_ptr<LineBuffer> renewed = allocate_line())
            line_ = std::move(renewed);
    }

    static bool complete(void *owner, std::string_view before_cursor,
                         char (&completed)[LINE_BUFFER_SIZE]) {
        const auto *console = static_cast<const Console *>(owner);
        return complete_line(console->cli_, console->root_, before_cursor, completed);
    }

    static int width(void *) { return terminal_width(); }

    std::FILE *input_;
    CliContext &cli_;
    CliCommand *root_;
    std::unique_ptr<LineBuffer> line_;
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

    std::unique_ptr<LineBuffer> line = allocate_line();
    if (line == nullptr)
        return report_start_up_failure("command alloc error!");
    const std::unique_ptr<CliContext> cli = allocate_context();
    if (cli == nullptr)
        return report_start_up_failure("pCli alloc error!");

    Console(input, *cli, root, std::move(line)).run();
    return 0;
}
