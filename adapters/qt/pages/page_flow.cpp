#include "adapters/qt/pages/page_flow.h"

#include <QFontMetricsF>
#include <QStringList>
#include <QTextLayout>
#include <algorithm>

namespace kavr6 {
namespace {

// However narrow the area, so much of a line stands side by side.
constexpr int kLeastCharacters = 10;

QStringList Wrapped(const PrintedLine& line, qreal width, QPaintDevice& device) {
  QTextLayout layout(line.text, line.font, &device);
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  layout.setTextOption(option);
  layout.beginLayout();
  QStringList pieces;
  for (QTextLine piece = layout.createLine(); piece.isValid(); piece = layout.createLine()) {
    piece.setLineWidth(width);
    pieces << line.text.mid(piece.textStart(), piece.textLength());
  }
  layout.endLayout();
  return pieces;
}

qreal CharacterWidth(QFont font, QPaintDevice& device) {
  font.setBold(false);
  return QFontMetricsF(font, &device).averageCharWidth();
}

}  // namespace

std::vector<PageTexts> FlowPages(const std::vector<PrintedLine>& lines, const QRectF& area,
                                 QPaintDevice& device) {
  std::vector<PageTexts> pages(1);
  qreal y = area.top();
  for (const PrintedLine& line : lines) {
    const QFontMetricsF metrics(line.font, &device);
    const qreal character = CharacterWidth(line.font, device);
    const qreal x = area.left() + line.column * character;
    for (const QString& piece :
         Wrapped(line, std::max(area.right() - x, kLeastCharacters * character), device)) {
      if (y + metrics.height() > area.bottom() && y > area.top()) {
        pages.emplace_back();
        y = area.top();
      }
      if (!piece.isEmpty()) pages.back().push_back({{x, y + metrics.ascent()}, piece, line.font});
      y += std::max(metrics.lineSpacing(), metrics.height());
    }
  }
  return pages;
}

}  // namespace kavr6
