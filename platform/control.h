// What all controls of a window have in common.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/event.h"

namespace kavr6 {

class Form;
class Frame;

enum class ControlKind {
  TextBox,
  TextArea,
  CheckBox,
  OptionButton,
  ListBox,
  Slider,
  Button,
  ImageButton,
  Label,
  Frame,
  Picture,
  Lamp,
  Timer,
  Grid,
  PageView,
  PercentPanel,
  HotSpot,
  ConnectorLine,
  MenuItem,
  Chart,
};

/// Word for messages, such as "text box".
std::string_view KindName(ControlKind kind);

/// A named control of a form. Setting a property to the value it has does nothing; any other value is
/// stored, shown, and then raises the property's event, whoever sets it.
///
/// What a person does is a method too: Click, Type, Select, Scroll, TabTo and their like. They bring the
/// control's window to the front first, where it is not there yet. What a person cannot do they refuse, and
/// nothing happens but Desktop::Refused: on a control that is disabled or hidden, itself or by a frame around
/// it, and in a window that is not shown or stands behind a modal one, a box or a file dialog.
class Control {
 public:
  Control(Form& form, std::string name, ControlKind kind);
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control() = default;

  const std::string& Name() const { return name_; }
  ControlKind Kind() const { return kind_; }
  Form& Owner() const { return form_; }
  /// The frame that holds the control; null when it stands in the window itself.
  const Control* InFrame() const { return frame_; }

  /// A timer begins disabled, any other control enabled.
  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled) {
    if (Assign(enabled_, enabled)) EnabledChanged();
  }
  bool Visible() const { return visible_; }
  void SetVisible(bool visible) { Assign(visible_, visible); }
  /// Enabled and visible, itself and all frames around it.
  bool Usable() const;
  const std::string& ToolTip() const { return toolTip_; }
  void SetToolTip(const std::string& text) { Assign(toolTip_, text); }

  /// Takes the focus within the form; the control that had it loses it first. In a window that is not in
  /// front nothing is told of that: what has the focus there gets it when the window comes to the front.
  void Focus();
  /// The user moves the focus here, by key or mouse.
  void TabTo() { UserFocuses(); }
  Event<> GotFocus;
  /// Raised too when another window of the program takes the front.
  Event<> LostFocus;

  /// What stands on the screen for this control: called after every change of a property.
  void SetView(std::function<void()> refresh) { view_ = std::move(refresh); }

 protected:
  /// Whether the user can act on this control now. Its window is in front then.
  bool UserReaches();
  /// The same, and the control has got the focus.
  bool UserFocuses();
  void Refresh() const {
    if (view_) view_();
  }
  /// Stores and shows a new value; false when it is the one already held.
  template <class T>
  bool Assign(T& held, const T& value) {
    if (held == value) return false;
    held = value;
    Refresh();
    return true;
  }
  virtual void Entered() {}
  virtual void EnabledChanged() {}

 private:
  friend class Form;
  friend class Frame;
  std::string Obstacle() const;

  Form& form_;
  std::string name_;
  ControlKind kind_;
  const Control* frame_ = nullptr;
  bool enabled_;
  bool visible_ = true;
  std::string toolTip_;
  std::function<void()> view_;
};

}  // namespace kavr6
