// Plays transcript files on the stand-in device: each file is a test suite, each of its scenarios
// a test. With --update, what happens is written into the files instead.
//
// usage: transcript_test --enter PATH --root DIRECTORY --program PATH [--swapped] [--machine]
//                        [--update]
//                        [GoogleTest's options] FILE...
// environment: WAP_TIME_SCALE multiplies the time limits (for slow, emulated programs);
//              WAP_KEEP_STATE keeps the device's state of failed scenarios.

#include "comparison.h"
#include "scenario_runner.h"
#include "scratch_directory.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iostream>
#include <map>
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
        else if (words[i] == "--machine")
            arguments.options.machine = true;
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

class ScenarioTest : public testing::Test {
public:
    ScenarioTest(Scenario &scenario, const Arguments &arguments)
        : scenario_(scenario), arguments_(arguments) {}

    void TestBody() override {
        ScratchDirectory state;
        try {
            const Scenario happened = play_scenario(scenario_, arguments_.options, state.path());
            if (arguments_.update)
                scenario_ = happened;
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
    Scenario &scenario_;
    const Arguments &arguments_;
};

std::string test_name(std::string title) {
    std::replace_if(
        title.begin(), title.end(), [](unsigned char c) { return !std::isalnum(c); }, '_');
    return title;
}

session::Transcript read_transcript(const std::string &file) {
    std::ifstream stream(file);
    std::stringstream text;
    text << stream.rdbuf();
    if (!stream)
        return {.error = "cannot be read"};
    return session::parse_transcript(text.str());
}

// Registers a test for each scenario that is no note. Returns what is wrong with the transcript.
std::string register_tests(const std::string &file, session::Transcript &transcript,
                           const Arguments &arguments) {
    const std::string suite = std::filesystem::path(file).stem();
    std::set<std::string> names;
    for (Scenario &scenario : transcript.scenarios) {
        if (scenario.steps.empty())
            continue;
        const std::string name = test_name(scenario.title);
        if (!names.insert(name).second)
            return "two scenarios are titled " + scenario.title;
        testing::RegisterTest(suite.c_str(), name.c_str(), nullptr, nullptr, file.c_str(), 0,
                              [&scenario, &arguments]() -> testing::Test * {
                                  return new ScenarioTest(scenario, arguments);
                              });
    }
    return transcript.error.empty() && names.empty() ? "no scenario" : transcript.error;
}

} // namespace

int main(int argc, char **argv) {
    testing::InitGoogleTest(&argc, argv);
    std::signal(SIGPIPE, SIG_IGN); // a program that ends early closes its input
    const auto arguments = read_arguments({argv, argv + argc});
    if (!arguments) {
        std::cerr << "usage: transcript_test --enter PATH --root DIRECTORY --program PATH "
                     "[--swapped] [--machine] [--update] FILE...\n";
        return 2;
    }
    std::map<std::string, session::Transcript> transcripts;
    for (const std::string &file : arguments->files) {
        session::Transcript &transcript = transcripts[file] = read_transcript(file);
        const std::string error = register_tests(file, transcript, *arguments);
        if (!error.empty()) {
            std::cerr << file << ": " << error << '\n';
            return 1;
        }
    }
    const int result = RUN_ALL_TESTS();
    for (const auto &[file, transcript] : transcripts) {
        if (arguments->update)
            std::ofstream(file) << render_transcript(transcript.scenarios);
    }
    return result;
}
