// The folders of a user and of the program, as the desktop's conventions name them.
#pragma once

#include <filesystem>

namespace noldarz {

struct Folders {
  std::filesystem::path program;        ///< holds the running program
  std::filesystem::path documents;      ///< the user's documents
  std::filesystem::path configuration;  ///< the user's settings of programs

  /// Those of the running program and its user.
  static Folders ofUser();
};

/// Makes the folder the current one. Fails with noSuchFolder.
void enterFolder(const std::filesystem::path& folder);

}  // namespace noldarz
