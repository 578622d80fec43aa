#include "cli/plot.h"

#include <fmt/format.h>

#include <algorithm>
#include <ostream>
#include <utility>

#include "cli/points.h"
#include "platform/canvas/drawing_kind.h"
#include "platform/text.h"
#include "platform/visible_text.h"

namespace noldarz {

namespace {

namespace fs = std::filesystem;

struct Page {
  double width = 0;   ///< mm
  double height = 0;  ///< mm
};

constexpr Page chart{202, 152};  // mm, of a canvas that holds a chart

/// The page of a size; nothing for a text that is none, or for one too small or too large to draw on.
std::optional<Page> pageOf(const std::string& size) {
  constexpr double least = 60;  // mm
  constexpr double most = 2000;
  if (size == "A4") return Page{297, 210};
  const auto cross = size.find('x');
  if (cross == std::string::npos) return {};
  const ParsedNumber width = parseNumber(size.substr(0, cross));
  const ParsedNumber height = parseNumber(size.substr(cross + 1));
  const auto fits = [&](const ParsedNumber& side) {
    return side.isNumber() && side.value >= least && side.value <= most;
  };
  if (!fits(width) || !fits(height)) return {};
  return Page{width.value, height.value};
}

/// Reads the points of a pipeline. Empty, or the fault.
std::string readTrace(const std::string& file, std::vector<PlotPicture::TracePoint>& trace) {
  std::vector<GivenPoint> points;
  if (std::string fault = readPoints(file, nullptr, pointOf, "point: X,Y in metres", points); !fault.empty())
    return fault;
  if (points.size() < 2) return file + ": a pipeline has two points at least";
  if (points.size() > tracePoints) return fmt::format("{}: a pipeline has {} points at most", file, tracePoints);
  if (std::ranges::adjacent_find(points) != points.end()) return file + ": the same point twice in a row";
  for (const GivenPoint& point : points) trace.push_back({point.x, point.y});
  return "";
}

/// The levels that are chosen; nothing when an index is none of a level.
std::optional<std::array<bool, levelCount>> levelsOf(const std::string& chosen) {
  std::array<bool, levelCount> levels{};
  if (chosen.empty()) levels.fill(true);
  for (const std::string& item : itemsOf(chosen)) {
    if (item.size() != 1 || item[0] < '0' || item[0] >= '0' + levelCount) return {};
    levels.at(static_cast<std::size_t>(item[0] - '0')) = true;
  }
  return levels;
}

std::string refusal(const PlotRequest& request) {
  const auto page = pageOf(request.size.empty() ? "A4" : request.size);
  if (!page) return "--size: \"" + request.size + "\" is neither A4 nor WxH in mm, 60 to 2000";
  if (isChart(request.kind) && (page->width < chart.width || page->height < chart.height))
    return fmt::format("--size: a chart needs {} x {} mm at least", chart.width, chart.height);
  if (!levelsOf(request.chosen)) return "--levels: \"" + request.chosen + "\" is no list of levels, 0 to 5";
  if (request.wind && request.kind != PlotKind::isopleths) return "--wind goes with isopleths";
  if (request.trace.empty() == (request.kind == PlotKind::pipeline))
    return "--trace goes with pipeline, and pipeline needs it";
  if (drawingKind(request.file).empty())
    return request.file.string() + ": a drawing is written as .svg, .pdf, .png or .bmp";
  return "";
}

/// Items of a section on as few lines as fit on the page.
void addLines(const ReportSection& section, double pageWidth, std::vector<std::string>& lines) {
  constexpr double letterWidth = 1.5;  // mm, of the average letter
  const auto room = static_cast<std::size_t>(pageWidth / letterWidth);
  std::string line;
  for (const ReportItem& item : section.items) {
    if (item.text.empty()) continue;
    const std::string part = item.label + " " + item.text + (item.unit.empty() ? "" : " " + item.unit);
    if (!line.empty() && line.size() + part.size() > room) lines.push_back(std::exchange(line, ""));
    line += (line.empty() ? "" : "; ") + part;
  }
  if (!line.empty()) lines.push_back(line);
}

/// The line under the legend that tells what is drawn at which scale. A rose has no title of its own, a chart no scale.
std::string titleOf(const PlotFields& plot) {
  const std::string& title = plot.lblman.caption();
  const std::string& scale = plot.sclsdspl.caption();
  if (!title.empty()) return title + ", " + scale;
  return scale.starts_with("Scale") ? "NOLDA -RZ: Dispersion Model (wind in 8 Orientations), " + scale : scale;
}

/// The drawing on its page.
class PlotPage {
 public:
  PlotPage(const PlotRequest& request, const std::vector<PlotPicture::TracePoint>& trace, ComputedRun& run,
           const std::string& version)
      : request_(request),
        trace_(trace),
        system_(run.session->system()),
        picture_({.engine = system_.state(),
                  .rawLimits = system_.state(),
                  .limits = system_.state(),
                  .in = system_.mainView().in,
                  .level = system_.mainView().level,
                  .result = system_.mainView().result,
                  .toxic = system_.mainView().toxic,
                  .project = system_.mainView().project}),
        file_{.drawing = picture_.canvas().drawing(),
              .picture = nullptr,
              .legend = {},
              .foot = {},
              .lineStyles = request.lineStyles} {
    addFoot(reportOf(system_, version, request.target, {}, run.limitsFrom));
  }

