// A page that is scrolled where the screen is too low for it.
#pragma once

#include <QScrollArea>

namespace kavr6::widgets {

/// Wants to be as large as its page, and is content with less height.
class PageArea : public QScrollArea {
  Q_OBJECT

 public:
  explicit PageArea(QWidget* parent = nullptr);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void SettlePage() const;
};

}  // namespace kavr6::widgets
