#include "platform/canvas/drawing_file.h"

#include <cairo-pdf.h>
#include <cairo.h>
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <span>
#include <stdexcept>
#include <string_view>
#include <system_error>

#include "platform/canvas/drawing_kind.h"
#include "platform/canvas/replay.h"
#include "platform/canvas/stroke_clip.h"
#include "platform/durable_file.h"

namespace noldarz {

namespace {

constexpr double millimetresPerInch = 25.4;
constexpr double pixel = millimetresPerInch / 96;     // mm, of a stroke width
constexpr double pdfPoint = 72 / millimetresPerInch;  // points a mm
constexpr double ascent = 0.93 * textSize;            // mm, from the top of a line to its base
constexpr double sideMargin = 2;                      // mm, of the legend and the foot
constexpr double sampleLength = 10;                   // mm, of a line in the legend
constexpr double mostPixels = 1e8;

struct Rgb {
  double red, green, blue;
};

std::uint32_t rgbOf(Colour colour) {
  switch (colour.system) {
    case SystemColour::none: return colour.rgb;
    case SystemColour::windowBackground: return 0xFFFFFF;
    case SystemColour::buttonFace: return 0xF0F0F0;
    case SystemColour::disabledText: return 0x808080;
    default: return 0x000000;
  }
}

Rgb partsOf(Colour colour) {
  const std::uint32_t rgb = rgbOf(colour);
  const auto part = [&](unsigned shift) { return static_cast<double>(rgb >> shift & 0xFFU) / 255; };
  return {part(16), part(8), part(0)};
}

/// Lengths of dashes and gaps (mm) of the colour of a level; none: a whole line.
std::span<const double> patternOf(Colour colour) {
  static constexpr std::array<double, 2> dashes{4, 1.5};
  static constexpr std::array<double, 2> shortDashes{2, 1.2};
  static constexpr std::array<double, 4> dashDot{4, 1.2, 0.8, 1.2};
  static constexpr std::array<double, 6> dashDotDot{4, 1, 0.8, 1, 0.8, 1};
  static constexpr std::array<double, 2> dots{0.8, 1};
  const std::array<std::pair<std::size_t, std::span<const double>>, 5> patterns{
      {{12, dashes}, {9, shortDashes}, {11, dashDot}, {10, dashDotDot}, {2, dots}}};
  for (const auto& [index, pattern] : patterns)
    if (colour == basicPalette[index]) return pattern;
  return {};
}

/// What a page takes: lines that lie on it, and the rest as it comes.
class PagePainter : public Painter {
 public:
  explicit PagePainter(const DrawingFile& what)
      : styles_(what.lineStyles), box_{-margin, -margin, what.width + margin, what.height + margin} {}

  void dot(Point at, Colour colour) override {
    if (at.x >= box_.left && at.x <= box_.right && at.y >= box_.top && at.y <= box_.bottom) fillDot(at, colour);
  }
  void polyline(std::span<const Point> points, const Stroke& stroke) override {
    for (const auto& piece : clipped(points, box_)) strokeLine(piece, stroke);
  }
  void circle(Point centre, double radius, const Stroke& stroke) override {
    polyline(circleLine(centre, radius), stroke);
  }
  void text(Point at, std::string_view line, bool bold, bool transparent) override {
    const bool near = at.x <= box_.right && at.y <= box_.bottom && at.x >= -farthestText && at.y >= box_.top;
    if (near && !line.empty()) writeText(at, line, bold, transparent);
  }

 protected:
  virtual void fillDot(Point at, Colour colour) = 0;
  virtual void strokeLine(const std::vector<Point>& points, const Stroke& stroke) = 0;
  virtual void writeText(Point at, std::string_view line, bool bold, bool transparent) = 0;

  std::span<const double> dashes(const Stroke& stroke) const {
    return styles_ ? patternOf(stroke.colour) : std::span<const double>{};
  }

 private:
  static constexpr double margin = 10;          // mm, for the width of the strokes
  static constexpr double farthestText = 1000;  // mm, to the left of the page
  bool styles_;
  Box box_;
};

class CairoPainter : public PagePainter {
 public:
  CairoPainter(const DrawingFile& what, cairo_t* page) : PagePainter(what), page_(page) {
    cairo_set_line_join(page_, CAIRO_LINE_JOIN_ROUND);
    cairo_set_line_cap(page_, CAIRO_LINE_CAP_ROUND);
  }

