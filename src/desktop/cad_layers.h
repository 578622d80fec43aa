// The layers of a drawing as a list: name, colour, and whether it is seen. What is hidden here stays in the file.
#pragma once

#include <QWidget>
#include <functional>

#include "platform/cad/scene.h"

class QLineEdit;
class QListWidget;

namespace noldarz {

class CadLayers : public QWidget {
 public:
  /// `scene` outlives it.
  explicit CadLayers(Scene& scene, QWidget* parent = nullptr);

  /// The user has shown or hidden a layer.
  std::function<void()> changed;
  /// The scene has more layers, or other colours, or the theme has changed.
  void follow();
  QSize sizeHint() const override;

 private:
  void filter();
  void showAll(bool visible);

  Scene& scene_;
  QLineEdit* words_;
  QListWidget* list_;
};

}  // namespace noldarz
