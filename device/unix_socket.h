// Sockets of this machine, which have a path.
#pragma once

#include "config/unique_fd.h"

#include <string>

// Both take the socket's type with its flags, such as SOCK_STREAM | SOCK_NONBLOCK. They return no
// descriptor, with errno set, when that failed.
UniqueFd connect_to(const std::string &path, int type);
UniqueFd listen_at(const std::string &path, int type); // in place of what is there
