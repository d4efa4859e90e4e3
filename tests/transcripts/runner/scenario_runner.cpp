#include "scenario_runner.h"

#include "comparison.h"
#include "database_control.h"
#include "session/console_session.h"
#include "session/journal_reader.h"
#include "session/transcript_text.h"

#include <algorithm>
#include <fstream>

using session::Scenario;
using session::Step;
using session::StepKind;

namespace {

// The device, its console and its database during one scenario.
class Player {
public:
    Player(const Scenario &scenario, const RunnerOptions &options, const std::string &state)
        : database_(state + "/var/run/xmldb_sock", options.swapped),
          journal_(state + "/var/journal"),
          console_({options.enter, "--own-terminal", "--root", options.root, "--program",
                    options.program, "--state", state},
                   scenario.piped ? session::ConsoleInput::PIPE : session::ConsoleInput::TERMINAL,
                   options.machine ? state + "/machine/link" : "", options.limit) {}

    // Plays one step. Result: its body.
    std::vector<std::string> play(const Step &step);

    // Ends the program as at end of input. Result: the body of a step that tells how that went
    // wrong; nothing when it ended with status 0, or had ended before.
    std::vector<std::string> end();

private:
    std::string print(const Step &step);
    std::vector<std::string> body(const std::string &printed);

    DatabaseControl database_;
    session::JournalReader journal_;
    session::ConsoleSession console_;
};

// A node's text may hold escapes; a blank that an editor cut off behind the "=" is no loss.
void set_given(const DatabaseControl &database, const std::string &text) {
    const std::size_t equals = text.find(" =");
    const std::size_t value = std::min(equals + 3, text.size());
    database.set(text.substr(0, equals), session::unescape(text.substr(value)).value());
}

std::string child_input(const Step &step) {
    std::string input;
    for (const std::string &line : step.child_input)
        input.append(line) += '\n';
    return input;
}

std::string Player::print(const Step &step) {
    switch (step.kind) {
    case StepKind::START:
        return console_.start();
    case StepKind::COMMAND:
        return console_.run_line(step.text, child_input(step));
    case StepKind::KEYS:
        return console_.press(session::unescape(step.text).value());
    case StepKind::END_OF_INPUT:
        return console_.end_input();
    case StepKind::GIVEN:
        set_given(database_, step.text);
        return {};
    case StepKind::STOP:
        database_.stop();
        return {};
    }
    return {};
}

std::vector<std::string> Player::body(const std::string &printed) {
    std::vector<std::string> lines = session::output_lines(printed);
    for (const std::string &line : journal_.new_lines()) {
        if (session::is_console_action(line))
            lines.push_back(session::journal_line(line));
    }
    if (console_.ended())
        lines.push_back(session::exit_line(console_.exit_status()));
    return lines;
}

std::vector<std::string> Player::play(const Step &step) {
    if (console_.ended())
        return {};
    const std::string printed = print(step);
    if (step.kind == StepKind::GIVEN || step.kind == StepKind::STOP)
        return {};
    return body(printed);
}

std::vector<std::string> Player::end() {
    if (console_.ended())
        return {};
    const std::string printed = console_.end_input();
    if (console_.exit_status() == 0)
        return {};
    return body(printed);
}

} // namespace

Scenario play_scenario(const Scenario &scenario, const RunnerOptions &options,
                       const std::string &state_directory) {
    if (!scenario.boot.empty()) {
        std::ofstream boot(state_directory + "/boot.sh");
        for (const std::string &command : scenario.boot)
            boot << command << '\n';
    }
    Player player(scenario, options, state_directory);
    Scenario happened = scenario;
    for (Step &step : happened.steps)
        step.body = keep_patterns(step.body, player.play(step));
    std::vector<std::string> bad_end = player.end();
    if (!bad_end.empty())
        happened.steps.push_back({.kind = StepKind::END_OF_INPUT, .body = std::move(bad_end)});
    return happened;
}
