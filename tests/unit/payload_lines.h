// Lines whose words try to reach the system shell.
#pragma once

#include <array>
#include <string>
#include <vector>

// "%" stands for the word that tries, between words that get commands past their checks.
inline constexpr std::array PAYLOAD_PATTERNS{
    "%", "% %", "% % % %", "% 1.2.3.4", "% 1.2.3.4 % %", "00:11:22:33:44:55 % % %", "1 %", "% 1",
};

// `path` with the words of a pattern, "%" replaced by `payload`.
inline std::string payload_line(const std::string &path, const std::string &pattern,
                                const std::string &payload) {
    std::string line = path + ' ';
    for (const char c : pattern)
        line += c == '%' ? payload : std::string(1, c);
    return line;
}

// Words that would make a shell do more than it is told if they reached it bare: run `command` (a
// word without blanks), open or close quotes, expand, redirect.
inline std::vector<std::string> payloads(const std::string &command) {
    return {";" + command + ";",
            "|" + command,
            "&" + command + "&",
            "&&" + command,
            "||" + command,
            "$(" + command + ")",
            "`" + command + "`",
            "a>" + command,
            "a<" + command,
            "';" + command + ";'",
            "\";" + command + ";\"",
            "\\';" + command + ";\\'",
            "'\"'\"';" + command,
            "\\",
            "'",
            "$IFS*?[a]{b,c}~!!#^=",
            "-",
            "--;" + command,
            "\x01\x7f\xff;" + command,
            std::string(1000, '\'') + ";" + command};
}
