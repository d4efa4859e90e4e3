// Rows that store an address of the device: the administrator's only word, in canonical form.
#pragma once

#include "commands/shared/fixed_value.h"

// Writes a host address to the node of `path` and sets the apply bits. Returns 0; or -1, with
// nothing written, after `message`.
int write_host_address(CliContext &cli, const char *path, std::uint32_t apply_bits,
                       const char *message);

// The same for a netmask, refused with "NO Netmask Address!".
int write_netmask(CliContext &cli, const char *path, std::uint32_t apply_bits);

// The handlers of such rows.

template <FixedText Path, std::uint32_t ApplyBits, FixedText Message>
int set_host_address(CliContext &cli, const char *, CliCommand *) {
    return write_host_address(cli, Path.text, ApplyBits, Message.text);
}

template <FixedText Path, std::uint32_t ApplyBits>
int set_netmask(CliContext &cli, const char *, CliCommand *) {
    return write_netmask(cli, Path.text, ApplyBits);
}
