#include "cli/at.h"

#include <fmt/format.h>

#include <cmath>
#include <iterator>

#include "cli/points.h"
#include "platform/failure.h"
#include "platform/text.h"
#include "platform/visible_text.h"
#include "plot/location_query.h"

namespace noldarz {

namespace {

constexpr const char* whatIsRead = "place: X or X,Y in metres";

/// Reads the places of the request. Empty, or the fault.
std::string readPlaces(const AtRequest& request, std::istream& in, std::vector<GivenPoint>& places) {
  for (const std::string& word : request.places) {
    const auto place = placeOf(word);
    if (!place) return "\"" + word + "\" is no " + whatIsRead;
    places.push_back(*place);
  }
  if (request.file.empty()) return places.empty() ? "no place is given" : "";
  if (request.file == "-" && request.target == "-") return "--points and the script can't both be standard input";
  const std::string fault = readPoints(request.file, &in, placeOf, whatIsRead, places);
  return fault.empty() && places.empty() ? request.file + ": holds no place" : fault;
}

/// The point query on a state of its own.
class Asker {
 public:
  explicit Asker(System& system)
      : engine_(static_cast<const EngineState&>(system.state())),
        level_(system.mainView().level),
        plume_({.model = engine_,
                .query = engine_,
                .in = system.mainView().in,
                .level = level_,
                .result = system.mainView().result}) {
    engine_.drawMode = drawMode::location;
  }

  /// Distance from the source (m).
  double distance(const GivenPoint& place) { return engine_.distAt = rounded(std::hypot(place.x, place.y), 2); }
  /// Concentration there (ppm); false on the source itself, and where the inputs give none.
  bool concentration(double& ppm) {
    if (engine_.distAt <= 0) return false;
    return Trap::ignoring().holds([&] {
      plume_.calcHalfWidthAt();
      ppm = engine_.concAt;
      return true;
    });
  }
  std::string_view hazard(double ppm) const {
    const auto lines = hazardLines(ppm, level_);
    constexpr std::string_view head{"  Hazard LvL: "};
    return lines.empty() ? std::string_view{} : lines.front().substr(head.size());
  }

 private:
  EngineState engine_;
  const LevelFields& level_;
  PlumeModel plume_;
};

/// Names and forms of a line in each format; {0} x, {1} y, {2} distance, {3} concentration, {4} hazard.
struct Layout {
  const char* head;
  const char* line;
  const char* between;
  const char* foot;
  const char* none;  ///< where there is no concentration
};
Layout layoutOf(ReportFormat format) {
  switch (format) {
    case ReportFormat::json:
      return {"{\"places\":[",
              "{{\"x\":{0},\"y\":{1},\"distance\":{2},\"concentration\":{3},\"hazard\":\"{4}\"}}",
              ",\n",
              "]}\n",
              "null"};
    case ReportFormat::csv: return {"x,y,distance,concentration,hazard\n", "{0},{1},{2},{3},{4}", "\n", "\n", ""};
    default:
      return {"       x (m)        y (m)  distance (m)    conc. (ppm)  hazard\n",
              "{0:>12} {1:>12} {2:>13} {3:>14}  {4}",
              "\n",
              "\n",
              "-"};
  }
}

void print(const std::vector<GivenPoint>& places, System& system, ReportFormat format, std::ostream& out) {
  constexpr std::size_t chunk = 1U << 16U;
  const Layout layout = layoutOf(format);
  Asker asker{system};
  std::string text = layout.head;
  for (std::size_t i = 0; i < places.size(); ++i) {
    const double distance = asker.distance(places[i]);
    double ppm = 0;
    const bool known = asker.concentration(ppm);
    if (i > 0) text += layout.between;
    fmt::format_to(std::back_inserter(text),
                   fmt::runtime(layout.line),
                   plainText(places[i].x),
                   plainText(places[i].y),
                   plainText(distance),
                   known ? Format(ppm, "0.00") : std::string{layout.none},
                   known ? asker.hazard(ppm) : std::string_view{});
    if (text.size() < chunk) continue;
    out << text;
    text.clear();
  }
  out << text << layout.foot;
}

}  // namespace

bool isPlace(std::string_view word) { return placeOf(word).has_value(); }

ExitStatus tellPlaces(const AtRequest& request, std::istream& in, std::ostream& out, std::ostream& errors,
                      const Folders& folders) {
  std::vector<GivenPoint> places;
  if (const std::string fault = readPlaces(request, in, places); !fault.empty()) {
    errors << visibleText(fault) << '\n';
    return ExitStatus::refused;
  }
  return withComputedRun(request, errors, folders, [&](ComputedRun& run) {
    if (run.fault.empty()) print(places, run.session->system(), request.format, out);
    return run.fault;
  });
}

}  // namespace noldarz
