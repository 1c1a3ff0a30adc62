#include <QDesktopServices>
#include <QUrl>

#include "adapters/qt/base/text.h"
#include "adapters/qt/windows/bind_kinds.h"
#include "adapters/qt/windows/widgets/page_browser.h"
#include "platform/page_view.h"

namespace kavr6 {
namespace {

QUrl UrlOf(const PageAddress& address) {
  if (address.web) return QUrl(ToQt(address.page));
  QUrl url = QUrl::fromLocalFile(ToQt(address.page));
  if (!address.fragment.empty()) url.setFragment(ToQt(address.fragment), QUrl::DecodedMode);
  return url;
}

std::string AddressOf(const QUrl& url) {
  const QString fragment = url.fragment(QUrl::FullyDecoded);
  return FromQt(url.toLocalFile() + (fragment.isEmpty() ? QString() : "#" + fragment));
}

}  // namespace

RefreshView BindPageView(Control& control, QObject& target, const UserAction& act) {
  auto* const browser = qobject_cast<widgets::PageBrowser*>(&target);
  if (browser == nullptr) return {};
  auto& view = static_cast<PageView&>(control);
  QObject::connect(browser, &QTextBrowser::anchorClicked, browser, [&view, act](const QUrl& link) {
    if (link.isLocalFile()) {
      act([&view, address = AddressOf(link)] { view.Follow(address); });
    } else {
      QDesktopServices::openUrl(link);
    }
  });
  QObject::connect(browser, &widgets::PageBrowser::backWanted, browser,
                   [&view, act] { act([&view] { view.GoBack(); }); });
  return [&view, browser, act, shown = std::string()]() mutable {
    if (shown == view.Address()) return;
    shown = view.Address();
    const PageAddress address = SplitAddress(shown);
    const QUrl url = UrlOf(address);
    browser->showPage(url);
    if (address.web) QDesktopServices::openUrl(url);
    act([&view, title = FromQt(browser->documentTitle())] { view.TakeTitle(title); });
  };
}

}  // namespace kavr6
