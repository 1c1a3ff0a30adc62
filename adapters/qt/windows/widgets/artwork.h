// The pictures that are compiled into the program.
#pragma once

#include <QColor>
#include <QPixmap>
#include <QSize>
#include <QString>

class QPainter;
class QRect;

namespace kavr6::widgets {

bool HasArtwork(const QString& name);
/// Natural size of a picture, 1 by 1 when there is none of that name.
QSize ArtworkSize(const QString& name);
/// The picture filled into `size` (logical pixels), sharp at the ratio given; empty when there is none of
/// that name. Parts of a picture that are drawn in "currentColor" come out in `ink`.
QPixmap ArtworkPixmap(const QString& name, const QSize& size, qreal devicePixelRatio, const QColor& ink);
/// The same for an SVG file: its natural size, empty when it cannot be read, and its picture.
QSizeF SvgSize(const QString& path);
QPixmap SvgPixmap(const QString& path, const QSize& size, qreal devicePixelRatio, const QColor& ink);
/// Paints the picture as large as it fits into `box`, undistorted and centred.
void PaintArtwork(QPainter& painter, const QString& name, const QRect& box, const QColor& ink);
/// The largest rectangle of the shape of `natural` in the middle of `box`.
QRect FittedRect(const QSize& natural, const QRect& box);
/// A colour between the two; `share` from 0 (all `ground`) to 1.
QColor Mixed(const QColor& ground, const QColor& tint, double share);

}  // namespace kavr6::widgets
