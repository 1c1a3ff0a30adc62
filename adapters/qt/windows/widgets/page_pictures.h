// The pictures of a page.
#pragma once

#include <QColor>
#include <QObject>
#include <QTextBrowser>
#include <QTextObjectInterface>
#include <QUrl>

namespace kavr6::widgets {

/// Draws the pictures of a browser's pages: SVG files, sharp at every scale, in the ink of the palette, and
/// no wider than the page. In place of one that is missing stands what it would show.
class PagePictures : public QObject, public QTextObjectInterface {
  Q_OBJECT
  Q_INTERFACES(QTextObjectInterface)

 public:
  explicit PagePictures(QTextBrowser& browser);
  /// The page on which the pictures stand, before it is loaded.
  void setPage(const QUrl& url) { page_ = url; }
  /// 1: as wide as the page tells. Takes effect with the next layout.
  void setZoom(double zoom) { zoom_ = zoom; }

  QSizeF intrinsicSize(QTextDocument* document, int position, const QTextFormat& format) override;
  void drawObject(QPainter* painter, const QRectF& rect, QTextDocument* document, int position,
                  const QTextFormat& format) override;

 private:
  QString fileOf(const QTextFormat& format) const;

  QTextBrowser& browser_;
  QUrl page_;
  double zoom_ = 1.0;
};

}  // namespace kavr6::widgets