 protected:
  void fillDot(Point at, Colour colour) override {
    use(colour);
    cairo_rectangle(page_, at.x, at.y, pixel, pixel);
    cairo_fill(page_);
  }
  void strokeLine(const std::vector<Point>& points, const Stroke& stroke) override {
    use(stroke.colour);
    const auto pattern = dashes(stroke);
    cairo_set_dash(page_, pattern.data(), static_cast<int>(pattern.size()), 0);
    cairo_set_line_width(page_, stroke.width * pixel);
    cairo_new_path(page_);  // a text leaves a point
    for (const Point& point : points) cairo_line_to(page_, point.x, point.y);
    cairo_stroke(page_);
  }
  void writeText(Point at, std::string_view line, bool bold, bool transparent) override {
    const std::string text{line};
    cairo_select_font_face(
        page_, "sans-serif", CAIRO_FONT_SLANT_NORMAL, bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(page_, textSize);
    if (!transparent) {
      const double blanks = advance(text.substr(0, leadingBlanks(line)));
      use(SystemColour::windowBackground);
      cairo_rectangle(page_, at.x + blanks, at.y, advance(text) - blanks, textLine);
      cairo_fill(page_);
    }
    use(SystemColour::windowText);
    cairo_move_to(page_, at.x, at.y + ascent);
    cairo_show_text(page_, text.c_str());
  }

 private:
  double advance(const std::string& text) {
    cairo_text_extents_t extents;
    cairo_text_extents(page_, text.c_str(), &extents);
    return extents.x_advance;
  }
  void use(Colour colour) {
    const auto [red, green, blue] = partsOf(colour);
    cairo_set_source_rgb(page_, red, green, blue);
  }

  cairo_t* page_;
};

class SvgPainter : public PagePainter {
 public:
  SvgPainter(const DrawingFile& what, std::string& out) : PagePainter(what), out_(out) {}

 protected:
  void fillDot(Point at, Colour colour) override {
    fmt::format_to(to(),
                   "<rect x=\"{:.2f}\" y=\"{:.2f}\" width=\"{:.2f}\" height=\"{:.2f}\" fill=\"#{:06x}\"/>\n",
                   at.x,
                   at.y,
                   pixel,
                   pixel,
                   rgbOf(colour));
  }
  void strokeLine(const std::vector<Point>& points, const Stroke& stroke) override {
    fmt::format_to(
        to(), "<polyline stroke=\"#{:06x}\" stroke-width=\"{:.2f}\"", rgbOf(stroke.colour), stroke.width * pixel);
    if (const auto pattern = dashes(stroke); !pattern.empty())
      fmt::format_to(to(), " stroke-dasharray=\"{}\"", fmt::join(pattern, " "));
    out_ += " points=\"";
    for (const Point& point : points) fmt::format_to(to(), "{:.2f},{:.2f} ", point.x, point.y);
    out_.back() = '"';
    out_ += "/>\n";
  }
  void writeText(Point at, std::string_view line, bool bold, bool transparent) override {
    constexpr std::string_view behind{" paint-order=\"stroke\" stroke=\"#ffffff\" stroke-width=\"0.8\""};
    fmt::format_to(to(),
                   "<text x=\"{:.2f}\" y=\"{:.2f}\"{}{}>",
                   at.x,
                   at.y + ascent,
                   bold ? " font-weight=\"bold\"" : "",
                   transparent ? "" : behind);
    for (const char c : line) addEscaped(c);
    out_ += "</text>\n";
  }

 private:
  std::back_insert_iterator<std::string> to() { return std::back_inserter(out_); }
  void addEscaped(char c) {
    switch (c) {
      case '&': out_ += "&amp;"; break;
      case '<': out_ += "&lt;"; break;
      case '>': out_ += "&gt;"; break;
      default: out_ += static_cast<unsigned char>(c) < ' ' ? ' ' : c;  // XML has no control characters
    }
  }

