#include "population/wind_direction.h"

#include <exception>
#include <string>

#include "platform/text.h"

namespace noldarz {

double WindDirection::kept() const {
  return strictNumber(
      sees_.settings.get(windSetting::application, windSetting::section, windSetting::key).value_or("0"));
}

void WindDirection::show(int degrees) const {
  sees_.arm.showWind(degrees);
  sees_.caption.setCaption(plainText(degrees));
}

void WindDirection::wndsld1_Change() const {
  const int degrees = sees_.slider.value();
  show(degrees);
  sees_.state.windDeg = degrees;
  try {
    sees_.settings.set(windSetting::application, windSetting::section, windSetting::key, plainText(degrees));
  } catch (const std::exception& error) {  // the direction holds until a view with a dial opens again
    sees_.tell(std::string{"The wind direction is not kept: "} + error.what());
  }
}

}  // namespace noldarz
