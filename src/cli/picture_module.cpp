#include "cli/picture_module.h"

#include <dlfcn.h>

#include <stdexcept>
#include <string>

#include "platform/folders.h"

namespace noldarz {

namespace {

const PictureTable* load() {
  const std::string file = Folders::ofUser().program / "noldarz-pictures.so";
  void* module = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (module == nullptr) throw std::runtime_error(file + " can't be loaded: " + dlerror());
  const auto table = reinterpret_cast<GetPictureTable>(dlsym(module, pictureTableName));
  if (table == nullptr) throw std::runtime_error(file + " is no module of pictures");
  const PictureTable* pictures = table();
  if (std::string{pictures->version} != NOLDARZ_VERSION)
    throw std::runtime_error(file + " belongs to version " + pictures->version + ", not " + NOLDARZ_VERSION);
  return pictures;
}

}  // namespace

const PictureTable& pictureModule() {
  static const PictureTable* const pictures = load();
  return *pictures;
}

}  // namespace noldarz
