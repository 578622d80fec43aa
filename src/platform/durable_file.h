// Files that are wholly old or wholly new, whatever happens while they are written: a new file is filled beside its
// place, brought to the disk, and put there in one step.
#pragma once

#include <filesystem>
#include <span>
#include <string_view>

namespace noldarz {

/// A file beside `target` that is being filled. It is removed at the end of its life unless it was put in place; one
/// that a killed process has left is removed by the next.
class NewFile {
 public:
  /// Makes the file, empty. Throws std::filesystem::filesystem_error when the folder doesn't take it.
  explicit NewFile(std::filesystem::path target);
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;
  ~NewFile();

  const std::filesystem::path& path() const { return path_; }
  /// Writes the pieces one behind the other. Throws std::filesystem::filesystem_error.
  void write(std::span<const std::string_view> pieces);

  enum class Existing { replace, keep };
  /// Puts the file in its place. Throws std::filesystem::filesystem_error when the disk doesn't take it, and for `keep`
  /// when there is a file already (errc::file_exists).
  void putInPlace(Existing existing);

 private:
  void make();
  /// Removes what killed processes have left.
  void sweep() const;

  std::filesystem::path target_;
  std::filesystem::path path_;
  int handle_ = -1;
};

/// Replaces the file by the bytes, one piece behind the other. Throws std::filesystem::filesystem_error; the file is
/// then the old or the new one.
void replaceFile(const std::filesystem::path& target, std::span<const std::string_view> pieces);
inline void replaceFile(const std::filesystem::path& target, std::string_view bytes) {
  replaceFile(target, std::span{&bytes, 1});
}

}  // namespace noldarz
