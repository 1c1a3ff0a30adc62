// The I/O dialog.
#pragma once

#include "platform/controls.h"
#include "platform/form.h"

namespace kavr6 {

/// Window "IOdialog".
class IOdialog : public Form {
 public:
  explicit IOdialog(Desktop& desktop) : Form(desktop, "IOdialog") {}

  ListBox ListLimits{*this, "ListLimits"};

  /// The words of the limit input modes 1 to 3; selects the first.
  void FillLimitList();
};

}  // namespace kavr6