  std::string& out_;
};

/// Legend and foot, as a drawing of their own under the canvas.
Drawing footOf(const DrawingFile& what) {
  Drawing foot;
  const auto print = [&](double x, double y, const std::string& text) {
    foot.primitives.push_back({Primitive::Kind::PSet, basicPalette[15], x, y});
    Primitive line{Primitive::Kind::Print};
    line.text = foot.texts.size();
    foot.texts.push_back(text);
    foot.primitives.push_back(line);
  };
  double y = textLine / 2;
  foot.primitives.push_back({Primitive::Kind::Line, basicPalette[8], 0, 0, what.width, 0});
  foot.primitives.push_back({Primitive::Kind::DrawWidth, {}, 2});
  for (const LegendRow& row : what.legend) {
    const double middle = y + textLine / 2;
    foot.primitives.push_back(
        {Primitive::Kind::Line, row.colour, sideMargin, middle, sideMargin + sampleLength, middle});
    print(2 * sideMargin + sampleLength, y, row.text);
    y += textLine;
  }
  for (const std::string& line : what.foot) {
    print(sideMargin, y, line);
    y += textLine;
  }
  return foot;
}

DrawingFile footFile(const DrawingFile& what, const Drawing& foot) {
  return {foot, what.width, footHeight(what), nullptr, {}, {}, what.lineStyles};
}

/// Paints all of it on a page whose unit is the millimetre.
void paintPage(const DrawingFile& what, cairo_t* page) {
  const double height = what.height + footHeight(what);
  cairo_set_source_rgb(page, 1, 1, 1);
  cairo_rectangle(page, 0, 0, what.width, height);
  cairo_fill(page);
  cairo_save(page);
  cairo_rectangle(page, 0, 0, what.width, what.height);
  cairo_clip(page);
  if (what.picture) {
    Image image = *what.picture;  // a copy: the surface wants bytes that it may write to
    cairo_surface_t* surface =
        cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(image.pixels.data()),
                                            CAIRO_FORMAT_ARGB32,
                                            image.width,
                                            image.height,
                                            image.width * 4);
    cairo_save(page);
    cairo_scale(page, image.pixelSize, image.pixelSize);
    cairo_set_source_surface(page, surface, 0, 0);
    cairo_pattern_set_extend(cairo_get_source(page), CAIRO_EXTEND_PAD);  // no pale edge
    cairo_rectangle(page, 0, 0, image.width, image.height);
    cairo_fill(page);
    cairo_restore(page);
    cairo_surface_flush(cairo_get_target(page));
    cairo_surface_destroy(surface);
  }
  CairoPainter drawing{what, page};
  Replay{visibleDistance}.paint(what.drawing, drawing);
  cairo_restore(page);
  const Drawing foot = footOf(what);
  cairo_translate(page, 0, what.height);
  CairoPainter under{footFile(what, foot), page};
  if (footHeight(what) > 0) Replay{}.paint(foot, under);
}

cairo_status_t append(void* out, const unsigned char* bytes, unsigned count) {
  static_cast<std::string*>(out)->append(reinterpret_cast<const char*>(bytes), count);
  return CAIRO_STATUS_SUCCESS;
}

/// Owners of what Cairo makes.
using Surface = std::unique_ptr<cairo_surface_t, void (*)(cairo_surface_t*)>;
using Page = std::unique_ptr<cairo_t, void (*)(cairo_t*)>;

void paintOn(const Surface& surface, const DrawingFile& what, double unitsPerMillimetre) {
  const Page page{cairo_create(surface.get()), cairo_destroy};
  cairo_scale(page.get(), unitsPerMillimetre, unitsPerMillimetre);
  paintPage(what, page.get());
  if (const auto status = cairo_status(page.get()); status != CAIRO_STATUS_SUCCESS)
    throw std::runtime_error(std::string{"the drawing can't be painted: "} + cairo_status_to_string(status));
}

Surface pixelsOf(const DrawingFile& what) {
  const double perMillimetre = what.dotsPerInch / millimetresPerInch;
  const double width = std::ceil(what.width * perMillimetre);
  const double height = std::ceil((what.height + footHeight(what)) * perMillimetre);
  if (!(width * height <= mostPixels))
    throw std::invalid_argument(fmt::format("a picture of {:.0f} x {:.0f} pixels is too large", width, height));
  Surface surface{cairo_image_surface_create(CAIRO_FORMAT_RGB24, static_cast<int>(width), static_cast<int>(height)),
                  cairo_surface_destroy};
  paintOn(surface, what, perMillimetre);
  cairo_surface_flush(surface.get());
  return surface;
}

std::string png(const DrawingFile& what) {
  std::string bytes;
  cairo_surface_write_to_png_stream(pixelsOf(what).get(), append, &bytes);
  return bytes;
}

/// 24 bits a pixel, the lowest row first, each row filled up to four bytes.
std::string bmp(const DrawingFile& what) {
  const Surface surface = pixelsOf(what);
  const int width = cairo_image_surface_get_width(surface.get());
  const int height = cairo_image_surface_get_height(surface.get());
  const int stride = cairo_image_surface_get_stride(surface.get());
  const unsigned char* pixels = cairo_image_surface_get_data(surface.get());
  const std::size_t row = (static_cast<std::size_t>(width) * 3 + 3) / 4 * 4;
  constexpr std::uint32_t headSize = 54;
  const auto imageSize = static_cast<std::uint32_t>(row * static_cast<std::size_t>(height));
  const auto perMetre = static_cast<std::uint32_t>(std::lround(what.dotsPerInch / millimetresPerInch * 1000));
  std::string bytes{"BM"};
  const auto add = [&](std::uint32_t value, int count) {
    for (int i = 0; i < count; ++i) bytes += static_cast<char>(value >> (8 * i) & 0xFFU);
  };
  add(headSize + imageSize, 4);
  add(0, 4);
  add(headSize, 4);
  add(40, 4);  // size of what follows
  add(static_cast<std::uint32_t>(width), 4);
  add(static_cast<std::uint32_t>(height), 4);
  add(1, 2);   // plane
  add(24, 2);  // bits a pixel
  add(0, 4);   // not compressed
  add(imageSize, 4);
  add(perMetre, 4);
  add(perMetre, 4);
  add(0, 4);  // no palette
  add(0, 4);  // no colour matters more than the others
  bytes.reserve(headSize + imageSize);
  for (int y = height - 1; y >= 0; --y) {
    const unsigned char* line = pixels + static_cast<std::ptrdiff_t>(y) * stride;
    for (int x = 0; x < width; ++x) bytes.append(reinterpret_cast<const char*>(line + std::ptrdiff_t{4} * x), 3);
    bytes.append(row - static_cast<std::size_t>(width) * 3, '\0');
  }
  return bytes;
}

std::string pdf(const DrawingFile& what) {
  std::string bytes;
  const Surface surface{cairo_pdf_surface_create_for_stream(
                            append, &bytes, what.width * pdfPoint, (what.height + footHeight(what)) * pdfPoint),
                        cairo_surface_destroy};
  paintOn(surface, what, pdfPoint);
  cairo_surface_finish(surface.get());
  return bytes;
}

std::string base64(std::string_view bytes) {
  constexpr std::string_view letters{"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/"};
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    const auto byte = [&](std::size_t k) -> std::uint32_t {
      return i + k < bytes.size() ? static_cast<unsigned char>(bytes[i + k]) : 0U;
    };
    const std::uint32_t three = byte(0) << 16 | byte(1) << 8 | byte(2);
    for (unsigned k = 0; k < 4; ++k) text += i + k > bytes.size() ? '=' : letters[three >> (18 - 6 * k) & 63U];
  }
  return text;
}

/// The picture as an element of its own.
std::string svgPicture(const Image& image) {
  Image copy = image;
  std::string bytes;
  const Surface surface{cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(copy.pixels.data()),
                                                            CAIRO_FORMAT_ARGB32,
                                                            copy.width,
                                                            copy.height,
                                                            copy.width * 4),
                        cairo_surface_destroy};
  cairo_surface_write_to_png_stream(surface.get(), append, &bytes);
  return fmt::format("<image width=\"{:.2f}\" height=\"{:.2f}\" href=\"data:image/png;base64,{}\"/>\n",
                     image.width * image.pixelSize,
                     image.height * image.pixelSize,
                     base64(bytes));
}

