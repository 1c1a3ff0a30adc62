// A drop-down list whose open rows have notes.
#pragma once

#include <QComboBox>

namespace kavr6::widgets {

/// The notes (see RowNotes) stand in the open list alone, which is as wide as they need it.
class NotedCombo : public QComboBox {
  Q_OBJECT

 public:
  explicit NotedCombo(QWidget* parent = nullptr);
  void showPopup() override;

 signals:
  /// The list is about to be shown, with the notes that it has when this returns.
  void opens();
  void closed();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void widen();
};

}  // namespace kavr6::widgets
