#include "desktop/window_place.h"

#include <QWidget>
#include <iostream>

#include "platform/settings.h"

namespace noldarz {

namespace {

constexpr const char* application = "noldarz";
constexpr const char* section = "window";

}  // namespace

bool restorePlace(QWidget& window, const Settings& settings, const std::string& name) {
  const std::string place = settings.get(application, section, name).value_or("");
  return window.restoreGeometry(QByteArray::fromBase64(QByteArray::fromStdString(place)));
}

void keepPlace(const QWidget& window, const Settings& settings, const std::string& name) {
  const std::string place = window.saveGeometry().toBase64().toStdString();
  try {
    if (settings.get(application, section, name) != place) settings.set(application, section, name, place);
  } catch (const std::exception& error) {
    std::cerr << "The place of the window is not kept: " << error.what() << '\n';
  }
}

}  // namespace noldarz
