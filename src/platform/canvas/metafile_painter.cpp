#include "platform/canvas/metafile_painter.h"

#include <libwmf/defs.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <numbers>
#include <string>
#include <string_view>
#include <utility>

#include "platform/canvas/bitmap_file.h"
#include "platform/canvas/metafile_records.h"
#include "platform/canvas/stroke_clip.h"

namespace noldarz {

namespace {

constexpr double farthest = 1e6;  // pixels, which Cairo's numbers hold

/// Windows-1252 from 0x80 to 0x9F.
constexpr char32_t highLetters[]{0x20AC, 0xFFFD, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
                                 0x2039, 0x0152, 0xFFFD, 0x017D, 0xFFFD, 0xFFFD, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
                                 0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0xFFFD, 0x017E, 0x0178};

std::string utf8(std::string_view text) {
  std::string out;
  const auto add = [&](char32_t byte) { out += static_cast<char>(byte); };
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    const char32_t letter = byte >= 0x80 && byte < 0xA0 ? highLetters[byte - 0x80] : byte;
    if (letter < 0x80) {
      add(letter);
      continue;
    }
    if (letter >= 0x800) add(0xE0 | letter >> 12);
    add(letter >= 0x800 ? 0x80 | (letter >> 6 & 0x3F) : 0xC0 | letter >> 6);
    add(0x80 | (letter & 0x3F));
  }
  return out;
}

double lengthOf(const MetafilePainter::Line& line) {
  double length = 0;
  for (std::size_t i = 1; i < line.size(); ++i)
    length += std::hypot(line[i].x - line[i - 1].x, line[i].y - line[i - 1].y);
  return length;
}

void useDashes(cairo_t* page, unsigned penStyle) {
  static constexpr double dashes[]{6, 3, 2, 3, 2, 3};  // pixels
  static constexpr struct {
    int first, count;
  } styles[]{{0, 0}, {0, 2}, {2, 2}, {0, 4}, {0, 6}};  // solid, dash, dot, dash-dot, dash-dot-dot
  const auto [first, count] = styles[penStyle < std::size(styles) ? penStyle : PS_SOLID];
  cairo_set_dash(page, dashes + first, count, 0);
}

/// The file of a bitmap that lies in a record without the head of a file; empty when its own head is damaged.
std::string bitmapFile(std::string_view bitmap) {
  constexpr std::uint32_t fileHead = 14, shortestHead = 40, longestHead = 124, masks = 3;
  if (bitmap.size() < shortestHead) return {};
  const std::uint32_t head = littleEndian(bitmap, 0, 4);
  const std::uint32_t bits = littleEndian(bitmap, 14, 2);
  const std::uint32_t used = littleEndian(bitmap, 32, 4);
  if (head < shortestHead || head > longestHead || used > 256) return {};
  const std::uint32_t colours = used != 0 ? used : bits <= 8 ? 1U << bits : 0;
  const std::uint32_t maskSize = head == shortestHead && littleEndian(bitmap, 16, 4) == masks ? 12 : 0;
  std::string file{"BM"};
  for (const std::uint32_t number :
       {static_cast<std::uint32_t>(bitmap.size()) + fileHead, 0U, fileHead + head + 4 * colours + maskSize})
    for (unsigned i = 0; i < 4; ++i) file += static_cast<char>(number >> (8 * i) & 0xFFU);
  return file.append(bitmap);
}

}  // namespace

void MetafilePainter::begin(cairo_t* page, const Frame& frame) {
  page_ = page;
  frame_ = frame;
}

Point MetafilePainter::at(double x, double y) const {
  const auto near = [](double value) { return std::isfinite(value) ? std::clamp(value, -farthest, farthest) : 0; };
  return {near((x - frame_.left) * frame_.xScale), near((y - frame_.top) * frame_.yScale)};
}

MetafilePainter::Line MetafilePainter::lineOf(const wmfD_Coord* points, std::size_t count) const {
  Line line;
  for (std::size_t i = 0; i < count; ++i) line.push_back(at(points[i].x, points[i].y));
  return line;
}

MetafilePainter::Line MetafilePainter::rectangleOf(wmfD_Coord topLeft, wmfD_Coord bottomRight) const {
  const Point a = at(topLeft.x, topLeft.y);
  const Point b = at(bottomRight.x, bottomRight.y);
  return {a, {b.x, a.y}, b, {a.x, b.y}, a};
}

Point MetafilePainter::centreOf(const wmfDrawArc_t& box) const {
  return at((box.TL.x + box.BR.x) / 2, (box.TL.y + box.BR.y) / 2);
}

MetafilePainter::Line MetafilePainter::arcLine(const wmfDrawArc_t& box, double begin, double end) const {
  constexpr int steps = 180;
  Line line;
  for (int i = 0; i <= steps; ++i) {
    const double angle = begin + (end - begin) * i / steps;
    line.push_back(at((box.TL.x + box.BR.x + (box.BR.x - box.TL.x) * std::cos(angle)) / 2,
                      (box.TL.y + box.BR.y + (box.BR.y - box.TL.y) * std::sin(angle)) / 2));
  }
  return line;
}

