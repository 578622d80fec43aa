#include "desktop/qt_desktop.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QCloseEvent>
#include <QComboBox>
#include <QFileDialog>
#include <QMenuBar>
#include <QMessageBox>
#include <QPalette>
#include <QPrintDialog>
#include <QPrinter>
#include <QScopedValueRollback>
#include <array>
#include <utility>

#include "desktop/help.h"
#include "desktop/x11_window.h"
#include "platform/failure.h"
#include "platform/process.h"
#include "ui_aniwait1.h"
#include "ui_dspmnfrm.h"
#include "ui_progrsBar.h"
#include "ui_reqfrm.h"

namespace noldarz {

namespace {

template <class Ui>
void setUp(QMainWindow& window) {
  Ui{}.setupUi(&window);
}

struct Form {
  std::string_view view;
  void (*setUp)(QMainWindow&);
};

constexpr std::array forms{Form{"dspmnfrm", setUp<Ui::dspmnfrm>},
                           Form{"aniwait1", setUp<Ui::aniwait1>},
                           Form{"reqfrm", setUp<Ui::reqfrm>},
                           Form{"progrsBar", setUp<Ui::progrsBar>}};

/// An input that a press has closed is still read: its text is nearer to the plain colour than most themes have it.
void keepDisabledTextsLegible() {
  QPalette palette = QApplication::palette();
  const QColor text = palette.color(QPalette::Active, QPalette::Text);
  const QColor base = palette.color(QPalette::Active, QPalette::Base);
  const auto mixed = [](int ofText, int ofBase) { return (2 * ofText + ofBase) / 3; };
  palette.setColor(
      QPalette::Disabled,
      QPalette::Text,
      QColor(mixed(text.red(), base.red()), mixed(text.green(), base.green()), mixed(text.blue(), base.blue())));
  QApplication::setPalette(palette);
}

QString qt(const std::string& text) { return QString::fromStdString(text); }

}  // namespace

void ViewWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  deliver_([this] { view_.close(); });
}

QtDesktop::QtDesktop() {
  keepDisabledTextsLegible();
  later_.setSingleShot(true);
  QObject::connect(&later_, &QTimer::timeout, &later_, [this] {
    followFocus();
    if (QComboBox* combo = std::exchange(dropDown_, nullptr)) combo->showPopup();
  });
}

void QtDesktop::attach(Views& views) {
  views_ = &views;
  for (View* view : views.all())
    for (const Form& form : forms) {
      if (view->name() != form.view) continue;
      Bound& bound = bound_[view];
      bound.window = std::make_unique<ViewWindow>(*view, [this](const auto& work) {
        if (!busy()) deliver(work);  // a window is not closed under a piece of the logic
      });
      form.setUp(*bound.window);
      if (bound.window->findChild<QMenuBar*>()) addHelp(*bound.window);
      bound.binder = std::make_unique<Binder>(*view,
                                              *bound.window,
                                              Binder::Front{[this](Field& field) { focusArrived(field); },
                                                            [this](const auto& work) { deliver(work); },
                                                            [this] { return busy(); }});
    }
}

void QtDesktop::deliver(const std::function<void()>& work) {
  {
    if (depth_ == 0) {
      told_.clear();
      seen_.clear();
      muted_.clear();
      painting_.start();
    }
    const QScopedValueRollback<int> deeper{depth_, depth_ + 1};
    work();
  }
  followViews();
  followFocus();
}

void QtDesktop::followViews() {
  if (!views_) return;
  const auto open = views_->open();  // a copy: painting may open or close a view
  for (View* view : open)
    if (depth_ == 0 && view->visible() && view->isPaintDue()) view->paint();
  for (const auto& [view, bound] : bound_) {
    bound.window->setWindowTitle(qt(view->title()));
    if (bound.window->isVisible() == view->visible()) continue;
    if (!bound.window->testAttribute(Qt::WA_Resized)) bound.window->resize(bound.window->minimumSizeHint());
    bound.window->setVisible(view->visible());
  }
  if (depth_ == 0 && views_->open().empty()) QApplication::quit();
}

void QtDesktop::followFocus() const {
  if (boxOpen_) return;
  QWidget* widget = focus_.holder() ? widgetOf(*focus_.holder()) : nullptr;
  if (widget && !widget->hasFocus()) widget->setFocus(Qt::OtherFocusReason);
}

void QtDesktop::focusArrived(Field& field) {
  if (boxOpen_ || depth_ > 0 || focus_.holder() == &field) return;
  deliver([&] { moveFocus(field); });
  // The screen still moves the focus now; a rule that kept it gets it back behind that.
  later_.start();
}

void QtDesktop::moveFocus(Field& field) {
  const Field* left = focus_.holder();
  focus_.moveTo(&field);
  if (left && focus_.holder() != left) mark(*left, {});
}

