#include "platform/process.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <string_view>
#include <system_error>
#include <thread>

#include "platform/failure.h"

namespace noldarz {

namespace {

using Clock = std::chrono::steady_clock;

/// Starts it in a session of its own, with nothing to read and its standard output lost. `errors`: where its standard
/// error goes; -1: to that of this program. 0, or why it can't be started.
int spawn(decltype(&posix_spawn) start, const std::filesystem::path& program, std::vector<std::string> words,
          int errors, pid_t& child) {
  std::string name = program.string();
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
  if (errors >= 0) posix_spawn_file_actions_adddup2(&files, errors, STDERR_FILENO);
  const int result = start(&child, name.c_str(), &files, &attributes, line.data(), environ);
  posix_spawn_file_actions_destroy(&files);
  posix_spawnattr_destroy(&attributes);
  return result;
}

/// What comes through a pipe, of which the end is kept.
class Tail {
 public:
  Tail() { open_ = pipe2(ends_.data(), O_CLOEXEC | O_NONBLOCK) == 0; }
  Tail(const Tail&) = delete;
  Tail& operator=(const Tail&) = delete;
  ~Tail() {
    closeEntry();
    if (ends_[0] >= 0) close(ends_[0]);
  }

  int entry() const { return ends_[1]; }
  void closeEntry() {
    if (ends_[1] >= 0) close(ends_[1]);
    ends_[1] = -1;
  }
  /// Reads what is there; waits so long for something.
  void read(std::chrono::milliseconds wait) {
    pollfd what{open_ ? ends_[0] : -1, POLLIN, 0};
    poll(&what, 1, static_cast<int>(wait.count()));
    std::array<char, 4096> buffer{};
    // A few at a time: a program that never stops writing must not keep this one from its clock.
    for (int i = 0; i < 16 && open_; ++i) {
      const ssize_t count = ::read(ends_[0], buffer.data(), buffer.size());
      if (count < 0) return;
      open_ = count > 0;
      text_.append(buffer.data(), static_cast<std::size_t>(count));
      if (text_.size() > buffer.size()) text_.erase(0, text_.size() - buffer.size());
    }
  }
  std::string lastLine() const {
    constexpr std::size_t most = 200;
    const auto end = text_.find_last_not_of(" \t\r\n") + 1;
    std::string line = text_.substr(0, end);
    line = line.substr(std::min(line.find_last_of("\r\n") + 1, line.size()));
    line.resize(std::min(line.size(), most));
    std::replace_if(
        line.begin(), line.end(), [](char c) { return static_cast<unsigned char>(c) < ' ' || c == 0x7F; }, ' ');
    return line;
  }

 private:
  std::array<int, 2> ends_{-1, -1};
  bool open_ = false;
  std::string text_;
};

}  // namespace

void startProgram(const std::filesystem::path& program, const std::vector<std::string>& arguments) {
  pid_t child = 0;
  if (spawn(posix_spawn, program, arguments, -1, child) != 0) fail(FailureNumber::invalidArgument);
  try {
    std::thread([child] { waitpid(child, nullptr, 0); }).detach();
  } catch (const std::system_error&) {
    // No thread to be had: the dead process stays on the list of processes until this one ends.
  }
}

ProgramEnd runAndWait(const std::filesystem::path& program, const std::vector<std::string>& arguments,
                      std::chrono::milliseconds patience) {
  constexpr std::chrono::milliseconds glance{20};
  ProgramEnd end;
  Tail errors;
  pid_t child = 0;
  end.startError = spawn(posix_spawnp, program, arguments, errors.entry(), child);
  if (end.startError != 0) return end;
  errors.closeEntry();
  const auto late = Clock::now() + patience;
  int status = 0;
  pid_t ended = 0;
  while ((ended = waitpid(child, &status, WNOHANG)) == 0) {
    if (!end.outOfTime && Clock::now() >= late) {
      end.outOfTime = true;
      kill(-child, SIGKILL);  // the session
    }
    errors.read(glance);
  }
  errors.read(std::chrono::milliseconds{0});
  if (ended < 0) end.startError = errno;  // somebody else has taken its end: what it did is not known
  end.exitCode = WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
  end.lastLine = errors.lastLine();
  return end;
}

}  // namespace noldarz
