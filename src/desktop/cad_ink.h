// The colours of a drawing on the ground of the screen: what would be lost on it is drawn nearer to the colour of
// texts.
#pragma once

#include <QPalette>
#include <array>

#include "platform/cad/scene.h"

namespace noldarz {

class CadInk {
 public:
  explicit CadInk(const QPalette& palette);

  QRgb ground() const { return ground_; }
  QRgb of(const Scene& scene, const SceneItem& item) const;
  QRgb ofIndex(int index) const { return indices_.at(static_cast<std::size_t>(index)); }
  bool operator==(const CadInk&) const = default;

 private:
  QRgb legible(QRgb colour) const;

  QRgb ground_;
  QRgb foreground_;
  std::array<QRgb, 256> indices_{};
};

}  // namespace noldarz
