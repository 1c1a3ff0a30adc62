// A page that is scrolled where the screen is too small for it.
#pragma once

#include <QScrollArea>

namespace kavr6::widgets {

/// Wants to be as large as its page, as far as the screen allows, and is content with less.
class PageArea : public QScrollArea {
  Q_OBJECT

 public:
  explicit PageArea(QWidget* parent = nullptr);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
  bool hasHeightForWidth() const override;
  int heightForWidth(int width) const override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  QSize Room() const;
  void SettlePage() const;
  void SettleBar();
};

}  // namespace kavr6::widgets
