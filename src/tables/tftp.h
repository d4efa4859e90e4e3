#pragma once

#include "commands/transfer.h"

inline constinit auto tftp_table = join_rows(transfer_tftp_rows);
