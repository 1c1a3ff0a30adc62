#include "platform/text_area.h"

#include <algorithm>

#include "platform/form.h"

namespace kavr6 {

void TextArea::SetText(const std::string& text) {
  if (text_ == text) return;
  text_ = text;
  standingOut_.clear();
  ++rewrites_;
  selStart_ = std::min(selStart_, text_.size());
  selLength_ = std::min(selLength_, text_.size() - selStart_);
  Refresh();
  Change.Raise();
}

void TextArea::Append(const std::string& text, bool standsOut) {
  if (text.empty()) return;
  if (standsOut) standingOut_.push_back({text_.size(), text_.size() + text.size()});
  text_ += text;
  Refresh();
  Change.Raise();
}

void TextArea::DropFront(std::size_t count) {
  count = std::min(count, text_.size());
  if (count == 0) return;
  const auto moved = [count](std::size_t place) { return std::max(place, count) - count; };
  text_.erase(0, count);
  dropped_ += count;
  const std::size_t selEnd = moved(selStart_ + selLength_);
  selStart_ = moved(selStart_);
  selLength_ = selEnd - selStart_;
  for (Stretch& stretch : standingOut_) stretch = {moved(stretch.start), moved(stretch.end)};
  std::erase_if(standingOut_, [](const Stretch& stretch) { return stretch.end == 0; });
  Refresh();
  Change.Raise();
}

void TextArea::SetSelection(std::size_t start, std::size_t length) {
  start = std::min(start, text_.size());
  length = std::min(length, text_.size() - start);
  if (selStart_ == start && selLength_ == length) return;
  selStart_ = start;
  selLength_ = length;
  Refresh();
}

void TextArea::Type(const std::string& text) {
  if (ReadOnly()) return Owner().Desk().Refused(Owner().Name() + "." + Name() + ": it is for reading alone");
  if (!UserFocuses()) return;
  selStart_ = text.size();
  selLength_ = 0;
  SetText(text);
}

void TextArea::ReleaseKey(int code) {
  if (UserFocuses()) KeyUp.Raise(code);
}

void TextArea::PressCtrlArrow(int direction) {
  if (UserFocuses()) CtrlArrow.Raise(direction);
}

}  // namespace kavr6
