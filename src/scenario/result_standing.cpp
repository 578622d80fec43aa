#include "scenario/result_standing.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

namespace noldarz {

namespace {

/// "TEEL1" of the caption "TEEL1:".
std::string nameOf(const Field& caption) {
  std::string name = caption.caption();
  if (name.ends_with(':')) name.pop_back();
  return name;
}

}  // namespace

ResultStanding::ResultStanding(const Sees& sees)
    : sees_(sees),
      ofMaximum_{&sees.in.scnrotypetxt,
                 &sees.in.QntyRelstxt,
                 &sees.in.molwttxt,
                 &sees.in.vapordnstytxt,
                 &sees.in.tempStore,
                 &sees.in.htreltxt,
                 &sees.in.htsmul,
                 &sees.in.roghwndoptcbo,
                 &sees.in.stblclscbo,
                 &sees.in.wndveltxt},
      ofLevels_{&sees.in.enddisttxt, &sees.in.avalftl, &sees.in.nvalftl, &sees.in.avalinj, &sees.in.nvalinj} {
  for (int i = 0; i < levelCount; ++i) ofLevels_.insert(&sees_.level.constn[i]);
  sees_.view.observe([this](Field& changed, Property property) { follow(changed, property); });
  show();
}

void ResultStanding::follow(const Field& changed, Property property) {
  if (property != Property::text || pressing_ || !pressed_) return;
  if (!ofMaximum_.contains(&changed) && !ofLevels_.contains(&changed)) return;
  show();
  sees_.status.advise(isStale(stage()) ? note() : nextStep());
}

std::vector<std::string> ResultStanding::inputsOf(const std::set<const Field*>& fields) const {
  std::vector<std::string> texts;
  std::transform(fields.begin(), fields.end(), std::back_inserter(texts), [](const Field* f) { return f->text(); });
  return texts;
}

void ResultStanding::pressEnds() {
  pressing_ = false;
  pressed_ = true;
  maximumInputs_ = inputsOf(ofMaximum_);
  levelInputs_ = inputsOf(ofLevels_);
  show();
  const std::string fault = note();
  if (!fault.empty()) sees_.status.say(fault);
  sees_.status.advise(nextStep());
}

void ResultStanding::cleared() {
  pressed_ = false;
  show();
}

void ResultStanding::levelsLoaded() {
  sees_.status.say("Levels set to the limits of the chemical.");
  sees_.status.advise(stage() == Stage::maximum ? "Check them, then press Compute."
                                                : "Press Compute for the maximum first.");
}

ResultStanding::Stage ResultStanding::stage() const {
  if (!pressed_) return Stage::nothing;
  if (sees_.sweep.mgcDone == 0 || sees_.sweep.maxConcDone == 0) return Stage::noMaximum;
  for (int i = 0; i < levelCount; ++i)
    if (sees_.level.bgnpt[i].text() == mark::inputError) return Stage::refused;
  return sees_.passes.firstPass == 0 ? Stage::levels : Stage::maximum;
}

bool ResultStanding::isStale(Stage stage) const {
  if (stage == Stage::nothing) return false;
  return maximumInputs_ != inputsOf(ofMaximum_) || (stage == Stage::levels && levelInputs_ != inputsOf(ofLevels_));
}

std::string ResultStanding::faultOfLevel(int level) const {
  const std::string& end = sees_.level.endpt[level].text();
  if (end.starts_with('>'))
    return fmt::format("{} reaches past {} m", nameOf(sees_.level.conclbl[level]), end.substr(1));
  if (!sees_.level.endpt[level].isNumeric() || !sees_.level.bgnpt[level].isNumeric() || end == mark::nothing)
    return fmt::format("{} of {} ppm is not met", nameOf(sees_.level.conclbl[level]), sees_.level.constn[level].text());
  return "";
}

bool ResultStanding::hasLimits() const {
  // Where the outermost level has no end the search goes to that of an earlier press.
  const Field& end = sees_.level.endpt[levelCount - 1];
  return sees_.limitSearch.foundLimits() && end.isNumeric() && end.number() > 0;
}

std::string ResultStanding::faultOfLimits() const {
  if (hasLimits()) return "";
  for (int i = 0; i < levelCount; ++i)
    if (std::string fault = faultOfLevel(i); !fault.empty()) return fault;
  return "an input or a width that the limits need is no number";
}

std::string ResultStanding::note() const {
  const Stage now = stage();
  if (isStale(now)) return "Out of date: press Redo and compute again.";
  switch (now) {
    case Stage::nothing: return "Not computed yet: press Compute.";
    case Stage::noMaximum: return "Not computed: no maximum concentration was found.";
    case Stage::maximum: return "Not computed yet: set the levels and press again.";
    case Stage::refused: return "Not computed: a level was refused.";
    case Stage::levels: break;
  }
  const std::string fault = faultOfLimits();
  return fault.empty() ? "" : "Not computed: " + fault + ".";
}

std::string ResultStanding::nextStep() const {
  switch (stage()) {
    case Stage::nothing: return "";
    case Stage::noMaximum: return "Press Redo, check the inputs, and compute again.";
    case Stage::maximum: return "Get Concentration brings those of the chemical.";
    case Stage::refused: return "Correct it and press Compute again.";
    case Stage::levels: break;
  }
  return note().empty() ? "Choose an output, or press Redo for other inputs."
                        : "Press Redo, and set that level or the maximum distance higher.";
}

void ResultStanding::show() {
  const Stage now = stage();
  const bool stale = isStale(now);
  const bool maximum = !stale && now != Stage::nothing && now != Stage::noMaximum;
  const bool levels = !stale && now == Stage::levels;
  const auto grey = [](Field& field, bool stands) {
    field.setForeColour(stands ? defaultForeColour(field.kind()) : Colour{SystemColour::disabledText});
  };
  for (Field* field : {&sees_.result.mgctxt,
                       &sees_.result.distconctxt,
                       &sees_.result.constn1,
                       &sees_.result.maxdistconctxt,
                       &sees_.result.nodfdwndlbl})
    grey(*field, maximum);
  for (const auto* results : {&sees_.level.bgnpt,
                              &sees_.level.endpt,
                              &sees_.level.isoplngt,
                              &sees_.level.isopwdth,
                              &sees_.level.isopang,
                              &sees_.level.distmaxisop,
                              &sees_.level.isoparea})
    for (int i = 0; i < levelCount; ++i) grey((*results)[i], levels);
  for (Field* field : {&sees_.result.expmass, &sees_.result.tmestbltxt, &sees_.result.tmeunitlbl}) grey(*field, levels);
  for (Field* field : {&sees_.toxic.FatatyDistDsplyLbl, &sees_.toxic.InjuryDistDsplyLbl})
    grey(*field, levels && hasLimits());
  sees_.scenario.resultnotelbl.setCaption(note());
}

}  // namespace noldarz
