#include "session/transcript.h"

#include "session/transcript_text.h"

#include <algorithm>
#include <array>
#include <optional>
#include <stdexcept>
#include <utility>

namespace session {

namespace {

class Parser {
public:
    // Takes the next line of the file; throws std::runtime_error where it is not allowed.
    void take(std::string_view line);
    // Ends the file; throws as take does.
    std::vector<Scenario> finish();

private:
    void take_comment(std::string_view line);
    void take_set_up(LineKind kind, std::string_view argument);
    void take_step(LineKind kind, std::string_view line);
    void take_body(LineKind kind, std::string_view line);
    void begin_steps();
    void end_scenario();
    Scenario &scenario();
    Step &last_step();

    std::vector<Scenario> scenarios_;
    std::vector<std::string> comments_; // for the next step
    std::size_t blanks_ = 0;            // not yet known whether output or a gap between scenarios
};

[[noreturn]] void refuse(const char *why) {
    throw std::runtime_error(why);
}

bool is_printable(char byte) {
    return byte >= ' ' && byte <= '~';
}

constexpr std::array<std::pair<LineKind, StepKind>, 5> STEP_LINES{{
    {LineKind::COMMAND, StepKind::COMMAND},
    {LineKind::KEYS, StepKind::KEYS},
    {LineKind::GIVEN, StepKind::GIVEN},
    {LineKind::STOP, StepKind::STOP},
    {LineKind::END_OF_INPUT, StepKind::END_OF_INPUT},
}};

std::optional<StepKind> step_kind(LineKind kind) {
    for (const auto &[line, step] : STEP_LINES) {
        if (line == kind)
            return step;
    }
    return std::nullopt;
}

void Parser::take(std::string_view line) {
    const LineKind kind = line_kind(line);
    if (kind == LineKind::BLANK) {
        ++blanks_;
        return;
    }
    if (kind == LineKind::COMMENT) {
        take_comment(line);
        return;
    }
    for (; blanks_ > 0; --blanks_)
        take_body(LineKind::OUTPUT, "");
    if (kind == LineKind::PIPED || kind == LineKind::BOOT)
        take_set_up(kind, line_argument(line));
    else if (step_kind(kind))
        take_step(kind, line);
    else
        take_body(kind, line);
}

void Parser::take_comment(std::string_view line) {
    if (scenarios_.empty() || blanks_ > 0) {
        end_scenario();
        line.remove_prefix(line.starts_with("# ") ? 2 : 1);
        if (line.empty())
            refuse("a scenario without a title");
        scenarios_.push_back({.title = std::string(line)});
    } else if (scenario().steps.empty()) {
        scenario().comments.emplace_back(line);
    } else {
        comments_.emplace_back(line);
    }
}

void Parser::take_set_up(LineKind kind, std::string_view argument) {
    if (!scenario().steps.empty())
        refuse("boot and piped belong right below the title");
    if (kind == LineKind::PIPED)
        scenario().piped = true;
    else
        scenario().boot.emplace_back(argument);
}

void Parser::take_step(LineKind kind, std::string_view line) {
    if (kind == LineKind::GIVEN && line.find(" =") == std::string_view::npos)
        refuse("given takes PATH = VALUE");
    if (kind == LineKind::KEYS && scenario().piped)
        refuse("keys need a terminal, not a pipe");
    if ((kind == LineKind::KEYS || kind == LineKind::GIVEN) && !unescape(line))
        refuse("unknown escape");
    if (kind == LineKind::COMMAND && !std::all_of(line.begin(), line.end(), is_printable))
        refuse("a typed line takes printable characters only; keys takes others");
    begin_steps();
    scenario().steps.push_back({.kind = *step_kind(kind),
                                .text = std::string(line_argument(line)),
                                .comments = std::move(comments_)});
    comments_.clear();
}

void Parser::take_body(LineKind kind, std::string_view line) {
    if (!comments_.empty())
        refuse("a comment belongs above its step");
    begin_steps();
    Step &step = last_step();
    if (step.kind == StepKind::GIVEN || step.kind == StepKind::STOP)
        refuse("given and stop have no output");
    if (kind == LineKind::CHILD_INPUT) {
        if (step.kind != StepKind::COMMAND || !step.body.empty() || !scenario().piped)
            refuse("input for a program belongs right below its command, in a piped scenario");
        step.child_input.emplace_back(line_argument(line));
        return;
    }
    const bool is_verbatim = kind == LineKind::PATTERN || kind == LineKind::EXITED;
    const auto text = is_verbatim ? std::optional(std::string(line)) : normal_line(line);
    if (!text)
        refuse("unknown escape");
    step.body.push_back(*text);
}

void Parser::begin_steps() {
    if (scenario().steps.empty())
        scenario().steps.push_back({.kind = StepKind::START});
}

void Parser::end_scenario() {
    if (!comments_.empty())
        refuse("a comment belongs above its step");
    blanks_ = 0;
}

std::vector<Scenario> Parser::finish() {
    end_scenario();
    return std::move(scenarios_);
}

Scenario &Parser::scenario() {
    if (scenarios_.empty())
        refuse("a scenario begins with a line \"# Title\"");
    return scenarios_.back();
}

Step &Parser::last_step() {
    return scenario().steps.back();
}

void append_lines(std::string &text, const std::vector<std::string> &lines,
                  std::string_view word = {}) {
    for (const std::string &line : lines)
        text.append(word).append(line) += '\n';
}

void append_head(std::string &text, const Step &step) {
    for (const auto &[line, kind] : STEP_LINES) {
        if (kind == step.kind)
            text.append(keyword_line(line, step.text)) += '\n';
    }
}

} // namespace

Transcript parse_transcript(std::string_view text) {
    Parser parser;
    std::size_t number = 0;
    try {
        while (!text.empty()) {
            ++number;
            const std::string_view line = text.substr(0, text.find('\n'));
            text.remove_prefix(std::min(line.size() + 1, text.size()));
            parser.take(line);
        }
        return {.scenarios = parser.finish()};
    } catch (const std::runtime_error &reason) {
        return {.error = "line " + std::to_string(number) + ": " + reason.what()};
    }
}

std::string render_scenario(const Scenario &scenario) {
    std::string text;
    append_lines(text, {scenario.title}, "# ");
    append_lines(text, scenario.comments);
    if (scenario.piped)
        append_lines(text, {"piped"});
    append_lines(text, scenario.boot, "boot ");
    for (std::size_t i = 0; i < scenario.steps.size(); ++i) {
        const Step &step = scenario.steps[i];
        append_lines(text, step.comments);
        append_head(text, step);
        append_lines(text, step.child_input, "< ");
        append_lines(text, step.body);
        // An empty line of output would read as the gap that ends a scenario.
        const bool gap_follows =
            i + 1 == scenario.steps.size() || !scenario.steps[i + 1].comments.empty();
        if (gap_follows && !step.body.empty() && step.body.back().empty())
            text.insert(text.size() - 1, "\\&");
    }
    return text;
}

std::string render_transcript(const std::vector<Scenario> &scenarios) {
    std::string text;
    for (const Scenario &scenario : scenarios) {
        if (!text.empty())
            text += '\n';
        text += render_scenario(scenario);
    }
    return text;
}

} // namespace session
