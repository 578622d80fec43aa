#include "platform/cad/dxf_drawing.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <system_error>

#include "platform/cad/dxf_text.h"
#include "platform/input_file.h"
#include "platform/scratch_folder.h"

namespace noldarz {

namespace {

namespace fs = std::filesystem;

void check(double number) {
  constexpr double farthest = 1e12;  // beyond which places are no longer told apart
  if (!(std::abs(number) <= farthest)) throw CadFailure("A place or length is out of range.");
}
void check(const CadPoint& point) {
  for (const double number : {point.x, point.y, point.z}) check(number);
}
void checkColour(int index, int last) {
  if (index < 1 || index > last) throw CadFailure("A colour has an index from 1 to " + std::to_string(last) + ".");
}

CadPoint turned(const CadPoint& point, const CadPoint& base, double angle) {
  const double x = point.x - base.x;
  const double y = point.y - base.y;
  return {
      base.x + x * std::cos(angle) - y * std::sin(angle), base.y + x * std::sin(angle) + y * std::cos(angle), point.z};
}

struct Turn {
  const CadPoint& base;
  double angle;

  void operator()(AddedLine& line) const {
    line.start = turned(line.start, base, angle);
    line.end = turned(line.end, base, angle);
  }
  void operator()(AddedCircle& circle) const { circle.centre = turned(circle.centre, base, angle); }
  void operator()(AddedText& text) const {
    text.at = turned(text.at, base, angle);
    text.angle += angle;
  }
  void operator()(AddedSpline& spline) const {
    spline.curve.rotate(base, angle);
    spline.turned += angle;
  }
};

bool isSameFile(const fs::path& a, const fs::path& b) {
  std::error_code error;
  return fs::equivalent(a, b, error);
}

DxfFile contentOf(const fs::path& file, bool dwg, const DwgConverter& converter) {
  if (!dwg) return DxfFile::read(file);
  const ScratchFolder folder;
  const fs::path converted = folder.path() / "drawing.dxf";
  converter.convert(file, converted);
  return DxfFile::read(converted);
}

void copyInOneStep(const fs::path& from, const fs::path& to) {
  InputFile input{from};
  const auto bytes = input.bytes(input.size());
  if (!bytes || !input.isRegular()) throw CadFailure(from.string() + " can't be read.");
  const std::string_view piece = *bytes;
  saveDrawing(to, {&piece, 1});
}

/// Makes a DWG of the DXF that `make` writes. A converter takes the format from the name.
void saveAsDwg(const fs::path& file, const DwgConverter& converter, const std::function<void(const fs::path&)>& make) {
  const ScratchFolder folder;
  const fs::path plain = folder.path() / "drawing.dxf";
  const fs::path converted = folder.path() / "drawing.dwg";
  make(plain);
  converter.convert(plain, converted, file);
  copyInOneStep(converted, file);
}

/// The work of a drawing on files; what the disk refuses is a failure of the CAD.
template <class Work>
auto onFiles(Work&& work) {
  try {
    return work();
  } catch (const fs::filesystem_error& error) {
    throw CadFailure(error.path1().string() + ": " + error.code().message());
  } catch (const std::bad_alloc&) {
    throw CadFailure("There is not enough memory for the drawing.");
  }
}

}  // namespace

/// An entity as who drives the drawing sees it.
template <class Port>
class DxfDrawing::Added : public Port {
 public:
  Added(DxfDrawing& drawing, AddedEntity& entity) : drawing_(drawing), entity_(entity) {}

  void setColor(int index) override {
    checkColour(index, colourByLayer);
    change().colour = index;
  }
  void rotate(const CadPoint& base, double angle) override {
    check(base);
    check(angle);
    std::visit(Turn{base, angle}, change().shape);
  }
  void update() override { drawing_.demandOpen(); }

 protected:
  AddedEntity& change() {
    drawing_.demandOpen();
    ++drawing_.revision_;
    return entity_;
  }
  const AddedEntity& entity() const { return entity_; }

 private:
  DxfDrawing& drawing_;
  AddedEntity& entity_;
};

class DxfDrawing::AddedCurve final : public Added<CadSpline> {
 public:
  using Added::Added;

  void deleteFitPoint(int index) override {
    auto fit = spline().fit;
    fit.erase(fit.begin() + static_cast<std::ptrdiff_t>(place(index, fit)));
    setFit(std::move(fit));
  }
  CadPoint getFitPoint(int index) const override { return spline().fit[place(index, spline().fit)]; }
  void setFitPoint(int index, const CadPoint& point) override {
    check(point);
    auto fit = spline().fit;
    fit[place(index, fit)] = point;
    setFit(std::move(fit));
  }
  CadPoint getControlPoint(int index) const override {
    return spline().curve.control()[place(index, spline().curve.control())];
  }
  void setControlPoint(int index, const CadPoint& point) override {
    check(point);
    const std::size_t at = place(index, spline().curve.control());
    std::get<AddedSpline>(change().shape).curve.setControl(at, point);
  }
  double area() const override {
    const double area = spline().curve.area();
    if (!std::isfinite(area)) throw CadFailure("The curve encloses no area that can be told.");
    return area;
  }

