#include "adapters/qt/windows/qt_desktop.h"

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QLocale>
#include <QMainWindow>
#include <QScopedValueRollback>
#include <QScreen>
#include <QUrl>
#include <QVersionNumber>
#include <QWindow>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include "adapters/qt/base/program_folders.h"
#include "adapters/qt/base/text.h"
#include "adapters/qt/windows/ask.h"
#include "adapters/qt/windows/choose_file.h"
#include "adapters/qt/windows/companion.h"
#include "adapters/qt/windows/entry.h"
#include "adapters/qt/windows/form_window.h"
#include "adapters/qt/windows/style/program_style.h"
#include "adapters/qt/windows/twips.h"
#include "platform/form.h"

namespace kavr6 {
namespace {

// A splash that is not on the screen by then is not waited for.
constexpr double kSplashWaitSeconds = 0.25;
// A window that has not become the active one by then is not going to.
constexpr double kActivationSeconds = 0.5;

/// The desktop whose tasks of the end are still to be done when the process exits.
QtDesktop* exiting = nullptr;

}  // namespace

QtDesktop::QtDesktop(WindowBuilder build)
    : build_(std::move(build)), pump_([this](const Task& task) { EnterLogic(*this, task); }) {
  // A dialog's own native window would make native ones of all children of the main window, its parent.
  QCoreApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings);
  style::UseProgramStyle();
  // The logic decides when the program ends.
  QApplication::setQuitOnLastWindowClosed(false);
  [[maybe_unused]] static const int told = std::atexit(ProcessExits);
  exiting = this;
  comesBack_ =
      QObject::connect(qApp, &QGuiApplication::applicationStateChanged, [this](Qt::ApplicationState now) {
        if (now == Qt::ApplicationActive && CameBack) EnterLogic(*this, CameBack);
      });
}

QtDesktop::~QtDesktop() {
  QObject::disconnect(comesBack_);
  if (exiting == this) exiting = nullptr;
}

BoxAnswer QtDesktop::ShowBox(const MessageBox& box) {
  return ShowMessageBox(box, BoxParent(), HelpIn(kInBox));
}

std::string QtDesktop::ShowFileDialog(const FileDialog& dialog) {
  return kavr6::ChooseFile(dialog, BoxParent(), HelpIn(kInFileDialog));
}

bool QtDesktop::OpenAddress(const std::string& address) {
  return QDesktopServices::openUrl(QUrl(ToQt(address)));
}

std::function<void()> QtDesktop::HelpIn(const char* place) {
  return [this, place] { EnterLogic(*this, [this, place] { WantHelp(place); }); };
}

void QtDesktop::Beep() { QApplication::beep(); }

bool QtDesktop::ShiftDown() const {
  return QGuiApplication::queryKeyboardModifiers().testFlag(Qt::ShiftModifier);
}

std::string QtDesktop::DecimalSign() const { return QLocale::system().decimalPoint().toStdString(); }

void QtDesktop::CopyText(const std::string& text) { QGuiApplication::clipboard()->setText(ToQt(text)); }

TwipSize QtDesktop::ScreenSize() const {
  const QSize size = QGuiApplication::primaryScreen()->size();
  return {ToTwips(size.width()), ToTwips(size.height())};
}

std::filesystem::path QtDesktop::ProgramDirectory() const { return FindProgramFolders().data; }

ProgramVersion QtDesktop::Version() const {
  const QVersionNumber version = QVersionNumber::fromString(QCoreApplication::applicationVersion());
  return {version.majorVersion(), version.minorVersion(), version.microVersion()};
}

void QtDesktop::EndProcess(int exitCode) {
  std::fflush(nullptr);
  std::_Exit(exitCode);
}

// The toolkit ends the process by itself when the window system has gone.
void QtDesktop::ProcessExits() {
  if (exiting != nullptr) exiting->DoAtEnd();
}

QWidget* QtDesktop::WindowOf(const Form& form) const {
  const auto found = windows_.find(&form);
  return found == windows_.end() ? nullptr : &found->second->Window();
}

QWidget* QtDesktop::FrontWindow() const {
  return ShownForms().empty() ? nullptr : WindowOf(*ShownForms().back());
}

// Not a companion: it belongs to the box that opens.
QWidget* QtDesktop::BoxParent() const {
  QWidget* const active = QApplication::activeWindow();
  const auto front = std::find_if(ShownForms().rbegin(), ShownForms().rend(),
                                  [](const Form* form) { return !form->Companion(); });
  const bool companion = std::any_of(ShownForms().begin(), ShownForms().end(), [&](const Form* form) {
    return form->Companion() && WindowOf(*form) == active;
  });
  if (active != nullptr && !companion) return active;
  return front == ShownForms().rend() ? nullptr : WindowOf(**front);
}