void QtDesktop::mark(const Field& field, const QString& fault) const {
  const auto found = bound_.find(&field.view());
  if (found != bound_.end() && !field.locked()) found->second.binder->mark(field, fault);
}

Reply QtDesktop::messageBox(const MessageBox& box) {
  const QString text = qt(box.text);
  const bool tells = box.buttons == Buttons::ok;
  if (tells) told_ << text;
  if (muted_.contains(text)) return Reply::ok;
  const QScopedValueRollback<bool> open{boxOpen_, true};
  followViews();
  QMessageBox message(QApplication::activeWindow());
  message.setWindowTitle(qt(box.title));
  message.setText(text);
  message.setIcon(box.icon == Icon::critical      ? QMessageBox::Critical
                  : box.icon == Icon::information ? QMessageBox::Information
                                                  : QMessageBox::NoIcon);
  if (box.buttons == Buttons::yesNo) {
    message.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    message.setDefaultButton(box.defaultReply == Reply::yes ? QMessageBox::Yes : QMessageBox::No);
  }
  if (tells && seen_.contains(text))
    message.setCheckBox(new QCheckBox("Do not tell this again until this action has ended"));
  seen_.insert(text);
  const int reply = message.exec();
  if (message.checkBox() && message.checkBox()->isChecked()) muted_.insert(text);
  switch (reply) {
    case QMessageBox::Yes: return Reply::yes;
    case QMessageBox::No: return Reply::no;
    default: return tells ? Reply::ok : box.defaultReply;
  }
}

std::filesystem::path QtDesktop::fileDialog(const FileDialog& dialog) {
  const QScopedValueRollback<bool> open{boxOpen_, true};
  QFileDialog chooser(QApplication::activeWindow(), qt(dialog.title));
  chooser.setAcceptMode(dialog.kind == FileDialog::Kind::open ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
  const QStringList filter = qt(dialog.filter).split('|');
  chooser.setNameFilter(filter.size() > 1 ? filter[0] + " (" + filter[1] + ")" : qt(dialog.filter));
  chooser.setDefaultSuffix(qt(dialog.extension));
  chooser.selectFile(qt(dialog.name));
  if (chooser.exec() != QDialog::Accepted || chooser.selectedFiles().isEmpty()) fail(FailureNumber::cancelled);
  return chooser.selectedFiles().first().toStdString();
}

void QtDesktop::printerDialog() {
  const QScopedValueRollback<bool> open{boxOpen_, true};
  QPrinter printer;
  if (QPrintDialog(&printer, QApplication::activeWindow()).exec() != QDialog::Accepted) fail(FailureNumber::cancelled);
}

void QtDesktop::setFocus(Field& field) {
  if (!field.usable() || !field.takesFocus()) fail(FailureNumber::invalidArgument);
  // Boxes and then the focus: they were about this field.
  if (!told_.isEmpty()) mark(field, std::exchange(told_, {}).join('\n'));
  moveFocus(field);
}

void QtDesktop::openDropDown(Field& field) {
  // Behind the event: a list that opened inside it would lose the focus to what the event still does.
  dropDown_ = qobject_cast<QComboBox*>(widgetOf(field));
  later_.start();
}

void QtDesktop::refresh(Field& field) {
  // A press is over within a few milliseconds: what comes up while it runs does so when the user would else wait, and no
  // oftener than an eye can follow.
  constexpr qint64 interval = 80;  // ms
  if (painting_.elapsed() < interval) return;
  painting_.start();
  followViews();
  if (QWidget* widget = widgetOf(field)) widget->repaint();
  QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void QtDesktop::setPointer(Pointer pointer) {
  while (QApplication::overrideCursor()) QApplication::restoreOverrideCursor();
  if (pointer == Pointer::hourglass) QApplication::setOverrideCursor(Qt::WaitCursor);
  if (pointer == Pointer::cross) QApplication::setOverrideCursor(Qt::CrossCursor);
}

void QtDesktop::clearClipboard() { QApplication::clipboard()->clear(); }

std::uint64_t QtDesktop::activateWindow(const std::string& title) { return activateTopLevel(title); }

void QtDesktop::runProgram(const std::filesystem::path& program, const std::vector<std::string>& arguments) {
  startProgram(program, arguments);
}

ViewWindow* QtDesktop::windowOf(const View& view) const {
  const auto found = bound_.find(&view);
  return found == bound_.end() ? nullptr : found->second.window.get();
}

QWidget* QtDesktop::widgetOf(const Field& field) const {
  const auto found = bound_.find(&field.view());
  return found == bound_.end() ? nullptr : found->second.binder->widgetOf(field);
}

QStringList QtDesktop::faults() const {
  QStringList faults;
  for (const auto& [view, bound] : bound_)
    for (const QString& fault : bound.binder->faults()) faults << qt(view->name()) + ": " + fault;
  return faults;
}

}  // namespace noldarz
