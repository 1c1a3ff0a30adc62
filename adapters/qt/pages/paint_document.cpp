#include "adapters/qt/pages/paint_document.h"

#include <QFontMetricsF>
#include <QPageLayout>
#include <QPainter>
#include <algorithm>

#include "adapters/qt/base/text.h"

namespace kavr6 {
namespace {

// In mm. The left margin is the wider one: the sheet may be filed.
constexpr QMarginsF kMargins(22, 24, 15, 20);
constexpr QMarginsF kLeastMargins(8, 16, 8, 16);
// In points.
constexpr int kMarginFont = 8;
constexpr int kGap = 10;
constexpr int kPointsPerInch = 72;
constexpr qreal kMmPerInch = 25.4;

/// The area of the text, in the device's pixels from the corner of the paper.
QRectF TextArea(const QPagedPaintDevice& device) {
  const QPageLayout layout = device.pageLayout();
  const int resolution = device.logicalDpiX();
  const QMarginsF set = layout.margins(QPageLayout::Millimeter);
  const qreal scale = resolution / kMmPerInch;
  const QMarginsF margins(
      std::max(set.left(), kLeastMargins.left()), std::max(set.top(), kLeastMargins.top()),
      std::max(set.right(), kLeastMargins.right()), std::max(set.bottom(), kLeastMargins.bottom()));
  return QRectF(layout.fullRectPixels(resolution)).marginsRemoved(margins * scale);
}

/// Title and file name above the text, the number of the page below it.
void PaintMargins(QPainter& painter, const QRectF& area, const PageMargins& margins, const QString& number) {
  const qreal gap = painter.device()->logicalDpiY() * qreal{kGap} / kPointsPerInch;
  const QFontMetricsF metrics(painter.font(), painter.device());
  const qreal above = area.top() - gap - metrics.descent();
  const QString title = ToQt(margins.title);
  const qreal room = area.width() - metrics.horizontalAdvance(title) - 4 * gap;
  const QString file = metrics.elidedText(ToQt(margins.file + margins.remark), Qt::ElideMiddle, room);
  painter.drawText(QPointF(area.left(), above), title);
  painter.drawText(QPointF(area.right() - metrics.horizontalAdvance(file), above), file);
  painter.drawText(
      QPointF(area.right() - metrics.horizontalAdvance(number), area.bottom() + gap + metrics.ascent()),
      number);
}

}  // namespace

QString LineOf(const std::string& text) {
  QString line = ToQt(text);
  for (QChar& character : line)
    if (!character.isPrint() && !character.isSurrogate()) character = ' ';
  return line;
}

QFont FontOf(const PrintFont& font) {
  return {ToQt(font.name), font.points, font.bold ? QFont::Bold : QFont::Normal};
}

void SetUpPage(QPagedPaintDevice& device, const QPageSize& paper) {
  device.setPageSize(paper);
  device.setPageMargins(kMargins, QPageLayout::Millimeter);
}

bool PaintDocument(QPagedPaintDevice& device, const PrintedDocument& document) {
  QPainter painter;
  if (!painter.begin(&device)) return false;
  const QRectF area = TextArea(device);
  const std::vector<PageTexts> pages = FlowPages(document.lines, area, device);
  QFont marginFont = document.lines.empty() ? painter.font() : document.lines.back().font;
  marginFont.setPointSize(kMarginFont);
  for (std::size_t page = 0; page < pages.size(); ++page) {
    if (page > 0 && !device.newPage()) return false;
    painter.setFont(marginFont);
    PaintMargins(painter, area, document.margins, QString("Page %1 of %2").arg(page + 1).arg(pages.size()));
    for (const PlacedText& placed : pages[page]) {
      painter.setFont(placed.font);
      painter.drawText(placed.baseline, placed.text);
    }
  }
  return painter.end();
}

}  // namespace kavr6