void QtDesktop::BuildAhead(Form& form) {
  NoLongerExpected(form);
  expected_[&form] = Post([this, &form] { Built(form); });
}

void QtDesktop::NoLongerExpected(const Form& form) {
  if (const auto expected = expected_.extract(&form)) Cancel(expected.mapped());
}

FormWindow& QtDesktop::Built(Form& form) {
  NoLongerExpected(form);
  if (const auto found = windows_.find(&form); found != windows_.end()) return *found->second;
  std::unique_ptr<QWidget> window = build_(form.Name());
  if (window == nullptr) throw std::logic_error("The window " + form.Name() + " has no design.");
  // Dialogs stay above the main window.
  if (mainWindow_ != nullptr) window->setParent(mainWindow_, window->windowFlags() | Qt::Dialog);
  const bool isMain = qobject_cast<QMainWindow*>(window.get()) != nullptr;
  auto built = std::make_unique<FormWindow>(form, std::move(window), [this, &form] { UserActivated(form); });
  if (isMain) mainWindow_ = &built->Window();
  if (form.Companion()) new Companion(built->Window(), mainWindow_);
  return *windows_.emplace(&form, std::move(built)).first->second;
}

void QtDesktop::OpenWindow(Form& form, bool modal) {
  FormWindow& opened = Built(form);
  {
    const QScopedValueRollback arranging(arranging_, true);
    // A window that opens above a modal one or above a box would otherwise be blocked by it.
    const QWidget* const modalAbove = QApplication::activeModalWidget();
    const bool blocked = modalAbove != nullptr && modalAbove != &opened.Window() && !form.Companion();
    if (blocked && !modal && !opened.Window().isVisible()) lifted_.push_back(&opened);
    opened.Open(modal || blocked);
  }
  AwaitActivation();
  if (!opened.Window().windowFlags().testFlag(Qt::SplashScreen)) return;
  const QWindow* const handle = opened.Window().windowHandle();
  // Being exposed, it has been painted.
  PumpEventsUntil([handle] { return handle->isExposed(); }, kSplashWaitSeconds);
}

void QtDesktop::CloseWindow(Form& form) {
  QWidget* const window = WindowOf(form);
  if (window == nullptr) return;
  const QScopedValueRollback arranging(arranging_, true);
  window->hide();
  std::erase_if(lifted_, [window](const FormWindow* lifted) { return &lifted->Window() == window; });
  LowerLifted();
  if (QWidget* const front = FrontWindow()) front->activateWindow();
  AwaitActivation();
}

void QtDesktop::DropWindow(Form& form) {
  NoLongerExpected(form);
  const QWidget* const window = WindowOf(form);
  if (window == nullptr) return;
  const QScopedValueRollback arranging(arranging_, true);
  std::erase_if(lifted_, [window](const FormWindow* lifted) { return &lifted->Window() == window; });
  if (mainWindow_ == window) mainWindow_ = nullptr;
  if (awaited_ == &form) awaited_ = nullptr;
  windows_.erase(&form);
}

void QtDesktop::LowerLifted() {
  const auto lifted = [this](const QWidget* window) {
    return std::any_of(lifted_.begin(), lifted_.end(),
                       [window](const FormWindow* form) { return &form->Window() == window; });
  };
  for (const QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window->isModal() && !lifted(window)) return;
  }
  const QScopedValueRollback arranging(arranging_, true);
  for (FormWindow* window : std::exchange(lifted_, {})) window->EndModality();
  AwaitActivation();
}

// The window system activates late and one by one: of windows that follow each other at once, the earlier
// come when the program has long put the last one in front.
void QtDesktop::AwaitActivation() {
  const QWidget* const front = FrontWindow();
  awaited_ = front == nullptr || front->isActiveWindow() ? nullptr : ShownForms().back();
  awaitedUntil_ = Now() + kActivationSeconds;
}

void QtDesktop::UserActivated(Form& form) {
  // What the window system activates because the program has just opened or closed a window is no choice of
  // the user's.
  if (arranging_) return;
  if (&form == awaited_ || Now() > awaitedUntil_) awaited_ = nullptr;
  if (awaited_ == nullptr) EnterLogic(*this, [&] { BroughtToFront(form); });
}

}  // namespace kavr6
