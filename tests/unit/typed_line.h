// Commands as the administrator types them, without a console around them.
#pragma once

#include "captured_output.h"

#include "shell/dispatch.h"
#include "tables/root.h"

#include <memory>
#include <string>

// A line in the argument ring of a context of its own, which lives on the heap so that the
// sanitizers see its edges.
class TypedLine {
public:
    explicit TypedLine(const std::string &line)
        : line_(new char[line.size() + 1]()), cli_(new CliContext()) {
        line.copy(line_.get(), line.size());
        split_line(*cli_, line_.get());
    }

    CliContext &cli() { return *cli_; }

private:
    std::unique_ptr<char[]> line_;
    std::unique_ptr<CliContext> cli_;
};

// What came of a command.
struct CommandRun : CapturedOutput {
    int result;
};

// Dispatches a whole line from `table`, on the radio of `band` (0 = 2.4 GHz, 1 = 5 GHz).
inline CommandRun dispatch_line(CliCommand *table, const std::string &line, int band = 0) {
    TypedLine typed(line);
    typed.cli().current_band = band;
    int result = CLI_DONE;
    return {capture_output([&] { result = cli_dispatch(typed.cli(), table); }), result};
}

// The same from the program's root table.
inline CommandRun type_line(const std::string &line, int band = 0) {
    return dispatch_line(root_table(), line, band);
}

// The debug level unlocked while it lives.
class DebugUnlocked {
public:
    DebugUnlocked() { debug_locked = 0; }
    DebugUnlocked(const DebugUnlocked &) = delete;
    DebugUnlocked &operator=(const DebugUnlocked &) = delete;
    ~DebugUnlocked() { debug_locked = -1; }
};
