// A window's logic: its controls, its life, its focus.
#pragma once

#include <string>
#include <vector>

#include "platform/control.h"
#include "platform/desktop.h"

namespace kavr6 {

/// Base of all windows. A window holds its controls as members and wires their events in its constructor.
/// It is created hidden; what stands on the screen is made when it is first shown.
class Form {
 public:
  Form(Desktop& desktop, std::string name);
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;
  virtual ~Form();

  const std::string& Name() const { return name_; }
  Desktop& Desk() const { return desktop_; }
  const std::vector<Control*>& Controls() const { return controls_; }
  /// The control of that name, or null.
  Control* Find(std::string_view name) const;

  const std::string& Caption() const { return caption_; }
  void SetCaption(const std::string& caption);

  /// Place and size in twips. A size below the least one is brought up to it.
  int Left() const { return left_; }
  int Top() const { return top_; }
  int Width() const { return width_; }
  int Height() const { return height_; }
  int MinWidth() const { return minWidth_; }
  int MinHeight() const { return minHeight_; }
  /// False until the form has been given another size than it began with; its window's design decides then.
  bool Sized() const { return sized_; }
  void SetMinSize(int width, int height);
  void Move(int left, int top, bool centred = false);
  /// It was last moved to the middle of something: its window stays there when it turns out larger.
  bool Centred() const { return centred_; }
  void Resize(int width, int height);

  /// Runs the load step of this window unless it has run before. Showing loads as well.
  void EnsureLoaded();
  /// True from the beginning of the load step.
  bool Loaded() const { return loaded_; }
  bool Visible() const { return visible_; }
  /// The user can always work in it, also beside a modal window or a box. It keeps the user from neither, and
  /// takes the front from no window while one of them stands open.
  bool Companion() const { return companion_; }
  void Show();
  /// Shows the window and returns when it has been hidden again.
  void ShowModal();
  void Hide();
  /// The user asks to close the window, by its frame or its system menu.
  void RequestClose();
  /// The user types a character; true when the window keeps it from the focused control.
  bool PressKey(char character);
  /// The user asks for help on the window, by F1.
  void PressHelpKey();
  /// The user drags files over the window: whether it takes them when they fall now. Full paths in UTF-8,
  /// empty for what is no file of this machine.
  bool WouldTake(const std::vector<std::string>& files) const;
  /// They fall. What the window does not take, or no longer, is forgotten.
  void DropFiles(const std::vector<std::string>& files);

  /// What has the focus, or gets it when the window comes to the front.
  Control* FocusedControl() const { return focused_; }

  /// Raised in turns, when the front among the program's windows changes: the focused control loses the
  /// focus, its window is deactivated, the new front window is activated, its control gets the focus. A
  /// window that has lost the front before its turn came hears nothing.
  Event<> Activate;
  Event<> Deactivate;

  /// Called after caption, place, size or least size have changed.
  void SetView(std::function<void()> refresh) { view_ = std::move(refresh); }

 protected:
  void BeCompanion() { companion_ = true; }
  virtual void Load() {}
  /// Answers a close request: true hides the window, false leaves it.
  virtual bool MayClose() { return true; }
  /// Answers PressKey.
  virtual bool KeyPressed(char /*character*/) { return false; }
  /// Answers WouldTake for a window that the user reaches. Asked at every step of the mouse.
  virtual bool TakesFiles(const std::vector<std::string>& /*files*/) const { return false; }
  virtual void FilesDropped(const std::vector<std::string>& /*files*/) {}

 private:
  friend class Control;
  friend class Desktop;
  void Register(Control& control);
  void MoveFocus(Control& control);
  bool SetInFront(bool inFront);
  void SettleFocus();
  std::string Obstacle(const Control* control) const;
  bool UserReaches(const Control* control);
  void Refresh() const {
    if (view_) view_();
  }

  Desktop& desktop_;
  std::string name_;
  std::string caption_;
  std::vector<Control*> controls_;
  Control* focused_ = nullptr;
  Control* holder_ = nullptr;  // has been told of the focus and not yet of its loss
  int left_ = 0;
  int top_ = 0;
  int width_ = 6000;
  int height_ = 4500;
  int minWidth_ = 0;
  int minHeight_ = 0;
  bool sized_ = false;
  bool centred_ = false;
  bool loaded_ = false;
  bool visible_ = false;
  bool inFront_ = false;
  bool companion_ = false;
  std::function<void()> view_;
};

/// Places `dialog` over the middle of `main`.
void CenterOn(const Form& main, Form& dialog);
/// Places `form` in the middle of the screen.
void CenterOnScreen(Form& form);
/// Places `form` beside `parent`: to the right of it, or to the left where only there is room, or at the
/// right edge of the screen.
void PlaceBeside(const Form& parent, Form& form);

}  // namespace kavr6
