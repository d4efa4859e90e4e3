#include "session/recorder.h"

#include "session/journal_reader.h"
#include "session/transcript_text.h"

#include <algorithm>
#include <utility>

namespace session {

namespace {

constexpr char BACKSPACE = '\b';
constexpr char DELETE = '\x7f';

bool is_line_end(char byte) {
    return byte == '\r' || byte == '\n';
}

// The line that `typed` amounts to when it is nothing but printable characters, backspaces and a
// line end.
std::optional<std::string> plain_line(std::string_view typed) {
    if (typed.empty() || !is_line_end(typed.back()))
        return std::nullopt;
    typed.remove_suffix(1);
    std::string line;
    for (const char byte : typed) {
        if (byte >= ' ' && byte <= '~')
            line += byte;
        else if (byte != BACKSPACE && byte != DELETE)
            return std::nullopt;
        else if (!line.empty())
            line.pop_back();
    }
    return line;
}

std::vector<std::string> split_lines(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(line.size() + 1, text.size()));
        lines.emplace_back(line);
    }
    return lines;
}

} // namespace

Recorder::Recorder(bool piped) {
    scenario_ = {.title = "A recorded session", .piped = piped};
}

void Recorder::typed_to_command(std::string_view bytes) {
    typed_to_command_ += bytes;
}

// Takes the echo of a plain line off `printed`.
Step Recorder::take_step(std::string_view &printed) {
    const std::string typed = std::exchange(typed_, {});
    const std::string to_command = std::exchange(typed_to_command_, {});
    if (scenario_.steps.empty())
        return {.kind = StepKind::START};
    const std::optional<std::string> line = plain_line(typed);
    Step step;
    if (line) {
        printed.remove_prefix(printed.find('\n') + 1);
        step = {.kind = StepKind::COMMAND, .text = *line};
    } else if (scenario_.piped) {
        // A line that the end of input cut short has no effect but its echo.
        if (printed.starts_with(typed))
            printed.remove_prefix(typed.size());
        step = {.kind = StepKind::END_OF_INPUT};
    } else {
        step = {.kind = StepKind::KEYS, .text = escape_keys(typed)};
    }
    if (scenario_.piped && line)
        step.child_input = split_lines(to_command);
    else if (!to_command.empty())
        step.comments = {"# What was typed while this command ran is not recorded."};
    return step;
}

void Recorder::at_rest(std::string_view printed, const std::vector<std::string> &journal,
                       std::optional<int> exit_status) {
    Step step = take_step(printed);
    step.body = output_lines(printed);
    for (const std::string &line : journal) {
        if (is_console_action(line))
            step.body.push_back(journal_line(line));
    }
    if (exit_status)
        step.body.push_back(exit_line(*exit_status));
    scenario_.steps.push_back(std::move(step));
}

} // namespace session
