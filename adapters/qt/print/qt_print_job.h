// Printing by means of the toolkit.
#pragma once

#include <QPrinter>
#include <QWidget>
#include <functional>
#include <memory>
#include <string>

#include "adapters/qt/pages/paint_document.h"

namespace kavr6 {

/// Prints to the machine's printers, and to PDF files. Needs a QApplication. The machine is asked for its
/// printers when the first one is needed; what the user chooses is proposed the next time.
class QtPrintJob : public PrintJob {
 public:
  /// `parent` tells what the dialogs stand above; null for nothing. `help` is called when F1 is pressed in
  /// one of them.
  QtPrintJob(std::function<QWidget*()> parent, std::function<void()> help)
      : parent_(std::move(parent)), help_(std::move(help)) {}

  void SetMargins(const PageMargins& margins) override { document_.margins = margins; }
  bool AskForPrinter(int flags) override;
  void SetFont(const PrintFont& font) override { font_ = FontOf(font); }
  void PrintLine(int column, const std::string& text) override {
    document_.lines.push_back({column, LineOf(text), font_});
  }
  void BlankLine() override { document_.lines.push_back({0, {}, font_}); }
  /// RuntimeError where nothing can be printed.
  void EndDoc() override;
  void ShowPreview(int flags) override;

 private:
  QPrinter& Printer();
  bool Ask(int flags, QWidget* parent);
  void NameDocument(QPrinter& printer) const;

  std::function<QWidget*()> parent_;
  std::function<void()> help_;
  std::unique_ptr<QPrinter> printer_;
  PrintedDocument document_;
  QFont font_;
};

}  // namespace kavr6
