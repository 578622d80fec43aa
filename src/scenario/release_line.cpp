#include "scenario/release_line.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "platform/text.h"

namespace noldarz {

ReleaseLine::ReleaseLine(const Sees& sees) : sees_(sees), line_(sees.scenario.releaselbl) {
  sees_.view.observe([this](const Field& changed, Property property) {
    const std::array shown{&sees_.in.scnrotypetxt,
                           &sees_.in.QntyRelstxt,
                           &sees_.in.PoolRadiusRrslstxt,
                           &sees_.in.molwttxt,
                           &sees_.in.tempStore};
    if (property == Property::text && std::find(shown.begin(), shown.end(), &changed) != shown.end()) show();
  });
  show();
}

void ReleaseLine::show() const {
  const std::string& type = sees_.in.scnrotypetxt.text();
  if (type.empty()) return line_.setCaption("No release: the study has no working scenario");
  const auto known = [](const Field& field, const char* pattern = nullptr) {
    if (field.text().empty()) return std::string{"?"};
    return pattern ? Format(field.text(), pattern) : field.text();
  };
  const std::string pool = type == "POOL" ? fmt::format(", pool radius {} m", known(sees_.in.PoolRadiusRrslstxt)) : "";
  line_.setCaption(fmt::format("{}, {} {}{}, {} g/mol, {} °C",
                               type,
                               known(sees_.in.QntyRelstxt),
                               type == "PUFF" ? "kg" : "kg/s",
                               pool,
                               known(sees_.in.molwttxt, "0.0"),
                               known(sees_.in.tempStore)));
}

}  // namespace noldarz
