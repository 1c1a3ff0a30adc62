// What all controls of a window have in common.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/event.h"

namespace kavr6 {

class Form;

enum class ControlKind {
  TextBox,
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
  PercentPanel,
  HotSpot,
  ConnectorLine,
  MenuItem,
};

/// Word for messages, such as "text box".
std::string_view KindName(ControlKind kind);

/// A named control of a form. Setting a property to the value it has does nothing; any other value is
/// stored, shown, and then raises the property's event, whoever sets it.
///
/// What a person does is a method too (Click, Type, Select, Scroll, Focus); on a control that is disabled or
/// hidden these do nothing.
class Control {
 public:
  Control(Form& form, std::string name, ControlKind kind);
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control() = default;

  const std::string& Name() const { return name_; }
  ControlKind Kind() const { return kind_; }
  Form& Owner() const { return form_; }

  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled) { Assign(enabled_, enabled); }
  bool Visible() const { return visible_; }
  void SetVisible(bool visible) { Assign(visible_, visible); }
  const std::string& ToolTip() const { return toolTip_; }
  void SetToolTip(const std::string& text) { Assign(toolTip_, text); }

  /// Takes the focus within the form; the control that had it loses it first.
  void Focus();
  Event<> GotFocus;
  Event<> LostFocus;

  /// What stands on the screen for this control: called after every change of a property.
  void SetView(std::function<void()> refresh) { view_ = std::move(refresh); }

 protected:
  bool Usable() const { return enabled_ && visible_; }
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

 private:
  friend class Form;

  Form& form_;
  std::string name_;
  ControlKind kind_;
  bool enabled_ = true;
  bool visible_ = true;
  std::string toolTip_;
  std::function<void()> view_;
};

}  // namespace kavr6
