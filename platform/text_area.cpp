#include "platform/text_area.h"

#include <algorithm>

#include "platform/form.h"

namespace kavr6 {

void TextArea::SetText(const std::string& text) {
  if (text_ == text) return;
  text_ = text;
  ++rewrites_;
  selStart_ = std::min(selStart_, text_.size());
  selLength_ = std::min(selLength_, text_.size() - selStart_);
  Refresh();
  Change.Raise();
}

void TextArea::Append(const std::string& text) {
  if (text.empty()) return;
  text_ += text;
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

}  // namespace kavr6
