#pragma once

#include "commands/snmp_community.h"
#include "commands/snmp_host.h"
#include "commands/snmp_trap.h"
#include "commands/snmp_usm.h"

inline constinit auto snmp_table = make_table(snmp_usm_snmp_rows, snmp_trap_snmp_rows,
                                              snmp_host_snmp_rows, snmp_community_snmp_rows);
