#pragma once

#include "commands/factory.h"

inline constinit auto ssl_table = make_table(factory_ssl_rows);
