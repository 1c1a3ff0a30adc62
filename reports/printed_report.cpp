#include "reports/printed_report.h"

namespace kavr6 {
namespace {

constexpr int kFlags = kPrintNoSelection | kPrintNoPageRange | kPrintNoFile;

}  // namespace

void PrintedReport::MenuPrint() {
  p_.dialog.CancelError = true;
  p_.dialog.Flags = kFlags;
  SetMargins();
  bool chosen = false;
  TryToPrint([&] { chosen = p_.desk.RunDialog([this] { return p_.job.AskForPrinter(p_.dialog.Flags); }); });
  if (!chosen) return;
  ReportLines(p_.source, p_.job).Print();
  TryToPrint([this] { p_.job.EndDoc(); });
}

void PrintedReport::MenuPreview() {
  SetMargins();
  ReportLines(p_.source, p_.job).Print();
  TryToPrint([this] {
    p_.desk.RunDialog([this] {
      p_.job.ShowPreview(kFlags);
      return true;
    });
  });
}

void PrintedReport::SetMargins() {
  TryToPrint([this] { p_.job.SetMargins(ReportMargins(p_.source.state)); });
}

}  // namespace kavr6
