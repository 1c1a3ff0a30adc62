// The desktop of the machine.
#pragma once

#include <QWidget>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "adapters/qt/base/qt_event_pump.h"
#include "platform/desktop.h"

namespace kavr6 {

class FormWindow;

/// Windows, boxes and time by means of the toolkit. Needs a QApplication, whose name titles the boxes and
/// whose version (as in "1.2.3") is the program's.
///
/// A form's window is built when it is first shown, or while something is waited for before that. One that
/// has no design is a fault of the program; so is one that does not fit its form (see Binder).
class QtDesktop : public Desktop {
 public:
  /// Makes the hidden window of the form of that name; null without a design.
  using WindowBuilder = std::function<std::unique_ptr<QWidget>(const std::string& formName)>;

  explicit QtDesktop(WindowBuilder build);
  ~QtDesktop() override;

  double Now() const override { return pump_.Now(); }
  TaskId CallAfter(double seconds, Task task) override { return pump_.CallAfter(seconds, std::move(task)); }
  void Cancel(TaskId id) override { pump_.Cancel(id); }
  void PumpEvents() override { pump_.PumpEvents(); }
  bool PumpEventsUntil(const std::function<bool()>& done, double limit) override {
    return pump_.PumpEventsUntil(done, limit);
  }

  void Beep() override;
  bool ShiftDown() const override;
  std::string DecimalSign() const override;
  void CopyText(const std::string& text) override;
  TwipSize ScreenSize() const override;
  std::filesystem::path ProgramDirectory() const override;
  ProgramVersion Version() const override;
  void BuildAhead(Form& form) override;
  /// The window of a form; null before it has been built.
  QWidget* WindowOf(const Form& form) const;
  /// The window that a box or a dialog opens above; null without any.
  QWidget* BoxParent() const;
  /// What F1 does in a dialog of the toolkit's own; `place` is one of those of Desktop.
  std::function<void()> HelpIn(const char* place);

 protected:
  void OpenWindow(Form& form, bool modal) override;
  void CloseWindow(Form& form) override;
  void DropWindow(Form& form) override;
  BoxAnswer ShowBox(const MessageBox& box) override;
  std::string ShowFileDialog(const FileDialog& dialog) override;
  bool OpenAddress(const std::string& address) override;
  void BoxGone() override { LowerLifted(); }
  /// Runs no destructors.
  [[noreturn]] void EndProcess(int exitCode) override;

 private:
  static void ProcessExits();
  void NoLongerExpected(const Form& form);
  FormWindow& Built(Form& form);
  void UserActivated(Form& form);
  QWidget* FrontWindow() const;
  void LowerLifted();
  void AwaitActivation();

  QMetaObject::Connection comesBack_;
  WindowBuilder build_;
  QtEventPump pump_;
  std::map<const Form*, std::unique_ptr<FormWindow>> windows_;
  std::vector<FormWindow*> lifted_;  // modal only until what would have blocked them has gone
  QWidget* mainWindow_ = nullptr;
  std::map<const Form*, TaskId> expected_;  // to be built as soon as the program waits
  bool arranging_ = false;
  const Form* awaited_ = nullptr;  // its window is still to become the active one, by the program's wish
  double awaitedUntil_ = 0.0;
};

}  // namespace kavr6
