#include "adapters/qt/windows/widgets/page_pictures.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QTextDocument>
#include <QTextFormat>
#include <algorithm>

#include "adapters/qt/windows/widgets/artwork.h"

namespace kavr6::widgets {
namespace {

constexpr double kIndent = 40;  // of a list around the picture, at most

QString MissingText(const QTextFormat& format) {
  const QString alt = format.stringProperty(QTextFormat::ImageAltText);
  const QString name = format.toImageFormat().name();
  return "[Picture missing: " + (alt.isEmpty() ? name : alt) + "]";
}

}  // namespace

PagePictures::PagePictures(QTextBrowser& browser) : QObject(&browser), browser_(browser) {
  browser.document()->documentLayout()->registerHandler(QTextFormat::ImageObject, this);
}

QString PagePictures::fileOf(const QTextFormat& format) const {
  return page_.resolved(QUrl(format.toImageFormat().name())).toLocalFile();
}

QSizeF PagePictures::intrinsicSize(QTextDocument* document, int /*position*/, const QTextFormat& format) {
  const QSizeF natural = SvgSize(fileOf(format));
  if (natural.isEmpty()) return QFontMetricsF(document->defaultFont()).size(0, MissingText(format));
  const double told = format.toImageFormat().width();
  const double wanted = (told > 0 ? told : natural.width()) * zoom_;
  const double room = document->textWidth() - 2 * document->documentMargin() - kIndent;
  const double width = document->textWidth() > 0 ? std::min(wanted, std::max(room, kIndent)) : wanted;
  return natural * (width / natural.width());
}

void PagePictures::drawObject(QPainter* painter, const QRectF& rect, QTextDocument* document,
                              int /*position*/, const QTextFormat& format) {
  const QColor ink = browser_.palette().color(QPalette::Text);
  const double ratio = painter->device()->devicePixelRatioF();
  const QPixmap pixmap = SvgPixmap(fileOf(format), rect.size().toSize(), ratio, ink);
  if (pixmap.isNull()) {
    painter->setFont(document->defaultFont());
    painter->setPen(ink);
    painter->drawText(rect, 0, MissingText(format));
    return;
  }
  // Between two pixels of the screen it would come out blurred.
  const auto sharp = [ratio](double place) { return qRound(place * ratio) / ratio; };
  painter->drawPixmap(QPointF(sharp(rect.x()), sharp(rect.y())), pixmap);
}

}  // namespace kavr6::widgets
