#pragma once

#include "commands/transfer.h"

inline constinit auto ftp_table = join_rows(transfer_ftp_rows);
