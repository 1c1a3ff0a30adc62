#include "adapters/qt/print/qt_print_job.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QPrintDialog>
#include <utility>

#include "adapters/qt/base/text.h"
#include "adapters/qt/pages/paper.h"
#include "adapters/qt/print/preview_window.h"
#include "adapters/qt/windows/help_key.h"
#include "platform/runtime_error.h"

namespace kavr6 {
namespace {

constexpr int kPrinterError = 482;

#ifdef Q_OS_WIN
/// Without any printer the system has no print dialog; elsewhere the toolkit's own proposes a file then.
bool AskForFile(QPrinter& printer, QWidget* parent, const std::function<void()>& help) {
  const QString before = printer.outputFileName();
  QFileDialog window(parent, "Print to File", QDir::homePath(), "PDF files (*.pdf)");
  const HelpKey key(window, help);
  window.setOption(QFileDialog::DontUseNativeDialog);
  window.setAcceptMode(QFileDialog::AcceptSave);
  window.setDefaultSuffix("pdf");
  window.selectFile(before.isEmpty() ? printer.docName() + ".pdf" : before);
  if (window.exec() != QDialog::Accepted) return false;
  printer.setOutputFileName(window.selectedFiles().value(0));
  return true;
}
#endif

}  // namespace

QPrinter& QtPrintJob::Printer() {
  if (printer_ == nullptr) {
    printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
    printer_->setFullPage(true);
    SetUpPage(*printer_, SystemPaper());
  }
  return *printer_;
}

/// The dialog proposes a file by the document's name. One that was printed to stays where it is: the next
/// document goes beside it.
void QtPrintJob::NameDocument(QPrinter& printer) const {
  printer.setDocName(QFileInfo(ToQt(document_.margins.file)).completeBaseName());
  const QFileInfo before(printer.outputFileName());
  if (!before.fileName().isEmpty())
    printer.setOutputFileName(before.path() + "/" + printer.docName() + ".pdf");
}

bool QtPrintJob::AskForPrinter(int flags) { return Ask(flags, parent_()); }

bool QtPrintJob::Ask(int flags, QWidget* parent) {
  NameDocument(Printer());
#ifdef Q_OS_WIN
  if (Printer().outputFormat() == QPrinter::PdfFormat) return AskForFile(Printer(), parent, help_);
#endif
  QPrintDialog window(&Printer(), parent);
  const HelpKey key(window, help_);
  window.setOption(QAbstractPrintDialog::PrintPageRange, (flags & kPrintNoPageRange) == 0);
  window.setOption(QAbstractPrintDialog::PrintSelection, (flags & kPrintNoSelection) == 0);
  return window.exec() == QDialog::Accepted;
}

void QtPrintJob::EndDoc() {
  const PrintedDocument document = std::exchange(document_, {});
  if (!PaintDocument(Printer(), document) || Printer().printerState() == QPrinter::Error)
    throw RuntimeError(kPrinterError, "Printer error");
}

void QtPrintJob::ShowPreview(int flags) {
  const PrintedDocument document = document_;
  PreviewWindow window(
      Printer(), [&document](QPrinter* printer) { PaintDocument(*printer, document); },
      [&] {
        if (!Ask(flags, &window)) return false;
        PaintDocument(Printer(), document);
        return true;
      },
      parent_());
  const HelpKey key(window, help_);
  window.exec();
  document_ = {};
}

}  // namespace kavr6
