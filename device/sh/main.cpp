// /bin/sh of the stand-in device: enters the command line of every `sh -c` into the journal, then
// becomes a real shell, with the process that started it in CONSOLE_PID. The stand-in's own scripts
// run in busybox directly and are not journaled.

#include "xmldb/journal_writer.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <unistd.h>

int main(int argc, char **argv) {
    // For scripts and people. It prefers its own applets to PATH and so would never run the
    // device's ping or tftp, which command lines need.
    const char *shell = "/bin/busybox";
    if (argc > 2 && std::strcmp(argv[1], "-c") == 0) {
        // The C library's system() puts "--" before the command in its newer versions.
        const bool ends_options = argc > 3 && std::strcmp(argv[2], "--") == 0;
        JournalWriter(JOURNAL_FILE).record("ran", argv[ends_options ? 3 : 2]);
        setenv("CONSOLE_PID", std::to_string(getppid()).c_str(), 1);
        shell = "/bin/dash";
    }
    static char shell_name[] = "sh"; // by which busybox knows its role
    argv[0] = shell_name;
    execv(shell, argv);
    std::perror(shell);
    return 127;
}
