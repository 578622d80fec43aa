// Starts another program beside this one.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace noldarz {

/// Starts the program in the current folder without waiting for it; it lives on when this program ends. Fails with
/// invalidArgument when it can't be started.
void startProgram(const std::filesystem::path& program, const std::vector<std::string>& arguments = {});

}  // namespace noldarz
