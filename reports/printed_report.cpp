#include "reports/printed_report.h"

#include "platform/path_text.h"

namespace kavr6 {
namespace {

constexpr int kFlags = kPrintNoSelection | kPrintNoPageRange | kPrintNoFile;

std::string NameInHead(const DriveState& state) {
  const std::string name = FileNameOf(state.TitleName.Get());
  return name.empty() ? "untitled" : name;
}

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
  const std::string remark = p_.source.state.Modified ? " (changed)" : "";
  TryToPrint([&] {
    p_.job.SetMargins({.title = kReportTitle, .file = NameInHead(p_.source.state), .remark = remark});
  });
}

}  // namespace kavr6
