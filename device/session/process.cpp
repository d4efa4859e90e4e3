#include "session/process.h"

#include <cerrno>
#include <cstdio>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace session {

namespace {

constexpr int NOT_FOUND_STATUS = 127;

} // namespace

void fail(const std::string &what) {
    throw std::system_error(errno, std::generic_category(), what);
}

int check(int result, const std::string &what) {
    if (result < 0)
        fail(what);
    return result;
}

void become(const std::vector<std::string> &command) {
    for (int number = 1; number < NSIG; ++number)
        std::signal(number, SIG_DFL);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    std::vector<char *> words;
    words.reserve(command.size() + 1);
    for (const std::string &word : command)
        words.push_back(const_cast<char *>(word.c_str()));
    words.push_back(nullptr);
    execvp(words[0], words.data());
    std::perror(words[0]);
    _exit(NOT_FOUND_STATUS);
}

int exit_status(int wait_status) {
    return WIFEXITED(wait_status) ? WEXITSTATUS(wait_status) : 128 + WTERMSIG(wait_status);
}

sigset_t not_ignored(std::initializer_list<int> numbers) {
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
