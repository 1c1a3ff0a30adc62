#include "adapters/qt/windows/widgets/picture_button.h"

#include <QEvent>
#include <QPen>
#include <QStyleOptionButton>
#include <QStylePainter>

#include "adapters/qt/windows/style/colours.h"
#include "adapters/qt/windows/widgets/artwork.h"

namespace kavr6::widgets {
namespace {

constexpr int kPadding = 10;
constexpr int kLettersOfLine = 55;  // of what stands below the caption

}  // namespace

PictureButton::PictureButton(QWidget* parent) : MarkButton(parent) {
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void PictureButton::setPicture(const QString& name) {
  picture_ = name;
  update();
}

QSize PictureButton::sizeHint() const {
  QFont plain = font();  // the marked one, which is bold, is no wider
  plain.setBold(false);
  const int words = QFontMetrics(plain).averageCharWidth() * kLettersOfLine;
  return {PictureHeight() + words + 3 * kPadding, 3 * fontMetrics().lineSpacing() + 2 * kPadding};
}

// The tip stands on the button already.
bool PictureButton::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip) return true;
  if (event->type() == QEvent::ToolTipChange) update();
  return MarkButton::event(event);
}

void PictureButton::PaintMark(QPainter& painter, const QRect& line) const {
  const int side = fontMetrics().ascent();
  const QRect words = painter.boundingRect(line, Qt::AlignRight | Qt::AlignVCenter, mark());
  painter.drawText(words, Qt::AlignRight | Qt::AlignVCenter, mark());
  const QRectF tick(words.left() - 1.4 * side, words.center().y() - side / 2.0, side, side);
  painter.setPen(QPen(palette().color(QPalette::ButtonText), side / 5.0, Qt::SolidLine, Qt::RoundCap));
  painter.drawPolyline(QPolygonF{tick.topLeft() + QPointF(0.1, 0.55) * side,
                                 tick.topLeft() + QPointF(0.4, 0.85) * side,
                                 tick.topLeft() + QPointF(0.95, 0.15) * side});
}

void PictureButton::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  QStyleOptionButton option;
  initStyleOption(&option);
  option.text.clear();
  painter.drawControl(QStyle::CE_PushButton, option);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRect inside = rect().adjusted(kPadding, kPadding, -kPadding, -kPadding);
  const QRect box(inside.topLeft(), QSize(PictureHeight(), inside.height()));
  if (!isEnabled()) painter.setOpacity(0.35);
  PaintArtwork(painter, picture_, box, palette().color(QPalette::ButtonText));
  painter.setOpacity(1);
  const QRect words = inside.adjusted(box.width() + kPadding, 0, 0, 0);
  const QRect caption(words.topLeft(), QSize(words.width(), fontMetrics().lineSpacing()));
  painter.drawItemText(caption, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic, palette(),
                       isEnabled(), text(), QPalette::ButtonText);
  // It says why a button is greyed: readable there as well.
  const QPalette all = palette();
  painter.setPen(style::NoteInk(all.color(QPalette::Active, QPalette::ButtonText),
                                all.color(QPalette::Active, QPalette::Button)));
  QFont plain = font();
  plain.setBold(false);
  painter.setFont(plain);
  painter.drawText(words.adjusted(0, caption.height(), 0, 0), Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap,
                   whatsThis());
  painter.setPen(palette().color(QPalette::ButtonText));
  if (!mark().isEmpty()) PaintMark(painter, caption);
}

}  // namespace kavr6::widgets
