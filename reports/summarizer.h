// The settings in a few words, in the main screen's grid.
#pragma once

#include <optional>
#include <string>

#include "core/drive_state.h"
#include "core/settings.h"
#include "motor/motor_table.h"
#include "platform/controls.h"
#include "platform/grid.h"

namespace kavr6 {

/// Rows of the section titles in the grid.
enum SummaryRow { kMotorRow = 0, kMotionRow = 4, kRegenRow = 8, kIoRow = 12, kEncoderRow = 20 };

/// The title row of the section that a row belongs to; nothing for a divider.
std::optional<SummaryRow> SectionOf(int row);

/// The connector lines of the sections on the main screen's picture.
struct SummaryLines {
  ConnectorLine& Motor1;
  ConnectorLine& Motor2;
  ConnectorLine& Motion;
  ConnectorLine& Regen1;
  ConnectorLine& Regen2;
  ConnectorLine& IO;
  ConnectorLine& Encoder;
};

/// What the summary is shown on and made from; all of it outlives the summarizer.
struct SummaryParts {
  Grid& grid;
  SummaryLines lines;
  const DriveState& state;
  const Settings& settings;
  const MotorTable& table;
};

/// Fills the grid section by section from the settings and the current motor row. A section that is filled
/// turns its connector lines green; they never turn back.
class Summarizer {
 public:
  explicit Summarizer(const SummaryParts& parts)
      : grid_(parts.grid),
        lines_(parts.lines),
        state_(parts.state),
        settings_(parts.settings),
        table_(parts.table) {}

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

 private:
  void Title(int row, const std::string& text);
  void Values(int row, const std::string& left, const std::string& right);
  void TallRow(int row);
  std::string StallText() const;

  Grid& grid_;
  SummaryLines lines_;
  const DriveState& state_;
  const Settings& settings_;
  const MotorTable& table_;
};

}  // namespace kavr6
