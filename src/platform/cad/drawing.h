// A CAD drawing as the mapping drives it: the few operations that it needs, and no more. What is behind them can be
// exchanged; here it is a file in the drawing exchange format (dxf_drawing.h). Places and lengths are in drawing units.
#pragma once

#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <utility>

#include "platform/failure.h"

namespace noldarz {

struct CadPoint {
  double x = 0;
  double y = 0;
  double z = 0;

  bool operator==(const CadPoint&) const = default;
};

/// A failure of the CAD, with a sentence that tells the user what is wrong and what to do.
class CadFailure : public RuntimeFailure {
 public:
  explicit CadFailure(std::string text, FailureNumber reason = FailureNumber::cadFailed)
      : RuntimeFailure(reason), text_(std::move(text)) {}
  const char* what() const noexcept override { return text_.c_str(); }

 private:
  std::string text_;
};

/// Every operation fails with CadFailure. Entities and layers live as long as their drawing.
class CadEntity {
 public:
  CadEntity() = default;
  CadEntity(const CadEntity&) = delete;
  CadEntity& operator=(const CadEntity&) = delete;
  virtual ~CadEntity() = default;

  /// A colour index, 1 to 255; 256: that of the layer.
  virtual void setColor(int index) = 0;
  /// Turns it in its plane about the base (radians, counter-clockwise).
  virtual void rotate(const CadPoint& base, double angle) = 0;
  virtual void update() = 0;
};

class CadSpline : public CadEntity {
 public:
  // Points count from 0. After a change of a fit point the curve runs through the fit points again; a control point
  // that was set makes the control points what the curve is.
  virtual void deleteFitPoint(int index) = 0;
  virtual CadPoint getFitPoint(int index) const = 0;
  virtual void setFitPoint(int index, const CadPoint& point) = 0;
  virtual CadPoint getControlPoint(int index) const = 0;
  virtual void setControlPoint(int index, const CadPoint& point) = 0;
  /// What the curve encloses, closed by a straight line where its ends differ (square units).
  virtual double area() const = 0;
};

class CadLayer {
 public:
  CadLayer() = default;
  CadLayer(const CadLayer&) = delete;
  CadLayer& operator=(const CadLayer&) = delete;
  virtual ~CadLayer() = default;

  virtual void setColor(int index) = 0;
};

class CadDrawing {
 public:
  CadDrawing() = default;
  CadDrawing(const CadDrawing&) = delete;
  CadDrawing& operator=(const CadDrawing&) = delete;
  virtual ~CadDrawing() = default;

  /// The CAD comes to the screen.
  virtual void setVisible() = 0;
  virtual std::string fullName() = 0;
  /// The short name.
  virtual std::string name() = 0;
  /// 1: model space.
  virtual void setActiveSpace(int space) = 0;
  /// Waits until the user has picked a point.
  virtual CadPoint getPoint() = 0;

  /// The layer of that name; a new one when there is none.
  virtual CadLayer& addLayer(const std::string& name) = 0;
  /// New entities go on it.
  virtual void setActiveLayer(CadLayer& layer) = 0;
  virtual CadEntity& addCircle(const CadPoint& centre, double radius) = 0;
  virtual CadEntity& addLine(const CadPoint& start, const CadPoint& end) = 0;
  virtual CadEntity& addText(const std::string& text, const CadPoint& at, double height) = 0;
  /// A spline through the points, x, y and z of each. A tangent of 0, 0, 0 leaves that end natural.
  virtual CadSpline& addSpline(std::span<const double> fitPoints, const CadPoint& startTangent,
                               const CadPoint& endTangent) = 0;

  /// The whole CAD follows the changes.
  virtual void updateApplication() = 0;
  virtual void regen() = 0;
  /// Ends the CAD.
  virtual void quit() = 0;
};

/// The CAD itself.
class Cad {
 public:
  Cad() = default;
  Cad(const Cad&) = delete;
  Cad& operator=(const Cad&) = delete;
  virtual ~Cad() = default;

  /// The drawing in a file, opened if need be.
  virtual std::shared_ptr<CadDrawing> getObject(const std::filesystem::path& file) = 0;
  /// A drawing from a text that names what is to be made.
  virtual std::shared_ptr<CadDrawing> createObject(const std::string& text) = 0;
  /// Copies a drawing as the file of a new one, in the format that its name asks for.
  virtual void copyDrawing(const std::filesystem::path& from, const std::filesystem::path& to) = 0;
};

}  // namespace noldarz
