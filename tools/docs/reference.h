// What the reference says about each command: from the command tables, from the table of words, and
// from trying it on a device that has just started.
#pragma once

#include "trial_device.h"

#include <string>
#include <vector>

// A typed line and what it did.
struct Session {
    std::string line;
    Answer answer;
    bool prepares = false; // only prepares a later line; may be "PATH = VALUE"
};

// A row that ends a path.
struct Command {
    std::string path;
    std::string help;
    std::string tag;                 // "", "hidden" or "debug"
    std::vector<std::string> syntax; // what may be typed, at least the path
    std::vector<Session> sessions;   // without words, with them, and with wrong ones

    [[nodiscard]] bool takes_words() const { return syntax.size() > 1 || syntax[0] != path; }
};

// The commands that one row of the root table, or of a table below it, leads to.
struct Topic {
    std::string path;    // one or two words
    std::string section; // the first of two, "Console" for one
    std::string help;
    std::vector<Command> commands;
};

// All topics, those of one word first, then the others in the order of the tables, with the words
// in the file. Nothing when the file and the program disagree; then the disagreements were printed
// on standard error: a line that is malformed or names no command, an example that changes nothing
// or does not fit its words, a range whose ends are not the program's, and a command that takes
// words and is not in the file.
std::vector<Topic> make_reference(const std::string &words_file);
