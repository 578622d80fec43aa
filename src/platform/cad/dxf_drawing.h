// A CAD drawing in a file, DXF or, through a converter, DWG: what was read, what was added, and when it is saved. A
// screen (CadScreen) shows it and lets the user pick points.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>

#include "platform/cad/dwg.h"
#include "platform/cad/dxf_file.h"
#include "platform/cad/dxf_writer.h"

namespace noldarz {

class DxfDrawing;

/// Where drawings are seen: a window, or a script that answers.
class CadScreen {
 public:
  CadScreen() = default;
  CadScreen(const CadScreen&) = delete;
  CadScreen& operator=(const CadScreen&) = delete;
  virtual ~CadScreen() = default;

  /// Brings the drawing to the screen, and keeps it until it is closed there.
  virtual void show(const std::shared_ptr<DxfDrawing>& drawing) = 0;
  /// Waits until the user has picked a point in it. Fails with CadFailure when he gives up, or closes it.
  virtual CadPoint pickPoint(DxfDrawing& drawing) = 0;
  /// What is seen of it is as it is now.
  virtual void redraw(DxfDrawing& drawing) = 0;
  /// Takes it from the screen without a question.
  virtual void drop(DxfDrawing& drawing) = 0;
  /// Closes all drawings, each after the question whether its additions are to be saved.
  virtual void quit() = 0;
};

class DxfDrawing final : public CadDrawing, public std::enable_shared_from_this<DxfDrawing> {
 public:
  /// Opens the file. Fails with CadFailure.
  DxfDrawing(std::filesystem::path file, CadScreen& screen, DwgConverter converter);
  ~DxfDrawing() override;

  void setVisible() override;
  std::string fullName() override;
  std::string name() override { return file_.filename().string(); }
  void setActiveSpace(int space) override;
  CadPoint getPoint() override;
  CadLayer& addLayer(const std::string& name) override;
  void setActiveLayer(CadLayer& layer) override;
  CadEntity& addCircle(const CadPoint& centre, double radius) override;
  CadEntity& addLine(const CadPoint& start, const CadPoint& end) override;
  CadEntity& addText(const std::string& text, const CadPoint& at, double height) override;
  CadSpline& addSpline(std::span<const double> fitPoints, const CadPoint& startTangent,
                       const CadPoint& endTangent) override;
  void updateApplication() override { regen(); }
  void regen() override;
  void quit() override { screen_.quit(); }

  // For who shows and saves it.

  const std::filesystem::path& file() const { return file_; }
  const DxfFile& content() const { return content_; }
  /// In the order in which they came.
  const std::deque<AddedEntity>& added() const { return added_; }
  /// Layers that are new or have another colour than in the file.
  std::vector<ChangedLayer> changedLayers() const;
  /// Counts up with every change.
  std::uint64_t revision() const { return revision_; }
  /// Whether something was added or changed since it was opened or saved.
  bool modified() const { return revision_ != savedRevision_; }
  /// Saves it in its file, in the format that it has. Fails with CadFailure, also when another program has changed the
  /// file since it was opened or saved here.
  void save();
  /// Saves it under another name, which is its own from then on; as a DWG when the name asks for one.
  void saveAs(const std::filesystem::path& file);
  /// Whether the file is what was read or saved last.
  bool isCurrent() const { return stampOf(file_) == stamp_; }
  /// The user has closed it: whoever still drives it is told by a failure.
  void close() { open_ = false; }
  bool isOpen() const { return open_; }

 private:
  template <class Port>
  class Added;
  class AddedCurve;
  class Layer;
  using Stamp = std::pair<std::filesystem::file_time_type, std::uintmax_t>;

  template <class Handle>
  Handle& add(decltype(AddedEntity::shape) shape);
  void demandOpen() const;
  void write(const std::filesystem::path& file, bool asDwg);
  static std::optional<Stamp> stampOf(const std::filesystem::path& file);

  std::filesystem::path file_;
  CadScreen& screen_;
  DwgConverter converter_;
  bool dwg_;
  std::optional<Stamp> stamp_;
  DxfFile content_;
  std::deque<AddedEntity> added_;
  std::vector<std::unique_ptr<CadEntity>> handles_;
  std::vector<std::unique_ptr<Layer>> layers_;
  const Layer* active_ = nullptr;
  bool open_ = true;
  std::uint64_t revision_ = 0;
  std::uint64_t savedRevision_ = 0;
};

/// The CAD on such files.
class DxfCad final : public Cad {
 public:
  /// `converter`: asked for the program of the user at each opening.
  DxfCad(CadScreen& screen, std::function<std::string()> converter)
      : screen_(screen), converter_(std::move(converter)) {}

  std::shared_ptr<CadDrawing> getObject(const std::filesystem::path& file) override;
  /// Nothing can be made from a name here: it fails for the reason for which getObject() has failed last.
  std::shared_ptr<CadDrawing> createObject(const std::string& text) override;
  void copyDrawing(const std::filesystem::path& from, const std::filesystem::path& to) override;

  /// The one that was asked for last and is still open; null when there is none.
  std::shared_ptr<DxfDrawing> current() const;

 private:
  std::shared_ptr<DxfDrawing> openHere(const std::filesystem::path& file);

  CadScreen& screen_;
  std::function<std::string()> converter_;
  std::string failure_;                            // of the last opening that failed
  std::vector<std::weak_ptr<DxfDrawing>> opened_;  // the current one last
};

}  // namespace noldarz
