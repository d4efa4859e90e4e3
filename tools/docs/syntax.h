// The table of words: what each command takes after its path, with an example.
//
// A line is a command with its words, then after a bar the words of the example:
//
//     set dtim <1-15> | 7
//
// A "*" in the path stands for each row of the table there. A second bar is followed by lines,
// separated by semicolons, that prepare the example: commands, or "PATH = VALUE" for a node of the
// database; a third one by other words to show in its place. A command that takes one of several
// forms has several lines, and may have several examples of one form; one that refuses all words
// has a line without words and example. A line that begins with a blank continues the one before.
// Empty lines and those that begin with # are ignored. The words:
//
//     enable|disable     one of these
//     <name>             a word of the named kind
//     <name:1-32>        the same, with this many characters
//     <0|300-99999>      one of these numbers
//     [word]             optional, like all that follow
#pragma once

#include <string>
#include <string_view>
#include <vector>

// A kind of words that many commands take.
struct WordKind {
    std::string_view name;
    std::string_view numbers; // "1-3"; "" when it is no number
    std::string_view meaning;
};

inline constexpr WordKind WORD_KINDS[] = {
    {"ip", "", "the IPv4 address of a host, 192.168.0.50"},
    {"address", "", "any IPv4 address"},
    {"netmask", "", "an IPv4 netmask, 255.255.255.0"},
    {"mac", "", "a MAC address, 00:1a:2b:3c:4d:5e"},
    {"slot", "1-3", "a multi-SSID slot, 1 to 3"},
    {"wpa-slot", "", "a slot whose authentication type is one of WPA"},
    {"key", "1-4", "a WEP key, 1 to 4"},
    {"vid", "1-4094", "a VLAN ID, 1 to 4094"},
    {"group-vid", "", "a VLAN ID that has a group"},
    {"peer", "1-4", "a WDS link, 1 to 4"},
    {"pool", "1-4", "an address pool of limited administration, 1 to 4"},
    {"rule", "1-64", "a QoS rule, 1 to 64"},
};

struct SyntaxLine {
    int number;          // in its file
    std::string syntax;  // "set dtim <1-15>"
    std::string example; // "7"
    std::vector<std::string> before;
    std::vector<std::string> others;
};

// The lines of a file; those that cannot be read are reported on standard error, and none is
// returned then.
std::vector<SyntaxLine> read_syntax_lines(const std::string &file);

std::vector<std::string> split_words(std::string_view text, char separator = ' ');
std::string join_words(const std::vector<std::string> &words, std::string_view separator = " ");

// The syntax of one word.
class WordSyntax {
public:
    explicit WordSyntax(std::string_view text);

    [[nodiscard]] bool is_optional() const { return optional_; }

    // Whether the syntax says what is taken.
    [[nodiscard]] bool is_limited() const { return is_limited_; }

    // Words at the ends of what is taken, and words right beyond these ends; none where the syntax
    // says nothing of ends.
    [[nodiscard]] const std::vector<std::string> &taken() const { return taken_; }
    [[nodiscard]] const std::vector<std::string> &refused() const { return refused_; }

    // Whether a word fits, as far as the syntax says.
    [[nodiscard]] bool fits(std::string_view word) const;

private:
    struct Range {
        long low;
        long high;
    };

    void add_numbers(std::string_view numbers);
    void add_lengths(std::string_view range);

    bool optional_ = false;
    bool is_limited_ = true;
    std::vector<std::string> literals_;
    std::vector<Range> numbers_;
    std::vector<Range> lengths_;
    std::vector<std::string> taken_;
    std::vector<std::string> refused_;
};
