#pragma once

#include "commands/transfer.h"

inline constinit auto tftp_table = make_table(transfer_tftp_rows);
