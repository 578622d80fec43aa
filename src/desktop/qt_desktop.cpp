#include "desktop/qt_desktop.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QScopeGuard>
#include <QScopedValueRollback>
#include <QScreen>
#include <QStandardPaths>
#include <QWindow>
#include <algorithm>
#include <array>
#include <utility>

#include "desktop/binder/group.h"
#include "desktop/canvas_widget.h"
#include "desktop/form_sizes.h"
#include "desktop/forms.h"
#include "desktop/help.h"
#include "desktop/theme.h"
#include "desktop/vector_state.h"
#include "desktop/x11_window.h"
#include "platform/canvas/drawing_file.h"
#include "platform/canvas/picture_file.h"
#include "platform/failure.h"
#include "platform/process.h"

namespace noldarz {

namespace {

void fill(QMessageBox& message, const MessageBox& box) {
  message.setWindowTitle(shown(box.title));
  message.setTextFormat(Qt::PlainText);  // captions in it are the user's
  message.setText(shown(box.text));
  message.setIcon(box.icon == Icon::critical      ? QMessageBox::Critical
                  : box.icon == Icon::information ? QMessageBox::Information
                                                  : QMessageBox::NoIcon);
  if (box.buttons == Buttons::ok) return;
  message.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
  message.setDefaultButton(box.defaultReply == Reply::yes ? QMessageBox::Yes : QMessageBox::No);
}

/// Where a user looks for a file first.
QString firstFolder() {
  const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  return QDir(documents).exists() ? documents : QDir::homePath();
}

/// "Pictures|*.gif;*.bmp|..." as the toolkit writes it; a filter without patterns is its own.
QStringList nameFilters(const QString& filter) {
  const QStringList parts = filter.split('|');
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2)
    filters << parts[i].section(" (", 0, 0) + " (" + QString(parts[i + 1]).replace(';', ' ') + ")";
  return filters.isEmpty() ? QStringList{filter} : filters;
}

}  // namespace

QtDesktop::QtDesktop()
    : timers_([this] { return static_cast<double>(clock_.elapsed()); },
              [this](Field& timer) { deliver([&] { timer.fire(Event::timer); }); }, [this] { followTimers(); }) {
  followTheme();
  folder_ = firstFolder();
  clock_.start();
  nextTimer_.setSingleShot(true);
  QObject::connect(&nextTimer_, &QTimer::timeout, &nextTimer_, [this] {
    const auto next = timers_.next();
    if (!busy() && next && next->at <= static_cast<double>(clock_.elapsed())) return timers_.fireNext();
    followTimers();
  });
  later_.setSingleShot(true);
  QObject::connect(&later_, &QTimer::timeout, &later_, [this] {
    followFocus();
    if (std::exchange(refused_, false)) selectText();
    if (QComboBox* combo = std::exchange(dropDown_, nullptr)) combo->showPopup();
  });
}

void QtDesktop::attach(Views& views, const Settings& settings) {
  views_ = &views;
  settings_ = &settings;
  timers_.watch(views);
}

void QtDesktop::makeWindow(View& view) {
  const Form* form = formOf(view.name());
  if (!form || bound_.contains(&view)) return;
  const auto close = [this, &view] {
    if (busy()) return;  // a window is not closed under a piece of the logic
    settle();
    deliver([&view] { view.close(); });
  };
  const auto themeChanged = [this, &view] {
    followTheme();
    if (const auto& binder = bound_[&view].binder) binder->followTheme();
  };
  Bound& bound = bound_[&view];
  const auto arrived = [this, &view] { windowArrived(view); };
  bound.form = form;
  bound.window = std::make_unique<ViewWindow>(view, *settings_, ViewWindow::Front{close, themeChanged, arrived});
  ViewWindow& window = *bound.window;
  form->setUp(window);
  scaleFonts(window);
  setWidths(window);
  if (form->tellsProgress) {
    window.setWindowFlag(Qt::Dialog);
    window.setAttribute(Qt::WA_ShowWithoutActivating);
  }
  if (window.findChild<QMenuBar*>()) addHelp(window, [this](const auto& work) { waitForUser(work); });
  bound.binder = std::make_unique<Binder>(view,
                                          window,
                                          Binder::Front{[this](Field& field) { return focusArrived(field); },
                                                        [this](const auto& work) { deliver(work); },
                                                        [this] { settle(); }});
}

void QtDesktop::followTimers() {
  constexpr int leastWait = 20;  // ms; a timer that is due waits until a box is answered
  const auto next = timers_.next();
  if (!next) return nextTimer_.stop();
  const int wait = static_cast<int>(next->at - static_cast<double>(clock_.elapsed()));
  nextTimer_.start(busy() ? std::max(wait, leastWait) : std::max(wait, 0));
}

void QtDesktop::settle() {
  if (!busy()) timers_.settle();
}

