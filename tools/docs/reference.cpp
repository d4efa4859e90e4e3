#include "reference.h"

#include "shell/builtins.h"
#include "shell/command.h"
#include "syntax.h"
#include "tables/root.h"

#include <algorithm>
#include <cstring>
#include <iostream>
#include <iterator>
#include <map>

namespace {

// Words of all kinds, to find out whether a command takes any.
constexpr const char *PROBES[] = {
    "0",
    "1",
    "x",
    "enable",
    "192.168.0.77",
    "00:1a:2b:3c:4d:5e",
    "1 1",
    "x x",
    "x 1",
    "1 x x",
    "1 1 1 1",
    "x x x x x",
    "x x x x x x",
    "1 name x",
    "1 1 00:1a:2b:3c:4d:5e",
    "192.168.0.77 00:1a:2b:3c:4d:5e",
    "00:1c:b3:09:85:15",
    "1 0 0 x x x x x x",
};

std::string tag_name(const CliCommand &row) {
    if (row.tag == nullptr)
        return "";
    return std::strcmp(row.tag, DEBUG_TAG) == 0 ? "debug" : "hidden";
}

std::string text_or_empty(const char *text) {
    return text != nullptr ? text : "";
}

// Sets the node of a line "PATH = VALUE"; types any other.
Answer play_line(const std::string &line) {
    const std::size_t equals = line.find(" =");
    if (!line.starts_with('/') || equals == std::string::npos)
        return type_line(line);
    set_trial_node(line.substr(0, equals), line.substr(std::min(equals + 3, line.size())));
    return {};
}

Answer answer_of(const std::vector<std::string> &lines) {
    restart_trial_device();
    Answer last;
    for (const std::string &line : lines)
        last = play_line(line);
    return last;
}

class ReferenceMaker {
public:
    explicit ReferenceMaker(std::string file) : file_(std::move(file)) {}

    std::vector<Topic> make() {
        const std::vector<SyntaxLine> lines = read_syntax_lines(file_);
        if (lines.empty())
            return {};
        for (const SyntaxLine &line : lines) {
            if (!add_line(line, root_table(), ""))
                disagree(line, "there is no command '" + line.syntax + "'");
        }
        walk(root_table(), "", "");
        std::stable_partition(topics_.begin(), topics_.end(), [](const Topic &topic) {
            return topic.path.find(' ') == std::string::npos;
        });
        return agreed_ ? topics_ : std::vector<Topic>();
    }

private:
    void disagree(const SyntaxLine &line, const std::string &what) {
        std::cerr << file_ << ':' << line.number << ": " << what << '\n';
        agreed_ = false;
    }

    // Enters a line for each leaf that its words lead to from `table`, after `path`. False when
    // there is none.
    bool add_line(const SyntaxLine &line, const CliCommand *table, const std::string &path) {
        const std::size_t depth = split_words(path).size();
        const std::vector<std::string> words = split_words(line.syntax);
        bool found = false;
        for (const CliCommand *row = table; depth < words.size() && row->handler != nullptr;
             ++row) {
            if (words[depth] != "*" && words[depth] != row->name)
                continue;
            SyntaxLine one = line;
            const std::string leaf = path + (path.empty() ? "" : " ") + row->name;
            one.syntax =
                join_words({words.begin() + static_cast<std::ptrdiff_t>(depth) + 1, words.end()});
            one.syntax = leaf + (one.syntax.empty() ? "" : " ") + one.syntax;
            if (row->subtable != nullptr) {
                found = add_line(one, row->subtable, leaf) || found;
            } else {
                if (found) // the others are shown for one row
                    one.others.clear();
                lines_[leaf].push_back(one);
                found = true;
            }
        }
        return found;
    }

    void walk(const CliCommand *table, const std::string &prefix, const std::string &tag) {
        const bool begins_topic = std::ranges::count(prefix, ' ') == 0 && !prefix.empty();
        for (const CliCommand *row = table; row->handler != nullptr; ++row) {
            const std::string path = prefix.empty() ? row->name : prefix + " " + row->name;
            const std::string row_tag = tag.empty() ? tag_name(*row) : tag;
            if (begins_topic || (prefix.empty() && row->subtable == nullptr)) {
                topics_.push_back(
                    {path, begins_topic ? prefix : "Console", text_or_empty(row->help), {}});
                refusals_.clear();
            }
            if (row->subtable != nullptr)
                walk(row->subtable, path, row_tag);
            else
                topics_.back().commands.push_back(describe(*row, path, row_tag));
        }
    }

    Command describe(const CliCommand &row, const std::string &path, const std::string &tag) {
        Command command{path, text_or_empty(row.help), tag, {path}, {}};
        if (row.handler == exit_console) // it would end this program too
            return command;
        const Answer plain = answer_of({path});
        const auto lines = lines_.find(path);
        if (lines == lines_.end()) {
            command.sessions.push_back({path, plain});
            check_ignores_words(path, plain);
            return command;
        }
        command.syntax.clear();
        add_refusal(command, path, plain);
        for (const SyntaxLine &line : lines->second) {
            const bool is_new = std::ranges::count(command.syntax, line.syntax) == 0;
            if (is_new)
                command.syntax.push_back(line.syntax);
            add_example(command, line, is_new, plain);
        }
        return command;
    }

