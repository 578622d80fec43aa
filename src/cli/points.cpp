#include "cli/points.h"

#include <fmt/format.h>

#include <fstream>
#include <istream>

#include "platform/text.h"

namespace noldarz {

std::optional<GivenPoint> pointOf(std::string_view text) {
  const auto point = parsePoint(text);
  return point ? std::optional{GivenPoint{(*point)[0], (*point)[1]}} : std::nullopt;
}

std::optional<GivenPoint> placeOf(std::string_view text) {
  return text.find(',') == std::string_view::npos ? pointOf(std::string{text} + ",0") : pointOf(text);
}

std::string readPoints(const std::string& file, std::istream* in, std::optional<GivenPoint> (*read)(std::string_view),
                       const char* what, std::vector<GivenPoint>& points) {
  const bool standard = in && file == "-";
  std::ifstream stream;
  if (!standard) stream.open(file);
  std::istream& lines = standard ? *in : stream;
  if (!lines) return file + ": can't be read";
  std::size_t number = 0;
  for (std::string line; std::getline(lines, line);) {
    constexpr std::string_view utf8Mark{"\xEF\xBB\xBF"};
    if (++number == 1 && line.starts_with(utf8Mark)) line.erase(0, utf8Mark.size());
    if (line.ends_with('\r')) line.pop_back();
    if (line.empty() || line[0] == '#') continue;
    const auto point = read(line);
    if (!point) return fmt::format("{}:{}: \"{}\" is no {}", file, number, line, what);
    points.push_back(*point);
  }
  return lines.bad() ? file + ": can't be read" : "";
}

}  // namespace noldarz
