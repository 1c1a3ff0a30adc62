// A control that shows pages, as of the help.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/control.h"

namespace kavr6 {

/// The path of a page with the place in it where reading begins.
struct PageAddress {
  std::string page;
  std::string fragment;  ///< without "#"; empty for the top of the page
  bool operator==(const PageAddress&) const = default;
};

/// "folder/page.html#place" in its parts; a "#" in the name of a folder is none of them.
PageAddress SplitAddress(const std::string& address);

/// Shows one page at a time and knows the way back. That a page is missing is for the view to say.
class PageView : public Control {
 public:
  PageView(Form& form, std::string name) : Control(form, std::move(name), ControlKind::PageView) {}

  /// Empty before the first page.
  const std::string& Address() const;
  /// UTF-8, as for SplitAddress. The address on show already is shown anew and adds no step to the way back.
  void Navigate(const std::string& address);
  /// One page back; nothing where there is none.
  void GoBack();
  bool CanGoBack() const { return visited_.size() > 1; }
  /// How many pages the way back has, the one on show included.
  std::size_t Depth() const { return visited_.size(); }
  /// Grows whenever a page is to be shown, also one that is on show.
  int Showings() const { return showings_; }
  Event<> CanGoBackChanged;

  /// The user follows a link to that address.
  void Follow(const std::string& address);
  /// The user follows a link to a web or mail address: the page on show stays.
  void FollowOutside(const std::string& address);

 private:
  void Moved(bool couldGoBack);

  std::vector<std::string> visited_;
  int showings_ = 0;
};

}  // namespace kavr6
