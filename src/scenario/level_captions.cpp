#include "scenario/level_captions.h"

#include "scenario/row_inputs.h"

namespace noldarz {

LevelCaptions::LevelCaptions(View& view, const LevelFields& level, const ScenarioFields& fields, MainLinks& links,
                             Desktop& desktop, StatusLine& status)
    : level_(level), fields_(fields), links_(links), desktop_(desktop), status_(status) {
  for (int i = 0; i < levelCount; ++i) {
    view.on(level_.conclbl[i], Event::gotFocus, [this, i] { conclbl_GotFocus(i); });
    view.on(level_.conclbl[i], Event::click, [this, i] { conclbl_Click(i); });
  }
  view.on(fields_.conctxt1, Event::lostFocus, [this] { conctxt1_LostFocus(); });
  view.on(fields_.conctxt1, Event::cancel, [this] { giveUp(); });
}

void LevelCaptions::conclbl_GotFocus(int level) {
  Field& editor = fields_.conctxt1;
  editor.moveOver(level_.conclbl[level]);
  editor.setText("Conc. " + std::to_string(level));
  concEditIdx_ = level;
}

void LevelCaptions::conclbl_Click(int level) {
  const bool edited = level_.conclbl[level].value() == 1;
  fields_.conctxt1.setVisible(edited);
  if (edited) status_.skipping().step([&] { desktop_.setFocus(fields_.conctxt1); });
  concEditIdx_ = level;
  fields_.conctxt1.setText(level_.conclbl[level].caption());
}

void LevelCaptions::giveUp() {
  Field& label = level_.conclbl[concEditIdx_];
  fields_.conctxt1.setVisible(false);
  label.setValue(0);
  status_.skipping().step([&] { desktop_.setFocus(label); });
}

void LevelCaptions::conctxt1_LostFocus() {
  Field& editor = fields_.conctxt1;
  if (!editor.visible()) return;  // given up
  Field& label = level_.conclbl[concEditIdx_];
  if (editor.text().empty()) {
    desktop_.messageBox(critical("Variable required"));
    editor.setText(initialLevelCaption(concEditIdx_));
    label.setCaption(initialLevelCaption(concEditIdx_));
    return status_.skipping().step([&] { desktop_.setFocus(editor); });
  }
  label.setCaption(editor.text());
  editor.setVisible(false);
  storeCaptions();
  label.setValue(0);
}

void LevelCaptions::storeCaptions() {
  DataLink& row = links_.dt2a;
  if (!row.database()) return;  // no study is open
  const Trap skipping = status_.skipping();
  skipping.step([&] { row.edit(); });
  for (int i = 0; i < levelCount; ++i)
    skipping.step([&] { row.set(levelColumn("constnTxt", i + 1), level_.conclbl[i].caption()); });
  skipping.steps([&] { row.update(), status_.say("Stored: captions of the levels."); }, [&] { row.refresh(); });
}

}  // namespace noldarz
