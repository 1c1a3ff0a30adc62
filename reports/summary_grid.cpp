#include "reports/summary_grid.h"

#include <array>
#include <initializer_list>

#include "core/numbers.h"

namespace kavr6 {
namespace {

constexpr int kLastRow = 22;
constexpr int kTallRowTwips = 480;
constexpr int kDividerTwips = 100;
constexpr int kColumnTwips = 1950;

struct ModeWords {
  const char* name;
  Long Settings::*field;
  const char* one;
  const char* two;
};

constexpr std::size_t kMotionOut = 4;
constexpr std::array<ModeWords, 6> kIoWords{{
    {"Fault Out", &Settings::AlarmOutMode, "Close on fault", "Open on fault"},
    {"Alarm In", &Settings::AlarmResetMode, "Close to reset", "Open to reset"},
    {"Limits", &Settings::LimitMode, "Closed at limit", "Open at limit"},
    // Mode 1 enables when open: the reverse of the other rows, and of the printed report.
    {"Enable", &Settings::EnableMode, "Open to enable", "Close to enable"},
    {"Motion Out", &Settings::MotionOutMode, "Open if running", "Close if running"},
    {"Brake Out", &Settings::BrakeMode, "Close to release", "Open to release"},
}};

std::string TachText(Long mode) {
  switch (mode) {
    case 5:
      return "Tach 200 ppr";
    case 6:
      return "Tach 400 ppr";
    case 7:
      return "Tach 800 ppr";
    case 8:
      return "Tach 1600 ppr";
    default:
      return mode >= 4 ? "Tach 100 ppr" : "not used";
  }
}

std::string IoText(std::size_t index, Long mode) {
  if (mode == 1) return kIoWords[index].one;
  if (mode == 2) return kIoWords[index].two;
  return index == kMotionOut ? TachText(mode) : "not used";
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
  const std::string title = "Mode: " + state_.MotionDesc.Get();
  // The label needs two ampersands to show one; the grid shows what it is given.
  Title(row, title == "Mode: Pulse && Direction" ? "Mode: Pulse & Direction" : title);
  Values(row + 1, NumberText(settings_.StepsPerRev), "steps/rev");
  grid_.SetAlignment(row + 2, 1, Grid::Alignment::Left);
  if (settings_.OpMode == kOpVtl || settings_.OpMode == kOpWyProgram) {
    Values(row + 2, "Address", settings_.RS485Addr);
    grid_.SetAlignment(row + 2, 1, Grid::Alignment::Centre);
  } else if (settings_.ControlMode != kControlVelocity) {
    Values(row + 2, "", "");
  } else if (settings_.AnalogVelocity) {
    const bool tenVolts = settings_.AnalogRange == 0 || settings_.AnalogRange == 1;
    Values(row + 2, FormatNumber(settings_.CmdScale, "#0.000"), tenVolts ? "rev/sec @ 10V" : "rev/sec @ 5V");
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
  for (std::size_t i = 0; i < kIoWords.size(); ++i)
    Values(row + 1 + static_cast<int>(i), kIoWords[i].name, IoText(i, settings_.*kIoWords[i].field));
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
