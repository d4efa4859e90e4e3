// System calls that fail, processes that begin and end.
#pragma once

#include <csignal>
#include <initializer_list>
#include <string>
#include <vector>

namespace session {

// Throws std::system_error for errno.
[[noreturn]] void fail(const std::string &what);

// The result of a system call. Throws as fail does when it is negative.
int check(int result, const std::string &what);

// Replaces this process by the program, looked up in PATH, with no signal blocked or ignored. When
// that fails, says so on standard error and ends with status 127.
[[noreturn]] void become(const std::vector<std::string> &command);

// The exit status that a shell makes of a status from waitpid: 128 + the signal, if one killed it.
int exit_status(int wait_status);

// Those of the signals that are not ignored: a shell ignores some for its background, nohup one.
sigset_t not_ignored(std::initializer_list<int> numbers);

} // namespace session
