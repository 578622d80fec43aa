// A canvas: a drawing as a list of primitives in millimetres, made without a toolkit. The origin is the top left
// corner, y grows downwards. Routines of the plots draw on it; a window, a file and a test read the list (replay.h). A
// canvas is the picture of one field, whose place and size are in twips.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/colour.h"
#include "platform/field.h"

namespace noldarz {

inline constexpr double millimetresPerTwip = 25.4 / 1440;

/// Text is of this size (points); a line of it is 1.2 times as high.
inline constexpr double textPoints = 8;
inline constexpr double textSize = textPoints * 25.4 / 72;  ///< mm
inline constexpr double textLine = 1.2 * textSize;          ///< mm

struct Primitive {
  enum class Kind : std::uint8_t { Cls, PSet, Line, Circle, Print, DrawWidth, FontBold, FontTransparent };

  Kind kind = Kind::Cls;
  Colour colour{};       ///< of PSet, Line and Circle
  double x1 = 0;         ///< point of PSet, start of Line, centre of Circle (mm); the value of DrawWidth (px) and flags
  double y1 = 0;         ///< mm
  double x2 = 0;         ///< end of Line, radius of Circle (mm)
  double y2 = 0;         ///< mm
  std::size_t text = 0;  ///< of Print: its index in the texts of the drawing
};

/// What was drawn, in order.
struct Drawing {
  std::vector<Primitive> primitives;
  std::vector<std::string> texts;

  const std::string& textOf(const Primitive& print) const { return texts[print.text]; }
};

/// An image in memory, of a file that the user chose.
struct Image {
  int width = 0;                      ///< pixels
  int height = 0;                     ///< pixels
  std::vector<std::uint32_t> pixels;  ///< 0xAARRGGBB, row by row, the colours multiplied by their opacity (of 255)
  double pixelSize = 25.4 / 96;       ///< mm
};

class Canvas {
 public:
  /// The canvas of the field, which knows it from now on.
  explicit Canvas(Field& field);
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;

  /// Removes what was drawn, not the picture; the current point goes to (0, 0).
  void Cls();
  /// A dot; the current point goes there.
  void PSet(double x, double y, Colour colour);
  /// A straight line in the draw width; the current point goes to its end.
  void Line(double x1, double y1, double x2, double y2, Colour colour);
  /// A circle in the draw width; the current point goes to its centre. Fails with invalidArgument for a radius below 0.
  void Circle(double x, double y, double radius, Colour colour = SystemColour::windowText);
  /// A text with its top left corner at the current point, which goes one text line down to the left edge; so does the
  /// text at each line break in it.
  void Print(std::string_view text);
  /// Width of lines and circles (pixels of 1/96 inch).
  void setDrawWidth(int pixels);
  void setFontBold(bool bold);
  /// Texts have no box of the ground's colour behind them.
  void setFontTransparent(bool transparent);

  /// Inner size (mm).
  double ScaleWidth() const { return field_.width() * millimetresPerTwip; }
  double ScaleHeight() const { return field_.height() * millimetresPerTwip; }
  double currentX() const { return x_; }
  double currentY() const { return y_; }

  /// Shown behind the drawing, unscaled, from the top left corner; null: none.
  const std::shared_ptr<const Image>& picture() const { return picture_; }
  void setPicture(std::shared_ptr<const Image> picture);

  /// What draws the canvas anew when somebody looks at it after outdate(): for a drawing that not every front shows.
  void drawOnDemand(std::function<void()> draw) { draw_ = std::move(draw); }
  void outdate() { outdated_ = true; }
  bool isOutdated() const { return outdated_; }
  /// To be called by whoever reads the drawing of a canvas that may be drawn on demand.
  void bringUpToDate() {
    if (std::exchange(outdated_, false) && draw_) draw_();
  }

  Field& field() const { return field_; }
  /// From the last Cls on, that one included.
  const Drawing& drawing() const { return drawing_; }
  /// Counts up with each Cls and each picture: what was painted before it is worth nothing.
  std::uint64_t generation() const { return generation_; }

 private:
  void add(const Primitive& primitive, double x, double y);
  void changed();

  Field& field_;
  Drawing drawing_;
  std::shared_ptr<const Image> picture_;
  std::uint64_t generation_ = 1;
  std::function<void()> draw_;
  bool outdated_ = false;
  double x_ = 0;
  double y_ = 0;
  Primitive width_{Primitive::Kind::DrawWidth, {}, 1};
  Primitive bold_{Primitive::Kind::FontBold};
  Primitive transparent_{Primitive::Kind::FontTransparent, {}, 1};
};

}  // namespace noldarz
