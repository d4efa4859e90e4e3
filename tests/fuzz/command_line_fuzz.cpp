// Words of others in command lines: the shell reads back each word as it was.
#include "fuzz_target.h"

#include "config/command_line.h"
#include "unit/shell_boundary.h"

#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    std::vector<std::string> words;
    for (const std::string_view part : split_at(fuzz_text(data, size), '\0'))
        words.emplace_back(part);
    words.resize(2);
    const CommandLine line("tool -r %s -l /tmp/%s -n %d ",
                           {ShellWord(words[0].c_str()), ShellWord(words[1].c_str()), -7});
    if (!line.is_whole())
        return 0;
    const auto read_back = shell_words(line.text());
    require(read_back.has_value());
    if (std::string_view(line.text()).size() == CommandLine::LIMIT)
        return 0;
    std::vector<std::string> expected{"tool", "-r", words[0], "-l", "/tmp/" + words[1], "-n", "-7"};
    std::erase(expected, "");
    require(*read_back == expected);
    return 0;
}
