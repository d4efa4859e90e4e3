// The reference as documents.
#pragma once

#include "reference.h"

#include <ostream>
#include <string>
#include <vector>

// docs/commands.md: every command with what it prints, writes, runs and restarts.
void write_markdown(std::ostream &out, const std::vector<Topic> &topics);

// docs/wap-cli.8, the manual page of this version.
void write_manual(std::ostream &out, const std::vector<Topic> &topics, const std::string &version);

// A service that `set apply` restarts.
struct Service {
    std::uint32_t bit;
    const char *name;
    const char *meaning;
};

// The services of these bits, in the order in which they are restarted.
std::vector<Service> services_of(std::uint32_t bits);

// The names of the same, separated by commas.
std::string service_names(std::uint32_t bits);
