// The parsers of words: what they take is in range and reads the same when written out again.
#include "fuzz_target.h"

#include "config/device_utilities.h"
#include "shell/args.h"

#include <climits>
#include <cstring>
#include <memory>
#include <string>

namespace {

// Runs a reader on the line of one word.
template <class Read>
auto read_word(const std::string &word, Read read) {
    const auto cli = std::make_unique<CliContext>();
    std::string line = word;
    split_line(*cli, line.data());
    return read(*cli);
}

void check_addresses(const std::string &word) {
    std::uint32_t address = 0;
    if (read_word(word, [&](CliContext &cli) { return arg_ipv4(cli, address); }) == 1) {
        std::uint32_t again = 0;
        const std::string text = ipv4_text(address).data();
        require(read_word(text, [&](CliContext &cli) { return arg_ipv4(cli, again); }) == 1);
        require(again == address && address != UINT32_MAX);
    }
    MacText mac{};
    if (read_word(word, [&](CliContext &cli) { return arg_mac(cli, mac); }) == 1)
        require(std::strlen(mac.data()) == 17);
    std::array<std::uint8_t, 6> bytes{};
    if (mac_parse(word.c_str(), bytes) == 1)
        require(bytes != std::array<std::uint8_t, 6>{});
    std::array<std::uint8_t, 4> parts{};
    ipv4_parse_blank(word.c_str(), parts);
}

void check_numbers(const std::string &word) {
    for (const int base : {0, 10, 16}) {
        std::uint32_t number = 0;
        read_word(word, [&](CliContext &cli) { return arg_uint(cli, number, base); });
    }
    std::int32_t number = 0;
    if (int_parse_blank(word.c_str(), number) == 1 && word.find('\v') == std::string::npos &&
        word.find_first_of("0123456789") != std::string::npos)
        require(number == decimal_value(word.c_str()));
    require(in_range(word.c_str(), INT_MIN, INT_MAX) == 1);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    std::string word(fuzz_text(data, size));
    word = word.c_str(); // words end at a NUL
    check_addresses(word);
    check_numbers(word);
    cut_trailing_blanks(word.data());
    require(*skip_leading_blanks(word.c_str()) != ' ');
    return 0;
}
