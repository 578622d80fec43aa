#include "cli/record_json.h"

#include "platform/visible_text.h"

namespace noldarz {

namespace {

std::string line(const std::string& json) { return escapedText(json, Escapes::json) + '\n'; }

Json dialogJson(const DialogShown& shown) {
  if (shown.kind == "printer") return {{"kind", shown.kind}, {"reply", shown.reply}};
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

}  // namespace noldarz
