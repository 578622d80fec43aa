#include "platform/process.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <system_error>
#include <thread>

#include "platform/failure.h"

namespace noldarz {

void startProgram(const std::filesystem::path& program, const std::vector<std::string>& arguments) {
  std::string name = program.string();
  std::vector<std::string> words = arguments;
  std::vector<char*> line{name.data()};
  for (auto& word : words) line.push_back(word.data());
  line.push_back(nullptr);

  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID);
  posix_spawn_file_actions_t files;  // the program speaks on standard error only: standard output is this program's own
  posix_spawn_file_actions_init(&files);
  posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  pid_t child = 0;
  const int result = posix_spawn(&child, name.c_str(), &files, &attributes, line.data(), environ);
  posix_spawn_file_actions_destroy(&files);
  posix_spawnattr_destroy(&attributes);
  if (result != 0) fail(FailureNumber::invalidArgument);
  try {
    std::thread([child] { waitpid(child, nullptr, 0); }).detach();
  } catch (const std::system_error&) {
    // No thread to be had: the dead process stays on the list of processes until this one ends.
  }
}

}  // namespace noldarz
