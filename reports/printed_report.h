// The settings as a report on paper.
#pragma once

#include "core/drive_state.h"
#include "core/settings.h"
#include "motor/motor_table.h"
#include "platform/desktop.h"
#include "platform/print_job.h"

namespace kavr6 {

/// What the report is made from and printed with; all of it outlives the report.
struct PrintedReportParts {
  Desktop& desk;
  PrintJob& job;
  FileDialogState& dialog;
  const DriveState& state;
  const Settings& settings;
  const MotorTable& table;
};

/// The print commands of the main screen. They tell no error: a line that fails is left out, and whatever
/// failed, the next step is tried.
class PrintedReport {
 public:
  explicit PrintedReport(const PrintedReportParts& parts);

  /// Asks for a printer and prints the report; nothing when the user gives up.
  void MenuPrint();
  /// Shows what MenuPrint would print.
  void MenuPreview();

 private:
  void SetMargins();
  void PrintDocument();
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

  PrintedReportParts p_;
  const Settings& s_;
};

}  // namespace kavr6