void QtDesktop::deliver(const std::function<void()>& work) {
  {
    if (depth_ == 0) {
      seen_.clear();
      muted_.clear();
      sincePaint_.start();
    }
    const QScopedValueRollback<int> deeper{depth_, depth_ + 1};
    clearVectorState();
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
  for (View* view : views_->all())
    if (view->visible()) makeWindow(*view);
  for (const auto& [view, bound] : bound_) {
    bound.binder->followDrawings();
    bound.window->setWindowTitle(view->title().empty() ? "NOLDA-RZ" : shown(view->title()));
    if (bound.window->isVisible() != view->visible()) showWindow(*bound.window, view->visible());
    if (view->visible() && bound.form->follow) bound.form->follow(*bound.window);
  }
  followFront();
  if (depth_ == 0 && views_->open().empty()) end();
}

void QtDesktop::end() {
  if (const auto ask = std::exchange(beforeEnd_, nullptr)) waitForUser(ask);
  QApplication::quit();
}

void QtDesktop::followFront() {
  const ViewWindow* before = std::exchange(front_, frontWindow());
  // The one that the user works in is not asked again: the answer comes later, and would take him back.
  if (!front_ || front_ == before || front_->isActiveWindow()) return;
  windowOf(front_->view())->raise();
  windowOf(front_->view())->activateWindow();
}

void QtDesktop::returnToFront() {
  constexpr int arrival = 200;  // ms
  QTimer::singleShot(arrival, &later_, [this] {
    ViewWindow* front = busy() ? nullptr : frontWindow();
    if (!front) return;
    front->raise();
    front->activateWindow();
  });
}

void QtDesktop::windowArrived(View& view) {
  if (busy() || views_->front() == &view || !view.acceptsInput()) return;
  deliver([&view] { view.activate(); });
}

void QtDesktop::showWindow(ViewWindow& window, bool visible) {
  if (!visible) return window.disappear();
  window.winId();  // makes the handle
  const ViewWindow* below = frontWindow();
  if (below && window.testAttribute(Qt::WA_ShowWithoutActivating))
    window.windowHandle()->setTransientParent(below->windowHandle());
  window.appear();
  if (window.property("initialFocus").isValid()) QTimer::singleShot(0, &window, [this, &window] { beginIn(window); });
}

void QtDesktop::beginIn(const ViewWindow& window) {
  const QWidget* begin = pressedOf(window, window.property("initialFocus").toString());
  for (Field& field : window.view().fields())
    if (begin && widgetOf(field) == begin && !busy() && field.usable()) return deliver([&] { focus_.moveTo(&field); });
}

ViewWindow* QtDesktop::frontWindow() const {
  ViewWindow* front = nullptr;
  for (const View* view : views_ ? views_->open() : std::vector<View*>{})
    if (ViewWindow* window = windowOf(*view);
        window && window->isVisible() && !window->testAttribute(Qt::WA_ShowWithoutActivating))
      front = window;
  return front;
}

void QtDesktop::followFocus() const {
  if (boxOpen_) return;
  QWidget* widget = focus_.holder() ? widgetOf(*focus_.holder()) : nullptr;
  if (!widget || widget->window()->focusWidget() == widget) return;  // of an inactive window too
  widget->setFocus(Qt::OtherFocusReason);
  selectText();
}

void QtDesktop::selectText() const {
  if (QLineEdit* line = focus_.holder() ? lineOf(widgetOf(*focus_.holder())) : nullptr) line->selectAll();
}

bool QtDesktop::focusArrived(Field& field) {
  if (busy() || focus_.holder() == &field) return true;
  if (refused_) return false;  // of one click the screen tells the focus and the press
  deliver([&] { focus_.commit(); });
  settle();  // the row of a class picked or typed just now
  if (field.usable()) deliver([&] { focus_.moveTo(&field); });
  // The screen still moves the focus now; a rule that kept it gets it back after that.
  refused_ = focus_.holder() != &field;
  later_.start();
  return !refused_;
}

Reply QtDesktop::messageBox(const MessageBox& box) {
  const QString text = qt(box.text);
  const bool tells = box.buttons == Buttons::ok;
  if (tells && muted_.contains(text)) return Reply::ok;
  QMessageBox message(QApplication::activeWindow() ? QApplication::activeWindow() : frontWindow());
  fill(message, box);
  if (tells && seen_.contains(text))
    message.setCheckBox(new QCheckBox("Do not tell this again until this action has ended"));
  seen_.insert(text);
  const Reply reply = show(message, box);
  if (message.checkBox() && message.checkBox()->isChecked()) muted_.insert(text);
  return reply;
}

Reply QtDesktop::show(QMessageBox& message, const MessageBox& box) {
  int button = 0;
  waitForUser([&] { button = message.exec(); });
  if (button == QMessageBox::Yes) return Reply::yes;
  if (button == QMessageBox::No) return Reply::no;
  return box.defaultReply;
}

void QtDesktop::waitForUser(const std::function<void()>& wait) {
  const QScopedValueRollback<bool> open{boxOpen_, true};
  const Pointer before = pointer_;
  setPointer(Pointer::standard);
  const auto goOn = qScopeGuard([&] {
    setPointer(before);
    sincePaint_.start();  // the time of the user is not that of the logic
    clearVectorState();
  });
  wait();
}

void QtDesktop::whileUserWorks(const std::function<void()>& wait) {
  if (depth_ > 0) followViews();
  waitForUser(wait);
}

std::filesystem::path QtDesktop::fileDialog(const FileDialog& dialog) {
  const QScopedValueRollback<bool> open{boxOpen_, true};
  QFileDialog chooser(QApplication::activeWindow(), qt(dialog.title));
  chooser.setAcceptMode(dialog.kind == FileDialog::Kind::open ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
  if (dialog.kind == FileDialog::Kind::open) chooser.setFileMode(QFileDialog::ExistingFile);
  chooser.setDirectory(folder_);
  chooser.setNameFilters(nameFilters(qt(dialog.filter)));
  chooser.setDefaultSuffix(qt(dialog.extension).section(';', 0, 0));
  // The suffix follows the kind of file that the user chooses.
  QObject::connect(&chooser, &QFileDialog::filterSelected, &chooser, [&chooser](const QString& filter) {
    const QString suffix = filter.section("*.", 1, 1).section(' ', 0, 0).section(')', 0, 0);
    chooser.setDefaultSuffix(suffix);
  });
  chooser.selectFile(qt(dialog.name));
  if (chooser.exec() != QDialog::Accepted || chooser.selectedFiles().isEmpty()) fail(FailureNumber::cancelled);
  folder_ = chooser.directory().absolutePath();
  return chooser.selectedFiles().first().toStdString();
}

void QtDesktop::printerDialog() {
  const QScopedValueRollback<bool> open{boxOpen_, true};
  QPrinter printer;
  if (QPrintDialog(&printer, QApplication::activeWindow()).exec() != QDialog::Accepted) fail(FailureNumber::cancelled);
}

void QtDesktop::setFocus(Field& field) {
  if (!field.usable() || !field.takesFocus()) fail(FailureNumber::invalidArgument);
  focus_.moveTo(&field);
}

void QtDesktop::openDropDown(Field& field) {
  // After the event: a list that opened inside it would lose the focus to what the event still does.
  dropDown_ = qobject_cast<QComboBox*>(widgetOf(field));
  later_.start();
}

void QtDesktop::refresh(Field& field) {
  // Most presses end within a few milliseconds. The screen follows one that takes longer, and no oftener than an eye
  // can.
  constexpr qint64 interval = 80;  // ms
  if (sincePaint_.elapsed() < interval) return;
  sincePaint_.start();
  followViews();
  if (QWidget* widget = widgetOf(field)) widget->repaint();
  QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void QtDesktop::setPointer(Pointer pointer) {
  pointer_ = pointer;
  while (QApplication::overrideCursor()) QApplication::restoreOverrideCursor();
  if (pointer == Pointer::hourglass) QApplication::setOverrideCursor(Qt::WaitCursor);
  for (const auto& [view, bound] : bound_) bound.binder->pointAt(pointer == Pointer::cross);
}

ScreenSize QtDesktop::screenSize(const View& view) {
  const ViewWindow* window = windowOf(view) ? windowOf(view) : frontWindow();
  const QScreen& screen = window ? *window->screen() : *QApplication::primaryScreen();
  const QSize size = screen.availableSize();
  const double twips = 1 / (dotsPerMillimetre(screen) * millimetresPerTwip);
  return {size.width() * twips, size.height() * twips};
}

void QtDesktop::clearClipboard() { QApplication::clipboard()->clear(); }
void QtDesktop::setClipboard(const std::string& text) { QApplication::clipboard()->setText(qt(text)); }
std::string QtDesktop::clipboard() { return QApplication::clipboard()->text().toStdString(); }

std::uint64_t QtDesktop::activateWindow(const std::string& title) { return activateTopLevel(title); }

void QtDesktop::runProgram(const std::filesystem::path& program, const std::vector<std::string>& arguments) {
  startProgram(program, arguments);
}

std::shared_ptr<const Image> QtDesktop::loadPicture(const std::filesystem::path& file) { return readPicture(file); }

void QtDesktop::saveDrawing(const std::filesystem::path& file, const DrawingFile& what) { writeDrawing(file, what); }

ViewWindow* QtDesktop::windowOf(const View& view) const {
  const auto found = bound_.find(&view);
  return found == bound_.end() ? nullptr : found->second.window.get();
}

QWidget* QtDesktop::widgetOf(const Field& field) const {
  const auto found = bound_.find(&field.view());
  return found == bound_.end() ? nullptr : found->second.binder->widgetOf(field);
}

QStringList QtDesktop::faults() {
  for (View* view : views_->all()) makeWindow(*view);
  QStringList faults;
  for (const auto& [view, bound] : bound_)
    for (const QString& fault : bound.binder->faults()) faults << qt(view->name()) + ": " + fault;
  return faults;
}

}  // namespace noldarz
