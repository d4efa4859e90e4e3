// Node trees in files and messages.
//
// XML, for the factory settings and the settings saved to flash: an element for each segment, its
// text in the attribute "value", the instance of a list in "id". /wlan/inf:1/ssid is
//     <config><wlan><inf id="1"><ssid value="..."/></inf></wlan></config>
// A segment that is no XML name is written <node name="SEGMENT">.
//
// Text, for dumps and configuration images: a line "/PATH = TEXT" for each node; "\\", "\n" and
// "\r" stand for these bytes. Lines that are empty or begin with '#' are ignored.
//
// Nodes with an empty text read as if they were absent, so neither form lists them; and both list
// in the order of the paths, so that equal trees give equal files.
#pragma once

#include "node_tree.h"

#include <optional>
#include <string>
#include <string_view>

enum class Selection {
    ALL,
    SETTINGS, // all but the run-time values
};

std::string tree_to_text(const NodeTree &tree, Selection selection);
std::string tree_to_xml(const NodeTree &tree, Selection selection);

// The tree that a text or XML document (one that begins with '<') describes; nothing when it is
// malformed or describes no node.
std::optional<NodeTree> parse_tree(std::string_view document);

// Reads and parses a regular file; nothing when it cannot be read or parsed.
std::optional<NodeTree> load_tree_file(const std::string &file);

// Writes the text to `file` by way of a new file beside it, so that a failure leaves the
// old one. False, with errno set, when that failed.
bool replace_file(const std::string &file, std::string_view text);
