// Starts another program beside this one, or runs one to its end. No shell is between; it reads nothing.
#pragma once

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

namespace noldarz {

/// Starts the program in the current folder without waiting for it; it lives on when this program ends. Fails with
/// invalidArgument when it can't be started.
void startProgram(const std::filesystem::path& program, const std::vector<std::string>& arguments = {});

struct ProgramEnd {
  int startError = 0;      ///< why it could not be started (errno); 0 when it was
  bool outOfTime = false;  ///< it was ended, with the programs that it had started
  int exitCode = 0;        ///< of one that a signal has ended: 128 and the number of the signal
  std::string lastLine;    ///< that it has written on standard error, blank ones left out; at most 200 bytes
};

/// Runs the program, looked for as a shell does when its name has no "/", and waits until it ends. What it writes on
/// standard output is lost.
ProgramEnd runAndWait(const std::filesystem::path& program, const std::vector<std::string>& arguments,
                      std::chrono::milliseconds patience);

}  // namespace noldarz
