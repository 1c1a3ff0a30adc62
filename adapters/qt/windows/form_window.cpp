#include "adapters/qt/windows/form_window.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QDropEvent>
#include <QKeyEvent>
#include <QLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QScreen>
#include <QStyle>
#include <QWindow>
#include <algorithm>
#include <optional>

#include "adapters/qt/base/text.h"
#include "adapters/qt/windows/entry.h"
#include "adapters/qt/windows/file_drag.h"
#include "adapters/qt/windows/help_key.h"
#include "adapters/qt/windows/twips.h"
#include "platform/controls.h"

namespace kavr6 {
namespace {

/// The character that a key types, with Ctrl+A to Ctrl+Z as 1 to 26; none for arrows and the like.
std::optional<char> CharacterOf(const QKeyEvent& event) {
  if (event.modifiers().testFlag(Qt::ControlModifier) && event.key() >= Qt::Key_A && event.key() <= Qt::Key_Z)
    return static_cast<char>(event.key() - Qt::Key_A + 1);
  const QByteArray text = event.text().toLatin1();
  if (text.isEmpty()) return std::nullopt;
  return text[0];
}

Button* ButtonWithRole(const Form& form, Button::Role role) {
  for (Control* control : form.Controls()) {
    if (control->Kind() != ControlKind::Button) continue;
    auto* const button = static_cast<Button*>(control);
    if (button->ButtonRole() == role && button->Enabled() && button->Visible()) return button;
  }
  return nullptr;
}

/// The button that ends a dialog by Esc: Cancel, or the only one of a window that merely tells something.
Button* EscapeButton(const Form& form) {
  if (Button* const cancel = ButtonWithRole(form, Button::Role::Cancel)) return cancel;
  const auto& controls = form.Controls();
  const bool single = std::count_if(controls.begin(), controls.end(), [](const Control* control) {
                        return control->Kind() == ControlKind::Button;
                      }) == 1;
  return single ? ButtonWithRole(form, Button::Role::Default) : nullptr;
}

bool IsEnter(const QKeyEvent& event) { return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter; }

/// On some desktops Enter would turn these instead of ending the dialog.
bool TurnsByEnter(const QWidget* focused) {
  return qobject_cast<const QCheckBox*>(focused) != nullptr ||
         qobject_cast<const QRadioButton*>(focused) != nullptr;
}

/// Where on the screen the form's place 0, 0 is.
QPoint Origin() { return QGuiApplication::primaryScreen()->geometry().topLeft(); }

}  // namespace

FormWindow::FormWindow(Form& form, std::unique_ptr<QWidget> window, std::function<void()> activated)
    : form_(form), window_(window.release()), activated_(std::move(activated)) {
  window_->setAcceptDrops(true);
  window_->winId();  // makes the window's handle, where typed characters pass first
  window_->installEventFilter(this);
  window_->windowHandle()->installEventFilter(this);
}

FormWindow::~FormWindow() {
  binder_.reset();
  if (window_ == nullptr) return;
  window_->removeEventFilter(this);
  delete window_;
}

// Not before the form is shown: until then it may still fill its controls and choose its place.
void FormWindow::Settle() {
  if (binder_ != nullptr) return;
  binder_ = std::make_unique<Binder>(form_, *window_);
  SettleFirstPlace();
  ShowPlace();
  form_.SetView([this] { ShowPlace(); });
}

void FormWindow::Open(bool modal) {
  Settle();
  const Qt::WindowModality modality = modal ? Qt::ApplicationModal : Qt::NonModal;
  // The toolkit takes notice of modality, and of its order, only when a window is shown.
  if (modal && window_->isVisible() && QApplication::activeModalWidget() != window_) window_->hide();
  if (!window_->isVisible() && window_->windowModality() != modality) window_->setWindowModality(modality);
  if (window_->isMinimized()) window_->showNormal();
  window_->show();
  window_->raise();
  window_->activateWindow();
}

void FormWindow::EndModality() {
  // The toolkit takes notice only of a window that is not shown.
  window_->hide();
  window_->setWindowModality(Qt::NonModal);
  window_->show();
}

FormWindow::Place FormWindow::PlaceOfForm() const {
  return {form_.Left(), form_.Top(), form_.Width(), form_.Height(), form_.MinWidth(), form_.MinHeight()};
}

// Texts in several lines need the more height the narrower they are.
int FormWindow::HeightOfContents(int width, int usual) const {
  QLayout* const layout = window_->layout();
  if (layout == nullptr || !layout->hasHeightForWidth()) return usual;
  layout->activate();
  return layout->totalHeightForWidth(std::max(width, window_->minimumSizeHint().width()));
}

// A form without a size of its own takes that of the design; both give way to what the contents need and to
// the screen. What is centred stays so; nothing begins outside of the screen.
void FormWindow::SettleFirstPlace() {
  // What the controls have put into the design makes itself felt outside of scrolled parts by these alone.
  QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
  QRect screen = QGuiApplication::primaryScreen()->availableGeometry().translated(-Origin());
  if (!window_->windowFlags().testFlag(Qt::FramelessWindowHint))
    screen.setTop(screen.top() + window_->style()->pixelMetric(QStyle::PM_TitleBarHeight));
  const QSize hint = window_->sizeHint();
  QSize size = window_->testAttribute(Qt::WA_Resized) ? window_->size() : QSize(0, 0);
  if (form_.Sized())
    size = {ToPixels(form_.Width()), ToPixels(form_.Height())};
  else
    size.setWidth(std::max(size.width(), hint.width()));
  size.setHeight(std::max(size.height(), HeightOfContents(size.width(), hint.height())));
  size =
      size.expandedTo(window_->minimumSizeHint()).boundedTo(window_->maximumSize()).boundedTo(screen.size());
  const int wider = ToTwips(size.width()) - form_.Width();
  const int higher = ToTwips(size.height()) - form_.Height();
  const bool placed = form_.Left() != 0 || form_.Top() != 0;
  if (wider != 0 || higher != 0) form_.Resize(ToTwips(size.width()), ToTwips(size.height()));
  if (!placed) return;
  const int left = form_.Left() - (form_.Centred() ? wider / 2 : 0);
  const int top = form_.Top() - (form_.Centred() ? higher / 2 : 0);
  const QRect places = screen.adjusted(0, 0, -size.width(), -size.height());
  form_.Move(std::max(std::min(left, ToTwips(places.right())), ToTwips(places.left())),
             std::max(std::min(top, ToTwips(places.bottom())), ToTwips(places.top())));
}

void FormWindow::ShowPlace() {
  if (const QString caption = ToQt(form_.Caption()); window_->windowTitle() != caption)
    window_->setWindowTitle(caption);
  const Place wanted = PlaceOfForm();
  const Place before = std::exchange(shown_, wanted);
  if (wanted == before) return;
  {
    const QScopedValueRollback showing(showing_, true);
    if (wanted.minWidth != before.minWidth || wanted.minHeight != before.minHeight)
      window_->setMinimumSize(QSize(ToPixels(wanted.minWidth), ToPixels(wanted.minHeight))
                                  .expandedTo(window_->minimumSizeHint()));
    if (wanted.width != before.width || wanted.height != before.height)
      window_->resize(ToPixels(wanted.width), ToPixels(wanted.height));
    if (wanted.left != before.left || wanted.top != before.top)
      window_->move(QPoint(ToPixels(wanted.left), ToPixels(wanted.top)) + Origin());
  }
  TakePlace();
}

void FormWindow::TakePlace() {
  if (showing_ || !window_->isVisible() || window_->isMinimized()) return;
  const QPoint at = window_->pos() - Origin();
  const QSize size = window_->size();
  if (at != QPoint(ToPixels(form_.Left()), ToPixels(form_.Top()))) {
    shown_.left = ToTwips(at.x());
    shown_.top = ToTwips(at.y());
    form_.Move(shown_.left, shown_.top);
  }
  if (size != QSize(ToPixels(form_.Width()), ToPixels(form_.Height()))) {
    shown_.width = ToTwips(size.width());
    shown_.height = ToTwips(size.height());
    form_.Resize(shown_.width, shown_.height);
  }
}

bool FormWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched == window_) return WindowEvent(*event);
  if (event->type() != QEvent::KeyPress) return false;
  const auto& key = static_cast<const QKeyEvent&>(*event);
  return KeepsKey(key) || (IsEnter(key) && TurnsByEnter(window_->focusWidget()) && EndsDialog(key));
}

