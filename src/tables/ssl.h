#pragma once

#include "commands/factory.h"

inline constinit auto ssl_table = join_rows(factory_ssl_rows);
