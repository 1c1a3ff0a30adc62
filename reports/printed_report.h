// The settings as a report on paper.
#pragma once

#include "platform/desktop.h"
#include "reports/report_lines.h"

namespace kavr6 {

/// What the report is made from and printed with; all of it outlives the report.
struct PrintedReportParts {
  Desktop& desk;
  PrintJob& job;
  FileDialogState& dialog;
  ReportSource source;
};

/// The print commands of the main screen. They tell no error: whatever failed, the next step is tried.
class PrintedReport {
 public:
  explicit PrintedReport(const PrintedReportParts& parts) : p_(parts) {}

  /// Asks for a printer and prints the report; nothing when the user gives up.
  void MenuPrint();
  /// Shows what MenuPrint would print.
  void MenuPreview();

 private:
  void SetMargins();

  PrintedReportParts p_;
};

}  // namespace kavr6
