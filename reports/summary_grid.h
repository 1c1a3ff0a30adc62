// The settings in a few words, in the main screen's grid.
#pragma once

#include <string>

#include "core/main_screen.h"
#include "core/settings.h"
#include "motor/motor_table.h"

namespace kavr6 {

/// Rows of the section titles in the grid.
enum SummaryRow { kMotorRow = 0, kMotionRow = 4, kRegenRow = 8, kIoRow = 12, kEncoderRow = 20 };

/// Fills the grid section by section from the settings and the current motor row. A section that is filled
/// turns its connector lines green; they never turn back.
class SummaryGrid {
 public:
  SummaryGrid(MainScreen& screen, const Settings& settings, const MotorTable& table)
      : screen_(screen), settings_(settings), table_(table) {}

  /// The empty grid with its placeholder titles.
  void SummaryInit();
  void SummarizeAll();
  /// Each takes the row of its title.
  void SummarizeMotor(int row);
  /// Also refreshes the encoder section, once that has been filled: its stall text depends on the mode.
  void SummarizeMotion(int row);
  void SummarizeRegen(int row);
  void SummarizeIO(int row);
  void SummarizeEncoder(int row);
  void RowDivider(int row);

  /// The button that edits the section of this row; null for a divider.
  ClickableControl* ButtonOf(int row) const;

 private:
  void Title(int row, const std::string& text);
  void Values(int row, const std::string& left, const std::string& right);
  void TallRow(int row);
  std::string StallText() const;

  MainScreen& screen_;
  const Settings& settings_;
  const MotorTable& table_;
};

}  // namespace kavr6
