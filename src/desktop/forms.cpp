#include "desktop/forms.h"

#include <QMainWindow>
#include <algorithm>
#include <array>

#include "desktop/plot_window.h"
#include "ui_Drwfrm.h"
#include "ui_absltftlyfrm.h"
#include "ui_aniwait1.h"
#include "ui_dspmnfrm.h"
#include "ui_progrsBar.h"
#include "ui_reqfrm.h"
#include "ui_zardzone.h"

namespace noldarz {

namespace {

template <class Ui>
void setUp(QMainWindow& window) {
  Ui{}.setupUi(&window);
}

constexpr std::array forms{Form{"dspmnfrm", setUp<Ui::dspmnfrm>},
                           Form{"aniwait1", setUp<Ui::aniwait1>, true},
                           Form{"reqfrm", setUp<Ui::reqfrm>},
                           Form{"progrsBar", setUp<Ui::progrsBar>, true},
                           Form{"Drwfrm", setUp<Ui::Drwfrm>, false, followExpansion},
                           Form{"zardzone", setUp<Ui::zardzone>},
                           Form{"absltftlyfrm", setUp<Ui::absltftlyfrm>}};

}  // namespace

const Form* formOf(std::string_view view) {
  const auto* form = std::find_if(forms.begin(), forms.end(), [&](const Form& f) { return f.view == view; });
  return form == forms.end() ? nullptr : form;
}

}  // namespace noldarz
