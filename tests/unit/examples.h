// Every command as its examples in the reference type it, and the settings that they begin with.
#pragma once

#include "../../tools/docs/syntax.h"
#include "table_walk.h"
#include "xmldb/config_file.h"

#include <algorithm>
#include <string>
#include <vector>

// Calls visit(path, line, before) for each command alone and for each of its examples, which stand
// behind the lines of `before`: commands, or "PATH = VALUE" for a node.
template <class Visit>
void walk_examples(Visit visit) {
    static const std::vector<SyntaxLine> SYNTAX =
        read_syntax_lines(WAP_SOURCE "/tools/docs/words.txt");
    walk_commands([&visit](const CliCommand &, const std::string &path) {
        const std::vector<std::string> words = split_words(path);
        const auto is_for = [&words](const SyntaxLine &line) {
            const std::vector<std::string> typed = split_words(line.syntax);
            return typed.size() >= words.size() &&
                   std::equal(words.begin(), words.end(), typed.begin(),
                              [](const auto &word, const auto &place) {
                                  return place == "*" || place == word;
                              });
        };
        visit(path, path, std::vector<std::string>());
        for (const SyntaxLine &line : SYNTAX) {
            if (!is_for(line))
                continue;
            visit(path, join_words({path, line.example}), line.before);
            for (const std::string &other : line.others)
                visit(path, join_words({path, other}), line.before);
        }
    });
}

// The database of a device that has just started.
inline NodeTree first_start() {
    NodeTree tree;
    for (const char *file : {"factory.xml", "runtime.xml"})
        tree.replace_by(load_tree_file(std::string(WAP_SOURCE "/device/root/etc/") + file).value());
    return tree;
}
