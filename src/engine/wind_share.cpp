#include "engine/wind_share.h"

#include "platform/failure.h"
#include "platform/text.h"

namespace noldarz {

namespace {

constexpr double wholeWind = 100;        // %
constexpr double hardlyAnyWind = 0.001;  // %, stands for none where it divides

}  // namespace

double windSum(const ScenarioInputs& in) {
  double sum = 0;
  for (int i = 0; i < in.Givnwnd.size(); ++i) sum += in.Givnwnd[i].number();
  return strictNumber(plainText(sum));
}

bool WindShare::shareOut() {
  silently([&] { sees_.shares.windTotal = windSum(sees_.in); });
  const std::string tooMuch = "1. Total Wind percentage can not be > 100%";
  const bool whole = sees_.shares.windTotal <= wholeWind;
  for (int i = 0; i < sees_.in.Givnwnd.size(); ++i) sees_.in.Givnwnd[i].setFault(whole ? "" : tooMuch);
  if (!whole) {
    showCalm(wholeWind - sees_.shares.windTotal);
    sees_.desktop.messageBox(critical(tooMuch));
    return false;
  }
  if (sees_.shares.windTotal == 0) {
    sees_.desktop.messageBox(information("1. No wind in 8 orientation, 100% calm"));
    sees_.shares.windTotal = hardlyAnyWind;
  }
  sees_.shares.calmPct = wholeWind - sees_.shares.windTotal;
  showCalm(sees_.shares.calmPct);
  return true;
}

}  // namespace noldarz
