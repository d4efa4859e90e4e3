// How a device that is a computer of its own (device/machine) is asked what its console's terminal
// does, which no terminal of the host can tell: over a socket that leads to a serial line, where
// device/machine/host_link.cpp answers.
#pragma once

#include <string>

namespace session {

// Each is one byte on the line.
enum class MachineQuestion : char {
    READS_SINGLE_CHARACTERS = 'c', // is the console's terminal switched to single characters?
    IS_IDLE = 'd',                 // has the console read all that came, is all output sent?
};

// The answer; any other byte is a no.
inline constexpr char MACHINE_YES = 'y';

// Asks over the socket at `path`. False, too, when the machine does not answer within a second, as
// while it starts.
bool ask_machine(const std::string &path, MachineQuestion question);

} // namespace session
