// New records of a drawing, layers and entities, as the format of the drawing has them.
#pragma once

#include <map>

#include "platform/cad/dxf_file.h"
#include "platform/cad/entities.h"

namespace noldarz {

/// A layer that is new, or an old one with another colour.
struct ChangedLayer {
  std::string name;  ///< UTF-8
  int colour = 7;
};

/// Writes them one behind the other, each with a handle of its own where the drawing has handles.
class DxfRecords {
 public:
  explicit DxfRecords(const DxfFile& file);

  // Fail with CadFailure when no handle is left, and for a number that is not finite.

  /// Takes the handle of a new table of layers, before the layers themselves.
  void beginLayerTable(std::size_t layers);
  void endTable() { tag(0, "ENDTAB"); }
  void add(const ChangedLayer& layer);
  void add(const AddedEntity& entity);
  void beginSection(std::string_view name);
  void endSection() { tag(0, "ENDSEC"); }
  void tag(int code, std::string_view value);
  void tag(int code, int value) { tag(code, std::to_string(value)); }

  /// What was written since the last call.
  std::string taken() { return std::exchange(text_, {}); }
  /// The handle that comes next; whether any was given.
  std::string nextHandle() const;
  bool gaveHandles() const { return next_ != file_.places().nextHandle; }

 private:
  void number(int code, double value);
  /// x, y and z as the code and those 10 and 20 above it.
  void point(int code, const CadPoint& point);
  std::string handle();
  void owned(std::string_view kind, bool withHandle, std::string_view owner);
  void begin(std::string_view kind, const AddedEntity& entity, std::string_view subclass);
  std::string_view nameOfLayer(const std::string& name);
  std::string_view ofAnyLayer(int code) const;

  void shape(const AddedEntity& entity, const AddedLine& line);
  void shape(const AddedEntity& entity, const AddedCircle& circle);
  void shape(const AddedEntity& entity, const AddedText& text);
  void shape(const AddedEntity& entity, const AddedSpline& spline);
  void chords(const AddedEntity& entity, const Spline& curve);

  const DxfFile& file_;
  DxfVersion version_;
  bool inUtf8_;
  std::string_view lineEnd_;
  std::uint64_t next_;
  std::string layerTable_;
  std::string_view plotStyle_;
  std::string_view material_;
  std::map<std::string, std::string, std::less<>> layerNames_;  // as they stand in the file
  std::string text_;
};

}  // namespace noldarz
