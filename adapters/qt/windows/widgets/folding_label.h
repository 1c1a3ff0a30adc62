// A label that breaks into lines only where it must.
#pragma once

#include <QLabel>

namespace kavr6::widgets {

/// Wants one line, and takes several where there is less room: the toolkit's own would rather be narrow.
class FoldingLabel : public QLabel {
 public:
  explicit FoldingLabel(QWidget* parent = nullptr) : QLabel(parent) { setWordWrap(true); }
  QSize sizeHint() const override {
    constexpr int kFraction = 1;  // letters end between pixels
    return fontMetrics().size(Qt::TextShowMnemonic, text()) + QSize(kFraction, 0);
  }
};

}  // namespace kavr6::widgets
