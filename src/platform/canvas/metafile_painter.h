// What the player of a metafile meets, painted through Cairo. The player's units become pixels here; what lies far
// beyond the picture is cut off before Cairo sees it, and all work is counted, so that no record takes unreasonably
// long.
#pragma once

#include <cairo.h>
#include <libwmf/api.h>
#include <libwmf/ipa.h>

#include <cstddef>
#include <map>
#include <memory>
#include <vector>

#include "platform/canvas/canvas.h"
#include "platform/canvas/replay.h"

namespace noldarz {

class MetafilePainter {
 public:
  /// Where the window of the metafile lies on the picture.
  struct Frame {
    double left = 0;    ///< units
    double top = 0;     ///< units
    double xScale = 1;  ///< pixels a unit; below 0: the axis is reversed
    double yScale = 1;
    double width = 0;   ///< pixels
    double height = 0;  ///< pixels
  };
  using Line = std::vector<Point>;  // pixels

  /// So many pixels go into the bitmaps of its records.
  explicit MetafilePainter(double mostPixels) : pixelsLeft_(mostPixels) {}
  MetafilePainter(const MetafilePainter&) = delete;
  MetafilePainter& operator=(const MetafilePainter&) = delete;

  /// Before, nothing is painted.
  void begin(cairo_t* page, const Frame& frame);
  /// Whether it has been too much.
  bool exhausted() const { return work_ > mostWork; }

  Line lineOf(const wmfD_Coord* points, std::size_t count) const;
  Line rectangleOf(wmfD_Coord topLeft, wmfD_Coord bottomRight) const;
  Line ellipseOf(const wmfDrawArc_t& box) const;
  Line arcOf(const wmfDrawArc_t& arc) const;
  Point centreOf(const wmfDrawArc_t& box) const;

  void stroke(const wmfDC& context, const Line& line);
  /// By the brush of the context.
  void fill(const wmfDC& context, const std::vector<Line>& outlines);
  void shape(const wmfDC& context, const Line& outline);
  void pixel(const wmfDrawPixel_t& pixel);
  void area(const wmfROP_Draw_t& area);
  void clip(const wmfPolyRectangle_t& region);
  void region(const wmfPolyRectangle_t& region);
  void text(const wmfDrawText_t& text);

  /// Makes the bitmap of a record, which is kept until forget(); none when it is damaged.
  void read(wmfBMP_Read_t& record);
  void forget(wmfBMP& bitmap);
  void bitmap(const wmfBMP_Draw_t& draw);

 private:
  static constexpr double mostWork = 2e9;  // pixels and the like

  Point at(double x, double y) const;
  Line arcLine(const wmfDrawArc_t& box, double begin, double end) const;
  void trace(const std::vector<Line>& outlines);
  /// Counts what painting costs; whether it may be done.
  bool spend(double work);
  void use(const wmfRGB& colour, double opacity = 1);
  const Image* imageOf(const wmfBMP& bitmap) const;
  /// Fills what was traced with the image, whose corner lies at the point.
  void fillWith(const Image& image, Point corner, double xScale, double yScale, cairo_extend_t extend);

  cairo_t* page_ = nullptr;
  Frame frame_;
  double work_ = 0;
  double pixelsLeft_;  // of bitmaps in memory
  std::map<const void*, std::shared_ptr<const Image>> images_;
};

}  // namespace noldarz
