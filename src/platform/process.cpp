#include "platform/process.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
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
  pid_t child = 0;
  const int result = posix_spawn(&child, name.c_str(), nullptr, &attributes, line.data(), environ);
  posix_spawnattr_destroy(&attributes);
  if (result != 0) fail(FailureNumber::invalidArgument);
  std::thread([child] { waitpid(child, nullptr, 0); }).detach();  // so that no dead process is left behind
}

}  // namespace noldarz