bool FormWindow::WindowEvent(QEvent& event) {
  switch (event.type()) {
    case QEvent::Close:
      event.ignore();
      EnterLogic(form_.Desk(), [this] { form_.RequestClose(); });
      return true;
    case QEvent::WindowActivate:
      activated_();
      return false;
    case QEvent::Resize:
    case QEvent::Move:
      TakePlace();
      return false;
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
      DragFiles(form_, static_cast<QDropEvent&>(event));
      return true;
    case QEvent::KeyPress:
      return OpensHelp(static_cast<const QKeyEvent&>(event)) ||
             EndsDialog(static_cast<const QKeyEvent&>(event));
    default:
      return false;
  }
}

bool FormWindow::KeepsKey(const QKeyEvent& event) {
  const std::optional<char> character = CharacterOf(event);
  bool kept = false;
  if (character) EnterLogic(form_.Desk(), [&] { kept = form_.PressKey(*character); });
  return kept;
}

bool FormWindow::OpensHelp(const QKeyEvent& event) {
  if (!IsHelpKey(event)) return false;
  EnterLogic(form_.Desk(), [this] { form_.PressHelpKey(); });
  return true;
}

// Comes here when the focused control has no use for the key. Esc goes no further: the toolkit would hide a
// dialog on its own.
bool FormWindow::EndsDialog(const QKeyEvent& event) {
  const bool enter = IsEnter(event);
  if (!enter && event.key() != Qt::Key_Escape) return false;
  if (auto* const focused = qobject_cast<QPushButton*>(window_->focusWidget()); enter && focused != nullptr) {
    focused->click();
  } else if (Button* const button =
                 enter ? ButtonWithRole(form_, Button::Role::Default) : EscapeButton(form_)) {
    EnterLogic(form_.Desk(), [button] { button->Click(); });
  }
  return true;
}

}  // namespace kavr6
