#include "toxic/fields.h"

#include <array>
#include <string_view>

namespace noldarz {

namespace {

constexpr Colour barColour = Colour::fromScreen(0x8080FF);

constexpr std::array<std::string_view, 6> equationTexts{"Probit Equations :",
                                                        "Fatality Probit (y)",
                                                        "Injury Probit (y)",
                                                        "+1(Ln(Conc",
                                                        " x T)",
                                                        " T= time 30 min of exposure"};

}  // namespace

ToxicFields::ToxicFields(View& view)
    : maxdstprtxt(view.carried("maxdstprtxt")),
      FatatyDistDsplyLbl(view.label("FatatyDistDsplyLbl")),
      InjuryDistDsplyLbl(view.label("InjuryDistDsplyLbl")),
      prbteqnlbl(view.array<6>(FieldKind::label, "prbteqnlbl")) {
  for (int i = 0; i < prbteqnlbl.size(); ++i) prbteqnlbl[i].setCaption(equationTexts.at(static_cast<std::size_t>(i)));
}

ProfileProgress::ProfileProgress(Views& views)
    : view(views, "progrsBar", ""),
      progPic1(view.add(FieldKind::picture, "progPic1")),
      progPic2(view.add(FieldKind::picture, "progPic2")),
      probrLbl(view.label("probrLbl")) {
  view.setPassive();
  progPic1.setWidth(progressWidth);
  progPic2.setBackColour(barColour);
}

}  // namespace noldarz
