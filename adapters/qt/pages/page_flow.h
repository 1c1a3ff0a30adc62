// Lines of text on pages.
#pragma once

#include <QFont>
#include <QPaintDevice>
#include <QRectF>
#include <QString>
#include <vector>

namespace kavr6 {

/// A line of the document, however long.
struct PrintedLine {
  int column = 0;  ///< in character widths of its font, not bold
  QString text;    ///< empty for a blank line
  QFont font;
};

/// A piece of text that fits on its page, in the coordinates of the device.
struct PlacedText {
  QPointF baseline;
  QString text;
  QFont font;
};
using PageTexts = std::vector<PlacedText>;

/// Lines one below the other in `area`, on as many pages as it takes; at least one. What is too long for the
/// area goes on below at its line's column, broken between words where there are any.
std::vector<PageTexts> FlowPages(const std::vector<PrintedLine>& lines, const QRectF& area,
                                 QPaintDevice& device);

}  // namespace kavr6
