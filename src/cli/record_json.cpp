#include "cli/record_json.h"

#include <cmath>

#include "platform/visible_text.h"

namespace noldarz {

namespace {

std::string line(const std::string& json) { return escapedText(json, Escapes::json) + '\n'; }

Json dialogJson(const DialogShown& shown) {
  if (shown.kind == "printer" || shown.kind == "point") return {{"kind", shown.kind}, {"reply", shown.reply}};
  return {{"kind", shown.kind},
          {"title", shown.dialog.title},
          {"filter", shown.dialog.filter},
          {"name", shown.dialog.name},
          {"extension", shown.dialog.extension},
          {"reply", shown.reply}};
}

struct ToJson {
  std::string operator()(const BoxShown& shown) const {
    Json object{{"box", boxJson(shown)}};
    if (shown.times > 0) object["times"] = shown.times;
    return dumped(object);
  }
  std::string operator()(const DialogShown& shown) const { return dumped({{"dialog", dialogJson(shown)}}); }
  std::string operator()(const Happened& happened) const {
    return dumped({{std::string{happened.what}, happened.text}});
  }
  std::string operator()(const Printed& printed) const { return printed.json; }
};

}  // namespace

std::string dumped(const Json& object) { return object.dump(-1, ' ', false, Json::error_handler_t::replace); }

Json boxJson(const BoxShown& shown) {
  return {{"title", shown.box.title},
          {"text", shown.box.text},
          {"icon", iconName(shown.box.icon)},
          {"buttons", shown.box.buttons == Buttons::ok ? "ok" : "yesno"},
          {"default", replyName(shown.box.defaultReply)},
          {"reply", shown.reply}};
}

std::string jsonLine(const Json& object) { return line(dumped(object)); }

std::string jsonLine(const RecordEntry& entry) { return line(std::visit(ToJson{}, entry)); }

Json numberJson(double value) {
  constexpr double exact = 1e15;
  const bool whole = std::abs(value) < exact && std::trunc(value) == value;
  return whole ? Json(static_cast<std::int64_t>(value)) : Json(value);
}

namespace {

Json pointsJson(const std::vector<CadPoint>& points) {
  Json rows = Json::array();
  for (const CadPoint& p : points) rows.push_back({numberJson(p.x), numberJson(p.y), numberJson(p.z)});
  return rows;
}

/// Of an entity its kind, then layer and colour, then numbers and text.
struct EntityToJson {
  const AddedEntity& entity;

  Json row(const char* kind, std::initializer_list<double> numbers) const {
    Json row = Json::array({kind, entity.layer, entity.colour});
    for (const double number : numbers) row.push_back(numberJson(number));
    return row;
  }
  Json operator()(const AddedLine& line) const {
    return row("Line", {line.start.x, line.start.y, line.start.z, line.end.x, line.end.y, line.end.z});
  }
  Json operator()(const AddedCircle& circle) const {
    return row("Circle", {circle.centre.x, circle.centre.y, circle.centre.z, circle.radius});
  }
  Json operator()(const AddedText& text) const {
    Json shown = row("Text", {text.at.x, text.at.y, text.at.z, text.height});
    shown.push_back(text.text);
    return shown;
  }
  Json operator()(const AddedSpline& spline) const {
    Json shown = row("Spline", {});
    shown.push_back({{"fit", pointsJson(spline.fit)},
                     {"turned", numberJson(spline.turned)},
                     {"control", pointsJson(spline.curve.control())},
                     {"area", numberJson(spline.curve.area())}});
    return shown;
  }
};

}  // namespace

Json entitiesJson(const std::deque<AddedEntity>& entities) {
  Json rows = Json::array();
  for (const AddedEntity& entity : entities) rows.push_back(std::visit(EntityToJson{entity}, entity.shape));
  return rows;
}

Json primitivesJson(const Drawing& drawing) {
  using Kind = Primitive::Kind;
  Json primitives = Json::array();
  for (const Primitive& p : drawing.primitives) {
    const auto add = [&](const char* name, std::initializer_list<double> numbers) -> Json& {
      Json& row = primitives.emplace_back(Json::array({name}));
      for (const double number : numbers) row.push_back(numberJson(number));
      return row;
    };
    switch (p.kind) {
      case Kind::Cls: add("Cls", {}); break;
      case Kind::PSet: add("PSet", {p.x1, p.y1}).push_back(colourText(p.colour)); break;
      case Kind::Line: add("Line", {p.x1, p.y1, p.x2, p.y2}).push_back(colourText(p.colour)); break;
      case Kind::Circle: add("Circle", {p.x1, p.y1, p.x2}).push_back(colourText(p.colour)); break;
      case Kind::Print: add("Print", {}).push_back(drawing.textOf(p)); break;
      case Kind::DrawWidth: add("DrawWidth", {p.x1}); break;
      case Kind::FontBold: add("FontBold", {}).push_back(p.x1 != 0); break;
      case Kind::FontTransparent: add("FontTransparent", {}).push_back(p.x1 != 0); break;
    }
  }
  return primitives;
}

}  // namespace noldarz
