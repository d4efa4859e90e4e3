#include "commands/shared/address.h"

#include <array>
#include <cstring>

namespace {

using Octets = std::array<std::uint8_t, 4>;

Octets split_octets(const Ipv4Text &address) {
    Octets octets{};
    ipv4_parse_blank(address.data(), octets);
    return octets;
}

// 255, 254, 252, ... 128, 0: ones, then zeros.
bool is_mask_octet(std::uint8_t octet) {
    const unsigned zeros = 0xffU & ~static_cast<unsigned>(octet);
    return (zeros & (zeros + 1)) == 0;
}

bool take_last_address(CliContext &cli, Ipv4Text &text) {
    std::uint32_t address = 0;
    if (arg_ipv4(cli, address) == 0 || arg_count(cli) > 0)
        return false;
    text = ipv4_text(address);
    return true;
}

} // namespace

bool is_address(const char *word) {
    Octets octets{};
    return ipv4_parse_blank(word, octets) == 1;
}

bool is_host_address(const Ipv4Text &address) {
    const Octets octets = split_octets(address);
    return octets[0] != 127 && octets[0] >= 1 && octets[0] <= 223 && octets[3] >= 1 &&
           octets[3] <= 254;
}

bool is_netmask(const Ipv4Text &mask) {
    bool ones = true;
    for (const std::uint8_t octet : split_octets(mask)) {
        if (!is_mask_octet(octet) || (!ones && octet != 0))
            return false;
        ones = octet == 255;
    }
    return true;
}

bool take_host_address(CliContext &cli, Ipv4Text &address) {
    return take_last_address(cli, address) && is_host_address(address);
}

bool take_netmask(CliContext &cli, Ipv4Text &mask) {
    static constexpr Ipv4Text ALL_ONES = {"255.255.255.255"};
    const char *word = arg_peek(cli, 0);
    // arg_ipv4 refuses this word, which is a valid mask.
    if (word != nullptr && std::strcmp(word, ALL_ONES.data()) == 0) {
        arg_next(cli);
        mask = ALL_ONES;
        return arg_count(cli) == 0;
    }
    return take_last_address(cli, mask) && is_netmask(mask);
}