 private:
  const AddedSpline& spline() const { return std::get<AddedSpline>(entity().shape); }
  static std::size_t place(int index, const std::vector<CadPoint>& points) {
    if (index < 0 || static_cast<std::size_t>(index) >= points.size())
      throw CadFailure("The curve has no point " + std::to_string(index) + ".");
    return static_cast<std::size_t>(index);
  }
  void setFit(std::vector<CadPoint> fit) {
    if (spline().turned != 0) throw CadFailure("A curve that was turned has its fit points elsewhere.");
    Spline curve{fit};
    std::get<AddedSpline>(change().shape) = {std::move(curve), std::move(fit), 0};
  }
};

class DxfDrawing::Layer final : public CadLayer {
 public:
  /// A new layer, or one of the file.
  Layer(DxfDrawing& drawing, ChangedLayer layer, const DxfLayer* old)
      : drawing_(drawing), layer_(std::move(layer)), old_(old) {}

  void setColor(int index) override {
    checkColour(index, colourByLayer - 1);
    drawing_.demandOpen();
    if (index == layer_.colour) return;
    layer_.colour = index;
    ++drawing_.revision_;
  }
  const ChangedLayer& layer() const { return layer_; }
  bool isChanged() const { return !old_ || old_->colour != layer_.colour; }
  /// Entities of a layer that is locked or frozen can't be changed or seen.
  void demandUsable() const {
    if (!old_ || (!old_->frozen && !old_->locked)) return;
    const char* const is = old_->frozen ? "\" is frozen: thaw it" : "\" is locked: unlock it";
    throw CadFailure("The layer \"" + layer_.name + is + " in your CAD, save the drawing and open it again.");
  }

