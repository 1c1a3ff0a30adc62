// What the two lists of the drive's text commands share.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/control_array.h"
#include "platform/controls.h"
#include "platform/form.h"

namespace kavr6 {

struct CommandRow {
  std::string_view cmd;
  std::string_view desc;  ///< a doubled ampersand stands for one
};

/// A window with a row of labels for each command.
class CommandList : public Form {
 public:
  ControlArray<Label> cmd;
  ControlArray<Label> desc;
  /// The cancel button as well, so that Esc closes the window.
  Button OK{*this, "OK", "OK", Button::Role::Cancel};

 protected:
  CommandList(Desktop& desktop, const std::string& name, std::span<const CommandRow> rows);
  /// The button shows the window beside this one; again, where it stands open already.
  void Opens(Button& button, Form& window);
};

}  // namespace kavr6
