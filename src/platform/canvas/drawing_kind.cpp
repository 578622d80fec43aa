#include "platform/canvas/drawing_kind.h"

#include <algorithm>
#include <array>

namespace noldarz {

std::string drawingKind(const std::filesystem::path& file) {
  constexpr std::array<std::string_view, 4> kinds{".png", ".bmp", ".svg", ".pdf"};
  std::string extension = file.extension().string();
  std::transform(extension.begin(), extension.end(), extension.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  });
  return std::find(kinds.begin(), kinds.end(), extension) == kinds.end() ? "" : extension;
}

double footHeight(const DrawingFile& what) {
  const std::size_t lines = what.legend.size() + what.foot.size();
  return lines == 0 ? 0 : static_cast<double>(lines + 1) * textLine;
}

}  // namespace noldarz
