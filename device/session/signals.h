#pragma once

#include <csignal>
#include <initializer_list>

namespace session {

// Those of the signals that were not ignored when this process was started, as they are in a
// shell's background and by nohup.
inline sigset_t not_ignored(std::initializer_list<int> numbers) {
    sigset_t set;
    sigemptyset(&set);
    for (const int number : numbers) {
        struct sigaction action {};
        if (sigaction(number, nullptr, &action) == 0 && action.sa_handler != SIG_IGN)
            sigaddset(&set, number);
    }
    return set;
}

} // namespace session
