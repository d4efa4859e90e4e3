// Rules for addresses that the administrator types.
#pragma once

#include "shell/args.h"

// True when a word reads as an IPv4 address, as for ipv4_parse_blank.
bool is_address(const char *word);

// True when a canonical dotted address can be a host's: first octet 1..223 but not 127, last octet
// 1..254.
bool is_host_address(const Ipv4Text &address);

// True when a canonical dotted mask is contiguous, from 0.0.0.0 to 255.255.255.255.
bool is_netmask(const Ipv4Text &mask);

// Takes the next word, which must be the last, as a host address in canonical form. False when it
// is missing (after arg_ipv4's message), malformed, no host's or followed by another word.
bool take_host_address(CliContext &cli, Ipv4Text &address);

// The same for a netmask.
bool take_netmask(CliContext &cli, Ipv4Text &mask);
