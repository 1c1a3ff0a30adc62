// One form's window on the screen.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <memory>

#include "adapters/qt/windows/binder.h"
#include "platform/form.h"

class QKeyEvent;

namespace kavr6 {

/// Ties a form to its top-level widget: controls (by a Binder), caption, place and size both ways, close
/// request, and the keys that belong to the window as a whole. The form outlives it, or is not used again.
class FormWindow : public QObject {
 public:
  /// `activated`: the window has become the active one.
  FormWindow(Form& form, std::unique_ptr<QWidget> window, std::function<void()> activated);
  ~FormWindow() override;

  QWidget& Window() const { return *window_; }
  /// Shows the window or brings it to the front. Modal: no other window of the program takes input meanwhile.
  /// The first time BindError when window and form do not fit.
  void Open(bool modal);
  /// Lets the other windows take input again while this one stays.
  void EndModality();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Place {
    int left, top, width, height, minWidth, minHeight;
    bool operator==(const Place&) const = default;
  };
  Place PlaceOfForm() const;
  void Settle();
  void SettleFirstPlace();
  int HeightOfContents(int width, int usual) const;
  void ShowPlace();
  void TakePlace();
  bool WindowEvent(QEvent& event);
  bool KeepsKey(const QKeyEvent& event);
  bool OpensHelp(const QKeyEvent& event);
  bool EndsDialog(const QKeyEvent& event);

  Form& form_;
  QPointer<QWidget> window_;  // its parent may take it along
  std::function<void()> activated_;
  Place shown_{};
  bool showing_ = false;
  std::unique_ptr<Binder> binder_;  // from the first opening on
};

}  // namespace kavr6
