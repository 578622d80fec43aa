#include "mapping/thumbnail.h"

#include "mapping/zone_commands.h"
#include "platform/text.h"

namespace noldarz {

Thumbnail::Thumbnail(const Sees& sees)
    : sees_(sees),
      picture_({.engine = sees.engine,
                .rawLimits = sees.rawLimits,
                .limits = sees.limits,
                .in = sees.main.in,
                .level = sees.main.level,
                .result = sees.main.result,
                .toxic = sees.main.toxic,
                .project = sees.main.project}),
      zonethumb_(sees.main.in.htreltxt.view().add(FieldKind::picture, "zonethumb")) {
  zonethumb_.setToolTip("The zones of the last Compute; a click leads to the plots");
  zonethumb_.setCanvas(picture_.canvas());
  picture_.canvas().drawOnDemand([this] { draw(); });
  View& view = zonethumb_.view();
  const auto follows = [this] { follow(); };
  for (Field* command : {&sees_.main.command.comput, &sees_.main.command.redosimul})
    view.on(*command, Event::click, follows);
  view.on(sees_.main.scenario.dspScnorlst_1, Event::click, follows);
  view.onFront(follows);
  view.on(zonethumb_, Event::click, [this] {
    Field& list = sees_.main.command.prntprv;
    if (!list.enabled()) return;
    list.setText(outputEntries[static_cast<std::size_t>(Output::zones)]);
    sees_.outputs.open(Output::zones);
  });
  follow();
}

void Thumbnail::follow() {
  zonethumb_.setVisible(sees_.main.command.prntprv.enabled());
  picture_.canvas().outdate();
  zonethumb_.pictureChanged();
}

void Thumbnail::draw() {
  const ParsedNumber wind =
      parseNumber(sees_.settings.get(windSetting::application, windSetting::section, windSetting::key).value_or("0"));
  PlotPicture::Wish wish;
  wish.width = 100;
  wish.height = 80;
  wish.wind = wind.isNumber() && wind.value >= 0 && wind.value <= wholeTurn ? toInteger(wind.value) : 0;
  wish.levels.fill(true);
  picture_.draw(wish);
}

}  // namespace noldarz