  /// Empty, or why there is nothing to draw.
  std::string draw() {
    const Page page = pageSize();
    file_.width = page.width;
    file_.height = page.height - footHeight(file_);
    const PlotPicture::Wish wish{.kind = request_.kind,
                                 .wind = request_.wind,
                                 .north = static_cast<double>(request_.north),
                                 .levels = *levelsOf(request_.chosen),
                                 .limitCircles = request_.limitCircles,
                                 .trace = trace_,
                                 .width = file_.width,
                                 .height = file_.height};
    std::string fault = picture_.draw(wish);
    file_.foot.front() = titleOf(picture_.fields());
    return fault;
  }

  /// Empty, or why it could not be written.
  std::string write(Desktop& desktop, const fs::path& target) const {
    try {
      desktop.saveDrawing(target, file_);
    } catch (const std::exception& error) {
      return error.what();
    }
    return "";
  }

 private:
  /// A chart takes the page that it needs, where none is asked for.
  Page pageSize() const {
    if (request_.size.empty() && isChart(request_.kind)) return {chart.width, chart.height + footHeight(file_)};
    return *pageOf(request_.size.empty() ? "A4" : request_.size);
  }

  void addFoot(const Report& report) {
    addLegend();
    const double width = pageSize().width;
    file_.foot.emplace_back();  // the title, once the scale is known
    file_.foot.push_back(longDate(today()) + ", NOLDA-RZ " + report.version);
    for (const ReportSection& section : report.sections)
      if (section.key == "study" || section.key == "inputs") addLines(section, width, file_.foot);
    for (std::string& line : file_.foot) line = visibleText(line);
  }

  void addLegend() {
    const LevelFields& level = system_.mainView().level;
    if (request_.kind == PlotKind::percent)
      file_.legend = {{fatalityCurve, "Fatality (%)"}, {injuryCurve, "Injury (%)"}};
    if (isChart(request_.kind)) return;
    auto chosen = *levelsOf(request_.chosen);
    if (request_.kind == PlotKind::pipeline) chosen = {true};  // the band is of the highest concentration
    for (int i = 0; i < levelCount; ++i)
      if (chosen.at(static_cast<std::size_t>(i)) && isDrawable(level, i))
        file_.legend.push_back({levelColour(i), visibleText(legendText(level, i))});
  }

  const PlotRequest& request_;
  const std::vector<PlotPicture::TracePoint>& trace_;
  System& system_;
  PlotPicture picture_;
  DrawingFile file_;
};

}  // namespace

ExitStatus plotToFile(const PlotRequest& request, const std::string& version, std::ostream& errors,
                      const Folders& folders) {
  if (const std::string fault = refusal(request); !fault.empty()) {
    errors << visibleText(fault) << '\n';
    return ExitStatus::refused;
  }
  std::vector<PlotPicture::TracePoint> trace;
  if (!request.trace.empty())
    if (const std::string fault = readTrace(request.trace, trace); !fault.empty()) {
      errors << visibleText(fault) << '\n';
      return ExitStatus::refused;
    }
  const fs::path target = fs::absolute(request.file);  // the program enters another folder
  return withComputedRun(request, errors, folders, [&](ComputedRun& run) -> std::string {
    if (!run.fault.empty()) return run.fault;
    PlotPage page{request, trace, run, version};
    std::string fault = page.draw();
    if (fault.empty()) fault = page.write(run.session->desktop(), target);
    return fault;
  });
}

}  // namespace noldarz
