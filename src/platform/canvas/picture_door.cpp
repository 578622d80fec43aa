#include "platform/canvas/picture_file.h"
#include "platform/canvas/picture_table.h"

extern "C" __attribute__((visibility("default"))) const noldarz::PictureTable* noldarzPictures();

extern "C" const noldarz::PictureTable* noldarzPictures() {
  static constexpr noldarz::PictureTable table{NOLDARZ_VERSION, noldarz::readPicture, noldarz::writeDrawing};
  return &table;
}
