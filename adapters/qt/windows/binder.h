// Ties the controls of a form to the widgets of its window.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <stdexcept>
#include <string>
#include <vector>

#include "adapters/qt/windows/bind_kinds.h"
#include "platform/form.h"

namespace kavr6 {

/// Form and window do not fit; the text names the form, the control and the kinds.
class BindError : public std::logic_error {
 public:
  using std::logic_error::logic_error;
};

/// Shows every control in the widget (or menu action) whose object name is the control's name, and tells the
/// control what the user does there. Focus travels both ways.
///
/// Strict: a control without a widget, a widget of another kind, and an input widget or menu command without
/// a control are BindErrors; so is a widget inside the widget of a frame that does not hold its control, or
/// outside of one that does. Timers have no widget. Element 3 of a control array "LED" is the widget "LED_3".
/// Form and window outlive the binder, or are not used again.
class Binder : public QObject {
 public:
  Binder(Form& form, QWidget& window);
  ~Binder() override;

  /// Brings every widget to the state of its control.
  void Refresh();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Tie {
    Control* control;
    QPointer<QObject> target;
    QString designToolTip;
    RefreshView refresh;
    bool hidden = false;
  };
  void TieControl(Control& control, QWidget& window);
  void CheckNothingUntied(QWidget& window) const;
  const Control* FrameAround(const Tie& tie) const;
  void CheckFrame(const Tie& tie) const;
  void RefreshTie(Tie& tie);
  void FollowFocus();
  void UserEntered(const QWidget& widget);
  bool IsTied(const QObject& object) const;

  Form& form_;
  std::vector<Tie> ties_;
  Control* shownFocus_ = nullptr;
};

}  // namespace kavr6
