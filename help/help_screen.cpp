#include "help/help_screen.h"

#include <algorithm>

#include "help/help_pages.h"

namespace kavr6 {
namespace {

constexpr std::string_view kIndexPage = "index.html";
// Room for the widest picture of the pages.
constexpr int kWidthTwips = 11100;
constexpr int kHeightTwips = 9300;
constexpr int kLeastWidthTwips = 4800;
constexpr int kLeastHeightTwips = 3600;

}  // namespace

std::string_view CallersPage(std::string_view window, std::string_view control) {
  const auto* const row = std::ranges::find_if(kHelpCallers, [&](const HelpCaller& caller) {
    return caller.window == window && caller.control == control;
  });
  return row == kHelpCallers.end() ? std::string_view() : row->page;
}

std::string_view HelpKeyPageOf(std::string_view where) {
  const auto* const row = std::ranges::find(kHelpKeyPages, where, &HelpKeyPage::where);
  if (row != kHelpKeyPages.end()) return row->page;
  const std::string_view own = CallersPage(where, "Help");
  return own.empty() ? kIndexPage : own;
}

HelpScreen::HelpScreen(const Form& main, const DriveState& state)
    : Form(main.Desk(), "HelpScreen"), main_(main), state_(state) {
  SetCaption("Help");
  BeCompanion();
  SetMinSize(kLeastWidthTwips, kLeastHeightTwips);
  btnBack.SetEnabled(false);
  HelpBrowser.CanGoBackChanged.Set([this] { btnBack.SetEnabled(HelpBrowser.CanGoBack()); });
  btnBack.Clicked.Set([this] { HelpBrowser.GoBack(); });
  btnIndex.Clicked.Set([this] { GoTo(kIndexPage); });
  btnPrint.Clicked.Set([this] { Hide(); });
}

void HelpScreen::Load() {
  Resize(kWidthTwips, kHeightTwips);
  PlaceBeside(main_, *this);
  HelpBrowser.Focus();
}

void HelpScreen::ShowFor(const Control& caller) {
  std::string_view page = CallersPage(caller.Owner().Name(), caller.Name());
  if (caller.Name() == "HSdomelabel") {
    const auto model = static_cast<std::size_t>(state_.ModelIndex.Get());  // -1 is beyond the table as well
    if (model < kOverviewPages.size()) page = kOverviewPages[model];
  }
  if (!page.empty()) GoTo(page);
  Show();
  if (caller.Name() == "menuWebSite") Desk().OpenOutside(std::string(kMakerAddress));
}

void HelpScreen::ShowForKey(const std::string& where) {
  GoTo(HelpKeyPageOf(where));
  Show();
}

void HelpScreen::GoTo(std::string_view page) { HelpBrowser.Navigate(state_.HelpDir + std::string(page)); }

}  // namespace kavr6
