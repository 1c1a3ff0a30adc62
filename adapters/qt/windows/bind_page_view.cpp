#include <QUrl>
#include <utility>
#include <vector>

#include "adapters/qt/base/text.h"
#include "adapters/qt/windows/bind_kinds.h"
#include "adapters/qt/windows/widgets/page_browser.h"
#include "platform/page_view.h"

namespace kavr6 {
namespace {

QUrl UrlOf(const PageAddress& address) {
  QUrl url = QUrl::fromLocalFile(ToQt(address.page));
  if (!address.fragment.empty()) url.setFragment(ToQt(address.fragment), QUrl::DecodedMode);
  return url;
}

std::string AddressOf(const QUrl& url) {
  const QString fragment = url.fragment(QUrl::FullyDecoded);
  return PathFromQt(url.toLocalFile()) + FromQt(fragment.isEmpty() ? QString() : "#" + fragment);
}

/// Shows the page of a view, and on the way back where it was left.
class Pages {
 public:
  Pages(const PageView& view, widgets::PageBrowser& browser) : view_(view), browser_(browser) {}
  void Show() {
    if (std::exchange(showings_, view_.Showings()) == view_.Showings()) return;
    if (!places_.empty()) places_.back() = browser_.place();
    const bool back = view_.Depth() < places_.size();
    places_.resize(view_.Depth());
    browser_.showPage(UrlOf(SplitAddress(view_.Address())));
    if (back) browser_.goTo(places_.back());
  }

 private:
  const PageView& view_;
  widgets::PageBrowser& browser_;
  int showings_ = 0;
  std::vector<int> places_;  // how far each page of the way back was scrolled
};

}  // namespace

RefreshView BindPageView(Control& control, QObject& target, const UserAction& act) {
  auto* const browser = qobject_cast<widgets::PageBrowser*>(&target);
  if (browser == nullptr) return {};
  auto& view = static_cast<PageView&>(control);
  QObject::connect(browser, &QTextBrowser::anchorClicked, browser, [&view, act](const QUrl& link) {
    if (link.isLocalFile()) {
      act([&view, address = AddressOf(link)] { view.Follow(address); });
    } else {
      act([&view, address = FromQt(link.toString())] { view.FollowOutside(address); });
    }
  });
  QObject::connect(browser, &widgets::PageBrowser::backWanted, browser,
                   [&view, act] { act([&view] { view.GoBack(); }); });
  return [pages = Pages(view, *browser)]() mutable { pages.Show(); };
}

}  // namespace kavr6
