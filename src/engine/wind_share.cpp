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
  silently([&] { state_.windTotal = windSum(in_); });
  const std::string tooMuch = "1. Total Wind percentage can not be > 100%";
  const bool whole = state_.windTotal <= wholeWind;
  for (int i = 0; i < in_.Givnwnd.size(); ++i) in_.Givnwnd[i].setFault(whole ? "" : tooMuch);
  if (!whole) {
    showCalm(wholeWind - state_.windTotal);
    desktop_.messageBox(critical(tooMuch));
    return false;
  }
  if (state_.windTotal == 0) {
    desktop_.messageBox(information("1. No wind in 8 orientation, 100% calm"));
    state_.windTotal = hardlyAnyWind;
  }
  state_.calmPct = wholeWind - state_.windTotal;
  showCalm(state_.calmPct);
  return true;
}

}  // namespace noldarz
