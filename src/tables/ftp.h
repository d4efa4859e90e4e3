#pragma once

#include "commands/transfer.h"

inline constinit auto ftp_table = make_table(transfer_ftp_rows);
