#include "adapters/qt/windows/widgets/table_ground.h"

#include <QGridLayout>
#include <QPainter>

#include "adapters/qt/windows/widgets/artwork.h"

namespace kavr6::widgets {

// Names keep clear of the frame around the column beside them.
void TableGround::showEvent(QShowEvent* event) {
  if (const auto* const grid = qobject_cast<QGridLayout*>(layout()))
    for (int row = 1; row < grid->rowCount(); ++row)
      if (QLayoutItem* const name = grid->itemAtPosition(row, 0);
          name != nullptr && name->widget() != nullptr)
        name->widget()->setContentsMargins(0, 0, fontMetrics().averageCharWidth(), 0);
  QWidget::showEvent(event);
}

void TableGround::paintEvent(QPaintEvent*) {
  const auto* const grid = qobject_cast<QGridLayout*>(layout());
  if (grid == nullptr) return;
  QPainter painter(this);
  const QColor ground = palette().color(QPalette::Window);
  const QColor ink = palette().color(QPalette::WindowText);
  for (int row = 1; row < grid->rowCount(); row += 2) {
    const QRect cell = grid->cellRect(row, 0);
    painter.fillRect(0, cell.top(), width(), cell.height(), Mixed(ground, ink, 0.07));
  }
  if (markedColumn_ < 0) return;
  const QRect top = grid->cellRect(0, markedColumn_);
  const QRect bottom = grid->cellRect(grid->rowCount() - 1, markedColumn_);
  const QColor mark = palette().color(QPalette::Highlight);
  painter.fillRect(top, Mixed(ground, mark, 0.35));
  painter.setPen(QPen(mark, 2.0));
  painter.drawRect(QRectF(top.united(bottom)).adjusted(1, 1, -1, -1));
}

}  // namespace kavr6::widgets
