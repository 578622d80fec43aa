#include "cli/plot.h"

#include <fmt/format.h>

#include <ostream>
#include <utility>

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
  if (!pageOf(request.size)) return "--size: \"" + request.size + "\" is neither A4 nor WxH in mm, 60 to 2000";
  if (!levelsOf(request.chosen)) return "--levels: \"" + request.chosen + "\" is no list of levels, 0 to 5";
  if (request.wind && request.fit != Fit::vertical) return "--wind goes with isopleths";
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

/// The line under the legend that tells what is drawn at which scale. A rose has no title of its own.
std::string titleOf(const PlotFields& plot) {
  const std::string& title = plot.lblman.caption();
  return (title.empty() ? "NOLDA -RZ: Dispersion Model (wind in 8 Orientations)" : title) + ", " +
         plot.sclsdspl.caption();
}

/// The drawing on its page.
class PlotPage {
 public:
  PlotPage(const PlotRequest& request, ComputedRun& run, const std::string& version)
      : request_(request),
        system_(run.session->system()),
        picture_({.engine = system_.state(),
                  .rawLimits = system_.state(),
                  .limits = system_.state(),
                  .in = system_.mainView().in,
                  .level = system_.mainView().level,
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
    const Page page = *pageOf(request_.size);
    file_.width = page.width;
    file_.height = page.height - footHeight(file_);
    const PlotPicture::Wish wish{.fit = request_.fit,
                                 .wind = request_.wind,
                                 .north = static_cast<double>(request_.north),
                                 .levels = *levelsOf(request_.chosen),
                                 .limits = request_.limitCircles,
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
  void addFoot(const Report& report) {
    const LevelFields& level = system_.mainView().level;
    const auto chosen = *levelsOf(request_.chosen);
    for (int i = 0; i < levelCount; ++i)
      if (chosen.at(static_cast<std::size_t>(i)) && isDrawable(level, i))
        file_.legend.push_back({levelColour(i), visibleText(legendText(level, i))});
    const Page page = *pageOf(request_.size);
    file_.foot.emplace_back();  // the title, once the scale is known
    file_.foot.push_back(longDate(today()) + ", NOLDA-RZ " + report.version);
    for (const ReportSection& section : report.sections)
      if (section.key == "study" || section.key == "inputs") addLines(section, page.width, file_.foot);
    for (std::string& line : file_.foot) line = visibleText(line);
  }

  const PlotRequest& request_;
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
  const fs::path target = fs::absolute(request.file);  // the program enters another folder
  return withComputedRun(request, errors, folders, [&](ComputedRun& run) -> std::string {
    PlotPage page{request, run, version};
    std::string fault = page.draw();
    if (fault.empty()) fault = page.write(run.session->desktop(), target);
    return run.fault.empty() ? fault : run.fault;
  });
}

}  // namespace noldarz