MetafilePainter::Line MetafilePainter::ellipseOf(const wmfDrawArc_t& box) const {
  return arcLine(box, 0, 2 * std::numbers::pi);
}

/// The player hands over where the rays to both ends point, seen from the centre.
MetafilePainter::Line MetafilePainter::arcOf(const wmfDrawArc_t& arc) const {
  const double width = arc.BR.x - arc.TL.x;
  const double height = arc.BR.y - arc.TL.y;
  const auto angle = [&](wmfD_Coord ray) { return std::atan2(ray.y * width, ray.x * height); };
  const double begin = angle(arc.start);
  const double end = angle(arc.end);
  return arcLine(arc, begin, end <= begin ? end + 2 * std::numbers::pi : end);
}

void MetafilePainter::stroke(const wmfDC& context, const Line& line) {
  const wmfPen& pen = *context.pen;
  const unsigned style = pen.lopnStyle & PS_STYLE_MASK;
  if (style == PS_NULL || context.ROPmode == R2_NOP) return;
  const double width = std::clamp(pen.width * std::abs(frame_.xScale), 1.0, farthest);
  const double beyond = width + 2;
  for (const Line& piece : clipped(line, {-beyond, -beyond, frame_.width + beyond, frame_.height + beyond})) {
    const double across = std::min(width, frame_.width + frame_.height) + 8;
    if (!spend((lengthOf(piece) + width) * across)) return;
    use(pen.lopnColor);
    useDashes(page_, style);
    cairo_set_line_width(page_, width);
    cairo_new_path(page_);
    for (const Point& point : piece) cairo_line_to(page_, point.x, point.y);
    cairo_stroke(page_);
  }
}

void MetafilePainter::trace(const std::vector<Line>& outlines) {
  cairo_new_path(page_);
  for (const Line& outline : outlines) {
    for (const Point& point : outline) cairo_line_to(page_, point.x, point.y);
    cairo_close_path(page_);
  }
}

void MetafilePainter::fill(const wmfDC& context, const std::vector<Line>& outlines) {
  const wmfBrush& brush = *context.brush;
  std::size_t points = 0;
  for (const Line& outline : outlines) points += outline.size();
  if (brush.lbStyle == BS_NULL || context.ROPmode == R2_NOP || points == 0) return;
  if (!spend((static_cast<double>(points) + frame_.width) * frame_.height)) return;
  trace(outlines);
  cairo_set_fill_rule(page_, context.polyfillmode == WINDING ? CAIRO_FILL_RULE_WINDING : CAIRO_FILL_RULE_EVEN_ODD);
  if (const Image* pattern = imageOf(brush.bmp); pattern != nullptr && brush.lbStyle >= BS_PATTERN)
    return fillWith(*pattern, {}, 1, 1, CAIRO_EXTEND_REPEAT);
  use(brush.lbColor, brush.lbStyle == BS_HATCHED ? 0.5 : 1);  // a hatch as what the eye sees of it from afar
  cairo_fill(page_);
}

void MetafilePainter::shape(const wmfDC& context, const Line& outline) {
  fill(context, {outline});
  stroke(context, outline);
}

void MetafilePainter::pixel(const wmfDrawPixel_t& pixel) {
  if (!spend(1)) return;
  const Point place = at(pixel.pt.x, pixel.pt.y);
  use(pixel.color);
  cairo_rectangle(page_, std::floor(place.x), std::floor(place.y), 1, 1);
  cairo_fill(page_);
}

void MetafilePainter::area(const wmfROP_Draw_t& area) {
  constexpr std::uint32_t blackness = 0x00000042, whiteness = 0x00FF0062, patternCopy = 0x00F00021;
  if (area.ROP != blackness && area.ROP != whiteness && area.ROP != patternCopy) return;  // need what was there
  wmfDC context = *area.dc;
  wmfBrush plain{};
  if (area.ROP == whiteness) plain.lbColor = {255, 255, 255};
  if (area.ROP != patternCopy) context.brush = &plain;
  fill(context, {rectangleOf(area.TL, area.BR)});
}

void MetafilePainter::clip(const wmfPolyRectangle_t& region) {
  if (!spend(100.0 * region.count)) return;
  cairo_reset_clip(page_);
  if (region.count == 0) return;
  std::vector<Line> outlines;
  for (unsigned i = 0; i < region.count; ++i) outlines.push_back(rectangleOf(region.TL[i], region.BR[i]));
  trace(outlines);
  cairo_set_fill_rule(page_, CAIRO_FILL_RULE_WINDING);
  cairo_clip(page_);
}

void MetafilePainter::region(const wmfPolyRectangle_t& region) {
  for (unsigned i = 0; i < region.count && !exhausted(); ++i)
    fill(*region.dc, {rectangleOf(region.TL[i], region.BR[i])});
}

