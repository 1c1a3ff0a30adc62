// A document on a printer's pages.
#pragma once

#include <QPrinter>
#include <vector>

#include "adapters/qt/print/page_flow.h"
#include "platform/print_job.h"

namespace kavr6 {

struct PrintedDocument {
  PageMargins margins;
  std::vector<PrintedLine> lines;
};

/// Text runs within the printer's margins; title, file name and page number stand in them, so that they are
/// kept from getting narrower than that takes.
void SetUpPage(QPrinter& printer, const QPageSize& paper);
/// False where the printer fails.
bool PaintDocument(QPrinter& printer, const PrintedDocument& document);

}  // namespace kavr6
