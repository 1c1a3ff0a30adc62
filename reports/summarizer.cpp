#include "reports/summarizer.h"

#include <initializer_list>

#include "core/analog_ranges.h"
#include "core/io_modes.h"
#include "core/numbers.h"

namespace kavr6 {
namespace {

constexpr int kLastRow = 22;
constexpr int kTallRowTwips = 480;
constexpr int kDividerTwips = 100;
constexpr int kColumnTwips = 1950;

std::string IoText(const IoFunction& function, Long mode) {
  if (mode == 1 || mode == 2) return std::string(function.shown[static_cast<std::size_t>(mode - 1)]);
  return function.mode == &Settings::MotionOutMode && mode >= kFirstTach
             ? TachText(mode > kLastTach ? kFirstTach : mode)
             : "not used";
}

void TurnGreen(std::initializer_list<ConnectorLine*> lines) {
  for (ConnectorLine* line : lines) line->SetBorderColor(kGreen);
}

}  // namespace

void Summarizer::Values(int row, const std::string& left, const std::string& right) {
  grid_.SetText(row, 0, left);
  grid_.SetText(row, 1, right);
}

void Summarizer::Title(int row, const std::string& text) {
  Values(row, text, text);
  grid_.SetMergeRow(row, true);
}

void Summarizer::TallRow(int row) { grid_.SetRowHeight(row, kTallRowTwips); }

void Summarizer::RowDivider(int row) {
  Title(row, " ");
  grid_.SetRowHeight(row, kDividerTwips);
  for (int column = 0; column < 2; ++column) grid_.SetPicture(row, column, "DividerGradient");
}

void Summarizer::SummaryInit() {
  grid_.SetMergeColumn(1, true);
  for (int column = 0; column < 2; ++column) grid_.SetColumnWidth(column, kColumnTwips);
  Values(kLastRow, "", "");
  for (const int row : {3, 7, 11, 19}) RowDivider(row);
  Title(kMotorRow, "Motor:");
  Title(kMotionRow, "Motion Mode:");
  Title(kRegenRow, "Regen Resistor:");
  Title(kIoRow, "Dedicated I/O:");
  Title(kEncoderRow, "Encoder:");
  TallRow(kLastRow);
}

void Summarizer::SummarizeAll() {
  SummarizeMotor(kMotorRow);
  SummarizeMotion(kMotionRow);
  SummarizeRegen(kRegenRow);
  SummarizeIO(kIoRow);
  SummarizeEncoder(kEncoderRow);
}

void Summarizer::SummarizeMotor(int row) {
  Title(row, "Motor: " + (settings_.CustomMotor ? settings_.MotorName : table_.Row().PartNoX));
  Values(row + 1, ShownNumber(settings_.RunCurrent), "A/phase");
  Values(row + 2, NumberText(settings_.IdlePercent), "% idle");
  RowDivider(row + 3);
  TurnGreen({&lines_.Motor1, &lines_.Motor2});
}

void Summarizer::SummarizeMotion(int row) {
  const std::string& mode = state_.MotionDesc;
  // The label needs two ampersands to show one; the grid shows what it is given.
  constexpr const PulseKind& kPulses = kPulseKinds[kPulseAndDirection];
  Title(row, "Mode: " + (mode == kPulses.name ? std::string(kPulses.listed) : mode));
  Values(row + 1, NumberText(settings_.StepsPerRev), "steps/rev");
  grid_.SetAlignment(row + 2, 1, Grid::Alignment::Left);
  if (settings_.OpMode == kOpVtl || settings_.OpMode == kOpWyProgram) {
    Values(row + 2, "Address", settings_.RS485Addr);
    grid_.SetAlignment(row + 2, 1, Grid::Alignment::Centre);
  } else if (settings_.ControlMode != kControlVelocity) {
    Values(row + 2, "", "");
  } else if (settings_.AnalogVelocity) {
    Values(row + 2, FormatNumber(settings_.CmdScale, "#0.000"),
           "rev/sec @ " + std::string(AnalogRangeOf(settings_.AnalogRange).top));
  } else {
    Values(row + 2, FormatNumber(settings_.Speed, "#0.000"), "rev/sec");
  }
  RowDivider(row + 3);
  TurnGreen({&lines_.Motion});
  if (lines_.Encoder.BorderColor() == kGreen) SummarizeEncoder(kEncoderRow);
}

void Summarizer::SummarizeRegen(int row) {
  Title(row, settings_.RegenExternal ? "Regen resistor (external)" : "Regen resistor (internal)");
  Values(row + 1, NumberText(settings_.RegenOhms), "Ohms");
  Values(row + 2, NumberText(settings_.RegenWatts), "Watts");
  RowDivider(row + 3);
  TurnGreen({&lines_.Regen1, &lines_.Regen2});
}

void Summarizer::SummarizeIO(int row) {
  Title(row, "Dedicated I/O:");
  int next = row + 1;
  for (const IoFunction& function : kIoFunctions)
    Values(next++, std::string(function.name), IoText(function, settings_.*function.mode));
  RowDivider(row + 7);
  TurnGreen({&lines_.IO});
}

std::string Summarizer::StallText() const {
  if (settings_.StallDetect) return "Fault drive if motor stalls";
  if (settings_.OpMode == kOpPulseOrVelocity && settings_.ControlMode == kControlPulse) return {};
  return "Prevent stalls by limiting torque demand to " + NumberText(settings_.MaxTorquePct) + "%";
}

void Summarizer::SummarizeEncoder(int row) {
  if (settings_.StallDetect || settings_.StallPrevent) {
    Title(row, "Encoder:");
    Values(row + 1, NumberText(settings_.EncoderCounts), "Counts/rev");
    Title(row + 2, StallText());
  } else {
    Title(row, "Encoder: not used");
    Values(row + 1, "", "");
    Title(row + 2, "");
  }
  TallRow(row + 2);
  TurnGreen({&lines_.Encoder});
}

std::optional<SummaryRow> SectionOf(int row) {
  if (row <= 2) return kMotorRow;
  if (row >= 4 && row <= 6) return kMotionRow;
  if (row >= 8 && row <= 10) return kRegenRow;
  if (row >= 12 && row <= 18) return kIoRow;
  if (row >= 20) return kEncoderRow;
  return std::nullopt;
}

}  // namespace kavr6