void MetafilePainter::text(const wmfDrawText_t& text) {
  constexpr unsigned boldWeight = 600;
  constexpr double descent = 0.2;  // of the height: where no base line is told, it is the bottom of the line
  const wmfFont& font = *text.dc->font;
  const double size = text.font_height * std::abs(frame_.yScale);
  if (!(size >= 1) || size > 2 * frame_.height) return;
  if (!spend(size * size * static_cast<double>(std::strlen(text.str)) + 1000)) return;
  const bool baseLine = (text.dc->textalign & TA_BASELINE) == TA_BASELINE;
  const Point place = at(text.pt.x, text.pt.y);
  cairo_save(page_);
  cairo_select_font_face(page_,
                         font.lfFaceName != nullptr ? utf8(font.lfFaceName).c_str() : "sans-serif",
                         font.lfItalic != 0 ? CAIRO_FONT_SLANT_ITALIC : CAIRO_FONT_SLANT_NORMAL,
                         font.lfWeight >= boldWeight ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
  cairo_set_font_size(page_, size);
  use(text.dc->textcolor);
  cairo_translate(page_, place.x, place.y);
  cairo_rotate(page_, -font.lfEscapement / 1800.0 * std::numbers::pi);
  cairo_move_to(page_, 0, baseLine ? 0 : -descent * size);
  cairo_show_text(page_, utf8(text.str).c_str());
  cairo_restore(page_);
}

void MetafilePainter::read(wmfBMP_Read_t& record) {
  record.bmp = {};
  if (record.buffer == nullptr || record.length <= 0) return;
  const std::string file =
      bitmapFile({reinterpret_cast<const char*>(record.buffer), static_cast<std::size_t>(record.length)});
  const auto image = bitmapPicture(file, pixelsLeft_);
  constexpr int longest = std::numeric_limits<U16>::max();
  if (!image || image->width > longest || image->height > longest) return;
  pixelsLeft_ -= static_cast<double>(image->pixels.size());
  record.bmp.width = static_cast<U16>(image->width);
  record.bmp.height = static_cast<U16>(image->height);
  record.bmp.data = const_cast<Image*>(image.get());  // NOLINT(cppcoreguidelines-pro-type-const-cast): a mark only
  images_[record.bmp.data] = image;
}

void MetafilePainter::forget(wmfBMP& bitmap) {
  if (const Image* image = imageOf(bitmap)) pixelsLeft_ += static_cast<double>(image->pixels.size());
  images_.erase(bitmap.data);
  bitmap.data = nullptr;
}

void MetafilePainter::bitmap(const wmfBMP_Draw_t& draw) {
  const Image* image = imageOf(draw.bmp);
  if (image == nullptr) return;
  if (!spend(frame_.width * frame_.height + 2 * static_cast<double>(image->pixels.size()))) return;
  const Point place = at(draw.pt.x, draw.pt.y);
  const double xScale = draw.pixel_width * frame_.xScale;
  const double yScale = draw.pixel_height * frame_.yScale;
  const auto usable = [](double scale) { return std::abs(scale) > 1e-4 && std::abs(scale) < 1e5; };
  if (!usable(xScale) || !usable(yScale)) return;
  cairo_new_path(page_);
  cairo_rectangle(page_, place.x, place.y, draw.crop.w * xScale, draw.crop.h * yScale);
  fillWith(*image, {place.x - draw.crop.x * xScale, place.y - draw.crop.y * yScale}, xScale, yScale, CAIRO_EXTEND_PAD);
}

bool MetafilePainter::spend(double work) {
  constexpr double call = 100;
  work_ += work + call;
  return !exhausted() && page_ != nullptr;
}

void MetafilePainter::use(const wmfRGB& colour, double opacity) {
  cairo_set_source_rgba(page_, colour.r / 255.0, colour.g / 255.0, colour.b / 255.0, opacity);
}

const Image* MetafilePainter::imageOf(const wmfBMP& bitmap) const {
  const auto known = images_.find(bitmap.data);
  return known == images_.end() ? nullptr : known->second.get();
}

void MetafilePainter::fillWith(const Image& image, Point corner, double xScale, double yScale, cairo_extend_t extend) {
  // A source is read only, whatever its type says.
  auto* bytes = reinterpret_cast<unsigned char*>(const_cast<std::uint32_t*>(image.pixels.data()));
  cairo_surface_t* surface =
      cairo_image_surface_create_for_data(bytes, CAIRO_FORMAT_ARGB32, image.width, image.height, image.width * 4);
  cairo_matrix_t matrix;
  cairo_matrix_init(&matrix, 1 / xScale, 0, 0, 1 / yScale, -corner.x / xScale, -corner.y / yScale);
  cairo_set_source_surface(page_, surface, 0, 0);
  cairo_pattern_set_matrix(cairo_get_source(page_), &matrix);
  cairo_pattern_set_extend(cairo_get_source(page_), extend);
  cairo_fill(page_);
  cairo_set_source_rgb(page_, 0, 0, 0);  // lets go of the surface
  cairo_surface_destroy(surface);
}

}  // namespace noldarz
