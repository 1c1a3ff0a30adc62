#include "platform/form.h"

#include <algorithm>
#include <stdexcept>

namespace kavr6 {

Control::Control(Form& form, std::string name, ControlKind kind)
    : form_(form), name_(std::move(name)), kind_(kind) {
  form_.Register(*this);
}

void Control::Focus() {
  if (Usable()) form_.MoveFocus(*this);
}

std::string_view KindName(ControlKind kind) {
  switch (kind) {
    case ControlKind::TextBox:
      return "text box";
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
    case ControlKind::PercentPanel:
      return "percent panel";
    case ControlKind::HotSpot:
      return "hot spot";
    case ControlKind::ConnectorLine:
      return "connector line";
    case ControlKind::MenuItem:
      return "menu item";
  }
  return "control";
}

Form::Form(Desktop& desktop, std::string name) : desktop_(desktop), name_(std::move(name)) {}

Form::~Form() {
  if (visible_) desktop_.ForgetForm(*this);
}

void Form::Register(Control& control) {
  if (Find(control.Name()) != nullptr)
    throw std::logic_error(name_ + " has two controls named " + control.Name());
  controls_.push_back(&control);
}

Control* Form::Find(std::string_view name) const {
  const auto found =
      std::find_if(controls_.begin(), controls_.end(), [&](const Control* c) { return c->Name() == name; });
  return found == controls_.end() ? nullptr : *found;
}

void Form::MoveFocus(Control& control) {
  if (focused_ == &control) return;
  Control* const before = focused_;
  focused_ = &control;
  if (before != nullptr) before->LostFocus.Raise();
  if (focused_ != &control) return;
  control.Entered();
  control.Refresh();
  control.GotFocus.Raise();
}

void Form::SetCaption(const std::string& caption) {
  if (caption_ == caption) return;
  caption_ = caption;
  Refresh();
}

void Form::SetMinSize(int width, int height) {
  minWidth_ = width;
  minHeight_ = height;
  Refresh();
  Resize(width_, height_);
}

void Form::Move(int left, int top) {
  if (left_ == left && top_ == top) return;
  left_ = left;
  top_ = top;
  Refresh();
}

void Form::Resize(int width, int height) {
  const int newWidth = std::max(width, minWidth_);
  const int newHeight = std::max(height, minHeight_);
  if (width_ == newWidth && height_ == newHeight) return;
  width_ = newWidth;
  height_ = newHeight;
  sized_ = true;
  Refresh();
}

void Form::EnsureLoaded() {
  if (loaded_) return;
  loaded_ = true;
  Load();
}

void Form::Show() {
  EnsureLoaded();
  visible_ = true;
  desktop_.ShowForm(*this, false);
}

void Form::ShowModal() {
  EnsureLoaded();
  visible_ = true;
  desktop_.ShowForm(*this, true);
  desktop_.PumpEventsUntil([this] { return !visible_; }, kForever);
}

void Form::Hide() {
  if (!visible_) return;
  visible_ = false;
  desktop_.HideForm(*this);
}

void Form::RequestClose() {
  if (visible_ && MayClose()) Hide();
}

void CenterOn(const Form& main, Form& dialog) {
  dialog.Move(main.Left() + (main.Width() - dialog.Width()) / 2,
              main.Top() + (main.Height() - dialog.Height()) / 2);
}

void CenterOnScreen(Form& form) {
  const TwipSize screen = form.Desk().ScreenSize();
  form.Move((screen.width - form.Width()) / 2, (screen.height - form.Height()) / 2);
}

}  // namespace kavr6
