#include "adapters/qt/windows/binder.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QFocusEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QSlider>
#include <QTabBar>
#include <algorithm>
#include <utility>

#include "adapters/qt/base/text.h"
#include "adapters/qt/windows/entry.h"
#include "platform/controls.h"

namespace kavr6 {
namespace {

std::string ClassOf(const QObject& object) { return object.metaObject()->className(); }
std::string Quoted(const std::string& name) { return "'" + name + "'"; }

QList<QObject*> TargetsNamed(const QWidget& window, const Control& control) {
  const QString name = ObjectNameOf(control.Name());
  QList<QObject*> targets;
  if (control.Kind() == ControlKind::MenuItem) {
    for (QAction* action : window.findChildren<QAction*>(name)) targets.append(action);
  } else {
    for (QWidget* widget : window.findChildren<QWidget*>(name)) targets.append(widget);
  }
  return targets;
}

/// All widgets that a form's designer has put into `parent`, without the inner parts of composite ones.
template <class Visit>
void VisitDesigned(const QWidget& parent, const Visit& visit) {
  for (QObject* child : parent.children()) {
    auto* const widget = qobject_cast<QWidget*>(child);
    if (widget == nullptr || widget->isWindow() || qobject_cast<QMenuBar*>(widget) != nullptr ||
        qobject_cast<QTabBar*>(widget) != nullptr)
      continue;
    visit(*widget);
    if (!IsInput(*widget)) VisitDesigned(*widget, visit);
  }
}

// The wheel gives no focus and moves no value of a field that does not have it.
bool TakesWheel(const QObject& object) {
  return qobject_cast<const QComboBox*>(&object) != nullptr ||
         qobject_cast<const QSlider*>(&object) != nullptr;
}

QString ToolTipOf(const Control& control) {
  if (!control.ToolTip().empty() || control.Kind() != ControlKind::ListBox) return ToQt(control.ToolTip());
  const auto& list = static_cast<const ListBox&>(control);
  return list.ListIndex() < 0 ? QString() : ToQt(list.ItemToolTip(list.ListIndex()));
}

// What has neither a text nor a label of its own is called what the tool tip of its design says.
void NameForAssistants(QWidget& widget, const QString& designToolTip, const QWidget& window) {
  if (!IsInput(widget)) return;
  const QList<QLabel*> labels = window.findChildren<QLabel*>();
  const bool labelled = std::any_of(labels.begin(), labels.end(),
                                    [&](const QLabel* label) { return label->buddy() == &widget; });
  const auto* const button = qobject_cast<const QAbstractButton*>(&widget);
  if (labelled || (button != nullptr && !button->text().isEmpty())) return;
  if (widget.accessibleName().isEmpty()) widget.setAccessibleName(designToolTip);
  if (qobject_cast<QComboBox*>(&widget) == nullptr || widget.accessibleName().isEmpty()) return;
  // Of a drop-down list the toolkit tells the row in place of the name, and its name only as its label.
  auto* const unseen = new QLabel(widget.accessibleName(), widget.parentWidget());
  unseen->hide();
  unseen->setBuddy(&widget);
}

/// A list with a field of its own has the focus in either.
bool HasFocusWithin(const QWidget& widget) {
  return widget.hasFocus() || widget.isAncestorOf(QApplication::focusWidget());
}

/// Tool tip, "What's this" and description for assistants are the same words. Longer tips break into lines.
void Explain(QWidget& widget, const QString& words) {
  constexpr int kLine = 60;
  widget.setAccessibleDescription(words);
  widget.setWhatsThis(words);
  widget.setToolTip(words.size() <= kLine ? words : "<qt>" + words.toHtmlEscaped() + "</qt>");
}

}  // namespace

Binder::Binder(Form& form, QWidget& window) : form_(form) {
  ties_.reserve(form.Controls().size());
  for (Control* control : form.Controls()) {
    if (control->Kind() != ControlKind::Timer) TieControl(*control, window);
  }
  CheckNothingUntied(window);
  for (const Tie& tie : ties_) CheckFrame(tie);
  for (Tie& tie : ties_) tie.control->SetView([this, &tie] { RefreshTie(tie); });
  Refresh();
  for (const Tie& tie : ties_) {
    if (auto* const widget = qobject_cast<QWidget*>(tie.target))
      NameForAssistants(*widget, tie.designToolTip, window);
  }
}

Binder::~Binder() {
  for (const Tie& tie : ties_) {
    // Only what the kinds have connected, widget to itself: by a signal the toolkit hears of a widget's end.
    if (tie.target != nullptr) tie.target->disconnect(tie.target);
  }
}

void Binder::TieControl(Control& control, QWidget& window) {
  const std::string what =
      form_.Name() + ": " + std::string(KindName(control.Kind())) + " " + Quoted(control.Name());
  const QList<QObject*> targets = TargetsNamed(window, control);
  if (targets.isEmpty()) throw BindError(what + " has no widget");
  if (targets.size() > 1) throw BindError(what + " has several widgets");
  QObject& target = *targets.first();
  const UserAction act = [this](const Scheduler::Task& work) {
    EnterLogic(form_.Desk(), work);
    Refresh();
  };
  RefreshView refresh = BindKind(control, target, act);
  if (!refresh) throw BindError(what + " cannot be shown by a " + ClassOf(target));
  QString toolTip;
  if (auto* const widget = qobject_cast<QWidget*>(&target)) {
    toolTip = widget->toolTip();
    if (TakesWheel(*widget)) widget->setFocusPolicy(Qt::StrongFocus);
    widget->installEventFilter(this);
  }
  ties_.push_back({&control, &target, toolTip, std::move(refresh)});
}

bool Binder::IsTied(const QObject& object) const {
  return std::any_of(ties_.begin(), ties_.end(), [&](const Tie& tie) { return tie.target == &object; });
}

void Binder::CheckNothingUntied(QWidget& window) const {
  const auto require = [this](const QObject& object) {
    if (!IsTied(object))
      throw BindError(form_.Name() + ": " + ClassOf(object) + " " + Quoted(FromQt(object.objectName())) +
                      " has no control");
  };
  VisitDesigned(window, [&](const QWidget& widget) {
    if (IsInput(widget)) require(widget);
  });
  for (const QMenu* menu : window.findChildren<QMenu*>()) {
    for (const QAction* action : menu->actions()) {
      if (!action->isSeparator() && action->menu() == nullptr) require(*action);
    }
  }
}

const Control* Binder::FrameAround(const Tie& tie) const {
  for (const QObject* around = tie.target->parent(); around != nullptr; around = around->parent()) {
    for (const Tie& other : ties_)
      if (other.target == around && other.control->Kind() == ControlKind::Frame) return other.control;
  }
  return nullptr;
}

void Binder::CheckFrame(const Tie& tie) const {
  const Control* const shown = FrameAround(tie);
  const Control* const told = tie.control->InFrame();
  if (shown == told || tie.control->Kind() == ControlKind::MenuItem) return;
  const auto words = [](const Control* frame) {
    return frame == nullptr ? "no frame" : Quoted(frame->Name());
  };
  throw BindError(form_.Name() + ": " + Quoted(tie.control->Name()) + " stands in " + words(shown) +
                  ", its control in " + words(told));
}

void Binder::Refresh() {
  for (Tie& tie : ties_) RefreshTie(tie);
}

void Binder::RefreshTie(Tie& tie) {
  const Control& control = *tie.control;
  if (auto* const widget = qobject_cast<QWidget*>(tie.target)) {
    const QString toolTip = ToolTipOf(control);
    if (const QString& shown = toolTip.isEmpty() ? tie.designToolTip : toolTip; widget->whatsThis() != shown)
      Explain(*widget, shown);
    if (std::exchange(tie.hidden, !control.Visible()) == control.Visible())
      widget->setVisible(control.Visible());
    // Asked of the widget itself: one inside a disabled frame is off without being told so.
    if (widget->testAttribute(Qt::WA_ForceDisabled) == control.Enabled())
      widget->setEnabled(control.Enabled());
  } else {
    auto* const action = static_cast<QAction*>(tie.target.data());
    action->setEnabled(control.Enabled());
    action->setVisible(control.Visible());
  }
  tie.refresh();
  FollowFocus();
}

void Binder::FollowFocus() {
  if (form_.FocusedControl() == shownFocus_) return;
  shownFocus_ = form_.FocusedControl();
  for (const Tie& tie : ties_) {
    auto* const widget = qobject_cast<QWidget*>(tie.target);
    if (tie.control == shownFocus_ && widget != nullptr && !HasFocusWithin(*widget))
      widget->setFocus(Qt::OtherFocusReason);
  }
}

void Binder::UserEntered(const QWidget& widget) {
  for (const Tie& tie : ties_) {
    if (tie.target != &widget || tie.control == form_.FocusedControl()) continue;
    if (tie.control->Usable()) shownFocus_ = tie.control;
    // Not as a user's act: the toolkit moves the focus by itself too, in a window on its way out of the
    // front.
    EnterLogic(form_.Desk(), [&tie] { tie.control->Focus(); });
    Refresh();
    return;
  }
}

bool Binder::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn) {
    // Coming back from another program, a menu or a list that was open is no move of the focus; a window that
    // is shown for the first time gives it to its first field.
    const Qt::FocusReason reason = static_cast<const QFocusEvent*>(event)->reason();
    const bool comesBack = reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason;
    if (!comesBack || form_.FocusedControl() == nullptr) UserEntered(*static_cast<const QWidget*>(watched));
  } else if (event->type() == QEvent::Wheel && TakesWheel(*watched) &&
             (watched->inherits("QComboBox") || !static_cast<const QWidget*>(watched)->hasFocus())) {
    // A closed drop-down list never takes the wheel: a notch too many would change the serial port.
    event->ignore();
    return true;
  }
  return false;
}

}  // namespace kavr6
