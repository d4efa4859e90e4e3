// Moving configuration files and firmware between the device and a TFTP or FTP server.
#pragma once

#include "shell/command.h"

// A wrong number of words is refused with the usage.

// Words FILE HOST. Prints the tool's answer, up to 255 characters. A bad host is reported, but the
// tool runs. Deliberate.
CliHandler tftp_get_config;
CliHandler tftp_get_firmware;
CliHandler tftp_put_config;

// These two use a temporary file FILE in /tmp, and refuse a name that leads out of there.

// Sends the whole database as XML; a bad host is treated as above. The tools' answers are not
// shown.
CliHandler tftp_put_xml_config;

// Fetches such a file and loads it; a bad host and a missing or empty file are refused.
CliHandler tftp_get_xml_config;

// Words FILE HOST USER PASSWORD; a bad host is treated as for TFTP.
CliHandler ftp_get_config;
CliHandler ftp_get_firmware;
CliHandler ftp_put_config;

inline constexpr auto transfer_tftp_rows = command_rows({
    {"getxmlconfig", "Get XML configuration file from TFTP server", tftp_get_xml_config},
    {"getconfig", "Get configuration file from TFTP server", tftp_get_config},
    {"getfirmware", "Get firmware file from TFTP server", tftp_get_firmware},
    {"putconfig", "Put configuration file to TFTP server", tftp_put_config},
    {"putxmlconfig", "Put XML configuration file to TFTP server", tftp_put_xml_config},
});

inline constexpr auto transfer_ftp_rows = command_rows({
    {"getconfig", "Get configuration file from FTP server", ftp_get_config},
    {"getfirmware", "Get firmware file from FTP server", ftp_get_firmware},
    {"putconfig", "Put configuration file to FTP server", ftp_put_config},
});
