#include "platform/control.h"

#include "platform/form.h"

namespace kavr6 {

Control::Control(Form& form, std::string name, ControlKind kind)
    : form_(form), name_(std::move(name)), kind_(kind), enabled_(kind != ControlKind::Timer) {
  form_.Register(*this);
}

std::string Control::Obstacle() const {
  for (const Control* control = this; control != nullptr; control = control->frame_) {
    const std::string what = control == this ? "it" : "frame '" + control->Name() + "'";
    if (!control->visible_) return what + " is hidden";
    if (!control->enabled_) return what + " is disabled";
  }
  return {};
}

bool Control::Usable() const { return Obstacle().empty(); }

void Control::Focus() {
  if (Usable()) form_.MoveFocus(*this);
}

bool Control::UserReaches() { return form_.UserReaches(this); }

bool Control::UserFocuses() {
  if (!UserReaches()) return false;
  Focus();
  // The handler of the control that has lost the focus may have taken this one away.
  return Usable() && form_.Visible();
}

std::string_view KindName(ControlKind kind) {
  switch (kind) {
    case ControlKind::TextBox:
      return "text box";
    case ControlKind::TextArea:
      return "text area";
    case ControlKind::CheckBox:
      return "check box";
    case ControlKind::OptionButton:
      return "option button";
    case ControlKind::ListBox:
      return "list";
    case ControlKind::Slider:
      return "slider";
    case ControlKind::Button:
      return "button";
    case ControlKind::ImageButton:
      return "image button";
    case ControlKind::Label:
      return "label";
    case ControlKind::Frame:
      return "frame";
    case ControlKind::Picture:
      return "picture";
    case ControlKind::Lamp:
      return "lamp";
    case ControlKind::Timer:
      return "timer";
    case ControlKind::Grid:
      return "grid";
    case ControlKind::PageView:
      return "page view";
    case ControlKind::PercentPanel:
      return "percent panel";
    case ControlKind::HotSpot:
      return "hot spot";
    case ControlKind::ConnectorLine:
      return "connector line";
    case ControlKind::Chart:
      return "chart";
    case ControlKind::MenuItem:
      return "menu item";
  }
  return "control";
}

}  // namespace kavr6
