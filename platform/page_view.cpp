#include "platform/page_view.h"

#include "platform/form.h"

namespace kavr6 {

PageAddress SplitAddress(const std::string& address) {
  const std::size_t mark = address.rfind('#');
  const std::size_t folder = address.find_last_of("/\\");
  if (mark == std::string::npos || (folder != std::string::npos && mark < folder)) return {address, {}};
  return {address.substr(0, mark), address.substr(mark + 1)};
}

const std::string& PageView::Address() const {
  static const std::string none;
  return visited_.empty() ? none : visited_.back();
}

void PageView::Navigate(const std::string& address) {
  const bool couldGoBack = CanGoBack();
  if (address != Address()) visited_.push_back(address);
  Moved(couldGoBack);
}

void PageView::GoBack() {
  if (!CanGoBack()) return;
  visited_.pop_back();
  Moved(true);
}

void PageView::Moved(bool couldGoBack) {
  ++showings_;
  Refresh();
  if (couldGoBack != CanGoBack()) CanGoBackChanged.Raise();
}

void PageView::Follow(const std::string& address) {
  if (UserFocuses()) Navigate(address);
}

void PageView::FollowOutside(const std::string& address) {
  if (UserFocuses()) Owner().Desk().OpenOutside(address);
}

}  // namespace kavr6
