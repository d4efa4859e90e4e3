#include "shell/args.h"

#include "shell/output.h"

#include <arpa/inet.h>
#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <utility>

std::int32_t debug_print = 0;

namespace {

constexpr int IPV4_COMPONENTS = 4;
constexpr int MAC_COMPONENTS = 6;
constexpr unsigned long COMPONENT_LIMIT = 256;

// The ring slot `distance` (1 to RING_SLOTS) places before the head.
std::size_t slot_before_head(const CliContext &cli, int distance) {
    const int slot = cli.ring_head - distance;
    return static_cast<std::size_t>(slot < 0 ? slot + CliContext::RING_SLOTS : slot);
}

void echo_for_debugging(const char *word) {
    if (debug_print != 0)
        cli_printf("p: %s, len: %d\n", word, static_cast<int>(std::strlen(word)));
}

// Walks a word of `components` numbers with any one character between them. The last number's range
// is left to the caller's conversion unless `check_last`.
bool walk_components(const char *word, int components, int base, bool check_last) {
    const char *at = word;
    for (int component = 1; component <= components; ++component) {
        char *end = nullptr;
        const unsigned long number = std::strtoul(at, &end, base);
        const bool last = *end == '\0';
        if ((!last || check_last) && number >= COMPONENT_LIMIT)
            return false;
        if (last)
            return component == components;
        if (end == at)
            return false;
        at = end + 1;
    }
    return false;
}

bool is_digit(char c) {
    return c >= '0' && c <= '9';
}

} // namespace

// The unread words are contiguous, the newest just before the head: words are added at the head,
// and only the oldest is ever removed.
int arg_count(const CliContext &cli) {
    int count = 0;
    while (count < CliContext::RING_SLOTS &&
           cli.argument_ring[slot_before_head(cli, count + 1)] != nullptr)
        ++count;
    return count;
}

char *arg_next(CliContext &cli) {
    const int count = arg_count(cli);
    if (count == 0)
        return nullptr;
    return std::exchange(cli.argument_ring[slot_before_head(cli, count)], nullptr);
}

char *arg_peek(const CliContext &cli, int n) {
    const int distance = arg_count(cli) - n;
    return distance > 0 ? cli.argument_ring[slot_before_head(cli, distance)] : nullptr;
}

int arg_uint(CliContext &cli, std::uint32_t &value, int base) {
    ++cli.consumed_count;
    const char *word = arg_next(cli);
    if (word == nullptr)
        return refuse("Error -- No value specified\n");

    constexpr auto LARGEST = std::numeric_limits<std::uint32_t>::max();
    // Converted in 64 bits and saturated by hand, so that all platforms agree.
    const char *digits = word;
    while (std::isspace(static_cast<unsigned char>(*digits)) != 0)
        ++digits;
    const bool negative = *digits == '-';
    char *end = nullptr;
    errno = 0;
    unsigned long long number = std::strtoull(word, &end, base);
    if (negative && errno == 0)
        number = 0 - number;
    if (errno != 0 || number > LARGEST)
        value = LARGEST;
    else
        value = static_cast<std::uint32_t>(negative ? 0 - number : number);
    return end != word && *end == '\0' ? 0 : refuse("Invalid input\n");
}

int arg_ipv4(CliContext &cli, std::uint32_t &address) {
    ++cli.consumed_count;
    const char *word = arg_next(cli);
    if (word == nullptr) {
        cli_printf("No value specified\n");
        return 0;
    }
    echo_for_debugging(word);
    // The last component's size is left to the library.
    if (!walk_components(word, IPV4_COMPONENTS, 10, false))
        return 0;
    const in_addr_t converted = inet_addr(word);
    if (converted == INADDR_NONE)
        return 0;
    address = converted;
    return 1;
}

int arg_mac(CliContext &cli, MacText &mac) {
    ++cli.consumed_count;
    const char *word = arg_peek(cli, 0);
    if (word == nullptr) {
        cli_printf("No value specified\n");
        return 0;
    }
    echo_for_debugging(word);
    if (std::strlen(word) != mac.size() - 1 || !walk_components(word, MAC_COMPONENTS, 16, true))
        return 0;
    std::memcpy(mac.data(), word, mac.size());
    return 1;
}

int mac_parse(const char *text, std::array<std::uint8_t, 6> &mac) {
    unsigned long sum = 0;
    for (std::size_t byte = 0; byte < mac.size(); ++byte) {
        if (std::isxdigit(static_cast<unsigned char>(*text)) == 0)
            return 0;
        char *end = nullptr;
        const unsigned long value = std::strtoul(text, &end, 16);
        const bool last = byte + 1 == mac.size();
        if (end - text > 2 || *end != (last ? '\0' : ':'))
            return 0;
        mac[byte] = static_cast<std::uint8_t>(value);
        sum += value;
        text = end + 1;
    }
    return sum != 0 ? 1 : 0;
}

int ipv4_parse_blank(const char *text, std::array<std::uint8_t, 4> &address) {
    text = skip_leading_blanks(text);
    for (std::size_t byte = 0; byte < address.size(); ++byte) {
        unsigned value = 0;
        for (; is_digit(*text); ++text) {
            value = value * 10 + static_cast<unsigned>(*text - '0');
            if (value >= COMPONENT_LIMIT)
                return 0;
        }
        address[byte] = static_cast<std::uint8_t>(value);
        if (byte + 1 < address.size() && *text++ != '.')
            return 0;
    }
    return *skip_leading_blanks(text) == '\0' ? 1 : 0;
}

int int_parse_blank(const char *text, std::int32_t &value) {
    text = skip_leading_blanks(text);
    if (*text == '\0')
        return 0;
    const char *end = *text == '-' ? text + 1 : text;
    while (is_digit(*end))
        ++end;
    if (*skip_leading_blanks(end) != '\0')
        return 0;
    value = decimal_value(text);
    return 1;
}

int in_range(const char *text, int low, int high) {
    const int value = decimal_value(text);
    return low <= value && value <= high ? 1 : 0;
}

bool is_only_word_in(const CliContext &cli, int low, int high) {
    return arg_count(cli) == 1 && in_range(arg_peek(cli, 0), low, high) != 0;
}

Ipv4Text ipv4_text(std::uint32_t address) {
    Ipv4Text text{};
    const in_addr binary{.s_addr = address};
    inet_ntop(AF_INET, &binary, text.data(), text.size());
    return text;
}
