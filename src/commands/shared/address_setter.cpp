#include "commands/shared/address_setter.h"

#include "commands/shared/address.h"
#include "config/apply.h"
#include "config/node_access.h"
#include "shell/output.h"

namespace {

int write_address(const Ipv4Text &address, const char *path, std::uint32_t apply_bits) {
    cfg_set_plain(address.data(), path);
    return mark_for_apply(apply_bits);
}

} // namespace

int write_host_address(CliContext &cli, const char *path, std::uint32_t apply_bits,
                       const char *message) {
    Ipv4Text address{};
    if (!take_host_address(cli, address))
        return refuse("%s", message);
    return write_address(address, path, apply_bits);
}

int write_netmask(CliContext &cli, const char *path, std::uint32_t apply_bits) {
    Ipv4Text mask{};
    if (!take_netmask(cli, mask))
        return refuse("NO Netmask Address!\n");
    return write_address(mask, path, apply_bits);
}
