// Plays transcript files on the stand-in device: each file is a test suite, each of its scenarios
// a test. With --update, rewrites the files with what happens instead.
//
// usage: transcript_test --enter PATH --root DIRECTORY --program PATH [--swapped] [--update]
//                        [GoogleTest's options] FILE...
// environment: WAP_TIME_SCALE multiplies the time limits (for slow, emulated programs);
//              WAP_KEEP_STATE keeps the device's state of failed scenarios.

#include "comparison.h"
#include "scenario_runner.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iostream>
#include <set>
#include <sstream>

using session::Scenario;

namespace {

constexpr std::chrono::milliseconds STEP_LIMIT{60'000};

struct Arguments {
    RunnerOptions options{};
    bool update = false;
    std::vector<std::string> files{};
};

std::optional<Arguments> read_arguments(const std::vector<std::string> &words) {
    Arguments arguments;
    for (std::size_t i = 1; i < words.size(); ++i) {
        std::string *value = words[i] == "--enter"     ? &arguments.options.enter
                             : words[i] == "--root"    ? &arguments.options.root
                             : words[i] == "--program" ? &arguments.options.program
                                                       : nullptr;
        if (value && i + 1 < words.size())
            *value = words[++i];
        else if (words[i] == "--swapped")
            arguments.options.swapped = true;
        else if (words[i] == "--update")
            arguments.update = true;
        else if (words[i].starts_with("--"))
            return std::nullopt;
        else
            arguments.files.push_back(words[i]);
    }
    const char *scale = std::getenv("WAP_TIME_SCALE");
    arguments.options.limit = STEP_LIMIT * std::max(scale ? std::atoi(scale) : 1, 1);
    if (arguments.options.enter.empty() || arguments.options.root.empty() ||
        arguments.options.program.empty() || arguments.files.empty())
        return std::nullopt;
    return arguments;
}

session::Transcript read_transcript(const std::string &file) {
    std::ifstream stream(file);
    std::stringstream text;
    text << stream.rdbuf();
    if (!stream)
        return {.error = "cannot be read"};
    return session::parse_transcript(text.str());
}

bool is_note(const Scenario &scenario) {
    return scenario.steps.empty();
}

class ScenarioTest : public testing::Test {
public:
    ScenarioTest(Scenario scenario, RunnerOptions options)
        : scenario_(std::move(scenario)), options_(std::move(options)) {}

    void TestBody() override {
        StateDirectory state;
        try {
            const Scenario happened = play_scenario(scenario_, options_, state.path());
            const std::string diff =
                unified_diff(render_scenario(scenario_), render_scenario(happened), state.path());
            if (!diff.empty())
                ADD_FAILURE() << diff;
        } catch (const std::exception &error) {
            ADD_FAILURE() << error.what();
        }
        if (HasFailure() && std::getenv("WAP_KEEP_STATE")) {
            state.keep();
            std::cout << "state kept in " << state.path() << '\n';
        }
    }

private:
    Scenario scenario_;
    RunnerOptions options_;
};

std::string test_name(std::string title) {
    std::replace_if(
        title.begin(), title.end(), [](unsigned char c) { return !std::isalnum(c); }, '_');
    return title;
}

// False, with a message, when the file is no transcript or has two scenarios of one name.
bool register_file(const std::string &file, const RunnerOptions &options) {
    const session::Transcript transcript = read_transcript(file);
    if (!transcript.error.empty()) {
        std::cerr << file << ": " << transcript.error << '\n';
        return false;
    }
    const std::string suite = std::filesystem::path(file).stem();
    std::set<std::string> names;
    for (const Scenario &scenario : transcript.scenarios) {
        if (is_note(scenario))
            continue;
        const std::string name = test_name(scenario.title);
        if (!names.insert(name).second) {
            std::cerr << file << ": two scenarios are titled " << scenario.title << '\n';
            return false;
        }
        testing::RegisterTest(suite.c_str(), name.c_str(), nullptr, nullptr, file.c_str(), 0,
                              [scenario, options]() -> testing::Test * {
                                  return new ScenarioTest(scenario, options);
                              });
    }
    if (names.empty())
        std::cerr << file << ": no scenario\n";
    return !names.empty();
}

bool update_file(const std::string &file, const RunnerOptions &options) {
    session::Transcript transcript = read_transcript(file);
    if (!transcript.error.empty()) {
        std::cerr << file << ": " << transcript.error << '\n';
        return false;
    }
    for (Scenario &scenario : transcript.scenarios) {
        if (is_note(scenario))
            continue;
        try {
            const StateDirectory state;
            scenario = play_scenario(scenario, options, state.path());
        } catch (const std::exception &error) {
            std::cerr << file << ": " << scenario.title << ": " << error.what() << '\n';
            return false;
        }
    }
    std::ofstream(file) << render_transcript(transcript.scenarios);
    return true;
}

} // namespace

int main(int argc, char **argv) {
    testing::InitGoogleTest(&argc, argv);
    std::signal(SIGPIPE, SIG_IGN); // a program that ends early closes its input
    const auto arguments = read_arguments({argv, argv + argc});
    if (!arguments) {
        std::cerr << "usage: transcript_test --enter PATH --root DIRECTORY --program PATH "
                     "[--swapped] [--update] FILE...\n";
        return 2;
    }
    bool good = true;
    for (const std::string &file : arguments->files)
        good = (arguments->update ? update_file(file, arguments->options)
                                  : register_file(file, arguments->options)) &&
               good;
    if (arguments->update)
        return good ? 0 : 1;
    return good ? RUN_ALL_TESTS() : 1;
}
