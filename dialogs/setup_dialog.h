// What all dialogs that edit the settings have in common.
#pragma once

#include <functional>
#include <string>

#include "core/drive_state.h"
#include "core/settings.h"
#include "platform/controls.h"
#include "platform/form.h"

namespace kavr6 {

struct SetupDialogTexts {
  std::string name;
  std::string caption;
};

/// What a setup dialog works with; all of it outlives the dialog.
struct SetupParts {
  Form& over;  ///< the main window: dialogs are placed over its middle
  DriveState& state;
  Settings& settings;
};

/// A dialog that works on its controls and writes what it edits in OK alone. It stays open beside the main
/// screen and the other dialogs.
class SetupDialog : public Form {
 public:
  SetupDialog(const SetupParts& parts, const SetupDialogTexts& texts);

  Button OK{*this, "OK", "OK", Button::Role::Default};
  Button Cancel{*this, "Cancel", "Cancel", Button::Role::Cancel};
  Button Help{*this, "Help", "Help"};

  /// To be set before the dialog is loaded. Summarize fills the dialog's section of the summary grid.
  /// ShowHelp shows the page of a button; without it those buttons are greyed.
  std::function<void()> Summarize;
  std::function<void(const Control& caller)> ShowHelp;

  /// Shows the settings in the controls and opens the dialog. One that stands open already only comes to the
  /// front, so that what has been typed there stays.
  void Open();
  /// The settings have been replaced while the dialog stands open: it shows them anew.
  void Refill();

 protected:
  void Load() override;
  /// Copies the settings into the controls.
  virtual void Fill() = 0;
  /// Done when an open dialog has been filled anew.
  virtual void Refilled() {}
  /// Done when the dialog has been filled and shown, such as taking the focus.
  virtual void Opened() {}
  /// What OK does.
  virtual void Commit() = 0;
  /// The usual end of Commit: the settings count as changed, the dialog hides, the grid follows.
  void Finish();

  DriveState& state_;
  Settings& settings_;

 private:
  const Form& over_;
};

/// Selects that row where the list has it; otherwise the selection stays.
inline void SelectIfThere(ListBox& list, int row) {
  if (row >= 0 && row < list.Count()) list.SetListIndex(row);
}

}  // namespace kavr6
