#include "study/fields.h"

namespace noldarz {

ProjectFields::ProjectFields(View& view)
    : Orglbltxt(view.label("Orglbltxt")),
      refnolbl(view.label("refnolbl")),
      chmnmelbl(view.label("chmnmelbl")),
      naturchem(view.carried("naturchem")),
      reftmptxt(view.carried("reftmptxt")),
      scnrotxt(view.carried("scnrotxt")),
      scnrotxtlbl(view.text("scnrotxtlbl")) {
  scnrotxtlbl.setToolTip("You must always edit scenario text as appropriate first before proceeding further");
}

}  // namespace noldarz
