// A dial with arms that the user turns: lines on a picture or on the ground of a view, and the direction of a pointer
// on it. Directions are degrees, 0 up, clockwise; places are in the unit of what the lines lie on, of a dial in twips.
#pragma once

#include "platform/view.h"

namespace noldarz {

inline constexpr int wholeTurn = 360;

/// A line on a view: left and top are its start, width and height lead from there to its end and may be below 0.
struct LineField {
  Field& field;

  double x1() const { return field.left(); }
  double y1() const { return field.top(); }
  double x2() const { return field.left() + field.width(); }
  double y2() const { return field.top() + field.height(); }
  void setEnds(double x1, double y1, double x2, double y2) const;
  void setStart(double x, double y) const { setEnds(x, y, x2(), y2()); }
  void setEnd(double x, double y) const { setEnds(x1(), y1(), x, y); }

  /// Whether the pointer is on it, as an arm of a dial.
  bool isUnder(double x, double y) const;
  /// An arm that the pointer can take is drawn thicker.
  void showGrip(bool taken) const { field.setValue(taken ? grippedWidth : armWidth); }

  static constexpr int armWidth = 4;  // pixels
  static constexpr int grippedWidth = 6;
};

/// A line that lies in the field, on its view.
LineField lineIn(Field& ground, const char* name);
/// The same as an arm of a dial.
LineField armIn(Field& ground, const char* name, Colour colour);

/// Colours of the arms by which the dials are turned, as the pointer finds them.
inline constexpr Colour windArmColour = Colour::fromScreen(49152);
inline constexpr Colour northArmColour = Colour::fromScreen(255);

/// Degrees to radians, of the dials.
inline constexpr double dialRadian = 0.0175;

/// The wind arm with its barbs and its word.
struct WindArm {
  /// Lengths of the arm and to the ends of its barbs, the centre, and where the word stands from the tip.
  struct Size {
    double wind;
    double barb;
    double centreX;
    double centreY;
    double wordRight = 0;
    double wordDown = -180;
  };
  WindArm(Field& ground, const Size& size);

  void showWind(double degrees) const;

  Size size;
  LineField wndarm;  // from its tip to the centre
  LineField wndarm_1;
  LineField wndarm_2;
  Field& wndlbl;
};

/// Direction of a point seen from the centre of a dial, as a slider takes it; 57.25 degrees are a radian here. Straight
/// up is 360.
int dialDegrees(double x, double y, double centreX, double centreY);

/// The user turns a dial by pointer or keys: the slider takes the degrees, with its change event. Degrees that it
/// doesn't have are passed over.
void turnDial(Field& slider, int degrees);

}  // namespace noldarz
