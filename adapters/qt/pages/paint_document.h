// A document on the pages of a printer or a PDF file.
#pragma once

#include <QFont>
#include <QPagedPaintDevice>
#include <QString>
#include <string>
#include <vector>

#include "adapters/qt/pages/page_flow.h"
#include "platform/print_job.h"

namespace kavr6 {

struct PrintedDocument {
  PageMargins margins;
  std::vector<PrintedLine> lines;
};

/// A text of the document as one line, and its font.
QString LineOf(const std::string& text);
QFont FontOf(const PrintFont& font);

/// Text runs within the margins of the device; title, file name and page number stand in them, so that they
/// are kept from getting narrower than that takes. The device is one whose pages are painted to the paper's
/// edge.
void SetUpPage(QPagedPaintDevice& device, const QPageSize& paper);
/// False where the device fails; a printer may tell that later.
bool PaintDocument(QPagedPaintDevice& device, const PrintedDocument& document);

}  // namespace kavr6
