// One program a target, FUZZ_TARGET. The bytes that come decide the case, so that coverage guides what happens; after
// them the choices go on by chance, the same each time.

#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>

#include "targets.h"

namespace noldarz::fuzz {

const fs::path& scratch() {
  struct Folder {
    Folder() {
      std::string name = (fs::temp_directory_path() / "noldarz-fuzz-XXXXXX").string();
      path = mkdtemp(name.data());
    }
    ~Folder() {
      std::error_code error;
      fs::remove_all(path, error);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    fs::path path;
  };
  static const Folder folder;
  return folder.path;
}

}  // namespace noldarz::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  noldarz::Chance chance{std::span{bytes, size}};
  noldarz::fuzz::FUZZ_TARGET(chance);
  return 0;
}
