// The alarms that the drive has kept.
#pragma once

#include <optional>

#include "core/alarms.h"
#include "link/drive_line.h"
#include "platform/control_array.h"
#include "platform/controls.h"
#include "platform/form.h"

namespace kavr6 {

/// The drive's last alarm words: two bytes a word, the high one first, the most recent word first. At least
/// 16 bytes; none without an answer in time, which a box has told by then.
std::optional<Bytes> GetAlarmHistory(const DriveLine& line);

/// Window "AlarmHistory".
class AlarmHistory : public Form {
 public:
  static constexpr int kCodes = 8;
  static constexpr int kAlarmsInACode = static_cast<int>(kAlarms.size());
  static constexpr int kSample = kCodes * kAlarmsInACode;

  AlarmHistory(Desktop& desktop, const DriveLine& line);

  /// A column for each code and in it a lamp for each bit, column by column; behind them kSample.
  ControlArray<Lamp> RedSquare{*this, "RedSquare", kSample + 1};
  ControlArray<Label> Label1{*this, "Label1", kAlarmsInACode};
  ControlArray<Label> AlarmNum{*this, "AlarmNum", kCodes};
  Label Label2{*this, "Label2", "Code 1 is the most recent."};
  Label Label3{*this, "Label3", "indicates an alarm."};
  Button ClearHistory{*this, "ClearHistory", "Clear History"};
  Button OK{*this, "OK", "Close", Button::Role::Cancel};

  /// Reads the words and, when they have come, shows them until the window is closed.
  void Run();
  /// Paints the grid, shown or not. Bytes beyond the last word are not looked at.
  void DispAlarmHistory(const Bytes& data);

 private:
  void ClearHistoryClick();

  DriveLine line_;
};

}  // namespace kavr6
