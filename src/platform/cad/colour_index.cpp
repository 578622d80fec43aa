// The colours of the index: nine fixed ones, hues of 15 degrees in five strengths, each pure and half as pure, and
// greys.
#include <algorithm>
#include <array>
#include <cmath>

#include "platform/cad/scene.h"

namespace noldarz {

namespace {

constexpr std::array<std::uint32_t, 9> fixed{
    0xFF0000, 0xFFFF00, 0x00FF00, 0x00FFFF, 0x0000FF, 0xFF00FF, 0xFFFFFF, 0x808080, 0xC0C0C0};
constexpr std::array<std::uint32_t, 6> greys{0x333333, 0x505050, 0x696969, 0x828282, 0xBEBEBE, 0xFFFFFF};
constexpr std::array<int, 5> strengths{255, 189, 129, 104, 79};  // of 255
constexpr int firstHue = 10;
constexpr int firstGrey = 250;

}  // namespace

std::uint32_t colourOfIndex(int index) {
  if (index < 1 || index > 255) return fixed[6];
  if (index < firstHue) return fixed.at(static_cast<std::size_t>(index) - 1);
  if (index >= firstGrey) return greys.at(static_cast<std::size_t>(index - firstGrey));
  const int step = index / 10 - 1;
  const double hue = step / 4.;  // sixths of a turn, from red over green and blue
  const double strength = strengths.at(static_cast<std::size_t>(index % 10 / 2));
  const double least = index % 2 == 0 ? 0 : 0.5;
  std::uint32_t colour = 0;
  for (const double middle : {6., 2., 4.}) {  // where red, green and blue are full
    const double away = std::min(std::fabs(hue - middle), 6 - std::fabs(hue - middle));
    const double full = std::clamp(2 - away, 0., 1.);
    colour = colour << 8U | static_cast<std::uint32_t>(std::floor(strength * (least + (1 - least) * full)));
  }
  return colour;
}

}  // namespace noldarz