std::string svg(const DrawingFile& what) {
  const double height = what.height + footHeight(what);
  std::string text = fmt::format(
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
      "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"{0:.2f}mm\" height=\"{1:.2f}mm\" viewBox=\"0 0 {0:.2f} "
      "{1:.2f}\" font-family=\"sans-serif\" font-size=\"{2:.3f}\" xml:space=\"preserve\">\n"
      "<rect width=\"100%\" height=\"100%\" fill=\"#ffffff\"/>\n"
      "<svg width=\"{0:.2f}\" height=\"{3:.2f}\">\n",
      what.width,
      height,
      textSize,
      what.height);
  if (what.picture) text += svgPicture(*what.picture);
  SvgPainter drawing{what, text};
  text += "<style>polyline{fill:none;stroke-linejoin:round;stroke-linecap:round}</style>\n";
  Replay{visibleDistance}.paint(what.drawing, drawing);
  text += "</svg>\n";
  if (footHeight(what) > 0) {
    const Drawing foot = footOf(what);
    text += fmt::format("<g transform=\"translate(0 {:.2f})\">\n", what.height);
    SvgPainter under{footFile(what, foot), text};
    Replay{}.paint(foot, under);
    text += "</g>\n";
  }
  return text + "</svg>\n";
}

}  // namespace

void writeDrawing(const std::filesystem::path& file, const DrawingFile& what) {
  if (!(what.width > 0) || !(what.height > 0)) throw std::invalid_argument("a drawing needs a width and a height");
  const std::string extension = drawingKind(file);
  constexpr std::array<std::pair<std::string_view, std::string (*)(const DrawingFile&)>, 4> kinds{
      {{".png", png}, {".bmp", bmp}, {".svg", svg}, {".pdf", pdf}}};
  const auto kind =
      std::find_if(kinds.begin(), kinds.end(), [&](const auto& known) { return known.first == extension; });
  if (kind == kinds.end())
    throw std::invalid_argument(file.string() + ": a drawing is written as .svg, .pdf, .png or .bmp");
  replaceFile(file, kind->second(what));
}

}  // namespace noldarz
