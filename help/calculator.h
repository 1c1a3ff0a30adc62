// The shortest distance of a move that is to end at a sensor.
#pragma once

#include "platform/controls.h"
#include "platform/form.h"

namespace kavr6 {

/// Window "Calculator".
class Calculator : public Form {
 public:
  explicit Calculator(Desktop& desktop);

  TextBox VE{*this, "VE"};  ///< rev/sec
  TextBox DE{*this, "DE"};  ///< rev/s/s
  ListBox MR{*this, "MR"};  ///< steps/rev
  Label DI{*this, "DI"};    ///< steps
  Button Quit{*this, "Quit", "Close", Button::Role::Cancel};

  /// Shows the distance for what stands in the fields, at least one step, or "N/A" where there is none.
  void DoCalc();

 protected:
  void Load() override { DoCalc(); }
};

}  // namespace kavr6
