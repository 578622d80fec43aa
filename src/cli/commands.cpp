#include "cli/commands.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <string_view>

#include "cli/record_json.h"
#include "cli/script.h"
#include "cli/script_error.h"
#include "platform/property.h"
#include "platform/store/recordset.h"

namespace noldarz {

namespace {

using Words = std::vector<std::string>;

std::string inQuotes(std::string_view word) { return "\"" + std::string{word} + "\""; }

View& viewNamed(ScriptSession& session, const std::string& name) {
  if (View* view = session.system().views().find(name)) return *view;
  throw ScriptError("no view " + inQuotes(name));
}

/// VIEW.NAME, or NAME of the main view.
Field& fieldNamed(ScriptSession& session, const std::string& word) {
  const auto point = word.find('.');
  View& view =
      point == std::string::npos ? session.system().mainView().view : viewNamed(session, word.substr(0, point));
  const std::string name = point == std::string::npos ? word : word.substr(point + 1);
  if (Field* field = view.find(name)) return *field;
  throw ScriptError("no field " + inQuotes(name) + " in view " + view.name());
}

Property propertyNamed(const std::string& word) {
  if (const auto property = findProperty(word)) return *property;
  throw ScriptError("no property " + inQuotes(word));
}

int integer(const std::string& word) {
  const ParsedNumber parsed = parseNumber(word);
  const double value = parsed.value;
  if (parsed.outcome != ParsedNumber::Outcome::number || value < 0 || value > std::numeric_limits<int>::max() ||
      value != std::trunc(value))
    throw ScriptError(inQuotes(word) + " is no whole number from 0 up");
  return static_cast<int>(value);
}

/// A field on which a user can act now, as a screen would let him.
Field& usableField(ScriptSession& session, const std::string& word) {
  Field& field = fieldNamed(session, word);
  if (!field.view().visible()) throw ScriptError("the view " + field.view().name() + " is not open");
  for (const Field* part = &field; part; part = part->parent()) {
    const std::string where = "the field " + (part == &field ? "" : field.fullName() + " lies in ") + part->fullName();
    const std::string is = part == &field ? " is " : ", which is ";
    if (!part->visible()) throw ScriptError(where + is + "hidden");
    if (!part->enabled()) throw ScriptError(where + is + "disabled");
  }
  if (!field.usable()) throw ScriptError("a modal view lies above " + field.fullName());
  field.view().activate();
  return field;
}

Field& usableField(ScriptSession& session, const std::string& word, std::initializer_list<FieldKind> kinds,
                   std::string_view action) {
  Field& field = usableField(session, word);
  if (std::find(kinds.begin(), kinds.end(), field.kind()) == kinds.end())
    throw ScriptError("the field " + field.fullName() + " can't be " + std::string{action});
  return field;
}

/// The focus comes to the field, unless the rule of the field that has it keeps it.
void takeFocus(ScriptSession& session, Field& field) {
  if (!field.takesFocus()) throw ScriptError("the field " + field.fullName() + " takes no focus");
  if (session.desktop().moveFocus(&field)) return;
  const Field* holder = session.desktop().focused();
  throw ScriptError("the focus stays " + (holder ? "in " + holder->fullName() : std::string{"nowhere"}));
}

Json propertyJson(const Field& field, Property property) {
  return std::visit([](const auto& value) { return Json(value); }, getProperty(field, property));
}

Json shown(const Field& field, Property property) {
  const Json value = propertyJson(field, property);
  return value.is_number() ? numberJson(value.get<double>()) : value;
}

void set(ScriptSession& session, const Words& words) {
  Field& field = fieldNamed(session, words[1]);
  const Property property = words.size() == 3 ? mainProperty(field) : propertyNamed(words[2]);
  if (!setProperty(field, property, words.back()))
    throw ScriptError("the property " + std::string{propertyName(property)} + " of " + field.fullName() +
                      " does not take " + inQuotes(words.back()));
}

void enter(ScriptSession& session, const Words& words) {
  Field& field = usableField(session, words[1], {FieldKind::text, FieldKind::combo}, "typed into");
  if (field.locked()) throw ScriptError("the field " + field.fullName() + " is locked");
  takeFocus(session, field);
  if (field.text() != words[2]) {
    field.setText(words[2]);
    field.fire(Event::change);
  }
  session.desktop().moveFocus(nullptr);
}

void focus(ScriptSession& session, const Words& words) { takeFocus(session, usableField(session, words[1])); }

/// The focus comes to the field, and what leaving the other one has asked for is done before the user acts.
void arrive(ScriptSession& session, Field& field) {
  takeFocus(session, field);
  session.desktop().settle();
}

void leave(ScriptSession& session, const Words& words) {
  takeFocus(session, usableField(session, words[1]));
  session.desktop().moveFocus(nullptr);
}

void choose(ScriptSession& session, const Words& words) {
  Field& field = usableField(session, words[1], {FieldKind::list, FieldKind::combo}, "chosen from");
  arrive(session, field);
  const auto& entries = field.entries();
  auto entry = std::find(entries.begin(), entries.end(), words[2]);
  if (entry == entries.end() && words[2].starts_with('#')) {
    const int position = integer(words[2].substr(1));
    if (position < static_cast<int>(entries.size())) entry = entries.begin() + position;
  }
  if (entry == entries.end()) throw ScriptError("no entry " + inQuotes(words[2]) + " in " + field.fullName());
  if (field.kind() == FieldKind::list)
    field.select(static_cast<int>(entry - entries.begin()));
  else
    field.setText(*entry);
  field.fire(Event::click);
}

void setChecked(ScriptSession& session, Field& field, int value) {
  if (field.value() == value) return;
  arrive(session, field);
  field.setValue(value);
  field.fire(Event::click);
}

constexpr std::initializer_list<FieldKind> checkable{FieldKind::check, FieldKind::option};

void check(ScriptSession& session, const Words& words) {
  setChecked(session, usableField(session, words[1], checkable, "checked"), 1);
}

void uncheck(ScriptSession& session, const Words& words) {
  setChecked(session, usableField(session, words[1], checkable, "unchecked"), 0);
}

void slide(ScriptSession& session, const Words& words) {
  Field& field = usableField(session, words[1], {FieldKind::slider}, "slid");
  const int position = integer(words[2]);
  if (!field.isInRange(position))
    throw ScriptError(words[2] + " lies beyond the ends of " + field.fullName() + ", " +
                      std::to_string(field.range().first) + " to " + std::to_string(field.range().second));
  arrive(session, field);
  if (field.value() == position) return;
  field.setValue(position);
  field.fire(Event::change);
}

/// A user's click, which brings the focus to a field that takes it and turns a check field over.
void clickOn(ScriptSession& session, Field& field) {
  if (field.kind() == FieldKind::check) return setChecked(session, field, field.value() == 1 ? 0 : 1);
  if (field.kind() == FieldKind::option) return setChecked(session, field, 1);
  if (field.takesFocus()) takeFocus(session, field);
  session.desktop().settle();
  if (field.usable()) field.fire(Event::click);  // a rule may have closed the field meanwhile
}

constexpr std::initializer_list<FieldKind> clickable{FieldKind::button,
                                                     FieldKind::menu,
                                                     FieldKind::check,
                                                     FieldKind::option,
                                                     FieldKind::list,
                                                     FieldKind::label,
                                                     FieldKind::picture};

void click(ScriptSession& session, const Words& words) {
  clickOn(session, usableField(session, words[1], clickable, "clicked"));
}

/// A double click is a click first.
void dblclick(ScriptSession& session, const Words& words) {
  Field& field = usableField(session, words[1], clickable, "clicked");
  clickOn(session, field);
  if (field.usable()) field.fire(Event::dblClick);
}

/// A coordinate of the pointer.
double coordinate(const std::string& word) {
  constexpr double farthest = 1e6;  // beyond any screen
  const ParsedNumber parsed = parseNumber(word);
  if (!parsed.isNumber() || std::abs(parsed.value) > farthest) throw ScriptError(inQuotes(word) + " is no place");
  return parsed.value;
}

/// The value that a word stands for in a table.
template <class Value, std::size_t N>
Value named(const std::array<std::pair<std::string_view, Value>, N>& table, const std::string& word, const char* what) {
  const auto found = std::find_if(table.begin(), table.end(), [&](const auto& row) { return row.first == word; });
  if (found == table.end()) throw ScriptError(std::string{"no "} + what + " " + inQuotes(word));
  return found->second;
}

void mouse(ScriptSession& session, const Words& words) {
  using enum PointerEvent::Act;
  using Button = PointerEvent::Button;
  static constexpr std::array<std::pair<std::string_view, PointerEvent::Act>, 3> acts{
      {{"down", down}, {"move", move}, {"up", up}}};
  static constexpr std::array<std::pair<std::string_view, Button>, 3> buttons{
      {{"left", Button::left}, {"right", Button::right}, {"none", Button::none}}};
  PointerEvent event{.act = named(acts, words[1], "act of the mouse")};
  Field& field = usableField(session, words[2], {FieldKind::picture, FieldKind::canvas}, "pointed at");
  event.x = coordinate(words[3]);
  event.y = coordinate(words[4]);
  event.button = event.act == move ? Button::none : Button::left;
  if (words.size() == 6) event.button = named(buttons, words[5], "button");
  if (event.act == down && field.takesFocus()) arrive(session, field);
  field.view().pointer(field, event);
}

void key(ScriptSession& session, const Words& words) {
  Field& field = usableField(session, words[1]);
  if (field.takesFocus()) arrive(session, field);
  field.view().key(field, {words[2]});
}

/// The CAD drawing that the zone view drives, in the place of a field of it.
constexpr std::string_view cadField{"zardzone.cad"};

DxfDrawing& cadDrawing(ScriptSession& session) {
  const auto open = session.cad().current();
  if (!open) throw ScriptError("no CAD drawing is open");
  return *open;
}

void save(ScriptSession& session, const Words& words) {
  if (words[1] != cadField) throw ScriptError("the field " + words[1] + " is no CAD drawing");
  DxfDrawing& drawing = cadDrawing(session);
  try {
    if (words.size() == 3)
      drawing.saveAs(session.startFolder() / words[2]);
    else
      drawing.save();
  } catch (const CadFailure& failure) {
    throw ScriptError(failure.what());
  }
}

void drawing(ScriptSession& session, const Words& words) {
  if (words[1] == cadField) {
    const Json entities = entitiesJson(cadDrawing(session).added());
    return session.print(dumped({{"drawing", cadField}, {"entities", entities}}));
  }
  const Field& field = fieldNamed(session, words[1]);
  if (!field.canvas()) throw ScriptError("the field " + field.fullName() + " is no canvas");
  field.canvas()->bringUpToDate();
  session.print(dumped({{"drawing", field.fullName()}, {"primitives", primitivesJson(field.canvas()->drawing())}}));
}

void answer(ScriptSession& session, const Words& words) { session.desktop().queueReply(words[1]); }

void clipboard(ScriptSession& session, const Words& words) { session.desktop().takeClipboard(words[1]); }

void wait(ScriptSession& session, const Words& words) {
  std::optional<double> milliseconds;
  if (words.size() == 2) milliseconds = integer(words[1]);
  session.desktop().runTimers(milliseconds);
}

void show(ScriptSession& session, const Words& words) {
  const Field& field = fieldNamed(session, words[1]);
  std::vector<Property> properties;
  for (std::size_t i = 2; i < words.size(); ++i) properties.push_back(propertyNamed(words[i]));
  if (properties.empty()) properties.push_back(mainProperty(field));
  Json line{{"field", field.fullName()}};
  for (const Property property : properties) line[std::string{propertyName(property)}] = shown(field, property);
  session.print(dumped(line));
}

void dump(ScriptSession& session, const Words& words) {
  View& view = words.size() == 2 ? viewNamed(session, words[1]) : session.system().mainView().view;
  Json fields = Json::object();
  for (const Field& field : view.fields()) {
    Json& properties = fields[field.name()] = Json::object();
    for (const Property property : changedProperties(field))
      properties[std::string{propertyName(property)}] = shown(field, property);
  }
  session.print(dumped({{"view", view.name()}, {"fields", fields}}));
}

void views(ScriptSession& session, const Words&) {
  Json open = Json::array();
  for (const View* view : session.system().views().open())
    open.push_back({{"name", view->name()}, {"visible", view->visible()}, {"modal", view->modal()}});
  const View* front = session.system().views().front();
  session.print(dumped({{"views", open}, {"front", front ? Json(front->name()) : Json(nullptr)}}));
}

void state(ScriptSession& session, const Words& words) {
  for (std::size_t i = 1; i < words.size(); ++i) {
    Json value;
    visitAll(session.system().state(), [&](std::string_view name, auto variable) {
      if (name != words[i]) return;
      if constexpr (std::is_same_v<decltype(variable), TableCell>)
        value = cellText(variable);
      else
        value = variable;
    });
    if (value.is_null()) throw ScriptError("no state variable " + inQuotes(words[i]));
    session.print(dumped({{"state", words[i]}, {"value", value}}));
  }
}

void table(ScriptSession& session, const Words&) {
  Json cells = Json::array();
  for (const TableCell& cell : session.system().state().prbtTable) cells.push_back(cellText(cell));
  session.print(dumped({{"table", cells}}));
}

void start(ScriptSession& session, const Words&) { session.start(); }

void close(ScriptSession& session, const Words& words) {
  View& view = words.size() == 2 ? viewNamed(session, words[1]) : session.system().mainView().view;
  session.desktop().settle();
  if (words.size() == 1 && !view.loaded() && !session.ended()) {
    while (!session.ended()) session.system().views().open().back()->close();  // the view of the missing files
    return;
  }
  if (!view.loaded()) throw ScriptError("the view " + view.name() + " is not open");
  view.close();
}

Json cellJson(const Cell& cell) {
  return std::visit(
      []<class T>(const T& value) {
        if constexpr (std::is_same_v<T, std::monostate>)
          return Json(nullptr);
        else
          return Json(value);
      },
      cell);
}

void rows(ScriptSession& session, const Words& words) {
  const auto study = session.system().study();
  if (!study) throw ScriptError("no study is open");
  // A connection of its own, which can't write, and is given up when it computes for long.
  constexpr std::chrono::seconds longest{10};
  const auto reading =
      std::make_shared<Database>(study->file(), study->layout(), Database::Check::none, Connection::Purpose::query);
  reading->connection().limitSteps(longest);
  Recordset found{reading, words[1], Recordset::Access::read};
  Json lines = Json::array();
  for (; !found.eof(); found.moveNext()) {
    Json& line = lines.emplace_back(Json::array());
    for (int i = 0; i < static_cast<int>(found.columns().size()); ++i) line.push_back(cellJson(found.value(i)));
  }
  session.print(dumped({{"rows", lines}, {"columns", found.columns()}}));
}

void setting(ScriptSession& session, const Words& words) {
  const auto value = session.system().settings().get(words[1], words[2], words[3]);
  session.print(dumped({{"setting", {words[1], words[2], words[3]}}, {"value", value ? Json(*value) : Json(nullptr)}}));
}

void echo(ScriptSession& session, const Words& words) { session.print(dumped({{"echo", words[1]}})); }

struct Command {
  std::string_view name;
  std::size_t leastWords;  // after the name
  std::size_t mostWords;
  void (*run)(ScriptSession&, const Words&);
};

constexpr std::size_t any = std::numeric_limits<std::size_t>::max();

constexpr std::array commands{
    Command{"set", 2, 3, set},           Command{"enter", 2, 2, enter},     Command{"focus", 1, 1, focus},
    Command{"leave", 1, 1, leave},       Command{"choose", 2, 2, choose},   Command{"check", 1, 1, check},
    Command{"uncheck", 1, 1, uncheck},   Command{"slide", 2, 2, slide},     Command{"click", 1, 1, click},
    Command{"dblclick", 1, 1, dblclick}, Command{"answer", 1, 1, answer},   Command{"wait", 0, 1, wait},
    Command{"show", 1, any, show},       Command{"dump", 0, 1, dump},       Command{"views", 0, 0, views},
    Command{"state", 1, any, state},     Command{"table", 0, 0, table},     Command{"start", 0, 0, start},
    Command{"rows", 1, 1, rows},         Command{"setting", 3, 3, setting}, Command{"close", 0, 1, close},
    Command{"echo", 1, 1, echo},         Command{"mouse", 4, 5, mouse},     Command{"key", 2, 2, key},
    Command{"drawing", 1, 1, drawing},   Command{"save", 1, 2, save},       Command{"clipboard", 1, 1, clipboard},
};

}  // namespace

void runCommand(ScriptSession& session, const std::vector<std::string>& words) {
  const auto command =
      std::find_if(commands.begin(), commands.end(), [&](const Command& c) { return c.name == words[0]; });
  if (command == commands.end()) throw ScriptError("unknown command " + inQuotes(words[0]));
  const std::size_t count = words.size() - 1;
  if (count < command->leastWords) throw ScriptError("too few words behind " + inQuotes(words[0]));
  if (count > command->mostWords)
    throw ScriptError("too many words behind " + inQuotes(words[0]) + ": " + inQuotes(words.back()));
  command->run(session, words);
}

}  // namespace noldarz
