#include "scenario/level_captions.h"

#include "scenario/row_inputs.h"
#include "study/row_edit.h"

namespace noldarz {

LevelCaptions::LevelCaptions(const Sees& sees) : sees_(sees) {
  for (int i = 0; i < levelCount; ++i) {
    sees_.view.on(sees_.level.conclbl[i], Event::gotFocus, [this, i] { conclbl_GotFocus(i); });
    sees_.view.on(sees_.level.conclbl[i], Event::click, [this, i] { conclbl_Click(i); });
  }
  sees_.view.on(sees_.scenario.conctxt1, Event::lostFocus, [this] { conctxt1_LostFocus(); });
  sees_.view.on(sees_.scenario.conctxt1, Event::cancel, [this] { giveUp(); });
}

void LevelCaptions::conclbl_GotFocus(int level) {
  Field& editor = sees_.scenario.conctxt1;
  editor.moveOver(sees_.level.conclbl[level]);
  editor.setText("Conc. " + std::to_string(level));
  concEditIdx_ = level;
}

void LevelCaptions::conclbl_Click(int level) {
  const bool edited = sees_.level.conclbl[level].value() == 1;
  sees_.scenario.conctxt1.setVisible(edited);
  if (edited) sees_.status.skipping().step([&] { sees_.desktop.setFocus(sees_.scenario.conctxt1); });
  concEditIdx_ = level;
  sees_.scenario.conctxt1.setText(sees_.level.conclbl[level].caption());
}

void LevelCaptions::giveUp() {
  Field& label = sees_.level.conclbl[concEditIdx_];
  sees_.scenario.conctxt1.setVisible(false);
  label.setValue(0);
  sees_.status.skipping().step([&] { sees_.desktop.setFocus(label); });
}

void LevelCaptions::conctxt1_LostFocus() {
  Field& editor = sees_.scenario.conctxt1;
  if (!editor.visible()) return;  // given up
  Field& label = sees_.level.conclbl[concEditIdx_];
  if (editor.text().empty()) {
    sees_.desktop.messageBox(critical("Variable required"));
    editor.setText(initialLevelCaption(concEditIdx_));
    label.setCaption(initialLevelCaption(concEditIdx_));
    return sees_.status.skipping().step([&] { sees_.desktop.setFocus(editor); });
  }
  label.setCaption(editor.text());
  editor.setVisible(false);
  storeCaptions();
  label.setValue(0);
}

void LevelCaptions::storeCaptions() {
  DataLink& row = sees_.links.dt2a;
  if (!row.database()) return;  // no study is open
  const Trap skipping = sees_.status.skipping();
  RowEdit edit{row, skipping};
  for (int i = 0; i < levelCount; ++i) edit.set(levelColumn("constnTxt", i + 1), sees_.level.conclbl[i].caption());
  if (edit.store()) sees_.status.say("Stored: captions of the levels.");
  skipping.step([&] { row.refresh(); });
}

}  // namespace noldarz
