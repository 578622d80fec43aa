#include "scenario/release_line.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "platform/text.h"

namespace noldarz {

ReleaseLine::ReleaseLine(View& view, const ScenarioInputs& in, const ScenarioFields& fields)
    : in_(in), line_(fields.releaselbl) {
  view.observe([this](const Field& changed, Property property) {
    const std::array shown{&in_.scnrotypetxt, &in_.QntyRelstxt, &in_.PoolRadiusRrslstxt, &in_.molwttxt, &in_.tempStore};
    if (property == Property::text && std::find(shown.begin(), shown.end(), &changed) != shown.end()) show();
  });
  show();
}

void ReleaseLine::show() const {
  const std::string& type = in_.scnrotypetxt.text();
  if (type.empty()) return line_.setCaption("No release: the study has no working scenario");
  const auto known = [](const Field& field, const char* pattern = nullptr) {
    if (field.text().empty()) return std::string{"?"};
    return pattern ? Format(field.text(), pattern) : field.text();
  };
  const std::string pool = type == "POOL" ? fmt::format(", pool radius {} m", known(in_.PoolRadiusRrslstxt)) : "";
  line_.setCaption(fmt::format("{}, {} {}{}, {} g/mol, {} °C",
                               type,
                               known(in_.QntyRelstxt),
                               type == "PUFF" ? "kg" : "kg/s",
                               pool,
                               known(in_.molwttxt, "0.0"),
                               known(in_.tempStore)));
}

}  // namespace noldarz
