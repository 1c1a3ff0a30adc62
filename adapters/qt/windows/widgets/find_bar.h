// A line that searches a text.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QTextEdit>
#include <QWidget>

namespace kavr6::widgets {

/// Finds words in a text that is shown, forward and backward, around its ends, and says where it has found
/// nothing. Esc puts it away.
class FindBar : public QWidget {
  Q_OBJECT

 public:
  explicit FindBar(QTextEdit& text);

  /// Shows the line with its words selected, ready to be typed over.
  void open();
  void put(bool away);
  /// The next place behind the selection, or before it.
  void find(bool backward);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void findWhileTyping();
  void tell(bool found, bool around);

  QTextEdit& text_;
  QLineEdit* words_;
  QLabel* outcome_;
};

}  // namespace kavr6::widgets
