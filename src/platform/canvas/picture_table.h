// The door of noldarz-pictures.so. The picture libraries take a third as long to load as a whole `run` takes, so that
// programs which seldom need them load them through it on first use.
#pragma once

#include <filesystem>
#include <memory>

#include "platform/canvas/drawing_file.h"

namespace noldarz {

struct PictureTable {
  const char* version;  ///< of the program that the module belongs to
  std::shared_ptr<const Image> (*read)(const std::filesystem::path& file);
  void (*write)(const std::filesystem::path& file, const DrawingFile& what);
};

/// Under this name the module has a function that returns its table.
inline constexpr const char* pictureTableName = "noldarzPictures";
using GetPictureTable = const PictureTable* (*)();

}  // namespace noldarz
