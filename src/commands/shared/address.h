// The rules that addresses typed by the administrator must keep.
#pragma once

#include "shell/args.h"

// True when a word reads as an IPv4 address, as for ipv4_parse_blank.
bool is_address(const char *word);

// True when a canonical dotted address may be a host's: first octet 1..223 and not 127, the last
// one 1..254.
bool is_host_address(const Ipv4Text &address);

// True when a canonical dotted mask is contiguous, from 0.0.0.0 to 255.255.255.255.
bool is_netmask(const Ipv4Text &mask);

// Takes the next word, which must be the last, as a host address in canonical form. False when
// it is missing (after arg_ipv4's message), malformed, followed by another word, or no host's.
bool take_host_address(CliContext &cli, Ipv4Text &address);

// The same for a netmask.
bool take_netmask(CliContext &cli, Ipv4Text &mask);