    void check_ignores_words(const std::string &path, const Answer &plain) {
        for (const char *probe : PROBES) {
            if (answer_of({path + " " + probe}) == plain)
                continue;
            std::cerr << file_ << ": '" << path << "' takes words, such as '" << probe
                      << "'; a line must say which\n";
            agreed_ = false;
            return;
        }
    }

    // Each refusal is shown once in a topic.
    void add_refusal(Command &command, const std::string &typed, const Answer &refusal) {
        if (std::ranges::count(refusals_, refusal) != 0)
            return;
        refusals_.push_back(refusal);
        command.sessions.push_back({typed, refusal});
    }

    // `is_new`: no line before has its syntax.
    void add_example(Command &command, const SyntaxLine &line, bool is_new, const Answer &plain) {
        if (line.example.empty() && line.before.empty())
            return;
        if (is_new && line.syntax == command.path && line.example.empty())
            check_ignores_words(command.path, plain);
        for (const std::string &before : line.before)
            command.sessions.push_back({before, {}, true});
        const std::string typed = command.path + (line.example.empty() ? "" : " ") + line.example;
        const Answer answer = answer_behind(line, typed);
        command.sessions.push_back({typed, answer});
        if (line.before.empty() && answer == plain)
            disagree(line, "the example changes nothing");
        if (is_new)
            check_words(command, line, answer);
        for (const std::string &words : line.others) {
            const std::string other = command.path + " " + words;
            command.sessions.push_back({other, answer_behind(line, other)});
        }
    }

    static Answer answer_behind(const SyntaxLine &line, const std::string &typed) {
        answer_of(line.before);
        return type_line(typed, typed == "set apply");
    }

    // The example fits the words, and the program takes and refuses what they say.
    void check_words(Command &command, const SyntaxLine &line, const Answer &answer) {
        const std::vector<std::string> places =
            split_words(line.syntax.substr(command.path.size()));
        const std::vector<std::string> words = split_words(line.example);
        if (words.size() > places.size())
            disagree(line, "the example has more words");
        for (std::size_t at = 0; at < places.size(); ++at) {
            const WordSyntax place(places[at]);
            if (at >= words.size()) {
                if (!place.is_optional())
                    disagree(line, "the example lacks " + places[at]);
                return;
            }
            if (!place.fits(words[at]))
                disagree(line, "'" + words[at] + "' is no " + places[at]);
            if (at > 0)
                try_words(command, line, {words.begin(), words.begin() + static_cast<long>(at)},
                          answer);
            check_ends(command, line, place, at, answer);
        }
        try_words(command, line, split_words(line.example + " x"), answer);
    }

    // Types other words than the example's, and shows how they are refused. False when they are
    // taken; of a display, when it shows the same.
    bool try_words(Command &command, const SyntaxLine &line, const std::vector<std::string> &words,
                   const Answer &answer) {
        const std::string typed = command.path + " " + join_words(words);
        const Answer other = answer_behind(line, typed);
        if (answer.journal.empty()
                ? other == answer
                : is_like(other, answer) && other.journal.size() == answer.journal.size())
            return false;
        add_refusal(command, typed, other);
        return true;
    }

    void check_ends(Command &command, const SyntaxLine &line, const WordSyntax &place,
                    std::size_t at, const Answer &answer) {
        std::vector<std::string> words = split_words(line.example);
        for (const std::string &word : place.refused()) {
            words[at] = word;
            if (!try_words(command, line, words, answer))
                disagree(line, "'" + word + "' is taken");
        }
        if (place.is_limited()) {
            words[at] = "x";
            try_words(command, line, words, answer);
        }
        for (const std::string &word : place.taken()) {
            words[at] = word;
            const Answer taken = answer_behind(line, command.path + " " + join_words(words));
            if (!is_like(taken, answer) || (answer.journal.empty() && !place.refused().empty() &&
                                            std::ranges::count(refusals_, taken) != 0))
                disagree(line, "'" + word + "' is refused");
        }
    }

    // Whether a command did the same to other nodes, or with other values.
    static bool is_like(const Answer &first, const Answer &second) {
        return first.result == second.result && first.journal.empty() == second.journal.empty() &&
               first.pending == second.pending;
    }

    std::vector<Answer> refusals_; // of the topic
    std::string file_;
    std::map<std::string, std::vector<SyntaxLine>> lines_;
    std::vector<Topic> topics_;
    bool agreed_ = true;
};

} // namespace

std::vector<Topic> make_reference(const std::string &words_file) {
    return ReferenceMaker(words_file).make();
}
