// The window that shows the help.
#pragma once

#include <string>
#include <string_view>

#include "core/drive_state.h"
#include "platform/controls.h"
#include "platform/form.h"
#include "platform/page_view.h"

namespace kavr6 {

/// Window "HelpScreen": one for all who ask. It stays open beside the window that it was asked from, and a
/// further question changes its page. The pages are read from DriveState::HelpDir when they are shown; that
/// one is missing is for the view to say.
class HelpScreen : public Form {
 public:
  /// `main`: the window beside which it opens.
  HelpScreen(const Form& main, const DriveState& state);

  Button btnIndex{*this, "btnIndex", "Index"};
  Button btnBack{*this, "btnBack", "Back"};
  /// Prints nothing, whatever its name says.
  Button btnPrint{*this, "btnPrint", "Close", Button::Role::Cancel};
  PageView HelpBrowser{*this, "HelpBrowser"};

  /// Shows the page of a button, hot spot or menu command. The maker's site opens in the system's browser,
  /// above a page that names it.
  void ShowFor(const Control& caller);
  /// Shows what belongs to a window, or to a place that the desktop names: F1.
  void ShowForKey(const std::string& where);

 protected:
  void Load() override;

 private:
  void GoTo(std::string_view page);

  const Form& main_;
  const DriveState& state_;
};

}  // namespace kavr6
