// Drawings in the DWG format, through a converter that is installed: dwg2dxf and dxf2dwg, or the program that the user
// has named, which is called with the file to read and the file to write, each with the extension of its format.
#pragma once

#include <chrono>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>

namespace noldarz {

bool beginsAsDwg(std::string_view bytes);
/// Whether the file begins as a DWG does. False for a file that can't be read.
bool isDwg(const std::filesystem::path& file);
/// Whether the name asks for one, whatever the case.
bool isDwgName(const std::filesystem::path& file);

class DwgConverter {
 public:
  /// `program`: that of the user; empty for the installed ones. It is ended when it takes longer than `patience`.
  explicit DwgConverter(std::string program = "", std::chrono::seconds patience = std::chrono::minutes{5})
      : program_(std::move(program)), patience_(patience) {}
  /// Converts from the format of one name to that of the other; a DWG is told by its content. `to`: a new file; none
  /// stays there when it fails. Fails with CadFailure: no converter, with what to do; one that can't be started, fails,
  /// takes too long or leaves no file. `named`: what the user calls the file, where it is not `from`.
  void convert(const std::filesystem::path& from, const std::filesystem::path& to,
               const std::filesystem::path& named = {}) const;

 private:
  std::string program_;
  std::chrono::seconds patience_;
};

}  // namespace noldarz
