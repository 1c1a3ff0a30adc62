#include "adapters/qt/windows/widgets/status_text.h"

#include <QHelpEvent>
#include <QPainter>
#include <QRegularExpression>
#include <QStyle>
#include <QToolTip>

namespace kavr6::widgets {

// From the longest to the shortest.
QStringList StatusText::Wordings() const {
  const QString dots = QStringLiteral("\u2026");
  const QRegularExpression stroke(R"([/\\])");
  QStringList wordings{text()};
  QStringList parts = text().split(", ");
  while (parts.size() > 1) {
    const QString last = parts.takeLast();
    const QString kept = parts.join(", ");
    for (qsizetype cut = last.indexOf(stroke, 1); cut > 0; cut = last.indexOf(stroke, cut + 1))
      wordings << kept + ", " + dots + last.mid(cut);
    wordings << kept + " " + dots;
  }
  return wordings;
}

QString StatusText::Fitting(int width) const {
  const QStringList wordings = Wordings();
  for (const QString& words : wordings)
    if (fontMetrics().horizontalAdvance(words) < width) return words;
  return wordings.last();
}

int StatusText::FittingWidth(int width) const { return fontMetrics().horizontalAdvance(Fitting(width)) + 1; }

QSize StatusText::sizeHint() const {
  return {fontMetrics().horizontalAdvance(text()) + 1, QLabel::sizeHint().height()};
}

QSize StatusText::minimumSizeHint() const {
  return {fontMetrics().horizontalAdvance(Wordings().last()) + 1, QLabel::minimumSizeHint().height()};
}

void StatusText::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  style()->drawItemText(&painter, contentsRect(), static_cast<int>(alignment()), palette(), isEnabled(),
                        Fitting(width()), foregroundRole());
}

bool StatusText::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip || Fitting(width()) == text()) return QLabel::event(event);
  QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text(), this);
  return true;
}

}  // namespace kavr6::widgets
