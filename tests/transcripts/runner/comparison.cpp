#include "comparison.h"

#include "session/transcript_text.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <fstream>
#include <regex>

namespace {

bool describes(const std::string &expected, const std::string &happened) {
    if (session::line_kind(expected) != session::LineKind::PATTERN)
        return expected == happened;
    const std::string pattern(session::line_argument(expected));
    return std::regex_match(happened, std::regex(pattern));
}

} // namespace

std::vector<std::string> keep_patterns(const std::vector<std::string> &expected,
                                       std::vector<std::string> happened) {
    constexpr std::string_view REST = "  ...";
    if (!expected.empty() && expected.back() == REST && happened.size() >= expected.size() &&
        happened[expected.size() - 1].starts_with("  ")) {
        happened.resize(expected.size());
        happened.back() = REST;
    }
    // common[i][j]: the most lines that expected from i and happened from j can have in common.
    std::vector<std::vector<std::size_t>> common(expected.size() + 1,
                                                 std::vector<std::size_t>(happened.size() + 1, 0));
    for (std::size_t i = expected.size(); i-- > 0;) {
        for (std::size_t j = happened.size(); j-- > 0;)
            common[i][j] = describes(expected[i], happened[j])
                               ? common[i + 1][j + 1] + 1
                               : std::max(common[i + 1][j], common[i][j + 1]);
    }
    std::vector<std::string> kept = happened;
    for (std::size_t i = 0, j = 0; i < expected.size() && j < happened.size();) {
        if (describes(expected[i], happened[j]))
            kept[j++] = expected[i++];
        else if (common[i + 1][j] >= common[i][j + 1])
            ++i;
        else
            ++j;
    }
    return kept;
}

std::string unified_diff(const std::string &expected, const std::string &happened,
                         const std::string &directory) {
    if (expected == happened)
        return {};
    std::ofstream(directory + "/expected") << expected;
    std::ofstream(directory + "/happened") << happened;
    const std::string command =
        "cd '" + directory + "' && diff -u --label expected --label happened expected happened";
    FILE *pipe = popen(command.c_str(), "r"); // NOLINT(cert-env33-c)
    std::string diff;
    std::array<char, 4096> part{};
    while (pipe && fgets(part.data(), part.size(), pipe))
        diff += part.data();
    if (pipe)
        pclose(pipe);
    return diff.empty() ? "the texts differ, and diff does not run\n" : diff;
}
