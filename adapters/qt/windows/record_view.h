// A long text that grows at its end, on the screen.
#pragma once

#include <QBasicTimer>
#include <QObject>
#include <QPlainTextEdit>
#include <string>

#include "platform/text_area.h"

namespace kavr6 {

/// Shows a text area for reading. News come to the screen at once, but no more often than an eye can follow:
/// the bytes of a serial line come one by one. As long as the user has not scrolled up it stays at the end,
/// and what the user has selected stays selected.
class RecordView : public QObject {
 public:
  /// Lives as long as the widget; the area lives longer.
  RecordView(const TextArea& area, QPlainTextEdit& edit);
  void Refresh();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void timerEvent(QTimerEvent* event) override;

 private:
  void ShowNews();
  void ShowText();
  void TakeAway(std::size_t codeUnits);
  void AddFrom(std::size_t codeUnits);

  const TextArea& area_;
  QPlainTextEdit& edit_;
  QBasicTimer pause_;
  std::string shown_;
  int shownRewrites_ = 0;
  std::size_t shownDropped_ = 0;
};

/// As text widgets show a text: they end lines with LF alone. A CR of its own shows as nothing, so that a
/// line's end whose halves come one after the other is one line's end.
QString ShownLines(const std::string& text);

}  // namespace kavr6