 private:
  DxfDrawing& drawing_;
  ChangedLayer layer_;
  const DxfLayer* old_;
};

DxfDrawing::DxfDrawing(fs::path file, CadScreen& screen, DwgConverter converter)
    : file_(std::move(file)),
      screen_(screen),
      converter_(std::move(converter)),
      dwg_(isDwg(file_)),
      stamp_(stampOf(file_)),
      content_(onFiles([this] { return contentOf(file_, dwg_, converter_); })) {}

DxfDrawing::~DxfDrawing() = default;

void DxfDrawing::demandOpen() const {
  if (!open_) throw CadFailure("The drawing \"" + file_.filename().string() + "\" was closed. Open it again.");
}

void DxfDrawing::setVisible() {
  demandOpen();
  screen_.show(shared_from_this());
}

std::string DxfDrawing::fullName() {
  demandOpen();
  return file_.string();
}

void DxfDrawing::setActiveSpace(int space) {
  demandOpen();
  if (space != 1) throw CadFailure("Only the model space of a drawing can be worked in.");
}

CadPoint DxfDrawing::getPoint() {
  demandOpen();
  const CadPoint point = screen_.pickPoint(*this);
  check(point);
  return point;
}

CadLayer& DxfDrawing::addLayer(const std::string& name) {
  demandOpen();
  const DxfLayer* old = content_.layer(name);
  for (const auto& known : layers_)
    if (lowerCase(known->layer().name) == lowerCase(name)) return *known;
  constexpr int foreground = 7;
  layers_.push_back(
      std::make_unique<Layer>(*this, ChangedLayer{old ? old->name : name, old ? old->colour : foreground}, old));
  if (!old) ++revision_;
  return *layers_.back();
}

void DxfDrawing::setActiveLayer(CadLayer& layer) {
  demandOpen();
  const auto own =
      std::find_if(layers_.begin(), layers_.end(), [&](const auto& known) { return known.get() == &layer; });
  if (own == layers_.end()) throw CadFailure("The layer is of another drawing.");
  (*own)->demandUsable();
  active_ = own->get();
}

template <class Handle>
Handle& DxfDrawing::add(decltype(AddedEntity::shape) shape) {
  demandOpen();
  added_.push_back({active_ ? active_->layer().name : "0", colourByLayer, std::move(shape)});
  auto handle = std::make_unique<Handle>(*this, added_.back());
  Handle& added = *handle;
  handles_.push_back(std::move(handle));
  ++revision_;
  return added;
}

CadEntity& DxfDrawing::addCircle(const CadPoint& centre, double radius) {
  check(centre);
  check(radius);
  if (radius <= 0) throw CadFailure("A circle has a radius above 0.");
  return add<Added<CadEntity>>(AddedCircle{centre, radius});
}

CadEntity& DxfDrawing::addLine(const CadPoint& start, const CadPoint& end) {
  check(start);
  check(end);
  return add<Added<CadEntity>>(AddedLine{start, end});
}

CadEntity& DxfDrawing::addText(const std::string& text, const CadPoint& at, double height) {
  check(at);
  check(height);
  if (height <= 0) throw CadFailure("A text has a height above 0.");
  return add<Added<CadEntity>>(AddedText{text, at, height, 0});
}

CadSpline& DxfDrawing::addSpline(std::span<const double> fitPoints, const CadPoint& startTangent,
                                 const CadPoint& endTangent) {
  if (startTangent != CadPoint{} || endTangent != CadPoint{}) throw CadFailure("A curve has natural ends here.");
  if (fitPoints.size() % 3 != 0) throw CadFailure("A point has three coordinates.");
  std::vector<CadPoint> fit;
  for (std::size_t i = 0; i < fitPoints.size(); i += 3) {
    fit.push_back({fitPoints[i], fitPoints[i + 1], fitPoints[i + 2]});
    check(fit.back());
  }
  Spline curve{fit};
  return add<AddedCurve>(AddedSpline{std::move(curve), std::move(fit), 0});
}

void DxfDrawing::regen() {
  demandOpen();
  screen_.redraw(*this);
}

std::vector<ChangedLayer> DxfDrawing::changedLayers() const {
  std::vector<ChangedLayer> changed;
  for (const auto& layer : layers_)
    if (layer->isChanged()) changed.push_back(layer->layer());
  return changed;
}

void DxfDrawing::save() {
  if (!isCurrent())
    throw CadFailure(file_.string() +
                     ": another program has changed or removed it since it was opened here. Save under another name.");
  write(file_, dwg_);
}

void DxfDrawing::saveAs(const fs::path& file) {
  if (isSameFile(file, file_)) return save();
  const bool asDwg = isDwgName(file);
  write(file, asDwg);
  file_ = file;
  dwg_ = asDwg;
}

void DxfDrawing::write(const fs::path& file, bool asDwg) {
  const DxfPieces pieces{content_, changedLayers(), added_};
  onFiles([&] {
    if (!asDwg) return pieces.write(file);
    saveAsDwg(file, converter_, [&](const fs::path& plain) { pieces.write(plain); });
  });
  stamp_ = stampOf(file);
  savedRevision_ = revision_;
}

std::optional<DxfDrawing::Stamp> DxfDrawing::stampOf(const fs::path& file) {
  std::error_code error;
  const auto time = fs::last_write_time(file, error);
  if (error) return {};
  const auto size = fs::file_size(file, error);
  if (error) return {};
  return Stamp{time, size};
}

std::shared_ptr<DxfDrawing> DxfCad::openHere(const fs::path& file) {
  std::erase_if(opened_, [](const auto& known) { return known.expired() || !known.lock()->isOpen(); });
  const auto known = std::find_if(
      opened_.begin(), opened_.end(), [&](const auto& each) { return isSameFile(each.lock()->file(), file); });
  return known == opened_.end() ? nullptr : known->lock();
}

std::shared_ptr<CadDrawing> DxfCad::getObject(const fs::path& file) {
  failure_.clear();
  try {
    std::shared_ptr<DxfDrawing> drawing = openHere(file);
    if (drawing && !drawing->isCurrent()) {
      if (drawing->modified())
        throw CadFailure(file.string() +
                         ": it is open here with changes that are not saved, and another program has changed it.");
      screen_.drop(*drawing);
      drawing->close();
      drawing.reset();
    }
    if (!drawing) drawing = std::make_shared<DxfDrawing>(file, screen_, DwgConverter{converter_()});
    std::erase_if(opened_, [&](const auto& known) { return known.lock() == drawing; });
    opened_.push_back(drawing);
    return drawing;
  } catch (const CadFailure& failure) {
    failure_ = failure.what();
    throw;
  }
}

std::shared_ptr<CadDrawing> DxfCad::createObject(const std::string& text) {
  throw CadFailure(failure_.empty() ? text + " is no kind of drawing." : failure_);
}

void DxfCad::copyDrawing(const fs::path& from, const fs::path& to) {
  if (const auto drawing = openHere(to); drawing && drawing->modified())
    throw CadFailure(to.string() + " is open here with changes that are not saved. Choose another name.");
  onFiles([&] {
    if (!isDwgName(to) || isDwg(from)) return copyInOneStep(from, to);
    saveAsDwg(to, DwgConverter{converter_()}, [&](const fs::path& plain) { fs::copy_file(from, plain); });
  });
}

std::shared_ptr<DxfDrawing> DxfCad::current() const {
  for (auto known = opened_.rbegin(); known != opened_.rend(); ++known)
    if (auto drawing = known->lock(); drawing && drawing->isOpen()) return drawing;
  return nullptr;
}

}  // namespace noldarz
