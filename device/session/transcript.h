// A transcript file: console sessions as readable text, described in tests/transcripts/README.md.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace session {

enum class StepKind {
    START,        // what is printed before the first prompt; always the first step, and only there
    COMMAND,      // a line typed at the prompt
    KEYS,         // raw bytes typed
    GIVEN,        // a node is set behind the console's back
    STOP,         // the database daemon ends
    END_OF_INPUT, // standard input ends
};

struct Step {
    StepKind kind = StepKind::START;
    std::string text{};                     // COMMAND: the line; KEYS, GIVEN: as it stands
    std::vector<std::string> comments{};    // "#" lines above it
    std::vector<std::string> child_input{}; // COMMAND: lines for a program that it starts
    std::vector<std::string> body{};        // output, patterns, journal, exit: transcript lines
};

struct Scenario {
    std::string title{};
    std::vector<std::string> comments{};
    bool piped = false; // standard input is a pipe
    std::vector<std::string> boot{};
    std::vector<Step> steps{}; // empty: a note to the reader
};

struct Transcript {
    std::vector<Scenario> scenarios{};
    std::string error{}; // why the text is no transcript, with its line number; else empty
};

Transcript parse_transcript(std::string_view text);

// The text that parse_transcript reads back into the same scenarios.
std::string render_transcript(const std::vector<Scenario> &scenarios);
std::string render_scenario(const Scenario &scenario);

} // namespace session
