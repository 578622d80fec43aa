#include "desktop/cad_ink.h"

#include <cstdlib>

#include "desktop/theme.h"

namespace noldarz {

namespace {

constexpr int foregroundIndex = 7;

}  // namespace

CadInk::CadInk(const QPalette& palette)
    : ground_(palette.color(QPalette::Active, QPalette::Base).rgb()),
      foreground_(palette.color(QPalette::Active, QPalette::Text).rgb()) {
  for (int index = 0; index < static_cast<int>(indices_.size()); ++index)
    indices_.at(static_cast<std::size_t>(index)) = legible(colourOfIndex(index) | 0xFF000000U);
  indices_[0] = indices_[foregroundIndex] = foreground_;
}

QRgb CadInk::legible(QRgb colour) const {
  constexpr int leastContrast = 45;  // of 255
  if (std::abs(qGray(colour) - qGray(ground_)) >= leastContrast) return colour;
  return mixed(QColor(colour), QColor(foreground_), 0.5).rgb();
}

QRgb CadInk::of(const Scene& scene, const SceneItem& item) const {
  if (item.colour >= trueColour) return legible(static_cast<QRgb>(item.colour - trueColour) | 0xFF000000U);
  const int index = item.colour == colourByLayer ? scene.layers[item.colourLayer].colour : item.colour;
  return index >= 0 && index < static_cast<int>(indices_.size()) ? ofIndex(index) : foreground_;
}

}  // namespace noldarz
