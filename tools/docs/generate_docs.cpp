// Writes the command reference, docs/commands.md and docs/wap-cli.8, from the command tables.
//
// Every leaf is run without words against a backend that only records. What a leaf does then is
// what its row knows; what it prints when it wants words says what they are.
//
// usage: generate_docs DIRECTORY
#include "recording_backend.h"

#include "shell/builtins.h"
#include "shell/command.h"
#include "shell/dispatch.h"
#include "tables/root.h"

#include <cstdio>
#include <cstring>
#include <fstream>
#include <functional>
#include <iostream>
#include <memory>
#include <sstream>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

struct Leaf {
    std::string path;
    std::string help;
    std::string tag; // "", "hidden" or "debug"
    std::vector<std::string> effects;
    std::vector<std::string> usage; // what it prints without words
};

// Standard output while it goes to a file instead.
class CapturedOutput {
public:
    CapturedOutput() : file_(std::tmpfile(), std::fclose), saved_(dup(STDOUT_FILENO)) {
        std::fflush(stdout);
        dup2(fileno(file_.get()), STDOUT_FILENO);
    }
    CapturedOutput(const CapturedOutput &) = delete;
    CapturedOutput &operator=(const CapturedOutput &) = delete;
    ~CapturedOutput() {
        std::fflush(stdout);
        dup2(saved_, STDOUT_FILENO);
        close(saved_);
    }

    std::string text() {
        std::fflush(stdout);
        std::rewind(file_.get());
        std::string all;
        for (int c = 0; (c = std::getc(file_.get())) != EOF;)
            all += static_cast<char>(c);
        return all;
    }

private:
    std::unique_ptr<std::FILE, int (*)(std::FILE *)> file_;
    int saved_;
};

std::vector<std::string> lines_of(const std::string &text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        if (line.find_first_not_of(" \t\r") != std::string::npos)
            lines.push_back(line);
    }
    return lines;
}

std::string tag_name(const CliCommand &row) {
    if (row.tag == nullptr)
        return "";
    return std::strcmp(row.tag, DEBUG_TAG) == 0 ? "debug" : "hidden";
}

Leaf describe(const CliCommand &row, const std::string &path, const std::string &tag) {
    Leaf leaf{path, row.help != nullptr ? row.help : "", tag, {}, {}};
    if (row.handler == exit_console) // it would end this program too
        return leaf;
    const auto cli = std::make_unique<CliContext>();
    cli->table_stack[0] = root_table();
    cli->depth = 1;
    recorded_effects.clear();
    current_command = const_cast<CliCommand *>(&row);
    CapturedOutput output;
    const int result = row.handler(*cli, row.name, row.subtable);
    leaf.effects = recorded_effects;
    if (result == CLI_REFUSED)
        leaf.usage = lines_of(output.text());
    return leaf;
}

void walk(const CliCommand *table, const std::string &prefix, const std::string &tag,
          std::vector<Leaf> &leaves) {
    for (const CliCommand *row = table; row->handler != nullptr; ++row) {
        const std::string path = prefix.empty() ? row->name : prefix + " " + row->name;
        const std::string row_tag = tag.empty() ? tag_name(*row) : tag;
        if (row->subtable != nullptr)
            walk(row->subtable, path, row_tag, leaves);
        else
            leaves.push_back(describe(*row, path, row_tag));
    }
}

std::string join(const std::vector<std::string> &parts, const char *separator) {
    std::string all;
    for (const std::string &part : parts)
        all += (all.empty() ? "" : separator) + part;
    return all;
}

std::string first_word(const std::string &path) {
    return path.substr(0, path.find(' '));
}

std::string replace_all(std::string text, const std::string &from, const std::string &to) {
    for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size())
        text.replace(at, from.size(), to);
    return text;
}

void write_markdown(std::ostream &out, const std::vector<Leaf> &leaves) {
    out << "# Commands\n\n"
           "Generated from the command tables by `tools/docs`; do not edit. *hidden*: must be\n"
           "typed in full, and is not listed while the debug level is locked; *debug*: exists "
           "only\n"
           "while it is unlocked. What a command writes or runs is told where it does so without\n"
           "further words; node paths are those of interface 1.\n";
    std::string section;
    for (const Leaf &leaf : leaves) {
        if (first_word(leaf.path) != section) {
            section = first_word(leaf.path);
            out << "\n## " << section << "\n";
        }
        out << "\n### `" << leaf.path << "`\n\n" << leaf.help;
        out << (leaf.tag.empty() ? "" : " (*" + leaf.tag + "*)") << "\n";
        for (const std::string &effect : leaf.effects)
            out << "\n- " << effect;
        if (!leaf.effects.empty())
            out << "\n";
        if (!leaf.usage.empty())
            out << "\nWithout words it says:\n\n    " << join(leaf.usage, "\n    ") << "\n";
    }
}

// A text for troff: no line may begin with a control character, backslashes are spelled out.
std::string troff(const std::string &text) {
    const std::string escaped = replace_all(replace_all(text, "\\", "\\e"), "-", "\\-");
    return escaped.find_first_of(".'") == 0 ? "\\&" + escaped : escaped;
}

void write_manual(std::ostream &out, const std::vector<Leaf> &leaves) {
    out << ".\\\" Generated from the command tables by tools/docs; do not edit.\n"
           ".TH WAP\\-CLI 8 \"\" \"wap\\-cli\" \"System administration\"\n"
           ".SH NAME\nwap\\-cli \\- command\\-line interface of the access point\n"
           ".SH SYNOPSIS\n.B wap\\-cli\n"
           ".SH DESCRIPTION\nReads commands at the prompt\n.RB \\(lq WAP\\-> \\(rq\n"
           "and changes the settings in the device's configuration database. Changes take effect\n"
           "at\n.BR \"set apply\" .\nA word may be shortened as long as the rest of the line "
           "tells\n"
           "which is meant. Tab completes, the arrow keys recall the last five lines.\n"
           ".SH EXIT STATUS\n0 at the end of input or after\n.BR exit ,\n"
           "255 when memory ran out at the start.\n.SH COMMANDS\n";
    for (const Leaf &leaf : leaves) {
        out << ".TP\n.B \"" << troff(leaf.path) << "\"\n" << troff(leaf.help);
        out << (leaf.tag.empty() ? "" : " (" + leaf.tag + ")") << "\n";
        for (const std::string &effect : leaf.effects)
            out << ".br\n" << troff(replace_all(effect, "`", "")) << "\n";
    }
    out << ".SH FILES\n.TP\n.I /var/run/xmldb_sock\nthe configuration database\n";
}

bool write_file(const std::string &path, const std::vector<Leaf> &leaves,
                const std::function<void(std::ostream &, const std::vector<Leaf> &)> &write) {
    std::ofstream file(path);
    write(file, leaves);
    file.close();
    if (!file)
        std::cerr << "cannot write " << path << "\n";
    return static_cast<bool>(file);
}

} // namespace

int main(int argc, char **argv) {
    if (argc != 2) {
        std::cerr << "usage: generate_docs DIRECTORY\n";
        return 2;
    }
    const std::string directory = argv[1];
    std::vector<Leaf> leaves;
    walk(root_table(), "", "", leaves);
    const bool written = write_file(directory + "/commands.md", leaves, write_markdown) &&
                         write_file(directory + "/wap-cli.8", leaves, write_manual);
    return written ? 0 : 1;
}
