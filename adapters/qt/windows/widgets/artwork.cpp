#include "adapters/qt/windows/widgets/artwork.h"

#include <QFile>
#include <QHash>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <QXmlStreamReader>

// The macro works only outside of namespaces.
static bool LoadArtwork() {
  Q_INIT_RESOURCE(artwork);
  return true;
}

namespace kavr6::widgets {
namespace {

// A linker drops a library's resources unless something asks for them.
[[maybe_unused]] const bool kLoaded = LoadArtwork();

QString PathOf(const QString& name) { return ":/artwork/" + name + ".svg"; }

QByteArray SourceOf(const QString& path, const QColor& ink) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return {};
  return file.readAll().replace("currentColor", ink.name().toLatin1());
}

}  // namespace

bool HasArtwork(const QString& name) { return !name.isEmpty() && QFile::exists(PathOf(name)); }

QSize ArtworkSize(const QString& name) {
  return HasArtwork(name) ? SvgSize(PathOf(name)).toSize() : QSize(1, 1);
}

QPixmap ArtworkPixmap(const QString& name, const QSize& size, qreal devicePixelRatio, const QColor& ink) {
  if (!HasArtwork(name)) return {};
  return SvgPixmap(PathOf(name), size, devicePixelRatio, ink);
}

QSizeF SvgSize(const QString& path) {
  static QHash<QString, QSizeF> known;
  if (const auto found = known.constFind(path); found != known.constEnd()) return *found;
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return {};
  // The head alone tells it; to read the whole drawing takes as long as to draw it.
  QXmlStreamReader head(&file);
  if (!head.readNextStartElement() || head.name() != QLatin1String("svg")) return {};
  const auto length = [&head](const char* name) {
    return head.attributes().value(QLatin1String(name)).toDouble();
  };
  QSizeF size(length("width"), length("height"));
  if (size.isEmpty()) size = QSvgRenderer(path).defaultSize();  // told by what it shows
  return *known.insert(path, size);
}

QPixmap SvgPixmap(const QString& path, const QSize& size, qreal devicePixelRatio, const QColor& ink) {
  if (size.isEmpty()) return {};
  const QString key = QString("art/%1/%2x%3@%4/%5")
                          .arg(path)
                          .arg(size.width())
                          .arg(size.height())
                          .arg(devicePixelRatio)
                          .arg(ink.name());
  QPixmap pixmap;
  if (QPixmapCache::find(key, &pixmap)) return pixmap;
  QSvgRenderer renderer(SourceOf(path, ink));
  if (!renderer.isValid()) return {};
  pixmap = QPixmap((QSizeF(size) * devicePixelRatio).toSize());
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  renderer.render(&painter, QRectF(pixmap.rect()));
  painter.end();
  pixmap.setDevicePixelRatio(devicePixelRatio);
  QPixmapCache::insert(key, pixmap);
  return pixmap;
}

QRect FittedRect(const QSize& natural, const QRect& box) {
  QRect rect(QPoint(), natural.scaled(box.size(), Qt::KeepAspectRatio));
  rect.moveCenter(box.center());
  return rect;
}

void PaintArtwork(QPainter& painter, const QString& name, const QRect& box, const QColor& ink) {
  const QRect rect = FittedRect(ArtworkSize(name), box);
  const QPixmap pixmap = ArtworkPixmap(name, rect.size(), painter.device()->devicePixelRatioF(), ink);
  if (!pixmap.isNull()) painter.drawPixmap(rect.topLeft(), pixmap);
}

QColor Mixed(const QColor& ground, const QColor& tint, double share) {
  const auto part = [share](float a, float b) { return a + (b - a) * static_cast<float>(share); };
  return QColor::fromRgbF(part(ground.redF(), tint.redF()), part(ground.greenF(), tint.greenF()),
                          part(ground.blueF(), tint.blueF()));
}

}  // namespace kavr6::widgets
