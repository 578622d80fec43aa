// A piece of a test in a process of its own, which may be killed, or live under another user or a limit.
#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <exception>
#include <iostream>

namespace noldarz::test {

/// Runs the work in a new process; its exit status is what the work returns, 99 for an exception.
template <class Work>
pid_t inProcess(Work&& work) {
  const pid_t child = fork();
  if (child != 0) return child;
  int status = 99;
  try {
    status = work();
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
  }
  _exit(status);
}

/// The exit status of the process, or the negative number of the signal that ended it.
inline int statusOf(pid_t child) {
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

}  // namespace noldarz::test
