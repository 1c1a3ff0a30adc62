// A window that can be used beside modal ones.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <QWindow>

namespace kavr6 {

/// The toolkit keeps the user from every window but the modal one and those that belong to it. So the window
/// belongs to whatever modal window has opened last, be it a form, a box or a dialog of the toolkit, for as
/// long as that stands open, and to `main` otherwise.
class Companion : public QObject {
 public:
  /// Both windows have their handles; `main` may be null.
  Companion(QWidget& window, QWidget* main);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BelongTo(const QWidget* owner);
  void ModalWindowHidden();

  QPointer<QWidget> window_;
  QPointer<QWidget> main_;
  bool blocked_ = false;
  const QWindow* shownFor_ = nullptr;  // whose it was when it was last shown; only compared
};

}  // namespace kavr6
