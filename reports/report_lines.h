// The lines of the report.
#pragma once

#include "core/drive_state.h"
#include "core/settings.h"
#include "motor/motor_table.h"
#include "platform/print_job.h"
#include "platform/runtime_error.h"

namespace kavr6 {

inline constexpr const char* kReportTitle = "KAVR6 Configurator Setup";

/// What the report is made from; all of it outlives the report.
struct ReportSource {
  const DriveState& state;
  const Settings& settings;
  const MotorTable& table;
};

/// What stands in the margins of its pages.
PageMargins ReportMargins(const DriveState& state);

/// Runs a step of printing, which never tells an error.
template <class Step>
void TryToPrint(const Step& step) {
  try {
    step();
  } catch (const RuntimeError&) {
    // The document lacks what failed.
  }
}

/// Writes the report, line by line. It tells no error: a line that fails is left out, and whatever failed,
/// the next step is tried.
class ReportLines {
 public:
  ReportLines(const ReportSource& source, PrintJob& job);

  /// All but the end of the document.
  void Print();

 private:
  void PrintData();
  void PrintMode();
  void PrintAddress();
  void PrintPulses();
  void PrintVelocity();
  void PrintAnalogInput();
  void PrintStepsPerRev();
  void PrintStall();
  void PrintEncoder();
  void PrintIo();
  void PrintFilters();
  void PrintMotor();
  void PrintLoad();
  void Dashes();

  /// A line of texts as they are and of numbers in print form.
  template <class... Items>
  void Line(int column, const Items&... items);

  const DriveState& state_;
  const Settings& s_;
  const MotorTable& table_;
  PrintJob& job_;
};

}  // namespace kavr6
