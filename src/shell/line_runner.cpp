#include "shell/line_runner.h"

#include "shell/args.h"
#include "shell/dispatch.h"

#include <cstdio>
#include <new>

bool LineRunner::start() {
    line_ = allocate_line();
    if (line_ == nullptr) {
        std::perror("command alloc error!");
        return false;
    }
    cli_.reset(new (std::nothrow) CliContext);
    if (cli_ == nullptr) {
        std::perror("pCli alloc error!");
        return false;
    }
    cli_->current_band = 0;
    reset_context(*cli_);
    return true;
}

bool LineRunner::names(CliHandler *handler) {
    const char *word = arg_peek(*cli_, 0);
    if (word == nullptr)
        return false;
    const CommandMatch match = match_command(*cli_, root_, prepare_word(*cli_, word));
    return match.row != nullptr && match.row->handler == handler;
}

int LineRunner::dispatch() {
    const int result = cli_dispatch(*cli_, root_);
    if (result != CLI_DONE) {
        // Without memory for a new buffer the old one is kept.
        if (std::unique_ptr<LineBuffer> renewed = allocate_line())
            line_ = std::move(renewed);
    }
    reset_context(*cli_);
    return result;
}

// Clears only as much of the line and the context as is read: untouched pages take no memory.
std::unique_ptr<LineRunner::LineBuffer> LineRunner::allocate_line() {
    std::unique_ptr<LineBuffer> line(new (std::nothrow) LineBuffer);
    if (line != nullptr)
        line->text[0] = '\0';
    return line;
}
