#include "platform/form.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace kavr6 {

Form::Form(Desktop& desktop, std::string name) : desktop_(desktop), name_(std::move(name)) {}

Form::~Form() { desktop_.ForgetForm(*this); }

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
  focused_ = &control;
  control.Refresh();
  SettleFocus();
}

bool Form::SetInFront(bool inFront) {
  if (inFront_ == inFront) return false;
  inFront_ = inFront;
  SettleFocus();
  return true;
}

// Each handler may move the focus or change windows and so settle things itself.
void Form::SettleFocus() {
  const auto due = [this] { return inFront_ ? focused_ : nullptr; };
  while (holder_ != due()) {
    if (holder_ != nullptr) {
      std::exchange(holder_, nullptr)->LostFocus.Raise();
    } else {
      holder_ = due();
      holder_->Entered();
      holder_->Refresh();
      holder_->GotFocus.Raise();
    }
  }
}

std::string Form::Obstacle(const Control* control) const {
  if (!visible_) return "the window is not shown";
  if (const std::string above = desktop_.WhatBlocks(*this); !above.empty())
    return "the window stands behind " + above;
  return control == nullptr ? std::string() : control->Obstacle();
}

bool Form::UserReaches(const Control* control) {
  const auto refused = [&] {
    const std::string why = Obstacle(control);
    if (why.empty()) return false;
    desktop_.Refused(name_ + (control == nullptr ? "" : "." + control->Name()) + ": " + why);
    return true;
  };
  if (refused()) return false;
  if (!desktop_.ShownForms().empty() && desktop_.ShownForms().back() == this) return true;
  desktop_.ShowForm(*this, false);
  return !refused();
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

void Form::Move(int left, int top, bool centred) {
  centred_ = centred;
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
  if (UserReaches(nullptr) && MayClose()) Hide();
}

bool Form::PressKey(char character) { return UserReaches(nullptr) && KeyPressed(character); }

void Form::PressHelpKey() {
  if (UserReaches(nullptr)) desktop_.WantHelp(name_);
}

bool Form::WouldTake(const std::vector<std::string>& files) const {
  return Obstacle(nullptr).empty() && TakesFiles(files);
}

void Form::DropFiles(const std::vector<std::string>& files) {
  if (TakesFiles(files) && UserReaches(nullptr)) FilesDropped(files);
}

void CenterOn(const Form& main, Form& dialog) {
  dialog.Move(main.Left() + (main.Width() - dialog.Width()) / 2,
              main.Top() + (main.Height() - dialog.Height()) / 2, true);
}

void CenterOnScreen(Form& form) {
  const TwipSize screen = form.Desk().ScreenSize();
  form.Move((screen.width - form.Width()) / 2, (screen.height - form.Height()) / 2, true);
}

void PlaceBeside(const Form& parent, Form& form) {
  constexpr int kGap = 150;
  const int right = parent.Left() + parent.Width() + kGap;
  const int left = parent.Left() - form.Width() - kGap;
  const int rightmost = form.Desk().ScreenSize().width - form.Width();
  form.Move(right > rightmost && left >= 0 ? left : std::min(right, rightmost), parent.Top());
}

}  // namespace kavr6
