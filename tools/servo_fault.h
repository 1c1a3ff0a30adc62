// What opens when the drive tells of a serious alarm.
#pragma once

#include "link/drive_line.h"
#include "platform/control_array.h"
#include "platform/controls.h"
#include "platform/form.h"

namespace kavr6 {

/// Window "ServoFault". Its lamps keep their state while it is closed.
class ServoFault : public Form {
 public:
  static constexpr int kBits = 14;  ///< as many as an alarm message carries

  ServoFault(Desktop& desktop, const DriveLine& line);

  ControlArray<Lamp> RedSquare{*this, "RedSquare", kBits};
  Lamp Sample{*this, ElementName("RedSquare", 128)};
  ControlArray<Label> Label1{*this, "Label1", kBits};
  Label Label2{*this, "Label2", "A drive fault has occurred.  Alarm codes are displayed below:"};
  Label Label3{*this, "Label3", "Indicates an alarm."};
  Button ClearHistory{*this, "ClearHistory", "Clear Fault"};
  Button OK{*this, "OK", "Close", Button::Role::Cancel};

  /// An alarm has come, at any moment and whatever stands on the screen. A serious one lights the lamps and
  /// opens the window above all else; it returns when the window is closed. While the window is in front,
  /// also behind a box, only the lamps change.
  void ServoError152(int alarm);
  void ShowRedBoxes(int alarm);
  void ClearRedBoxes() { ShowRedBoxes(0); }

 private:
  void ClearFaultClick();

  DriveLine line_;
};

}  // namespace kavr6
